#pragma once

#include "Utils/FatalError.h"

#include <string>
#include <vector>

namespace Support {

/// Replaces the fatal error dialog for a scope and records its texts.
class FatalErrorRecorder {
public:
    FatalErrorRecorder()
        : before(Utils::SetFatalErrorDialog([this](const std::string& caption, const std::string& text) {
              captions.push_back(caption);
              texts.push_back(text);
          })) {}
    ~FatalErrorRecorder() { Utils::SetFatalErrorDialog(before); }
    FatalErrorRecorder(const FatalErrorRecorder&) = delete;
    FatalErrorRecorder& operator=(const FatalErrorRecorder&) = delete;

    std::vector<std::string> captions, texts;

private:
    Utils::FatalErrorDialog before;
};

} // namespace Support

#pragma once

#include "Utils/FatalError.h"

#include <string>
#include <vector>

namespace Support {

/// Takes the place of the fatal error dialog for the length of a scope and keeps what it was given.
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

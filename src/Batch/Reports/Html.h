#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Batch {

/// Pieces of HTML pages. `content`, `head`, `rows` and `attributes` must already be markup.

/// Any bytes as markup.
std::string Escaped(std::string_view text);
std::string Element(const std::string& name, const std::string& content, const std::string& attributes = {});
/// A table in a frame that scrolls sideways on narrow screens.
std::string Table(const std::string& head, const std::string& rows, const std::string& style = {});
/// The cells of a table's head: their texts, which must be markup, and style classes.
std::string HeadCells(const std::vector<std::pair<std::string, std::string>>& namesAndStyles);
/// The start of a page that loads no other resources, up to where its style sheet begins. The title must be markup.
std::string PageHead(const std::string& title);
/// What comes between style sheet and content, and after the content.
inline constexpr const char* kPageBody = "</style>\n</head>\n<body>\n";
inline constexpr const char* kPageTail = "</body>\n</html>\n";

std::string Base64(std::string_view bytes);
/// An image that is part of the page: a PNG in base 64. The description is any text.
std::string PngElement(const std::string& base64, const std::string& description, std::uint32_t width,
                       std::uint32_t height);

} // namespace Batch

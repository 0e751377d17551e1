#include "Batch/Reports/Html.h"

#include "Batch/Reports/TestReport.h"
#include "Utils/Text.h"

#include <boost/algorithm/string/replace.hpp>

namespace Batch {

std::string Escaped(std::string_view text) {
    constexpr std::pair<const char*, const char*> kEntities[] = {
        {"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}, {"\"", "&quot;"}};
    std::string escaped = WithoutControls(Utils::ToValidUtf8(text));
    for (const auto& [character, entity] : kEntities)
        boost::replace_all(escaped, character, entity);
    return escaped;
}

std::string Element(const std::string& name, const std::string& content, const std::string& attributes) {
    return "<" + name + (attributes.empty() ? "" : " " + attributes) + ">" + content + "</" + name + ">";
}

std::string Table(const std::string& head, const std::string& rows, const std::string& style) {
    return "<div class=\"scroll " + style + "\">\n<table>\n<thead><tr>" + head + "</tr></thead>\n<tbody>\n" + rows +
           "</tbody>\n</table>\n</div>\n";
}

std::string HeadCells(const std::vector<std::pair<std::string, std::string>>& namesAndStyles) {
    std::string cells;
    for (const auto& [name, style] : namesAndStyles)
        cells += Element("th", name, "scope=\"col\" class=\"" + style + "\"");
    return cells;
}

std::string PageHead(const std::string& title) {
    return R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>)html" +
           title + "</title>\n<style>\n";
}

std::string Base64(std::string_view bytes) {
    constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::string_view three = bytes.substr(at, 3);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8 | (i < three.size() ? static_cast<unsigned char>(three[i]) : 0u);
        for (std::size_t i = 0; i < 4; ++i)
            text += i <= three.size() ? kDigits[bits >> (18 - 6 * i) & 63] : '=';
    }
    return text;
}

std::string PngElement(const std::string& base64, const std::string& description, std::uint32_t width,
                       std::uint32_t height) {
    return "<img width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) + "\" alt=\"" +
           Escaped(description) + "\" src=\"data:image/png;base64," + base64 + "\">";
}

} // namespace Batch

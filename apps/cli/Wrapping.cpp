// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Wrapping.h"

#include <algorithm>
#include <sstream>

namespace Cli {
namespace {

/// Columns, as long as every character takes one.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string wrappedLine(const std::string& line, std::size_t columns, std::size_t indent, std::size_t begun) {
    const std::size_t own = std::min(line.find_first_not_of(' '), line.size());
    std::string text = line.substr(0, own);
    std::size_t width = begun + own;
    bool isFirst = true;
    std::istringstream words(line);
    for (std::string word; words >> word; isFirst = false) {
        if (!isFirst && width + 1 + widthOf(word) > columns) {
            text += '\n' + std::string(indent + own, ' ');
            width = indent + own;
        } else if (!isFirst) {
            text += ' ';
            ++width;
        }
        text += word;
        width += widthOf(word);
    }
    return text;
}

} // namespace

std::string Wrapping::wrapped(const std::string& text, std::size_t columns, std::size_t indent, std::size_t begun) {
    std::string whole;
    std::istringstream lines(text);
    std::size_t taken = begun;
    for (std::string line; std::getline(lines, line);) {
        if (!whole.empty() || taken != begun)
            whole += '\n' + (line.empty() ? std::string() : std::string(indent, ' '));
        whole += wrappedLine(line, columns, indent, taken);
        taken = indent;
    }
    return whole;
}

} // namespace Cli

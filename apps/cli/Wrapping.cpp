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

/// Where the first `columns` columns of the line end.
std::size_t endOf(const std::string& line, std::size_t columns) {
    std::size_t at = 0;
    for (std::size_t taken = 0; at < line.size(); ++at)
        if ((line[at] & 0xC0) != 0x80 && taken++ == columns)
            break;
    return at;
}

/// Where the line is to be broken; npos where it stays whole.
std::size_t breakOf(const std::string& line, std::size_t columns, std::size_t from) {
    if (widthOf(line) <= columns)
        return std::string::npos;
    const std::size_t last = line.rfind(' ', endOf(line, columns));
    return last != std::string::npos && last > from ? last : line.find(' ', std::max(from, endOf(line, columns)));
}

} // namespace

std::string Wrapping::fitted(const std::string& text, std::size_t columns, std::size_t hang) {
    std::string whole;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::size_t from = std::min(line.find_first_not_of(' '), line.size());
        for (std::size_t at = 0; (at = breakOf(line, columns, from)) != std::string::npos; from = hang) {
            whole += line.substr(0, at) + '\n';
            line = std::string(hang, ' ') + line.substr(std::min(line.find_first_not_of(' ', at), line.size()));
        }
        whole += line + '\n';
    }
    return whole;
}

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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/MediaLocator.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace Timeline {
namespace {

namespace fs = std::filesystem;

bool isHex(char letter) {
    return std::isxdigit(static_cast<unsigned char>(letter)) != 0;
}

std::string percentDecoded(const std::string& text) {
    std::string result;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] == '%' && index + 2 < text.size() && isHex(text[index + 1]) && isHex(text[index + 2])) {
            result += static_cast<char>(std::stoi(text.substr(index + 1, 2), nullptr, 16));
            index += 2;
        } else {
            result += text[index];
        }
    }
    return result;
}

/// In lower case, without the colon; empty where the name has none. One letter is a drive, not a scheme.
std::string schemeOf(const std::string& name) {
    const std::size_t colon = name.find(':');
    if (colon == std::string::npos || colon < 2 || !std::isalpha(static_cast<unsigned char>(name[0])))
        return {};
    std::string scheme = name.substr(0, colon);
    const auto fits = [](unsigned char letter) {
        return std::isalnum(letter) || letter == '+' || letter == '-' || letter == '.';
    };
    if (!std::all_of(scheme.begin(), scheme.end(), fits))
        return {};
    std::transform(scheme.begin(), scheme.end(), scheme.begin(),
                   [](unsigned char letter) { return std::tolower(letter); });
    return scheme;
}

bool isWindowsPath(const std::string& path) {
    const std::size_t letter = path.size() > 1 && path[0] == '/' ? 1 : 0;
    const bool drive = path.size() > letter + 2 && std::isalpha(static_cast<unsigned char>(path[letter])) &&
                       (path[letter + 1] == ':' || path[letter + 1] == '|') &&
                       (path[letter + 2] == '\\' || path[letter + 2] == '/');
    return drive || path.compare(0, 2, "\\\\") == 0;
}

std::string lastPart(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

struct FileUrl {
    std::string path; ///< as it is written
    bool isLocal;
};

FileUrl pathOf(const std::string& url) {
    std::string rest = url.substr(5); // behind "file:"
    if (rest.compare(0, 2, "//") != 0)
        return {rest, true};
    const std::size_t slash = rest.find('/', 2);
    const std::string host = rest.substr(2, slash == std::string::npos ? slash : slash - 2);
    const bool isLocal = host.empty() || host == "localhost" || host == "127.0.0.1";
    return {slash == std::string::npos ? std::string() : rest.substr(slash), isLocal};
}

} // namespace

MediaLocator::MediaLocator(std::string timelineFolder, std::string mediaRoot)
    : folder(std::move(timelineFolder))
    , root(std::move(mediaRoot)) {}

MediaLocator::Result MediaLocator::locate(const std::string& name, Wanted wanted) const {
    std::string path = name;
    const std::string scheme = schemeOf(name);
    if (scheme == "file") {
        const FileUrl url = pathOf(name);
        if (!url.isLocal)
            return belowRoot(percentDecoded(url.path), "stands on another machine", wanted);
        path = url.path;
    }
    if (path.empty() || percentDecoded(path).find('\0') != std::string::npos)
        return Trouble{path.empty() ? "has no name" : "has a name with a zero byte", true};
    if (isWindowsPath(path) || isWindowsPath(percentDecoded(path)))
        return belowRoot(percentDecoded(path), "stands at a path of Windows", wanted);
    // A file may be called "a: b"; but what is not there and looks like a URL was meant to be one.
    Result written = atPath(path, wanted);
    const std::string decoded = percentDecoded(path);
    if (std::holds_alternative<Kestra::ioPath>(written) && scheme != "file")
        return written;
    if (scheme == "file" || decoded != path)
        if (Result other = atPath(decoded, wanted); std::holds_alternative<Kestra::ioPath>(other))
            return other;
    if (std::holds_alternative<Kestra::ioPath>(written) || std::get<Trouble>(written).isHere)
        return written;
    if (!scheme.empty() && scheme != "file")
        return Trouble{"is a URL of the scheme \"" + scheme + "\"; only files are opened", true};
    return belowRoot(decoded, std::get<Trouble>(written).why, wanted);
}

MediaLocator::Result MediaLocator::atPath(const std::string& path, Wanted wanted) const {
    const fs::path place = (fs::path(folder) / path).lexically_normal();
    std::error_code error;
    const fs::file_status status = fs::status(place, error);
    if (status.type() == fs::file_type::not_found)
        return Trouble{"is not there", false};
    if (status.type() == fs::file_type::none)
        return Trouble{"cannot be looked at: " + error.message(), true};
    if (wanted == Wanted::File && !fs::is_regular_file(status))
        return Trouble{"is no plain file", true};
    if (wanted == Wanted::Folder && !fs::is_directory(status))
        return Trouble{"is no folder", true};
    return Kestra::ioPath(place.string());
}

MediaLocator::Result MediaLocator::belowRoot(const std::string& path, const std::string& why, Wanted wanted) const {
    if (root.empty())
        return Trouble{why, false};
    const MediaLocator below(root, {});
    const bool relative = !path.empty() && path.front() != '/' && !isWindowsPath(path);
    if (relative)
        if (Result found = below.atPath(path, wanted); std::holds_alternative<Kestra::ioPath>(found))
            return found;
    const std::string last = lastPart(path);
    Result found = last.empty() ? Result(Trouble{}) : below.atPath(last, wanted);
    return std::holds_alternative<Kestra::ioPath>(found) ? found
                                                         : Trouble{why + ", nor below the folder for media", false};
}

} // namespace Timeline

// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MediaCache.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <unistd.h>

extern "C" {
#include <libavutil/avutil.h>
#include <libavutil/md5.h>
}

namespace TestMedia {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t MOST_BYTES = std::size_t{64} << 20; ///< of one file
constexpr std::size_t SUM_BYTES = 16;

std::string sumOf(const std::string& bytes) {
    std::array<std::uint8_t, SUM_BYTES> sum{};
    av_md5_sum(sum.data(), reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return {sum.begin(), sum.end()};
}

std::string inHex(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes)
        for (const int shift : {4, 0})
            text += "0123456789abcdef"[static_cast<unsigned char>(byte) >> shift & 15];
    return text;
}

std::optional<std::string> bytesOf(const std::string& path) {
    std::error_code missing;
    if (!fs::is_regular_file(path, missing))
        return std::nullopt;
    const std::uintmax_t size = fs::file_size(path, missing);
    if (missing)
        return std::nullopt;
    std::string bytes(size, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    return file ? std::optional(bytes) : std::nullopt;
}

bool write(const std::string& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return !file.fail();
}

/// Which ffmpeg runs here: another version, or another file of that name, makes other files.
std::string programOfThisRun() {
    const char* const path = std::getenv("PATH");
    std::istringstream places(path ? path : "");
    std::string text = av_version_info();
    for (std::string place; std::getline(places, place, ':');) {
        std::error_code missing;
        const std::string program = place + "/ffmpeg";
        const auto changed = fs::last_write_time(program, missing);
        if (!missing)
            return text + program + std::to_string(changed.time_since_epoch().count());
    }
    return text;
}

/// Formats that name other files, or write more than one.
bool isOfManyFiles(const std::string& word) {
    static const char* const names[] = {"concat", "segment", "stream_segment", "ssegment", "hls",
                                        "dash",   "tee",     "image2"};
    return std::find(std::begin(names), std::end(names), word) != std::end(names);
}

bool namesOthers(const std::string& path) {
    static const char* const extensions[] = {".txt", ".ffconcat", ".m3u8", ".mpd", ".sdp", ".idx"};
    const std::string extension = fs::path(path).extension();
    return path.find('%') != std::string::npos ||
           std::find(std::begin(extensions), std::end(extensions), extension) != std::end(extensions);
}

/// What the output owes to the word behind `before`; nothing when that cannot be told.
std::optional<std::string> shareOf(const std::string& before, const std::string& word) {
    const bool isPath =
        word.find(fs::temp_directory_path().string()) != std::string::npos || word.find("/tmp/") != std::string::npos;
    if (before != "-i")
        return isPath || isOfManyFiles(word) ? std::nullopt : std::optional(word);
    const std::optional<std::string> bytes = bytesOf(word);
    if (bytes)
        return namesOthers(word) ? std::nullopt : std::optional(sumOf(*bytes));
    return isPath ? std::nullopt : std::optional(word);
}

} // namespace

MediaCache::MediaCache(std::string folder)
    : folder(std::move(folder)) {}

MediaCache MediaCache::ofTheBuild() {
    const char* const named = std::getenv("EDITOREXPORT_MEDIA_CACHE");
    return MediaCache(named ? named : MEDIA_CACHE_OF_THE_BUILD);
}

std::string MediaCache::keyOf(const std::vector<std::string>& arguments) {
    if (arguments.empty() || namesOthers(arguments.back()))
        return {};
    std::string parts = programOfThisRun();
    std::string before;
    for (auto word = arguments.begin(); word + 1 != arguments.end(); before = *word++) {
        const std::optional<std::string> share = shareOf(before, *word);
        if (!share)
            return {};
        parts += sumOf(*share);
    }
    const std::string extension = fs::path(arguments.back()).extension();
    return inHex(sumOf(parts)) + extension;
}

bool MediaCache::fetch(const std::string& key, const std::string& path) const {
    if (key.empty() || folder.empty())
        return false;
    std::optional<std::string> entry = bytesOf(folder + "/" + key);
    if (!entry || entry->size() < SUM_BYTES)
        return false;
    const std::string sum = entry->substr(entry->size() - SUM_BYTES);
    entry->resize(entry->size() - SUM_BYTES);
    return sumOf(key + *entry) == sum && write(path, *entry);
}

void MediaCache::keep(const std::string& key, const std::string& path) const {
    const std::optional<std::string> bytes = key.empty() || folder.empty() ? std::nullopt : bytesOf(path);
    if (!bytes || bytes->size() > MOST_BYTES)
        return;
    std::error_code failed;
    fs::create_directories(folder, failed);
    // Under a name of its own until it is whole: others look at the same time, and this program may be killed.
    std::string unfinished = folder + "/.new-XXXXXX";
    const int descriptor = mkstemp(unfinished.data());
    if (descriptor < 0)
        return;
    close(descriptor);
    if (write(unfinished, *bytes + sumOf(key + *bytes)))
        fs::rename(unfinished, folder + "/" + key, failed);
    else
        fs::remove(unfinished, failed);
}

} // namespace TestMedia

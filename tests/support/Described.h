// SPDX-License-Identifier: GPL-3.0-or-later
// What a media file says of itself and what its subtitles say, read independently of the engine.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace TestMedia {

/// Times in seconds.
struct DescribedChapter {
    double start = 0;
    double end = 0;
    std::string title;
};

struct DescribedText {
    double start = 0;
    double end = 0;
    std::string text; ///< without overrides
};

struct DescribedStream {
    std::string kind; ///< "video", "audio", "subtitle", "data", "attachment"; "cover" for an attached picture
    std::string codec;
    std::map<std::string, std::string> tags; ///< keys in lower case
    int disposition = 0;
    std::vector<DescribedText> texts;
    int coverBytes = 0;

    std::string tag(const std::string& key) const { return tags.count(key) > 0 ? tags.at(key) : std::string(); }
};

struct DescribedFile {
    std::map<std::string, std::string> tags; ///< keys in lower case
    std::vector<DescribedChapter> chapters;
    std::vector<DescribedStream> streams;
    double disorder = 0; ///< by how many seconds a packet stands behind a later one in the file, at most

    std::string tag(const std::string& key) const { return tags.count(key) > 0 ? tags.at(key) : std::string(); }
    /// Of that kind.
    std::vector<DescribedStream> all(const std::string& kind) const;
    /// "One 0.00-1.00, Two 1.00-2.00".
    std::string chapterText() const;
    /// Of the n-th track of subtitles: "Words 0.00-1.00, More 1.00-2.00"; empty where there is none.
    std::string subtitleText(std::size_t number = 0) const;
};

/// Reads the file to its end. Throws std::runtime_error when it cannot be opened.
DescribedFile describe(const std::string& path);

} // namespace TestMedia

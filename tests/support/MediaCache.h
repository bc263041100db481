// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps what the ffmpeg program made for one test for all others, of this run and of later ones.
#pragma once

#include <string>
#include <vector>

namespace TestMedia {

/// Files by what they were made of, in a folder that programs share. Whoever asks gets a copy of its own. What cannot
/// be kept or is not whole is made anew; none of it fails a test.
class MediaCache {
public:
    /// The folder is made when there is something to keep; without one nothing is kept.
    explicit MediaCache(std::string folder);
    /// In the build's folder, or in the one that EDITOREXPORT_MEDIA_CACHE names ("": none).
    static MediaCache ofTheBuild();

    /// All that the output, the last of the arguments, depends on: the program itself, the arguments, the bytes of the
    /// files that it reads, the output's extension. Empty where there may be more of it than these tell.
    static std::string keyOf(const std::vector<std::string>& arguments);

    /// Writes what is kept under the key to `path`; false when nothing whole is.
    bool fetch(const std::string& key, const std::string& path) const;
    /// A key that is empty keeps nothing.
    void keep(const std::string& key, const std::string& path) const;

private:
    const std::string folder;
};

} // namespace TestMedia

// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::PlacesInUse: the files that exports read and make.
#pragma once

#include "Kestra/Conf/NumberedName.h"
#include "cli/Options.h"
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace Cli {

/// What is written beside an export must be none of them.
class PlacesInUse {
public:
    /// What the file is to this export, as "one of the inputs"; empty where it is nothing to it. Names that lead to the
    /// same file are the same. Timelines are read for the media that they name.
    static std::string useBy(const Options& exported, const std::string& path);
    /// Likewise to one of several, each with its report, or to the queue that they stand in.
    static std::string useByAny(const std::vector<Options>& exports, const std::string& path);
    /// Whether it is the file of a queue, or what is kept beside that.
    static bool isOfQueue(const std::string& queue, const std::string& path);
    /// What stands there and is no regular file, as "it is a pipe"; empty for one, and where nothing stands.
    static std::string whyNoFile(const std::string& path);

    /// Of several exports, the files of all of which are looked up once, when they are first asked for.
    explicit PlacesInUse(std::vector<Options> exports);
    /// Which of them, counted from 1, reads the file, be it as one of a timeline's media; 0 where none does.
    std::size_t readerOf(const std::string& path);
    /// Which of them before this one, an index, counted from 1, writes what this one writes, too, be it as one of its
    /// pictures; 0 where none does.
    std::size_t writerBefore(std::size_t index);

private:
    /// A true place, taken apart once: each is compared with all others.
    struct Place {
        explicit Place(const std::string& path);
        /// Of an output that is pictures: by its pattern, or in a folder by their usual name, in however many digits;
        /// the pattern of such names, too. Nothing of another output.
        bool hasPicture(const Place& other) const;
        bool shares(const Place& other) const;

        std::string whole, folder, name;
        std::optional<Kestra::Conf::NumberedName> pattern;
        bool isUsual = false;    ///< called as pictures are in a folder
        bool isPictures = false; ///< what is written there
    };
    using File = std::pair<dev_t, ino_t>; ///< whatever it is called

    static bool isPictureOf(const Options& exported, const std::string& path);
    void lookUpWhatIsRead();
    void lookUpWhatIsWritten();
    void addRead(const std::string& path, std::size_t reader);

    const std::vector<Options> exports;
    bool isReadKnown = false;
    std::map<File, std::size_t> readers;     ///< the first of each file
    std::vector<std::vector<Place>> written; ///< of each its places; empty before they are asked for
};

} // namespace Cli

// SPDX-License-Identifier: GPL-3.0-or-later
// Timeline::ZipMedia: the media of an archive, unpacked where they are needed.
#pragma once

#include "Timeline/Document.h"
#include "Timeline/Finding.h"
#include "Timeline/Reader/PrivateFolder.h"
#include "Timeline/Reader/ZipArchive.h"
#include <map>
#include <memory>
#include <optional>

namespace Timeline {

/// Used by one reading. In the folder there is an empty file for each entry of "media" from the start, so that a reader
/// finds what the archive has; the bytes follow for what is asked for, and removeRest() takes away what is still empty.
class ZipMedia {
public:
    static constexpr const char* CONTENT = "content.otio";
    static constexpr const char* VERSION = "version.txt";
    static constexpr const char* MEDIA = "media/";

    /// Both are borrowed for life; `interrupted`, unless null, ends what takes long when it turns true. Throws
    /// std::system_error where there can be no folder.
    explicit ZipMedia(const ZipArchive& archive, const std::atomic<bool>* interrupted = nullptr);

    const std::shared_ptr<const PrivateFolder>& folder() const { return place; }
    /// The file of the entry of that name, unpacked; nothing where there is none, or where it cannot be.
    std::optional<std::string> fileOf(const std::string& entry);
    /// Unpacks what the reference names, where it names something in the folder. Whether that failed, which is told
    /// once.
    bool failsToUnpack(const MediaReference& media);
    /// An empty file that stands for an entry must not be taken for a medium.
    void removeRest();
    bool has(const std::string& entry) const { return files.count(entry) > 0; }

    std::vector<Finding> takeFindings() { return std::move(findings); }

private:
    struct File {
        const ZipArchive::Entry* entry = nullptr;
        std::string path;
        bool unpacked = false;
    };

    void prepare(const ZipArchive::Entry& entry);
    void unpack(File& file);
    void remove(File& file);
    bool failsToUnpack(const ImageSequence& sequence);
    /// Below the folder, with steps back taken; nothing where it lies elsewhere.
    std::optional<std::string> insideOf(const Kestra::ioPath& path) const;
    void tell(const ZipArchive::Entry& entry, const std::string& clause);

    const ZipArchive& archive;
    const std::atomic<bool>* const interrupted;
    std::uint64_t unpackedBytes = 0;
    const std::shared_ptr<const PrivateFolder> place;
    std::map<std::string, File> files; ///< by the names of their entries
    std::vector<Finding> findings;
};

} // namespace Timeline

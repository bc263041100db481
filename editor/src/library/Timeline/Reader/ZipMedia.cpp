// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/ZipMedia.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/statvfs.h>
#include <system_error>
#include <unistd.h>

namespace Timeline {

namespace {

namespace fs = std::filesystem;

/// More are not told one by one.
constexpr std::size_t MOST_FINDINGS = 1000;

bool startsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

std::uint64_t freeBytesAt(const std::string& folder) {
    struct statvfs state = {};
    return ::statvfs(folder.c_str(), &state) == 0 ? static_cast<std::uint64_t>(state.f_bavail) * state.f_frsize : 0;
}

/// Why there is no new, empty file, as a clause; empty where there is one.
std::string makeFile(const std::string& path) {
    std::error_code error;
    fs::create_directories(fs::path(path).parent_path(), error);
    const int file = error ? -1 : ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        return errno == EEXIST && !error
                   ? "is in it twice"
                   : "cannot be unpacked: " + (error ? error.message() : std::generic_category().message(errno));
    ::close(file);
    return {};
}

} // namespace

ZipMedia::ZipMedia(const ZipArchive& archive, const std::atomic<bool>* interrupted)
    : archive(archive)
    , interrupted(interrupted)
    , place(std::make_shared<PrivateFolder>()) {
    for (const ZipArchive::Entry& entry : archive.entries())
        if (entry.name == CONTENT || entry.name == VERSION || startsWith(entry.name, MEDIA))
            prepare(entry);
        else if (!staysInside(entry.name))
            tell(entry, "has a name that leads out of the archive");
}

void ZipMedia::tell(const ZipArchive::Entry& entry, const std::string& clause) {
    if (findings.size() < MOST_FINDINGS)
        findings.push_back({Finding::Kind::Error, {}, {}, "its entry \"" + entry.name + "\" " + clause});
}

void ZipMedia::prepare(const ZipArchive::Entry& entry) {
    if (!staysInside(entry.name))
        return tell(entry, "has a name that leads out of the archive");
    File file;
    file.entry = &entry;
    file.path = place->path() + '/' + entry.name;
    if (const std::string trouble = makeFile(file.path); !trouble.empty())
        return tell(entry, trouble);
    files.emplace(entry.name, std::move(file));
}

void ZipMedia::unpack(File& file) {
    if (file.unpacked || file.path.empty())
        return;
    std::string trouble = ZipArchive::whyNot(*file.entry, {freeBytesAt(place->path()), unpackedBytes, archive.size()});
    if (trouble.empty())
        trouble = archive.unpack(*file.entry, file.path, interrupted);
    file.unpacked = trouble.empty();
    if (file.unpacked) {
        unpackedBytes += file.entry->size;
        return;
    }
    tell(*file.entry, trouble);
    remove(file);
}

void ZipMedia::remove(File& file) {
    std::error_code ignored;
    fs::remove(file.path, ignored);
    file.path.clear();
}

void ZipMedia::removeRest() {
    for (auto& [name, file] : files)
        if (!file.unpacked && !file.path.empty())
            remove(file);
}

std::optional<std::string> ZipMedia::fileOf(const std::string& entry) {
    const auto found = files.find(entry);
    if (found == files.end())
        return std::nullopt;
    unpack(found->second);
    return found->second.unpacked ? std::optional(found->second.path) : std::nullopt;
}

std::optional<std::string> ZipMedia::insideOf(const Kestra::ioPath& path) const {
    const std::string plain = fs::path(path.ToUtf8()).lexically_normal().string();
    const std::string folder = place->path() + '/';
    return startsWith(plain, folder) ? std::optional(plain.substr(folder.size())) : std::nullopt;
}

bool ZipMedia::failsToUnpack(const MediaReference& media) {
    if (const auto* sequence = std::get_if<ImageSequence>(&media.target))
        return failsToUnpack(*sequence);
    const auto* const file = std::get_if<MediaFile>(&media.target);
    const auto inside = file ? insideOf(file->path) : std::nullopt;
    return inside && !fileOf(*inside);
}

// Which of the pictures will be asked for, the track decides.
bool ZipMedia::failsToUnpack(const ImageSequence& sequence) {
    const auto inside = insideOf(Kestra::ioPath((fs::path(sequence.folder.ToUtf8()) / "").string()));
    if (!inside)
        return false;
    bool failed = false;
    const std::string start = *inside + sequence.prefix;
    for (auto file = files.lower_bound(start); file != files.end() && startsWith(file->first, start); ++file) {
        unpack(file->second);
        failed = failed || !file->second.unpacked;
    }
    return failed;
}

} // namespace Timeline

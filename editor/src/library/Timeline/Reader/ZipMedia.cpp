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

ZipMedia::ZipMedia(const ZipArchive& archive)
    : archive(archive)
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
    std::string trouble = ZipArchive::whyNot(*file.entry, freeBytesAt(place->path()));
    if (trouble.empty())
        trouble = archive.unpack(*file.entry, file.path);
    file.unpacked = trouble.empty();
    if (file.unpacked)
        return;
    tell(*file.entry, trouble);
    std::error_code ignored;
    fs::remove(file.path, ignored);
    file.path.clear();
}

std::optional<std::string> ZipMedia::fileOf(const std::string& entry) {
    const auto found = files.find(entry);
    if (found == files.end())
        return std::nullopt;
    unpack(found->second);
    return found->second.unpacked ? std::optional(found->second.path) : std::nullopt;
}

bool ZipMedia::unpack(const MediaReference& media) {
    if (const auto* sequence = std::get_if<ImageSequence>(&media.target))
        return unpackSequence(*sequence);
    const auto* const file = std::get_if<MediaFile>(&media.target);
    const std::string inside = place->path() + '/';
    const std::string path = file ? fs::path(file->path.ToUtf8()).lexically_normal().string() : std::string();
    return !startsWith(path, inside) || fileOf(path.substr(inside.size())).has_value();
}

// Which of the pictures will be asked for, the track decides.
bool ZipMedia::unpackSequence(const ImageSequence& sequence) {
    const std::string folder = (fs::path(sequence.folder.ToUtf8()).lexically_normal() / "").string();
    const std::string inside = place->path() + '/';
    if (!startsWith(folder, inside))
        return true;
    bool whole = true;
    const std::string start = folder.substr(inside.size()) + sequence.prefix;
    for (auto file = files.lower_bound(start); file != files.end() && startsWith(file->first, start); ++file) {
        unpack(file->second);
        whole = whole && file->second.unpacked;
    }
    return whole;
}

} // namespace Timeline

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/ZipArchive.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <system_error>
#include <zip.h>

namespace Timeline {

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t MOST_ENTRIES = 1'000'000;
// Deflated media hardly become smaller at all. What is short is let pass: it may be black.
constexpr std::uint64_t MOST_TIMES = 200;
constexpr std::uint64_t SHORT = 16ULL << 20;
// Likewise of all that is unpacked: many that are short, and such as share their bytes, add up.
constexpr std::uint64_t MOST_TIMES_TOGETHER = 50;
constexpr std::uint64_t SHORT_TOGETHER = 128ULL << 20;
/// What is to be left of the disk.
constexpr std::uint64_t RESERVE = 64ULL << 20;
constexpr int UNIX_MODE_SHIFT = 16;

struct FileCloser {
    void operator()(zip_file_t* file) const noexcept { zip_fclose(file); }
};

std::string reasonOf(int code) {
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    std::string text = zip_error_strerror(&error);
    zip_error_fini(&error);
    return text;
}

bool isLink(zip_t* archive, std::uint64_t index) {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0 || system != ZIP_OPSYS_UNIX)
        return false;
    const auto type = static_cast<mode_t>(attributes >> UNIX_MODE_SHIFT) & S_IFMT;
    return type != 0 && type != S_IFREG;
}

std::string mebibytes(std::uint64_t bytes) {
    return std::to_string((bytes + (1U << 20) - 1) >> 20) + " MiB";
}

} // namespace

void ZipArchive::Closer::operator()(zip* archive) const noexcept {
    zip_discard(archive);
}

std::string ZipArchive::open(const std::string& path) {
    std::error_code error;
    const auto status = fs::status(path, error);
    if (!fs::is_regular_file(status))
        return fs::exists(status) ? "it is no plain file" : "it is not there";
    bytes = fs::file_size(path, error);
    if (error)
        return error.message();
    int code = 0;
    archive.reset(zip_open(path.c_str(), ZIP_RDONLY, &code));
    if (!archive)
        return "it is no zip archive, or a damaged one: " + reasonOf(code);
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    if (count > MOST_ENTRIES)
        return "it has more entries than a timeline should (" + std::to_string(MOST_ENTRIES) + ')';
    for (zip_int64_t index = 0; index < count; ++index) {
        zip_stat_t state;
        zip_stat_init(&state);
        constexpr zip_uint64_t needed = ZIP_STAT_NAME | ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE;
        if (zip_stat_index(archive.get(), static_cast<zip_uint64_t>(index), 0, &state) != 0 ||
            (state.valid & needed) != needed)
            return "its entry " + std::to_string(index) + " is damaged";
        Entry entry;
        entry.name = state.name;
        entry.index = static_cast<std::uint64_t>(index);
        entry.size = state.size;
        entry.packed = state.comp_size;
        entry.encrypted = (state.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && state.encryption_method != ZIP_EM_NONE;
        entry.link = isLink(archive.get(), entry.index);
        if (entry.name.empty() || entry.name.back() != '/')
            all.push_back(std::move(entry));
    }
    return {};
}

std::string ZipArchive::whyNot(const Entry& entry, const Room& room) {
    if (!staysInside(entry.name))
        return "has a name that leads out of the archive";
    if (entry.link)
        return "is no plain file";
    if (entry.encrypted)
        return "is encrypted";
    if (entry.size > SHORT && entry.size / MOST_TIMES > entry.packed)
        return "claims to hold " + mebibytes(entry.size) + " in " + std::to_string(entry.packed) +
               " bytes, which media never do";
    if (entry.size > room.free || room.free - entry.size < RESERVE)
        return "takes " + mebibytes(entry.size) + ", and where it would be unpacked " + mebibytes(room.free) +
               " are free";
    const std::uint64_t together = room.unpacked + entry.size;
    if (together > SHORT_TOGETHER && together / MOST_TIMES_TOGETHER > room.archive)
        return "makes " + mebibytes(together) + " of an archive of " + std::to_string(room.archive) +
               " bytes, which media never do";
    return {};
}

std::string ZipArchive::unpack(const Entry& entry, const std::string& path,
                               const std::atomic<bool>* interrupted) const {
    const std::unique_ptr<zip_file_t, FileCloser> file(zip_fopen_index(archive.get(), entry.index, 0));
    if (!file)
        return std::string("cannot be unpacked: ") + zip_strerror(archive.get());
    std::ofstream target(path, std::ios::binary | std::ios::trunc);
    std::array<char, 1 << 16> buffer{};
    std::uint64_t written = 0;
    errno = 0;
    while (target) {
        if (interrupted && *interrupted)
            return "is not unpacked: that was stopped";
        const zip_int64_t got = zip_fread(file.get(), buffer.data(), buffer.size());
        if (got < 0)
            return std::string("is damaged: ") + zip_file_strerror(file.get());
        written += static_cast<std::uint64_t>(got);
        // More than what was held against the free space.
        if (written > entry.size || (got == 0 && written < entry.size))
            return "is damaged: it does not hold what it claims to";
        if (got == 0)
            break;
        target.write(buffer.data(), got);
    }
    target.close();
    if (!target)
        return "cannot be unpacked: " + std::generic_category().message(errno != 0 ? errno : EIO);
    return {};
}

bool staysInside(const std::string& name) {
    if (name.empty() || name.find_first_of(std::string("\\:\0", 3)) != std::string::npos || name.front() == '/')
        return false;
    const fs::path path(name);
    return std::none_of(path.begin(), path.end(), [](const fs::path& part) { return part == ".." || part == "."; });
}

} // namespace Timeline

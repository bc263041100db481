// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/PrivateFolder.h"

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace Timeline {

namespace {

namespace fs = std::filesystem;

const char* const PREFIX = "editor-export-timeline-";
const char* const MARK = ".unpacked";

/// Says of which folder it is: one that somebody copied, or named alike, is nobody's to remove.
std::string markOf(const fs::path& folder) {
    return "unpacked by editor-export, and removed when nobody uses it: " + folder.filename().string() + '\n';
}

std::string contentOf(int file, std::size_t most) {
    std::string content(most, '\0');
    const ssize_t got = ::pread(file, content.data(), content.size(), 0);
    content.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return content;
}

bool isOwn(int file, mode_t type) {
    struct stat state = {};
    return ::fstat(file, &state) == 0 && (state.st_mode & S_IFMT) == type && state.st_uid == ::geteuid();
}

/// Whether a process that has come to its end has left it. The lock of one that lives is held.
bool isLeft(const fs::path& folder) {
    const int place = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    const int file = place < 0 ? -1 : ::openat(place, MARK, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    const std::string expected = markOf(folder);
    const bool left = file >= 0 && isOwn(place, S_IFDIR) && isOwn(file, S_IFREG) &&
                      ::flock(file, LOCK_EX | LOCK_NB) == 0 && contentOf(file, expected.size() + 1) == expected;
    for (const int opened : {file, place})
        if (opened >= 0)
            ::close(opened);
    return left;
}

void sweep(const fs::path& parent) {
    std::error_code error, ignored;
    for (fs::directory_iterator entry(parent, error), none; !error && entry != none; entry.increment(error))
        if (entry->path().filename().string().compare(0, std::char_traits<char>::length(PREFIX), PREFIX) == 0 &&
            isLeft(entry->path()))
            fs::remove_all(entry->path(), ignored);
}

/// Locked before it says what it is, so that nobody takes it for one that was left.
int markIn(const std::string& folder) {
    const std::string path = folder + '/' + MARK;
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0)
        return file;
    // Where there are no locks nothing can be swept either.
    static_cast<void>(::flock(file, LOCK_EX | LOCK_NB));
    const std::string mark = markOf(folder);
    if (::write(file, mark.data(), mark.size()) == static_cast<ssize_t>(mark.size()))
        return file;
    const int error = errno;
    ::close(file);
    errno = error;
    return -1;
}

/// In plain form, so that the paths of what lies in it can be compared.
fs::path temporaryFolder() {
    std::error_code error;
    const fs::path told = fs::temp_directory_path(error);
    return fs::canonical(error ? fs::path("/tmp") : told);
}

} // namespace

PrivateFolder::PrivateFolder() {
    const fs::path parent = temporaryFolder();
    sweep(parent);
    folder = (parent / (std::string(PREFIX) + "XXXXXX")).string();
    if (!::mkdtemp(folder.data()))
        throw std::system_error(errno, std::generic_category(), folder);
    mark = markIn(folder);
    if (mark >= 0)
        return;
    const int error = errno;
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    throw std::system_error(error, std::generic_category(), folder);
}

PrivateFolder::~PrivateFolder() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    ::close(mark);
}

} // namespace Timeline

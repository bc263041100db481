// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded into a program, makes calls on one file hang, as those on a network share that is gone do.
//   HANG_FILE    a part of the file's path
//   HANG_CALL    open, read, lseek, pwrite, fsync, close, unlink or rename
//   HANG_THREAD  the beginning of the name of the threads that hang; all when empty
//   HANG_AFTER   so many calls of that kind and thread go well before
//   HANG_MARK    a file that is made when a thread hangs
#include <atomic>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

constexpr int MOST_FILES = 1024;
std::atomic<bool> watched[MOST_FILES];
std::atomic<int> calls{0};

const char* setting(const char* name) {
    const char* value = getenv(name);
    return value ? value : "";
}

bool isMeant(const char* path) {
    return path && *setting("HANG_FILE") && strstr(path, setting("HANG_FILE"));
}

bool isThreadMeant() {
    char name[32] = {};
    pthread_getname_np(pthread_self(), name, sizeof name);
    return strncmp(name, setting("HANG_THREAD"), strlen(setting("HANG_THREAD"))) == 0;
}

template <class Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void hangAt(const char* call) {
    if (strcmp(call, setting("HANG_CALL")) != 0 || !isThreadMeant() || calls++ < atoi(setting("HANG_AFTER")))
        return;
    close(next<int(const char*, int, ...)>("open")(setting("HANG_MARK"), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    for (;;)
        pause();
}

void hangAt(const char* call, int file) {
    if (file >= 0 && file < MOST_FILES && watched[file])
        hangAt(call);
}

int opened(const char* path, int file) {
    if (file >= 0 && file < MOST_FILES)
        watched[file] = isMeant(path);
    return file;
}

int openNext(const char* name, const char* path, int flags, mode_t mode) {
    if (isMeant(path))
        hangAt("open");
    return opened(path, next<int(const char*, int, ...)>(name)(path, flags, mode));
}

} // namespace

#pragma GCC visibility push(default)
extern "C" {

int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openNext("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openNext("open64", path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(more, mode_t) : 0;
    va_end(more);
    if (isMeant(path))
        hangAt("open");
    return opened(path, next<int(int, const char*, int, ...)>("openat")(folder, path, flags, mode));
}

ssize_t read(int file, void* data, size_t size) {
    hangAt("read", file);
    return next<ssize_t(int, void*, size_t)>("read")(file, data, size);
}

off_t lseek(int file, off_t offset, int whence) noexcept {
    hangAt("lseek", file);
    return next<off_t(int, off_t, int)>("lseek")(file, offset, whence);
}

off64_t lseek64(int file, off64_t offset, int whence) noexcept {
    hangAt("lseek", file);
    return next<off64_t(int, off64_t, int)>("lseek64")(file, offset, whence);
}

ssize_t pwrite(int file, const void* data, size_t size, off_t offset) {
    hangAt("pwrite", file);
    return next<ssize_t(int, const void*, size_t, off_t)>("pwrite")(file, data, size, offset);
}

ssize_t pwrite64(int file, const void* data, size_t size, off64_t offset) {
    hangAt("pwrite", file);
    return next<ssize_t(int, const void*, size_t, off64_t)>("pwrite64")(file, data, size, offset);
}

int fsync(int file) {
    hangAt("fsync", file);
    return next<int(int)>("fsync")(file);
}

int close(int file) {
    hangAt("close", file);
    opened(nullptr, file);
    return next<int(int)>("close")(file);
}

int unlink(const char* path) noexcept {
    if (isMeant(path))
        hangAt("unlink");
    return next<int(const char*)>("unlink")(path);
}

int rename(const char* from, const char* to) noexcept {
    if (isMeant(from))
        hangAt("rename");
    return next<int(const char*, const char*)>("rename")(from, to);
}

} // extern "C"
#pragma GCC visibility pop

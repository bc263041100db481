// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded into a program that has a socket as its standard input: loaded and linked, it waits there, and each request
// makes a copy of it run main(). A request is a byte with three files: arguments and environment, standard output,
// standard error; the answer is the process's number, once the process is a child of the nearest subreaper.
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using Main = int (*)(int, char**, char**);
using Start = int (*)(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);

constexpr int SOCKET = STDIN_FILENO;

struct Request {
    int words, output, errors;
};

Main mainOfProgram;

/// False when nobody is there to ask any more.
bool receive(Request& request) {
    char byte = 0;
    iovec data{&byte, 1};
    alignas(cmsghdr) char space[CMSG_SPACE(sizeof request)];
    msghdr message = {};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = space;
    message.msg_controllen = sizeof space;
    if (recvmsg(SOCKET, &message, MSG_CMSG_CLOEXEC) != 1 || !CMSG_FIRSTHDR(&message))
        return false;
    memcpy(&request, CMSG_DATA(CMSG_FIRSTHDR(&message)), sizeof request);
    return true;
}

/// Words that end with zeros, the number of arguments first. Nobody frees them: they are read until the process ends.
std::vector<char*>& wordsOf(int file) {
    struct stat state = {};
    fstat(file, &state);
    const auto size = static_cast<std::size_t>(state.st_size);
    char* const text = static_cast<char*>(malloc(size));
    auto& words = *new std::vector<char*>;
    if (!text || pread(file, text, size, 0) != state.st_size)
        _exit(127);
    for (char* at = text; at < text + size; at += strlen(at) + 1)
        words.push_back(at);
    return words;
}

int become(const Request& request) {
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(request.output, STDOUT_FILENO);
    dup2(request.errors, STDERR_FILENO);
    std::vector<char*>& words = wordsOf(request.words);
    const int count = atoi(words.front());
    // Each list has a null pointer behind it.
    words.push_back(nullptr);
    words.insert(words.begin() + 1 + count, nullptr);
    environ = words.data() + count + 2;
    return mainOfProgram(count, words.data() + 1, environ);
}

int serve(int, char**, char**) {
    auto* const started =
        static_cast<pid_t*>(mmap(nullptr, sizeof(pid_t), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    for (Request request = {}; receive(request);) {
        const pid_t between = fork();
        if (between == 0) {
            const pid_t child = fork();
            if (child == 0)
                return become(request);
            *started = child;
            _exit(0);
        }
        waitpid(between, nullptr, 0);
        for (const int file : {request.words, request.output, request.errors})
            close(file);
        send(SOCKET, started, sizeof *started, MSG_NOSIGNAL);
    }
    _exit(0);
}

} // namespace

#pragma GCC visibility push(default)
extern "C" int __libc_start_main(Main program, int count, char** arguments, void (*begin)(), void (*end)(),
                                 void (*endOfLoader)(), void* stack) {
    mainOfProgram = program;
    return reinterpret_cast<Start>(dlsym(RTLD_NEXT, "__libc_start_main"))(serve, count, arguments, begin, end,
                                                                          endOfLoader, stack);
}
#pragma GCC visibility pop

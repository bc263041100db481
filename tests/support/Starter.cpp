// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Starter.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace TestSupport {
namespace {

[[noreturn]] void fail(const std::string& what, int error = errno) {
    throw std::runtime_error(what + ": " + std::strerror(error));
}

/// A descriptor that is closed.
class File {
public:
    explicit File(int number)
        : number(number) {
        if (number < 0)
            fail("no file");
    }
    ~File() { close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    operator int() const { return number; }
    int release() { return std::exchange(number, -1); }
    void close() {
        if (number >= 0)
            ::close(release());
    }

private:
    int number;
};

/// What a process writes into, and what is read here.
struct Pipe {
    Pipe()
        : Pipe(opened()) {}

    File mine, its;

private:
    explicit Pipe(const std::array<int, 2>& ends)
        : mine(ends[0])
        , its(ends[1]) {
        fcntl(mine, F_SETFL, O_NONBLOCK);
    }
    static std::array<int, 2> opened() {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            fail("no pipe");
        return ends;
    }
};

/// Takes what there is; false once there will be no more.
bool take(int file, std::string& text) {
    std::array<char, 4096> buffer;
    for (;;) {
        const ssize_t count = read(file, buffer.data(), buffer.size());
        if (count <= 0)
            return count < 0 && (errno == EAGAIN || errno == EINTR);
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
}

std::vector<char*> pointersTo(const std::vector<std::string>& words) {
    std::vector<char*> pointers;
    for (const std::string& word : words)
        pointers.push_back(const_cast<char*>(word.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

pid_t spawn(const std::vector<std::string>& command, const std::vector<std::string>& environment, int input, int output,
            int errors) {
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files, errors, STDERR_FILENO);
    pid_t process = -1;
    const int error = posix_spawnp(&process, command.front().c_str(), &files, nullptr, pointersTo(command).data(),
                                   pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&files);
    if (error != 0)
        fail("cannot run " + command.front(), error);
    return process;
}

pid_t spawn(const std::vector<std::string>& command, const std::vector<std::string>& environment, int output,
            int errors) {
    return spawn(command, environment, File(open("/dev/null", O_RDONLY | O_CLOEXEC)), output, errors);
}

/// As the shim reads it.
int requestOf(const std::vector<std::string>& command, const std::vector<std::string>& environment) {
    std::string text = std::to_string(command.size()) + '\0';
    for (const auto* words : {&command, &environment})
        for (const std::string& word : *words)
            text += word + '\0';
    File file(memfd_create("request", MFD_CLOEXEC));
    if (write(file, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
        fail("no request");
    return file.release();
}

bool sendFiles(int socket, const std::array<int, 3>& files) {
    char byte = 0;
    iovec data{&byte, 1};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof files)> space{};
    msghdr message = {};
    message.msg_iov = &data;
    message.msg_iovlen = 1;
    message.msg_control = space.data();
    message.msg_controllen = space.size();
    cmsghdr* const head = CMSG_FIRSTHDR(&message);
    head->cmsg_level = SOL_SOCKET;
    head->cmsg_type = SCM_RIGHTS;
    head->cmsg_len = CMSG_LEN(sizeof files);
    std::memcpy(CMSG_DATA(head), files.data(), sizeof files);
    return sendmsg(socket, &message, MSG_NOSIGNAL) == 1;
}

bool receive(int socket, pid_t& process) {
    ssize_t count = 0;
    do
        count = recv(socket, &process, sizeof process, 0);
    while (count < 0 && errno == EINTR);
    return count == sizeof process;
}

} // namespace

Running::Running(pid_t process, int output, int errors)
    : process(process)
    , end(static_cast<int>(syscall(SYS_pidfd_open, process, 0)))
    , outputs{output, errors} {
    if (end < 0)
        fail("no child");
}

Running::~Running() {
    if (!ended()) {
        kill(process, SIGKILL);
        reap();
    }
    for (const int file : {end, outputs[0], outputs[1]})
        if (file >= 0)
            close(file);
}

void Running::reap() {
    while (wait4(process, &status, 0, &usage) < 0 && errno == EINTR)
        ;
    process = -1;
}

bool Running::wait(int milliseconds) {
    if (ended())
        return false;
    std::array<pollfd, 3> files{pollfd{end, POLLIN, 0}, pollfd{outputs[0], POLLIN, 0}, pollfd{outputs[1], POLLIN, 0}};
    poll(files.data(), files.size(), milliseconds);
    std::string* const texts[] = {&output, &errors};
    for (int i = 0; i < 2; ++i)
        if (outputs[i] >= 0 && !take(outputs[i], *texts[i]))
            close(std::exchange(outputs[i], -1));
    // What it wrote last stands in the pipes before it has ended.
    if (files[0].revents)
        reap();
    return !ended();
}

void Running::waitForEnd() {
    while (wait(-1))
        ;
}

std::vector<std::string> environmentOfThis() {
    std::vector<std::string> words;
    for (char** word = environ; *word; ++word)
        words.emplace_back(*word);
    return words;
}

Starter::Starter(std::string program, const std::string& library)
    : program(std::move(program))
    , preloaded(library.empty() ? START_SHIM : START_SHIM ":" + library) {}

Starter::~Starter() {
    if (owner != getpid())
        return;
    // A copy of this process may have the socket, too.
    shutdown(socket, SHUT_RDWR);
    close(socket);
    waitpid(loaded, nullptr, 0);
}

void Starter::load() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
        fail("no socket");
    File mine(ends[0]), its(ends[1]);
    std::vector<std::string> environment = environmentOfThis();
    environment.push_back("LD_PRELOAD=" + preloaded);
    // What it starts is to be a child of this process.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    loaded = spawn({program}, environment, its, STDOUT_FILENO, STDERR_FILENO);
    socket = mine.release();
    owner = getpid();
}

pid_t Starter::startCopy(const std::vector<std::string>& command, const std::vector<std::string>& environment,
                         int output, int errors) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (owner < 0)
        load();
    // A copy of this process has other children.
    if (owner != getpid())
        return spawn(command, environment, output, errors);
    const File request(requestOf(command, environment));
    pid_t process = -1;
    if (!sendFiles(socket, {request, output, errors}) || !receive(socket, process) || process < 0)
        throw std::runtime_error("cannot run " + program);
    return process;
}

std::unique_ptr<Running> Starter::start(const std::vector<std::string>& arguments,
                                        const std::vector<std::string>& environment) {
    std::vector<std::string> command{program};
    command.insert(command.end(), arguments.begin(), arguments.end());
#ifdef EDITOREXPORT_SANITIZED
    // Nothing can be preloaded before a sanitizer.
    return startProgram(command, environment);
#else
    Pipe output, errors;
    const pid_t process = startCopy(command, environment, output.its, errors.its);
    return std::make_unique<Running>(process, output.mine.release(), errors.mine.release());
#endif
}

std::unique_ptr<Running> Starter::run(const std::vector<std::string>& arguments) {
    std::unique_ptr<Running> process = start(arguments);
    process->waitForEnd();
    return process;
}

Starter& ffmpeg() {
    static Starter program("ffmpeg");
    return program;
}

std::unique_ptr<Running> startProgram(const std::vector<std::string>& command,
                                      const std::vector<std::string>& environment) {
    Pipe output, errors;
    const pid_t process = spawn(command, environment, output.its, errors.its);
    return std::make_unique<Running>(process, output.mine.release(), errors.mine.release());
}

} // namespace TestSupport

// SPDX-License-Identifier: GPL-3.0-or-later
// Processes of other programs, started quickly.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <sys/resource.h>
#include <sys/types.h>
#include <vector>

namespace TestSupport {

/// A child of this process whose output is gathered. The destructor kills what still runs.
class Running {
public:
    Running(pid_t process, int output, int errors);
    ~Running();
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    pid_t number() const { return process; }
    /// Waits for so long at most until it writes or ends, and takes what there is; false once it has ended.
    bool wait(int milliseconds);
    void waitForEnd();
    bool ended() const { return process < 0; }

    std::string output, errors; ///< all that was taken
    int status = 0;             ///< as waitpid() tells it, once it has ended
    rusage usage = {};

private:
    void reap();

    pid_t process;
    int end; ///< of the process, to be polled
    int outputs[2];
};

/// The words of this process's environment.
std::vector<std::string> environmentOfThis();

/// A program that is found, loaded and linked once, however often it is started; for a program of two hundred libraries
/// that is most of what a start takes. What it does before main() it does once, too, in this process's environment.
class Starter {
public:
    /// With `library` what the program would load only as it runs is loaded once as well.
    explicit Starter(std::string program, const std::string& library = {});
    ~Starter();
    Starter(const Starter&) = delete;
    Starter& operator=(const Starter&) = delete;

    /// Throws std::runtime_error when it cannot. Safe on any thread.
    std::unique_ptr<Running> start(const std::vector<std::string>& arguments,
                                   const std::vector<std::string>& environment = environmentOfThis());
    /// To its end.
    std::unique_ptr<Running> run(const std::vector<std::string>& arguments);

private:
    pid_t startCopy(const std::vector<std::string>& command, const std::vector<std::string>& environment, int output,
                    int errors);
    void load();

    const std::string program;
    const std::string preloaded; ///< as LD_PRELOAD names it
    std::mutex mutex;
    pid_t owner = -1; ///< the process that loaded it
    pid_t loaded = -1;
    int socket = -1;
};

/// The ffmpeg program.
Starter& ffmpeg();

/// Starts the command, found in PATH, in the usual way.
std::unique_ptr<Running> startProgram(const std::vector<std::string>& command,
                                      const std::vector<std::string>& environment = environmentOfThis());

} // namespace TestSupport

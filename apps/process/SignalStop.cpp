// SPDX-License-Identifier: GPL-3.0-or-later
#include "process/SignalStop.h"

#include "Kestra/Util/RemovalOnTheSpot.h"
#include "process/SignalExitCode.h"
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace Process {
namespace {

constexpr std::array<int, 3> SIGNALS{SIGINT, SIGTERM, SIGHUP};
constexpr unsigned PATIENCE_SECONDS = 2;
constexpr unsigned LAST_PATIENCE_SECONDS = 5;

// What a signal handler may use.
std::array<char, PATH_MAX> sessionFolder;
std::atomic<int> signalsSeen{0};
std::atomic<int> firstSignal{0};
std::atomic<int> lastCode{0};
std::array<int, 2> wakePipe{-1, -1};
std::atomic<bool> flag{false};

void onAlarm(int) {
    _exit(lastCode);
}

// Where the end itself hangs, in a folder that does not answer.
void setAlarm(int code, unsigned seconds) noexcept {
    lastCode = code;
    signal(SIGALRM, onAlarm);
    alarm(seconds);
}

void onSignalForFlag(int number) {
    if (signalsSeen.fetch_add(1) > 0)
        SignalStop::endOnTheSpot(EXIT_SIGNAL_BASE + number);
    firstSignal = number;
    flag = true;
    setAlarm(EXIT_SIGNAL_BASE + number, LAST_PATIENCE_SECONDS);
}

void onSignal(int number) {
    const int savedError = errno;
    if (signalsSeen.fetch_add(1) > 0)
        SignalStop::endOnTheSpot(EXIT_SIGNAL_BASE + number);
    firstSignal = number;
    const auto byte = static_cast<unsigned char>(number);
    // A full pipe has woken the loop already.
    [[maybe_unused]] const ssize_t written = write(wakePipe[1], &byte, 1);
    errno = savedError;
}

void handleSignals(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : SIGNALS) {
        struct sigaction before = {};
        sigaction(number, nullptr, &before);
        // What the caller had ignored, as nohup does, stays ignored.
        if (before.sa_handler != SIG_IGN)
            sigaction(number, &action, nullptr);
    }
}

void handleNoSignals() {
    for (const int number : SIGNALS) {
        struct sigaction now = {};
        sigaction(number, nullptr, &now);
        if (now.sa_handler != SIG_IGN)
            signal(number, SIG_DFL);
    }
}

} // namespace

SignalFlag::SignalFlag() {
    handleSignals(&onSignalForFlag);
}

SignalFlag::~SignalFlag() {
    handleNoSignals();
    alarm(0);
}

const std::atomic<bool>& SignalFlag::isSet() const {
    return flag;
}

SignalStop::SignalStop() {
    if (pipe2(wakePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("No pipe for signals: %s", std::strerror(errno));
    notifier = std::make_unique<QSocketNotifier>(wakePipe[0], QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, &SignalStop::onReadable);
    handleSignals(&onSignal);
}

SignalStop::~SignalStop() {
    handleNoSignals();
    notifier.reset();
    for (int& end : wakePipe)
        close(std::exchange(end, -1));
}

void SignalStop::setSessionFolder(const QByteArray& path) {
    if (path.size() < PATH_MAX)
        std::memcpy(sessionFolder.data(), path.constData(), static_cast<std::size_t>(path.size()) + 1);
}

void SignalStop::endOnTheSpot(int code) noexcept {
    setAlarm(code, PATIENCE_SECONDS);
    if (sessionFolder[0] != '\0')
        rmdir(sessionFolder.data());
    Kestra::Util::RemovalOnTheSpot::removeAll();
    _exit(code);
}

void SignalStop::onReadable() {
    unsigned char byte = 0;
    bool woken = false;
    while (read(wakePipe[0], &byte, 1) == 1)
        woken = true;
    if (woken)
        Q_EMIT stopRequested();
}

int SignalStop::received() {
    return firstSignal;
}

} // namespace Process

#include "cli/SignalStop.h"

#include "Kestra/Util/RemovalOnTheSpot.h"
#include "cli/ExitCode.h"
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace Cli {
namespace {

constexpr std::array<int, 3> SIGNALS{SIGINT, SIGTERM, SIGHUP};
constexpr unsigned PATIENCE_SECONDS = 2;

// What a signal handler may use.
std::array<char, PATH_MAX> sessionFolder;
std::atomic<int> signalsSeen{0};
std::atomic<int> firstSignal{0};
std::atomic<int> lastCode{0};
std::array<int, 2> wakePipe{-1, -1};

void onAlarm(int) {
    _exit(lastCode);
}

// Where the end itself hangs, in a folder that does not answer.
void setAlarm(int code) noexcept {
    lastCode = code;
    signal(SIGALRM, onAlarm);
    alarm(PATIENCE_SECONDS);
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

} // namespace

SignalStop::SignalStop() {
    if (pipe2(wakePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("No pipe for signals: %s", std::strerror(errno));
    notifier = std::make_unique<QSocketNotifier>(wakePipe[0], QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, &SignalStop::onReadable);
    struct sigaction action = {};
    action.sa_handler = onSignal;
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

SignalStop::~SignalStop() {
    for (const int number : SIGNALS)
        signal(number, SIG_DFL);
    notifier.reset();
    for (int& end : wakePipe)
        close(std::exchange(end, -1));
}

void SignalStop::setSessionFolder(const QByteArray& path) {
    if (path.size() < PATH_MAX)
        std::memcpy(sessionFolder.data(), path.constData(), static_cast<std::size_t>(path.size()) + 1);
}

void SignalStop::endOnTheSpot(int code) noexcept {
    setAlarm(code);
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

} // namespace Cli

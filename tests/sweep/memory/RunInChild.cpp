// SPDX-License-Identifier: GPL-3.0-or-later
#include "sweep/memory/RunInChild.h"

#include "ExportCore/ExportApplication.h"
#include "ExportCore/ExportJob.h"
#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <memory>
#include <poll.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Sweep {
namespace {

// Only a hang reaches it.
constexpr int DEADLINE_MS = 300'000;

/// Seen by both processes.
ChildEnd* shared = nullptr;

void tellAllocations() {
    shared->ours = MemoryFaults::count(MemoryFaults::Whose::Ours);
    shared->codecs = MemoryFaults::count(MemoryFaults::Whose::Codecs);
    shared->failed = MemoryFaults::hasFailed();
    MemoryFaults::name(MemoryFaults::where(), shared->asked, sizeof shared->asked);
    MemoryFaults::nameCall(MemoryFaults::where(), shared->call, sizeof shared->call);
}

bool isOfACommit(const void* place) {
    Dl_info info{};
    return dladdr(place, &info) != 0 && info.dli_sname && std::strstr(info.dli_sname, "SetterChainD");
}

void tellCrash(int signal) {
    MemoryFaults::disarm();
    MemoryFaults::Places places{};
    backtrace(places.data(), static_cast<int>(places.size()));
    MemoryFaults::name(places, shared->fell, sizeof shared->fell);
    shared->inCommit = signal == SIGABRT && std::any_of(places.begin(), places.end(), &isOfACommit);
    shared->inCodecs = signal == SIGSEGV && MemoryFaults::isInCodecs(places);
    tellAllocations();
    std::raise(signal);
}

void tell(const ExportCore::ExportOutcome& outcome) {
    shared->ended = !shared->ended;
    shared->status = static_cast<int>(outcome.status);
    shared->stalled = outcome.error.GetCode() == Kestra::Proc::TranscodingError::Stalled;
    std::snprintf(shared->words, sizeof shared->words, "%s", outcome.error.GetDescription().c_str());
}

void catchCrashes() {
    // On a stack of its own, as a crash may be the end of the other.
    static std::array<char, 65536> stack;
    const stack_t place{stack.data(), 0, stack.size()};
    sigaltstack(&place, nullptr);
    struct sigaction action {};
    action.sa_handler = &tellCrash;
    action.sa_flags = SA_ONSTACK | SA_RESETHAND;
    for (const int signal : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL})
        sigaction(signal, &action, nullptr);
}

void run(const ExportCore::ExportRequest& request, const MemoryFaults::Plan& plan, From from,
         ExportCore::ExportApplication<QCoreApplication>& application) {
    using ExportCore::ExportJob;
    ExportJob job(request);
    QObject::connect(&application.failures(), &ExportCore::EventLoopFailures::caught, &job,
                     &ExportJob::failInEventLoop);
    QObject::connect(&job, &ExportJob::finished, [](const ExportCore::ExportOutcome& outcome) {
        tell(outcome);
        QCoreApplication::quit();
    });
    if (from == From::WholeProgress)
        QObject::connect(&job, &ExportJob::progressChanged, [plan](const ExportCore::ExportProgress& progress) {
            if (progress.percent == 100)
                MemoryFaults::arm(plan);
        });
    job.start();
    QCoreApplication::exec();
}

[[noreturn]] void live(const ExportCore::ExportRequest& request, const MemoryFaults::Plan& plan, From from) {
    catchCrashes();
    int count = 1;
    char name[] = "memory";
    char* arguments[] = {name, nullptr};
    ExportCore::ExportApplication<QCoreApplication> application(count, arguments);
    MemoryFaults::learn();
    if (from == From::TheBeginning)
        MemoryFaults::arm(plan);
    try {
        run(request, plan, from, application);
    } catch (const std::bad_alloc&) { // what a main would tell of: the job could not even be made or begun
        shared->ended = true;
        shared->status = static_cast<int>(ExportCore::ExportOutcome::Status::Failed);
        std::snprintf(shared->words, sizeof shared->words, "out of memory");
    }
    tellAllocations();
    MemoryFaults::disarm();
    _exit(0);
}

void waitFor(pid_t child, ChildEnd& end) {
    pollfd event{static_cast<int>(syscall(SYS_pidfd_open, child, 0)), POLLIN, 0};
    const bool inTime = poll(&event, 1, DEADLINE_MS) == 1;
    close(event.fd);
    if (!inTime)
        kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    if (!inTime) {
        end.kind = ChildEnd::Kind::Hung;
    } else if (WIFSIGNALED(status)) {
        end.kind = ChildEnd::Kind::Crashed;
        end.signal = WTERMSIG(status);
    }
}

} // namespace

ChildEnd runInChild(const ExportCore::ExportRequest& request, const MemoryFaults::Plan& plan, From from) {
    void* memory = mmap(nullptr, sizeof(ChildEnd), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        std::abort();
    shared = new (memory) ChildEnd;
    const pid_t child = fork();
    if (child == 0)
        live(request, plan, from);
    if (child < 0)
        std::abort();
    ChildEnd end;
    waitFor(child, end);
    const ChildEnd::Kind kind = end.kind;
    const int signal = end.signal;
    end = *shared;
    end.kind = kind;
    end.signal = signal;
    munmap(memory, sizeof(ChildEnd));
    return end;
}

} // namespace Sweep

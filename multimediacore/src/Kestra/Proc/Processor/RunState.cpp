// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/RunState.h"
#include <utility>

namespace Kestra::Proc {
namespace {

thread_local const RunState* runOfThisThread = nullptr;

} // namespace

Ending RunState::GetEnding() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return ending;
}

bool RunState::RequestStop() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (closed || ending != Ending::None) {
        return false;
    }
    ending = Ending::Stop;
    changed.notify_all();
    return true;
}

void RunState::RequestDiscard() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (!closed && ending == Ending::Stop) {
        ending = Ending::Discard;
        changed.notify_all();
    }
}

bool RunState::Abandon() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (closed || ending == Ending::Discard || ending == Ending::Error) {
        return false;
    }
    ending = Ending::Discard;
    changed.notify_all();
    return true;
}

bool RunState::FailEncoder(std::exception_ptr cause) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (closed || ending != Ending::None) {
        return false;
    }
    ending = Ending::Error;
    error = std::move(cause);
    changed.notify_all();
    return true;
}

void RunState::FailRun(std::exception_ptr cause) {
    const std::lock_guard<std::mutex> lock(mutex);
    if (!closed && (ending == Ending::None || ending == Ending::Stop)) {
        ending = Ending::Error;
        error = std::move(cause);
        changed.notify_all();
    }
}

std::exception_ptr RunState::Close() {
    const std::lock_guard<std::mutex> lock(mutex);
    closed = true;
    return error;
}

bool RunState::WaitWhetherKept(std::chrono::milliseconds grace) const {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait_for(lock, grace, [this] { return ending != Ending::Stop; });
    return ending == Ending::Stop;
}

void RunState::EncoderEntered() {
    const std::lock_guard<std::mutex> lock(mutex);
    ++running;
}

void RunState::EncoderPrepared() {
    const std::lock_guard<std::mutex> lock(mutex);
    ++prepared;
    changed.notify_all();
}

void RunState::EncoderLeft() {
    const std::lock_guard<std::mutex> lock(mutex);
    --running;
    changed.notify_all();
}

bool RunState::WaitPrepared(std::size_t count) const {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [&] { return prepared >= count || ending != Ending::None; });
    return ending == Ending::None;
}

void RunState::WaitEncodersLeft(std::chrono::milliseconds patience) const {
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait_for(lock, patience, [this] { return running == 0; });
}

void RunState::EnterThread() const noexcept {
    runOfThisThread = this;
}

bool RunState::IsOwnThread() const noexcept {
    return runOfThisThread == this;
}

} // namespace Kestra::Proc

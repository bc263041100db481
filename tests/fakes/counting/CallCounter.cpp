// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/counting/CallCounter.h"

#include <utility>

namespace Kestra::Fakes {

void CallCounter::OnCall(Listener listener) {
    const std::lock_guard lock(mutex);
    heard = std::move(listener);
}

bool CallCounter::Note(const std::string& kind, Listener& told) {
    const std::lock_guard lock(mutex);
    told = heard;
    calls.push_back(kind);
    if (!plan.kind.empty() && plan.kind != kind)
        return false;
    const int number = counted++;
    const bool fails = plan.at >= 0 && (plan.forEver ? number >= plan.at : number == plan.at);
    if (fails)
        thrown.push_back(kind);
    return fails;
}

void CallCounter::Call(const std::string& kind) {
    Listener told;
    const bool fails = Note(kind, told);
    if (told)
        told(kind);
    if (!fails)
        return;
    const std::string words = "a fault in " + kind;
    if (plan.odd)
        throw OddFault{words};
    throw Fault(words);
}

void CallCounter::ReadAheadFailed(const void* stream) {
    const std::lock_guard lock(mutex);
    failedAhead.insert(stream);
}

void CallCounter::ReadAheadTold(const void* stream) {
    const std::lock_guard lock(mutex);
    failedAhead.erase(stream);
}

void CallCounter::ReadAheadReset(const void* stream) {
    const std::lock_guard lock(mutex);
    unasked = failedAhead.erase(stream) > 0 || unasked;
}

bool CallCounter::FailedUnasked() const {
    const std::lock_guard lock(mutex);
    return unasked || !failedAhead.empty();
}

std::vector<std::string> CallCounter::Calls() const {
    const std::lock_guard lock(mutex);
    return calls;
}

std::vector<std::string> CallCounter::Thrown() const {
    const std::lock_guard lock(mutex);
    return thrown;
}

} // namespace Kestra::Fakes

// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/CallLog.h"
#include <algorithm>

namespace Kestra::Fakes {
namespace {

std::size_t CountIn(const CallLog::Calls& calls, const std::string& call) {
    return static_cast<std::size_t>(std::count(calls.begin(), calls.end(), call));
}

} // namespace

void CallLog::Add(const std::string& call) {
    const std::lock_guard<std::mutex> lock(mutex);
    calls.push_back(call);
    changed.notify_all();
}

CallLog::Calls CallLog::Get() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return calls;
}

std::size_t CallLog::Count(const std::string& call) const {
    const std::lock_guard<std::mutex> lock(mutex);
    return CountIn(calls, call);
}

void CallLog::Clear() {
    const std::lock_guard<std::mutex> lock(mutex);
    calls.clear();
}

bool CallLog::WaitFor(const std::function<bool(const Calls&)>& condition, std::chrono::milliseconds deadline) const {
    std::unique_lock<std::mutex> lock(mutex);
    return changed.wait_for(lock, deadline, [&] { return condition(calls); });
}

bool CallLog::WaitForCall(const std::string& call, std::size_t count, std::chrono::milliseconds deadline) const {
    return WaitFor([&](const Calls& made) { return CountIn(made, call) >= count; }, deadline);
}

} // namespace Kestra::Fakes

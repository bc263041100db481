// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::CallLog: what fakes were asked to do, in order, across threads.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace Kestra::Fakes {

/// Long enough that only a hang reaches it, under a sanitizer on a busy machine too.
inline constexpr std::chrono::seconds DEADLINE{1000};

/// Thread-safe. Several fakes may share one through a shared_ptr, which also lets it outlive them.
class CallLog {
public:
    using Calls = std::vector<std::string>;

    void Add(const std::string& call);
    Calls Get() const;
    std::size_t Count(const std::string& call) const;
    bool Contains(const std::string& call) const { return Count(call) > 0; }
    void Clear();

    /// True once `condition` holds for the calls; false when the deadline passes first.
    bool WaitFor(const std::function<bool(const Calls&)>& condition,
                 std::chrono::milliseconds deadline = DEADLINE) const;
    /// Until `call` has been recorded at least `count` times.
    bool WaitForCall(const std::string& call, std::size_t count = 1,
                     std::chrono::milliseconds deadline = DEADLINE) const;

private:
    mutable std::mutex mutex;
    mutable std::condition_variable changed;
    Calls calls;
};

} // namespace Kestra::Fakes

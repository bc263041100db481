// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::CallCounter: counts the calls into an engine, and makes chosen ones fail.
#pragma once

#include <functional>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace Kestra::Fakes {

/// What a call that is to fail throws.
class Fault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The same as no std::exception.
struct OddFault {
    std::string what;
};

/// Thread-safe. Which call has which number differs a little from run to run where threads share the counter.
class CallCounter {
public:
    /// `at` counts from 0; a negative one is none.
    struct Plan {
        int at = -1;
        bool forEver = false; ///< the call and every later one
        bool odd = false;     ///< OddFault instead of Fault
        std::string kind{};   ///< counts these alone; all where it is empty
    };

    using Listener = std::function<void(const std::string& kind)>;

    CallCounter() = default;
    explicit CallCounter(const Plan& plan)
        : plan(plan) {}

    /// `listener` is told of every call, on its thread and before it, until null is set.
    void OnCall(Listener listener);
    /// Throws where the plan says so. Kinds are named "Class.Method".
    void Call(const std::string& kind);

    /// Of a stream that is read ahead on a thread of its own: a read there failed; a consumer was told of it, or of an
    /// end in its place; the stream was reset before anybody asked for the piece.
    void ReadAheadFailed(const void* stream);
    void ReadAheadTold(const void* stream);
    void ReadAheadReset(const void* stream);
    /// Whether a read ahead has failed whose piece nobody asked for. No run has to fail for it.
    bool FailedUnasked() const;

    /// The kinds of all calls, in order.
    std::vector<std::string> Calls() const;
    /// The kinds of the calls that failed, in order.
    std::vector<std::string> Thrown() const;

private:
    bool Note(const std::string& kind, Listener& told);

    const Plan plan{};
    mutable std::mutex mutex;
    int counted = 0; ///< of those that the plan counts
    Listener heard;
    std::vector<std::string> calls;
    std::vector<std::string> thrown;
    std::set<const void*> failedAhead;
    bool unasked = false;
};

} // namespace Kestra::Fakes

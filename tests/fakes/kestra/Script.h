// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::Script: what a fake does when a call reaches it, beside its normal work.
#pragma once

#include "fakes/kestra/CallLog.h"
#include "fakes/kestra/Gate.h"
#include <exception>
#include <map>
#include <memory>

namespace Kestra::Fakes {

/// Records every call in a log and runs what is scripted for it, on the calling thread and before the fake's own work.
/// Calls have names such as "Open" or "ReadRaw 3" (the fourth packet). Script before the run; Call is thread-safe.
class Script {
public:
    using Action = std::function<void()>;

    /// Names in the log begin with `prefix`; those that are scripted do not.
    explicit Script(std::shared_ptr<CallLog> log = std::make_shared<CallLog>(), std::string prefix = {});

    void At(const std::string& call, Action action);
    void ThrowAt(const std::string& call, std::exception_ptr error);
    /// Makes the call wait at a gate; OpenGates lets it, and all others, go on.
    std::shared_ptr<Gate> BlockAt(const std::string& call);
    void OpenGates();

    void Call(const std::string& call);
    const std::shared_ptr<CallLog>& GetLog() const { return log; }

private:
    const std::shared_ptr<CallLog> log;
    const std::string prefix;
    std::mutex mutex;
    std::map<std::string, Action> actions;
    std::vector<std::shared_ptr<Gate>> gates;
};

} // namespace Kestra::Fakes

// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/Script.h"
#include <utility>

namespace Kestra::Fakes {

Script::Script(std::shared_ptr<CallLog> callLog, std::string namePrefix)
    : log(std::move(callLog))
    , prefix(std::move(namePrefix)) {}

void Script::At(const std::string& call, Action action) {
    const std::lock_guard<std::mutex> lock(mutex);
    actions[call] = std::move(action);
}

void Script::ThrowAt(const std::string& call, std::exception_ptr error) {
    At(call, [error = std::move(error)] { std::rethrow_exception(error); });
}

std::shared_ptr<Gate> Script::BlockAt(const std::string& call) {
    auto gate = std::make_shared<Gate>();
    At(call, [gate] { gate->Pass(); });
    const std::lock_guard<std::mutex> lock(mutex);
    gates.push_back(gate);
    return gate;
}

void Script::OpenGates() {
    const std::lock_guard<std::mutex> lock(mutex);
    for (const auto& gate : gates) {
        gate->Open();
    }
}

void Script::Call(const std::string& call) {
    log->Add(prefix + call);
    Action action;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const auto found = actions.find(call);
        if (found != actions.end()) {
            action = found->second;
        }
    }
    if (action) {
        action();
    }
}

} // namespace Kestra::Fakes

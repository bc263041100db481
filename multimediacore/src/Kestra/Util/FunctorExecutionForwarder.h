// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Util::FunctorExecutionForwarder: carries calls from any thread over to one thread's event loop.
#pragma once

#include "KestraQtExport.h"
#include <functional>
#include <memory>

namespace Kestra::Util {

/// Belongs to the thread that constructed it; destroyed on that thread, also from within a functor that it runs.
class KESTRAQT_EXPORT FunctorExecutionForwarder {
public:
    FunctorExecutionForwarder();
    ~FunctorExecutionForwarder();
    FunctorExecutionForwarder(const FunctorExecutionForwarder&) = delete;
    FunctorExecutionForwarder& operator=(const FunctorExecutionForwarder&) = delete;

    /// Thread-safe while the forwarder lives. The functor runs on the owner's thread, from its event loop, in the order
    /// of the calls: never inside Forward, also when that is called on the owner's thread. What has not run when the
    /// forwarder is destroyed never runs. An exception that a functor lets go leaves through the event loop.
    void Forward(std::function<void()> functor);
    /// The same; where there is no memory for the functor's way, it goes by the place that was kept for it.
    void ForwardSurely(std::function<void()> functor);
    /// For one ForwardSurely to come. Thread-safe; has no effect while such a place is kept.
    void KeepPlace();

private:
    class Receiver;
    std::unique_ptr<Receiver> receiver;
};

} // namespace Kestra::Util

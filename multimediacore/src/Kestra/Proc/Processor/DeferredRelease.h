// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::DeferredRelease: lets the last release of a processor return at once.
#pragma once

#include "KestraExport.h"
#include <memory>

namespace Kestra::Proc {

class RunRest;

/// For a thread that must not wait. While one lives on the stack, a processor that is released for the last time on its
/// thread interrupts its run and detaches its receiver, but waits for nobody: what is left to be waited for is held
/// here. It is one processor's; another one is waited for. The innermost one counts.
class KESTRA_EXPORT DeferredRelease {
public:
    DeferredRelease() noexcept;
    /// Waits for what was not taken.
    ~DeferredRelease();
    DeferredRelease(const DeferredRelease&) = delete;
    DeferredRelease& operator=(const DeferredRelease&) = delete;

    /// Null where no processor with a run was released. Whoever lets go of it last waits, for some seconds at most.
    std::shared_ptr<const void> Take() noexcept;

private:
    friend class StreamProcessor;
    /// False where nobody on this thread takes it.
    static bool Accept(std::shared_ptr<RunRest>& rest) noexcept;

    DeferredRelease* const outer;
    std::shared_ptr<RunRest> rest;
};

} // namespace Kestra::Proc

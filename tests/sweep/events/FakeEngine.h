// SPDX-License-Identifier: GPL-3.0-or-later
// Sweep::FakeEngine: processors that do what a script says, the codecs and muxers for them, and the clock.
#pragma once

#include "Kestra/Proc/IEncoder.h"
#include "Kestra/Proc/IMuxer.h"
#include "sweep/events/World.h"

namespace Sweep {

/// Calls into the engine go to `world` as long as this lives; so does the question for the time. One at a time.
class FakeEngine {
public:
    explicit FakeEngine(World& world);
    ~FakeEngine();
    FakeEngine(const FakeEngine&) = delete;
    FakeEngine& operator=(const FakeEngine&) = delete;

    /// By the processor that was made last, if that lives and has a receiver.
    void tell(const EngineEvent& event);

    boost::intrusive_ptr<Kestra::Proc::IEncoder> encoder(Call which);
    boost::intrusive_ptr<Kestra::Proc::IMuxer> muxer();

private:
    World& world;
};

} // namespace Sweep

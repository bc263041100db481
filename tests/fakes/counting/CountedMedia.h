// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::CountedSources: opens media of the engine whose calls count, as do those of their streams.
#pragma once

#include "Kestra/Proc/ISourceFactory.h"
#include "fakes/counting/CountedStreams.h"

namespace Kestra::Fakes {

class CountedSources final : public Proc::ISourceFactory {
public:
    explicit CountedSources(Counter counter);

    boost::intrusive_ptr<Proc::IMediaSource> OpenMedia(const ioPath& path, const std::atomic<bool>* interrupted,
                                                       const Proc::MediaLimits& limits,
                                                       const Proc::TrackChoice& choice) override;

private:
    const Counter counter;
    const std::shared_ptr<Proc::ISourceFactory> engine;
};

} // namespace Kestra::Fakes

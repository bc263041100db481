// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Source/SourceFactory.h"

#include "Kestra/FF/Source/GeneratorSource.h"
#include "Kestra/FF/Source/MediaSource.h"
#include "Kestra/FF/Source/SequenceSource.h"

namespace Kestra::FF {

boost::intrusive_ptr<Proc::IMediaSource> SourceFactory::OpenMedia(const ioPath& path,
                                                                  const std::atomic<bool>* interrupted,
                                                                  const Proc::MediaLimits& limits,
                                                                  const Proc::TrackChoice& choice) {
    return new MediaSource(path, interrupted, limits, choice);
}

boost::intrusive_ptr<Proc::IMediaSource> SourceFactory::OpenSequence(const Proc::SettingsImageSequence& settings,
                                                                     const std::atomic<bool>* interrupted,
                                                                     const Proc::MediaLimits& limits) {
    return new SequenceSource(settings, interrupted, limits);
}

boost::intrusive_ptr<Proc::IMediaSource> SourceFactory::CreateGenerator(const Proc::SettingsGenerator& settings) {
    return new GeneratorSource(settings);
}

std::shared_ptr<Proc::ISourceFactory> MakeSourceFactory() {
    return std::make_shared<SourceFactory>();
}

} // namespace Kestra::FF

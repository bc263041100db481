// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/ISourceFactory.h"
#include <memory>

namespace Kestra::FF {

class SourceFactory final : public Proc::ISourceFactory {
public:
    boost::intrusive_ptr<Proc::IMediaSource> OpenMedia(const ioPath& path,
                                                       const std::atomic<bool>* interrupted = nullptr,
                                                       const Proc::MediaLimits& limits = {},
                                                       const Proc::TrackChoice& choice = {}) override;
    boost::intrusive_ptr<Proc::IMediaSource> OpenSequence(const Proc::SettingsImageSequence& settings,
                                                          const std::atomic<bool>* interrupted = nullptr,
                                                          const Proc::MediaLimits& limits = {}) override;
    boost::intrusive_ptr<Proc::IMediaSource> CreateGenerator(const Proc::SettingsGenerator& settings) override;
};

std::shared_ptr<Proc::ISourceFactory> MakeSourceFactory();

} // namespace Kestra::FF

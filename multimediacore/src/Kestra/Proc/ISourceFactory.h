// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IMediaSource.h"
#include "Kestra/Proc/MediaLimits.h"
#include "Kestra/Proc/Settings/SettingsGenerator.h"
#include "Kestra/Proc/Settings/SettingsImageSequence.h"
#include "Kestra/Proc/TrackChoice.h"
#include <atomic>

namespace Kestra::Proc {

class KESTRA_EXPORT ISourceFactory {
public:
    virtual ~ISourceFactory();
    /// Opens a media file and reads what it holds. Throws ProcException: SourceNotFound, SourceUnreadable (a folder,
    /// empty, not media, neither picture nor sound), each naming the path and the reason. Ends early, with
    /// SourceUnreadable, when `interrupted` turns true: any thread or signal handler may set it. It is borrowed for
    /// the call; null for an opening that is never interrupted. What the file claims beyond `limits`, here or while it
    /// is read, makes it unreadable, and so does a choice among its tracks that it has not.
    virtual boost::intrusive_ptr<IMediaSource> OpenMedia(const ioPath& path,
                                                         const std::atomic<bool>* interrupted = nullptr,
                                                         const MediaLimits& limits = {},
                                                         const TrackChoice& choice = {}) = 0;
    /// A source of `settings.count` pictures (unset: of more than anybody reads) without sound, evenly at the rate. All
    /// come in size and pixel format of the first one that is there, whose path is the source's own. As OpenMedia, also
    /// of the limits, which hold for each file; throws SourceNotFound where none of the files is there,
    /// std::invalid_argument for a rate, step or count that is not positive. A file that is missing matters when its
    /// picture is read. A factory that has no such sources throws NotSupported.
    virtual boost::intrusive_ptr<IMediaSource> OpenSequence(const SettingsImageSequence& settings,
                                                            const std::atomic<bool>* interrupted = nullptr,
                                                            const MediaLimits& limits = {});
    /// A source that makes its pictures or its sound, as long as the settings say. Its path is empty. Throws
    /// std::invalid_argument for a negative duration, a rate that is not positive, and what else cannot be made:
    /// pictures without a size, sound without channels, a tone of half the sample rate or more. A factory that has no
    /// such sources throws NotSupported.
    ///
    /// Pictures are limited YUV of eight bits, BT.601 in the sizes of standard definition and BT.709 in others, and
    /// share their pixels. Bars are those of SMPTE EG 1 and RP 219, respectively, as libavfilter draws them. A tone is
    /// a sine of 20 dB below full scale, the reference level of SMPTE RP 155; its phase counts from time 0, wherever
    /// reading begins. Sound is in planar floating point.
    virtual boost::intrusive_ptr<IMediaSource> CreateGenerator(const SettingsGenerator& settings);
};

} // namespace Kestra::Proc

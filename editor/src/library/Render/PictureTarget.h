// SPDX-License-Identifier: GPL-3.0-or-later
// Render::PictureTarget: what all pictures of an export are brought to.
#pragma once

#include "Kestra/Conf/HdrInfo.h"
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/IMediaSource.h"
#include <boost/rational.hpp>
#include <utility>
#include <vector>

namespace Render {

/// Frame and rate as ordered, colour as the first medium's of the highest dynamic range, the pixel format of the first
/// medium or that of a later one which holds all that the ones before it do; unless a consumer prefers others. So they
/// do not change from clip to clip. Media come in the order in which they are seen, each once. One thread at a time.
class PictureTarget {
public:
    using Source = boost::intrusive_ptr<Kestra::Proc::IMediaSource>;

    /// Where anything `blends`, pictures are progressive, in a pixel format that can be blended and holds those of all
    /// media alike. Throws
    /// ProcException (NotSupported) for media whose pixel format is unknown to the engine.
    PictureTarget(std::vector<Source> media, const Kestra::Conf::FrameInfo& frame,
                  const boost::rational<long long>& rate, bool blends);

    const boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo>& format() const { return target; }
    /// As format(), for the stream's consumer: with what it tells beyond.
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> offered() const;
    /// As format(), with the frame that pictures are blended in: smaller for a consumer of drafts.
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> blended() const;
    void prefer(const Kestra::Conf::IFormatCodecVideo& wanted);

    /// Notes what the target takes away from the medium's pictures; transparency is not lost where they are a `layer`.
    void noteLoss(Kestra::Proc::IMediaSource& medium, bool layer) const;

    /// Notes at which rate the medium's pictures are shown where they do not come evenly.
    void noteRate(Kestra::Proc::IMediaSource& medium) const;

    /// Whether the track's pictures come in the target's frame and rate as they are, so that fields survive.
    bool keepsFields(const Kestra::Proc::VideoTrackInfo& track) const;
    static Kestra::Conf::PixelFormat pixelFormatOf(const Kestra::Proc::IMediaSource& medium);

private:
    void describe();
    void setPixelFormat(Kestra::Conf::PixelFormat format);
    void describeHdr(int transfer);
    void noteOtherHdr() const;

    const std::vector<Source> media;
    const bool blends;
    const boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> target;
    bool formatOrdered = false; ///< the pixel format is what the user ordered: only lost transparency is noted
    std::vector<std::pair<Source, Kestra::Conf::HdrInfo>> hdrOfMedia; ///< of those in the transfer of `target`
    Kestra::Conf::HdrInfo hdr;                                        ///< of them together
    bool offersFields = false; ///< the first picture is interlaced, and could stay so
};

} // namespace Render

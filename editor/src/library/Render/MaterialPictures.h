// SPDX-License-Identifier: GPL-3.0-or-later
// Render::MaterialPictures: the pictures of one clip at its place.
#pragma once

#include "Kestra/Proc/IStreamVideo.h"
#include "Render/Company.h"
#include "Render/MediaPool.h"
#include "Render/OpenStreams.h"
#include "Render/PicturePlanner.h"
#include "Render/PictureTarget.h"

namespace Render {

/// How a clip's pictures are used.
enum class Usage {
    Whole, ///< alone, or with black under them: in the target's format, what they do not fill is black
    Layer, ///< over others: in its format or the sibling with alpha (Conf::BlendFormats); what they do not fill is
           ///< transparent
};

/// Whether pictures of the clip are opaque and fill `frame`.
bool isFull(const Timeline::Clip& clip, MediaPool& media, const Kestra::Conf::FrameInfo& frame);

/// Frames that may last several periods, in the target's frame and rate; what it names beyond is asked for, not
/// promised. Interlaced pictures stay so where the target is interlaced and keepsFields(); the others are deinterlaced.
/// No file is opened before the first frame is asked for. One thread; borrows the target.
class MaterialPictures {
public:
    using Streams = OpenStreams<Kestra::Proc::IStreamVideo>;
    using Frame = boost::intrusive_ptr<Kestra::Proc::IDataVideo>;

    MaterialPictures(const Material& material, Usage usage, MediaPool& media, const PictureTarget& target,
                     const Kestra::FrameGrid& grid);

    const Material& material() const { return shown; }
    Usage usage() const { return use; }

    /// For the composition's frames from `first` to before `end`, borrowing `streams`; goes on with what another of the
    /// medium has left there. Throws Interrupted after an interrupt of the streams, and ProcException.
    void open(Streams& streams, Kestra::FrameIndex first, Kestra::FrameIndex end, const Company& company);
    /// Closes, and leaves the medium's file and decoder to another.
    void leave();
    const MediaPool::Source& medium() const { return source; }

    struct Shown {
        Frame frame;
        Kestra::FrameIndex end; ///< up to which it is shown
    };
    /// Frames of the composition, by rising index. Throws ProcException when there are none any more.
    Shown at(Kestra::FrameIndex frame);

private:
    boost::intrusive_ptr<Kestra::Proc::IStreamVideo>
    create(const MediaPool::Source& medium, Kestra::FrameIndex first, Kestra::FrameIndex count, const Company& company,
           boost::intrusive_ptr<Kestra::Proc::IStreamVideo> decoded) const;
    boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> wish(const Kestra::Proc::IMediaSource& medium) const;

    const Material shown;
    const Usage use;
    const PictureTarget& target;
    const Kestra::FrameGrid grid;
    const MediaPool::Source source;

    Streams::Lease stream;
    Kestra::FrameIndex opened; ///< at time 0 of the stream
    Shown last;                ///< what was read last
};

} // namespace Render

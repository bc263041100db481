// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/PictureTarget.h"

#include "Kestra/Conf/BlendFormats.h"
#include "Kestra/Conf/Draft.h"
#include "Kestra/Conf/PixelLoss.h"
#include "Kestra/Proc/ProcException.h"
#include "Kestra/Proc/RateNote.h"

namespace Render {

using namespace Kestra;
using Conf::PixelFormat;

namespace {

/// Whether pictures of `format` lose nothing in `other`.
bool holdsAll(PixelFormat other, PixelFormat format) {
    return Conf::PixelLoss::Between(*Conf::PixelFormatRecord::Find(format), *Conf::PixelFormatRecord::Find(other))
        .IsNone();
}

/// PQ or HLG, by their numbers in ITU-T H.273.
bool isHighRange(const Proc::VideoTrackInfo& track) {
    return track.colour.transfer == 16 || track.colour.transfer == 18;
}

void setFlag(Conf::IFormatCodecVideo& format, const char* tag, bool flag) {
    Core::Property tree = format.GetProperty();
    tree.SetChild(tag, flag);
    format.SetProperty(tree);
}

bool readFlag(const Conf::IFormatCodecVideo& format, const char* tag) {
    const Core::Property& tree = format.GetProperty();
    return tree.ChildExists(tag) && tree[tag].GetBool();
}

} // namespace

PictureTarget::PictureTarget(std::vector<Source> media, const Conf::FrameInfo& frame,
                             const boost::rational<long long>& rate, bool blends)
    : media(std::move(media))
    , blends(blends)
    , target(Conf::IFormatCodecVideo::Create()) {
    target->InitByFrameAspect(frame.width, frame.height, frame.aspectNumerator, frame.aspectDenominator);
    target->SetFrameRate(rate);
    describe();
}

PixelFormat PictureTarget::pixelFormatOf(const Proc::IMediaSource& medium) {
    const std::string& name = medium.GetInfo().video->pixelFormat;
    const PixelFormat format = Conf::PixelFormatFromString(name);
    if (!name.empty() && !Conf::PixelFormatRecord::Find(format))
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::NotSupported,
                                         "The pictures of \"" + medium.GetPath().ToUtf8() +
                                             "\" have the pixel format \"" + name + "\", which cannot be handled"));
    return format;
}

void PictureTarget::describe() {
    PixelFormat format = PixelFormat::Unknown;
    std::vector<PixelFormat> formats;
    const Proc::VideoTrackInfo* coloured = nullptr;
    for (const Source& medium : media) {
        const auto& video = medium->GetInfo().video;
        const PixelFormat own = pixelFormatOf(*medium);
        if (!coloured || (isHighRange(*video) && !isHighRange(*coloured)))
            coloured = &*video;
        if (format == PixelFormat::Unknown || (own != PixelFormat::Unknown && holdsAll(own, format)))
            format = own;
        if (own != PixelFormat::Unknown)
            formats.push_back(own);
    }
    setPixelFormat(blends && !formats.empty() ? Conf::BlendFormatsForAll(formats).opaque : format);
    if (!coloured)
        return;
    target->SetColour(coloured->colour);
    if (isHighRange(*coloured))
        describeHdr(coloured->colour.transfer);
    offersFields = coloured->interlaced && keepsFields(*coloured) && !blends;
    setFlag(*target, Conf::IFormatCodecVideo::TAG_TOP_FIELD_FIRST, coloured->topFieldFirst);
}

void PictureTarget::setPixelFormat(PixelFormat format) {
    // What is made up alone may have any format.
    if (blends && format == PixelFormat::Unknown)
        format = PixelFormat::YUV420P;
    target->SetPixelFormat(blends ? Conf::BlendFormatsFor(format).opaque : format);
}

void PictureTarget::describeHdr(int transfer) {
    for (const Source& medium : media) {
        if (medium->GetInfo().video->colour.transfer != transfer)
            continue;
        boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
        medium->CreateVideoStream()->GetVideoFormat(format);
        const auto own = Conf::HdrInfo::Of(*format);
        hdr = hdrOfMedia.empty() ? own : Conf::HdrInfo::Together(hdr, own);
        hdrOfMedia.emplace_back(medium, own);
    }
}

void PictureTarget::noteOtherHdr() const {
    for (const auto& [medium, own] : hdrOfMedia) {
        if (own != hdr)
            medium->Note("its mastering display or light levels are not the ones that the export tells, "
                         "which are those of all clips together");
    }
}

bool PictureTarget::keepsFields(const Proc::VideoTrackInfo& track) const {
    const Conf::FrameInfo frame = target->GetFrameInfo();
    return track.rotation == 0 && track.frame.width == frame.width && track.frame.height == frame.height &&
           track.frameRate == target->GetFrameRate();
}

void PictureTarget::noteRate(Proc::IMediaSource& medium) const {
    const std::string note = Proc::RateNote(*medium.GetInfo().video, target->GetFrameRate());
    if (!note.empty())
        medium.Note(note);
}

void PictureTarget::noteLoss(Proc::IMediaSource& medium, bool layer) const {
    const Conf::FrameInfo own = medium.GetInfo().video->frame;
    const Conf::FrameInfo frame = target->GetFrameInfo();
    if (own != frame && own.width - frame.width <= 1 && own.height - frame.height <= 1 &&
        (own.width != frame.width || own.height != frame.height))
        medium.Note("pictures of " + std::to_string(own.width) + "x" + std::to_string(own.height) +
                    " are encoded without their last column or line, as " + std::to_string(frame.width) + "x" +
                    std::to_string(frame.height));
    const auto* from = Conf::PixelFormatRecord::Find(pixelFormatOf(medium));
    const auto* to = Conf::PixelFormatRecord::Find(target->GetPixelFormat());
    if (!from || !to)
        return;
    if (layer && from->alpha)
        to = Conf::PixelFormatRecord::Find(Conf::BlendFormatsFor(to->Format()).alpha);
    const std::string loss = formatOrdered ? Conf::AlphaLossInWords(*from, *to) : Conf::LossInWords(*from, *to);
    if (!loss.empty())
        medium.Note("pictures of " + std::string(from->name) + " are encoded as " + to->name + ": " + loss);
}

boost::intrusive_ptr<Conf::IFormatCodecVideo> PictureTarget::offered() const {
    auto format = Conf::IFormatCodecVideo::Create();
    format->SetProperty(target->GetProperty());
    setFlag(*format, Conf::IFormatCodecVideo::TAG_INTERLACED, offersFields);
    Conf::Draft::TellIn(*format, std::nullopt);
    if (!hdrOfMedia.empty())
        hdr.TellIn(*format);
    return format;
}

boost::intrusive_ptr<Conf::IFormatCodecVideo> PictureTarget::blended() const {
    auto format = Conf::IFormatCodecVideo::Create();
    format->SetProperty(target->GetProperty());
    const Conf::FrameInfo whole = target->GetFrameInfo();
    if (const auto draft = Conf::Draft::Of(*target))
        format->InitByFrameAspect(draft->width, draft->height, whole.aspectNumerator, whole.aspectDenominator);
    return format;
}

void PictureTarget::prefer(const Conf::IFormatCodecVideo& wanted) {
    if (wanted.GetPixelFormat() != PixelFormat::Unknown) {
        setPixelFormat(wanted.GetPixelFormat());
        formatOrdered = readFlag(wanted, Conf::IFormatCodecVideo::TAG_PIXEL_FORMAT_ORDERED);
    }
    const Conf::ColourInfo asked = wanted.GetColour();
    Conf::ColourInfo colour = target->GetColour();
    colour.primaries = asked.primaries != 2 ? asked.primaries : colour.primaries;
    colour.transfer = asked.transfer != 2 ? asked.transfer : colour.transfer;
    colour.matrix = asked.matrix != 2 ? asked.matrix : colour.matrix;
    colour.range = asked.range != 0 ? asked.range : colour.range;
    target->SetColour(colour);
    if (!hdrOfMedia.empty() && colour.transfer == hdrOfMedia.front().first->GetInfo().video->colour.transfer)
        noteOtherHdr();
    setFlag(*target, Conf::IFormatCodecVideo::TAG_INTERLACED,
            readFlag(wanted, Conf::IFormatCodecVideo::TAG_INTERLACED) && !blends);
    Conf::Draft::TellIn(*target, Conf::Draft::Of(wanted));
}

} // namespace Render

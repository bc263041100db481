#include "EditorProject/SequenceVideo.h"

#include "EditorProject/ClipPictures.h"
#include "Kestra/Conf/PixelLoss.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>

namespace Project {

using namespace Kestra;
using Conf::PixelFormat;

namespace {

/// Whether pictures of `format` lose nothing in `other`.
bool HoldsAll(PixelFormat other, PixelFormat format) {
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

SequenceVideo::SequenceVideo(std::shared_ptr<const Timeline> timeline, const ExportWindow& window,
                             const Conf::FrameInfo& frame)
    : timeline(std::move(timeline))
    , grid(*window.grid())
    , spans(pictureSpans(*this->timeline, window))
    , frames(window.frames())
    , target(Conf::IFormatCodecVideo::Create()) {
    target->InitByFrameAspect(frame.width, frame.height, frame.aspectNumerator, frame.aspectDenominator);
    target->SetFrameRate(grid.GetRate());
    DescribePictures();
}

void SequenceVideo::DescribePictures() {
    PixelFormat format = PixelFormat::Unknown;
    const Proc::VideoTrackInfo* coloured = nullptr;
    for (const PictureSpan& candidate : spans) {
        const auto& video = timeline->clips()[candidate.clip].info.video;
        if (!video)
            continue;
        const PixelFormat own = FormatOf(candidate);
        if (!coloured || (isHighRange(*video) && !isHighRange(*coloured)))
            coloured = &*video;
        if (format == PixelFormat::Unknown || (own != PixelFormat::Unknown && HoldsAll(own, format)))
            format = own;
    }
    target->SetPixelFormat(format);
    if (!coloured)
        return;
    target->SetColour(coloured->colour);
    if (isHighRange(*coloured))
        DescribeHdr(coloured->colour.transfer);
    offersFields = coloured->interlaced && keepsFields(*coloured, *target);
    setFlag(*target, Conf::IFormatCodecVideo::TAG_TOP_FIELD_FIRST, coloured->topFieldFirst);
}

void SequenceVideo::DescribeHdr(int transfer) {
    for (const PictureSpan& span : spans) {
        const auto& video = timeline->clips()[span.clip].info.video;
        if (!video || video->colour.transfer != transfer)
            continue;
        boost::intrusive_ptr<Conf::IFormatCodecVideo> format;
        timeline->source(span.clip).CreateVideoStream()->GetVideoFormat(format);
        const auto own = Conf::HdrInfo::Of(*format);
        hdr = hdrOfClips.empty() ? own : Conf::HdrInfo::Together(hdr, own);
        hdrOfClips.emplace_back(span.clip, own);
    }
}

void SequenceVideo::NoteOtherHdr() const {
    for (const auto& [index, own] : hdrOfClips) {
        if (own != hdr)
            timeline->source(index).Note(
                "its mastering display or light levels are not the ones that the export tells, "
                "which are those of all clips together");
    }
}

PixelFormat SequenceVideo::FormatOf(const PictureSpan& candidate) const {
    const Clip& shown = timeline->clips()[candidate.clip];
    const std::string& name = shown.info.video->pixelFormat;
    const PixelFormat format = Conf::PixelFormatFromString(name);
    if (!name.empty() && !Conf::PixelFormatRecord::Find(format))
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::NotSupported,
                                         "The pictures of \"" + shown.path.ToUtf8() + "\" have the pixel format \"" +
                                             name + "\", which cannot be handled"));
    return format;
}

void SequenceVideo::NoteLoss() const {
    const auto& video = timeline->clips()[span->clip].info.video;
    if (!video)
        return;
    const Conf::FrameInfo own = video->frame;
    const Conf::FrameInfo frame = target->GetFrameInfo();
    if (own != frame && own.width - frame.width <= 1 && own.height - frame.height <= 1 &&
        (own.width != frame.width || own.height != frame.height))
        timeline->source(span->clip)
            .Note("pictures of " + std::to_string(own.width) + "x" + std::to_string(own.height) +
                  " are encoded without their last column or line, as " + std::to_string(frame.width) + "x" +
                  std::to_string(frame.height));
    const auto* from = Conf::PixelFormatRecord::Find(FormatOf(*span));
    const auto* to = Conf::PixelFormatRecord::Find(target->GetPixelFormat());
    if (!from || !to)
        return;
    const std::string loss = formatOrdered ? Conf::AlphaLossInWords(*from, *to) : Conf::LossInWords(*from, *to);
    if (!loss.empty())
        timeline->source(span->clip)
            .Note("pictures of " + std::string(from->name) + " are encoded as " + to->name + ": " + loss);
}

boost::intrusive_ptr<Proc::IDataVideo> SequenceVideo::ReadVideo() {
    if (nextFrame >= frames)
        return nullptr;
    if (!picture)
        Fetch();
    boost::intrusive_ptr<Proc::IDataVideo> frame = picture->Share();
    const Ticks begin = grid.Begin(nextFrame);
    frame->SetTime(begin.Value());
    frame->SetDuration((grid.Begin(++nextFrame) - begin).Value());
    if (nextFrame >= pictureEnd)
        picture.reset();
    if (nextFrame >= frames)
        Forget();
    return frame;
}

void SequenceVideo::Fetch() {
    if (span && nextFrame >= span->end())
        Forget();
    OpenClip();
    picture = clip->ReadVideo();
    if (!picture)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::FilterFailed,
                                         "The pictures of \"" + timeline->clips()[span->clip].path.ToUtf8() +
                                             "\" ended too early"));
    Take(*picture);
}

void SequenceVideo::OpenClip() {
    if (clip)
        return;
    span = &spanAt(spans, nextFrame);
    opened = nextFrame;
    PictureSpan rest = *span;
    rest.skip += nextFrame - rest.first;
    rest.count = rest.end() - nextFrame;
    rest.first = nextFrame;
    clip.put(createClipPictures(*timeline, rest, *target));
    NoteLoss();
}

void SequenceVideo::Take(const Proc::IDataVideo& data) {
    const FrameIndex end = opened + grid.Nearest(Ticks(data.GetTime() + data.GetDuration()));
    pictureEnd = std::clamp(end, nextFrame + FrameIndex(1), span->end());
}

void SequenceVideo::Forget() {
    picture.reset();
    clip.close();
    span = nullptr;
}

void SequenceVideo::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    format = Conf::IFormatCodecVideo::Create();
    format->SetProperty(target->GetProperty());
    setFlag(*format, Conf::IFormatCodecVideo::TAG_INTERLACED, offersFields);
    if (!hdrOfClips.empty())
        hdr.TellIn(*format);
}

std::int64_t SequenceVideo::GetDuration() const {
    return grid.Length(frames).Value();
}

std::int64_t SequenceVideo::GetPosition() const {
    return grid.Begin(nextFrame).Value();
}

void SequenceVideo::Seek(std::int64_t time, Proc::SeekMode) {
    Forget();
    const std::int64_t clamped = std::clamp<std::int64_t>(time, 0, GetDuration());
    nextFrame = grid.Covering(Ticks(clamped));
}

std::string SequenceVideo::Describe() const {
    return "pictures of " + std::to_string(spans.size()) + " clips from \"" +
           timeline->clips()[spans.front().clip].path.ToUtf8() + "\" on";
}

void SequenceVideo::PreferFormat(const Conf::IFormatCodec& format) {
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&format);
    if (!video)
        return;
    if (video->GetPixelFormat() != PixelFormat::Unknown) {
        const char* const ordered = Conf::IFormatCodecVideo::TAG_PIXEL_FORMAT_ORDERED;
        target->SetPixelFormat(video->GetPixelFormat());
        formatOrdered = video->GetProperty().ChildExists(ordered) && video->GetProperty()[ordered].GetBool();
    }
    const Conf::ColourInfo wanted = video->GetColour();
    Conf::ColourInfo colour = target->GetColour();
    colour.primaries = wanted.primaries != 2 ? wanted.primaries : colour.primaries;
    colour.transfer = wanted.transfer != 2 ? wanted.transfer : colour.transfer;
    colour.matrix = wanted.matrix != 2 ? wanted.matrix : colour.matrix;
    colour.range = wanted.range != 0 ? wanted.range : colour.range;
    target->SetColour(colour);
    if (!hdrOfClips.empty() &&
        colour.transfer == timeline->clips()[hdrOfClips.front().first].info.video->colour.transfer)
        NoteOtherHdr();
    setFlag(*target, Conf::IFormatCodecVideo::TAG_INTERLACED,
            readFlag(*video, Conf::IFormatCodecVideo::TAG_INTERLACED));
    if (clip)
        clip->PreferFormat(*target);
}

void SequenceVideo::Reset() {
    clip.reset(); // first: it does not wait for ever
    Forget();
    nextFrame = FrameIndex(0);
}

} // namespace Project

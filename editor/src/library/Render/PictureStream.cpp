// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/PictureStream.h"

#include "Kestra/Conf/Draft.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Render/Programme.h"
#include "Render/SequenceText.h"
#include "Render/Streams.h"
#include "Render/Survey.h"
#include <algorithm>

namespace Render {

using namespace Kestra;

namespace {

Proc::IFilterFactory& filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

PictureTarget targetOf(const Survey& seen, const Conf::FrameInfo& frame, const FrameGrid& grid) {
    return PictureTarget(seen.media, frame, grid.GetRate(), seen.blends);
}

} // namespace

PictureStream::PictureStream(Sequence shown, const Window& window, const Conf::FrameInfo& frame)
    : sequence(std::move(shown))
    , window(window)
    , grid(*window.grid())
    , frames(window.frames())
    , planner(sequence.document, grid,
              [media = sequence.media, frame](const Timeline::Clip& clip) { return isFull(clip, *media, frame); })
    , target(targetOf(Survey::ofPictures(planner, window, *sequence.media), frame, grid))
    , programme(programmeOf(sequence, window)) {}

PictureStream::~PictureStream() {
    streams.letGo();
}

boost::intrusive_ptr<Proc::IDataVideo> PictureStream::ReadVideo() {
    if (nextFrame >= frames)
        return nullptr;
    if (!picture)
        fetch();
    boost::intrusive_ptr<Proc::IDataVideo> frame = picture->Share();
    const Ticks begin = grid.Begin(nextFrame);
    frame->SetTime(begin.Value());
    frame->SetDuration((grid.Begin(++nextFrame) - begin).Value());
    if (current() >= pictureEnd)
        picture.reset();
    if (nextFrame >= frames)
        forget();
    return frame;
}

void PictureStream::fetch() {
    if (current() >= sceneEnd)
        enter();
    const Shown shown = compose();
    streams.forgetLeft();
    picture = shown.frame;
    pictureEnd = std::clamp(shown.end, current() + FrameIndex(1), sceneEnd);
}

void PictureStream::enter() {
    streams.requireNoInterrupt();
    scene = planner.sceneAt(current());
    sceneEnd = std::min(planner.endOf(scene), window.firstFrame() + frames);
    open.keepOnly(scene, *sequence.media);
}

PictureStream::Shown PictureStream::compose() {
    if (scene.parts.empty())
        return blackFrame();
    Shown shown = show(scene.parts, true);
    if (!isPlain(scene))
        shown.frame = blending().Flatten(shown.frame);
    return shown;
}

PictureStream::Shown PictureStream::show(const Parts& parts, bool onBlack) {
    Shown shown{nullptr, sceneEnd};
    for (const Part& part : parts) {
        const Shown upper = show(part, onBlack && &part == &parts.front());
        shown.frame = shown.frame ? blending().Over(shown.frame, upper.frame) : upper.frame;
        shown.end = std::min(shown.end, upper.end);
    }
    return shown;
}

PictureStream::Shown PictureStream::show(const Part& part, bool onBlack) {
    if (!part.fade)
        return show(part.material, onBlack ? Usage::Whole : Usage::Layer);
    const Shown from = show(part.from, onBlack);
    const Shown to = show(part.to, onBlack);
    const auto& still = part.fade->still;
    const Ticks middle = grid.Middle(still ? grid.Covering(*still) : current());
    const auto done = static_cast<double>((middle - part.fade->begin).Value());
    const auto whole = static_cast<double>((part.fade->end - part.fade->begin).Value());
    return {blending().Mix(from.frame, to.frame, std::clamp(done / whole, 0.0, 1.0)),
            still ? std::min(from.end, to.end) : current() + FrameIndex(1)};
}

PictureStream::Shown PictureStream::show(const Material& material, Usage usage) {
    const auto isIt = [&](const MaterialPictures& one) { return one.material() == material && one.usage() == usage; };
    if (MaterialPictures* const shown = open.find(isIt))
        return shown->at(current());
    auto pictures = std::make_unique<MaterialPictures>(material, usage, *sequence.media, target, grid);
    const FrameIndex end = std::min(planner.endOf(material), window.firstFrame() + frames);
    pictures->open(streams, current(), end, Company::in(scene));
    return open.add(std::move(pictures)).at(current());
}

PictureStream::Shown PictureStream::blackFrame() {
    const auto format = Conf::IFormatCodecVideo::Create();
    format->SetProperty(target.format()->GetProperty());
    // Where no medium is seen, what is made up may have any format.
    if (format->GetPixelFormat() == Conf::PixelFormat::Unknown)
        format->SetPixelFormat(Conf::PixelFormat::YUV420P);
    return {filters().CreateBlack(format, grid.Length(FrameIndex(1)).Value())->ReadVideo(), sceneEnd};
}

Proc::IFrameBlender& PictureStream::blending() {
    if (!blender)
        blender = filters().CreateFrameBlender(target.blended());
    return *blender;
}

void PictureStream::forget() {
    picture.reset();
    open.clear();
    sceneEnd = FrameIndex(INT64_MIN);
}

void PictureStream::GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const {
    format = target.offered();
    if (!programme.IsEmpty())
        programme.TellIn(*format);
}

std::int64_t PictureStream::GetDuration() const {
    return grid.Length(frames).Value();
}

std::int64_t PictureStream::GetPosition() const {
    return grid.Begin(nextFrame).Value();
}

void PictureStream::Seek(std::int64_t time, Proc::SeekMode) {
    forget();
    const std::int64_t clamped = std::clamp<std::int64_t>(time, 0, GetDuration());
    nextFrame = grid.Covering(Ticks(clamped));
}

std::string PictureStream::Describe() const {
    return "pictures of " + describe(sequence);
}

void PictureStream::PreferFormat(const Conf::IFormatCodec& format) {
    const auto* video = dynamic_cast<const Conf::IFormatCodecVideo*>(&format);
    if (!video)
        return;
    if (const std::string why = Conf::Draft::WhyWhole(*video); !why.empty())
        sequence.media->note(why);
    target.prefer(*video);
    blender.reset();
    forget(); // what has been read is in the format of before
}

void PictureStream::Reset() {
    streams.reset(); // first: it does not wait for ever
    forget();
    nextFrame = FrameIndex(0);
}

boost::intrusive_ptr<Proc::IStreamVideo> createPictureStream(const Sequence& sequence, const Window& window,
                                                             const Conf::FrameInfo& frame) {
    return new PictureStream(sequence, window, frame);
}

} // namespace Render

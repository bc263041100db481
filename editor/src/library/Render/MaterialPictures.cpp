// SPDX-License-Identifier: GPL-3.0-or-later
#include "Render/MaterialPictures.h"

#include "Kestra/Conf/BlendFormats.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/Filters/FrameSampler.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Kestra/Proc/ProcException.h"
#include "Render/MediaPlace.h"
#include <algorithm>
#include <cmath>
#include <optional>

namespace Render {

using namespace Kestra;
using Rule = Proc::SamplingRule;
using Video = boost::intrusive_ptr<Proc::IStreamVideo>;

namespace {

/// A shorter run is over before a thread of its own would have helped.
constexpr FrameIndex LEAST_FRAMES_FOR_THREAD{24};
constexpr std::int64_t BYTES_AHEAD = 4LL * 1024 * 1024;
/// As many clips at a time read ahead as each would alone; more of them share what these may.
constexpr int CLIPS_UNSHARED = 4;
/// Held of all clips that run backwards, and of each at least: with less, it would be decoded many times over.
constexpr std::size_t BYTES_BACKWARDS = std::size_t{128} << 20;
constexpr std::size_t FEWEST_BYTES_BACKWARDS = std::size_t{32} << 20;

Proc::IFilterFactory& filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

/// How many frames of that size are read ahead: bounded by memory.
int framesAhead(const Conf::FrameInfo& frame, const Company& company) {
    const std::int64_t bytes = std::max<std::int64_t>(1, std::int64_t(frame.width) * frame.height * 3 / 2);
    const std::int64_t share = BYTES_AHEAD * CLIPS_UNSHARED / std::max(CLIPS_UNSHARED, company.clips);
    return static_cast<int>(std::clamp<std::int64_t>(share / bytes, 1, 8));
}

std::size_t bytesBackwards(const Company& company) {
    return std::max(FEWEST_BYTES_BACKWARDS, BYTES_BACKWARDS / static_cast<std::size_t>(std::max(1, company.backwards)));
}

/// Width by height, as it is shown.
double shapeOf(const Conf::FrameInfo& frame) {
    const bool known = frame.aspectNumerator && frame.aspectDenominator;
    return known ? double(frame.aspectNumerator) / frame.aspectDenominator : double(frame.width) / frame.height;
}

/// Whether bars beside such pictures would be narrower than what sides are rounded by.
bool fills(const Conf::FrameInfo& pictures, const Conf::FrameInfo& frame) {
    constexpr double ROUNDING = 2;
    const double ratio = shapeOf(pictures) / shapeOf(frame);
    return std::abs(frame.width * ratio - frame.width) < ROUNDING ||
           std::abs(frame.height / ratio - frame.height) < ROUNDING;
}

Proc::SettingsResizer resizerSettings(const Conf::FrameInfo& frame, Usage usage) {
    Proc::SettingsResizer settings;
    settings.target = frame;
    settings.oddSides = true; // what was ordered is what the encoder takes
    settings.aspectMode = Proc::AspectMode::Letterbox;
    settings.interpolation = Proc::Interpolation::Bicubic;
    settings.transparentBars = usage == Usage::Layer;
    return settings;
}

/// The last time of the medium that is to be seen, short of the next frame's even where clocks round to a millisecond.
std::optional<Ticks> furthestOf(const Material& material, const TimeMap& map) {
    if (material.until == Ticks(INT64_MAX))
        return std::nullopt;
    const Ticks end = map.ToSource(material.until);
    return map.speed > 0 ? end - Ticks(TICKS_PER_MILLISECOND) : end;
}

MediaPool::Source generatorFor(const Timeline::Generator& made, const Conf::IFormatCodecVideo& target, Ticks duration) {
    Proc::SettingsGenerator settings;
    settings.kind = made.kind == Timeline::Generator::Kind::Bars ? Proc::SettingsGenerator::Kind::Bars
                                                                 : Proc::SettingsGenerator::Kind::Colour;
    settings.red = made.red;
    settings.green = made.green;
    settings.blue = made.blue;
    settings.frame = target.GetFrameInfo();
    settings.frameRate = target.GetFrameRate();
    settings.duration = duration.Value();
    return Core::CoreManager::Instance().GetSourceFactory().CreateGenerator(settings);
}

} // namespace

bool isFull(const Timeline::Clip& clip, MediaPool& media, const Conf::FrameInfo& frame) {
    const MediaPool::Source source = media.open(clip.media);
    if (!source || !source->GetInfo().video)
        return !source;
    return !Conf::HasAlpha(PictureTarget::pixelFormatOf(*source)) && fills(source->GetInfo().video->frame, frame);
}

MaterialPictures::MaterialPictures(const Material& material, Usage usage, MediaPool& media, const PictureTarget& target,
                                   const FrameGrid& grid)
    : shown(material)
    , use(usage)
    , target(target)
    , grid(grid)
    , source(media.open(material.clip->media)) {}

boost::intrusive_ptr<Conf::IFormatCodecVideo> MaterialPictures::wish(const Proc::IMediaSource& medium) const {
    const Proc::VideoTrackInfo& track = *medium.GetInfo().video;
    const char* const interlaced = Conf::IFormatCodecVideo::TAG_INTERLACED;
    const char* const topFirst = Conf::IFormatCodecVideo::TAG_TOP_FIELD_FIRST;
    Core::Property tree = target.format()->GetProperty();
    const bool wanted = tree.ChildExists(interlaced) && tree[interlaced].GetBool();
    // Fields of the other order would be shown in the wrong one by players that believe the file.
    const bool sameOrder =
        !track.interlaced || !tree.ChildExists(topFirst) || tree[topFirst].GetBool() == track.topFieldFirst;
    // Fields are shown in their order at their own pace alone, and only where nothing lies below.
    const bool plain = use == Usage::Whole && shown.map.speed == 1;
    tree.SetChild(interlaced, wanted && sameOrder && plain && target.keepsFields(track));
    auto wish = Conf::IFormatCodecVideo::Create();
    wish->SetProperty(tree);
    const bool isOpaque =
        !Conf::HasAlpha(PictureTarget::pixelFormatOf(medium)) && fills(track.frame, target.format()->GetFrameInfo());
    if (use == Usage::Layer && !isOpaque)
        wish->SetPixelFormat(Conf::BlendFormatsFor(wish->GetPixelFormat()).alpha);
    return wish;
}

Video MaterialPictures::create(const MediaPool::Source& medium, FrameIndex first, FrameIndex count,
                               const Company& company, Video pictures) const {
    const bool made = medium != source;
    const Proc::MediaInfo& info = medium->GetInfo();
    if (!info.video)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::SourceUnreadable, "\"" + medium->GetPath().ToUtf8() +
                                                                                       "\" has no pictures, which \"" +
                                                                                       *shown.name + "\" would show"));
    TimeMap map = made ? TimeMap{} : mediaMapOf(shown, info);
    const auto furthest = made ? std::nullopt : furthestOf(shown, map);
    const FrameIndex from = made ? first : grid.Nearest(map.here);
    map.here = made ? Ticks(0) : map.here - grid.Begin(from);
    if (count >= LEAST_FRAMES_FOR_THREAD && map.speed > 0)
        pictures = filters().CreateReadAhead(pictures, framesAhead(info.video->frame, company));
    const bool own = info.video->frameRate == grid.GetRate() && map.speed == 1;
    const Rule rule(grid, own ? Rule::Pace::Grid : Rule::Pace::Any, map, furthest);
    pictures = new Proc::FrameSampler(
        pictures, {rule, Proc::FrameSampler::Repeats::AsOne, first - from, count, bytesBackwards(company)});
    Video resized = filters().CreateResizer(pictures, resizerSettings(target.format()->GetFrameInfo(), use));
    resized->PreferFormat(*wish(*medium));
    return resized;
}

void MaterialPictures::open(Streams& streams, FrameIndex first, FrameIndex end, const Company& company) {
    streams.requireNoInterrupt();
    opened = first;
    last = {};
    const auto* const made = std::get_if<Timeline::Generator>(&shown.clip->media.target);
    const MediaPool::Source medium =
        made ? generatorFor(*made, *target.format(), grid.Length(end - first + FrameIndex(1))) : source;
    Video decoded = streams.takeLeft(source.get());
    if (decoded)
        decoded->Reset(); // also of the interrupt that ended its reading ahead
    else
        decoded = medium->CreateVideoStreamAmong(company.clips);
    stream = streams.open(create(medium, first, end - first, company, decoded), source ? decoded : nullptr);
    if (!source)
        return;
    target.noteRate(*source);
    target.noteLoss(*source, use == Usage::Layer);
}

void MaterialPictures::leave() {
    last = {};
    // A decoder that is open keeps, or takes apart, fields as it did before.
    const bool isAnyones = source && !source->GetInfo().video->interlaced;
    if (isAnyones)
        stream.leave(source.get());
    stream = {};
}

MaterialPictures::Shown MaterialPictures::at(FrameIndex frame) {
    while (!last.frame || last.end <= frame) {
        last.frame = stream->ReadVideo();
        if (!last.frame)
            KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::FilterFailed,
                                             "The pictures of \"" + *shown.name + "\" ended too early"));
        last.end = opened + grid.Nearest(Ticks(last.frame->GetTime() + last.frame->GetDuration()));
    }
    return last;
}

} // namespace Render

#include "EditorProject/ClipPictures.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/Filters/FrameSampler.h"
#include "Kestra/Proc/IFilterFactory.h"
#include <algorithm>

namespace Project {
namespace {

using namespace Kestra;
using Rule = Proc::SamplingRule;
using Video = boost::intrusive_ptr<Proc::IStreamVideo>;

/// A shorter run is over before a thread of its own would have helped.
constexpr FrameIndex LEAST_FRAMES_FOR_THREAD{24};
constexpr std::int64_t BYTES_AHEAD = 4LL * 1024 * 1024;

Proc::IFilterFactory& filters() {
    return Core::CoreManager::Instance().GetFilterFactory();
}

Video createBlack(const PictureSpan& span, const Conf::IFormatCodecVideo& target) {
    const auto format = Conf::IFormatCodecVideo::Create();
    format->SetProperty(target.GetProperty());
    // No clip has pictures; what is made up may have any format.
    if (format->GetPixelFormat() == Conf::PixelFormat::Unknown)
        format->SetPixelFormat(Conf::PixelFormat::YUV420P);
    return filters().CreateBlack(format, FrameGrid(target.GetFrameRate()).Length(span.count).Value());
}

Proc::SettingsResizer resizerSettings(const Conf::FrameInfo& frame) {
    Proc::SettingsResizer settings;
    settings.target = frame;
    settings.oddSides = true; // what was ordered is what the encoder takes
    settings.aspectMode = Proc::AspectMode::Letterbox;
    settings.interpolation = Proc::Interpolation::Bicubic;
    return settings;
}

/// How many frames of that size are read ahead: bounded by memory.
int framesAhead(const Conf::FrameInfo& frame) {
    const std::int64_t bytes = std::max<std::int64_t>(1, std::int64_t(frame.width) * frame.height * 3 / 2);
    return static_cast<int>(std::clamp<std::int64_t>(BYTES_AHEAD / bytes, 1, 8));
}

/// What the clip is asked for.
boost::intrusive_ptr<Conf::IFormatCodecVideo> wishFor(const Proc::VideoTrackInfo& track,
                                                      const Conf::IFormatCodecVideo& target) {
    const char* const interlaced = Conf::IFormatCodecVideo::TAG_INTERLACED;
    const char* const topFirst = Conf::IFormatCodecVideo::TAG_TOP_FIELD_FIRST;
    Core::Property tree = target.GetProperty();
    const bool wanted = tree.ChildExists(interlaced) && tree[interlaced].GetBool();
    // Fields of the other order would be shown in the wrong one by players that believe the file.
    const bool sameOrder =
        !track.interlaced || !tree.ChildExists(topFirst) || tree[topFirst].GetBool() == track.topFieldFirst;
    tree.SetChild(interlaced, wanted && sameOrder && keepsFields(track, target));
    auto wish = Conf::IFormatCodecVideo::Create();
    wish->SetProperty(tree);
    return wish;
}

} // namespace

bool keepsFields(const Proc::VideoTrackInfo& track, const Conf::IFormatCodecVideo& target) {
    const Conf::FrameInfo frame = target.GetFrameInfo();
    return track.rotation == 0 && track.frame.width == frame.width && track.frame.height == frame.height &&
           track.frameRate == target.GetFrameRate();
}

Video createClipPictures(const Timeline& timeline, const PictureSpan& span, const Conf::IFormatCodecVideo& target) {
    const Clip& clip = timeline.clips()[span.clip];
    if (!clip.info.video)
        return createBlack(span, target);
    Video pictures = timeline.source(span.clip).CreateVideoStream();
    if (span.count >= LEAST_FRAMES_FOR_THREAD)
        pictures = filters().CreateReadAhead(pictures, framesAhead(clip.info.video->frame));
    const bool own = clip.info.video->frameRate == target.GetFrameRate();
    const Rule rule(FrameGrid(target.GetFrameRate()), own ? Rule::Pace::Grid : Rule::Pace::Any);
    pictures = new Proc::FrameSampler(pictures, {rule, Proc::FrameSampler::Repeats::AsOne, span.skip, span.count});
    Video resized = filters().CreateResizer(pictures, resizerSettings(target.GetFrameInfo()));
    resized->PreferFormat(*wishFor(*clip.info.video, target));
    return resized;
}

} // namespace Project

// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/project/FakeFilters.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Filters/NotImplemented.h"
#include "Kestra/Proc/Filters/ReadAheadAudio.h"
#include "Kestra/Proc/Filters/ReadAheadVideo.h"
#include "fakes/project/FakeMedia.h"

namespace Project::Fakes {

using namespace Kestra;

namespace {

/// Shows what is on top, and the first side of what is mixed.
class FakeBlender final : public Proc::IFrameBlender, public RefCountImpl {
public:
    Frame Mix(const Frame& from, const Frame&, double) override { return from; }
    Frame Over(const Frame&, const Frame& top) override { return top; }
    Frame Flatten(const Frame& frame) override { return frame; }
};

class FakeResizer final : public Proc::VideoFilterBase {
public:
    FakeResizer(const boost::intrusive_ptr<Proc::IStreamVideo>& source, const Conf::FrameInfo& target,
                std::shared_ptr<std::atomic<int>> scaled)
        : VideoFilterBase(source, "fake resizer")
        , target(target)
        , scaled(std::move(scaled)) {}

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override {
        const auto picture = source->ReadVideo();
        if (!picture)
            return nullptr;
        ++*scaled;
        const int number = dynamic_cast<const Kestra::Fakes::FakeFrame&>(*picture).GetNumber();
        return new Kestra::Fakes::FakeFrame(number, picture->GetTime(), picture->GetDuration(), target);
    }

private:
    const Conf::FrameInfo target;
    const std::shared_ptr<std::atomic<int>> scaled;
};

} // namespace

FakeFilterFactory::Video FakeFilterFactory::CreateResizer(const Video& source, const Proc::SettingsResizer& settings,
                                                          const std::string&) {
    return new FakeResizer(source, settings.target, scaledFrames);
}

FakeFilterFactory::Video FakeFilterFactory::CreateFrameRate(const Video&, const Proc::SettingsFilterFrameRate&,
                                                            const std::string&) {
    KESTRA_NOT_IMPLEMENTED();
}

FakeFilterFactory::Video FakeFilterFactory::CreateFrameRate(const Video&, const std::string&) {
    KESTRA_NOT_IMPLEMENTED();
}

boost::intrusive_ptr<Proc::IEffectHost> FakeFilterFactory::CreateEffectHost(const Video&, const std::string&) {
    KESTRA_NOT_IMPLEMENTED();
}

FakeFilterFactory::Video FakeFilterFactory::CreateReadAhead(const Video& source, int frames) {
    return new Proc::ReadAheadVideo(source, frames);
}

boost::intrusive_ptr<Proc::IConcatenation> FakeFilterFactory::CreateConcatenation(const std::string&) {
    KESTRA_NOT_IMPLEMENTED();
}

FakeFilterFactory::Audio FakeFilterFactory::CreateResampler(const Audio& source, const Conf::SampleInfo& target) {
    const auto block = boost::dynamic_pointer_cast<TaggedBlock>(source->ReadAudio());
    Contents contents;
    contents.id = block ? block->GetId() : SILENCE;
    contents.sampleRate = target.GetRate();
    contents.samples = TimeToSamples(source->GetDuration(), target.GetRate());
    return makeSound(contents);
}

FakeFilterFactory::Audio
FakeFilterFactory::CreateDurationTrimmer(const Audio&, const Proc::SettingsFilterDurationTrimmer&, const std::string&) {
    KESTRA_NOT_IMPLEMENTED();
}

FakeFilterFactory::Audio FakeFilterFactory::CreateReadAhead(const Audio& source, int blocks) {
    return new Proc::ReadAheadAudio(source, blocks);
}

FakeFilterFactory::Video FakeFilterFactory::CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>& format,
                                                        std::int64_t duration) {
    // A single long frame, whose number does not count on.
    class Black final : public Proc::VideoFilterBase {
    public:
        Black(std::int64_t duration, const Conf::FrameInfo& frame)
            : VideoFilterBase(makePictures({}), "fake black")
            , duration(duration)
            , frame(frame) {}
        boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override {
            return std::exchange(given, true) ? nullptr : new Kestra::Fakes::FakeFrame(BLACK, 0, duration, frame);
        }

    private:
        const std::int64_t duration;
        const Conf::FrameInfo frame;
        bool given = false;
    };
    return new Black(duration, format->GetFrameInfo());
}

FakeFilterFactory::Audio FakeFilterFactory::CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>& format,
                                                          std::int64_t duration) {
    Contents contents;
    contents.id = SILENCE;
    contents.sampleRate = format->GetSampleRate();
    contents.samples = TimeToSamples(duration, format->GetSampleRate());
    return makeSound(contents);
}

boost::intrusive_ptr<Proc::IFrameBlender>
FakeFilterFactory::CreateFrameBlender(const boost::intrusive_ptr<Conf::IFormatCodecVideo>&) {
    return new FakeBlender;
}

boost::intrusive_ptr<Proc::ISampleMixer> FakeFilterFactory::CreateSampleMixer(const Conf::SampleInfo&) {
    KESTRA_NOT_IMPLEMENTED();
}

FakeFilterFactory::Audio FakeFilterFactory::CreateTempo(const Audio&, const boost::rational<long long>&, Proc::Pitch) {
    KESTRA_NOT_IMPLEMENTED();
}

FakeFilterFactory::Audio FakeFilterFactory::CreateLimiter(const Audio&, double, double) {
    KESTRA_NOT_IMPLEMENTED();
}

boost::intrusive_ptr<Proc::ILoudnessMeter> FakeFilterFactory::CreateLoudnessMeter() {
    KESTRA_NOT_IMPLEMENTED();
}

} // namespace Project::Fakes

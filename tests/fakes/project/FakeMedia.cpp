// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/project/FakeMedia.h"

#include "Kestra/Base/Time.h"
#include "Kestra/Proc/Filters/NotImplemented.h"
#include "Kestra/Proc/Interrupted.h"
#include "Kestra/Proc/ProcException.h"
#include <algorithm>

namespace Project::Fakes {

using namespace Kestra;

namespace {

constexpr std::int64_t BLOCK = 1024;

/// What both kinds of stream share: a position that counts pieces, an interrupt, a place in the count.
template <class Interface>
class FakeStream : public Interface, public RefCountImpl {
public:
    FakeStream(const Contents& contents, std::shared_ptr<StreamCount> count)
        : contents(contents)
        , count(std::move(count)) {
        if (this->count)
            this->count->enter();
    }
    ~FakeStream() override {
        if (count)
            count->leave();
    }
    void Initialize(const Core::Property&) override { KESTRA_NOT_IMPLEMENTED(); }
    Core::Property GetSettings() const override { KESTRA_NOT_IMPLEMENTED(); }
    void Interrupt() override { interrupted = true; }
    bool IsSeekable() const override { return true; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override {
        this->GetFormatCodecBase(format);
    }
    std::string Describe() const override { return "medium " + std::to_string(contents.id); }
    void PreferFormat(const Conf::IFormatCodec&) override {}
    void Prepare() override {}
    void Reset() override {
        next = 0;
        interrupted = false;
    }

protected:
    void RefuseInterrupted() const {
        if (interrupted)
            throw Proc::Interrupted();
    }

    const Contents contents;
    const std::shared_ptr<StreamCount> count;
    std::atomic<bool> interrupted{false};
    std::int64_t next = 0;
};

class FakePictures final : public FakeStream<Proc::IStreamVideo> {
public:
    using FakeStream::FakeStream;

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override {
        RefuseInterrupted();
        if (contents.brokenPicture || next >= contents.frames)
            return nullptr;
        const std::int64_t begin = TimeOf(next);
        const int number = contents.id * 100000 + static_cast<int>(next++);
        return new Kestra::Fakes::FakeFrame(number, begin, TimeOf(next) - begin, {64, 36, 16, 9});
    }
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadVideo(); }
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override {
        format = Conf::IFormatCodecVideo::Create();
        format->InitByFrameAspect(64, 36, 16, 9);
        format->SetFrameRate(contents.rate);
    }
    std::int64_t GetDuration() const override { return TimeOf(contents.frames); }
    std::int64_t GetPosition() const override { return TimeOf(next); }
    void Seek(std::int64_t time, Proc::SeekMode) override {
        next = std::clamp<std::int64_t>(TimeToFrames(time, contents.rate), 0, contents.frames);
        if (next > 0 && TimeOf(next) > time)
            --next;
    }

private:
    std::int64_t TimeOf(std::int64_t frame) const { return FramesToTime(frame, contents.rate); }
};

class FakeSound final : public FakeStream<Proc::IStreamAudio> {
public:
    using FakeStream::FakeStream;

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override {
        RefuseInterrupted();
        if (next >= contents.samples)
            return nullptr;
        const std::int64_t length = std::min(BLOCK, contents.samples - next);
        next += length;
        return new TaggedBlock(contents.id, next - length, length, contents.sampleRate);
    }
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadAudio(); }
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override {
        format = Conf::IFormatCodecAudio::Create();
        format->SetSampleRate(contents.sampleRate);
    }
    std::int64_t GetDuration() const override { return SamplesToTime(contents.samples, contents.sampleRate); }
    std::int64_t GetPosition() const override { return SamplesToTime(next, contents.sampleRate); }
    /// Lands on the block that covers the time, as codecs do.
    void Seek(std::int64_t time, Proc::SeekMode) override {
        next = std::clamp<std::int64_t>(TimeToSamples(time, contents.sampleRate) / BLOCK * BLOCK, 0, contents.samples);
    }
};

std::int64_t durationOf(const Contents& contents) {
    if (contents.duration > 0)
        return contents.duration;
    return std::max(contents.frames ? FramesToTime(contents.frames, contents.rate) : 0,
                    contents.samples ? SamplesToTime(contents.samples, contents.sampleRate) : 0);
}

} // namespace

TaggedBlock::TaggedBlock(int id, std::int64_t first, std::int64_t count, int rate)
    : id(id)
    , first(first)
    , count(count)
    , rate(rate)
    , time(SamplesToTime(first, rate))
    , duration(SamplesToTime(first + count, rate) - time) {}

boost::intrusive_ptr<Proc::IDataAudio> TaggedBlock::Slice(std::int64_t offset, std::int64_t length) const {
    return new TaggedBlock(id, first + offset, length, rate);
}

boost::intrusive_ptr<Proc::IStreamVideo> makePictures(const Contents& contents, std::shared_ptr<StreamCount> count) {
    return new FakePictures(contents, std::move(count));
}

boost::intrusive_ptr<Proc::IStreamAudio> makeSound(const Contents& contents, std::shared_ptr<StreamCount> count) {
    return new FakeSound(contents, std::move(count));
}

FakeMedia::FakeMedia(ioPath path, const Contents& shown, std::shared_ptr<StreamCount> count,
                     const Proc::TrackChoice& choice)
    : path(std::move(path))
    , contents(shown)
    , heard(shown)
    , count(std::move(count)) {
    const int track = choice.sound.value_or(1);
    if (track > 1) {
        const FurtherSound& sound = contents.furtherSounds.at(static_cast<std::size_t>(track) - 2);
        contents.samples = heard.samples = sound.samples;
        heard.id += 1000 * (track - 1);
        info.origin = sound.origin;
    }
    info.origin = choice.origin.value_or(info.origin);
    listTracks();
    info.container = "fake";
    info.duration = durationOf(contents);
    if (contents.frames > 0) {
        info.video.emplace();
        info.video->frame = {64, 36, 16, 9};
        info.video->frameRate = contents.rate;
        info.video->stillPicture = contents.still;
        info.video->pixelFormat = contents.transparent ? "yuva420p" : "";
    }
    if (contents.samples > 0) {
        info.audio.emplace();
        info.audio->index = track;
        info.audio->sampleRate = contents.sampleRate;
        info.audio->channels = 2;
        info.audio->channelLayout = Conf::CHANNEL_LAYOUT_STEREO;
        info.audio->sampleFormat = contents.sampleFormat;
    }
}

void FakeMedia::listTracks() {
    using Kind = Proc::ListedTrack::Kind;
    const auto list = [this](int index, Kind kind) {
        Proc::ListedTrack track;
        track.index = index;
        track.kind = kind;
        info.contents.tracks.push_back(track);
        info.audioTracks += kind == Kind::Sound ? 1 : 0;
    };
    if (contents.frames > 0)
        list(0, Kind::Picture);
    if (contents.samples > 0)
        list(1, Kind::Sound);
    for (std::size_t further = 0; further < contents.furtherSounds.size(); ++further)
        list(static_cast<int>(further) + 2, Kind::Sound);
}

std::vector<Proc::SourceNote> FakeMedia::TakeNotes() {
    return {{path, "invented"}};
}

std::vector<Proc::DamageReport> FakeMedia::TakeDamageReports() {
    Proc::DamageReport report;
    report.path = path;
    return {report};
}

boost::intrusive_ptr<Proc::IMediaSource> FakeSourceFactory::OpenMedia(const ioPath& path, const std::atomic<bool>*,
                                                                      const Proc::MediaLimits&,
                                                                      const Proc::TrackChoice& choice) {
    const auto found = media.find(path.ToUtf8());
    if (found == media.end())
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::SourceNotFound, path.ToUtf8() + ": no such file"));
    ++openings;
    if (choice.sound)
        chosen.push_back(choice);
    return new FakeMedia(path, found->second, count, choice);
}

} // namespace Project::Fakes

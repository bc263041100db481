// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/counting/CountedMedia.h"

#include "Kestra/FF/Source/SourceFactory.h"

namespace Kestra::Fakes {
namespace {

/// What it only remembers (path, description, reports) has no way to fail and is not counted.
class CountedMedia final : public Proc::IMediaSource, public RefCountImpl {
public:
    CountedMedia(boost::intrusive_ptr<Proc::IMediaSource> inner, Counter counter)
        : inner(std::move(inner))
        , counter(std::move(counter)) {}

    const ioPath& GetPath() const override { return inner->GetPath(); }
    const Proc::MediaInfo& GetInfo() const override { return inner->GetInfo(); }
    boost::intrusive_ptr<Proc::IStreamVideo> CreateVideoStream() override {
        counter->Call("MediaSource.CreateVideoStream");
        return new CountedVideo<>(inner->CreateVideoStream(), counter, "SourceVideo");
    }
    boost::intrusive_ptr<Proc::IStreamAudio> CreateAudioStream() override {
        counter->Call("MediaSource.CreateAudioStream");
        return new CountedAudio(inner->CreateAudioStream(), counter, "SourceAudio");
    }
    std::vector<Proc::DamageReport> TakeDamageReports() override { return inner->TakeDamageReports(); }
    std::vector<Proc::SourceNote> TakeNotes() override { return inner->TakeNotes(); }
    bool IsBeingRead() const override { return inner->IsBeingRead(); }
    void Note(const std::string& what) override { inner->Note(what); }

private:
    const boost::intrusive_ptr<Proc::IMediaSource> inner;
    const Counter counter;
};

} // namespace

CountedSources::CountedSources(Counter counter)
    : counter(std::move(counter))
    , engine(FF::MakeSourceFactory()) {}

boost::intrusive_ptr<Proc::IMediaSource> CountedSources::OpenMedia(const ioPath& path,
                                                                   const std::atomic<bool>* interrupted,
                                                                   const Proc::MediaLimits& limits,
                                                                   const Proc::TrackChoice& choice) {
    counter->Call("SourceFactory.OpenMedia");
    return new CountedMedia(engine->OpenMedia(path, interrupted, limits, choice), counter);
}

} // namespace Kestra::Fakes

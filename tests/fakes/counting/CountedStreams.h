// SPDX-License-Identifier: GPL-3.0-or-later
// Decorators of the engine's streams that count each call before they pass it on.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IConcatenation.h"
#include "Kestra/Proc/IEffectHost.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"
#include "fakes/counting/CallCounter.h"
#include <memory>
#include <utility>

namespace Kestra::Fakes {

using Counter = std::shared_ptr<CallCounter>;

/// What every stream can do. Interrupt is passed on uncounted: it ends runs, and has no way to fail.
template <class Interface>
class CountedStream : public Interface, public RefCountImpl {
public:
    void Initialize(const Core::Property& settings) override {
        Call("Initialize");
        inner->Initialize(settings);
    }
    Core::Property GetSettings() const override {
        Call("GetSettings");
        return inner->GetSettings();
    }
    std::int64_t GetDuration() const override {
        Call("GetDuration");
        return inner->GetDuration();
    }
    std::int64_t GetPosition() const override {
        Call("GetPosition");
        return inner->GetPosition();
    }
    boost::intrusive_ptr<Proc::IData> ReadData() override {
        Call("ReadData");
        return inner->ReadData();
    }
    void Seek(std::int64_t time, Proc::SeekMode mode) override {
        Call("Seek");
        inner->Seek(time, mode);
    }
    void Interrupt() override { inner->Interrupt(); }
    bool IsSeekable() const override {
        Call("IsSeekable");
        return inner->IsSeekable();
    }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override {
        Call("GetFormatCodec");
        inner->GetFormatCodec(format);
    }
    std::string Describe() const override {
        Call("Describe");
        return inner->Describe();
    }
    void PreferFormat(const Conf::IFormatCodec& format) override {
        Call("PreferFormat");
        inner->PreferFormat(format);
    }
    void Prepare() override {
        Call("Prepare");
        inner->Prepare();
    }
    void Reset() override {
        Call("Reset");
        inner->Reset();
    }

protected:
    CountedStream(boost::intrusive_ptr<Interface> inner, Counter counter, std::string name)
        : inner(std::move(inner))
        , counter(std::move(counter))
        , name(std::move(name)) {}

    void Call(const char* method) const { counter->Call(name + '.' + method); }

    const boost::intrusive_ptr<Interface> inner;
    const Counter counter;
    const std::string name;
};

/// Also for what is more than a stream: IEffectHost, IConcatenation.
template <class Interface = Proc::IStreamVideo>
class CountedVideo : public CountedStream<Interface> {
public:
    CountedVideo(boost::intrusive_ptr<Interface> inner, Counter counter, std::string name)
        : CountedStream<Interface>(std::move(inner), std::move(counter), std::move(name)) {}

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override {
        this->Call("ReadVideo");
        return this->inner->ReadVideo();
    }
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override {
        this->Call("GetVideoFormat");
        this->inner->GetVideoFormat(format);
    }
};

class CountedEffectHost final : public CountedVideo<Proc::IEffectHost> {
public:
    using CountedVideo::CountedVideo;
    void AddEffect(const boost::intrusive_ptr<Proc::IEffectVideo>& effect) override {
        Call("AddEffect");
        inner->AddEffect(effect);
    }
};

class CountedConcatenation final : public CountedVideo<Proc::IConcatenation> {
public:
    using CountedVideo::CountedVideo;
    void Append(const boost::intrusive_ptr<Proc::IStreamVideo>& stream) override {
        Call("Append");
        inner->Append(stream);
    }
};

class CountedAudio : public CountedStream<Proc::IStreamAudio> {
public:
    CountedAudio(boost::intrusive_ptr<Proc::IStreamAudio> inner, Counter counter, std::string name)
        : CountedStream(std::move(inner), std::move(counter), std::move(name)) {}

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override {
        Call("ReadAudio");
        return inner->ReadAudio();
    }
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override {
        Call("GetAudioFormat");
        inner->GetAudioFormat(format);
    }
    std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> GetFurtherTracks() const override {
        Call("GetFurtherTracks");
        std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> tracks;
        for (const auto& track : inner->GetFurtherTracks())
            tracks.emplace_back(new CountedAudio(track, counter, name));
        return tracks;
    }
};

} // namespace Kestra::Fakes

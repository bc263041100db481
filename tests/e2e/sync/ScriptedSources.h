// SPDX-License-Identifier: GPL-3.0-or-later
// Media whose calls run a script: they hang, wait or throw where a test wants it.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "fakes/kestra/Script.h"
#include <atomic>
#include <cctype>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

namespace TestExport {

namespace Proc = Kestra::Proc;

/// What all calls on one medium share; they outlive the test's own objects.
struct Calls {
    const std::shared_ptr<Kestra::Fakes::Script> script = std::make_shared<Kestra::Fakes::Script>();
    std::atomic<int> under{0};
    std::atomic<const std::atomic<bool>*> interruption{nullptr}; ///< of the opening that is under way

    void call(const std::string& name) {
        ++under;
        script->Call(name);
        --under;
    }
};

/// The engine's stream with a script before its calls: "picture <number>", "sound <number>", "prepare ...", "close
/// ...".
template <class Filter, class Stream>
class Scripted : public Filter {
public:
    Scripted(const boost::intrusive_ptr<Stream>& source, std::shared_ptr<Calls> calls, const char* kind)
        : Filter(source, "scripted")
        , calls(std::move(calls))
        , kind(kind) {}
    ~Scripted() override { calls->call(std::string("close ") + kind); }

    void Prepare() override {
        calls->call(std::string("prepare ") + kind);
        Filter::Prepare();
    }

protected:
    void beforeRead() { calls->call(kind + std::to_string(reads++)); }

private:
    const std::shared_ptr<Calls> calls;
    const std::string kind;
    int reads = 0;
};

class ScriptedPictures : public Scripted<Proc::VideoFilterBase, Proc::IStreamVideo> {
public:
    using Scripted::Scripted;
    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override {
        beforeRead();
        return Scripted::ReadVideo();
    }
};

class ScriptedSound : public Scripted<Proc::AudioFilterBase, Proc::IStreamAudio> {
public:
    using Scripted::Scripted;
    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override {
        beforeRead();
        return Scripted::ReadAudio();
    }
};

class ScriptedMedia : public Proc::IMediaSource, public Kestra::RefCountImpl {
public:
    ScriptedMedia(boost::intrusive_ptr<IMediaSource> media, std::shared_ptr<Calls> calls)
        : media(std::move(media))
        , calls(std::move(calls)) {}

    const Kestra::ioPath& GetPath() const override { return media->GetPath(); }
    const Proc::MediaInfo& GetInfo() const override { return media->GetInfo(); }
    boost::intrusive_ptr<Proc::IStreamVideo> CreateVideoStream() override {
        return new ScriptedPictures(media->CreateVideoStream(), calls, "picture ");
    }
    boost::intrusive_ptr<Proc::IStreamAudio> CreateAudioStream() override {
        return new ScriptedSound(media->CreateAudioStream(), calls, "sound ");
    }
    std::vector<Proc::DamageReport> TakeDamageReports() override { return media->TakeDamageReports(); }
    std::vector<Proc::SourceNote> TakeNotes() override { return media->TakeNotes(); }
    void Note(const std::string& what) override { media->Note(what); }
    bool IsBeingRead() const override { return calls->under > 0; }

private:
    const boost::intrusive_ptr<IMediaSource> media;
    const std::shared_ptr<Calls> calls;
};

class ScriptedSources : public Kestra::Proc::ISourceFactory {
public:
    ScriptedSources(const std::string& path, std::shared_ptr<Calls> calls)
        : media(Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenMedia(Kestra::ioPath(path)))
        , calls(std::move(calls)) {}

    boost::intrusive_ptr<Proc::IMediaSource> OpenMedia(const Kestra::ioPath&, const std::atomic<bool>* interrupted,
                                                       const Proc::MediaLimits&, const Proc::TrackChoice&) override {
        const auto held = media;
        const auto heldCalls = calls;
        heldCalls->interruption = interrupted;
        heldCalls->call("open");
        return new ScriptedMedia(held, heldCalls);
    }

private:
    const boost::intrusive_ptr<Proc::IMediaSource> media;
    const std::shared_ptr<Calls> calls;
};

/// A call that hangs, and what is exported.
struct Hang {
    std::string at;
    const char* preset = "mp4-h264-480p";
};

inline void PrintTo(const Hang& hang, std::ostream* stream) {
    *stream << hang.at << " in " << hang.preset;
}

inline const char* const SOUND_ALONE = "m4a-aac";

inline std::string nameOf(const testing::TestParamInfo<Hang>& testCase) {
    std::string name = testCase.param.preset == SOUND_ALONE ? "soundAlone_" : "";
    for (const char letter : testCase.param.at)
        if (std::isspace(static_cast<unsigned char>(letter)) == 0)
            name += letter;
    return name;
}

} // namespace TestExport

// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/branding/RecordingFactories.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include "Kestra/Proc/Filters/Concatenation.h"
#include "Kestra/Proc/Filters/EffectHost.h"
#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "Kestra/Proc/IDataVideoFFFactory.h"
#include "Kestra/Proc/IEffectFactory.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "fakes/kestra/FakeData.h"
#include <stdexcept>

namespace Kestra::Fakes {

namespace {

using Record = std::shared_ptr<RecordingFactories>;

/// The engine's own stream, telling who is added to it.
class RecordingConcatenation final : public Proc::IConcatenation, public RefCountImpl {
public:
    explicit RecordingConcatenation(Record record)
        : record(std::move(record)) {}

    void Append(const boost::intrusive_ptr<Proc::IStreamVideo>& stream) override {
        record->Call("Append", stream->Describe());
        record->appended.push_back(stream);
        inner->Append(stream);
    }
    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override { return inner->ReadVideo(); }
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override {
        inner->GetVideoFormat(format);
    }
    void Initialize(const Core::Property& settings) override { inner->Initialize(settings); }
    Core::Property GetSettings() const override { return inner->GetSettings(); }
    std::int64_t GetDuration() const override { return inner->GetDuration(); }
    std::int64_t GetPosition() const override { return inner->GetPosition(); }
    boost::intrusive_ptr<Proc::IData> ReadData() override { return inner->ReadData(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override { inner->Seek(time, mode); }
    void Interrupt() override { inner->Interrupt(); }
    bool IsSeekable() const override { return inner->IsSeekable(); }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override { GetFormatCodecBase(format); }
    std::string Describe() const override { return inner->Describe(); }
    void PreferFormat(const Conf::IFormatCodec& format) override { inner->PreferFormat(format); }
    void Prepare() override { inner->Prepare(); }
    void Reset() override { inner->Reset(); }

private:
    const Record record;
    const boost::intrusive_ptr<Proc::IConcatenation> inner = new Proc::Concatenation;
};

class NamedEffect final : public Proc::IEffectVideo, public RefCountImpl {
public:
    explicit NamedEffect(std::string name)
        : name(std::move(name)) {}
    const std::string& GetName() const { return name; }
    boost::intrusive_ptr<Proc::IDataVideo> Apply(const boost::intrusive_ptr<Proc::IDataVideo>& picture) override {
        return picture;
    }
    void ChangeFormat(Conf::IFormatCodecVideo&) const override {}
    void ChangePreference(Conf::IFormatCodecVideo&) const override {}
    void Reset() override {}

private:
    const std::string name;
};

class RecordingHost final : public Proc::IEffectHost, public RefCountImpl {
public:
    RecordingHost(Record record, const boost::intrusive_ptr<Proc::IStreamVideo>& source)
        : record(std::move(record))
        , inner(new Proc::EffectHost(source)) {}

    void AddEffect(const boost::intrusive_ptr<Proc::IEffectVideo>& effect) override {
        record->Call("AddEffect", dynamic_cast<const NamedEffect&>(*effect).GetName());
        inner->AddEffect(effect);
    }
    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override { return inner->ReadVideo(); }
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override {
        inner->GetVideoFormat(format);
    }
    void Initialize(const Core::Property& settings) override { inner->Initialize(settings); }
    Core::Property GetSettings() const override { return inner->GetSettings(); }
    std::int64_t GetDuration() const override { return inner->GetDuration(); }
    std::int64_t GetPosition() const override { return inner->GetPosition(); }
    boost::intrusive_ptr<Proc::IData> ReadData() override { return inner->ReadData(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override { inner->Seek(time, mode); }
    void Interrupt() override { inner->Interrupt(); }
    bool IsSeekable() const override { return inner->IsSeekable(); }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override { GetFormatCodecBase(format); }
    std::string Describe() const override { return inner->Describe(); }
    void PreferFormat(const Conf::IFormatCodec& format) override { inner->PreferFormat(format); }
    void Prepare() override { inner->Prepare(); }
    void Reset() override { inner->Reset(); }

private:
    const Record record;
    const boost::intrusive_ptr<Proc::IEffectHost> inner;
};

class RecordingFilters final : public Proc::IFilterFactory {
public:
    explicit RecordingFilters(Record record)
        : record(std::move(record)) {}

    Video CreateResizer(const Video& source, const Proc::SettingsResizer& settings,
                        const std::string& implName) override {
        record->Call("CreateResizer", implName);
        record->resizerSource = source;
        record->resizer = settings;
        return new Proc::VideoFilterBase(source, "resizer");
    }
    Video CreateFrameRate(const Video& source, const Proc::SettingsFilterFrameRate&,
                          const std::string& implName) override {
        record->Call("CreateFrameRate with settings", implName);
        return new Proc::VideoFilterBase(source, "set frame rate");
    }
    Video CreateFrameRate(const Video& source, const std::string& implName) override {
        record->Call("CreateFrameRate", implName);
        return new Proc::VideoFilterBase(source, "frame rate");
    }
    boost::intrusive_ptr<Proc::IEffectHost> CreateEffectHost(const Video& source,
                                                             const std::string& implName) override {
        record->Call("CreateEffectHost", implName);
        return new RecordingHost(record, source);
    }
    Video CreateReadAhead(const Video&, int) override { throw std::logic_error("nobody asks for this"); }
    boost::intrusive_ptr<Proc::IConcatenation> CreateConcatenation(const std::string& implName) override {
        record->Call("CreateConcatenation", implName);
        return record->concatenation = new RecordingConcatenation(record);
    }
    Audio CreateResampler(const Audio&, const Conf::SampleInfo&) override {
        throw std::logic_error("nobody asks for this");
    }
    Audio CreateDurationTrimmer(const Audio& source, const Proc::SettingsFilterDurationTrimmer& settings,
                                const std::string& implName) override {
        record->Call("CreateDurationTrimmer", implName);
        record->trimmerSource = source;
        record->trimmer = settings;
        return record->trimmed = new Proc::AudioFilterBase(source, "trimmer");
    }
    Audio CreateReadAhead(const Audio&, int) override { throw std::logic_error("nobody asks for this"); }
    Video CreateBlack(const boost::intrusive_ptr<Conf::IFormatCodecVideo>&, std::int64_t) override {
        throw std::logic_error("nobody asks for this");
    }
    Audio CreateSilence(const boost::intrusive_ptr<Conf::IFormatCodecAudio>&, std::int64_t) override {
        throw std::logic_error("nobody asks for this");
    }
    boost::intrusive_ptr<Proc::IFrameBlender>
    CreateFrameBlender(const boost::intrusive_ptr<Conf::IFormatCodecVideo>&) override {
        throw std::logic_error("nobody asks for this");
    }
    boost::intrusive_ptr<Proc::ISampleMixer> CreateSampleMixer(const Conf::SampleInfo&) override {
        throw std::logic_error("nobody asks for this");
    }
    Audio CreateTempo(const Audio&, const boost::rational<long long>&, Proc::Pitch) override {
        throw std::logic_error("nobody asks for this");
    }
    Audio CreateLimiter(const Audio&, double, double) override { throw std::logic_error("nobody asks for this"); }
    boost::intrusive_ptr<Proc::ILoudnessMeter> CreateLoudnessMeter() override {
        throw std::logic_error("nobody asks for this");
    }

private:
    const Record record;
};

class RecordingEffects final : public Proc::IEffectFactory {
public:
    explicit RecordingEffects(Record record)
        : record(std::move(record)) {}

    Effect CreateColorspaceConverter(const Proc::SettingsColorspaceConverter& settings,
                                     const std::string& implName) override {
        record->Call("CreateColorspaceConverter", implName);
        record->converter = settings;
        return new NamedEffect("converter");
    }
    Effect CreateEffect(const std::string& settingsClassId, const Proc::TimeToProgress& progress,
                        const std::string& implName) override {
        record->Call("CreateEffect " + settingsClassId, implName);
        record->progress = progress;
        return new NamedEffect("envelope");
    }

private:
    const Record record;
};

class RecordingPictures final : public Proc::IDataVideoFFFactory {
public:
    explicit RecordingPictures(Record record)
        : record(std::move(record)) {}

    boost::intrusive_ptr<Proc::IDataVideo> CreateDataVideo(const Conf::FrameInfo& frame, Conf::PixelFormat format,
                                                           const Writer&) override {
        record->Call("CreateDataVideo", std::to_string(frame.width) + 'x' + std::to_string(frame.height));
        record->pictureFrame = frame;
        record->pictureFormat = format;
        return new FakeFrame(0, 0, 0, frame);
    }

private:
    const Record record;
};

} // namespace

void RecordingFactories::Call(const std::string& name, const std::string& implName) {
    log.Add(name + ' ' + implName);
    const auto failure = failures.find(name);
    if (failure != failures.end())
        std::rethrow_exception(failure->second);
}

RecordingFactories::Installed::Installed(const std::shared_ptr<RecordingFactories>& record)
    : record(record) {
    auto& core = Core::CoreManager::Instance();
    core.SetFilterFactory(std::make_shared<RecordingFilters>(record));
    core.SetEffectFactory(std::make_shared<RecordingEffects>(record));
    core.SetDataVideoFFFactory(std::make_shared<RecordingPictures>(record));
}

RecordingFactories::Installed::~Installed() {
    auto& core = Core::CoreManager::Instance();
    core.SetFilterFactory(nullptr);
    core.SetEffectFactory(nullptr);
    core.SetDataVideoFFFactory(nullptr);
    record->resizerSource.reset();
    record->trimmerSource.reset();
    record->trimmed.reset();
    record->appended.clear();
    record->concatenation.reset();
}

} // namespace Kestra::Fakes

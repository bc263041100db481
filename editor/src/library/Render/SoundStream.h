// SPDX-License-Identifier: GPL-3.0-or-later
// Render::SoundStream: the sound of a sequence's window in one format.
#pragma once

#include "Kestra/Proc/Filters/StreamBase.h"
#include "Kestra/Proc/ISampleMixer.h"
#include "Render/MaterialSound.h"
#include "Render/OpenMaterials.h"
#include "Render/Sequence.h"
#include <map>
#include <memory>

namespace Render {

/// As createSoundStream() says.
class SoundStream final : public Kestra::Proc::StreamBase<Kestra::Proc::IStreamAudio> {
public:
    /// `format` has a rate and a layout; an open sample format is float until a consumer prefers one.
    SoundStream(Sequence sequence, const Window& window, const Kestra::Conf::SampleInfo& format);
    ~SoundStream() override;

    boost::intrusive_ptr<Kestra::Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Kestra::Proc::SeekMode mode) override;
    void Interrupt() override { streams.interrupt(); }
    std::string Describe() const override;
    void PreferFormat(const Kestra::Conf::IFormatCodec& format) override;
    void Reset() override;

private:
    using Block = boost::intrusive_ptr<Kestra::Proc::IDataAudio>;

    void enter();
    void forget();
    MaterialSound& sounding(const Material& material);
    Kestra::SampleIndex left() const { return sceneEnd - nextSample; }
    Block readOne(const Material& material);
    Block readSilence(Kestra::SampleIndex most);
    Block readMixed();
    Block mix(const Parts& parts, Kestra::SampleIndex count);
    /// Null where it is silent.
    Block taken(MaterialSound& sound, Kestra::SampleIndex count);
    Kestra::SampleIndex inStep(const Parts& parts);
    Kestra::Proc::ISampleMixer& mixing();
    void notePeak();
    Block placed(const Block& block);

    const Sequence sequence;
    const Window window;
    const Kestra::SampleGrid grid;
    const Kestra::SampleIndex samples;
    const SoundPlanner planner;
    SoundTarget target;
    const Kestra::Conf::ProgrammeInfo programme;

    MaterialSound::Streams streams;
    OpenMaterials<MaterialSound> open;
    MaterialSound::Streams::Lease silence;
    Kestra::SampleIndex silenceEnd; ///< of the open silence
    boost::intrusive_ptr<Kestra::Proc::ISampleMixer> mixer;
    /// What is being mixed: a stack that stands in two tracks at one time is read once and heard twice.
    std::map<const MaterialSound*, Block> mixed;

    Scene scene;
    Kestra::SampleIndex sceneEnd; ///< the scene holds from the next sample up to it
    Kestra::SampleIndex nextSample;
};

} // namespace Render

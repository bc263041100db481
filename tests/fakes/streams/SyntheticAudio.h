// SPDX-License-Identifier: GPL-3.0-or-later
// Fakes::SyntheticAudio: a working audio stream whose samples a function gives.
#pragma once

#include "Kestra/FF/Data/DataAudioFF.h"
#include "Kestra/Proc/IStreamAudio.h"
#include <atomic>
#include <functional>
#include <vector>

namespace Fakes {

struct AudioShape {
    int rate = 48000;
    std::uint32_t layout = Kestra::Conf::CHANNEL_LAYOUT_STEREO;
    Kestra::Conf::SampleFormats format = Kestra::Conf::SAMPLE_FORMAT_FLTP;
    std::int64_t samples = 48000;
    int block = 1000; ///< samples a read
    bool seekable = true;
    bool durationKnown = true;
    /// Sample `index` of `channel`, -1 to 1; null: silence.
    std::function<double(int channel, std::int64_t index)> wave;
};

class SyntheticAudio final : public Kestra::Proc::IStreamAudio, public Kestra::RefCountImpl {
public:
    explicit SyntheticAudio(AudioShape shape);

    boost::intrusive_ptr<Kestra::Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio>& format) const override;
    void Initialize(const Kestra::Core::Property&) override {}
    Kestra::Core::Property GetSettings() const override { return Kestra::Core::Property(); }
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<Kestra::Proc::IData> ReadData() override { return ReadAudio(); }
    void Seek(std::int64_t time, Kestra::Proc::SeekMode mode) override;
    void Interrupt() override { interrupted = true; }
    bool IsSeekable() const override { return shape.seekable; }
    void GetFormatCodec(boost::intrusive_ptr<Kestra::Conf::IFormatCodec>& format) const override;
    std::string Describe() const override { return "synthetic sound"; }
    void PreferFormat(const Kestra::Conf::IFormatCodec&) override {}
    void Prepare() override {}
    void Reset() override;

    /// Samples handed out since it was made. Thread-safe.
    std::int64_t GetSamplesRead() const { return samplesRead; }

private:
    const AudioShape shape;
    std::int64_t next = 0;
    std::atomic<std::int64_t> samplesRead{0};
    std::atomic<bool> interrupted{false};
};

boost::intrusive_ptr<SyntheticAudio> MakeAudio(AudioShape shape);
/// The first one, which has the others as its further tracks.
boost::intrusive_ptr<Kestra::Proc::IStreamAudio>
MakeSounds(std::vector<boost::intrusive_ptr<Kestra::Proc::IStreamAudio>> tracks);

} // namespace Fakes

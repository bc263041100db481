// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::AudioConversion: audio in another format and of an exact length.
#pragma once

#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/FF/Av/FilterGraph.h"
#include "Kestra/FF/Data/SampleQueue.h"
#include "Kestra/Proc/Filters/AudioFilterBase.h"
#include <optional>

namespace Kestra::FF {

/// Both the resampler and the trimmer: what the target leaves open stays as the source has it; the length is the
/// source's or the given one. Blocks that are right already pass untouched. Channels are mixed with the coefficients of
/// ITU-R BS.775 and keep their level; peaks that exceed full scale together are limited, and only they.
class AudioConversion final : public Proc::AudioFilterBase {
public:
    AudioConversion(boost::intrusive_ptr<Proc::IStreamAudio> source, const Conf::SampleInfo& target,
                    std::optional<std::int64_t> length, std::string name);

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Prepare() override;
    void Reset() override;
    std::vector<boost::intrusive_ptr<Proc::IStreamAudio>> GetFurtherTracks() const override;

private:
    /// Format, rate and layout of what comes out; complete after Settle.
    struct Shape {
        AVSampleFormat format = AV_SAMPLE_FMT_NONE;
        int rate = 0;
        AVChannelLayout layout = {};
    };

    void Settle();
    void ReadOn();
    void Convert(const AVFrame& block);
    void StartConverter(const AVFrame& block);
    void DrainConverter();
    void ForgetConverter();
    AVSampleFormat ConverterFormat() const;
    void Store(FrameHandle converted);
    void TakeLimited();
    bool FitsOutput(const AVFrame& block) const;
    bool FitsConverter(const AVFrame& block) const;
    std::int64_t AlignedSeek(std::int64_t time);
    FrameHandle TakeBlock();

    const Conf::SampleInfo target;
    const std::optional<std::int64_t> length;

    Shape output;
    SwrContextHandle converter;
    FrameHandle converterInput;         ///< shape of what the converter is set up for
    std::optional<FilterGraph> limiter; ///< behind the converter, where its mix can exceed full scale
    SampleQueue queue;
    std::int64_t position = 0;   ///< samples handed out
    std::int64_t total = -1;     ///< samples in all; -1: as many as come
    std::int64_t dropBefore = 0; ///< after a seek: source time before which samples are not wanted
    bool sourceEnded = false;
};

} // namespace Kestra::FF

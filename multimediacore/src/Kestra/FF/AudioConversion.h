// Kestra::FF::AudioConversion: sound in another format and of an exact length.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/FF/SampleQueue.h"
#include "Kestra/Proc/IStreamAudio.h"
#include <optional>

namespace Kestra::FF {

/// Both the resampler and the trimmer: what the target leaves open stays as the source has it; the length is the
/// source's or the given one. Blocks that are right already pass untouched.
class AudioConversion final : public Proc::IStreamAudio, public RefCountImpl {
public:
    AudioConversion(boost::intrusive_ptr<Proc::IStreamAudio> source, const Conf::SampleInfo& target,
                    std::optional<std::int64_t> length, std::string name);

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadAudio(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override { source->Interrupt(); }
    bool IsSeekable() const override { return source->IsSeekable(); }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override { GetFormatCodecBase(format); }
    std::string Describe() const override { return name + " of " + source->Describe(); }
    void PreferFormat(const Conf::IFormatCodec& format) override { source->PreferFormat(format); }
    void Prepare() override;
    void Reset() override;

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
    bool FitsOutput(const AVFrame& block) const;
    bool FitsConverter(const AVFrame& block) const;
    std::int64_t AlignedSeek(std::int64_t time);
    FrameHandle TakeBlock();

    const boost::intrusive_ptr<Proc::IStreamAudio> source;
    const Conf::SampleInfo target;
    const std::optional<std::int64_t> length;
    const std::string name;

    Shape output;
    SwrContextHandle converter;
    FrameHandle converterInput; ///< shape of what the converter is set up for
    SampleQueue queue;
    std::int64_t position = 0;   ///< samples handed out
    std::int64_t total = -1;     ///< samples in all; -1: as many as come
    std::int64_t dropBefore = 0; ///< after a seek: source time before which samples are not wanted
    bool sourceEnded = false;
};

} // namespace Kestra::FF

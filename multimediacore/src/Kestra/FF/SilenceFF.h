// Kestra::FF::SilenceFF: a stream of silence.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/FF/Handles.h"
#include "Kestra/Proc/IStreamAudio.h"

namespace Kestra::FF {

/// All its blocks share one buffer.
class SilenceFF final : public Proc::IStreamAudio, public RefCountImpl {
public:
    SilenceFF(const Conf::IFormatCodecAudio& format, std::int64_t duration);

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override;
    std::int64_t GetDuration() const override { return duration; }
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadAudio(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override {}
    bool IsSeekable() const override { return true; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override { GetFormatCodecBase(format); }
    std::string Describe() const override { return "silence"; }
    void PreferFormat(const Conf::IFormatCodec&) override {}
    void Prepare() override {}
    void Reset() override { position = 0; }

private:
    const std::int64_t duration;
    FrameHandle block;
    std::int64_t total = 0;
    std::int64_t position = 0; ///< samples
};

} // namespace Kestra::FF

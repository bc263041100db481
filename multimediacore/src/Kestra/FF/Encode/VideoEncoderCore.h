// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::VideoEncoderCore: packets from frames.
#pragma once

#include "Kestra/Conf/Draft.h"
#include "Kestra/FF/Av/LargestAllocation.h"
#include "Kestra/FF/Encode/EncoderCore.h"
#include "Kestra/FF/Encode/FirstPassDraft.h"
#include "Kestra/FF/Encode/TwoPassLog.h"
#include "Kestra/FF/Picture/EncoderInput.h"
#include "Kestra/FF/Picture/HdrMetadata.h"
#include "Kestra/Proc/IStreamVideo.h"
#include <boost/rational.hpp>

namespace Kestra::FF {

/// The chain before the codec: the stream, a constant frame rate, the conform stage, a thread that reads ahead.
class VideoEncoderCore final : public EncoderCore {
public:
    /// Throws ProcException (CodecNotFound).
    VideoEncoderCore(const boost::intrusive_ptr<Proc::IStreamVideo>& stream, const Core::Property& description);

    void GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override { return position; }
    /// Frames are cut before they are encoded; there is nothing to be aligned.
    void AlignTo(std::int64_t, std::int64_t) override {}
    std::string Describe() const override;

protected:
    std::unique_ptr<IEncoderLoop> Open() override;
    FrameHandle NextFrame() override;
    boost::intrusive_ptr<Proc::IDataRaw> Finish(PacketHandle packet) override;
    boost::intrusive_ptr<Proc::IDataRaw> AfterSend() override;
    void ExplainFailure() const override;
    void ExplainShortage() const override;
    void AtEnd() override;
    void InterruptSource() override { stream->Interrupt(); }
    void ResetSource() override;

private:
    boost::intrusive_ptr<Conf::IFormatCodecVideo> MakeDescription() const;
    void BuildChain(const Conf::IFormatCodecVideo& description);
    void Peek();
    void SettleFields(const AVFrame& first);
    CodecContextHandle Configure(const Conf::IFormatCodecVideo& description, const OptionList& options) const;
    FirstPassDraft ChooseDraft(const Conf::IFormatCodecVideo& description) const;
    void ConfigureInput(AVCodecContext& context) const;
    void ConfigureFirstPass(AVCodecContext& context) const;
    OptionList EncoderOptions() const;
    bool IsApprovedVbrOnly() const;
    const VideoDriver& Driver() const;
    AVRational TimeBase() const;

    const boost::intrusive_ptr<Proc::IStreamVideo> stream;
    const AVCodec* codec;
    boost::intrusive_ptr<Proc::IStreamVideo> chain;
    boost::intrusive_ptr<Proc::IDataVideo> peeked;
    std::unique_ptr<TwoPassLog> log;
    std::optional<AllocationAllowance> allowance;
    EncoderInput input;
    std::optional<Conf::Draft> draft;            ///< what is encoded instead, by a first pass
    HdrMetadata hdr;                             ///< for container and stream
    AVChromaLocation chroma = AVCHROMA_LOC_LEFT; ///< that of the first picture, where that is looked at
    boost::rational<long long> rate{0};
    std::int64_t frameCount = -1; ///< -1: as many as come
    std::int64_t framesSent = 0;
    std::int64_t position = 0;
    bool offersFields = false; ///< the stream says that it is interlaced
    bool tellsHdr = false;     ///< the stream says what its frames tell together
};

} // namespace Kestra::FF

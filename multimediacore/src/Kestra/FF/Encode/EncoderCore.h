// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::EncoderCore: the packet source behind an encoder.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Conf/ProgrammeInfo.h"
#include "Kestra/FF/Av/OptionList.h"
#include "Kestra/FF/Encode/IEncoderLoop.h"
#include "Kestra/Proc/IPacketSource.h"
#include "Kestra/Proc/Settings/SettingsTwoPassEncoding.h"
#include <atomic>
#include <memory>
#include <optional>

namespace Kestra::FF {

/// What encoders of pictures and of audio share: the pump between frames and packets, and the settings.
class EncoderCore : public Proc::IPacketSource, public RefCountImpl {
public:
    /// Settings merged into the description; possible until Prepare. Throws ProcException (NotSupported) after it.
    virtual void Initialize(const Core::Property& settings);
    const Core::Property& GetSettings() const { return description; }

    void Prepare() final;
    boost::intrusive_ptr<Proc::IDataRaw> ReadPacket() final;
    void Interrupt() final;
    void Reset() final;

protected:
    explicit EncoderCore(const Core::Property& description);

    const Core::Property& GetDescription() const { return description; }
    /// To be called while opening: takes over what the source's description tells of the programme, up to `duration`,
    /// and takes it out of that description, which is to become a wish.
    void TakeProgramme(Conf::IFormatCodec& source, std::int64_t duration);
    /// What the packets tell of it.
    const Conf::ProgrammeInfo& GetProgramme() const { return programme; }
    bool IsPrepared() const { return loop != nullptr; }
    AVCodecContext& GetContext() const { return loop->GetContext(); }
    /// As they were when the codec had opened.
    const AVCodecParameters& GetParameters() const { return *parameters; }
    /// After the last packet: what the codec still writes when it closes is written after this.
    void CloseCodec() { loop->Close(); }
    /// The options for the encoder that the description holds, `apart` left out.
    OptionList GetOptions(const std::vector<std::string>& apart) const;
    std::optional<Proc::SettingsTwoPassEncoding> GetTwoPass() const;

    /// Readies the source and returns the open codec.
    virtual std::unique_ptr<IEncoderLoop> Open() = 0;
    /// The next frame with its pts, null at the end.
    virtual FrameHandle NextFrame() = 0;
    /// The packet as it leaves; null drops it.
    virtual boost::intrusive_ptr<Proc::IDataRaw> Finish(PacketHandle packet) = 0;
    /// Called after each frame that was sent: a packet to hand out instead of an encoder's, or null.
    virtual boost::intrusive_ptr<Proc::IDataRaw> AfterSend() { return nullptr; }
    /// Called when the codec has failed, before that is told: throws where a better reason than the codec's is known.
    virtual void ExplainFailure() const {}
    /// Likewise when it gets no memory.
    virtual void ExplainShortage() const {}
    /// Called once when the last packet has gone.
    virtual void AtEnd() {}
    virtual void InterruptSource() = 0;
    virtual void ResetSource() = 0;

private:
    template <class Call>
    auto Explained(const Call& call) const;
    boost::intrusive_ptr<Proc::IDataRaw> SendNext();

    Core::Property description;
    /// For a packet many frames may be encoded, whose source need not wait for anything.
    std::atomic<bool> interrupted{false};
    std::unique_ptr<IEncoderLoop> loop;
    CodecParametersHandle parameters;
    Conf::ProgrammeInfo programme;
    bool ended = false;
};

} // namespace Kestra::FF

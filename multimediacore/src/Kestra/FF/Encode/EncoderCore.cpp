// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/EncoderCore.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/Proc/Interrupted.h"
#include <algorithm>
#include <new>
#include <utility>

namespace Kestra::FF {

using Conf::IFormatCodec;

EncoderCore::EncoderCore(const Core::Property& description)
    : description(description) {}

void EncoderCore::Initialize(const Core::Property& settings) {
    if (IsPrepared())
        Fail(Proc::TranscodingError::NotSupported, Describe() + " runs already and takes no settings any more");
    description.Merge(settings);
}

void EncoderCore::TakeProgramme(IFormatCodec& source, std::int64_t duration) {
    const auto whole = Conf::ProgrammeInfo::Of(source);
    if (whole.IsEmpty())
        return;
    std::int64_t end = duration == TIME_UNKNOWN ? 0 : duration;
    for (const Conf::ProgrammeInfo::Chapter& chapter : whole.chapters)
        end = duration == TIME_UNKNOWN ? std::max({end, chapter.end, chapter.start + 1}) : end;
    programme = whole.Part(0, end);
    Conf::ProgrammeInfo().TellIn(source);
}

OptionList EncoderCore::GetOptions(const std::vector<std::string>& apart) const {
    const char* const tag = IFormatCodec::TAG_CODEC_OPTIONS_ENCODE;
    return std::as_const(description).ChildExists(tag) ? OptionList(std::as_const(description)[tag], apart)
                                                       : OptionList();
}

std::optional<Proc::SettingsTwoPassEncoding> EncoderCore::GetTwoPass() const {
    if (!description.ChildExists(IFormatCodec::TAG_TWO_PASS))
        return std::nullopt;
    const Core::Property& tree = std::as_const(description)[IFormatCodec::TAG_TWO_PASS];
    Proc::SettingsTwoPassEncoding settings;
    settings.SetLogFile(tree[IFormatCodec::TAG_TWO_PASS_LOG_FILE].GetString());
    settings.firstPass = tree[IFormatCodec::TAG_TWO_PASS_FIRST].GetBool();
    return settings;
}

void EncoderCore::Prepare() {
    if (IsPrepared())
        return;
    std::unique_ptr<IEncoderLoop> opened = Open();
    parameters = MakeCodecParameters();
    Check(avcodec_parameters_from_context(parameters.get(), &opened->GetContext()),
          Proc::TranscodingError::EncodeFailed, "The encoder's parameters");
    loop = std::move(opened);
}

template <class Call>
auto EncoderCore::Explained(const Call& call) const {
    try {
        return call();
    } catch (const Proc::ProcException&) {
        ExplainFailure();
        throw;
    } catch (const std::bad_alloc&) {
        ExplainShortage();
        throw;
    }
}

boost::intrusive_ptr<Proc::IDataRaw> EncoderCore::ReadPacket() {
    Prepare();
    while (!ended) {
        if (interrupted)
            KESTRA_THROW(Proc::Interrupted());
        PacketHandle packet;
        const IEncoderLoop::Step step = Explained([&] { return loop->Receive(packet); });
        ended = step == IEncoderLoop::Step::End;
        if (ended)
            AtEnd();
        boost::intrusive_ptr<Proc::IDataRaw> result;
        if (step == IEncoderLoop::Step::Packet)
            result = Finish(std::move(packet));
        else if (step == IEncoderLoop::Step::NeedsFrame)
            result = SendNext();
        if (result)
            return result;
    }
    return nullptr;
}

boost::intrusive_ptr<Proc::IDataRaw> EncoderCore::SendNext() {
    const FrameHandle frame = NextFrame();
    Explained([&] { loop->Send(frame.get()); });
    return frame ? AfterSend() : nullptr;
}

void EncoderCore::Interrupt() {
    interrupted = true;
    InterruptSource();
}

void EncoderCore::Reset() {
    loop.reset();
    ended = false;
    ResetSource();
    interrupted = false;
}

} // namespace Kestra::FF

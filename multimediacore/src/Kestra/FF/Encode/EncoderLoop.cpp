// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/EncoderLoop.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/LogWatch.h"
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

struct Opening {
    int result = 0;
    std::string reason; ///< when it failed
};

// x264, x265 and SVT-AV1 take parameters of their own as one option. One that they do not know is logged and left out.
Opening TryToOpen(const EncoderLoop::Configure& configure, const OptionList& options, CodecContextHandle& context) {
    context = configure(options);
    const LogWatch log;
    const int result = avcodec_open2(context.get(), context->codec, nullptr);
    if (result < 0)
        return {result, ErrorText(result)};
    const std::string complaint = log.Find({"Error parsing option", "Unknown option", "Invalid value for"});
    return {complaint.empty() ? 0 : AVERROR(EINVAL), complaint};
}

// A codec says no to its settings as a whole. The option without which it opens is the one at fault.
[[noreturn]] void ThrowCulprit(const EncoderLoop::Configure& configure, const OptionList& options,
                               const std::string& name, const std::string& advice, const Opening& refusal,
                               SourcePlace place = SourcePlace::Here()) {
    std::string all;
    for (std::size_t index = 0; index < options.Get().size(); ++index) {
        const OptionList::Option& option = options.Get()[index];
        CodecContextHandle context;
        if (TryToOpen(configure, options.Without(index), context).result >= 0)
            Fail(TranscodingError::CodecRefused,
                 name + " refuses the value \"" + option.value + "\" for its option \"" + option.name +
                     "\": " + refusal.reason,
                 place);
        all += (all.empty() ? "" : ", ") + option.name + " = " + option.value;
    }
    Fail(MapError(refusal.result, TranscodingError::CodecRefused),
         name + " refuses its settings" + (all.empty() ? std::string() : " (" + all + ")") + ": " +
             (advice.empty() ? refusal.reason : advice),
         place);
}

} // namespace

EncoderLoop::EncoderLoop(const Configure& configure, const OptionList& options, const std::string& encoderName,
                         const std::string& advice)
    : name(encoderName) {
    const Opening opening = TryToOpen(configure, options, context);
    if (opening.result == AVERROR(ENOMEM))
        throw std::bad_alloc();
    if (opening.result < 0)
        ThrowCulprit(configure, options, name, advice, opening);
}

EncoderLoop::Step EncoderLoop::Receive(PacketHandle& packet) {
    packet = MakePacket();
    const int result = avcodec_receive_packet(context.get(), packet.get());
    if (result == AVERROR(EAGAIN))
        return Step::NeedsFrame;
    if (result == AVERROR_EOF)
        return Step::End;
    Check(result, TranscodingError::EncodeFailed, (name + " failed to encode").c_str());
    return Step::Packet;
}

void EncoderLoop::Send(const AVFrame* frame) {
    Check(avcodec_send_frame(context.get(), frame), TranscodingError::EncodeFailed,
          (name + (frame ? " did not take a frame" : " did not finish")).c_str());
}

} // namespace Kestra::FF

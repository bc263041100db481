#include "Kestra/FF/EncoderLoop.h"

#include "Kestra/FF/Error.h"
#include <utility>

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

int TryToOpen(const EncoderLoop::Configure& configure, const OptionList& options, CodecContextHandle& context) {
    context = configure(options);
    return avcodec_open2(context.get(), context->codec, nullptr);
}

// A codec says no to its settings as a whole. The option without which it opens is the one at fault.
[[noreturn]] void ThrowCulprit(const EncoderLoop::Configure& configure, const OptionList& options,
                               const std::string& name, int refusal) {
    std::string all;
    for (std::size_t index = 0; index < options.Get().size(); ++index) {
        const OptionList::Option& option = options.Get()[index];
        CodecContextHandle context;
        if (TryToOpen(configure, options.Without(index), context) >= 0)
            Fail(TranscodingError::CodecRefused, name + " refuses the value \"" + option.value +
                                                     "\" for its option \"" + option.name +
                                                     "\": " + ErrorText(refusal));
        all += (all.empty() ? "" : ", ") + option.name + " = " + option.value;
    }
    ThrowError(refusal, TranscodingError::CodecRefused,
               name + " refuses its settings" + (all.empty() ? std::string() : " (" + all + ")"));
}

} // namespace

EncoderLoop::EncoderLoop(const Configure& configure, const OptionList& options, const std::string& encoderName)
    : name(encoderName) {
    const int result = TryToOpen(configure, options, context);
    if (result == AVERROR(ENOMEM))
        throw std::bad_alloc();
    if (result < 0)
        ThrowCulprit(configure, options, name, result);
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/EncoderQuery.h"

#include "Kestra/Conf/Container.h"
#include "Kestra/Conf/PixelFormat.h"
#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OptionList.h"
#include "Kestra/FF/Encode/EncoderCatalogue.h"
#include "Kestra/FF/Encode/VideoDriver.h"
#include "Kestra/FF/WebP/WebPPlays.h"
#include <cstring>
#include <memory>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

using Conf::CodecID;

AVPixelFormat FormatNamed(const std::string& name) {
    const AVPixelFormat named = ToAv(Conf::PixelFormatFromString(name));
    return named != AV_PIX_FMT_NONE ? named : av_get_pix_fmt(name.c_str());
}

/// Why `take` does not take the option; empty when it does.
template <class Take>
std::string WhyNotTaken(const std::string& name, const std::string& value, Take take) {
    Core::Property options;
    options.SetChild(name, value);
    try {
        take(OptionList(options));
        return {};
    } catch (const Exception& refusal) {
        return refusal.what();
    }
}

std::string WhyNot(void* target, const std::string& owner, const std::string& name, const std::string& value) {
    return WhyNotTaken(name, value, [&](const OptionList& option) {
        option.ApplyTo(target, owner, Proc::TranscodingError::CodecRefused);
    });
}

struct FreeFormat {
    void operator()(AVFormatContext* context) const { avformat_free_context(context); }
};

} // namespace

bool TakesPixelFormat(CodecID codec, const std::string& pixelFormat) {
    const AVPixelFormat format = FormatNamed(pixelFormat);
    const std::vector<const AVCodec*> encoders = EncodersOf(codec);
    return format != AV_PIX_FMT_NONE && !encoders.empty() && TakesFormat(*encoders.front(), format) &&
           VideoDriver::Of(*encoders.front()).TakesFormat(format);
}

std::string WhyNotOption(CodecID codec, const std::string& name, const std::string& value, bool exactRate) {
    std::string reason = std::string("there is no encoder for ") + Conf::CodecIDToString(codec);
    for (const AVCodec* const encoder : EncodersOf(codec)) {
        if (exactRate && encoder != &EncoderForExactRates(*encoder))
            continue;
        const CodecContextHandle context = MakeCodecContext(encoder);
        reason = WhyNot(context.get(), encoder->name, name, value);
        if (reason.empty())
            break;
    }
    return reason;
}

std::string WhyNotMuxerOption(const std::string& container, const std::string& name, const std::string& value) {
    const Conf::Container* const known = Conf::Container::Find(container);
    if (known && known->sequence)
        return container + " has no options: its files are the encoder's alone";
    if (known && std::strcmp(known->muxer, "webp") == 0)
        return WhyNotTaken(name, value, PlaysOf);
    AVFormatContext* made = nullptr;
    if (!known || avformat_alloc_output_context2(&made, nullptr, known->muxer, nullptr) < 0)
        return "there is no muxer for " + container;
    const std::unique_ptr<AVFormatContext, FreeFormat> context(made);
    return WhyNot(context.get(), "the muxer for " + container, name, value);
}

} // namespace Kestra::FF

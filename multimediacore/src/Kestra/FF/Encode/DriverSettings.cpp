#include "Kestra/FF/Encode/DriverSettings.h"

#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <thread>

namespace Kestra::FF {

using Proc::TranscodingError;

int Processors() {
    return std::max(static_cast<int>(std::thread::hardware_concurrency()), 1);
}

void RefuseSetting(const AVCodecContext& context, const std::string& what, SourcePlace place) {
    Fail(TranscodingError::CodecRefused, std::string(context.codec->name) + " refuses " + what, place);
}

void RefuseLayout(const AVCodec& codec, std::uint32_t wanted, const std::string& reason, SourcePlace place) {
    const bool named = !Conf::IsDiscreteLayout(wanted);
    Fail(TranscodingError::CodecRefused,
         std::string(codec.name) + " cannot encode sound of " + std::to_string(Conf::CountChannels(wanted)) +
             " channels" + (named ? std::string(" (") + Conf::LayoutRecord::Find(wanted)->name + ")" : "") + ": " +
             reason + ". PCM in WAV holds any number of channels (preset \"wav\")",
         place);
}

bool HasPrivateOption(const AVCodecContext& context, const char* name) {
    return context.priv_data && av_opt_find(context.priv_data, name, nullptr, 0, 0) != nullptr;
}

void SetPrivate(AVCodecContext& context, const char* name, std::int64_t value) {
    if (HasPrivateOption(context, name))
        Check(av_opt_set_int(context.priv_data, name, value, 0), TranscodingError::CodecRefused, name);
}

void SetCrf(AVCodecContext& context, double quality) {
    if (av_opt_set_double(context.priv_data, "crf", quality, 0) < 0)
        RefuseSetting(context, "the quality " + Decimal(quality));
}

void SetTileThreads(AVCodecContext& context) {
    context.thread_count = std::min(Processors(), MOST_SLICE_THREADS);
    SetPrivate(context, "row-mt", 1);
    // Tiles are at least 256 pixels wide, and at most 4096.
    int columns = 0;
    while (columns < 4 && (context.width >> columns > 4096 ||
                           ((context.width >> (columns + 1)) >= 256 && (1 << (columns + 1)) <= context.thread_count)))
        ++columns;
    SetPrivate(context, "tile-columns", columns);
}

} // namespace Kestra::FF

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/DriverSettings.h"

#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <memory>
#include <sstream>
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

bool HasListedParameter(const AVCodecContext& context, const char* list, const char* name) {
    Dictionary parameters;
    Check(av_opt_get_dict_val(context.priv_data, list, 0, parameters.Address()), TranscodingError::CodecRefused, list);
    return parameters.Has(name);
}

void SetListedParameter(AVCodecContext& context, const char* list, const char* name, const char* value) {
    Dictionary parameters;
    Check(av_opt_get_dict_val(context.priv_data, list, 0, parameters.Address()), TranscodingError::CodecRefused, list);
    parameters.Set(name, value);
    Check(av_opt_set_dict_val(context.priv_data, list, *parameters.Address(), 0), TranscodingError::CodecRefused, list);
}

bool HasParameterInText(const AVCodecContext& context, const char* option, const std::string& name) {
    std::uint8_t* value = nullptr;
    Check(av_opt_get(context.priv_data, option, 0, &value), TranscodingError::CodecRefused, option);
    const std::unique_ptr<std::uint8_t, decltype(&av_free)> held(value, &av_free);
    std::istringstream parameters(value ? reinterpret_cast<const char*>(value) : "");
    for (std::string one; std::getline(parameters, one, ':');)
        if (one.substr(0, one.find('=')) == name)
            return true;
    return false;
}

void SetCrf(AVCodecContext& context, double quality) {
    if (av_opt_set_double(context.priv_data, "crf", quality, 0) < 0)
        RefuseSetting(context, "the quality " + Decimal(quality));
}

int ThreadsBesideOthers() {
    return std::clamp(Processors(), 2, MOST_SLICE_THREADS);
}

// As many columns as there is room for: libvpx does so by itself, and threads wait less where there are more tiles.
void SetTileThreads(AVCodecContext& context) {
    constexpr int NARROWEST_TILE = 256;
    constexpr int MOST_COLUMNS = 4; // 16 of them
    context.thread_count = ThreadsBesideOthers();
    SetPrivate(context, "row-mt", 1);
    int columns = 0;
    while (columns < MOST_COLUMNS && context.width >> (columns + 1) >= NARROWEST_TILE)
        ++columns;
    SetPrivate(context, "tile-columns", columns);
}

} // namespace Kestra::FF

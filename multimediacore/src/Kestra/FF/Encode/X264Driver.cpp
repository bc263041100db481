// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/VideoDrivers.h"
#include "Kestra/FF/Encode/X264Statistics.h"
#include <algorithm>
#include <array>
#include <string>

extern "C" {
#include <libavutil/avstring.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

constexpr int MOST_THREADS = 64;

bool LooksAhead(const OptionList& options) {
    const auto& all = options.Get();
    return std::none_of(all.begin(), all.end(), [](const OptionList::Option& option) {
        return option.name == "preset" && (option.value == "ultrafast" || option.value == "superfast");
    });
}

constexpr std::array PRESETS{"ultrafast", "superfast", "veryfast", "faster",   "fast",
                             "medium",    "slow",      "slower",   "veryslow", "placebo"};
constexpr std::array TUNES{"film", "animation", "grain",      "stillimage", "psnr",
                           "ssim", "touhou",    "fastdecode", "zerolatency"};

template <std::size_t N>
bool IsAmong(const std::array<const char*, N>& names, const std::string& value) {
    return std::any_of(names.begin(), names.end(),
                       [&value](const char* name) { return av_strcasecmp(name, value.c_str()) == 0; });
}

template <std::size_t N>
std::string Listed(const std::array<const char*, N>& names) {
    std::string list;
    for (const char* name : names)
        list += (list.empty() ? "" : ", ") + std::string(name);
    return list;
}

bool IsPreset(const std::string& value) {
    const bool isNumber = value.size() == 1 && value.front() >= '0' && value.front() <= '9';
    return value.empty() || isNumber || IsAmong(PRESETS, value);
}

bool AreTunes(const std::string& value) {
    std::size_t at = 0;
    while (at <= value.size()) {
        const std::size_t end = std::min(value.find_first_of(",./-+", at), value.size());
        if (end > at && !IsAmong(TUNES, value.substr(at, end - at)))
            return false;
        at = end + 1;
    }
    return true;
}

// Of others it would write on standard error by itself, past the library's log.
void RequireKnownNames(const OptionList& options) {
    for (const OptionList::Option& option : options.Get()) {
        const bool isTune = option.name == "tune";
        if (isTune ? AreTunes(option.value) : option.name != "preset" || IsPreset(option.value))
            continue;
        Fail(Proc::TranscodingError::CodecRefused, "libx264 refuses the value \"" + option.value +
                                                       "\" for its option \"" + option.name + "\": it has " +
                                                       (isTune ? Listed(TUNES) : Listed(PRESETS)));
    }
}

class Driver final : public VideoDriver {
public:
    Driver()
        : VideoDriver(Conf::CodecID::H264, "libx264") {}

    // It tells no matrix of grey frames, and its decoders show them as those of colour.
    bool TakesFormat(AVPixelFormat format) const override { return av_pix_fmt_desc_get(format)->nb_components >= 3; }

    // Its list ends before that code.
    Conf::ColourInfo Tellable(Conf::ColourInfo colour) const override {
        if (colour.primaries == AVCOL_PRI_EBU3213)
            colour.primaries = AVCOL_PRI_UNSPECIFIED;
        return colour;
    }

    // Two frame threads a processor and two for the lookahead. Presets that do not look ahead gain nothing by that and
    // get one thread more than there are processors, since each holds frames.
    void SetSpeed(AVCodecContext& context, const OptionList& options) const override {
        RequireKnownNames(options);
        const bool looksAhead = LooksAhead(options);
        context.thread_count = std::min(looksAhead ? 2 * Processors() : Processors() + 1, MOST_THREADS);
        if (!looksAhead)
            return;
        Dictionary parameters;
        parameters.Set("lookahead_threads", "2");
        Check(av_opt_set_dict_val(context.priv_data, "x264-params", *parameters.Address(), 0),
              Proc::TranscodingError::CodecRefused, "x264-params");
    }

    void SetQuality(AVCodecContext& context, double quality) const override { SetCrf(context, quality); }
    // It fills up what is missing.
    std::int64_t LowestRateOf(std::int64_t) const override { return 0; }

    Statistics GetStatistics() const override { return Statistics::X264; }
    void SetFastFirstPass(AVCodecContext& context) const override { SetPrivate(context, "fastfirstpass", 1); }
    // It scales what stands in its statistics, and its trees of macroblocks. What is said in pixels stays in pixels.
    bool ScalesStatistics(const OptionList& options) const override {
        const auto& all = options.Get();
        return std::none_of(all.begin(), all.end(), [](const OptionList::Option& option) {
            return option.name == "avcintra-class" || option.value.find("crop-rect") != std::string::npos;
        });
    }

    // With the quantisers that the second pass will need, what stands in the statistics is nearer to what will be.
    void SetDraftRate(AVCodecContext& context, double part) const override {
        const double factor = X264Statistics::BitsForPixels(part);
        const auto scaled = [factor](auto rate) {
            const double least = 1000;
            return rate > 0 ? static_cast<decltype(rate)>(std::max(static_cast<double>(rate) * factor, least)) : rate;
        };
        context.bit_rate = scaled(context.bit_rate);
        context.rc_max_rate = scaled(context.rc_max_rate);
        context.rc_buffer_size = scaled(context.rc_buffer_size);
    }
};

} // namespace

const VideoDriver& X264Driver() {
    static const auto& driver = *new Driver;
    return driver;
}

} // namespace Kestra::FF

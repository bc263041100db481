// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/ColourConverter.h"

#include "Kestra/FF/Av/Convert.h"
#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Av/OlderCalls.h"
#include "Kestra/FF/Picture/FrameGeometry.h"
#include "Kestra/FF/Picture/HdrMetadata.h"
#include "Kestra/FF/Picture/PlanarColours.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <thread>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

using Conf::ColourInfo;
using Proc::TranscodingError;

namespace {

constexpr double HLG_PEAK = 1000;
constexpr double PQ_PEAK = 10000;
constexpr int MOST_THREADS = 8;
/// Frames from this many pixels on are worth several threads.
constexpr int LARGE_FRAME = 640 * 360;
const char* const WHAT = "Converting the colours of a picture failed";

/// Planar formats of whole components, which the filters take and give. The end is marked.
constexpr std::array<AVPixelFormat, 28> FORMATS{
    AV_PIX_FMT_YUV420P,    AV_PIX_FMT_YUV422P,   AV_PIX_FMT_YUV444P,    AV_PIX_FMT_YUV420P10,  AV_PIX_FMT_YUV422P10,
    AV_PIX_FMT_YUV444P10,  AV_PIX_FMT_YUV420P12, AV_PIX_FMT_YUV422P12,  AV_PIX_FMT_YUV444P12,  AV_PIX_FMT_YUV420P16,
    AV_PIX_FMT_YUV422P16,  AV_PIX_FMT_YUV444P16, AV_PIX_FMT_YUVA420P,   AV_PIX_FMT_YUVA422P,   AV_PIX_FMT_YUVA444P,
    AV_PIX_FMT_YUV411P,    AV_PIX_FMT_YUV440P,   AV_PIX_FMT_YUVA420P10, AV_PIX_FMT_YUVA422P10, AV_PIX_FMT_YUVA444P10,
    AV_PIX_FMT_YUVA444P16, AV_PIX_FMT_GBRP,      AV_PIX_FMT_GBRP10,     AV_PIX_FMT_GBRP12,     AV_PIX_FMT_GBRP16,
    AV_PIX_FMT_GBRAP,      AV_PIX_FMT_GBRAP16,   AV_PIX_FMT_NONE,
};

/// One number for transfers that are shown alike.
int TransferClass(int transfer) {
    switch (transfer) {
    case AVCOL_TRC_SMPTE170M:
    case AVCOL_TRC_BT2020_10:
    case AVCOL_TRC_BT2020_12:
    case AVCOL_TRC_BT1361_ECG:
    case AVCOL_TRC_IEC61966_2_1:
    case AVCOL_TRC_IEC61966_2_4:
        return AVCOL_TRC_BT709;
    default:
        return transfer;
    }
}

int PrimariesClass(int primaries) {
    return primaries == AVCOL_PRI_SMPTE240M ? static_cast<int>(AVCOL_PRI_SMPTE170M) : primaries;
}

bool IsKnownToScaler(int matrix) {
    constexpr std::array<int, 7> known{AVCOL_SPC_RGB,       AVCOL_SPC_BT709,     AVCOL_SPC_FCC,       AVCOL_SPC_BT470BG,
                                       AVCOL_SPC_SMPTE170M, AVCOL_SPC_SMPTE240M, AVCOL_SPC_BT2020_NCL};
    return std::find(known.begin(), known.end(), matrix) != known.end();
}

bool ChangesMatrix(const ColourInfo& before, const ColourInfo& after) {
    if (MatrixClass(before.matrix) == MatrixClass(after.matrix))
        return false;
    const bool throughRgb = before.matrix == AVCOL_SPC_RGB || after.matrix == AVCOL_SPC_RGB;
    return !throughRgb || !IsKnownToScaler(before.matrix) || !IsKnownToScaler(after.matrix);
}

std::string Number(double value) {
    return std::to_string(std::llround(value));
}

/// Per mille, so that no locale's comma gets into it.
std::string Thousandths(double value) {
    return std::to_string(std::llround(value * 1000)) + "/1000";
}

const char* const EXACT = ":agamma=0";

/// HLG's light depends on all components together, which the quicker way leaves out.
std::string Exactness(const ColourChange& change) {
    const bool hlg =
        change.before.transfer == AVCOL_TRC_ARIB_STD_B67 || change.after.transfer == AVCOL_TRC_ARIB_STD_B67;
    return hlg ? EXACT : "";
}

std::string Encoding(const ColourInfo& colour, double white) {
    return "zscale=transfer=" + std::to_string(TransferClass(colour.transfer)) +
           ":primaries=" + std::to_string(PrimariesClass(colour.primaries)) +
           ":matrix=" + std::to_string(colour.matrix) +
           ":range=" + (colour.range == AVCOL_RANGE_JPEG ? "full" : "limited") + ":chromal=left:npl=" + Number(white);
}

/// Linear light in which 1 is `white`, brought below 1.
std::string ToneMapping(const ColourChange& change, double white, double peak, bool alpha) {
    std::string chain = "zscale=transfer=linear:primaries=" + std::to_string(PrimariesClass(change.after.primaries)) +
                        ":npl=" + Number(white) + Exactness(change) + ",format=" + (alpha ? "gbrapf32" : "gbrpf32") +
                        ",";
    if (peak > white)
        chain += "tonemap=mobius:desat=0:peak=" + Thousandths(peak / white) + ",";
    return chain;
}

std::string ChainFor(const ColourChange& change, AVPixelFormat format, double peak) {
    const std::string made = ",format=" + std::string(av_get_pix_fmt_name(format));
    const std::string end = Exactness(change) + made;
    const bool high = IsHighRange(change.before.transfer);
    if (high && !IsHighRange(change.after.transfer))
        return ToneMapping(change, REFERENCE_WHITE, peak, HasAlpha(format)) + Encoding(change.after, REFERENCE_WHITE) +
               end;
    const bool tooBright = change.before.transfer == AVCOL_TRC_SMPTE2084 &&
                           change.after.transfer == AVCOL_TRC_ARIB_STD_B67 && peak > HLG_PEAK;
    if (tooBright)
        return ToneMapping(change, HLG_PEAK, peak, HasAlpha(format)) + Encoding(change.after, HLG_PEAK) + end;
    // The quicker way clips, on processors with AVX-512, what RGB of the new primaries cannot hold and YUV can.
    return Encoding(change.after, REFERENCE_WHITE) + EXACT + made;
}

ColourChange InClasses(ColourChange change) {
    for (ColourInfo* const colour : {&change.before, &change.after}) {
        colour->transfer = TransferClass(colour->transfer);
        colour->primaries = PrimariesClass(colour->primaries);
    }
    return change;
}

} // namespace

ColourConverter::ColourConverter()
    : ColourConverter(0) {}

ColourConverter::ColourConverter(int threads)
    : threads(threads)
    , planar(std::make_unique<PlanarColours>()) {}

ColourConverter::~ColourConverter() = default;

int ColourConverter::ThreadsFor(const AVFrame& frame) const {
    if (threads > 0)
        return threads;
    if (frame.width * frame.height < LARGE_FRAME)
        return 1;
    return std::clamp(static_cast<int>(std::thread::hardware_concurrency()) / 2, 1, MOST_THREADS);
}

int MatrixClass(int matrix) noexcept {
    return matrix == AVCOL_SPC_BT470BG ? static_cast<int>(AVCOL_SPC_SMPTE170M) : matrix;
}

bool ColourConverter::IsNeeded(const ColourChange& change) noexcept {
    return TransferClass(change.before.transfer) != TransferClass(change.after.transfer) ||
           PrimariesClass(change.before.primaries) != PrimariesClass(change.after.primaries) ||
           ChangesMatrix(change.before, change.after);
}

bool ColourConverter::IsPossible(const ColourChange& change) {
    constexpr int SIDE = 32;
    const auto formatOf = [](const ColourInfo& colour) {
        return colour.matrix == AVCOL_SPC_RGB ? AV_PIX_FMT_GBRP : AV_PIX_FMT_YUV444P;
    };
    FramePool pool;
    const FrameHandle sample = pool.Get(formatOf(change.before), SIDE, SIDE);
    for (int plane = 0; plane < 3; ++plane)
        std::fill_n(sample->data[plane], SIDE * sample->linesize[plane], std::uint8_t{128});
    try {
        ColourConverter().Run(*sample, change, formatOf(change.after));
        return true;
    } catch (const Proc::ProcException&) {
        return false;
    }
}

AVPixelFormat ColourConverter::FormatFor(AVPixelFormat format, int width, int height) {
    const AVPixelFormat near = avcodec_find_best_pix_fmt_of_list(FORMATS.data(), format, HasAlpha(format), nullptr);
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(near);
    const bool fits = width % (1 << descriptor.log2_chroma_w) == 0 && height % (1 << descriptor.log2_chroma_h) == 0;
    if (fits)
        return near;
    // Sides that are no whole number of chroma samples: each pixel gets one of its own.
    const bool alpha = HasAlpha(near);
    if (descriptor.comp[0].depth <= 8)
        return alpha ? AV_PIX_FMT_YUVA444P : AV_PIX_FMT_YUV444P;
    return alpha ? AV_PIX_FMT_YUVA444P16 : AV_PIX_FMT_YUV444P16;
}

double ColourConverter::PeakOf(const AVFrame& frame, int transfer) {
    const HdrMetadata metadata = HdrMetadataOf(frame);
    double peak = transfer == AVCOL_TRC_SMPTE2084 ? PQ_PEAK : HLG_PEAK;
    if (transfer == AVCOL_TRC_SMPTE2084 && metadata.light && metadata.light->MaxCLL > 0)
        peak = metadata.light->MaxCLL;
    else if (transfer == AVCOL_TRC_SMPTE2084 && metadata.mastering && metadata.mastering->has_luminance &&
             av_q2d(metadata.mastering->max_luminance) > REFERENCE_WHITE)
        // What claims to be graded on a display that does not reach white tells nothing.
        peak = av_q2d(metadata.mastering->max_luminance);
    return std::clamp(peak, REFERENCE_WHITE, PQ_PEAK);
}

FrameHandle ColourConverter::Run(const AVFrame& frame, const ColourChange& change, AVPixelFormat format) {
    const ColourChange shown = InClasses(change);
    if (!IsHighRange(shown.before.transfer) && !IsHighRange(shown.after.transfer))
        if (FrameHandle result = planar->Convert(frame, shown, format))
            return result;
    const std::string wanted = ChainFor(change, format, PeakOf(frame, change.before.transfer));
    const int count = ThreadsFor(frame);
    if (!filter || chain != wanted || bands != count) {
        chain = wanted;
        bands = count;
        filter.emplace(wanted, WHAT, count);
    }
    const FrameHandle tagged = MakeFrameReference(frame);
    SetColour(*tagged, shown.before);
    SetHoldsFields(*tagged, false);
    return filter->Filter(*tagged);
}

// The rows of the two fields show two instants: their chroma must not be mixed.
FrameHandle ColourConverter::ConvertFields(const AVFrame& frame, const ColourChange& change, AVPixelFormat format) {
    FrameHandle result = woven.Get(format, frame.width, frame.height);
    Check(av_frame_copy_props(result.get(), &frame), TranscodingError::OutOfMemory, WHAT);
    for (const bool bottom : {false, true}) {
        const FrameHandle field = Run(*MakeFieldView(frame, bottom), change, format);
        const FrameHandle rows = MakeFieldView(*result, bottom);
        Check(av_frame_copy(rows.get(), field.get()), TranscodingError::FilterFailed, WHAT);
    }
    return result;
}

FrameHandle ColourConverter::Convert(const AVFrame& frame, const ColourChange& change, AVPixelFormat format) {
    const bool fields = HoldsFields(frame) && frame.height % 4 == 0;
    FrameHandle result = fields ? ConvertFields(frame, change, format) : Run(frame, change, format);
    SetHoldsFields(*result, HoldsFields(frame));
    if (change.before.transfer != change.after.transfer)
        RemoveHdrMetadata(*result);
    SetColour(*result, change.after);
    return result;
}

} // namespace Kestra::FF

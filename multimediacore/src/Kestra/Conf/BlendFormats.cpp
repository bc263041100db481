// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/BlendFormats.h"

#include "Kestra/Base/Exception.h"
#include "Kestra/Conf/PixelLoss.h"
#include <algorithm>

namespace Kestra::Conf {

namespace {

struct Pair {
    const char* opaque;
    const char* alpha;
};

/// The cheaper first. 12 bits of 4:2:0 have no format with alpha: 16 bits hold them, and their chroma stays in its
/// place.
constexpr Pair PAIRS[] = {
    {"yuv420p", "yuva420p"},         {"yuv422p", "yuva422p"},         {"yuv444p", "yuva444p"},
    {"yuvj420p", "yuva420p"},        {"yuvj422p", "yuva422p"},        {"yuvj444p", "yuva444p"},
    {"yuv420p10le", "yuva420p10le"}, {"yuv422p10le", "yuva422p10le"}, {"yuv444p10le", "yuva444p10le"},
    {"yuv420p16le", "yuva420p16le"}, {"yuv422p12le", "yuva422p12le"}, {"yuv444p12le", "yuva444p12le"},
    {"yuv422p16le", "yuva422p16le"}, {"yuv444p16le", "yuva444p16le"}, {"gbrp", "gbrap"},
    {"gbrp10le", "gbrap10le"},       {"gbrp12le", "gbrap12le"},       {"gbrp16le", "gbrap16le"},
    {"gbrpf32le", "gbrapf32le"},
};

const PixelFormatRecord& RecordOf(PixelFormat format) {
    const PixelFormatRecord* const record = PixelFormatRecord::Find(format);
    if (record == nullptr || record->kind == PixelKind::Hardware)
        KESTRA_THROW(Exception(std::string("Pictures of the pixel format \"") + PixelFormatToString(format) +
                               "\" cannot be blended"));
    return *record;
}

/// Of the format that loses most of them.
PixelLoss LossOf(const std::vector<PixelFormat>& formats, const BlendFormats& pair) {
    PixelLoss most;
    for (const PixelFormat format : formats)
        most = std::max(most, PixelLoss::Between(RecordOf(format), *PixelFormatRecord::Find(pair.alpha)));
    return most;
}

} // namespace

BlendFormats BlendFormatsFor(PixelFormat wanted) {
    const PixelFormatRecord* const record = &RecordOf(wanted);
    BlendFormats best{PixelFormat::Unknown, PixelFormat::Unknown};
    PixelLoss least;
    for (const Pair& pair : PAIRS) {
        const BlendFormats formats{PixelFormatFromString(pair.opaque), PixelFormatFromString(pair.alpha)};
        if (PixelFormatRecord::Find(formats.opaque)->fullRange != record->fullRange)
            continue;
        const PixelLoss loss = PixelLoss::Between(*record, *PixelFormatRecord::Find(formats.alpha));
        if (best.opaque != PixelFormat::Unknown && !(loss < least))
            continue;
        best = formats;
        least = loss;
    }
    return best;
}

BlendFormats BlendFormatsForAll(const std::vector<PixelFormat>& wanted) {
    BlendFormats best = BlendFormatsFor(wanted.front());
    const bool fullRange = PixelFormatRecord::Find(best.opaque)->fullRange;
    PixelLoss least = LossOf(wanted, best);
    for (const bool sameRange : {true, false}) {
        for (const Pair& pair : PAIRS) {
            const BlendFormats formats{PixelFormatFromString(pair.opaque), PixelFormatFromString(pair.alpha)};
            if ((PixelFormatRecord::Find(formats.opaque)->fullRange == fullRange) != sameRange)
                continue;
            const PixelLoss loss = LossOf(wanted, formats);
            if (!(loss < least))
                continue;
            best = formats;
            least = loss;
        }
    }
    return best;
}

} // namespace Kestra::Conf

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Picture/ChangedPart.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace Kestra::FF {

namespace {

/// Of bytes or pixels: from the first to behind the last.
struct Extent {
    int first = INT_MAX;
    int end = 0;

    void Add(int from, int to) {
        first = std::min(first, from);
        end = std::max(end, to);
    }
    bool IsEmpty() const { return end <= first; }
};

/// Two rows of as many bytes: adds what lies between the first and the last difference. What is known to differ is not
/// compared again.
void AddChanges(const std::uint8_t* before, const std::uint8_t* now, int bytes, Extent& changed) {
    const int head = std::min(changed.first, bytes);
    const auto first = static_cast<int>(std::mismatch(now, now + head, before).first - now);
    if (first < head)
        changed.Add(first, first + 1);
    int end = bytes;
    while (end > changed.end && now[end - 1] == before[end - 1])
        --end;
    if (end > changed.end)
        changed.Add(end - 1, end);
}

struct Changes {
    Extent columns; ///< bytes of a row
    Extent rows;
};

Changes ChangesOfPlane(const AVFrame& before, const AVFrame& now, int plane, int bytes, int rows) {
    Changes changes;
    const auto row = [plane](const AVFrame& frame, int y) {
        return frame.data[plane] + static_cast<std::ptrdiff_t>(y) * frame.linesize[plane];
    };
    for (int y = 0; y < rows; ++y) {
        if (std::memcmp(row(before, y), row(now, y), static_cast<std::size_t>(bytes)) == 0)
            continue;
        AddChanges(row(before, y), row(now, y), bytes, changes.columns);
        changes.rows.Add(y, y + 1);
    }
    return changes;
}

int Even(int pixels) {
    return pixels / 2 * 2;
}

} // namespace

FrameRect ChangedPart(const AVFrame& before, const AVFrame& now) {
    const auto format = static_cast<AVPixelFormat>(now.format);
    const AVPixFmtDescriptor& descriptor = *av_pix_fmt_desc_get(format);
    Extent columns, rows;
    for (int plane = 0; plane < av_pix_fmt_count_planes(format); ++plane) {
        const bool chroma = plane == 1 || plane == 2;
        const int across = chroma ? descriptor.log2_chroma_w : 0, down = chroma ? descriptor.log2_chroma_h : 0;
        const int step = descriptor.comp[plane].step; // of a packed format the first plane's
        const Changes changes =
            ChangesOfPlane(before, now, plane, av_image_get_linesize(format, now.width, plane), -(-now.height >> down));
        if (changes.rows.IsEmpty())
            continue;
        columns.Add(changes.columns.first / step << across, ((changes.columns.end - 1) / step + 1) << across);
        rows.Add(changes.rows.first << down, changes.rows.end << down);
    }
    if (rows.IsEmpty())
        return {};
    const int x = Even(columns.first), y = Even(rows.first);
    const auto sideTo = [](int from, int end, int all) { return std::min(Even(end - from + 1), all - from); };
    return {x, y, sideTo(x, columns.end, now.width), sideTo(y, rows.end, now.height)};
}

} // namespace Kestra::FF

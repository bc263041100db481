#include "Kestra/Conf/SampleInfo.h"
#include <algorithm>
#include <iterator>

namespace Kestra::Conf {

namespace {

constexpr SampleFmtRecord FORMATS[] = {
    {SAMPLE_FORMAT_UNKNOWN, "unknown", 0, false}, {SAMPLE_FORMAT_U8, "u8", 1, false},
    {SAMPLE_FORMAT_S16, "s16", 2, false},         {SAMPLE_FORMAT_S32, "s32", 4, false},
    {SAMPLE_FORMAT_FLT, "flt", 4, false},         {SAMPLE_FORMAT_DBL, "dbl", 8, false},
    {SAMPLE_FORMAT_U8P, "u8p", 1, true},          {SAMPLE_FORMAT_S16P, "s16p", 2, true},
    {SAMPLE_FORMAT_S32P, "s32p", 4, true},        {SAMPLE_FORMAT_FLTP, "fltp", 4, true},
    {SAMPLE_FORMAT_DBLP, "dblp", 8, true},
};

constexpr LayoutRecord LAYOUTS[] = {
    {CHANNEL_LAYOUT_UNKNOWN, "unknown", 0},
    {CHANNEL_LAYOUT_MONO, "mono", 1},
    {CHANNEL_LAYOUT_STEREO, "stereo", 2},
    {CHANNEL_LAYOUT_2POINT1, "2.1", 3},
    {CHANNEL_LAYOUT_SURROUND, "3.0", 3},
    {CHANNEL_LAYOUT_QUAD, "quad", 4},
    {CHANNEL_LAYOUT_5POINT0, "5.0", 5},
    {CHANNEL_LAYOUT_5POINT1, "5.1", 6},
    {CHANNEL_LAYOUT_5POINT1_SIDE, "5.1(side)", 6},
    {CHANNEL_LAYOUT_7POINT1, "7.1", 8},
};

/// A preset writes "as the source" as 0, a fresh description as -1.
bool IsOpenRate(std::int32_t rate) {
    return rate <= 0;
}

} // namespace

const SampleFmtRecord* SampleFmtRecord::Find(std::int32_t format) noexcept {
    const auto* const found =
        std::find_if(std::begin(FORMATS), std::end(FORMATS), [format](const SampleFmtRecord& record) {
            return static_cast<std::int32_t>(record.format) == format;
        });
    return found == std::end(FORMATS) ? &FORMATS[0] : found;
}

const LayoutRecord* LayoutRecord::Find(std::uint32_t layout) noexcept {
    const auto* const found = std::find_if(std::begin(LAYOUTS), std::end(LAYOUTS),
                                           [layout](const LayoutRecord& record) { return record.layout == layout; });
    return found == std::end(LAYOUTS) ? &LAYOUTS[0] : found;
}

SampleInfo::SampleInfo()
    : formatRecord(SampleFmtRecord::Find(SAMPLE_FORMAT_UNKNOWN))
    , layoutRecord(LayoutRecord::Find(CHANNEL_LAYOUT_UNKNOWN))
    , rate(-1) {}

void SampleInfo::Init(std::int32_t newFormat, std::int32_t newRate, std::uint32_t newLayout) {
    formatRecord = SampleFmtRecord::Find(newFormat);
    layoutRecord = LayoutRecord::Find(newLayout);
    rate = newRate;
}

void SampleInfo::MergeWith(const SampleInfo& other, MergeStrategy strategy) {
    const bool replace = strategy == MergeStrategy::Replace;
    if (other.formatRecord->format != SAMPLE_FORMAT_UNKNOWN &&
        (replace || formatRecord->format == SAMPLE_FORMAT_UNKNOWN))
        formatRecord = other.formatRecord;
    if (other.layoutRecord->layout != CHANNEL_LAYOUT_UNKNOWN &&
        (replace || layoutRecord->layout == CHANNEL_LAYOUT_UNKNOWN))
        layoutRecord = other.layoutRecord;
    if (!IsOpenRate(other.rate) && (replace || IsOpenRate(rate)))
        rate = other.rate;
}

} // namespace Kestra::Conf

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/SampleInfo.h"
#include <algorithm>
#include <bitset>
#include <iterator>
#include <map>
#include <mutex>
#include <string>

namespace Kestra::Conf {

namespace {

constexpr SampleFmtRecord FORMATS[] = {
    {SAMPLE_FORMAT_UNKNOWN, "unknown", 0, false}, {SAMPLE_FORMAT_U8, "u8", 1, false},
    {SAMPLE_FORMAT_S16, "s16", 2, false},         {SAMPLE_FORMAT_S32, "s32", 4, false},
    {SAMPLE_FORMAT_FLT, "flt", 4, false},         {SAMPLE_FORMAT_DBL, "dbl", 8, false},
    {SAMPLE_FORMAT_U8P, "u8p", 1, true},          {SAMPLE_FORMAT_S16P, "s16p", 2, true},
    {SAMPLE_FORMAT_S32P, "s32p", 4, true},        {SAMPLE_FORMAT_FLTP, "fltp", 4, true},
    {SAMPLE_FORMAT_DBLP, "dblp", 8, true},        {SAMPLE_FORMAT_S64, "s64", 8, false},
    {SAMPLE_FORMAT_S64P, "s64p", 8, true},
};

constexpr LayoutRecord LAYOUTS[] = {
    {CHANNEL_LAYOUT_UNKNOWN, "unknown", 0},
    {0x4, "mono", 1},
    {0x3, "stereo", 2},
    {0xB, "2.1", 3},
    {0x7, "3.0", 3},
    {0x103, "3.0(back)", 3},
    {0x107, "4.0", 4},
    {0x33, "quad", 4},
    {0x603, "quad(side)", 4},
    {0xF, "3.1", 4},
    {0x37, "5.0", 5},
    {0x607, "5.0(side)", 5},
    {0x10F, "4.1", 5},
    {0x3F, "5.1", 6},
    {0x60F, "5.1(side)", 6},
    {0x707, "6.0", 6},
    {0x6C3, "6.0(front)", 6},
    {0x137, "hexagonal", 6},
    {0x70F, "6.1", 7},
    {0x13F, "6.1(back)", 7},
    {0x6CB, "6.1(front)", 7},
    {0x637, "7.0", 7},
    {0x6C7, "7.0(front)", 7},
    {0x63F, "7.1", 8},
    {0xFF, "7.1(wide)", 8},
    {0x6CF, "7.1(wide-side)", 8},
    {0x737, "octagonal", 8},
    {0x8007F737, "hexadecagonal", 16},
    {0x60000000, "downmix", 2},
    {0x7E3FFFF, "22.2", 24},
};

/// By bit; null where no speaker stands.
constexpr const char* SPEAKERS[32] = {"FL",  "FR",  "FC",  "LFE", "BL",  "BR",    "FLC",   "FRC", "BC",  "SL",  "SR",
                                      "TC",  "TFL", "TFC", "TFR", "TBL", "TBC",   "TBR",   "WR",  "SDL", "SDR", "LFE2",
                                      "TSL", "TSR", "BFC", "BFL", "BFR", nullptr, nullptr, "DL",  "DR",  "WL"};
/// The bits of the decoder library from 32 on stand here from 18 on.
constexpr int HIGH_SPEAKERS = 9;
constexpr int HIGH_FROM = 32;
constexpr int HIGH_TO = 18;
constexpr std::uint32_t HIGH_MASK = ((1U << HIGH_SPEAKERS) - 1) << HIGH_TO;
constexpr std::uint32_t GAP_MASK = 0x1FFC0000;
constexpr std::uint32_t MOST_DISCRETE = 0xFFFF;

std::string NameOf(std::uint32_t layout) {
    std::string name = std::to_string(CountChannels(layout)) + " channels";
    if (IsDiscreteLayout(layout))
        return name;
    const char* separator = " (";
    for (unsigned bit = 0; bit < 32; ++bit)
        if (layout >> bit & 1U) {
            name += separator + std::string(SPEAKERS[bit]);
            separator = "+";
        }
    return name + ")";
}

bool IsLayout(std::uint32_t layout) {
    if (IsDiscreteLayout(layout))
        return (layout & ~CHANNEL_LAYOUT_DISCRETE) <= MOST_DISCRETE && CountChannels(layout) > 0;
    return (layout & GAP_MASK & ~HIGH_MASK) == 0;
}

/// Layouts that have no name of their own get their records when they are first met.
const LayoutRecord* FindUnnamed(std::uint32_t layout) {
    struct Unnamed {
        std::string name;
        LayoutRecord record;
    };
    static std::mutex mutex;
    static auto& known = *new std::map<std::uint32_t, Unnamed>;
    const std::lock_guard<std::mutex> lock(mutex);
    Unnamed& entry = known[layout];
    if (entry.name.empty()) {
        entry.name = NameOf(layout);
        entry.record = {layout, entry.name.c_str(), CountChannels(layout)};
    }
    return &entry.record;
}

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

bool IsDiscreteLayout(std::uint32_t layout) noexcept {
    return (layout & CHANNEL_LAYOUT_DISCRETE) != 0;
}

std::uint32_t DiscreteLayout(int channels) noexcept {
    if (channels < 1 || static_cast<std::uint32_t>(channels) > MOST_DISCRETE)
        return CHANNEL_LAYOUT_UNKNOWN;
    return CHANNEL_LAYOUT_DISCRETE | static_cast<std::uint32_t>(channels);
}

int CountChannels(std::uint32_t layout) noexcept {
    if (IsDiscreteLayout(layout))
        return static_cast<int>(layout & MOST_DISCRETE);
    return static_cast<int>(std::bitset<32>(layout).count());
}

std::uint64_t SpeakersOf(std::uint32_t layout) noexcept {
    if (IsDiscreteLayout(layout))
        return 0;
    const std::uint64_t high = (layout & HIGH_MASK) >> HIGH_TO;
    return (layout & ~GAP_MASK) | high << HIGH_FROM;
}

std::uint32_t LayoutOfSpeakers(std::uint64_t speakers) noexcept {
    const std::uint64_t high = speakers >> HIGH_FROM;
    if ((speakers & GAP_MASK) != 0 || high >> HIGH_SPEAKERS != 0)
        return CHANNEL_LAYOUT_UNKNOWN;
    return static_cast<std::uint32_t>(speakers) | static_cast<std::uint32_t>(high << HIGH_TO);
}

const LayoutRecord* LayoutRecord::Find(std::uint32_t layout) {
    const auto* const found = std::find_if(std::begin(LAYOUTS), std::end(LAYOUTS),
                                           [layout](const LayoutRecord& record) { return record.layout == layout; });
    if (found != std::end(LAYOUTS))
        return found;
    return IsLayout(layout) ? FindUnnamed(layout) : &LAYOUTS[0];
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

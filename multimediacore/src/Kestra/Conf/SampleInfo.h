// SPDX-License-Identifier: GPL-3.0-or-later
// Sample formats, channel layouts and the description of sound.
#pragma once

#include "KestraExport.h"
#include <cstdint>

namespace Kestra::Conf {

/// The numbers are stable.
enum SampleFormats : std::int32_t {
    SAMPLE_FORMAT_UNKNOWN = -1,
    SAMPLE_FORMAT_U8 = 0,
    SAMPLE_FORMAT_S16 = 1,
    SAMPLE_FORMAT_S32 = 2,
    SAMPLE_FORMAT_FLT = 3,
    SAMPLE_FORMAT_DBL = 4,
    SAMPLE_FORMAT_U8P = 5,
    SAMPLE_FORMAT_S16P = 6,
    SAMPLE_FORMAT_S32P = 7,
    SAMPLE_FORMAT_FLTP = 8,
    SAMPLE_FORMAT_DBLP = 9,
    SAMPLE_FORMAT_S64 = 10,
    SAMPLE_FORMAT_S64P = 11,
};

/// A set of speakers, one bit each, in the order of WAVEFORMATEXTENSIBLE. The decoder library goes on at bits 29 to 40;
/// what does not fit into 32 bits stands in the gap, bit 32 at 18 and so on. With CHANNEL_LAYOUT_DISCRETE the lowest 16
/// bits count channels of which nobody says where they are heard.
enum ChannelLayout : std::uint32_t {
    CHANNEL_LAYOUT_UNKNOWN = 0,
    CHANNEL_LAYOUT_MONO = 0x4,
    CHANNEL_LAYOUT_STEREO = 0x3,
    CHANNEL_LAYOUT_2POINT1 = 0xB,
    CHANNEL_LAYOUT_SURROUND = 0x7,
    CHANNEL_LAYOUT_QUAD = 0x33,
    CHANNEL_LAYOUT_5POINT0 = 0x37,
    CHANNEL_LAYOUT_5POINT1 = 0x3F,
    CHANNEL_LAYOUT_5POINT1_SIDE = 0x60F,
    CHANNEL_LAYOUT_7POINT1 = 0x63F,
    CHANNEL_LAYOUT_DISCRETE = 0x8000000,
};

KESTRA_EXPORT bool IsDiscreteLayout(std::uint32_t layout) noexcept;
/// CHANNEL_LAYOUT_UNKNOWN for less than 1 or more than 65535 channels.
KESTRA_EXPORT std::uint32_t DiscreteLayout(int channels) noexcept;
/// 0 for CHANNEL_LAYOUT_UNKNOWN.
KESTRA_EXPORT int CountChannels(std::uint32_t layout) noexcept;
/// The set in the decoder library's 64 bits; 0 for discrete channels.
KESTRA_EXPORT std::uint64_t SpeakersOf(std::uint32_t layout) noexcept;
/// CHANNEL_LAYOUT_UNKNOWN for a set with speakers that have no place here.
KESTRA_EXPORT std::uint32_t LayoutOfSpeakers(std::uint64_t speakers) noexcept;

/// What is known of one sample format. Records live as long as the program.
struct KESTRA_EXPORT SampleFmtRecord {
    SampleFormats format;
    const char* name; ///< "s16", "fltp" ...
    int bytesPerSample;
    bool planar;
    /// Never null; the record of SAMPLE_FORMAT_UNKNOWN for a value that is none.
    static const SampleFmtRecord* Find(std::int32_t format) noexcept;
};

/// What is known of one channel layout. Records live as long as the program.
struct KESTRA_EXPORT LayoutRecord {
    std::uint32_t layout;
    const char* name; ///< the decoder library's: "stereo", "5.1(side)"; "3 channels (FL+FR+BC)" where it has none
    int channels;
    /// Never null; the record of CHANNEL_LAYOUT_UNKNOWN for a number that is no layout. Thread-safe.
    static const LayoutRecord* Find(std::uint32_t layout);
};

/// Format, rate and layout of sound; each may be open (-1, -1, 0).
class KESTRA_EXPORT SampleInfo {
public:
    enum class MergeStrategy : int {
        Replace = 0,  ///< everything that the other knows
        FillOpen = 1, ///< only what is open here
    };

    SampleInfo();
    void Init(std::int32_t format, std::int32_t rate, std::uint32_t layout);
    void MergeWith(const SampleInfo& other, MergeStrategy strategy);

    const SampleFmtRecord* GetFormatRecord() const { return formatRecord; }
    void SetFormatRecord(const SampleFmtRecord* record) { formatRecord = record; }
    const LayoutRecord* GetLayoutRecord() const { return layoutRecord; }
    void SetLayoutRecord(const LayoutRecord* record) { layoutRecord = record; }
    std::int32_t GetRate() const { return rate; }
    void SetRate(std::int32_t value) { rate = value; }

private:
    const SampleFmtRecord* formatRecord;
    const LayoutRecord* layoutRecord;
    std::int32_t rate;
};

} // namespace Kestra::Conf

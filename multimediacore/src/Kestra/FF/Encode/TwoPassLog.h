// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::FF::TwoPassLog: the statistics that a first pass leaves to the second.
#pragma once

#include "Kestra/FF/Av/Handles.h"
#include "Kestra/FF/Encode/BitAllocation.h"
#include "Kestra/FF/Encode/StatisticsFile.h"
#include "Kestra/FF/Encode/VideoDriver.h"
#include "Kestra/Proc/Settings/SettingsTwoPassEncoding.h"
#include <cstdint>
#include <optional>
#include <string>

namespace Kestra::FF {

/// x264 and x265 read and write the file themselves; libvpx and libaom hand their statistics over; for encoders that
/// take a quantiser for each frame they are what became of each, and the second pass goes by a BitAllocation. Outlives
/// the codec context that it has configured. Everything that fails throws ProcException that names the file.
class TwoPassLog {
public:
    /// Creates the file in the first pass, verifies and reads it in the second.
    TwoPassLog(const Proc::SettingsTwoPassEncoding& settings, const AVCodec& codec);

    bool IsFirstPass() const { return firstPass; }
    /// Whether the codec has passes at all. One that has none does nothing in the first and a plain run in the second.
    bool IsSupported() const { return kind != Kind::None; }
    /// Whether the first pass gives statistics alone and no packets.
    bool IsSilent() const { return kind == Kind::Handover; }
    /// The last word on a context that has all its settings.
    void Configure(AVCodecContext& context);
    /// For each frame on its way to the encoder, numbered by its pts: what the second pass wants of it. Throws for a
    /// frame that the first pass did not have.
    void Guide(AVFrame& frame);
    /// For each packet on its way out, its pts the number of its frame.
    void Note(const AVPacket& packet);
    /// First pass, after the last packet: takes over what the encoder has to say.
    void Collect(const AVCodecContext& context);
    /// First pass, when the codec has failed: throws when that is because its log cannot be written, which x264 and
    /// x265 do not say. The log is of no use after this.
    void ExplainFailure() const;
    /// First pass, when the codec has been closed: everything has been written.
    void Complete();

private:
    using Kind = VideoDriver::Statistics;

    void Read();
    void ConfigureX264(AVCodecContext& context) const;
    void RequireX264Rate(const AVCodecContext& context, double bits) const;
    void ConfigureX265(AVCodecContext& context) const;
    void ConfigureFrames(AVCodecContext& context);
    void CountFrames() const;

    const std::string path;
    const bool firstPass;
    Kind kind;
    std::optional<StatisticsFile> file;
    std::string statistics;
    std::optional<BitAllocation> plan;
    std::int64_t frames = 0; ///< of the first pass
};

} // namespace Kestra::FF

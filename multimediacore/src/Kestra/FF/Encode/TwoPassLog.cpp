// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Encode/TwoPassLog.h"

#include "Kestra/FF/Av/Error.h"
#include "Kestra/FF/Encode/DriverSettings.h"
#include "Kestra/FF/Encode/StatisticsManifest.h"
#include "Kestra/FF/Encode/X264Statistics.h"
#include <algorithm>
#include <cmath>
#include <fstream>
#include <utility>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

using Proc::TranscodingError;

namespace {

double PixelsOf(const AVCodecContext& context) {
    return static_cast<double>(context.width) * context.height;
}

/// What the encoder says of the frame in a packet.
std::optional<BitAllocation::Picture> PictureOf(const AVPacket& packet) {
    std::size_t size = 0;
    const std::uint8_t* data = av_packet_get_side_data(&packet, AV_PKT_DATA_QUALITY_STATS, &size);
    if (!data || size < 5)
        return std::nullopt;
    BitAllocation::Picture picture;
    picture.type = av_get_picture_type_char(static_cast<AVPictureType>(data[4]));
    picture.lambda = static_cast<int>(AV_RL32(data));
    picture.bits = std::int64_t{packet.size} * 8;
    return picture;
}

} // namespace

TwoPassLog::TwoPassLog(const Proc::SettingsTwoPassEncoding& settings, const AVCodec& codec)
    : path(settings.GetLogFile())
    , firstPass(settings.firstPass)
    , kind(VideoDriver::Of(codec).GetStatistics()) {
    if (kind == Kind::None)
        return;
    if (!firstPass) {
        Read();
        return;
    }
    StatisticsManifest::Remove(path);
    file.emplace(path, StatisticsFile::Mode::Write);
    // These open it themselves, but would not say what is wrong with it.
    if (kind == Kind::X264 || kind == Kind::X265)
        file.reset();
}

void TwoPassLog::Read() {
    frames = StatisticsManifest::Verify(path);
    // No encoder takes statistics of nothing.
    if (frames == 0)
        kind = Kind::None;
    if (kind == Kind::Handover || kind == Kind::Pictures)
        StatisticsFile(path, StatisticsFile::Mode::Read).ReadAll([this](const char* bytes, std::size_t size) {
            statistics.append(bytes, size);
        });
}

void TwoPassLog::Configure(AVCodecContext& context) {
    if (kind == Kind::None)
        return;
    if (kind == Kind::X265)
        return ConfigureX265(context);
    if (kind == Kind::Pictures)
        return ConfigureFrames(context);
    context.flags |= firstPass ? AV_CODEC_FLAG_PASS1 : AV_CODEC_FLAG_PASS2;
    if (kind == Kind::X264)
        ConfigureX264(context);
    else if (!firstPass)
        context.stats_in = statistics.data();
    // A rate that is as low as it is high makes libvpx forget its statistics.
    if (kind == Kind::Handover)
        context.rc_min_rate = 0;
}

void TwoPassLog::ConfigureX264(AVCodecContext& context) const {
    Check(av_opt_set(context.priv_data, "stats", path.c_str(), 0), TranscodingError::CodecRefused, "stats");
    if (firstPass)
        return;
    const X264Statistics::Summary found = X264Statistics::Read(path);
    if (found.pixels <= 0)
        Fail(TranscodingError::SourceDamaged,
             "The statistics of the first pass \"" + path + "\" do not say how large its pictures were");
    const double factor = PixelsOf(context) / found.pixels;
    // It would leave films that its statistics describe roughly far from their rate.
    if (factor > 1 && !HasListedParameter(context, "x264-params", "ratetol") &&
        !HasParameterInText(context, "x264opts", "ratetol"))
        SetListedParameter(context, "x264-params", "ratetol", "0.1");
    RequireX264Rate(context, found.fixedBits * X264Statistics::BitsForPixels(factor));
}

// Asked here, since x264 would only say that something is wrong, and keep what it has allocated by then.
void TwoPassLog::RequireX264Rate(const AVCodecContext& context, double bits) const {
    const double seconds = static_cast<double>(frames) / av_q2d(context.framerate);
    constexpr double most = 1e18;
    const auto lowest = static_cast<std::int64_t>(std::clamp(std::ceil(bits / seconds / 1000) * 1000, 0.0, most));
    if (context.bit_rate / 1000 * 1000 < lowest)
        Fail(TranscodingError::CodecRefused, "libx264 cannot meet " + std::to_string(context.bit_rate) +
                                                 " bit/s in two passes: these pictures take at least " +
                                                 std::to_string(lowest) + " bit/s");
}

void TwoPassLog::ConfigureX265(AVCodecContext& context) const {
    SetListedParameter(context, "x265-params", "pass", firstPass ? "1" : "2");
    SetListedParameter(context, "x265-params", "stats", path.c_str());
}

void TwoPassLog::ConfigureFrames(AVCodecContext& context) {
    if (firstPass)
        return;
    auto found = BitAllocation::Parse(statistics, frames);
    if (!found)
        Fail(TranscodingError::SourceDamaged, "The statistics of the first pass \"" + path + "\" are damaged");
    const double seconds = static_cast<double>(frames) / av_q2d(context.framerate);
    plan.emplace(std::move(*found), static_cast<double>(context.bit_rate) * seconds,
                 BitAllocation::Bounds{context.qmin * FF_QP2LAMBDA, context.qmax * FF_QP2LAMBDA});
    context.flags |= AV_CODEC_FLAG_QSCALE;
}

void TwoPassLog::Guide(AVFrame& frame) {
    if (kind == Kind::None)
        return;
    if (firstPass) {
        ++frames;
        return;
    }
    if (frame.pts >= frames)
        Fail(TranscodingError::EncodeFailed, "The second pass has more than the " + std::to_string(frames) +
                                                 " pictures of the first, whose log is \"" + path + '"');
    if (!plan)
        return;
    frame.quality = plan->LambdaFor(frame.pts);
    if (plan->IsKeyframe(frame.pts))
        frame.pict_type = AV_PICTURE_TYPE_I;
}

void TwoPassLog::Note(const AVPacket& packet) {
    if (plan)
        plan->Took(packet.pts, std::int64_t{packet.size} * 8);
    if (kind != Kind::Pictures || !firstPass)
        return;
    const auto picture = PictureOf(packet);
    if (!picture)
        Fail(TranscodingError::EncodeFailed, "The encoder gives no statistics for \"" + path + '"');
    file->Write(BitAllocation::Line(packet.pts, *picture));
}

void TwoPassLog::Collect(const AVCodecContext& context) {
    if (kind == Kind::Handover && context.stats_out)
        file->Write(context.stats_out);
}

void TwoPassLog::Complete() {
    if (kind == Kind::None)
        return;
    if (file)
        file->Close();
    if (kind == Kind::X264 || kind == Kind::X265)
        CountFrames();
    StatisticsManifest::Write(path, frames);
}

void TwoPassLog::ExplainFailure() const {
    if (!firstPass || (kind != Kind::X264 && kind != Kind::X265))
        return;
    // More than the last block of the file may have room for.
    constexpr std::size_t TRIAL_BYTES = 65536;
    StatisticsFile trial(path, StatisticsFile::Mode::Append);
    trial.Write(std::string(TRIAL_BYTES, '\n'));
    trial.Close();
}

/// These do not look whether what they write arrives.
void TwoPassLog::CountFrames() const {
    std::ifstream lines(path);
    std::int64_t found = 0;
    for (std::string line; std::getline(lines, line);)
        found += line.compare(0, 3, "in:") == 0 && line.back() == ';' ? 1 : 0;
    if (found != frames)
        Fail(TranscodingError::OutputNotWritable, "The log of the first pass \"" + path +
                                                      "\" could not be written: " + std::to_string(found) + " of " +
                                                      std::to_string(frames) + " pictures stand in it");
}

} // namespace Kestra::FF

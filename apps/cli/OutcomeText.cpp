// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/OutcomeText.h"

#include "ExportCore/PlainText.h"
#include "ExportCore/SizeText.h"
#include "ExportCore/TimeText.h"
#include "cli/JsonText.h"
#include <algorithm>
#include <cstdio>

namespace Cli {
namespace {

using ExportCore::ExportFacts;
using ExportCore::ExportPlan;

std::string numberText(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", number);
    std::string shown = text;
    shown.erase(shown.find_last_not_of('0') + 1);
    if (shown.back() == '.')
        shown.pop_back();
    return shown;
}

std::string fileName(const QString& path) {
    return ExportCore::PlainText::escaped(path.mid(path.lastIndexOf(QLatin1Char('/')) + 1).toStdString());
}

std::string counted(qint64 count, const char* one) {
    return std::to_string(count) + ' ' + one + (count == 1 ? "" : "s");
}

std::string roughly(bool isRough) {
    return isRough ? "roughly " : "about ";
}

std::string pictureText(const ExportPlan::Stream& stream, qint64 frames) {
    std::string text = "picture: " + stream.codec + (stream.profile.empty() ? "" : " (" + stream.profile + ')') + ' ' +
                       std::to_string(stream.width) + 'x' + std::to_string(stream.height) + ", " +
                       fractionText(stream.frameRate).toStdString() + " fps, " + counted(frames, "frame");
    if (stream.bitrateBps > 0)
        text += ", " + OutcomeText::bitrate(stream.bitrateBps);
    return stream.quality > 0 ? text + ", quality " + numberText(stream.quality) : text;
}

std::string soundText(const ExportPlan::Stream& stream) {
    const std::string text = "sound: " + stream.codec + ' ' + std::to_string(stream.sampleRate) + " Hz, " +
                             counted(stream.channels, "channel");
    return stream.bitrateBps > 0 ? text + ", " + OutcomeText::bitrate(stream.bitrateBps) : text;
}

std::string withoutName(const ExportPlan::Stream& stream, qint64 frames) {
    switch (stream.kind) {
    case ExportPlan::Stream::Kind::Video:
        return pictureText(stream, frames);
    case ExportPlan::Stream::Kind::Audio:
        return soundText(stream);
    case ExportPlan::Stream::Kind::Subtitles:
        return "subtitles: " + stream.codec;
    case ExportPlan::Stream::Kind::Cover:
        break;
    }
    return "cover: " + stream.codec + ' ' + std::to_string(stream.width) + 'x' + std::to_string(stream.height);
}

/// `alone` where there is no other of its kind to begin with.
std::string textOf(const ExportPlan::Stream& stream, qint64 frames, bool alone) {
    using ExportCore::PlainText;
    std::string text = withoutName(stream, frames);
    if (!stream.language.empty())
        text += ", " + PlainText::escaped(stream.language);
    if (!stream.title.empty())
        text += ", \"" + PlainText::escaped(stream.title) + '"';
    return text + (stream.isDefault && !alone ? ", default" : "") + (stream.forced ? ", forced" : "");
}

/// What the file has beside its pictures and its first sound.
std::string extrasText(const ExportFacts& facts) {
    using Kind = Kestra::Proc::CheckedStream::Kind;
    std::string text;
    const auto add = [&text](int count, const char* what) {
        if (count > 0)
            text += ", " + counted(count, what);
    };
    add(facts.countOf(Kind::Audio) - 1, "further sound track");
    add(facts.countOf(Kind::Subtitles), "subtitle track");
    add(facts.chapters, "chapter");
    add(facts.countOf(Kind::Cover), "cover");
    return text;
}

std::string roomText(const ExportPlan& plan) {
    return plan.freeBytes ? "; " + ExportCore::SizeText::format(*plan.freeBytes) + " are free" : std::string();
}

std::string durationText(const ExportPlan& plan) {
    if (plan.exportMs < 0)
        return "not known";
    char text[48];
    std::snprintf(text, sizeof text, "about %.*f s", plan.exportMs < 10'000 ? 1 : 0,
                  static_cast<double>(plan.exportMs) / 1000);
    return text + std::string(plan.passes > 1 ? ", in " + std::to_string(plan.passes) + " passes" : "");
}

} // namespace

std::string OutcomeText::bitrate(std::int64_t bitsPerSecond) {
    constexpr double KILO = 1e3, MEGA = 1e6;
    const auto bits = static_cast<double>(bitsPerSecond);
    return bits >= MEGA ? numberText(bits / MEGA) + " Mbit/s" : numberText(bits / KILO) + " kbit/s";
}

std::string OutcomeText::of(const ExportFacts& facts) {
    std::string text = ExportCore::PlainText::escaped(facts.path.toStdString()) + ": " +
                       ExportCore::TimeText::format(KTime(facts.durationMs));
    if (!facts.videoCodec.empty())
        text += ", " + facts.videoCodec + ' ' + std::to_string(facts.width) + 'x' + std::to_string(facts.height) +
                ", " + counted(facts.frames, "frame");
    if (!facts.firstPicture.isEmpty())
        text += ", " + fileName(facts.firstPicture) + " to " + fileName(facts.lastPicture);
    if (!facts.audioCodec.empty())
        text += ", " + facts.audioCodec + ' ' + std::to_string(facts.sampleRate) + " Hz, " +
                counted(facts.channels, "channel");
    text += extrasText(facts);
    char tail[96];
    std::snprintf(tail, sizeof tail, ", %lld bytes, made in %.1f s (%.2fx)", static_cast<long long>(facts.sizeBytes),
                  static_cast<double>(facts.elapsedMs) / 1000, facts.speed);
    return text + tail;
}

std::string OutcomeText::of(const ExportPlan& plan) {
    std::string text = ExportCore::PlainText::escaped(plan.path.toStdString()) + ": " +
                       ExportCore::TimeText::format(plan.estimate.duration) + ", " + plan.container +
                       " by the preset " + plan.preset + '\n';
    for (const ExportPlan::Stream& stream : plan.streams) {
        const auto isLike = [&stream](const ExportPlan::Stream& other) { return other.kind == stream.kind; };
        const bool alone = std::count_if(plan.streams.begin(), plan.streams.end(), isLike) == 1;
        text += "  " + textOf(stream, plan.estimate.frames, alone) + '\n';
    }
    if (plan.chapters > 0)
        text += "  chapters: " + std::to_string(plan.chapters) + '\n';
    text += "  size: " + roughly(plan.estimate.rough) + ExportCore::SizeText::format(plan.estimate.sizeBytes) +
            roomText(plan) + '\n';
    return text + "  time: " + durationText(plan) + '\n';
}

} // namespace Cli

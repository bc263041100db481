// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/LoudnessGain.h"

#include "ExportCore/Refusal.h"
#include "Kestra/Base/SourcePlace.h"
#include <QString>
#include <algorithm>
#include <cmath>

namespace ExportCore {
namespace {

constexpr double MOST_DB = 36;
constexpr double NOT_HEARD = 0.05; // dB
constexpr double TOLERANCE = 0.5;  // LU

double decibels(double factor) {
    return 20 * std::log10(factor);
}

double factorOf(double decibels) {
    return std::pow(10, decibels / 20);
}

/// With a true minus, one decimal, and none for a whole number.
std::string inWords(double value) {
    return QString::number(std::round(value * 10) / 10, 'g', 4).toStdString();
}

std::string changeInWords(double change) {
    if (std::abs(change) < 0.05)
        return "stays";
    return (change > 0 ? "is raised by " : "is lowered by ") + inWords(std::abs(change)) + " dB";
}

} // namespace

const double LoudnessGain::CEILING = factorOf(-1.5);

LoudnessGain LoudnessGain::to(double targetLufs, const Kestra::Proc::Loudness& loudness, const std::string& what) {
    if (!loudness.integrated)
        return {1, what + " has no loudness, being too quiet or too short, and stays as it is"};
    const double wanted = targetLufs - *loudness.integrated;
    const double change = std::clamp(wanted, -MOST_DB, MOST_DB);
    LoudnessGain gain{factorOf(change), {}};
    gain.note = what + " has " + inWords(*loudness.integrated) + " LUFS and " + changeInWords(change);
    if (change != wanted)
        gain.note += ", not by the " + inWords(std::abs(wanted)) + " dB to " + inWords(targetLufs) + " LUFS";
    const double above = decibels(loudness.truePeak * gain.factor / CEILING);
    if (loudness.truePeak <= 0 || above <= NOT_HEARD)
        return gain;
    gain.note += "; its peaks are turned down, by " + inWords(above) + " dB at most";
    // How much of its loudness lies in its peaks only another pass over all of it could tell.
    if (above > TOLERANCE)
        gain.note +=
            ", so that it may stay below " + inWords(targetLufs) + " LUFS, by " + inWords(above) + " LU at worst";
    return gain;
}

double LoudnessGain::parse(const std::string& text) {
    QString number = QString::fromStdString(text).trimmed();
    for (const char* const unit : {"LUFS", "LKFS"})
        if (number.endsWith(QLatin1String(unit), Qt::CaseInsensitive))
            number = number.chopped(4).trimmed();
    bool ok = false;
    const double value = number.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        KESTRA_THROW(Refusal("\"" + text + "\" is no loudness; write LUFS, as -14 or -23"));
    if (value < QUIETEST || value > LOUDEST)
        KESTRA_THROW(Refusal("Loudness goes from " + inWords(QUIETEST) + " to " + inWords(LOUDEST) + " LUFS, not to " +
                             inWords(value)));
    return value;
}

} // namespace ExportCore

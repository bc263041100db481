// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/PeoplesText.h"

#include <QLocale>
#include <QRegularExpression>
#include <cmath>

namespace Dialog {
namespace {

QString twoDigits(qint64 number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

/// With as many decimals as are not zero, two at most.
QString decimal(double number) {
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    const double rounded = std::round(number * 100) / 100;
    const int decimals = rounded == std::floor(rounded) ? 0 : std::floor(rounded * 10) == rounded * 10 ? 1 : 2;
    return locale.toString(rounded, 'f', decimals);
}

} // namespace

QString PeoplesText::length(KTime time) {
    constexpr qint64 shortest = 10000;
    const qint64 milliseconds = time.milliseconds();
    if (milliseconds < shortest)
        return QStringLiteral("0:%1.%2")
            .arg(twoDigits(milliseconds / 1000))
            .arg(milliseconds % 1000, 3, 10, QLatin1Char('0'));
    const qint64 seconds = (milliseconds + 500) / 1000;
    const QString tail = twoDigits(seconds % 60);
    const qint64 minutes = seconds / 60;
    return minutes < 60 ? QStringLiteral("%1:%2").arg(minutes).arg(tail)
                        : QStringLiteral("%1:%2:%3").arg(minutes / 60).arg(twoDigits(minutes % 60), tail);
}

QString PeoplesText::about(qint64 milliseconds) {
    const qint64 seconds = (milliseconds + 500) / 1000;
    if (seconds < 5)
        return tr("a few seconds");
    if (seconds < 90)
        return tr("about %n second(s)", nullptr, static_cast<int>((seconds + 2) / 5 * 5));
    const qint64 minutes = (seconds + 30) / 60;
    if (minutes < 90)
        return tr("about %n minute(s)", nullptr, static_cast<int>(minutes));
    return tr("about %n hour(s)", nullptr, static_cast<int>((minutes + 30) / 60));
}

QString PeoplesText::size(qint64 bytes) {
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QString PeoplesText::frameRate(const boost::rational<long long>& rate) {
    return tr("%1 frames/s").arg(decimal(boost::rational_cast<double>(rate)));
}

QString PeoplesText::sampleRate(int samplesPerSecond) {
    return tr("%1 kHz").arg(decimal(samplesPerSecond / 1000.0));
}

QString PeoplesText::bitrate(qint64 bitsPerSecond) {
    constexpr qint64 million = 1000000;
    return bitsPerSecond >= million ? tr("%1 Mbit/s").arg(decimal(static_cast<double>(bitsPerSecond) / million))
                                    : tr("%1 kbit/s").arg(decimal(static_cast<double>(bitsPerSecond) / 1000));
}

QString PeoplesText::withPoint(const QString& text) {
    static const auto& comma = *new QRegularExpression(QStringLiteral("(?<=\\d),(?=\\d)"));
    return QLocale().decimalPoint() == QLatin1Char(',') ? QString(text).replace(comma, QStringLiteral(".")) : text;
}

} // namespace Dialog

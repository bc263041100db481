// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PeoplesText: numbers as people read them, in their own language.
#pragma once

#include "KTime/KTime.h"
#include <QCoreApplication>
#include <QString>
#include <boost/rational.hpp>

namespace Dialog {

struct PeoplesText {
    Q_DECLARE_TR_FUNCTIONS(Dialog::PeoplesText)

public:
    /// "1:02:03" or "2:03", rounded to whole seconds, but "0:00.480" below ten of them.
    static QString length(KTime time);
    /// "about 3 minutes"; words that suit a guess.
    static QString about(qint64 milliseconds);
    /// "12.3 MB".
    static QString size(qint64 bytes);
    /// "29.97 frames/s".
    static QString frameRate(const boost::rational<long long>& rate);
    /// "48 kHz".
    static QString sampleRate(int samplesPerSecond);
    /// "2.5 Mbit/s".
    static QString bitrate(qint64 bitsPerSecond);
    /// What somebody has written, with a point for the comma of their language's numbers.
    static QString withPoint(const QString& text);

    PeoplesText() = delete;
};

} // namespace Dialog

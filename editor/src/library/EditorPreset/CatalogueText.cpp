// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/CatalogueText.h"
#include <QChar>
#include <QString>
#include <algorithm>

namespace EditorPreset {

namespace {

bool turnsDirection(ushort code) {
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

bool isControl(QChar letter) {
    return letter.category() == QChar::Other_Control || letter == QChar::LineSeparator ||
           letter == QChar::ParagraphSeparator;
}

std::string nameOf(ushort code) {
    return "U+" + QString::number(code, 16).toUpper().rightJustified(4, QLatin1Char('0')).toStdString();
}

} // namespace

void checkName(const std::string& name, const JsonPlace& place) {
    const bool plain = std::all_of(name.begin(), name.end(), [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') || letter == '-' || letter == '_' ||
               letter == '.';
    });
    if (!plain)
        place.refuse("\"" + name + "\" has other letters than a-z, 0-9, '-', '_' and '.'");
}

void checkText(const std::string& text, const JsonPlace& place) {
    for (const QChar letter : QString::fromStdString(text)) {
        if (turnsDirection(letter.unicode()))
            place.refuse("holds the direction mark " + nameOf(letter.unicode()));
        if (isControl(letter))
            place.refuse("holds the control character " + nameOf(letter.unicode()));
    }
}

} // namespace EditorPreset

// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PresetText: what a preset makes, in words for people.
#pragma once

#include "EditorPreset/Preset.h"
#include <QCoreApplication>
#include <QString>

namespace Dialog {

struct PresetText {
    Q_DECLARE_TR_FUNCTIONS(Dialog::PresetText)

public:
    /// In the language of the window, else in English.
    static QString title(const Preset& preset);
    /// "H.264 picture up to 1920 × 1080, two passes; AAC sound, 192 kbit/s; .mp4".
    static QString facts(const Preset& preset);
    static QString codec(Kestra::Conf::CodecID codec);
    /// Of a tag, or of a quality, by its name in the catalogue.
    static QString name(const std::string& id);
    /// The usual extension of its files, without the dot, with its picture or without it.
    static QString extension(const Preset& preset, bool withPicture);

    PresetText() = delete;
};

} // namespace Dialog

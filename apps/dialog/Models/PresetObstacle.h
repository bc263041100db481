// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::PresetObstacle: why a preset is of no use for a source.
#pragma once

#include "EditorPreset/Preset.h"
#include <QCoreApplication>
#include <QString>

namespace Dialog {

class SourceMedia;

struct PresetObstacle {
    Q_DECLARE_TR_FUNCTIONS(Dialog::PresetObstacle)

public:
    /// A sentence for people; empty where nothing is in the way, and for a source that is not ready. Of a preset as it
    /// is, or with what is changed in it, and with the streams that are wanted.
    static QString of(const Preset& preset, const SourceMedia& source, bool withPicture = true, bool withSound = true);

    PresetObstacle() = delete;
};

} // namespace Dialog

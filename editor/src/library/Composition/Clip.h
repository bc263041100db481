// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorModelExport.h"
#include "KTime/KTime.h"
#include "PubSub/Object.h"
#include "Types/Range.h"
#include <QString>

namespace Composition {

class Track;

/// What stands in a track: a part of a medium, something that is made, or tracks in its place. A value.
class EDITORMODEL_EXPORT Clip : public virtual PubSub::Object {
public:
    const Track* track = nullptr; ///< borrowed
    QString name;
    QString medium; ///< the path of its file, or of its first picture; empty for what is made, missing or tracks
    bool enabled = true;
    Types::Range range; ///< of the composition's time
    KTime start;        ///< that of the medium which is shown at the range's start
};

} // namespace Composition

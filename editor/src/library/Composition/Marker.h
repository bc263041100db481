// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorModelExport.h"
#include "KTime/KTime.h"
#include "PubSub/Object.h"
#include <QString>

namespace Composition {

/// A named point of a composition's time. A value.
class EDITORMODEL_EXPORT Marker : public virtual PubSub::Object {
public:
    KTime time;
    QString name;
};

} // namespace Composition

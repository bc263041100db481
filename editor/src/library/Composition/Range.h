// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Object.h"
#include "Types/Range.h"
#include <QString>

namespace Composition {

/// A named stretch of a composition's time. A value.
class EDITORMODEL_EXPORT Range : public virtual PubSub::Object {
public:
    Types::Range range;
    QString name;
};

} // namespace Composition

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorModelExport.h"
#include "PubSub/Object.h"
#include <QString>

namespace Composition {

class Object;

/// A track of a composition. A value.
class EDITORMODEL_EXPORT Track : public virtual PubSub::Object {
public:
    enum class Kind { Pictures, Sound };

    const Composition::Object* composition = nullptr; ///< borrowed
    Kind kind = Kind::Pictures;
    QString name;
    bool enabled = true;
    int place = 0; ///< among the composition's tracks; the lowest one is 0
};

} // namespace Composition

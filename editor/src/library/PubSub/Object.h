// SPDX-License-Identifier: GPL-3.0-or-later
// PubSub::Object: the virtual base of every model object.
#pragma once

#include "EditorModelExport.h"

namespace PubSub {

/// Its address is the topic under which messages about the object travel; it holds nothing, so objects stay values.
class EDITORMODEL_EXPORT Object {
public:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
    virtual ~Object();
};

} // namespace PubSub

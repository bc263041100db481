// SPDX-License-Identifier: GPL-3.0-or-later
// PubSub::Details::ObjectWatch: tells whether a model object was destroyed while others were called.
#pragma once

#include "EditorModelExport.h"

namespace PubSub {

class Object;

namespace Details {

/// Lives on the stack of whoever holds a borrowed object while it calls out; watches nest. False from the moment on at
/// which an object at that address is destroyed on the same thread. The object is not looked into; null is never
/// destroyed.
class EDITORMODEL_EXPORT ObjectWatch {
public:
    explicit ObjectWatch(const Object* watched) noexcept;
    ObjectWatch(const ObjectWatch&) = delete;
    ObjectWatch& operator=(const ObjectWatch&) = delete;
    ~ObjectWatch();

    explicit operator bool() const noexcept { return alive; }

private:
    friend class PubSub::Object;

    static void gone(const Object* object) noexcept;

    const Object* object;
    ObjectWatch* outer;
    bool alive = true;
};

} // namespace Details
} // namespace PubSub

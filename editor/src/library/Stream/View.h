// SPDX-License-Identifier: GPL-3.0-or-later
// Stream::View: tells field by field what changed in a stream.
#pragma once

#include "Stream/Object.h"
#include "Stream/ObjectViewBase.h"

namespace Stream {

/// Bound to the thread of the bus. A stream that comes or leaves changes from or to the empty value. An override of the
/// three-pointer streamChanged keeps the hooks below only by calling this class's.
template <class M, class I>
class View : protected ObjectViewBase<Object<M, I>> {
    using O = Object<M, I>;

public:
    View();
    View(const View& other);
    ~View() override;

protected:
    using ObjectViewBase<O>::streamChanged;
    void streamChanged(const O* object, const O* before, const O* after) override;

    // Called in this order, each only when its field differs; a range alone calls none. The flags come with their new
    // value.
    virtual void sourceChanged(const O* object);
    virtual void implChanged(const O* object);
    virtual void versionChanged(const O* object);
    virtual void isUsing(const O* object, bool isUsed);
    virtual void isAvailable(const O* object, bool available);
};

template <class M, class I>
View<M, I>::View() = default;
template <class M, class I>
View<M, I>::View(const View& other) = default;
template <class M, class I>
View<M, I>::~View() = default;

template <class M, class I>
void View<M, I>::streamChanged(const O* object, const O* before, const O* after) {
    const auto alive = this->watch(object);
    if (before->source != after->source)
        sourceChanged(object);
    if (alive && before->impl != after->impl)
        implChanged(object);
    if (alive && before->version != after->version)
        versionChanged(object);
    if (alive && before->using_ != after->using_)
        isUsing(object, after->using_);
    if (alive && before->available != after->available)
        isAvailable(object, after->available);
}

template <class M, class I>
void View<M, I>::sourceChanged(const O*) {}
template <class M, class I>
void View<M, I>::implChanged(const O*) {}
template <class M, class I>
void View<M, I>::versionChanged(const O*) {}
template <class M, class I>
void View<M, I>::isUsing(const O*, bool) {}
template <class M, class I>
void View<M, I>::isAvailable(const O*, bool) {}

} // namespace Stream

// SPDX-License-Identifier: GPL-3.0-or-later
// Stream::ObjectViewBase: Message::View in the words of streams.
#pragma once

#include "Message/View.h"
#include <set>

namespace Stream {

/// Operations and hooks mean what their counterparts in Message::View mean.
template <class O>
class ObjectViewBase : protected Message::View<O> {
    using Base = Message::View<O>;

public:
    ObjectViewBase();
    ObjectViewBase(const ObjectViewBase& other);
    ~ObjectViewBase() override;

protected:
    using SetterChain = typename Base::SetterChain;

    const O* stream() const { return this->object(); }
    std::set<const O*> streams() const { return this->objects(); }
    SetterChain streamAdd(O* object) { return this->add(object); }
    SetterChain streamOwn(O* object) { return this->own(object); }
    SetterChain streamChange(const O* object) { return this->change(object); }
    void streamRemove(const O* object) { this->remove(object); }
    void streamObserve(const O* object) { this->observe(object); }
    void streamForget(const O* object) { this->forget(object); }
    bool streamIsObserved(const O* object) const { return this->isObserved(object); }
    bool streamIsOwned(const O* object) const { return this->isOwned(object); }
    O* streamOwnerPointer(const O* object) const { return this->ownerPointer(object); }

    virtual void streamAdded(const O* object);
    virtual void streamRemoved(const O* object);
    virtual void streamChanged(const O* object, const O* before, const O* after);
    virtual void streamChanged(const O* object, const O* before);
    virtual void streamChanged(const O* object);

private:
    void added(const O* object) override { streamAdded(object); }
    void changed(const O* object, const O* before, const O* after) override { streamChanged(object, before, after); }
    void changed(const O* object, const O* before) override { streamChanged(object, before); }
    void changed(const O* object) override { streamChanged(object); }
    void removed(const O* object) override { streamRemoved(object); }
};

// Here and not in the class, so that the exported instantiations have them.
template <class O>
ObjectViewBase<O>::ObjectViewBase() = default;
template <class O>
ObjectViewBase<O>::ObjectViewBase(const ObjectViewBase& other) = default;
template <class O>
ObjectViewBase<O>::~ObjectViewBase() = default;
template <class O>
void ObjectViewBase<O>::streamAdded(const O*) {}
template <class O>
void ObjectViewBase<O>::streamRemoved(const O*) {}
template <class O>
void ObjectViewBase<O>::streamChanged(const O*, const O*, const O*) {}
template <class O>
void ObjectViewBase<O>::streamChanged(const O*, const O*) {}
template <class O>
void ObjectViewBase<O>::streamChanged(const O*) {}

} // namespace Stream

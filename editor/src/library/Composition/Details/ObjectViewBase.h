// SPDX-License-Identifier: GPL-3.0-or-later
// Composition::Details::ObjectViewBase: Message::View in the words of compositions.
#pragma once

#include "Composition/Object.h"
#include "EditorModelExport.h"
#include "Message/View.h"
#include <set>

extern template class EDITORMODEL_EXPORT Message::View<Composition::Object>;

namespace Composition::Details {

/// Operations and hooks mean what their counterparts in Message::View mean.
class EDITORMODEL_EXPORT ObjectViewBase : protected Message::View<Composition::Object> {
public:
    ObjectViewBase() = default;
    ObjectViewBase(const ObjectViewBase&) = default;
    ~ObjectViewBase() override;

protected:
    const Composition::Object* composition() const { return object(); }
    std::set<const Composition::Object*> compositions() const { return objects(); }
    SetterChain compositionAdd(Composition::Object* object) { return add(object); }
    SetterChain compositionOwn(Composition::Object* object) { return own(object); }
    SetterChain compositionChange(const Composition::Object* object) { return change(object); }
    void compositionRemove(const Composition::Object* object) { remove(object); }
    void compositionObserve(const Composition::Object* object) { observe(object); }
    void compositionForget(const Composition::Object* object) { forget(object); }
    bool compositionIsObserved(const Composition::Object* object) const { return isObserved(object); }
    bool compositionIsOwned(const Composition::Object* object) const { return isOwned(object); }
    Composition::Object* compositionOwnerPointer(const Composition::Object* object) const {
        return ownerPointer(object);
    }

    virtual void compositionAdded(const Composition::Object* object);
    virtual void compositionRemoved(const Composition::Object* object);
    virtual void compositionChanged(const Composition::Object* object, const Composition::Object* before,
                                    const Composition::Object* after);
    virtual void compositionChanged(const Composition::Object* object, const Composition::Object* before);
    virtual void compositionChanged(const Composition::Object* object);

private:
    void added(const Composition::Object* object) override { compositionAdded(object); }
    void changed(const Composition::Object* object, const Composition::Object* before,
                 const Composition::Object* after) override {
        compositionChanged(object, before, after);
    }
    void changed(const Composition::Object* object, const Composition::Object* before) override {
        compositionChanged(object, before);
    }
    void changed(const Composition::Object* object) override { compositionChanged(object); }
    void removed(const Composition::Object* object) override { compositionRemoved(object); }
};

} // namespace Composition::Details

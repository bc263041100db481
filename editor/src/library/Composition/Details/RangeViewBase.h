// SPDX-License-Identifier: GPL-3.0-or-later
// Composition::Details::RangeViewBase: Message::View in the words of named ranges.
#pragma once

#include "Composition/Range.h"
#include "EditorModelExport.h"
#include "Message/View.h"
#include <set>

extern template class EDITORMODEL_EXPORT Message::View<Composition::Range>;

namespace Composition::Details {

/// Operations and hooks mean what their counterparts in Message::View mean.
class EDITORMODEL_EXPORT RangeViewBase : protected Message::View<Composition::Range> {
public:
    RangeViewBase() = default;
    RangeViewBase(const RangeViewBase&) = default;
    ~RangeViewBase() override;

protected:
    const Composition::Range* range() const { return object(); }
    std::set<const Composition::Range*> ranges() const { return objects(); }
    SetterChain rangeAdd(Composition::Range* object) { return add(object); }
    SetterChain rangeOwn(Composition::Range* object) { return own(object); }
    SetterChain rangeChange(const Composition::Range* object) { return change(object); }
    void rangeRemove(const Composition::Range* object) { remove(object); }
    void rangeObserve(const Composition::Range* object) { observe(object); }
    void rangeForget(const Composition::Range* object) { forget(object); }
    bool rangeIsObserved(const Composition::Range* object) const { return isObserved(object); }
    bool rangeIsOwned(const Composition::Range* object) const { return isOwned(object); }
    Composition::Range* rangeOwnerPointer(const Composition::Range* object) const { return ownerPointer(object); }

    virtual void rangeAdded(const Composition::Range* object);
    virtual void rangeRemoved(const Composition::Range* object);
    virtual void rangeChanged(const Composition::Range* object, const Composition::Range* before,
                              const Composition::Range* after);
    virtual void rangeChanged(const Composition::Range* object, const Composition::Range* before);
    virtual void rangeChanged(const Composition::Range* object);

private:
    void added(const Composition::Range* object) override { rangeAdded(object); }
    void changed(const Composition::Range* object, const Composition::Range* before,
                 const Composition::Range* after) override {
        rangeChanged(object, before, after);
    }
    void changed(const Composition::Range* object, const Composition::Range* before) override {
        rangeChanged(object, before);
    }
    void changed(const Composition::Range* object) override { rangeChanged(object); }
    void removed(const Composition::Range* object) override { rangeRemoved(object); }
};

} // namespace Composition::Details

// SPDX-License-Identifier: GPL-3.0-or-later
// Composition::Details::MarkerViewBase: Message::View in the words of markers.
#pragma once

#include "Composition/Marker.h"
#include "EditorModelExport.h"
#include "Message/View.h"
#include <set>

extern template class EDITORMODEL_EXPORT Message::View<Composition::Marker>;

namespace Composition::Details {

/// Operations and hooks mean what their counterparts in Message::View mean.
class EDITORMODEL_EXPORT MarkerViewBase : protected Message::View<Composition::Marker> {
public:
    MarkerViewBase() = default;
    MarkerViewBase(const MarkerViewBase&) = default;
    ~MarkerViewBase() override;

protected:
    const Marker* marker() const { return object(); }
    std::set<const Marker*> markers() const { return objects(); }
    SetterChain markerAdd(Marker* object) { return add(object); }
    SetterChain markerOwn(Marker* object) { return own(object); }
    SetterChain markerChange(const Marker* object) { return change(object); }
    void markerRemove(const Marker* object) { remove(object); }
    void markerObserve(const Marker* object) { observe(object); }
    void markerForget(const Marker* object) { forget(object); }
    bool markerIsObserved(const Marker* object) const { return isObserved(object); }
    bool markerIsOwned(const Marker* object) const { return isOwned(object); }
    Marker* markerOwnerPointer(const Marker* object) const { return ownerPointer(object); }

    virtual void markerAdded(const Marker* object);
    virtual void markerRemoved(const Marker* object);
    virtual void markerChanged(const Marker* object, const Marker* before, const Marker* after);
    virtual void markerChanged(const Marker* object, const Marker* before);
    virtual void markerChanged(const Marker* object);

private:
    void added(const Marker* object) override { markerAdded(object); }
    void changed(const Marker* object, const Marker* before, const Marker* after) override {
        markerChanged(object, before, after);
    }
    void changed(const Marker* object, const Marker* before) override { markerChanged(object, before); }
    void changed(const Marker* object) override { markerChanged(object); }
    void removed(const Marker* object) override { markerRemoved(object); }
};

} // namespace Composition::Details

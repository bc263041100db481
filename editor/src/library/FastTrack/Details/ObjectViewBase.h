// SPDX-License-Identifier: GPL-3.0-or-later
// FastTrack::Details::ObjectViewBase: Message::View in the words of the fast track.
#pragma once

#include "EditorModelExport.h"
#include "FastTrack/Object.h"
#include "Message/View.h"
#include <set>

extern template class EDITORMODEL_EXPORT Message::View<FastTrack::Object>;

namespace FastTrack::Details {

/// Operations and hooks mean what their counterparts in Message::View mean.
class EDITORMODEL_EXPORT ObjectViewBase : protected Message::View<FastTrack::Object> {
public:
    ObjectViewBase() = default;
    ObjectViewBase(const ObjectViewBase&) = default;
    ~ObjectViewBase() override;

protected:
    const FastTrack::Object* fastTrack() const { return object(); }
    std::set<const FastTrack::Object*> fastTracks() const { return objects(); }
    SetterChain fastTrackAdd(FastTrack::Object* object) { return add(object); }
    SetterChain fastTrackOwn(FastTrack::Object* object) { return own(object); }
    SetterChain fastTrackChange(const FastTrack::Object* object) { return change(object); }
    void fastTrackRemove(const FastTrack::Object* object) { remove(object); }
    void fastTrackObserve(const FastTrack::Object* object) { observe(object); }
    void fastTrackForget(const FastTrack::Object* object) { forget(object); }
    bool fastTrackIsObserved(const FastTrack::Object* object) const { return isObserved(object); }
    bool fastTrackIsOwned(const FastTrack::Object* object) const { return isOwned(object); }
    FastTrack::Object* fastTrackOwnerPointer(const FastTrack::Object* object) const { return ownerPointer(object); }

    virtual void fastTrackAdded(const FastTrack::Object* object);
    virtual void fastTrackRemoved(const FastTrack::Object* object);
    virtual void fastTrackChanged(const FastTrack::Object* object, const FastTrack::Object* before,
                                  const FastTrack::Object* after);
    virtual void fastTrackChanged(const FastTrack::Object* object, const FastTrack::Object* before);
    virtual void fastTrackChanged(const FastTrack::Object* object);

private:
    void added(const FastTrack::Object* object) override { fastTrackAdded(object); }
    void changed(const FastTrack::Object* object, const FastTrack::Object* before,
                 const FastTrack::Object* after) override {
        fastTrackChanged(object, before, after);
    }
    void changed(const FastTrack::Object* object, const FastTrack::Object* before) override {
        fastTrackChanged(object, before);
    }
    void changed(const FastTrack::Object* object) override { fastTrackChanged(object); }
    void removed(const FastTrack::Object* object) override { fastTrackRemoved(object); }
};

} // namespace FastTrack::Details

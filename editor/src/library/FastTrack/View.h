// SPDX-License-Identifier: GPL-3.0-or-later
// FastTrack::View: tells property by property what changed in the fast track, on the thread of the bus.
#pragma once

#include "EditorModelExport.h"
#include "FastTrack/Details/ObjectViewBase.h"

namespace FastTrack {

class EDITORMODEL_EXPORT View : protected Details::ObjectViewBase {
public:
    View() = default;
    View(const View&) = default;
    ~View() override;

protected:
    using Details::ObjectViewBase::fastTrackChanged;
    void fastTrackChanged(const Object* object, const Object* before, const Object* after) override;

    // Called in this order, each only when its property differs. The flags come with their new value.
    virtual void progressChanged(const Object* object);
    virtual void isEnabled(const Object* object, bool enabled);
    virtual void isActive(const Object* object, bool active);
    virtual void isFreezed(const Object* object, bool freezed);
    virtual void cacheFolderChanged(const Object* object);
    virtual void isComplete(const Object* object, bool complete);
};

} // namespace FastTrack

// SPDX-License-Identifier: GPL-3.0-or-later
// Media::View: Message::View in the words of media descriptions.
#pragma once

#include "EditorModelExport.h"
#include "Media/Audio.h"
#include "Media/Video.h"
#include "Message/View.h"
#include <set>

namespace Media {

/// M is Media::Video or Media::Audio. Operations and hooks mean what their counterparts in Message::View mean.
template <class M>
class View : protected Message::View<M> {
    using Base = Message::View<M>;

public:
    View() = default;
    View(const View&) = default;
    ~View() override;

protected:
    using SetterChain = typename Base::SetterChain;

    const M* media() const { return this->object(); }
    std::set<const M*> medias() const { return this->objects(); }
    SetterChain mediaAdd(M* object) { return this->add(object); }
    SetterChain mediaOwn(M* object) { return this->own(object); }
    SetterChain mediaChange(const M* object) { return this->change(object); }
    void mediaRemove(const M* object) { this->remove(object); }
    void mediaObserve(const M* object) { this->observe(object); }
    void mediaForget(const M* object) { this->forget(object); }
    bool mediaIsObserved(const M* object) const { return this->isObserved(object); }
    bool mediaIsOwned(const M* object) const { return this->isOwned(object); }
    M* mediaOwnerPointer(const M* object) const { return this->ownerPointer(object); }

    virtual void mediaAdded(const M* object);
    virtual void mediaRemoved(const M* object);
    virtual void mediaChanged(const M* object, const M* before, const M* after);
    virtual void mediaChanged(const M* object, const M* before);
    virtual void mediaChanged(const M* object);

private:
    void added(const M* object) override { mediaAdded(object); }
    void changed(const M* object, const M* before, const M* after) override { mediaChanged(object, before, after); }
    void changed(const M* object, const M* before) override { mediaChanged(object, before); }
    void changed(const M* object) override { mediaChanged(object); }
    void removed(const M* object) override { mediaRemoved(object); }
};

template <class M>
View<M>::~View() = default;
template <class M>
void View<M>::mediaAdded(const M*) {}
template <class M>
void View<M>::mediaRemoved(const M*) {}
template <class M>
void View<M>::mediaChanged(const M*, const M*, const M*) {}
template <class M>
void View<M>::mediaChanged(const M*, const M*) {}
template <class M>
void View<M>::mediaChanged(const M*) {}

} // namespace Media

extern template class EDITORMODEL_EXPORT Message::View<Media::Video>;
extern template class EDITORMODEL_EXPORT Message::View<Media::Audio>;
extern template class EDITORMODEL_EXPORT Media::View<Media::Video>;
extern template class EDITORMODEL_EXPORT Media::View<Media::Audio>;

// SPDX-License-Identifier: GPL-3.0-or-later
// Composition::View: a composition with its markers, ranges and own media descriptions.
#pragma once

#include "Composition/CompositionView.h"
#include "Composition/MarkerView.h"
#include "Composition/RangeView.h"
#include "EditorModelExport.h"
#include "Media/View.h"

namespace Composition {

/// Bound to the thread of the bus. Once a composition is observed, the media views observe that composition's own video
/// and audio description, follow when it gets others, and let them go with it. Either may die before the view.
class EDITORMODEL_EXPORT View : protected CompositionView,
                                protected MarkerView,
                                protected RangeView,
                                protected Media::View<Media::Video>,
                                protected Media::View<Media::Audio> {
public:
    View() = default;
    View(const View&) = default;
    ~View() override;

protected:
    using CompositionView::compositionChanged;
    /// An override keeps the hooks below, and the media views in step, only by calling this.
    void compositionChanged(const Object* composition, const Object* before, const Object* after) override;

    // Called in this order, each only when its part differs; the first two after the media views have followed.
    virtual void videoChanged(const Object* composition);
    virtual void audioChanged(const Object* composition);
    /// The set of export descriptions.
    virtual void exportsChanged(const Object* composition);
    /// Duration or version.
    virtual void contentChanged(const Object* composition);

private:
    template <class M>
    void follow(const M* before, const M* after);
};

} // namespace Composition

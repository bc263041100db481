// SPDX-License-Identifier: GPL-3.0-or-later
// FastTrack::Suppressor: holds the fast track back as long as it lives.
#pragma once

#include "EditorModelExport.h"
#include "FastTrack/View.h"

namespace FastTrack {

/// Its address is its identity in the fast-track object. That object must exist, and be owned by some view, when a
/// suppressor is made and when it is destroyed; where there is none, nothing is suppressed.
class EDITORMODEL_EXPORT Suppressor : protected View {
public:
    Suppressor();
    Suppressor(const Suppressor&) = delete;
    Suppressor& operator=(const Suppressor&) = delete;
    ~Suppressor() override;
};

} // namespace FastTrack

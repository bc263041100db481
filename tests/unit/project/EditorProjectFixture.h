// SPDX-License-Identifier: GPL-3.0-or-later
// A project over media that exist in memory only, and whoever meets it on the bus.
#pragma once

#include "Composition/CompositionView.h"
#include "Composition/MarkerView.h"
#include "Composition/RangeView.h"
#include "EditorProject/EditorProject.h"
#include "FastTrack/Suppressor.h"
#include "FastTrack/View.h"
#include "Kestra/Proc/ProcException.h"
#include "Timeline/DocumentEdit.h"
#include "fakes/editor/ExportUser.h"
#include "fakes/project/RenderFixture.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <map>

namespace Project::Tests {

inline Contents clip(int frames, std::int64_t samples) {
    Contents contents;
    contents.frames = frames;
    contents.samples = samples;
    return contents;
}

using User = EditorFakes::ExportUser;

/// Owns a composition of its own, as an editor's own model does, but adopts no stream.
class OtherModel : private Composition::CompositionView, private FastTrack::View {
public:
    OtherModel() {
        compositionOwn(&composition);
        fastTrackOwn(&fastTrack);
    }
    ~OtherModel() override {
        fastTrackRemove(&fastTrack);
        compositionRemove(&composition);
    }

    Composition::Object composition;
    FastTrack::Object fastTrack;
};

inline std::set<const FastTrack::Object*> ownedFastTracks() {
    Message::View<FastTrack::Object> anybody;
    return anybody.enumerateAll();
}

class EditorProjectTest : public RenderFixture {
protected:
    /// Runs the event loop until the condition holds; false when the deadline passes first.
    static bool until(const std::function<bool()>& condition) {
        QElapsedTimer timer;
        timer.start();
        while (!condition() && timer.elapsed() < 1'000'000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return condition();
    }
    void openTwo() { project->open(put({clip(100, 192000), clip(50, 96000)})); }

    std::unique_ptr<EditorProject> project = std::make_unique<EditorProject>();
};

} // namespace Project::Tests

// SPDX-License-Identifier: GPL-3.0-or-later
// EditorFakes::FakeModel: a model with one composition, one fast track and an owner of export streams.
#pragma once

#include "Composition/View.h"
#include "FastTrack/Object.h"
#include "FastTrack/View.h"
#include "fakes/editor/BusTrace.h"
#include "fakes/editor/FakeExportStreamOwner.h"

namespace EditorFakes {

/// The composition has pictures (1280 x 720, 25 a second) and stereo sound. An export stream goes when the description
/// that it renders is taken out of the composition. Outlives the transcoders that use it.
class FakeModel : protected Composition::View, protected FastTrack::View {
public:
    /// A trace that is given hears everything from the start.
    explicit FakeModel(BusTrace* trace = nullptr);
    ~FakeModel() override;

    /// Attach the engine streams and say that they are available, to the streams that were offered last.
    void buildStreams(const boost::intrusive_ptr<Kestra::Proc::IStreamVideo>& video,
                      const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& audio);
    /// Changes through the bus, as an owner's.
    void setCompositionVideo(const Media::Video* description);
    void setCompositionAudio(const Media::Audio* description);
    void withdrawExport(const Media::Video* description);
    void removeComposition();

    Media::Video video;
    Media::Audio audio;
    Composition::Object composition;
    FastTrack::Object fastTrack;
    FakeVideoStreamOwner videoStreams;
    FakeAudioStreamOwner audioStreams;

private:
    void exportsChanged(const Composition::Object* changed) override;
};

} // namespace EditorFakes

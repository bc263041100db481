// SPDX-License-Identifier: GPL-3.0-or-later
// Project::Model: the model objects of a project and their owner.
#pragma once

#include "Composition/CompositionView.h"
#include "EditorProject/ExportStreams.h"
#include "EditorProject/FastTrackShare.h"
#include "EditorProject/StreamLengths.h"
#include "EditorProject/TimelineMarks.h"
#include "EditorProject/TimelineTracks.h"
#include "Kestra/Base/FrameGrid.h"
#include "Kestra/Proc/Filters/PictureTap.h"
#include "Render/Sequence.h"
#include <exception>
#include <functional>
#include <memory>
#include <optional>

namespace Project {

/// Owns a composition and its export streams on the bus. Any number may live at once, beside other owners too. One
/// thread.
class Model : private Composition::CompositionView {
public:
    /// `ordered` is called, from inside a delivery, when step() has something to do.
    explicit Model(std::function<void()> ordered);
    /// Announces that the composition goes. Export streams are let go in silence: they are their users' own.
    ~Model() override;

    /// Streams that are in use keep what they show, all others are built anew. No receiver may destroy the model.
    /// Throws why it cannot be described, and then nothing has changed.
    void show(Render::Sequence sequence);
    /// Describes the composition by what lies in the range.
    void describe(const Types::Range& range);
    /// As EditorProject::tapPictures().
    void tapPictures(std::shared_ptr<Kestra::Proc::PictureBox> box) { pictureBox = std::move(box); }
    /// Null before something is shown.
    const Render::Sequence* sequence() const { return shown ? &*shown : nullptr; }

    Composition::Object* composition() { return &compositionObject; }
    const Media::Video& video() const { return videoDescription; }
    const Media::Audio& audio() const { return audioDescription; }

    bool hasOrders() const { return videos.next() || audios.next(); }
    /// Takes one step: builds a stream and publishes it, or publishes that one is available. Throws why a stream cannot
    /// be built; that one is then given up. A receiver may destroy the model.
    void step();
    boost::intrusive_ptr<Kestra::Proc::IStreamAudio> sound(const Types::Range& range, const Media::Audio& audio) const;
    StreamLengths lengths(const Types::Range& range, const Media::Video* video, const Media::Audio* audio) const;

protected:
    using CompositionView::compositionChanged;
    void compositionChanged(const Composition::Object* object, const Composition::Object* before) override;

private:
    using Rate = boost::rational<long long>;

    /// As the composition's own.
    void publish(const Media::Video& video, const Media::Audio& audio);
    Rate rateOf(const Media::Video& description) const;
    std::optional<Kestra::FrameGrid> gridBeside(const Adoption<Media::Audio>& sound) const;
    boost::intrusive_ptr<Kestra::Proc::IStreamVideo> build(const Adoption<Media::Video>& order) const;
    boost::intrusive_ptr<Kestra::Proc::IStreamAudio> build(const Adoption<Media::Audio>& order) const;
    template <class Streams>
    void step(Streams& streams);
    template <class M>
    bool isOwn(const M* description, const M* ofTheComposition) const;
    template <class M>
    void requireOwn(const M* description, const M* ofTheComposition) const;
    const Render::Sequence& opened() const;
    Kestra::Ticks duration() const { return opened().document->duration(); }

    std::optional<Render::Sequence> shown;
    std::shared_ptr<Kestra::Proc::PictureBox> pictureBox; ///< null where nobody looks
    Media::Video videoDescription;
    Media::Audio audioDescription;
    Composition::Object compositionObject;
    FastTrackShare fastTrack;
    TimelineMarks marks;
    TimelineTracks tracks{&compositionObject};
    ExportSessions sessions;
    VideoStreams videos;
    AudioStreams audios;
};

} // namespace Project

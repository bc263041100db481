// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/Model.h"

#include "EditorProject/Descriptions.h"
#include "EditorProject/ExportWindow.h"
#include "Kestra/Base/SampleGrid.h"
#include "Kestra/Proc/ProcException.h"
#include "Render/Streams.h"
#include "Types/Time.h"

namespace Project {

using namespace Kestra;

namespace {

/// What the description leaves open is the composition's.
Conf::FrameInfo frameOf(const Media::Video& description, const Media::Video& own) {
    const bool known = description.width > 0 && description.height > 0;
    const Media::Video& chosen = known ? description : own;
    return {chosen.width, chosen.height, chosen.aspectNumerator, chosen.aspectDenominator};
}

Conf::SampleInfo soundOf(const Media::Audio& description, const Media::Audio& own) {
    Conf::SampleInfo sound;
    sound.Init(description.sampleFormat, description.sampleRate > 0 ? description.sampleRate : own.sampleRate,
               description.channelLayout ? description.channelLayout : own.channelLayout);
    return sound;
}

} // namespace

Model::Model(std::function<void()> ordered)
    : videos(ordered, sessions,
             [this](const Media::Video* description) { return isOwn(description, compositionObject.video()); })
    , audios(std::move(ordered), sessions,
             [this](const Media::Audio* description) { return isOwn(description, compositionObject.audio()); }) {
    compositionOwn(&compositionObject);
}

Model::~Model() {
    compositionRemove(&compositionObject);
}

template <class M>
bool Model::isOwn(const M* description, const M* ofTheComposition) const {
    return description && (description == ofTheComposition || compositionObject.contains(description));
}

template <class M>
void Model::requireOwn(const M* description, const M* ofTheComposition) const {
    // An adopted stream may have been given another description since.
    if (!isOwn(description, ofTheComposition))
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::InvalidArgument,
                                         "An export stream names no media description of this project"));
}

void Model::show(Render::Sequence sequence) {
    // What may throw comes first.
    const Media::Video video = describeVideo(sequence);
    const Media::Audio audio = describeAudio(sequence);
    shown = std::move(sequence);
    marks.show(*shown->document);
    tracks.show(*shown->document);
    publish(video, audio);
    videos.rebuild();
    audios.rebuild();
}

void Model::describe(const Types::Range& range) {
    const Media::Video video = describeVideo(opened(), range);
    publish(video, describeAudio(opened(), range));
}

void Model::publish(const Media::Video& video, const Media::Audio& audio) {
    videoDescription = video;
    audioDescription = audio;
    const auto chain = compositionChange(&compositionObject);
    chain->setVideo(&videoDescription).setAudio(&audioDescription);
    chain->setDuration(Types::fromAvTime(duration().Value())).setVersion(chain->version() + 1);
}

void Model::step() {
    // Pictures first: sound is aligned to them.
    if (videos.next())
        step(videos);
    else if (audios.next())
        step(audios);
}

template <class Streams>
void Model::step(Streams& streams) {
    const auto* stream = streams.next();
    if (streams.adoption(stream).stage == Streams::Stage::Built)
        return streams.publishAvailable(stream);
    const auto order = streams.adoption(stream);
    streams.giveUp(stream); // unless it succeeds; one that fails is not tried again
    streams.publishImpl(stream, build(order));
}

boost::intrusive_ptr<Proc::IStreamVideo> Model::build(const Adoption<Media::Video>& order) const {
    requireOwn(order.source, compositionObject.video());
    const ExportWindow window(order.range, duration(), FrameGrid(rateOf(*order.source)));
    const Conf::FrameInfo frame = frameOf(*order.source, videoDescription);
    const auto pictures = Render::createPictureStream(opened(), window, frame);
    return pictureBox ? new Proc::PictureTap(pictures, pictureBox) : pictures;
}

boost::intrusive_ptr<Proc::IStreamAudio> Model::build(const Adoption<Media::Audio>& order) const {
    requireOwn(order.source, compositionObject.audio());
    const ExportWindow window(order.range, duration(), gridBeside(order));
    const Conf::SampleInfo format = soundOf(*order.source, audioDescription);
    return Render::createSoundStream(opened(), window, format);
}

boost::intrusive_ptr<Proc::IStreamAudio> Model::sound(const Types::Range& range, const Media::Audio& audio) const {
    const ExportWindow window(range, duration(), std::nullopt);
    return Render::createSoundStream(opened(), window, soundOf(audio, audioDescription));
}

const Render::Sequence& Model::opened() const {
    if (!shown)
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::InvalidArgument,
                                         "There is nothing to export: no media file has been opened"));
    return *shown;
}

Model::Rate Model::rateOf(const Media::Video& description) const {
    const bool known = description.frameRateNumerator > 0 && description.frameRateDenominator > 0;
    const Media::Video& chosen = known ? description : videoDescription;
    return Rate(chosen.frameRateNumerator, chosen.frameRateDenominator);
}

std::optional<FrameGrid> Model::gridBeside(const Adoption<Media::Audio>& sound) const {
    const ExportSession& session = *sound.session;
    const bool together = session.pictures && session.range == sound.range;
    return together ? std::optional(FrameGrid(rateOf(*session.pictures))) : std::nullopt;
}

StreamLengths Model::lengths(const Types::Range& range, const Media::Video* video, const Media::Audio* audio) const {
    const auto frameGrid = video ? std::optional(FrameGrid(rateOf(*video))) : std::nullopt;
    const ExportWindow window(range, duration(), frameGrid);
    StreamLengths lengths;
    lengths.start = window.start().Value();
    lengths.end = window.end().Value();
    if (video) {
        lengths.videoFrames = window.frames().Value();
        lengths.videoDuration = frameGrid->Length(window.frames()).Value();
    }
    if (audio) {
        const SampleGrid grid(soundOf(*audio, audioDescription).GetRate());
        lengths.audioSamples = window.samples(grid).Value();
        lengths.audioDuration = grid.Length(window.samples(grid)).Value();
    }
    return lengths;
}

void Model::compositionChanged(const Composition::Object* object, const Composition::Object* before) {
    // The user of a stream takes its description out of the composition when it goes, and says nothing of the stream.
    for (const Media::Video* description : before->exportedVideos())
        if (!object->contains(description))
            videos.forgetSource(description);
    for (const Media::Audio* description : before->exportedAudios())
        if (!object->contains(description))
            audios.forgetSource(description);
}

} // namespace Project

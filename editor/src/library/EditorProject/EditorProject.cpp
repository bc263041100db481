// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorProject/EditorProject.h"

#include "EditorProject/Descriptions.h"
#include "EditorProject/ExportWindow.h"
#include "EditorProject/Model.h"
#include "Render/Programme.h"
#include "Render/SequenceMedia.h"
#include "Types/Time.h"
#include <algorithm>
#include <set>
#include <string>
#include <tuple>

struct EDITORPROJECT_NO_EXPORT EditorProject::Private {
    explicit Private(EditorProject* owner)
        : project(owner)
        , model([this] { buildLater(); }) {}

    /// One step a turn of the event loop, never inside the delivery that ordered it.
    void buildLater() {
        if (!std::exchange(pending, true))
            QMetaObject::invokeMethod(
                project, [this] { build(); }, Qt::QueuedConnection);
    }
    void build();
    std::vector<std::shared_ptr<Render::MediaPool>> pools() const {
        return model.sequence() ? model.sequence()->pools() : std::vector<std::shared_ptr<Render::MediaPool>>();
    }
    std::vector<Render::MediaPool::Source> sources() const;
    /// False for what another opening of the same file, for another of its sound tracks, has told already.
    bool isNews(const Kestra::ioPath& path, std::int64_t time, const std::string& what) {
        const bool once = model.sequence()->furtherSounds.empty();
        return once || told.emplace(path.ToUtf8(), time, what).second;
    }

    EditorProject* project;
    bool pending = false;
    std::set<std::tuple<std::string, std::int64_t, std::string>> told; ///< of media
    std::exception_ptr error;
    Project::Model model;
};

std::vector<Render::MediaPool::Source> EditorProject::Private::sources() const {
    std::vector<Render::MediaPool::Source> all;
    for (const auto& pool : pools())
        for (const Render::MediaPool::Source& source : pool->sources())
            if (std::find(all.begin(), all.end(), source) == all.end())
                all.push_back(source);
    return all;
}

void EditorProject::Private::build() {
    pending = false;
    if (!model.hasOrders())
        return;
    buildLater(); // before the step: a receiver may destroy the project in it
    try {
        model.step();
    } catch (...) {
        error = std::current_exception();
        const std::exception_ptr reported = error;
        Q_EMIT project->streamFailed(reported);
    }
}

EditorProject::EditorProject(QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>(this)) {}

EditorProject::~EditorProject() = default;

void EditorProject::open(const std::vector<Kestra::ioPath>& media, const std::atomic<bool>* interrupted,
                         const Kestra::Proc::MediaLimits& limits) {
    show(Render::Sequence::ofFiles(media, interrupted, limits));
}

void EditorProject::show(Render::Sequence sequence) {
    d->model.show(std::move(sequence));
    d->told.clear();
}

void EditorProject::describe(const Types::Range& range) {
    d->model.describe(range);
}

void EditorProject::tapPictures(std::shared_ptr<Kestra::Proc::PictureBox> box) {
    d->model.tapPictures(std::move(box));
}

Composition::Object* EditorProject::composition() {
    return d->model.composition();
}

const Media::Video& EditorProject::video() const {
    return d->model.video();
}

const Media::Audio& EditorProject::audio() const {
    return d->model.audio();
}

KTime EditorProject::duration() const {
    return Types::fromAvTime(exactDuration());
}

std::int64_t EditorProject::exactDuration() const {
    const Render::Sequence* const sequence = d->model.sequence();
    return sequence ? sequence->document->duration().Value() : 0;
}

bool EditorProject::hasPictures() const {
    return d->model.sequence() && Render::hasAny(*d->model.sequence(), Timeline::Track::Kind::Video);
}

bool EditorProject::hasSound() const {
    return d->model.sequence() && Render::hasAny(*d->model.sequence(), Timeline::Track::Kind::Audio);
}

std::optional<KTime> EditorProject::placeOf(const Kestra::ioPath& file, std::int64_t time, KTime from, KTime to) const {
    using Kestra::Ticks;
    if (!d->model.sequence())
        return std::nullopt;
    const auto place = Render::placeOf(*d->model.sequence(), file, Ticks(time), Ticks(Types::toAvTime(from)),
                                       Ticks(Types::toAvTime(to)));
    return place ? std::optional(Types::fromAvTime(place->Value())) : std::nullopt;
}

std::vector<Kestra::ioPath> EditorProject::sourcePaths() const {
    std::vector<Kestra::ioPath> paths;
    for (const auto& source : d->sources())
        if (std::find(paths.begin(), paths.end(), source->GetPath()) == paths.end())
            paths.push_back(source->GetPath());
    return paths;
}

std::vector<Project::SeenPictures> EditorProject::picturesIn(const Types::Range& streamRange) const {
    return d->model.sequence() ? Project::picturesIn(*d->model.sequence(), streamRange)
                               : std::vector<Project::SeenPictures>();
}

std::vector<Project::HeardSound> EditorProject::soundsIn(const Types::Range& streamRange) const {
    return d->model.sequence() ? Project::soundsIn(*d->model.sequence(), streamRange)
                               : std::vector<Project::HeardSound>();
}

Project::StreamLengths EditorProject::expectedLengths(const Types::Range& streamRange, const Media::Video* video,
                                                      const Media::Audio* audio) const {
    return d->model.lengths(streamRange, video, audio);
}

boost::intrusive_ptr<Kestra::Proc::IStreamAudio> EditorProject::soundOf(const Types::Range& streamRange,
                                                                        const Media::Audio& audio) const {
    return d->model.sound(streamRange, audio);
}

Kestra::Conf::ProgrammeInfo EditorProject::programme(const Types::Range& streamRange) const {
    const Render::Sequence* const sequence = d->model.sequence();
    if (!sequence)
        return {};
    const Project::ExportWindow window(streamRange, sequence->document->duration(), std::nullopt);
    return Render::programmeOf(*sequence, window);
}

std::vector<Kestra::Proc::DamageReport> EditorProject::takeDamageReports() {
    std::vector<Kestra::Proc::DamageReport> reports;
    for (const auto& source : d->sources())
        for (Kestra::Proc::DamageReport& report : source->TakeDamageReports())
            if (d->isNews(report.path, report.time, report.what))
                reports.push_back(std::move(report));
    return reports;
}

std::vector<Kestra::Proc::SourceNote> EditorProject::takeNotes() {
    std::vector<Kestra::Proc::SourceNote> notes;
    for (const auto& pool : d->pools())
        for (Kestra::Proc::SourceNote& note : pool->takeNotes())
            if (d->isNews(note.path, 0, note.what))
                notes.push_back(std::move(note));
    return notes;
}

std::vector<Kestra::ioPath> EditorProject::pathsBeingRead() const {
    std::vector<Kestra::ioPath> paths;
    for (const auto& source : d->sources())
        if (source->IsBeingRead() && std::find(paths.begin(), paths.end(), source->GetPath()) == paths.end())
            paths.push_back(source->GetPath());
    return paths;
}

std::exception_ptr EditorProject::streamError() const {
    return d->error;
}

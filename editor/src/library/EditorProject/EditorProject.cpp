#include "EditorProject/EditorProject.h"

#include "EditorProject/Model.h"
#include "Types/Time.h"

struct EditorProject::Private {
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

    EditorProject* project;
    bool pending = false;
    std::exception_ptr error;
    Project::Model model;
};

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
    show(Project::Timeline::open(media, interrupted, limits));
}

void EditorProject::show(std::shared_ptr<const Project::Timeline> timeline) {
    d->model.show(std::move(timeline));
}

void EditorProject::describe(const Types::Range& range) {
    d->model.describe(range);
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
    return d->model.timeline() ? d->model.timeline()->duration() : 0;
}

std::vector<Project::Clip> EditorProject::clips() const {
    return d->model.timeline() ? d->model.timeline()->clips() : std::vector<Project::Clip>();
}

std::vector<Kestra::ioPath> EditorProject::sourcePaths() const {
    std::vector<Kestra::ioPath> paths;
    if (d->model.timeline())
        for (const auto& source : d->model.timeline()->sources())
            paths.push_back(source->GetPath());
    return paths;
}

Project::StreamLengths EditorProject::expectedLengths(const Types::Range& streamRange, const Media::Video* video,
                                                      const Media::Audio* audio) const {
    return d->model.lengths(streamRange, video, audio);
}

std::vector<Kestra::Proc::DamageReport> EditorProject::takeDamageReports() {
    std::vector<Kestra::Proc::DamageReport> reports;
    if (d->model.timeline())
        for (const auto& source : d->model.timeline()->sources())
            for (Kestra::Proc::DamageReport& report : source->TakeDamageReports())
                reports.push_back(std::move(report));
    return reports;
}

std::vector<Kestra::Proc::SourceNote> EditorProject::takeNotes() {
    std::vector<Kestra::Proc::SourceNote> notes;
    if (d->model.timeline())
        for (const auto& source : d->model.timeline()->sources())
            for (Kestra::Proc::SourceNote& note : source->TakeNotes())
                notes.push_back(std::move(note));
    return notes;
}

std::vector<Kestra::ioPath> EditorProject::pathsBeingRead() const {
    std::vector<Kestra::ioPath> paths;
    if (d->model.timeline())
        for (const auto& source : d->model.timeline()->sources())
            if (source->IsBeingRead())
                paths.push_back(source->GetPath());
    return paths;
}

std::exception_ptr EditorProject::streamError() const {
    return d->error;
}

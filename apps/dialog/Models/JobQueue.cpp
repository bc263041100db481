// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/JobQueue.h"

#include "ExportCore/ExportJob.h"
#include "dialog/Models/PlainTip.h"
#include <QMimeData>
#include <algorithm>
#include <memory>
#include <utility>

namespace Dialog {

using ExportCore::ExportJob;

namespace {

const char* const JOB_TYPE = "application/x-editor-export-job";

} // namespace

JobQueue::JobQueue(QObject* parent)
    : QAbstractTableModel(parent) {}

JobQueue::~JobQueue() = default;

int JobQueue::add(const Job& wanted) {
    Job job;
    job.id = ++lastId;
    job.request = wanted.request;
    job.preset = wanted.preset;
    job.sequence = wanted.sequence;
    job.place = wanted.place;
    const auto row = static_cast<int>(jobs.size());
    beginInsertRows({}, row, row);
    jobs.push_back(job);
    endInsertRows();
    beginLater();
    return job.id;
}

void JobQueue::start() {
    if (waiting() == 0 || started)
        return;
    started = true;
    go();
}

void JobQueue::call(int id) {
    Job* const job = find(id);
    if (!job || job->state != Job::State::Waiting)
        return;
    job->called = true;
    tell(id);
    go();
}

void JobQueue::go() {
    beginLater();
    if (!std::exchange(going, true))
        Q_EMIT began();
}

void JobQueue::rest() {
    started = going = false;
    Q_EMIT emptied();
}

void JobQueue::stop(int id) {
    Job* const job = find(id);
    if (!job)
        return;
    if (job->state == Job::State::Waiting)
        return remove(id);
    if (job->state != Job::State::Running)
        return;
    job->state = Job::State::Stopping;
    tell(id);
    run->stop();
}

void JobQueue::stopAll() {
    for (int row = rowCount() - 1; row >= 0; --row)
        stop(at(row).id);
}

void JobQueue::remove(int id) {
    const int row = rowOf(id);
    if (row < 0 || at(row).isRunning())
        return;
    beginRemoveRows({}, row, row);
    jobs.erase(jobs.begin() + row);
    endRemoveRows();
}

/// The nearest one that waits; -1 where none does.
int JobQueue::rowBeside(int row, Step step) const {
    const int by = step == Step::Up ? -1 : 1;
    for (int other = row + by; other >= 0 && other < rowCount(); other += by)
        if (waitsAt(other))
            return other;
    return -1;
}

bool JobQueue::canMove(int id, Step step) const {
    const int row = rowOf(id);
    return row >= 0 && waitsAt(row) && rowBeside(row, step) >= 0;
}

void JobQueue::move(int id, Step step) {
    if (!canMove(id, step))
        return;
    const int row = rowOf(id);
    const auto [first, last] = std::minmax({row, rowBeside(row, step)});
    beginMoveRows({}, last, last, {}, first);
    std::rotate(jobs.begin() + first, jobs.begin() + last, jobs.begin() + last + 1);
    endMoveRows();
    if (last - first < 2)
        return;
    // Between them stands what has to stay.
    beginMoveRows({}, first + 1, first + 1, {}, last + 1);
    std::rotate(jobs.begin() + first + 1, jobs.begin() + first + 2, jobs.begin() + last + 1);
    endMoveRows();
}

const Job* JobQueue::job(int id) const {
    const int row = rowOf(id);
    return row < 0 ? nullptr : &at(row);
}

Job* JobQueue::find(int id) {
    const int row = rowOf(id);
    return row < 0 ? nullptr : &jobs[static_cast<std::size_t>(row)];
}

int JobQueue::rowOf(int id) const {
    const auto found = std::find_if(jobs.begin(), jobs.end(), [id](const Job& job) { return job.id == id; });
    return found == jobs.end() ? -1 : static_cast<int>(found - jobs.begin());
}

const Job* JobQueue::running() const {
    return run ? job(runId) : nullptr;
}

int JobQueue::waiting() const {
    return static_cast<int>(
        std::count_if(jobs.begin(), jobs.end(), [](const Job& job) { return job.state == Job::State::Waiting; }));
}

bool JobQueue::needsStart() const {
    return std::any_of(jobs.begin(), jobs.end(),
                       [this](const Job& job) { return job.state == Job::State::Waiting && !begins(job); });
}

bool JobQueue::isOrdered(const QString& place) const {
    return std::any_of(jobs.begin(), jobs.end(),
                       [&place](const Job& job) { return job.state != Job::State::Ended && job.place == place; });
}

std::shared_ptr<Kestra::Proc::PictureBox> JobQueue::pictures() const {
    return run ? pictureBox : nullptr;
}

bool JobQueue::failInEventLoop(const std::exception_ptr& error, QObject* receiver) {
    if (!run)
        return false;
    run->failInEventLoop(error, receiver);
    return true;
}

void JobQueue::beginLater() {
    if (!run && next() != jobs.end() && !std::exchange(beginning, true))
        QMetaObject::invokeMethod(this, &JobQueue::begin, Qt::QueuedConnection);
}

std::vector<Job>::iterator JobQueue::next() {
    return std::find_if(jobs.begin(), jobs.end(),
                        [this](const Job& job) { return job.state == Job::State::Waiting && begins(job); });
}

void JobQueue::begin() {
    beginning = false;
    if (run)
        return;
    const auto first = next();
    if (first == jobs.end()) // taken out meanwhile
        return rest();
    first->state = Job::State::Running;
    runId = first->id;
    run = std::make_unique<ExportJob>(first->request);
    pictureBox = run->watchPictures();
    connect(run.get(), &ExportJob::started, this, &JobQueue::onStarted);
    connect(run.get(), &ExportJob::progressChanged, this, &JobQueue::onProgress);
    connect(run.get(), &ExportJob::finished, this, &JobQueue::onFinished);
    run->start();
    tell(runId);
}

void JobQueue::onStarted() {
    find(runId)->started = true;
    tell(runId);
}

void JobQueue::onProgress(const ExportCore::ExportProgress& progress) {
    find(runId)->progress = progress;
    tell(runId);
}

void JobQueue::onFinished(const ExportCore::ExportOutcome& outcome) {
    Job& job = *find(runId);
    job.state = Job::State::Ended;
    job.outcome = outcome;
    run->setParent(this);
    run.release()->deleteLater(); // this is one of its signals
    pictureBox.reset();
    const int ended = runId;
    tell(ended);
    Q_EMIT jobEnded(ended);
    if (next() == jobs.end())
        return rest();
    beginLater();
}

void JobQueue::tell(int id) {
    const int row = rowOf(id);
    Q_EMIT dataChanged(index(row, 0), index(row, COLUMNS - 1));
    Q_EMIT jobChanged(id);
}

int JobQueue::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(jobs.size());
}

int JobQueue::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : COLUMNS;
}

QVariant JobQueue::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Job& job = at(index.row());
    if (role == ROLE_PERCENT)
        return job.isRunning() ? job.progress.percent : -1;
    if (role == Qt::ToolTipRole)
        return PlainTip::of({index.column() == COLUMN_PRESET ? job.preset : job.request.outputPath});
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
        return {};
    switch (index.column()) {
    case COLUMN_NAME:
        return job.name();
    case COLUMN_PRESET:
        return job.preset;
    default:
        return job.stateText();
    }
}

Qt::ItemFlags JobQueue::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::ItemIsDropEnabled; // between rows, not onto them
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return waitsAt(index.row()) ? usual | Qt::ItemIsDragEnabled : usual;
}

QStringList JobQueue::mimeTypes() const {
    return {QLatin1String(JOB_TYPE)};
}

QMimeData* JobQueue::mimeData(const QModelIndexList& indexes) const {
    for (const QModelIndex& index : indexes)
        if (waitsAt(index.row())) {
            auto data = std::make_unique<QMimeData>();
            data->setData(QLatin1String(JOB_TYPE), QByteArray::number(at(index.row()).id));
            return data.release();
        }
    return nullptr;
}

bool JobQueue::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                            const QModelIndex& parent) {
    if (!canDropMimeData(data, action, row, column, parent))
        return false;
    const int id = data->data(QLatin1String(JOB_TYPE)).toInt();
    const int wanted = row < 0 ? rowCount() : row; // behind all of them
    const auto goesOn = [&](Step step) {
        const int own = rowOf(id);
        const int other = own < 0 ? -1 : rowBeside(own, step);
        return canMove(id, step) && (step == Step::Up ? other >= wanted : other < wanted);
    };
    for (const Step step : {Step::Up, Step::Down})
        while (goesOn(step))
            move(id, step);
    return true;
}

QVariant JobQueue::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case COLUMN_NAME:
        return tr("File");
    case COLUMN_PRESET:
        return tr("Preset");
    default:
        return tr("State");
    }
}

} // namespace Dialog

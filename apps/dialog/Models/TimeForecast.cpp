// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/TimeForecast.h"

#include "ExportCore/ExportJob.h"
#include <QStringList>

namespace Dialog {

using ExportCore::ExportJob;
using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;

namespace {

constexpr std::chrono::milliseconds PAUSE{1000};

QString joined(const QStringList& words) {
    return words.join(QChar(QChar::Null));
}

/// What decides how long a second of it takes. Neither the part that is exported nor the place of the file does.
QString paceNameOf(const ExportRequest& request) {
    QStringList words = request.inputs;
    words << QString::fromStdString(request.presetId) << QString::fromStdString(request.quality.value_or(""));
    for (const std::string& setting : request.settings)
        words << QString::fromStdString(setting);
    words << request.brandingName << QString::number(static_cast<int>(request.tracks.sound))
          << QString::number(request.tracks.picture ? 1 : 0)
          << QString::number(static_cast<int>(request.timelines.missing))
          << QString::fromStdString(request.timelines.mediaRoot);
    return joined(words);
}

QString nameOf(const std::optional<ExportCore::TimePoint>& point) {
    return point ? QString::number(point->time.milliseconds()) : QString();
}

/// What decides how large it becomes, wherever it is put.
QString sizeNameOf(const ExportRequest& request) {
    return joined({paceNameOf(request), nameOf(request.in), nameOf(request.out)});
}

QString nameOf(const ExportRequest& request) {
    return joined({sizeNameOf(request), request.outputPath});
}

} // namespace

TimeForecast::TimeForecast(QObject* parent)
    : QObject(parent) {
    timer.setSingleShot(true);
    timer.setInterval(PAUSE);
    connect(&timer, &QTimer::timeout, this, &TimeForecast::begin);
}

TimeForecast::~TimeForecast() = default;

void TimeForecast::setInputs(const QStringList& files, const std::vector<ExportCore::FileMark>& marks) {
    const auto [seen, isFirst] = inputs.emplace(files, marks);
    if (isFirst || seen->second == marks)
        return;
    seen->second = marks;
    known.clear();
    sizes.clear();
    futile.clear();
}

void TimeForecast::consider(const std::optional<ExportRequest>& request, KTime length) {
    const QString name = request ? nameOf(*request) : QString();
    if (name == consideredName)
        return;
    interrupt();
    timer.stop();
    considered = request;
    consideredLength = length;
    consideredName = name;
    const bool isNews = request && length > KTime(0) && !known.contains(paceNameOf(*request)) && !futile.contains(name);
    if (isNews)
        timer.start();
}

void TimeForecast::learn(const ExportRequest& request, double speed) {
    if (speed > 0)
        known.insert(paceNameOf(request), {1 / speed, false});
}

std::optional<TimeForecast::Time> TimeForecast::of(const ExportRequest& request, KTime length) const {
    const auto pace = known.constFind(paceNameOf(request));
    if (pace == known.constEnd())
        return std::nullopt;
    return Time{static_cast<qint64>(static_cast<double>(length.milliseconds()) * pace->cost), pace->rough};
}

std::optional<ExportCore::OutputEstimate> TimeForecast::sizeOf(const ExportRequest& request) const {
    const auto tried = sizes.constFind(sizeNameOf(request));
    return tried == sizes.constEnd() ? std::nullopt : std::optional(*tried);
}

bool TimeForecast::failInEventLoop(const std::exception_ptr& error, QObject* receiver) {
    if (!trial)
        return false;
    trial->failInEventLoop(error, receiver);
    return true;
}

void TimeForecast::begin() {
    ExportRequest request = *considered;
    request.dryRun = true;
    request.overwrite = true; // it has been asked about, or will be, and a trial replaces nothing
    trial = std::make_unique<ExportJob>(request);
    connect(trial.get(), &ExportJob::finished, this, &TimeForecast::onFinished);
    trial->start();
    Q_EMIT trialBegan();
}

void TimeForecast::onFinished(const ExportOutcome& outcome) {
    trial->setParent(this);
    trial.release()->deleteLater(); // this is one of its signals
    const bool wasTried = outcome.status == ExportOutcome::Status::Planned && outcome.plan;
    if (wasTried)
        sizes.insert(sizeNameOf(*considered), outcome.plan->estimate);
    if (wasTried && outcome.plan->exportMs > 0)
        known.insert(
            paceNameOf(*considered),
            {static_cast<double>(outcome.plan->exportMs) / static_cast<double>(consideredLength.milliseconds()), true});
    else
        futile.insert(consideredName);
    Q_EMIT trialEnded();
}

/// Nobody waits for its end, at which it goes.
void TimeForecast::interrupt() {
    if (!trial)
        return;
    ExportJob* const ending = trial.release();
    ending->disconnect(this);
    ending->setParent(this);
    connect(ending, &ExportJob::finished, ending, &QObject::deleteLater);
    ending->stop();
}

} // namespace Dialog

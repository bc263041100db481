// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/Job.h"

#include "ExportCore/PlainText.h"
#include "dialog/Models/PeoplesText.h"
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace Dialog {

using Status = ExportCore::ExportOutcome::Status;

bool Job::hasFailed() const {
    return outcome && (outcome->status == Status::Failed || outcome->status == Status::Refused);
}

QString Job::name() const {
    return QString::fromStdString(
        ExportCore::PlainText::escaped(QFileInfo(QDir::cleanPath(request.outputPath)).fileName().toStdString()));
}

QString Job::stateText() const {
    switch (state) {
    case State::Waiting:
        return tr("Waiting");
    case State::Running:
        return !started ? tr("Starting") : progress.percent < 100 ? tr("%1 %").arg(progress.percent) : tr("Checking");
    case State::Stopping:
        return tr("Stopping");
    case State::Ended:
        break;
    }
    if (!outcome || outcome->status == Status::Stopped)
        return tr("Stopped");
    if (!isDone())
        return tr("Failed");
    return outcome->warnings.isEmpty() ? tr("Done") : tr("Done, with warnings");
}

QStringList Job::stateTexts() {
    return {tr("Waiting"), tr("Starting"), tr("Checking"), tr("Stopping"),
            tr("Stopped"), tr("Failed"),   tr("Done"),     tr("Done, with warnings")};
}

QString Job::progressText() const {
    if (!isRunning())
        return {};
    QStringList parts{stateText()};
    if (progress.speed > 0)
        parts << tr("%1 × real time").arg(QLocale().toString(progress.speed, 'f', progress.speed < 10 ? 2 : 0));
    if (state == State::Running && progress.remainingMs >= 0 && progress.percent < 100)
        parts << tr("%1 left").arg(PeoplesText::about(progress.remainingMs));
    return parts.join(QStringLiteral(" · "));
}

} // namespace Dialog

// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::TimeForecast: how long an export is going to take.
#pragma once

#include "ExportCore/ExportRequest.h"
#include "ExportCore/FileMark.h"
#include "ExportCore/OutputEstimate.h"
#include "KTime/KTime.h"
#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>
#include <chrono>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace ExportCore {
class ExportJob;
struct ExportOutcome;
} // namespace ExportCore

namespace Dialog {

/// Learns it from exports of the same source with the same settings: from those that were made, and, where there are
/// none, from one that is tried for a few seconds. A trial has a hidden file beside the output, which goes with it;
/// what stands at the output stays as it is.
class TimeForecast : public QObject {
    Q_OBJECT
public:
    /// Of the whole, or of a part of any length.
    struct Time {
        qint64 milliseconds;
        bool rough; ///< only tried
    };

    explicit TimeForecast(QObject* parent = nullptr);
    /// Ends a trial that is under way.
    ~TimeForecast() override;

    /// How long somebody must have changed nothing before a trial begins: a second, unless told otherwise.
    void setPause(std::chrono::milliseconds pause) { timer.setInterval(pause); }

    /// The inputs of what is considered from here on, as they were read. Where they have changed since the last time,
    /// nothing is known any more.
    void setInputs(const QStringList& files, const std::vector<ExportCore::FileMark>& marks);
    /// What is to be exported next, and how long that is. Where it is something else than before, a trial that runs is
    /// ended, and after a pause another one begins, unless it is known already what it would tell. Nothing: there must
    /// be no trial now.
    void consider(const std::optional<ExportCore::ExportRequest>& request, KTime length = {});
    /// An export was made, at so many times the speed at which it plays.
    void learn(const ExportCore::ExportRequest& request, double speed);
    /// Nothing while nothing is known.
    std::optional<Time> of(const ExportCore::ExportRequest& request, KTime length) const;
    /// How large the file becomes, by a trial of that very export, wherever it was to be put; nothing where there was
    /// none.
    std::optional<ExportCore::OutputEstimate> sizeOf(const ExportCore::ExportRequest& request) const;

    /// As ExportJob::failInEventLoop() for a trial. False when there is none.
    bool failInEventLoop(const std::exception_ptr& error, QObject* receiver);

Q_SIGNALS:
    void trialBegan();
    /// of() has more to tell, or a trial ended without.
    void trialEnded();

private:
    struct Pace {
        double cost; ///< milliseconds for each one that is exported
        bool rough;
    };

    void begin();
    void onFinished(const ExportCore::ExportOutcome& outcome);
    void interrupt();

    QTimer timer{this};
    std::map<QStringList, std::vector<ExportCore::FileMark>> inputs; ///< as they were read last
    std::optional<ExportCore::ExportRequest> considered;
    KTime consideredLength;
    QString consideredName; ///< of the whole request
    std::unique_ptr<ExportCore::ExportJob> trial;
    QHash<QString, Pace> known;                       ///< by what decides the pace
    QHash<QString, ExportCore::OutputEstimate> sizes; ///< of whole requests but for the place
    QSet<QString> futile;                             ///< whole requests whose trial told nothing
};

} // namespace Dialog

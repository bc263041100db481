// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::JobQueue: exports, one after the other.
#pragma once

#include "dialog/Models/Job.h"
#include <QAbstractTableModel>
#include <exception>
#include <memory>
#include <vector>

namespace ExportCore {
class ExportJob;
}
namespace Kestra::Proc {
class PictureBox;
}

namespace Dialog {

/// Once started it runs the first one that waits whenever none runs, until none waits any more, and then rests again.
/// Before, it runs those alone that are called. The order of the list is the order in which they run; it can be changed
/// for those that wait, also by dragging them in a view. Each goes through its states once; what is tried again is
/// another one. Destruction ends the one that runs.
class JobQueue : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { COLUMN_NAME, COLUMN_PRESET, COLUMN_STATE, COLUMNS };
    enum Role {
        ROLE_PERCENT = Qt::UserRole, ///< of one that runs, else -1
    };

    enum class Step { Up, Down };

    explicit JobQueue(QObject* parent = nullptr);
    ~JobQueue() override;

    /// One that waits, with what is to be made of `wanted`; its id.
    int add(const Job& wanted);
    /// The first one begins in one of the event loop's next turns.
    void start();
    /// One that waits, and no other.
    void call(int id);
    bool isStarted() const { return started; }
    /// Whether one that waits needs no start any more.
    bool begins(const Job& job) const { return started || job.called; }
    /// Whether any waits that does.
    bool needsStart() const;
    /// Whether anything runs or is to begin.
    bool isGoing() const { return going; }
    /// One that waits is taken out of the list; one that runs ends soon; others stay as they are.
    void stop(int id);
    void stopAll();
    /// Of one that does not run.
    void remove(int id);

    /// Whether it waits and there is another one before it or behind it that does.
    bool canMove(int id, Step step) const;
    /// Those two change places, if it can. What runs or has ended stays where it is.
    void move(int id, Step step);

    /// Null for an id that is none. Until the list changes.
    const Job* job(int id) const;
    const Job& at(int row) const { return jobs[static_cast<std::size_t>(row)]; }
    /// -1 for an id that is none.
    int rowOf(int id) const;
    /// Null when none does.
    const Job* running() const;
    bool isIdle() const { return !run; }
    int waiting() const;
    /// Whether that is a Job::place of one that runs or waits.
    bool isOrdered(const QString& place) const;
    /// What the one that runs shows; null when none does.
    std::shared_ptr<Kestra::Proc::PictureBox> pictures() const;
    /// As ExportJob::failInEventLoop(); false when nothing runs that it could concern.
    bool failInEventLoop(const std::exception_ptr& error, QObject* receiver);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    QStringList mimeTypes() const override;
    /// Of the first of them that waits; null where none does.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// Moves it among those that wait, as near to that row as it goes.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

Q_SIGNALS:
    /// Anything of it.
    void jobChanged(int id);
    void jobEnded(int id);
    /// Something is to begin where nothing did; emptied() follows.
    void began();
    /// Nothing runs any more, and nothing that waits begins by itself.
    void emptied();

private:
    bool waitsAt(int row) const { return at(row).state == Job::State::Waiting; }
    int rowBeside(int row, Step step) const;
    Job* find(int id);
    std::vector<Job>::iterator next();
    void go();
    void rest();
    void beginLater();
    void begin();
    void onStarted();
    void onProgress(const ExportCore::ExportProgress& progress);
    void onFinished(const ExportCore::ExportOutcome& outcome);
    void tell(int id);

    std::vector<Job> jobs;
    int lastId = 0;
    std::unique_ptr<ExportCore::ExportJob> run;
    std::shared_ptr<Kestra::Proc::PictureBox> pictureBox;
    int runId = 0;
    bool started = false;
    bool going = false;
    bool beginning = false;
};

} // namespace Dialog

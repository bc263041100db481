// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::JobPane: the exports, and one of them as it goes on.
#pragma once

#include "dialog/Models/JobQueue.h"
#include <QWidget>
#include <memory>

class QAction;
class QPushButton;

namespace Dialog {

namespace Ui {
class JobPane;
}
class PreviewMaker;
struct Job;

class JobPane : public QWidget {
    Q_OBJECT
public:
    explicit JobPane(QWidget* parent = nullptr);
    ~JobPane() override;

    /// Once. Borrowed; it may go before the pane, which then shows nothing new.
    void setQueue(JobQueue& shown);
    void select(int id);
    /// In the list, whichever is selected.
    void bringIntoView(int id);
    /// 0 when none is selected.
    int selected() const;

Q_SIGNALS:
    /// Somebody wishes it; nothing has been asked yet.
    void stopWanted(int id);
    void retryWanted(int id);
    void changeWanted(int id);
    void fileWanted(const QString& path);
    void folderWanted(const QString& path);

protected:
    void changeEvent(QEvent* event) override;

private:
    void widenForStates();
    void connectButtons();
    void prepareMoves();
    void nameMoves();
    void moveSelected(JobQueue::Step step);
    void showMoves();
    void showSelected();
    void showWaiting(const Job& job);
    void showRunning(const Job& job);
    void showEnded(const Job& job);
    void showDetails(bool visible);
    void showStart();

    const std::unique_ptr<Ui::JobPane> ui;
    JobQueue* queue = nullptr;
    PreviewMaker* preview;
    QAction* upAction;
    QAction* downAction;
    int shownId = 0; ///< whose end is shown
};

} // namespace Dialog

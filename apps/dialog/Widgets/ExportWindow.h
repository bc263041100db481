// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::ExportWindow: the export window.
#pragma once

#include "dialog/Models/DesktopSession.h"
#include "dialog/Models/ExportForm.h"
#include "dialog/Models/JobQueue.h"
#include "dialog/Models/OutputLook.h"
#include "dialog/Models/TimeForecast.h"
#include <QMainWindow>
#include <QMessageBox>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace ExportCore {
class EventLoopFailures;
}

namespace Dialog {

namespace Ui {
class ExportWindow;
}

/// Opens what is to be exported, has an export chosen, runs a queue of them. Nothing in it waits: files and folders are
/// looked at on other threads, and questions leave the event loop running.
class ExportWindow : public QMainWindow {
    Q_OBJECT
public:
    /// `failures` is borrowed and outlives it. Throws ExportCore::Refusal when the presets cannot be read.
    explicit ExportWindow(ExportCore::EventLoopFailures& failures, QWidget* parent = nullptr);
    ~ExportWindow() override;

    void open(const QStringList& files);
    /// Stops whatever runs or waits, closes without asking, and tells ended().
    void end();

Q_SIGNALS:
    /// Somebody wished the end, and nothing runs any more.
    void ended();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    enum class When { Now, WhenStarted };
    /// What is to be added to the list once it is known what stands at its place.
    struct Order {
        Job job;
        ExportForm::Choice choice;
        When when = When::Now;
        bool isOfForm = true; ///< else of an export that is made again
    };
    /// A question with a way back, which is also what Escape means.
    struct Question {
        QString title;
        QString text;
        QString yes;
        QString no;
        std::function<void()> act;
    };

    void takeRoom();
    void moveUp();
    void connectForm();
    void connectQueue();
    void browse();
    void browseMedia();
    void showJobs();
    void showSource();
    void showProblem();
    void showTitle();
    void order(When when);
    void tryAgain(int id);
    void change(int id);
    void takeOrder(const Order& order);
    void dropOrder();
    void forgetOrder();
    void onLooked(const OutputState& state);
    void takeFound();
    void goOnWith(const OutputState& state);
    void openAnew();
    static QString twice(const OutputState& state);
    void addJob(const Order& order, bool overwrite);
    void askToStop(int id);
    void askToClose();
    void stopRunning();
    void ask(const Question& question);
    void closeQuestion();
    void hideAll();
    void tell(QMessageBox::Icon icon, const QString& text);
    bool isOwn(const QObject* object) const;
    void onJobEnded(int id);
    void onFailure(const std::exception_ptr& error, QObject* receiver);
    void showTime();
    void considerTrial();

    const std::unique_ptr<Ui::ExportWindow> ui;
    ExportForm form{this};
    JobQueue queue;
    std::map<int, ExportForm::Choice> choices; ///< of all that was ordered, by the job
    DesktopSession desktop;
    OutputLook look{this};
    TimeForecast times{this};
    std::optional<Order> ordered;     ///< while it is being looked what stands at its place, or closing is asked
    std::optional<OutputState> found; ///< at that place, while closing is asked
    bool closing = false;             ///< when the exports have ended; nothing more is ordered
    bool over = false;                ///< ended() was told
    QPointer<QMessageBox> question;
    int stopAskedFor = 0; ///< the job
    bool closeAsked = false;
};

} // namespace Dialog

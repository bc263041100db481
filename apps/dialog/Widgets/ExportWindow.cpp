// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/ExportWindow.h"

#include "ExportCore/EventLoopFailures.h"
#include "ExportCore/PlainText.h"
#include "dialog/Models/OutcomeText.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/PlainTip.h"
#include "dialog/Models/PresetText.h"
#include "ui_ExportWindow.h"
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace Dialog {

ExportWindow::ExportWindow(ExportCore::EventLoopFailures& failures, QWidget* parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui::ExportWindow>()) {
    ui->setupUi(this);
    ui->presetPane->setForm(form);
    ui->settingsPane->setForm(form);
    ui->jobPane->setQueue(queue);
    ui->jobPane->hide();
    takeRoom();
    ui->setupSplitter->setStretchFactor(0, 2);
    ui->setupSplitter->setStretchFactor(1, 3);
    ui->mainSplitter->setStretchFactor(0, 1);
    ui->mainSplitter->setStretchFactor(1, 0);
    connectForm();
    connectQueue();
    connect(&failures, &ExportCore::EventLoopFailures::caught, this, &ExportWindow::onFailure);
    showSource();
    showProblem();
    showTitle();
    ui->openButton->setFocus();
}

ExportWindow::~ExportWindow() {
    hideAll();
    queue.disconnect(this);
}

void ExportWindow::connectForm() {
    connect(ui->openButton, &QPushButton::clicked, this, &ExportWindow::browse);
    connect(ui->blackButton, &QPushButton::clicked, &form.source(), &SourceMedia::openWithBlack);
    connect(ui->mediaButton, &QPushButton::clicked, this, &ExportWindow::browseMedia);
    connect(&form, &ExportForm::sourceChanged, this, &ExportWindow::showSource);
    connect(&form, &ExportForm::changed, this, &ExportWindow::dropOrder);
    connect(&form, &ExportForm::changed, this, &ExportWindow::showProblem);
    connect(&form, &ExportForm::changed, this, &ExportWindow::showTime);
    connect(&form, &ExportForm::changed, this, &ExportWindow::considerTrial);
    connect(&times, &TimeForecast::trialEnded, this, &ExportWindow::showTime);
    connect(ui->exportButton, &QPushButton::clicked, this, [this] { order(When::Now); });
    connect(ui->addButton, &QPushButton::clicked, this, [this] { order(When::WhenStarted); });
    connect(&look, &OutputLook::looked, this, &ExportWindow::onLooked);
}

void ExportWindow::connectQueue() {
    connect(ui->jobPane, &JobPane::stopWanted, this, &ExportWindow::askToStop);
    connect(ui->jobPane, &JobPane::retryWanted, this, &ExportWindow::tryAgain);
    connect(ui->jobPane, &JobPane::changeWanted, this, &ExportWindow::change);
    connect(ui->jobPane, &JobPane::fileWanted, this,
            [](const QString& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    connect(ui->jobPane, &JobPane::folderWanted, &desktop, &DesktopSession::showInFolder);
    connect(&queue, &JobQueue::jobChanged, this, &ExportWindow::showTitle);
    connect(&queue, &JobQueue::jobEnded, this, &ExportWindow::onJobEnded);
    connect(&queue, &JobQueue::jobChanged, this, &ExportWindow::considerTrial);
    connect(&queue, &JobQueue::began, this, [this] {
        desktop.keepAwake(true, tr("A film is being exported"));
        considerTrial();
    });
    connect(&queue, &JobQueue::emptied, this, [this] {
        desktop.keepAwake(false, {});
        if (closing)
            return end();
        if (closeAsked)
            closeQuestion();
        considerTrial();
    });
    connect(&queue, &JobQueue::rowsInserted, this, &ExportWindow::showJobs);
    connect(&queue, &JobQueue::rowsRemoved, this, [this] { ui->jobPane->setVisible(queue.rowCount() > 0); });
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &ExportWindow::stopRunning);
}

void ExportWindow::open(const QStringList& files) {
    form.source().open(files);
}

void ExportWindow::browse() {
    auto* const dialog = new QFileDialog(this, tr("Open what is to be exported"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    connect(dialog, &QFileDialog::filesSelected, this, &ExportWindow::open);
    dialog->open();
}

void ExportWindow::browseMedia() {
    auto* const dialog = new QFileDialog(this, tr("Folder in which the missing media are looked for"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, &form.source(), &SourceMedia::openWithMediaIn);
    dialog->open();
}

void ExportWindow::showSource() {
    const SourceMedia& source = form.source();
    const auto state = source.state();
    if (source.isReady())
        times.setInputs(source.paths(), source.fileMarks());
    ui->sourceName->setText(state == SourceMedia::State::Empty ? tr("Nothing is open") : source.name());
    ui->sourceName->setToolTip(PlainTip::of(source.paths()));
    ui->sourceFacts->setText(state == SourceMedia::State::Empty     ? tr("Drop media files or a timeline here")
                             : state == SourceMedia::State::Opening ? tr("Opening…")
                                                                    : source.facts());
    QStringList messages;
    if (state == SourceMedia::State::Refused)
        messages << source.whyRefused();
    messages << source.warnings();
    if (const QString warning = form.catalogueWarning(); !warning.isEmpty())
        messages << warning;
    constexpr int most = 4;
    const int more = messages.size() - most;
    QString text = messages.mid(0, most).join(QLatin1Char('\n'));
    if (more > 0)
        text += QLatin1Char('\n') + tr("and %n more", nullptr, more);
    ui->messageLabel->setText(text);
    const auto icon =
        state == SourceMedia::State::Refused ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxWarning;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    ui->messageIcon->setPixmap(style()->standardIcon(icon).pixmap(size, size));
    ui->blackButton->setVisible(source.lacksMedia());
    ui->mediaButton->setVisible(source.lacksMedia());
    ui->messageFrame->setVisible(!messages.isEmpty());
}

void ExportWindow::showProblem() {
    const QString problem = form.problem();
    ui->problemLabel->setText(ordered ? tr("Looking what stands at the file's place…") : problem);
    ui->exportButton->setEnabled(problem.isEmpty() && !ordered);
    ui->addButton->setEnabled(problem.isEmpty() && !ordered);
}

void ExportWindow::showTitle() {
    const Job* const job = queue.running();
    if (!job)
        return setWindowTitle(tr("Export"));
    setWindowTitle(tr("%1 – %2 – Export", "state, file").arg(job->stateText(), job->name()));
}

void ExportWindow::showTime() {
    const auto range = form.range();
    if (!range)
        return ui->settingsPane->setForecast({}, std::nullopt);
    const ExportCore::ExportRequest request = form.request();
    const auto time = times.of(request, range->end - range->start);
    const QString about = time ? PeoplesText::about(time->milliseconds) : QString();
    const QString text = !time         ? QString()
                         : time->rough ? tr("takes %1, at a rough guess", "a time").arg(about)
                                       : tr("takes %1", "a time").arg(about);
    ui->settingsPane->setForecast(text, times.sizeOf(request));
}

/// Whoever exports has the processors for it.
void ExportWindow::considerTrial() {
    const auto range = form.range();
    const bool canTry = queue.isIdle() && !queue.isGoing() && !ordered && !closing && range;
    if (canTry && form.problem().isEmpty())
        times.consider(form.request(), range->end - range->start);
    else
        times.consider(std::nullopt);
}

void ExportWindow::stopRunning() {
    if (const Job* const job = queue.running())
        askToStop(job->id);
}

void ExportWindow::askToStop(int id) {
    const Job* const job = queue.job(id);
    if (!job || job->state != Job::State::Running)
        return;
    ask({tr("Stop the export"), tr("Stop the export of “%1”? Nothing of it is kept.").arg(job->name()),
         tr("Stop the export"), tr("Go on"), [this, id] { queue.stop(id); }});
    stopAskedFor = id;
}

void ExportWindow::ask(const Question& asked) {
    closeQuestion();
    question = new QMessageBox(QMessageBox::Question, asked.title, asked.text, QMessageBox::NoButton, this);
    question->setTextFormat(Qt::PlainText);
    question->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton* const yes = question->addButton(asked.yes, QMessageBox::AcceptRole);
    QPushButton* const no = question->addButton(asked.no, QMessageBox::RejectRole);
    question->setDefaultButton(no);
    question->setEscapeButton(no);
    connect(question, &QMessageBox::buttonClicked, this, [yes, act = asked.act](QAbstractButton* button) {
        if (button == yes)
            act();
    });
    question->open();
}

void ExportWindow::closeQuestion() {
    stopAskedFor = 0;
    closeAsked = false;
    if (question)
        question->close();
}

void ExportWindow::tell(QMessageBox::Icon icon, const QString& text) {
    auto* const box = new QMessageBox(icon, tr("Export"), text, QMessageBox::Close, this);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void ExportWindow::onJobEnded(int id) {
    if (stopAskedFor == id)
        closeQuestion();
    const Job* const job = queue.job(id);
    if (job->isDone())
        times.learn(job->request, job->outcome->facts.speed);
    showTime();
    ui->settingsPane->lookAgain();
    const bool stopped = job->outcome->status == ExportCore::ExportOutcome::Status::Stopped;
    if (isActiveWindow() || stopped)
        return;
    const OutcomeText text = OutcomeText::of(*job);
    desktop.notify(text.title, text.reason);
}

/// Whether it is a part of the window, or of what the window does beside the exports.
bool ExportWindow::isOwn(const QObject* object) const {
    while (object && object != this && !object->isWidgetType()) {
        const QVariant owner = object->property("owner");
        object = owner.isValid() ? owner.value<QObject*>() : object->parent();
    }
    return object;
}

void ExportWindow::onFailure(const std::exception_ptr& error, QObject* receiver) {
    if (!isOwn(receiver) && (queue.failInEventLoop(error, receiver) || times.failInEventLoop(error, receiver)))
        return;
    const auto told = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(error);
    tell(QMessageBox::Critical, QString::fromStdString(ExportCore::PlainText::escaped(told.GetDescription())));
}

void ExportWindow::closeEvent(QCloseEvent* event) {
    const bool isBusy = queue.running() || queue.waiting() > 0 || ordered;
    if (!isBusy)
        return event->accept();
    event->ignore();
    if (!closing)
        askToClose();
}

void ExportWindow::askToClose() {
    const bool runs = queue.running() || queue.isGoing();
    const bool begins = runs && !queue.running(); // one of those that wait
    const int others = queue.waiting() + (ordered ? 1 : 0) - (begins ? 1 : 0);
    const QString text =
        !runs        ? tr("%n export(s) were not started. Close without them?", nullptr, others)
        : others > 0 ? tr("An export is running, and others wait. Stop it and close? Nothing of it is kept, and the "
                          "others are not made.")
                     : tr("An export is running. Stop it and close? Nothing of it is kept.");
    ask({tr("Close"), text, runs ? tr("Stop and close") : tr("Close"), runs ? tr("Go on") : tr("Cancel"),
         [this] { QMetaObject::invokeMethod(this, &ExportWindow::end, Qt::QueuedConnection); }});
    closeAsked = true;
    const auto onAnswered = [this, asked = question.data()] {
        if (closeAsked && question && question != asked) // it is asked anew
            return;
        closeAsked = false;
        takeFound();
    };
    // Queued: whoever has said yes is obeyed first.
    connect(question, &QDialog::finished, this, onAnswered, Qt::QueuedConnection);
}

/// Nobody has to look at what hangs, which is left after some seconds only.
void ExportWindow::hideAll() {
    for (QDialog* const dialog : findChildren<QDialog*>())
        dialog->close();
    hide();
}

void ExportWindow::end() {
    closing = true;
    forgetOrder();
    closeQuestion();
    considerTrial();
    queue.stopAll();
    hideAll();
    if (!queue.isIdle() || std::exchange(over, true))
        return;
    close();
    Q_EMIT ended();
}

void ExportWindow::dragEnterEvent(QDragEnterEvent* event) {
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            return event->acceptProposedAction();
}

void ExportWindow::dropEvent(QDropEvent* event) {
    QStringList files;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            files << url.toLocalFile();
    if (files.isEmpty())
        return;
    event->acceptProposedAction();
    open(files);
}

void ExportWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        ui->settingsPane->lookAgain();
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    form.retranslate();
    showSource();
    showProblem();
    showTime();
    showTitle();
}

} // namespace Dialog

#include "dialog/Widgets/ExportWindow.h"

#include "ExportCore/EventLoopFailures.h"
#include "ExportCore/PlainText.h"
#include "dialog/Models/OutcomeText.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/PresetText.h"
#include "ui_ExportWindow.h"
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QUrl>
#include <algorithm>

namespace Dialog {

ExportWindow::ExportWindow(ExportCore::EventLoopFailures& failures, QWidget* parent)
    : QMainWindow(parent)
    , ui(std::make_unique<Ui::ExportWindow>()) {
    ui->setupUi(this);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 150, metrics.lineSpacing() * 32);
    ui->presetPane->setForm(form);
    ui->settingsPane->setForm(form);
    ui->jobPane->setQueue(queue);
    ui->jobPane->hide();
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
    queue.disconnect(this);
}

void ExportWindow::connectForm() {
    connect(ui->openButton, &QPushButton::clicked, this, &ExportWindow::browse);
    connect(ui->blackButton, &QPushButton::clicked, this, [this] { form.source().open(form.source().paths(), true); });
    connect(&form, &ExportForm::sourceChanged, this, &ExportWindow::showSource);
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
    connect(ui->jobPane, &JobPane::fileWanted, this,
            [](const QString& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    connect(ui->jobPane, &JobPane::folderWanted, &desktop, &DesktopSession::showInFolder);
    connect(&queue, &JobQueue::jobChanged, this, &ExportWindow::showTitle);
    connect(&queue, &JobQueue::jobEnded, this, &ExportWindow::onJobEnded);
    connect(&queue, &JobQueue::jobChanged, this, &ExportWindow::considerTrial);
    connect(&queue, &JobQueue::emptied, this, [this] {
        desktop.keepAwake(false, {});
        if (closing)
            return end();
        considerTrial();
    });
    connect(&queue, &JobQueue::rowsInserted, this, &ExportWindow::showJobs);
    connect(&queue, &JobQueue::rowsRemoved, this, [this] { ui->jobPane->setVisible(queue.rowCount() > 0); });
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &ExportWindow::stopRunning);
}

/// They come below what was there, for which there is as much room as before where the screen allows.
void ExportWindow::showJobs() {
    if (ui->jobPane->isVisible())
        return;
    const int above = ui->setupPane->height(), below = fontMetrics().lineSpacing() * 10;
    const int most = screen()->availableGeometry().height() - (frameGeometry().height() - height());
    if (!isMaximized() && !isFullScreen())
        resize(width(), std::min(height() + below, std::max(most, height())));
    ui->jobPane->show();
    ui->mainSplitter->setSizes({above, below});
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

void ExportWindow::showSource() {
    const SourceMedia& source = form.source();
    const auto state = source.state();
    ui->sourceName->setText(state == SourceMedia::State::Empty ? tr("Nothing is open") : source.name());
    ui->sourceName->setToolTip(source.paths().join(QLatin1Char('\n')).toHtmlEscaped());
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
    ui->messageFrame->setVisible(!messages.isEmpty());
}

void ExportWindow::showProblem() {
    const QString problem = form.problem();
    ui->problemLabel->setText(problem);
    ui->exportButton->setEnabled(problem.isEmpty() && !ordering);
    ui->addButton->setEnabled(problem.isEmpty() && !ordering);
}

void ExportWindow::showTitle() {
    const Job* const job = queue.running();
    if (!job)
        return setWindowTitle(tr("Export"));
    setWindowTitle(tr("%1 – %2 – Export", "state, file").arg(job->stateText(), job->name()));
}

void ExportWindow::showTime() {
    const auto range = form.range();
    const auto time = range ? times.of(form.request(), range->end - range->start) : std::nullopt;
    if (!time)
        return ui->settingsPane->setTimeText({});
    const QString about = PeoplesText::about(time->milliseconds);
    ui->settingsPane->setTimeText(time->rough ? tr("takes %1, at a rough guess", "a time").arg(about)
                                              : tr("takes %1", "a time").arg(about));
}

/// Whoever exports has the processors for it.
void ExportWindow::considerTrial() {
    const auto range = form.range();
    const bool canTry = queue.isIdle() && !queue.isStarted() && !ordering && !closing && range;
    if (canTry && form.problem().isEmpty())
        times.consider(form.request(), range->end - range->start);
    else
        times.consider(std::nullopt);
}

void ExportWindow::order(When when) {
    if (!form.problem().isEmpty() || ordering || closing)
        return;
    ordered = when;
    ordering = true;
    showProblem();
    considerTrial();
    look.look(form.output(), form.sequence());
}

void ExportWindow::onLooked(const OutputState& state) {
    ordering = false;
    showProblem();
    considerTrial();
    if (state.path != form.output() || !form.problem().isEmpty())
        return;
    const auto plain = [](const QString& name) {
        return QString::fromStdString(ExportCore::PlainText::escaped(name.toStdString()));
    };
    const QString wanted = plain(state.path.mid(state.path.lastIndexOf(QLatin1Char('/')) + 1));
    const QString name = plain(state.name);
    if (queue.isOrdered(state.path))
        return ask({tr("Export"), tr("Another export in the list is to become “%1” as well.").arg(wanted),
                    tr("Add it all the same"), tr("Cancel"), [this] { addJob(true); }});
    if (!state.exists)
        return addJob(false);
    ask({tr("Export"),
         tr("“%1” is there already. It is replaced when the export is complete, and not before.").arg(name),
         tr("Replace"), tr("Cancel"), [this] { addJob(true); }});
}

void ExportWindow::addJob(bool overwrite) {
    if (!form.problem().isEmpty() || closing)
        return;
    ExportCore::ExportRequest request = form.request();
    request.overwrite = overwrite;
    form.commit();
    const int id = queue.add(request, PresetText::title(form.preset()));
    if (ordered == When::Now)
        queue.start();
    if (queue.isIdle())
        ui->jobPane->select(id);
    if (queue.isStarted())
        desktop.keepAwake(true, tr("A film is being exported"));
}

void ExportWindow::stopRunning() {
    if (const Job* const job = queue.running())
        askToStop(job->id);
}

void ExportWindow::askToStop(int id) {
    const Job* const job = queue.job(id);
    if (!job || job->state != Job::State::Running)
        return;
    ask({tr("Stop the export"), tr("Stop the export of “%1”? Nothing of it is kept.").arg(job->name()), tr("Stop"),
         tr("Go on"), [this, id] { queue.stop(id); }});
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
    if (question)
        question->close();
}

void ExportWindow::onJobEnded(int id) {
    if (stopAskedFor == id)
        closeQuestion();
    const Job* const job = queue.job(id);
    if (job->isDone())
        times.learn(job->request, job->outcome->facts.speed);
    showTime();
    const bool stopped = job->outcome->status == ExportCore::ExportOutcome::Status::Stopped;
    if (isActiveWindow() || stopped)
        return;
    const OutcomeText text = OutcomeText::of(*job);
    desktop.notify(text.title, text.reason);
}

void ExportWindow::onFailure(const std::exception_ptr& error, QObject* receiver) {
    if (queue.failInEventLoop(error, receiver) || times.failInEventLoop(error, receiver))
        return;
    const auto told = Kestra::Proc::ProcessingError::MakeProcessingErrorFromException(error);
    auto* const box = new QMessageBox(QMessageBox::Critical, tr("Export"),
                                      QString::fromStdString(ExportCore::PlainText::escaped(told.GetDescription())),
                                      QMessageBox::Close, this);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void ExportWindow::closeEvent(QCloseEvent* event) {
    if (queue.isIdle() || !queue.running())
        return event->accept();
    event->ignore();
    if (closing)
        return;
    ask({tr("Close"), tr("An export is running. Stop it and close? Nothing of it is kept."), tr("Stop and close"),
         tr("Go on"), [this] { QMetaObject::invokeMethod(this, &ExportWindow::end, Qt::QueuedConnection); }});
}

void ExportWindow::end() {
    closing = true;
    closeQuestion();
    considerTrial();
    queue.stopAll();
    if (!queue.isIdle())
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

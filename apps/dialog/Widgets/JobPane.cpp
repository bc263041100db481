// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/JobPane.h"

#include "dialog/Models/OutcomeText.h"
#include "dialog/Models/PreviewMaker.h"
#include "dialog/Widgets/JobDelegate.h"
#include "ui_JobPane.h"
#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <algorithm>
#include <tuple>

namespace Dialog {

JobPane::JobPane(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::JobPane>())
    , preview(new PreviewMaker(this))
    , upAction(new QAction(this))
    , downAction(new QAction(this)) {
    ui->setupUi(this);
    ui->stack->setCurrentWidget(ui->nonePage);
    showDetails(false);
    connect(preview, &PreviewMaker::made, ui->preview, &PictureLabel::setPicture);
}

JobPane::~JobPane() = default;

void JobPane::setQueue(JobQueue& shown) {
    queue = &shown;
    ui->jobView->setModel(queue);
    ui->jobView->setTextElideMode(Qt::ElideMiddle); // what tells files and presets apart stands at their ends
    ui->jobView->setItemDelegateForColumn(JobQueue::COLUMN_STATE, new JobDelegate(this));
    QHeaderView& header = *ui->jobView->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(JobQueue::COLUMN_NAME, QHeaderView::Stretch);
    header.setSectionResizeMode(JobQueue::COLUMN_PRESET, QHeaderView::Stretch);
    header.setSectionResizeMode(JobQueue::COLUMN_STATE, QHeaderView::Fixed);
    widenForStates();
    connect(ui->jobView->selectionModel(), &QItemSelectionModel::currentChanged, this, &JobPane::showSelected);
    connect(queue, &JobQueue::jobChanged, this, [this](int id) {
        if (id == selected())
            showSelected();
    });
    for (const auto signal : {&JobQueue::rowsInserted, &JobQueue::rowsRemoved})
        connect(queue, signal, this, &JobPane::showSelected);
    connect(queue, &JobQueue::rowsMoved, this, &JobPane::showMoves);
    connect(queue, &JobQueue::jobChanged, this, &JobPane::showMoves);
    prepareMoves();
    connect(queue, &JobQueue::jobChanged, this, &JobPane::showStart);
    connectButtons();
    showStart();
}

/// Once for all of them: a column that changes while something runs is hard to read.
void JobPane::widenForStates() {
    int widest = 0;
    for (const QString& text : Job::stateTexts())
        widest = std::max(widest, fontMetrics().horizontalAdvance(text));
    ui->jobView->header()->resizeSection(JobQueue::COLUMN_STATE,
                                         widest + 2 * fontMetrics().horizontalAdvance(QLatin1Char('x')));
}

void JobPane::connectButtons() {
    connect(ui->startButton, &QPushButton::clicked, queue, &JobQueue::start);
    for (const auto signal : {&JobQueue::began, &JobQueue::emptied})
        connect(queue, signal, this, &JobPane::showSelected);
    connect(ui->stopButton, &QPushButton::clicked, this, [this] { Q_EMIT stopWanted(selected()); });
    connect(ui->cancelButton, &QPushButton::clicked, this, [this] { queue->stop(selected()); });
    connect(ui->removeButton, &QPushButton::clicked, this, [this] { queue->remove(selected()); });
    connect(ui->retryButton, &QPushButton::clicked, this, [this] { Q_EMIT retryWanted(selected()); });
    connect(ui->changeButton, &QPushButton::clicked, this, [this] { Q_EMIT changeWanted(selected()); });
    connect(ui->copyButton, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(ui->detailsEdit->toPlainText()); });
    connect(ui->detailsButton, &QToolButton::toggled, this, &JobPane::showDetails);
    const auto path = [this] {
        const Job& job = *queue->job(selected());
        const QString picture = job.outcome ? job.outcome->facts.firstPicture : QString();
        return picture.isEmpty() ? job.request.outputPath : picture;
    };
    connect(ui->openButton, &QPushButton::clicked, this, [this, path] { Q_EMIT fileWanted(path()); });
    connect(ui->folderButton, &QPushButton::clicked, this, [this, path] { Q_EMIT folderWanted(path()); });
}

namespace {

constexpr int MOVE_UP = Qt::ALT + Qt::Key_Up;
constexpr int MOVE_DOWN = Qt::ALT + Qt::Key_Down;

} // namespace

/// The keys are no action's, which would leave them to the list, where they select, as soon as it is disabled.
void JobPane::prepareMoves() {
    using Step = JobQueue::Step;
    for (const auto& [action, button, key, step] : {std::tuple(upAction, ui->upButton, MOVE_UP, Step::Up),
                                                    std::tuple(downAction, ui->downButton, MOVE_DOWN, Step::Down)}) {
        const auto move = [this, step = step] { moveSelected(step); };
        connect(action, &QAction::triggered, this, move);
        connect(button, &QPushButton::clicked, this, move);
        auto* const shortcut = new QShortcut(key, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, move);
        ui->jobView->addAction(action);
    }
    nameMoves();
}

void JobPane::nameMoves() {
    const QString up = QKeySequence(MOVE_UP).toString(QKeySequence::NativeText);
    const QString down = QKeySequence(MOVE_DOWN).toString(QKeySequence::NativeText);
    upAction->setText(tr("Move &up") + QLatin1Char('\t') + up);
    downAction->setText(tr("Move &down") + QLatin1Char('\t') + down);
    ui->upButton->setToolTip(up);
    ui->downButton->setToolTip(down);
}

void JobPane::moveSelected(JobQueue::Step step) {
    queue->move(selected(), step);
    ui->jobView->scrollTo(ui->jobView->currentIndex());
}

/// Whoever goes on pressing a button that has no more to do must not press the next one.
void JobPane::showMoves() {
    using Step = JobQueue::Step;
    const int id = selected();
    for (const auto& [action, button, step] :
         {std::tuple(upAction, ui->upButton, Step::Up), std::tuple(downAction, ui->downButton, Step::Down)}) {
        const bool can = queue->canMove(id, step);
        if (!can && button->hasFocus())
            ui->jobView->setFocus();
        action->setEnabled(can);
        button->setEnabled(can);
    }
}

void JobPane::select(int id) {
    ui->jobView->setCurrentIndex(queue->index(queue->rowOf(id), 0));
    showSelected();
}

void JobPane::bringIntoView(int id) {
    ui->jobView->scrollTo(queue->index(queue->rowOf(id), 0));
}

int JobPane::selected() const {
    const QModelIndex current = ui->jobView->currentIndex();
    return current.isValid() && current.row() < queue->rowCount() ? queue->at(current.row()).id : 0;
}

void JobPane::showStart() {
    ui->startButton->setVisible(queue->needsStart());
}

void JobPane::showSelected() {
    showStart();
    showMoves();
    const Job* const job = queue->job(selected());
    const bool runs = job && job->isRunning();
    preview->setLimit(ui->preview->room());
    preview->watch(runs ? queue->pictures() : nullptr);
    if (!runs)
        ui->preview->setPicture({});
    if (!job)
        return ui->stack->setCurrentWidget(ui->nonePage);
    if (runs)
        return showRunning(*job);
    if (job->state == Job::State::Waiting)
        return showWaiting(*job);
    showEnded(*job);
}

void JobPane::showWaiting(const Job& job) {
    ui->stack->setCurrentWidget(ui->waitPage);
    ui->waitLabel->setText(queue->begins(job) ? tr("It begins when the exports before it have ended.")
                                              : tr("It begins when the queue is started."));
}

void JobPane::showRunning(const Job& job) {
    shownId = 0;
    ui->stack->setCurrentWidget(ui->runPage);
    ui->runTitle->setText(job.name());
    // Until the engine has begun, and while the file is being checked, nobody knows how far it is.
    const bool known = job.started && job.progress.percent < 100 && job.state == Job::State::Running;
    ui->progressBar->setRange(0, known ? 100 : 0);
    ui->progressBar->setValue(job.progress.percent);
    ui->progressLabel->setText(job.progressText());
    ui->stopButton->setEnabled(job.state == Job::State::Running);
}

void JobPane::showEnded(const Job& job) {
    ui->stack->setCurrentWidget(ui->endPage);
    if (shownId == job.id)
        return;
    shownId = job.id;
    const OutcomeText text = OutcomeText::of(job);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    const bool isFine = job.isDone() && job.outcome->warnings.isEmpty();
    const auto icon = isFine            ? QStyle::SP_DialogApplyButton
                      : job.isDone()    ? QStyle::SP_MessageBoxWarning
                      : job.hasFailed() ? QStyle::SP_MessageBoxCritical
                                        : QStyle::SP_MessageBoxInformation;
    ui->endIcon->setPixmap(style()->standardIcon(icon).pixmap(size, size));
    ui->endTitle->setText(text.title);
    ui->endReason->setText(text.reason);
    ui->endAdvice->setText(text.advice);
    ui->endAdvice->setVisible(!text.advice.isEmpty());
    ui->detailsEdit->setPlainText(text.details);
    ui->detailsButton->setChecked(false);
    ui->openButton->setVisible(job.isDone());
    ui->folderButton->setVisible(job.isDone());
    ui->retryButton->setVisible(!job.isDone());
}

void JobPane::showDetails(bool visible) {
    ui->detailsEdit->setVisible(visible);
    ui->detailsButton->setArrowType(visible ? Qt::DownArrow : Qt::RightArrow);
    if (visible) // behind the layout, which posted events make
        QTimer::singleShot(0, this, [this] { ui->endArea->verticalScrollBar()->setValue(ui->detailsButton->y()); });
}

void JobPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !queue)
        return;
    ui->retranslateUi(this);
    nameMoves();
    widenForStates();
    shownId = 0;
    showSelected();
}

} // namespace Dialog

// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::ExportWindow: from an order to a job.
#include "ExportCore/PlainText.h"
#include "dialog/Models/PresetText.h"
#include "dialog/Widgets/ExportWindow.h"
#include "ui_ExportWindow.h"
#include <QDir>
#include <utility>

namespace Dialog {

void ExportWindow::order(When when) {
    ui->settingsPane->completeOutput();
    if (!form.problem().isEmpty())
        return;
    Order order;
    order.job.request = form.request();
    order.job.preset = PresetText::title(form.preset());
    order.job.sequence = form.sequence();
    order.choice = form.choice();
    order.when = when;
    takeOrder(order);
}

void ExportWindow::tryAgain(int id) {
    const Job* const before = queue.job(id);
    if (!before)
        return;
    Order order;
    order.job = *before;
    order.choice = choices.at(id);
    order.isOfForm = false;
    takeOrder(order);
}

void ExportWindow::change(int id) {
    if (!ordered && !closing && queue.job(id))
        form.choose(choices.at(id));
}

void ExportWindow::takeOrder(const Order& order) {
    if (ordered || closing)
        return;
    ordered = order;
    showProblem();
    considerTrial();
    look.look({order.job.request.outputPath, order.job.sequence, order.job.request.inputs,
               order.isOfForm ? form.source().fileMarks() : std::vector<ExportCore::FileMark>()});
}

/// Whoever changes the place meanwhile no longer waits for what stands at that one.
void ExportWindow::dropOrder() {
    if (!ordered || !ordered->isOfForm || ordered->job.request.outputPath == form.output())
        return;
    forgetOrder();
}

void ExportWindow::forgetOrder() {
    look.forget();
    ordered.reset();
    found.reset();
}

/// Nothing is added behind the question whether all that was ordered shall go, and no other question takes its place.
void ExportWindow::onLooked(const OutputState& state) {
    found = state;
    if (!closeAsked)
        takeFound();
}

void ExportWindow::takeFound() {
    if (found)
        goOnWith(*std::exchange(found, std::nullopt));
}

namespace {

QString fileName(const QString& path) {
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    return QString::fromStdString(ExportCore::PlainText::escaped(name.toStdString()));
}

} // namespace

/// Of an order, once it is known what stands at its place.
void ExportWindow::goOnWith(const OutputState& state) {
    Order order = *std::exchange(ordered, std::nullopt);
    order.job.place = state.place;
    showProblem();
    considerTrial();
    const QString wanted = fileName(state.path);
    if (!state.isKnown)
        return tell(QMessageBox::Warning, tr("The folder of “%1” does not answer. Check its disk or share, or save the "
                                             "export in another folder.")
                                              .arg(wanted));
    if (state.haveInputsChanged && order.isOfForm)
        return openAnew();
    if (state.isReadOnly)
        return tell(QMessageBox::Warning,
                    tr("The folder of “%1” takes no files. Save the export in another folder.").arg(wanted));
    if (state.isFolder)
        return tell(QMessageBox::Warning,
                    tr("“%1” is a folder. Write the name of a file in it.").arg(fileName(QDir::cleanPath(state.path))));
    if (state.isInput)
        return tell(QMessageBox::Warning,
                    tr("“%1” is one of the inputs, and stays. Save the export under another name.").arg(wanted));
    if (queue.isOrdered(state.place))
        return ask({tr("Export"), twice(state), tr("Add it all the same"), tr("Cancel"),
                    [this, order] { addJob(order, true); }});
    if (!state.exists)
        return addJob(order, false);
    ask({tr("Export"),
         tr("“%1” is there already. It is replaced when the export is complete, and not before.")
             .arg(fileName(state.name)),
         tr("Replace"), tr("Cancel"), [this, order] { addJob(order, true); }});
}

/// Nobody has seen what would be exported, and a part of what was there before may be none of what is there now.
void ExportWindow::openAnew() {
    const SourceMedia& source = form.source();
    tell(QMessageBox::Warning,
         tr("“%1” has changed since it was opened, and is opened anew. Look at it, and export again.")
             .arg(source.name()));
    form.source().open(QStringList(source.paths()), ExportCore::TimelineOptions(source.options()));
}

QString ExportWindow::twice(const OutputState& state) {
    const QString wanted = fileName(state.path);
    return state.exists ? tr("Another export in the list is to become “%1” as well. “%2”, which is there already, is "
                             "replaced, too.")
                              .arg(wanted, fileName(state.name))
                        : tr("Another export in the list is to become “%1” as well.").arg(wanted);
}

void ExportWindow::addJob(const Order& order, bool overwrite) {
    if (closing)
        return;
    Job job = order.job;
    job.request.overwrite = overwrite;
    if (order.isOfForm)
        form.commit();
    const int id = queue.add(job);
    choices[id] = order.choice;
    if (queue.isIdle() || !order.isOfForm)
        ui->jobPane->select(id);
    ui->jobPane->bringIntoView(id);
    if (order.when == When::Now)
        queue.call(id);
}

} // namespace Dialog

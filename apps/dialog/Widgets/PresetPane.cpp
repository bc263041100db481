// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/PresetPane.h"

#include "dialog/Models/ExportForm.h"
#include "dialog/Models/PresetText.h"
#include "dialog/Widgets/PresetDelegate.h"
#include "ui_PresetPane.h"
#include <QEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace Dialog {

PresetPane::PresetPane(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::PresetPane>()) {
    ui->setupUi(this);
    ui->nothingLabel->hide();
    ui->presetList->setItemDelegate(new PresetDelegate(this));
    ui->presetList->setResizeMode(QListView::Adjust);
    ui->presetList->viewport()->installEventFilter(this);
    ui->searchEdit->installEventFilter(this);
}

PresetPane::~PresetPane() = default;

void PresetPane::setForm(ExportForm& shown) {
    form = &shown;
    ui->presetList->setModel(&form->presets());
    fillTags();
    connect(ui->tagBox, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        const QScopedValueRollback<bool> guard(following, true);
        form->selectTag(ui->tagBox->itemData(index).toString().toStdString());
    });
    connect(ui->searchEdit, &QLineEdit::textChanged, this, &PresetPane::search);
    connect(ui->presetList->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (!following && current.isValid())
                    form->selectPreset(current.data(PresetList::ROLE_ID).toString());
            });
    connect(form, &ExportForm::presetChanged, this, &PresetPane::showSelection);
    connect(form, &ExportForm::sourceChanged, this, &PresetPane::showSelection);
    showSelection();
}

void PresetPane::fillTags() {
    ui->tagBox->clear();
    for (const std::string& tag : form->tags())
        ui->tagBox->addItem(PresetText::name(tag), QString::fromStdString(tag));
}

void PresetPane::showSelection() {
    const QScopedValueRollback<bool> guard(following, true);
    ui->tagBox->setCurrentIndex(ui->tagBox->findData(QString::fromStdString(form->tag())));
    const QModelIndex current = form->presets().indexOf(QString::fromStdString(form->presetId()));
    if (current.isValid())
        ui->presetList->setCurrentIndex(current);
    else
        ui->presetList->selectionModel()->clear();
    ui->presetList->scrollTo(current);
    showHidden(!current.isValid());
    showFacts();
}

/// What is looked for may leave out what is chosen.
void PresetPane::showHidden(bool isHidden) {
    QStringList sentences;
    if (form->presets().rowCount() == 0)
        sentences << tr("No preset of this format has these words.");
    sentences << tr("“%1” stays chosen.").arg(PresetText::title(form->preset()));
    ui->nothingLabel->setText(sentences.join(QLatin1Char(' ')));
    ui->nothingLabel->setVisible(isHidden);
}

void PresetPane::showFacts() {
    ui->factsLabel->setText(PresetText::facts(form->preset()));
}

void PresetPane::search(const QString& text) {
    {
        const QScopedValueRollback<bool> guard(following, true);
        form->presets().search(text);
    }
    showSelection();
}

bool PresetPane::eventFilter(QObject* watched, QEvent* event) {
    // How high an item is depends on the width, of which the list itself thinks nothing.
    if (watched == ui->presetList->viewport() && event->type() == QEvent::Resize)
        Q_EMIT ui->presetList->itemDelegate()->sizeHintChanged({});
    const bool isDown = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down;
    if (watched != ui->searchEdit || !isDown || form->presets().rowCount() == 0)
        return QWidget::eventFilter(watched, event);
    ui->presetList->setFocus();
    if (!ui->presetList->currentIndex().isValid())
        ui->presetList->setCurrentIndex(form->presets().index(0, 0));
    return true;
}

/// Only once the layout is made it is known how many presets are seen at once.
void PresetPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        QMetaObject::invokeMethod(this, &PresetPane::scrollToSelection, Qt::QueuedConnection);
}

void PresetPane::scrollToSelection() {
    ui->presetList->scrollToTop();
    ui->presetList->scrollTo(ui->presetList->currentIndex());
}

void PresetPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !form)
        return;
    ui->retranslateUi(this);
    fillTags();
    showSelection();
}

} // namespace Dialog

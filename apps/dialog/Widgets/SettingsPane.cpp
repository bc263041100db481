// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Widgets/SettingsPane.h"

#include "ExportCore/OutroPictures.h"
#include "ExportCore/Thumbnails.h"
#include "ExportCore/TimeText.h"
#include "dialog/Models/ExportForm.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/Retired.h"
#include "ui_SettingsPane.h"
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QScopedValueRollback>

namespace Dialog {
namespace {

constexpr int LOOK_DELAY_MS = 150;
constexpr int THUMBNAIL_DELAY_MS = 200;

} // namespace

SettingsPane::SettingsPane(QWidget* parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::SettingsPane>()) {
    ui->setupUi(this);
    ui->customProblem->hide();
    lookTimer.setSingleShot(true);
    lookTimer.setInterval(LOOK_DELAY_MS);
    thumbnailTimer.setSingleShot(true);
    thumbnailTimer.setInterval(THUMBNAIL_DELAY_MS);
    ui->strip->installEventFilter(this);
}

SettingsPane::~SettingsPane() = default;

void SettingsPane::setForm(ExportForm& shown) {
    form = &shown;
    fillFixedLists();
    fillForPreset();
    fillForSource();
    connect(form, &ExportForm::presetChanged, this, &SettingsPane::fillForPreset);
    connect(form, &ExportForm::sourceChanged, this, &SettingsPane::fillForSource);
    connect(form, &ExportForm::changed, this, &SettingsPane::showForm);
    connectQuality();
    connectCustom();
    connectRange();
    connectOutput();
    showForm();
}

void SettingsPane::setForecast(const QString& time, const std::optional<ExportCore::OutputEstimate>& size) {
    timeText = time;
    triedSize = size;
    showEstimate();
}

void SettingsPane::connectQuality() {
    connect(ui->qualityBox, qOverload<int>(&QComboBox::activated), this,
            [this](int index) { form->setQuality(ui->qualityBox->itemData(index).toString().toStdString()); });
    const auto setStreams = [this] {
        if (!showing)
            form->setStreams(ui->pictureCheck->isChecked(), ui->soundCheck->isChecked());
    };
    connect(ui->pictureCheck, &QCheckBox::toggled, this, setStreams);
    connect(ui->soundCheck, &QCheckBox::toggled, this, setStreams);
    connect(ui->brandingBox, qOverload<int>(&QComboBox::activated), this,
            [this](int index) { form->setBranding(ui->brandingBox->itemData(index).toString()); });
}

void SettingsPane::connectRange() {
    connect(ui->wholeButton, &QRadioButton::clicked, this, [this] { form->setPart(ExportForm::Part::Whole); });
    connect(ui->cutButton, &QRadioButton::clicked, this, [this] { form->setPart(ExportForm::Part::Cut); });
    connect(ui->markersButton, &QRadioButton::clicked, this, [this] { form->setPart(ExportForm::Part::Markers); });
    const auto setCut = [this] {
        if (!showing)
            form->setCut(ui->inEdit->text(), ui->outEdit->text());
    };
    connect(ui->inEdit, &QLineEdit::textChanged, this, setCut);
    connect(ui->outEdit, &QLineEdit::textChanged, this, setCut);
    const auto setPlaces = [this] { form->setPlaces(ui->firstBox->currentIndex(), ui->lastBox->currentIndex()); };
    connect(ui->firstBox, qOverload<int>(&QComboBox::activated), this, setPlaces);
    connect(ui->lastBox, qOverload<int>(&QComboBox::activated), this, setPlaces);
    connect(ui->strip, &RangeStrip::rangeEdited, this, [this](const Types::Range& range) {
        const auto text = [](KTime time) { return QString::fromStdString(ExportCore::TimeText::format(time)); };
        form->setCut(range.start > KTime(0) ? text(range.start) : QString(),
                     range.end < form->source().duration() ? text(range.end) : QString(), ExportForm::Part::Cut);
    });
    connect(&thumbnailTimer, &QTimer::timeout, this, &SettingsPane::makeThumbnails);
}

void SettingsPane::connectOutput() {
    connect(ui->outputEdit, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!showing)
            form->setOutput(text);
    });
    connect(ui->outputEdit, &QLineEdit::editingFinished, this, &SettingsPane::completeOutput);
    connect(ui->browseButton, &QPushButton::clicked, this, &SettingsPane::browse);
    connect(&lookTimer, &QTimer::timeout, this, [this] {
        look.look({form->output(), form->sequence(), form->source().paths()});
    });
    connect(&look, &OutputLook::looked, this, [this](const OutputState& state) {
        lookedAt = state;
        showEstimate();
    });
}

/// A folder stays what it is: whoever has written it is told, and gets no file beside it.
void SettingsPane::completeOutput() {
    if (lookedAt.path != form->output() || !lookedAt.isFolder)
        form->completeOutput();
}

void SettingsPane::fillForSource() {
    const QScopedValueRollback<bool> guard(showing, true);
    const SourceMedia& source = form->source();
    const bool ready = source.isReady();
    retire(thumbnails, *this);
    ui->firstBox->clear();
    ui->lastBox->clear();
    std::vector<KTime> markers;
    if (ready)
        for (const MarkedPlace& place : source.places()) {
            const QString text = QStringLiteral("%1 (%2)").arg(place.name, PeoplesText::length(place.time));
            ui->firstBox->addItem(text);
            ui->lastBox->addItem(text);
            markers.push_back(place.time);
        }
    ui->rangeGroup->setEnabled(ready);
    ui->markersButton->setEnabled(markers.size() > 2);
    const auto rate = ready ? source.rate() : std::nullopt;
    if (markers.size() >= 2) // the two ends are no markers
        markers = {markers.begin() + 1, markers.end() - 1};
    ui->strip->setTimeline(ready ? source.duration() : KTime(0), rate, markers);
    if (ready && source.hasPictures())
        thumbnailTimer.start();
}

void SettingsPane::makeThumbnails() {
    const SourceMedia& source = form->source();
    if (!source.isReady() || !source.hasPictures())
        return;
    retire(thumbnails, *this);
    const Media::Video& video = source.project().video();
    const int count = ui->strip->pictureCount();
    ui->strip->setPictureCount(count);
    thumbnails = std::make_unique<ExportCore::Thumbnails>(
        source.sequence(),
        Kestra::Conf::FrameInfo{video.width, video.height, video.aspectNumerator, video.aspectDenominator}, count,
        ui->strip->pictureSize());
    thumbnails->setParent(this);
    connect(thumbnails.get(), &ExportCore::Thumbnails::made, ui->strip, &RangeStrip::setPicture);
    connect(thumbnails.get(), &ExportCore::Thumbnails::finished, this, [this] { retire(thumbnails, *this); });
    thumbnails->start();
}

bool SettingsPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched == ui->strip && event->type() == QEvent::Resize && form)
        thumbnailTimer.start();
    return QWidget::eventFilter(watched, event);
}

void SettingsPane::showForm() {
    const QScopedValueRollback<bool> guard(showing, true);
    showQuality();
    showCustom();
    showRange();
    showOutput();
    showEstimate();
}

void SettingsPane::showQuality() {
    ui->qualityBox->setCurrentIndex(ui->qualityBox->findData(QString::fromStdString(form->quality())));
    const Preset preset = form->preset();
    ui->pictureCheck->setChecked(form->hasPicture());
    ui->soundCheck->setChecked(form->hasSound());
    ui->pictureCheck->setEnabled(preset.hasVideo());
    ui->soundCheck->setEnabled(preset.hasAudio());
    ui->brandingBox->setCurrentIndex(std::max(ui->brandingBox->findData(form->branding()), 0));
}

void SettingsPane::showRange() {
    const auto part = form->part();
    ui->wholeButton->setChecked(part == ExportForm::Part::Whole);
    ui->cutButton->setChecked(part == ExportForm::Part::Cut);
    ui->markersButton->setChecked(part == ExportForm::Part::Markers);
    ui->partStack->setCurrentWidget(part == ExportForm::Part::Whole ? ui->wholePage
                                    : part == ExportForm::Part::Cut ? ui->cutPage
                                                                    : ui->markersPage);
    if (ui->inEdit->text() != form->inText())
        ui->inEdit->setText(form->inText());
    if (ui->outEdit->text() != form->outText())
        ui->outEdit->setText(form->outText());
    ui->firstBox->setCurrentIndex(form->firstPlace());
    ui->lastBox->setCurrentIndex(form->lastPlace());
    const auto range = form->range();
    if (range)
        ui->strip->setRange(*range,
                            part == ExportForm::Part::Cut ? RangeStrip::Grip::Anywhere : RangeStrip::Grip::Ends);
    ui->lengthLabel->setText(range ? tr("%1 long").arg(PeoplesText::length(range->end - range->start)) : QString());
}

void SettingsPane::showOutput() {
    if (ui->outputEdit->text() != form->output())
        ui->outputEdit->setText(form->output());
    if (lookedAt.path != form->output())
        lookTimer.start();
}

void SettingsPane::showEstimate() {
    auto estimate = form->estimate();
    if (estimate && triedSize)
        estimate = triedSize;
    QStringList parts;
    if (estimate) {
        const QString size = PeoplesText::size(estimate->sizeBytes);
        parts << (estimate->rough ? tr("Very roughly %1").arg(size) : tr("About %1").arg(size));
        if (!timeText.isEmpty())
            parts << timeText;
    }
    const bool looked = lookedAt.path == form->output() && !form->output().isEmpty();
    if (looked && !lookedAt.isKnown)
        parts << tr("The folder does not answer");
    const bool known = looked && lookedAt.isKnown;
    if (known && lookedAt.freeBytes)
        parts << tr("%1 free").arg(PeoplesText::size(*lookedAt.freeBytes));
    if (known && !lookedAt.freeBytes)
        parts << tr("The folder is not there");
    if (known && estimate && lookedAt.freeBytes && estimate->sizeBytes > *lookedAt.freeBytes)
        parts << tr("This may be too much for the disk");
    if (known && lookedAt.isInput)
        parts << tr("This is one of the inputs");
    else if (known && lookedAt.isFolder)
        parts << tr("This is a folder; write the name of a file in it");
    else if (known && lookedAt.exists)
        parts << tr("A file of this name is there already");
    ui->estimateLabel->setText(parts.join(QStringLiteral(" · ")));
}

void SettingsPane::browse() {
    auto* const dialog = new QFileDialog(this, tr("Save the export as"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    // One that does not answer is better not asked again: the dialog would wait.
    if (lookedAt.path == form->output() && lookedAt.isKnown && lookedAt.freeBytes) {
        dialog->setDirectory(QFileInfo(form->output()).path());
        dialog->selectFile(QFileInfo(form->output()).fileName());
    }
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    // Who exports is asked, whichever way the name came.
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    const QString extension = form->extension();
    dialog->setDefaultSuffix(extension);
    if (!extension.isEmpty())
        dialog->setNameFilters({tr("Files of this preset (*.%1)").arg(extension), tr("All files (*)")});
    connect(dialog, &QFileDialog::fileSelected, form, &ExportForm::setOutput);
    dialog->open();
}

void SettingsPane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !form)
        return;
    ui->retranslateUi(this);
    fillFixedLists();
    fillForPreset();
    fillForSource();
    showForm();
}

} // namespace Dialog

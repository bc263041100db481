// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::SettingsPane: the controls of a preset's settings.
#include "dialog/Widgets/SettingsPane.h"

#include "ExportCore/OutroPictures.h"
#include "ExportCore/Thumbnails.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/Conf/SampleInfo.h"
#include "dialog/Models/ExportForm.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/PresetText.h"
#include "ui_SettingsPane.h"
#include <QScopedValueRollback>
#include <QStandardItemModel>
#include <QStyleOptionGroupBox>
#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace Dialog {
namespace {

using Kestra::ClientAPI::CodecLimits;
using RateControl = CustomSettings::RateControl;

constexpr const char* SIZES[] = {"3840x2160", "2560x1440", "1920x1080", "1280x720",
                                 "854x480",   "1080x1920", "1080x1080"};
constexpr const char* FRAME_RATES[] = {"source", "23.976", "24", "25", "29.97", "30", "50", "59.94", "60"};
constexpr const char* SOUND_BITRATES[] = {"64k", "96k", "128k", "192k", "256k", "320k"};

struct ChannelChoice {
    std::uint32_t layout;
    const char* value;
    const char* name;
};
constexpr ChannelChoice CHANNELS[] = {
    {Kestra::Conf::CHANNEL_LAYOUT_MONO, "mono", QT_TRANSLATE_NOOP("Dialog::SettingsPane", "Mono")},
    {Kestra::Conf::CHANNEL_LAYOUT_STEREO, "stereo", QT_TRANSLATE_NOOP("Dialog::SettingsPane", "Stereo")},
    {Kestra::Conf::CHANNEL_LAYOUT_QUAD, "quad", QT_TRANSLATE_NOOP("Dialog::SettingsPane", "Quadraphonic")},
    {Kestra::Conf::CHANNEL_LAYOUT_5POINT0, "5.0", "5.0"},
    {Kestra::Conf::CHANNEL_LAYOUT_5POINT1, "5.1", "5.1"},
    {Kestra::Conf::CHANNEL_LAYOUT_7POINT1, "7.1", "7.1"},
};

bool hasTwoPasses(const Preset& preset) {
    return preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != Export::BitrateMode::Quality;
}

void setItemEnabled(QComboBox& box, int index, bool enabled) {
    if (auto* const model = qobject_cast<QStandardItemModel*>(box.model()))
        model->item(index)->setEnabled(enabled);
}

/// What is typed or chosen, as settings are written.
QString valueOf(const QComboBox& box) {
    const int index = box.findText(box.currentText());
    if (index >= 0)
        return box.itemData(index).toString();
    constexpr char16_t times = 0x00d7;
    return PeoplesText::withPoint(box.currentText().remove(QLatin1Char(' ')).replace(QChar(times), QLatin1Char('x')));
}

void showValue(QComboBox& box, const QString& value) {
    if (valueOf(box) == value)
        return;
    const int index = box.findData(value);
    box.setCurrentIndex(index);
    if (index < 0)
        box.setEditText(value);
}

void prepare(QComboBox& box, const QString& placeholder) {
    box.clear();
    box.setInsertPolicy(QComboBox::NoInsert);
    box.lineEdit()->setPlaceholderText(placeholder);
}

} // namespace

void SettingsPane::fillFixedLists() {
    const QScopedValueRollback<bool> guard(showing, true);
    const QString asThePreset = tr("as the preset says");
    prepare(*ui->sizeBox, asThePreset);
    for (const char* size : SIZES) {
        const QString value = QString::fromLatin1(size);
        ui->sizeBox->addItem(QString(value).replace(QLatin1Char('x'), QStringLiteral(" × ")), value);
    }
    prepare(*ui->frameRateBox, asThePreset);
    for (const char* rate : FRAME_RATES) {
        const QString value = QString::fromLatin1(rate);
        ui->frameRateBox->addItem(value == QStringLiteral("source") ? tr("as the source") : value, value);
    }
    ui->brandingBox->clear();
    ui->brandingBox->addItem(tr("None"), QString());
    for (const std::string& name : ExportCore::OutroPictures::names())
        ui->brandingBox->addItem(PresetText::name(name), QString::fromStdString(name));
}

void SettingsPane::fillForPreset() {
    const QScopedValueRollback<bool> guard(showing, true);
    ui->qualityBox->clear();
    ui->qualityBox->addItem(tr("As the preset says"), QString());
    for (const std::string& name : form->qualities())
        ui->qualityBox->addItem(PresetText::name(name), QString::fromStdString(name));
    ui->qualityBox->setEnabled(ui->qualityBox->count() > 1);
    fillControls();
    fillFirstPass();
    fillSound();
    fillChannels();
}

void SettingsPane::fillControls() {
    const Preset preset = form->preset();
    const bool hasVideo = preset.hasVideo();
    const auto scale = CodecLimits::VideoQuality(preset.videoCodec());
    ui->controlBox->clear();
    ui->controlBox->addItem(tr("As the preset says"), static_cast<int>(RateControl::OfPreset));
    ui->controlBox->addItem(tr("Constant quality"), static_cast<int>(RateControl::Quality));
    ui->controlBox->addItem(tr("Average bitrate"), static_cast<int>(RateControl::Bitrate));
    setItemEnabled(*ui->controlBox, 1, scale.Exists() && !hasTwoPasses(preset));
    setItemEnabled(*ui->controlBox, 2, CodecLimits::HasBitrate(preset.videoCodec()));
    for (QWidget* const widget : {static_cast<QWidget*>(ui->sizeBox), static_cast<QWidget*>(ui->frameRateBox),
                                  static_cast<QWidget*>(ui->controlBox)})
        widget->setEnabled(hasVideo);
    ui->qualitySpin->setDecimals(scale.fractions ? 1 : 0);
    ui->qualitySpin->setRange(std::min(scale.best, scale.worst), std::max(scale.best, scale.worst));
}

void SettingsPane::fillSound() {
    const Preset preset = form->preset();
    ui->sampleRateBox->clear();
    ui->sampleRateBox->addItem(tr("As the preset says"), QString());
    if (preset.hasAudio())
        for (const int rate : CodecLimits::SampleRates(preset.audioCodec()))
            ui->sampleRateBox->addItem(PeoplesText::sampleRate(rate), QString::number(rate));
    ui->sampleRateBox->setEnabled(preset.hasAudio());
    prepare(*ui->soundBitrateBox, tr("as the preset says"));
    for (const char* bitrate : SOUND_BITRATES) {
        const QString value = QString::fromLatin1(bitrate);
        ui->soundBitrateBox->addItem(PeoplesText::bitrate(value.chopped(1).toLongLong() * 1000), value);
    }
    ui->soundBitrateBox->setEnabled(preset.hasAudio() && CodecLimits::HasBitrate(preset.audioCodec()));
}

void SettingsPane::fillFirstPass() {
    const Preset preset = form->preset();
    ui->firstPassBox->clear();
    ui->firstPassBox->addItem(tr("As the preset says"), QString());
    ui->firstPassBox->addItem(tr("Whole pictures"), QStringLiteral("full"));
    ui->firstPassBox->addItem(tr("Pictures of half the size"), QStringLiteral("half"));
    setItemEnabled(*ui->firstPassBox, 2, preset.videoCodec() == Kestra::Conf::CodecID::H264);
    ui->firstPassBox->setEnabled(preset.hasVideo() && hasTwoPasses(preset));
}

void SettingsPane::fillChannels() {
    const Preset preset = form->preset();
    ui->channelsBox->clear();
    ui->channelsBox->addItem(tr("As the preset says"), QString());
    const auto taken =
        preset.hasAudio() ? CodecLimits::ChannelLayouts(preset.audioCodec()) : std::vector<std::uint32_t>();
    for (const ChannelChoice& choice : CHANNELS)
        if (std::find(taken.begin(), taken.end(), choice.layout) != taken.end())
            ui->channelsBox->addItem(tr(choice.name), QString::fromLatin1(choice.value));
    ui->channelsBox->setEnabled(preset.hasAudio());
}

void SettingsPane::connectCustom() {
    const auto edited = [this] { onCustomEdited(); };
    for (QComboBox* const box : {ui->sizeBox, ui->frameRateBox, ui->soundBitrateBox})
        connect(box, &QComboBox::currentTextChanged, this, edited);
    for (QComboBox* const box : {ui->controlBox, ui->firstPassBox, ui->sampleRateBox, ui->channelsBox})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, edited);
    connect(ui->qualitySpin, qOverload<double>(&QDoubleSpinBox::valueChanged), this, edited);
    connect(ui->bitrateSpin, qOverload<int>(&QSpinBox::valueChanged), this, edited);
    connect(ui->customGroup, &QGroupBox::toggled, this, [this](bool on) {
        if (!showing)
            form->setUsesCustom(on);
    });
    connect(ui->resetButton, &QPushButton::clicked, form, &ExportForm::resetCustom);
}

CustomSettings SettingsPane::customFromWidgets() const {
    CustomSettings custom;
    custom.size = valueOf(*ui->sizeBox);
    custom.frameRate = valueOf(*ui->frameRateBox);
    custom.rateControl = static_cast<RateControl>(ui->controlBox->currentData().toInt());
    // A number counts once it is shown: before, it is what the preset itself would make.
    const CustomSettings& before = form->custom();
    custom.quality = before.rateControl == RateControl::Quality ? ui->qualitySpin->value() : form->usualQuality();
    custom.kilobitsPerSecond =
        before.rateControl == RateControl::Bitrate ? ui->bitrateSpin->value() : form->usualKilobits();
    custom.sampleRate = ui->sampleRateBox->currentData().toString();
    custom.soundBitrate = valueOf(*ui->soundBitrateBox);
    custom.firstPass = ui->firstPassBox->currentData().toString();
    custom.channels = ui->channelsBox->currentData().toString();
    return custom;
}

void SettingsPane::onCustomEdited() {
    if (!showing)
        form->setCustom(customFromWidgets());
}

int SettingsPane::titleHeight() const {
    QStyleOptionGroupBox option;
    option.initFrom(ui->customGroup);
    option.text = ui->customGroup->title();
    option.subControls = QStyle::SC_GroupBoxLabel | QStyle::SC_GroupBoxCheckBox;
    const auto bottomOf = [&](QStyle::SubControl part) {
        return style()->subControlRect(QStyle::CC_GroupBox, &option, part, ui->customGroup).bottom();
    };
    return std::max(bottomOf(QStyle::SC_GroupBoxLabel), bottomOf(QStyle::SC_GroupBoxCheckBox)) + 1;
}

void SettingsPane::showCustom() {
    const CustomSettings& custom = form->custom();
    ui->customGroup->setChecked(form->usesCustom());
    ui->customContents->setVisible(form->usesCustom());
    ui->customGroup->setFlat(!form->usesCustom());
    ui->customGroup->setMaximumHeight(form->usesCustom() ? QWIDGETSIZE_MAX : titleHeight()); // no frame around nothing
    showValue(*ui->sizeBox, custom.size);
    showValue(*ui->frameRateBox, custom.frameRate);
    showValue(*ui->soundBitrateBox, custom.soundBitrate);
    for (const auto& [box, value] :
         {std::pair(ui->sampleRateBox, custom.sampleRate), std::pair(ui->firstPassBox, custom.firstPass),
          std::pair(ui->channelsBox, custom.channels)})
        box->setCurrentIndex(std::max(box->findData(value), 0));
    showControl(custom);
    ui->resetButton->setEnabled(form->usesCustom() && !custom.empty());
    ui->customProblem->setText(form->customProblem());
    ui->customProblem->setVisible(!form->customProblem().isEmpty());
}

void SettingsPane::showControl(const CustomSettings& custom) {
    ui->controlBox->setCurrentIndex(ui->controlBox->findData(static_cast<int>(custom.rateControl)));
    if (custom.quality > 0)
        ui->qualitySpin->setValue(custom.quality);
    if (custom.kilobitsPerSecond > 0)
        ui->bitrateSpin->setValue(custom.kilobitsPerSecond);
    ui->qualitySpin->setVisible(custom.rateControl == RateControl::Quality);
    ui->bitrateSpin->setVisible(custom.rateControl == RateControl::Bitrate);
    ui->noValueLabel->setVisible(custom.rateControl == RateControl::OfPreset);
    ui->valueLabel->setBuddy(custom.rateControl == RateControl::Quality   ? static_cast<QWidget*>(ui->qualitySpin)
                             : custom.rateControl == RateControl::Bitrate ? ui->bitrateSpin
                                                                          : nullptr);
}

} // namespace Dialog

// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/Models/ExportForm.h"

#include "EditorSettings/Settings.h"
#include "ExportCore/OutputExtension.h"
#include "ExportCore/OutroPictures.h"
#include "ExportCore/PresetSelection.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/TimeText.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "dialog/Models/OutputName.h"
#include "dialog/Models/PeoplesText.h"
#include "dialog/Models/PresetObstacle.h"
#include "dialog/Models/PresetText.h"
#include "dialog/Models/Sentence.h"
#include <algorithm>
#include <cmath>
#include <utility>

namespace Dialog {

using ExportCore::Refusal;
using ExportCore::TimeText;

ExportForm::ExportForm(QObject* parent)
    : QObject(parent)
    , provider(ExportCore::PresetSelection::makeProvider())
    , list(new PresetList(*provider, catalogue, media, this))
    , chosenId(provider->originalPreset().id()) {
    restoreByName();
    connect(&media, &SourceMedia::changed, this, &ExportForm::onSourceChanged);
}

ExportForm::~ExportForm() {
    delete list; // before the model below it
}

/// Of presets that equal each other the provider restores one; somebody had chosen by the name.
void ExportForm::restoreByName() {
    const std::string id = Settings::lastUsedPresetId();
    const auto ids = provider->availablePresets();
    if (id == chosenId || std::find(ids.begin(), ids.end(), id) == ids.end())
        return;
    ExportCore::PresetSelection::selectInTag(*provider, id);
    chosenId = provider->originalPreset().id();
}

QString ExportForm::customProblem() const {
    return translated(customRefusal);
}

/// Own presets have their titles from their file.
QString ExportForm::translated(const QString& refusal) const {
    return Sentence::translated(refusal, [this](const QString& id) {
        const auto known = catalogue.ids();
        const bool isKnown = std::find(known.begin(), known.end(), id.toStdString()) != known.end();
        return isKnown ? PresetText::title(catalogue.preset(id.toStdString())) : id;
    });
}

QString ExportForm::catalogueWarning() const {
    return Sentence::translated(QString::fromStdString(provider->catalogueWarning()));
}

void ExportForm::onSourceChanged() {
    if (media.isReady()) {
        firstMark = 0;
        lastMark = static_cast<int>(media.places().size()) - 1;
    } else {
        chosenPart = Part::Whole;
        cutIn.clear();
        cutOut.clear();
    }
    list->refresh();
    suggestOutput();
    Q_EMIT sourceChanged();
    changePreset();
    if (media.state() == SourceMedia::State::Opening)
        return;
    const auto wanted = std::exchange(awaited, std::nullopt);
    if (wanted && media.isReady() && media.paths() == wanted->files)
        takeChoice(*wanted);
}

void ExportForm::selectTag(const std::string& tag) {
    if (tag == provider->currentTag())
        return;
    provider->selectTag(tag);
    // A preset that equals the one before leaves that selected, under an id that the tag may not have.
    const auto ids = provider->availablePresets();
    const std::string id = provider->originalPreset().id();
    if (!ids.empty() && std::find(ids.begin(), ids.end(), id) == ids.end())
        ExportCore::PresetSelection::selectInTag(
            *provider, ids.at(static_cast<std::size_t>(provider->modelIndexForCurrentPreset().row())));
    follow();
}

void ExportForm::selectPreset(const QString& id) {
    if (id.toStdString() == chosenId)
        return;
    ExportCore::PresetSelection::selectInTag(*provider, id.toStdString());
    follow();
}

/// The provider has another preset.
void ExportForm::follow() {
    chosenId = provider->originalPreset().id();
    nameForKind();
    Q_EMIT presetChanged();
    changePreset();
}

void ExportForm::changePreset() {
    applyEdits();
    change();
}

void ExportForm::change() {
    checkName();
    Q_EMIT changed();
}

/// The provider's preset becomes what would be exported, for what is derived from it. Not for each letter of a name or
/// a time: a refusal looks into the catalogues for what would fit.
void ExportForm::applyEdits() {
    customRefusal.clear();
    provider->updatePreset(nullptr, provider->originalPreset());
    if (!media.isReady())
        return;
    try {
        const ExportCore::PresetEdit edit = ExportCore::RequestCheck::presetEdit(request(), *provider);
        edit.apply(*provider, pictures(), media.project().audio());
    } catch (const Refusal& refusal) {
        customRefusal = QString::fromStdString(refusal.what());
    }
}

/// Once for each name and kind of file. What would suit is in the catalogue that was read once: nobody types against a
/// disk.
void ExportForm::checkName() {
    if (!media.isReady())
        return;
    const Preset edited = editedPreset();
    const QString wanted =
        QStringLiteral("%1/%2/%3").arg(QString::fromStdString(edited.id())).arg(withPicture).arg(path);
    if (wanted == checkedName)
        return;
    checkedName = wanted;
    nameRefusal.clear();
    try {
        ExportCore::RequestCheck::outputName(request(), edited, catalogue);
    } catch (const Refusal& refusal) {
        nameRefusal = QString::fromStdString(refusal.what());
    }
}

void ExportForm::suggestOutput() {
    if (!pathIsSuggested && !path.isEmpty())
        return;
    path = OutputName::suggestedFor(media.paths(), extension());
    pathIsSuggested = true;
}

/// Another kind of file is to be made.
void ExportForm::nameForKind() {
    if (pathIsSuggested)
        suggestOutput();
    else
        path = OutputName::withExtension(path, isNumbered() ? fileExtension() : extension());
}

/// Whether somebody has written how the pictures of a folder are called.
bool ExportForm::isNumbered() const {
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    return Kestra::Conf::NumberedName::CountPlaces(name.toStdString()) > 0;
}

QString ExportForm::fileExtension() const {
    const Preset preset = provider->originalPreset();
    return PresetText::extension(preset, preset.hasVideo() && withPicture);
}

QString ExportForm::extension() const {
    const bool isFolder = Kestra::ClientAPI::ContainerLimits::IsSequence(provider->originalPreset().containerId());
    return isFolder ? QString() : fileExtension();
}

std::optional<ExportCore::SequenceName> ExportForm::sequence() const {
    try {
        return ExportCore::SequenceName::of(path, provider->originalPreset());
    } catch (const Refusal&) { // problem() tells
        return std::nullopt;
    }
}

std::vector<std::string> ExportForm::qualities() const {
    return catalogue.qualitiesOf(chosenId);
}

std::string ExportForm::quality() const {
    const auto own = edits.find(chosenId);
    return own == edits.end() ? std::string() : own->second.quality;
}

void ExportForm::setQuality(const std::string& name) {
    if (name == quality())
        return;
    edits[chosenId].quality = name;
    Q_EMIT provider->qualityChanged();
    changePreset();
}

const CustomSettings& ExportForm::custom() const {
    static const auto& none = *new CustomSettings;
    const auto own = edits.find(chosenId);
    return own == edits.end() ? none : own->second.custom;
}

bool ExportForm::usesCustom() const {
    const auto own = edits.find(chosenId);
    return own != edits.end() && own->second.usesCustom;
}

void ExportForm::setCustom(const CustomSettings& settings) {
    if (settings == custom())
        return;
    edits[chosenId].custom = settings;
    changePreset();
}

void ExportForm::setUsesCustom(bool use) {
    if (use == usesCustom())
        return;
    edits[chosenId].usesCustom = use;
    changePreset();
}

void ExportForm::resetCustom() {
    setCustom({});
}

double ExportForm::usualQuality() const {
    const Preset preset = provider->originalPreset();
    if (preset.videoQuality() > 0)
        return preset.videoQuality();
    const auto scale = Kestra::ClientAPI::CodecLimits::VideoQuality(preset.videoCodec());
    constexpr double half = 0.5;
    return std::floor(half * (scale.best + scale.worst));
}

int ExportForm::usualKilobits() const {
    constexpr int usual = 8000, bitsInKilobit = 1000;
    if (!media.isReady())
        return usual;
    const Media::Video video = pictures();
    const auto bitrate = provider->bitrate(&video).maximum / bitsInKilobit;
    return bitrate > 0 ? static_cast<int>(bitrate) : usual;
}

void ExportForm::setPart(Part part) {
    if (part == chosenPart)
        return;
    chosenPart = part;
    change();
}

void ExportForm::setCut(const QString& in, const QString& out, Part part) {
    if (in == cutIn && out == cutOut && part == chosenPart)
        return;
    cutIn = in;
    cutOut = out;
    chosenPart = part;
    change();
}

void ExportForm::setPlaces(int first, int last) {
    if (first == firstMark && last == lastMark)
        return;
    firstMark = first;
    lastMark = last;
    change();
}

void ExportForm::setStreams(bool picture, bool sound) {
    if (picture == withPicture && sound == withSound)
        return;
    withPicture = picture;
    withSound = sound;
    nameForKind();
    changePreset();
}

void ExportForm::setBranding(const QString& name) {
    if (name == outro)
        return;
    outro = name;
    change();
}

void ExportForm::setOutput(const QString& wanted) {
    const QString whole = OutputName::expanded(wanted);
    if (whole == path && whole == wanted)
        return;
    path = whole;
    pathIsSuggested = path.isEmpty();
    change();
}

void ExportForm::completeOutput() {
    const QString whole = OutputName::completed(path, extension());
    if (whole == path)
        return;
    path = whole;
    change();
}

std::optional<KTime> ExportForm::pointOf(const QString& text) const {
    const auto point = TimeText::parsePoint(PeoplesText::withPoint(text.trimmed()).toStdString());
    if (!point || (point->frames && !media.rate()))
        return std::nullopt;
    try {
        return point->at(media.rate());
    } catch (const Refusal&) { // too many frames
        return std::nullopt;
    }
}

std::optional<Types::Range> ExportForm::cutRange() const {
    const auto in = cutIn.trimmed().isEmpty() ? std::optional(KTime(0)) : pointOf(cutIn);
    const auto out = cutOut.trimmed().isEmpty() ? std::optional(media.duration()) : pointOf(cutOut);
    if (!in || !out || *out <= *in || *in >= media.duration())
        return std::nullopt;
    return Types::Range{*in, std::min(*out, media.duration())};
}

std::optional<Types::Range> ExportForm::markedRange() const {
    const auto count = static_cast<int>(media.places().size());
    if (firstMark < 0 || lastMark <= firstMark || lastMark >= count)
        return std::nullopt;
    return Types::Range{media.places()[static_cast<std::size_t>(firstMark)].time,
                        media.places()[static_cast<std::size_t>(lastMark)].time};
}

std::optional<Types::Range> ExportForm::range() const {
    if (!media.isReady())
        return std::nullopt;
    switch (chosenPart) {
    case Part::Cut:
        return cutRange();
    case Part::Markers:
        return markedRange();
    case Part::Whole:
        break;
    }
    return Types::Range{KTime(0), media.duration()};
}

QString ExportForm::presetProblem() const {
    if (!customRefusal.isEmpty())
        return tr("The custom settings do not fit");
    const QString obstacle = PresetObstacle::of(editedPreset(), media, withPicture, withSound);
    if (!obstacle.isEmpty())
        return tr("This preset is not possible: %1").arg(obstacle);
    const bool picture = withPicture && preset().hasVideo(), sound = withSound && preset().hasAudio();
    return picture || sound ? QString() : tr("Neither picture nor sound would be in the file");
}

QString ExportForm::nameProblem() const {
    if (path.trimmed().isEmpty())
        return tr("The file needs a name");
    if (!path.startsWith(QLatin1Char('/')))
        return tr("Write the file with its whole folder, or choose it with “Save as”");
    if (OutputName::isOneOf(media.paths(), path))
        return tr("The file is what is exported; save it under another name");
    return translated(nameRefusal);
}

QString ExportForm::rangeProblem() const {
    if (range())
        return {};
    if (chosenPart == Part::Markers)
        return tr("The first marker must come before the ending one");
    for (const QString& text : {cutIn, cutOut})
        if (!text.trimmed().isEmpty() && !pointOf(text))
            return tr("“%1” is no time; write minutes and seconds as 1:30, or frames as 120f").arg(text);
    return tr("The in point must lie before the out point, and before the end");
}

QString ExportForm::problem() const {
    if (!media.isReady())
        return media.state() == SourceMedia::State::Refused   ? tr("What was opened cannot be exported")
               : media.state() == SourceMedia::State::Opening ? tr("The source is being opened")
                                                              : tr("Open what is to be exported");
    if (QString reason = presetProblem(); !reason.isEmpty())
        return reason;
    if (QString reason = rangeProblem(); !reason.isEmpty())
        return reason;
    return nameProblem();
}

ExportCore::ExportRequest ExportForm::request() const {
    ExportCore::ExportRequest request;
    request.inputs = media.paths();
    request.timelines = media.options();
    request.presetId = chosenId;
    if (const std::string name = quality(); !name.empty())
        request.quality = name;
    if (usesCustom())
        request.settings = custom().texts();
    request.tracks.picture = withPicture;
    if (!withSound)
        request.tracks.sound = ExportCore::TrackOptions::Sound::None;
    request.outputPath = path;
    request.brandingName = outro;
    const auto part = range();
    if (part && chosenPart != Part::Whole) {
        if (part->start > KTime(0))
            request.in = part->start;
        if (part->end < media.duration())
            request.out = part->end;
    }
    return request;
}

std::optional<ExportCore::OutputEstimate> ExportForm::estimate() const {
    const auto part = range();
    if (!part || !presetProblem().isEmpty())
        return std::nullopt;
    const EditorProject& project = media.project();
    const KTime length = part->end - part->start + ExportCore::OutroPictures::length(outro);
    const Media::Video video = pictures();
    return ExportCore::OutputEstimate::of(*provider, withPicture ? &video : nullptr,
                                          withSound ? &project.audio() : nullptr, length);
}

void ExportForm::commit() {
    lastChoice.keep(tag(), chosenId);
}

void ExportForm::retranslate() {
    provider->retranslate();
    list->refresh();
}

} // namespace Dialog

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/PresetProvider.h"
#include "EditorSettings/Settings.h"
#include "Kestra/Base/Exception.h"
#include <QCoreApplication>
#include <QStandardItem>
#include <QStandardItemModel>
#include <algorithm>

namespace Export {

namespace {

constexpr int PRESET_ID_ROLE = Qt::UserRole + 1;

QString translated(const std::string& name) {
    return QCoreApplication::translate("editorPresets", name.c_str(), nullptr, -1);
}

/// Support tools group failures by this origin, which has never followed the file.
[[noreturn]] void throwLoadFailed(const std::string& reason) {
    Kestra::Exception exception("PresetStorage::loadPresets FAILED");
    exception << Kestra::TagDescription(reason);
    Kestra::ThrowFrom(exception, "__cdecl Export::PresetProvider::PresetProvider(class QObject *)",
                      "..\\ext\\editor\\src\\library\\Export\\PresetProvider", 33);
}

} // namespace

/// Holds `filling` while the model is rebuilt, so that views that react to it cannot change the selection.
class PresetProvider::FillGuard {
public:
    explicit FillGuard(PresetProvider& guarded)
        : provider(guarded) {
        if (provider.fillDepth++ == 0)
            provider.filling = true;
    }
    ~FillGuard() {
        if (--provider.fillDepth == 0)
            provider.filling = false;
    }
    FillGuard(const FillGuard&) = delete;
    FillGuard& operator=(const FillGuard&) = delete;

private:
    PresetProvider& provider;
};

PresetProvider::PresetProvider(QObject* parent)
    : QObject(parent)
    , presetModel(new QStandardItemModel(this))
    , filling(false)
    , fillDepth(0) {
    // Under the name that the meta-object gives it: a queued connection finds it by that.
    qRegisterMetaType<std::string>("std::string");
    if (!storage.loadPresets(Kestra::ioPath(Settings::presetFilePath().toStdString())))
        throwLoadFailed(storage.lastError());
    const std::deque<std::string> names = storage.tags();
    tagNames.assign(names.begin(), names.end());
    for (const std::string& tag : tagNames)
        selectedRowByTag[tag] = static_cast<int>(storage.defaultPresetIndex(tag));
}

PresetProvider::~PresetProvider() = default;

void PresetProvider::load() {
    std::string group = Settings::lastUsedPresetGroup();
    if (std::find(tagNames.begin(), tagNames.end(), group) == tagNames.end())
        group.clear();
    const std::string previous = currentTagName;
    if (!group.empty())
        currentTagName = group;
    if (currentTagName.empty())
        currentTagName = tagNames.front();
    if (currentTagName != previous)
        Q_EMIT tagChanged(currentTagName);
    fillModel();
    const QString id = QString::fromStdString(Settings::lastUsedPresetId());
    if (!id.isEmpty())
        selectPreset(id.toStdString());
}

QAbstractItemModel* PresetProvider::model() const {
    return presetModel;
}

std::vector<std::string> PresetProvider::tags() const {
    return tagNames;
}

std::string PresetProvider::currentTag() const {
    return currentTagName;
}

QString PresetProvider::localizeTag(const std::string& tag) {
    return translated(tag);
}

void PresetProvider::selectTag(const std::string& tag) {
    if (tag == currentTagName)
        return;
    currentTagName = tag;
    fillModel();
    Q_EMIT tagChanged(currentTagName);
}

QString PresetProvider::presetIdAt(int row) const {
    return presetModel->item(row, 0)->data(PRESET_ID_ROLE).toString();
}

std::vector<std::string> PresetProvider::availablePresets() const {
    std::vector<std::string> ids;
    for (int row = 0; row < presetModel->rowCount(); ++row)
        ids.push_back(presetIdAt(row).toStdString());
    return ids;
}

bool PresetProvider::isPresetExists() const {
    return storage.isPresetExists(currentPresetId);
}

QModelIndex PresetProvider::modelIndexForCurrentPreset() const {
    return presetModel->index(selectedRowByTag.value(currentTagName, 0), 0, QModelIndex());
}

void PresetProvider::commit() {
    if (currentPresetId.empty())
        return;
    Settings::setLastUsedPresetGroup(currentTagName);
    Settings::setLastUsedPresetId(currentPresetId);
}

void PresetProvider::retranslate() {
    for (int row = 0; row < presetModel->rowCount(); ++row)
        presetModel->item(row, 0)->setText(translated(presetIdAt(row).toStdString()));
}

Preset PresetProvider::preset() const {
    return currentPreset ? *currentPreset : storage.preset(currentPresetId);
}

Preset PresetProvider::originalPreset() const {
    return storage.preset(currentPresetId);
}

void PresetProvider::fillModel() {
    {
        const FillGuard guard(*this);
        presetModel->clear();
        for (const Preset& preset : storage.presets(currentTagName)) {
            const std::string id = preset.id();
            auto item = std::make_unique<QStandardItem>(translated(id));
            item->setData(QString::fromStdString(id), PRESET_ID_ROLE);
            presetModel->appendRow(item.release());
        }
    }
    selectPreset(selectedRowByTag[currentTagName]);
}

void PresetProvider::selectPreset(int row) {
    if (filling || row < 0 || row >= presetModel->rowCount(QModelIndex()))
        return;
    const std::string id = presetIdAt(row).toStdString();
    const Preset chosen = storage.preset(id);
    // By content, not by id: choosing an equal preset under another name changes nothing.
    if (currentPreset && chosen.equalsTo(*currentPreset))
        return;
    currentPresetId = id;
    currentPreset = std::make_unique<Preset>(chosen);
    selectedRowByTag[currentTagName] = row;
    Q_EMIT presetChanged(row);
}

void PresetProvider::selectPreset(const std::string& id) {
    const QString wanted = QString::fromStdString(id);
    for (int row = 0; row < presetModel->rowCount(); ++row) {
        if (presetIdAt(row) == wanted)
            return selectPreset(row);
    }
}

bool PresetProvider::customPresetExists() const {
    return customPresets.count(currentPreset->id()) != 0;
}

Preset PresetProvider::customPreset() {
    return customPresetExists() ? customPresets.at(currentPreset->id()) : preset();
}

void PresetProvider::saveCustomPreset(const Preset& preset) {
    const auto saved = customPresets.find(preset.id());
    if (saved != customPresets.end())
        saved->second = preset;
    else
        // A new entry belongs to the selected preset, whatever id the edited one bears; an entry that is there stays.
        customPresets.emplace(currentPreset->id(), preset);
}

std::set<std::string> PresetProvider::qualityModifiers() const {
    return storage.qualityModifierTags(currentPresetId);
}

Preset PresetProvider::modifiedPreset(const std::string& modifier) const {
    Preset result = storage.preset(currentPresetId);
    result.applyQualityModifier(storage.qualityModifierData(currentPresetId, modifier));
    return result;
}

std::string PresetProvider::findQualityModifier(const Media::Video* video) const {
    Preset base = storage.preset(currentPresetId);
    const BitrateMode mode = currentPreset->videoBitrateMode();
    if (mode == BitrateMode::Automatic || mode == BitrateMode::Quality)
        base.setVideoBitrateBps(currentPreset->videoBitrateBps());
    fixupPresetResolution(video, &base);
    for (const std::string& name : storage.qualityModifierTags(currentPresetId)) {
        Preset candidate = base;
        candidate.applyQualityModifier(storage.qualityModifierData(candidate.id(), name));
        if (candidate.affectsAs(*currentPreset))
            return name;
    }
    return {};
}

} // namespace Export

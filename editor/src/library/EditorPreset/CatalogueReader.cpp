// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/CatalogueReader.h"
#include "EditorPreset/CatalogueError.h"
#include "EditorPreset/CatalogueKeys.h"
#include "EditorPreset/CatalogueSchema.h"
#include "EditorPreset/CatalogueText.h"
#include "EditorPreset/CheckedCatalogue.h"
#include "EditorPreset/JsonToProperty.h"
#include "EditorPreset/PresetChecks.h"
#include "EditorPreset/PresetTags.h"
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <set>

namespace EditorPreset {

namespace {

constexpr const char* KEY_TAGS = "tags";
constexpr const char* KEY_PRESETS = "presets";
constexpr const char* KEY_NAME = "name";
constexpr const char* KEY_DEFAULT = "default";
/// Far above any catalogue; keeps a wrong path from filling the memory.
constexpr qint64 LARGEST_FILE = qint64{4} * 1024 * 1024;

QLatin1String key(const char* name) {
    return QLatin1String(name);
}

QByteArray readBytes(const QString& path, const JsonPlace& place) {
    const QFileInfo info(path);
    if (!info.exists())
        place.refuse("no such file");
    if (!info.isFile())
        place.refuse("is not a regular file");
    if (info.size() > LARGEST_FILE)
        place.refuse("is larger than 4 MiB");
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        place.refuse(file.errorString().toStdString());
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        place.refuse("cannot be read: " + file.errorString().toStdString());
    return bytes;
}

std::string lineAndColumn(const QByteArray& bytes, int offset) {
    const QByteArray before = bytes.left(offset);
    const int line = before.count('\n') + 1;
    const int column = offset - before.lastIndexOf('\n');
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

struct Document {
    QJsonObject root;
    bool isChecked = false; ///< it was when this library was built
};

Document readDocument(const QString& path, const JsonPlace& place) {
    const QByteArray bytes = readBytes(path, place);
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        place.refuse("malformed JSON at " + lineAndColumn(bytes, error.offset) + ": " +
                     error.errorString().toStdString());
    if (isCatalogueOfThisBuild(bytes))
        return {document.object(), true};
    checkKeysAreUnique(bytes, place.file);
    const QJsonValue root = document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
    checkAgainstSchema(root, place.file);
    return {document.object(), false};
}

/// A modifier changes what is there.
void checkMedia(const QJsonObject& modifier, const Preset& preset, const JsonPlace& place) {
    if (modifier.contains(key(TAG_VIDEO)) && !preset.hasVideo())
        place.at(TAG_VIDEO).refuse("the preset has no video");
    if (modifier.contains(key(TAG_AUDIO)) && !preset.hasAudio())
        place.at(TAG_AUDIO).refuse("the preset has no audio");
}

Catalogue::Modifiers readModifiers(const QJsonObject& modifiers, const Preset& preset, bool isChecked,
                                   const JsonPlace& place) {
    Catalogue::Modifiers result;
    for (auto modifier = modifiers.begin(); modifier != modifiers.end(); ++modifier) {
        const std::string name = modifier.key().toStdString();
        const JsonPlace here = place.at(name);
        checkName(name, here);
        checkMedia(modifier.value().toObject(), preset, here);
        Kestra::Core::Property data = toPresetTree(modifier.value().toObject(), here);
        Preset modified = preset;
        modified.applyQualityModifier(data);
        if (!isChecked)
            checkPreset(modified, here);
        result.emplace(name, std::move(data));
    }
    return result;
}

void readPreset(const QJsonObject& object, bool isChecked, const JsonPlace& place, Catalogue& catalogue) {
    QJsonObject settings = object;
    const QJsonObject modifiers = settings.take(key(TAG_QUALITY_MODIFIERS)).toObject();
    const Preset preset(toPresetTree(settings, place));
    checkName(preset.id(), place.at(TAG_ID));
    checkText(preset.title(), place.at(TAG_TITLE));
    if (catalogue.presets.count(preset.id()) != 0)
        place.at(TAG_ID).refuse("the id \"" + preset.id() + "\" stands for more than one preset");
    if (!isChecked)
        checkPreset(preset, place);
    Catalogue::Modifiers read = readModifiers(modifiers, preset, isChecked, place.at(TAG_QUALITY_MODIFIERS));
    catalogue.presets.emplace(preset.id(), preset);
    if (!read.empty())
        catalogue.modifiers.emplace(preset.id(), std::move(read));
}

void readPresets(const Document& document, const JsonPlace& place, Catalogue& catalogue) {
    const QJsonArray array = document.root.value(key(KEY_PRESETS)).toArray();
    for (int index = 0; index < array.size(); ++index)
        readPreset(array.at(index).toObject(), document.isChecked,
                   place.at(KEY_PRESETS).at(static_cast<std::size_t>(index)), catalogue);
}

/// `known` holds the presets that a tag may name.
Catalogue::Tag readTag(const QJsonObject& object, const JsonPlace& place, const std::map<std::string, Preset>& known) {
    Catalogue::Tag tag;
    std::set<std::string> present;
    tag.name = object.value(key(KEY_NAME)).toString().toStdString();
    checkText(tag.name, place.at(KEY_NAME));
    const QJsonArray ids = object.value(key(KEY_PRESETS)).toArray();
    for (int index = 0; index < ids.size(); ++index) {
        const std::string id = ids.at(index).toString().toStdString();
        const JsonPlace here = place.at(KEY_PRESETS).at(static_cast<std::size_t>(index));
        if (known.count(id) == 0)
            here.refuse("there is no preset \"" + id + "\"");
        if (!present.insert(id).second)
            here.refuse("the preset \"" + id + "\" stands in this tag already");
        tag.presetIds.push_back(id);
    }
    tag.defaultIndex = static_cast<std::size_t>(object.value(key(KEY_DEFAULT)).toInt());
    if (tag.defaultIndex >= tag.presetIds.size())
        place.at(KEY_DEFAULT)
            .refuse("the default " + std::to_string(tag.defaultIndex) + " is beyond the tag's " +
                    std::to_string(tag.presetIds.size()) + " presets");
    return tag;
}

std::deque<Catalogue::Tag> readTags(const QJsonObject& root, const JsonPlace& place,
                                    const std::map<std::string, Preset>& known) {
    std::deque<Catalogue::Tag> tags;
    const QJsonArray array = root.value(key(KEY_TAGS)).toArray();
    for (int index = 0; index < array.size(); ++index) {
        const JsonPlace here = place.at(KEY_TAGS).at(static_cast<std::size_t>(index));
        Catalogue::Tag tag = readTag(array.at(index).toObject(), here, known);
        const auto same = [&tag](const Catalogue::Tag& other) { return other.name == tag.name; };
        if (std::any_of(tags.begin(), tags.end(), same))
            here.at(KEY_NAME).refuse("the tag \"" + tag.name + "\" stands more than once");
        tags.push_back(std::move(tag));
    }
    return tags;
}

std::set<std::string> taggedIds(const Catalogue& catalogue) {
    std::set<std::string> ids;
    for (const Catalogue::Tag& tag : catalogue.tags)
        ids.insert(tag.presetIds.begin(), tag.presetIds.end());
    return ids;
}

/// What no tag names cannot be found.
void checkAllAreTagged(const QJsonObject& root, const JsonPlace& place, const Catalogue& catalogue) {
    const std::set<std::string> tagged = taggedIds(catalogue);
    const QJsonArray presets = root.value(key(KEY_PRESETS)).toArray();
    for (int index = 0; index < presets.size(); ++index) {
        const std::string id = presets.at(index).toObject().value(key(TAG_ID)).toString().toStdString();
        if (tagged.count(id) == 0)
            place.at(KEY_PRESETS).at(static_cast<std::size_t>(index)).at(TAG_ID).refuse("no tag names \"" + id + "\"");
    }
}

Catalogue::Tag& tagNamed(Catalogue& catalogue, const std::string& name) {
    for (Catalogue::Tag& tag : catalogue.tags) {
        if (tag.name == name)
            return tag;
    }
    catalogue.tags.push_back({name, 0, {}});
    return catalogue.tags.back();
}

/// Presets are found by their tags: one that no tag names any more goes behind those of the tags that it had.
void keepFound(const Catalogue& installed, Catalogue& result) {
    const std::set<std::string> tagged = taggedIds(result);
    for (const Catalogue::Tag& tag : installed.tags)
        for (const std::string& id : tag.presetIds)
            if (tagged.count(id) == 0)
                tagNamed(result, tag.name).presetIds.push_back(id);
}

} // namespace

Catalogue readCatalogue(const QString& path) {
    const JsonPlace place{path.toStdString(), {}};
    const Document document = readDocument(path, place);
    Catalogue catalogue;
    readPresets(document, place, catalogue);
    catalogue.tags = readTags(document.root, place, catalogue.presets);
    if (catalogue.tags.empty())
        place.at(KEY_TAGS).refuse("the catalogue has no tags");
    checkAllAreTagged(document.root, place, catalogue);
    return catalogue;
}

Catalogue readOverlay(const QString& path, const Catalogue& installed, const std::string& ownTag) {
    const JsonPlace place{path.toStdString(), {}};
    const Document document = readDocument(path, place);
    Catalogue own;
    readPresets(document, place, own);

    Catalogue result = installed;
    for (const auto& [id, preset] : own.presets) {
        result.presets[id] = preset;
        result.modifiers.erase(id);
    }
    result.modifiers.insert(own.modifiers.begin(), own.modifiers.end());
    for (Catalogue::Tag& tag : readTags(document.root, place, result.presets))
        tagNamed(result, tag.name) = tag;
    keepFound(installed, result);
    const std::set<std::string> tagged = taggedIds(result);
    for (const auto& [id, preset] : own.presets) {
        if (tagged.count(id) == 0)
            tagNamed(result, ownTag).presetIds.push_back(id);
    }
    return result;
}

} // namespace EditorPreset

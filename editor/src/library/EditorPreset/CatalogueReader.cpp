#include "EditorPreset/CatalogueReader.h"
#include "EditorPreset/CatalogueError.h"
#include "EditorPreset/CatalogueSchema.h"
#include "EditorPreset/JsonToProperty.h"
#include "EditorPreset/PresetChecks.h"
#include "EditorPreset/PresetTags.h"
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

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
    return file.readAll();
}

std::string lineAndColumn(const QByteArray& bytes, int offset) {
    const QByteArray before = bytes.left(offset);
    const int line = before.count('\n') + 1;
    const int column = offset - before.lastIndexOf('\n');
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

QJsonObject readDocument(const QString& path, const JsonPlace& place) {
    const QByteArray bytes = readBytes(path, place);
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        place.refuse("malformed JSON at " + lineAndColumn(bytes, error.offset) + ": " +
                     error.errorString().toStdString());
    const QJsonValue root = document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
    checkAgainstSchema(root, place.file);
    return document.object();
}

/// Ids and names of modifiers stand in settings, on command lines and in translations.
void checkName(const std::string& name, const JsonPlace& place) {
    const bool plain = std::all_of(name.begin(), name.end(), [](char letter) {
        return (letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9') || letter == '-' || letter == '_' ||
               letter == '.';
    });
    if (!plain)
        place.refuse("\"" + name + "\" has other letters than a-z, 0-9, '-', '_' and '.'");
}

Catalogue::Modifiers readModifiers(const QJsonObject& modifiers, const Preset& preset, const JsonPlace& place) {
    Catalogue::Modifiers result;
    for (auto modifier = modifiers.begin(); modifier != modifiers.end(); ++modifier) {
        const std::string name = modifier.key().toStdString();
        const JsonPlace here = place.at(name);
        checkName(name, here);
        Kestra::Core::Property data = toProperty({}, modifier.value(), here);
        Preset modified = preset;
        modified.applyQualityModifier(data);
        checkPreset(modified, here);
        result.emplace(name, std::move(data));
    }
    return result;
}

void readPreset(const QJsonObject& object, const JsonPlace& place, Catalogue& catalogue) {
    QJsonObject settings = object;
    const QJsonObject modifiers = settings.take(key(TAG_QUALITY_MODIFIERS)).toObject();
    const Preset preset(toProperty({}, settings, place));
    checkName(preset.id(), place.at(TAG_ID));
    if (catalogue.presets.count(preset.id()) != 0)
        place.at(TAG_ID).refuse("the id \"" + preset.id() + "\" stands for more than one preset");
    checkPreset(preset, place);
    Catalogue::Modifiers read = readModifiers(modifiers, preset, place.at(TAG_QUALITY_MODIFIERS));
    catalogue.presets.emplace(preset.id(), preset);
    if (!read.empty())
        catalogue.modifiers.emplace(preset.id(), std::move(read));
}

void readPresets(const QJsonObject& root, const JsonPlace& place, Catalogue& catalogue) {
    const QJsonArray array = root.value(key(KEY_PRESETS)).toArray();
    for (int index = 0; index < array.size(); ++index)
        readPreset(array.at(index).toObject(), place.at(KEY_PRESETS).at(static_cast<std::size_t>(index)), catalogue);
}

/// `known` holds the presets that a tag may name.
Catalogue::Tag readTag(const QJsonObject& object, const JsonPlace& place, const std::map<std::string, Preset>& known) {
    Catalogue::Tag tag;
    tag.name = object.value(key(KEY_NAME)).toString().toStdString();
    const QJsonArray ids = object.value(key(KEY_PRESETS)).toArray();
    for (int index = 0; index < ids.size(); ++index) {
        const std::string id = ids.at(index).toString().toStdString();
        const JsonPlace here = place.at(KEY_PRESETS).at(static_cast<std::size_t>(index));
        if (known.count(id) == 0)
            here.refuse("there is no preset \"" + id + "\"");
        if (std::find(tag.presetIds.begin(), tag.presetIds.end(), id) != tag.presetIds.end())
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

bool isTagged(const Catalogue& catalogue, const std::string& id) {
    return std::any_of(catalogue.tags.begin(), catalogue.tags.end(), [&id](const Catalogue::Tag& tag) {
        return std::find(tag.presetIds.begin(), tag.presetIds.end(), id) != tag.presetIds.end();
    });
}

Catalogue::Tag& tagNamed(Catalogue& catalogue, const std::string& name) {
    for (Catalogue::Tag& tag : catalogue.tags) {
        if (tag.name == name)
            return tag;
    }
    catalogue.tags.push_back({name, 0, {}});
    return catalogue.tags.back();
}

} // namespace

Catalogue readCatalogue(const QString& path) {
    const JsonPlace place{path.toStdString(), {}};
    const QJsonObject root = readDocument(path, place);
    Catalogue catalogue;
    readPresets(root, place, catalogue);
    catalogue.tags = readTags(root, place, catalogue.presets);
    if (catalogue.tags.empty())
        place.at(KEY_TAGS).refuse("the catalogue has no tags");
    return catalogue;
}

Catalogue readOverlay(const QString& path, const Catalogue& installed, const std::string& ownTag) {
    const JsonPlace place{path.toStdString(), {}};
    const QJsonObject root = readDocument(path, place);
    Catalogue own;
    readPresets(root, place, own);

    Catalogue result = installed;
    for (const auto& [id, preset] : own.presets) {
        result.presets[id] = preset;
        result.modifiers.erase(id);
    }
    result.modifiers.insert(own.modifiers.begin(), own.modifiers.end());
    for (Catalogue::Tag& tag : readTags(root, place, result.presets))
        tagNamed(result, tag.name) = tag;
    for (const auto& [id, preset] : own.presets) {
        if (!isTagged(result, id))
            tagNamed(result, ownTag).presetIds.push_back(id);
    }
    return result;
}

} // namespace EditorPreset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/SchemaDocument.h"
#include "EditorPreset/SettingTable.h"
#include "Kestra/Base/Exception.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QString>
#include <cmath>

namespace EditorPreset {

namespace {

/// All but the definitions of the sections.
constexpr const char* FRAME = R"({
  "$schema": "http://json-schema.org/draft-07/schema#",
  "title": "Export preset catalogue",
  "description": "Presets of the export module, grouped by tags. A user's own presets are written in the same form; there the tags may be missing.",
  "type": "object",
  "required": ["version", "presets"],
  "additionalProperties": false,
  "properties": {
    "$schema": {"type": "string"},
    "version": {"description": "Version of this format.", "type": "integer", "enum": [1]},
    "tags": {
      "description": "Groups of presets, in the order in which they are shown.",
      "type": "array",
      "minItems": 1,
      "maxItems": 1000,
      "items": {"$ref": "#/definitions/tag"}
    },
    "presets": {"type": "array", "minItems": 1, "maxItems": 10000, "items": {"$ref": "#/definitions/preset"}}
  },
  "definitions": {
    "name": {"type": "string", "minLength": 1, "maxLength": 100},
    "tag": {
      "type": "object",
      "required": ["name", "default", "presets"],
      "additionalProperties": false,
      "properties": {
        "name": {"$ref": "#/definitions/name"},
        "default": {"description": "Row of the preset that is selected at first, counted from 0.", "type": "integer", "minimum": 0},
        "presets": {
          "description": "Ids of presets, in the order in which they are shown.",
          "type": "array",
          "minItems": 1,
          "items": {"$ref": "#/definitions/name"}
        }
      }
    },
    "preset": {
      "type": "object",
      "required": ["id", "container"],
      "additionalProperties": false,
      "properties": {
        "id": {"$ref": "#/definitions/name"},
        "title": {"type": "string", "minLength": 1, "maxLength": 200},
        "container": {"$ref": "#/definitions/container"},
        "video": {"allOf": [{"required": ["codec"]}, {"$ref": "#/definitions/video"}]},
        "audio": {"allOf": [{"required": ["codec"]}, {"$ref": "#/definitions/audio"}]},
        "qualityModifiers": {
          "description": "Sparse overrides of the preset, by name.",
          "type": "object",
          "additionalProperties": {"$ref": "#/definitions/modifier"}
        }
      }
    },
    "modifier": {
      "type": "object",
      "additionalProperties": false,
      "properties": {
        "video": {"$ref": "#/definitions/video"},
        "audio": {"$ref": "#/definitions/audio"}
      }
    }
  }
})";

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// As a catalogue would write it.
QJsonValue plain(double number) {
    return number == std::trunc(number) ? QJsonValue(static_cast<qint64>(number)) : QJsonValue(number);
}

template <class Members>
QJsonObject enumeration(const char* type, const Members& members) {
    return {{text("type"), text(type)}, {text("enum"), members}};
}

QJsonObject range(const char* type, double lowest, double highest) {
    return {{text("type"), text(type)}, {text("minimum"), plain(lowest)}, {text("maximum"), plain(highest)}};
}

/// What may stand there; every kind of values has to say.
struct ValuesInSchema {
    QJsonObject operator()(const Flag&) const { return {{text("type"), text("boolean")}}; }
    QJsonObject operator()(const Text& values) const {
        return {
            {text("type"), text("string")}, {text("minLength"), values.shortest}, {text("maxLength"), values.longest}};
    }
    QJsonObject operator()(const Whole& values) const {
        return range("integer", static_cast<double>(values.lowest), static_cast<double>(values.highest));
    }
    QJsonObject operator()(const Number& values) const { return range("number", values.lowest, values.highest); }
    QJsonObject operator()(const FrameRateText&) const { return (*this)(Text{1, 30}); }
    QJsonObject operator()(const OneOf& values) const {
        QJsonArray names;
        for (const Choice& choice : values)
            names.append(text(choice.name));
        return enumeration("string", names);
    }
    QJsonObject operator()(const NameOf& values) const {
        QJsonArray names;
        for (const std::string& name : values.names())
            names.append(QString::fromStdString(name));
        return enumeration("string", names);
    }
    QJsonObject operator()(const OneOfNumbers& values) const {
        QJsonArray numbers;
        for (const int number : values.numbers())
            numbers.append(number);
        return enumeration("integer", numbers);
    }
    QJsonObject operator()(const Options&) const {
        const QJsonArray scalars{text("string"), text("number"), text("boolean")};
        const QJsonObject value{{text("type"), scalars}};
        return {{text("type"), text("object")}, {text("additionalProperties"), value}};
    }
};

QJsonObject definition(Section section) {
    QJsonObject properties;
    for (const SettingRow& row : Table::ROWS) {
        if (row.section != section)
            continue;
        QJsonObject property = std::visit(ValuesInSchema(), row.values);
        property.insert(text("description"), text(row.description));
        properties.insert(text(row.name), property);
    }
    QJsonObject result{
        {text("type"), text("object")}, {text("additionalProperties"), false}, {text("properties"), properties}};
    // Modifiers, which need not name a codec again, share the definitions of video and audio.
    if (section == Section::Container)
        result.insert(text("required"), QJsonArray{text(nameOf(Setting::ContainerId))});
    return result;
}

} // namespace

QJsonObject schemaDocument() {
    QJsonObject document = QJsonDocument::fromJson(FRAME).object();
    QJsonObject definitions = document.value(text("definitions")).toObject();
    for (const Section section : {Section::Container, Section::Video, Section::Audio})
        definitions.insert(text(nameOf(section)), definition(section));
    document.insert(text("definitions"), definitions);
    return document;
}

} // namespace EditorPreset

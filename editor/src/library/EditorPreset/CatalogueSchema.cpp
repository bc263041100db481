// SPDX-License-Identifier: GPL-3.0-or-later
// The validator's headers throw only with this; otherwise they abort the process.
#define VALIJSON_USE_EXCEPTIONS 1

#if defined(__GNUC__) && !defined(__clang__)
// Inlined into this file, their output parameters look unset to the compiler.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

#include "EditorPreset/CatalogueSchema.h"
#include "EditorPreset/CatalogueError.h"
#include "EditorPreset/SchemaDocument.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

namespace EditorPreset {

namespace {

constexpr std::size_t LONGEST_VALUE_SHOWN = 60;

std::unique_ptr<const valijson::Schema> parsedSchema() {
    auto made = std::make_unique<valijson::Schema>();
    valijson::SchemaParser parser;
    parser.populateSchema(valijson::adapters::QtJsonAdapter(QJsonValue(schemaDocument())), *made);
    return made;
}

/// Parsed once; never changed afterwards.
const valijson::Schema& schema() {
    static const valijson::Schema& parsed = *parsedSchema().release();
    return parsed;
}

/// The validator writes a place as "<root>", "[presets]", "[3]" ...
std::string stripped(const std::string& step) {
    const bool bracketed = step.size() >= 2 && step.front() == '[' && step.back() == ']';
    return bracketed ? step.substr(1, step.size() - 2) : step;
}

QJsonValue below(const QJsonValue& value, const std::string& key) {
    if (value.isArray())
        return value.toArray().at(QString::fromStdString(key).toInt());
    return value.toObject().value(QString::fromStdString(key));
}

/// A scalar as it stands in the file; empty for anything else.
std::string shown(const QJsonValue& value) {
    if (value.isObject() || value.isArray() || value.isUndefined())
        return {};
    const QJsonArray wrapped{value};
    std::string text = QJsonDocument(wrapped).toJson(QJsonDocument::Compact).toStdString();
    text = text.substr(1, text.size() - 2);
    return text.size() > LONGEST_VALUE_SHOWN ? text.substr(0, LONGEST_VALUE_SHOWN) + "..." : text;
}

QJsonObject object(const QJsonObject& parent, const char* name) {
    return parent.value(QLatin1String(name)).toObject();
}

QJsonObject resolved(const QJsonObject& node, const QJsonObject& root) {
    const QString reference = node.value(QLatin1String("$ref")).toString();
    return reference.isEmpty() ? node
                               : object(root, "definitions").value(reference.section(QLatin1Char('/'), -1)).toObject();
}

/// The schema of a member or an element; empty where it has none.
QJsonObject schemaBelow(const QJsonObject& node, const QString& key, const QJsonObject& root) {
    const QJsonArray parts = node.value(QLatin1String("allOf")).toArray();
    for (const QJsonValue& part : parts)
        if (QJsonObject found = schemaBelow(resolved(part.toObject(), root), key, root); !found.isEmpty())
            return found;
    const QJsonObject properties = object(node, "properties");
    if (properties.contains(key))
        return resolved(properties.value(key).toObject(), root);
    return resolved(object(node, node.contains(QLatin1String("items")) ? "items" : "additionalProperties"), root);
}

std::string numberText(const QJsonValue& value) {
    return QString::number(value.toDouble(), 'g', 15).toStdString();
}

std::string joined(const QJsonArray& values) {
    std::string text;
    for (const QJsonValue& value : values)
        text += (text.empty() ? "" : ", ") + (value.isString() ? value.toString().toStdString() : numberText(value));
    return text;
}

/// " from 1 to 60"; empty where there are no such bounds.
std::string boundsOf(const QJsonObject& node, const char* lowest, const char* highest) {
    const QJsonValue from = node.value(QLatin1String(lowest)), to = node.value(QLatin1String(highest));
    if (from.isUndefined() && to.isUndefined())
        return {};
    if (to.isUndefined())
        return " of at least " + numberText(from);
    return from.isUndefined() ? " up to " + numberText(to) : " from " + numberText(from) + " to " + numberText(to);
}

/// What may stand there; empty where the schema does not say.
std::string expectedBy(const QJsonObject& node) {
    const QJsonArray names = node.value(QLatin1String("enum")).toArray();
    const QJsonValue type = node.value(QLatin1String("type"));
    if (!names.isEmpty())
        return names.size() > 1 ? "is none of " + joined(names) : joined(names) + " is expected";
    if (type.isArray())
        return "a text, a number, true or false is expected";
    const QString name = type.toString();
    if (name == QLatin1String("integer"))
        return "a whole number" + boundsOf(node, "minimum", "maximum") + " is expected";
    if (name == QLatin1String("number"))
        return "a number" + boundsOf(node, "minimum", "maximum") + " is expected";
    if (name == QLatin1String("string")) {
        const std::string length = boundsOf(node, "minLength", "maxLength");
        return "a text" + (length.empty() ? length : " of a length" + length) + " is expected";
    }
    if (name == QLatin1String("array")) {
        const std::string length = boundsOf(node, "minItems", "maxItems");
        return "a list" + (length.empty() ? length : " of a length" + length) + " is expected";
    }
    return name == QLatin1String("boolean") ? "true or false is expected"
           : name.isEmpty()                 ? ""
                                            : "an object is expected";
}

bool begins(const std::string& text, const char* start) {
    return text.rfind(start, 0) == 0;
}

/// In words for who wrote the file.
std::string reasonFrom(const std::string& description, const QJsonObject& node) {
    if (begins(description, "Object contains a property that could not be validated")) {
        const std::size_t from = description.rfind(": '") + 2, to = description.rfind('\'');
        return "unknown key " + description.substr(from, to - from + 1);
    }
    if (begins(description, "Missing required property"))
        return '"' +
               description.substr(description.find('\'') + 1, description.rfind('\'') - description.find('\'') - 1) +
               "\" is missing";
    const std::string expected = expectedBy(node);
    return expected.empty() ? description : expected;
}

/// "/presets/0/video: reason", where the fault lies itself.
std::string faultOf(const valijson::ValidationResults::Error& error, const QJsonValue& document) {
    const QJsonObject root = schemaDocument();
    QJsonObject node = root;
    QJsonValue value = document;
    JsonPlace place;
    for (std::size_t step = 1; step < error.context.size(); ++step) {
        const std::string key = stripped(error.context[step]);
        place = place.at(key);
        value = below(value, key);
        node = schemaBelow(node, QString::fromStdString(key), root);
    }
    const std::string text = shown(value);
    return (place.pointer.empty() ? std::string() : place.pointer + ": ") +
           (text.empty() ? std::string() : text + ": ") + reasonFrom(error.description, node);
}

/// All of them, each once: what holds a fault is not told to have one.
[[noreturn]] void refuse(const valijson::ValidationResults& results, const QJsonValue& document,
                         const std::string& file) {
    std::vector<std::string> faults;
    for (const auto& error : results) {
        if (begins(error.description, "Failed to validate"))
            continue;
        const std::string fault = faultOf(error, document);
        if (std::find(faults.begin(), faults.end(), fault) == faults.end())
            faults.push_back(fault);
    }
    std::string all;
    for (const std::string& fault : faults)
        all += (all.empty() ? "" : "; ") + fault;
    JsonPlace{file, {}}.refuse(all.empty() ? "does not match the catalogue schema" : all);
}

} // namespace

void checkAgainstSchema(const QJsonValue& document, const std::string& file) {
    valijson::ValidationResults results;
    valijson::Validator validator;
    const valijson::adapters::QtJsonAdapter target(document);
    if (!validator.validate(schema(), target, &results))
        refuse(results, document, file);
}

} // namespace EditorPreset

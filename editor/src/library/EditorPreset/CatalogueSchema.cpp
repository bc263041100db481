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
#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

namespace EditorPreset {

namespace {

constexpr std::size_t LONGEST_VALUE_SHOWN = 60;

/// Parsed once; never changed afterwards.
const valijson::Schema& schema() {
    static const std::unique_ptr<const valijson::Schema> parsed = [] {
        auto made = std::make_unique<valijson::Schema>();
        valijson::SchemaParser parser;
        parser.populateSchema(valijson::adapters::QtJsonAdapter(QJsonValue(schemaDocument())), *made);
        return made;
    }();
    return *parsed;
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

/// The validator's words, made plainer where they are clumsy.
std::string reasonFrom(const std::string& description) {
    const std::string unknownKey = "Object contains a property that could not be validated";
    if (description.compare(0, unknownKey.size(), unknownKey) == 0)
        return "unknown key " + description.substr(description.rfind(": ") + 2);
    if (description == "Failed to match against any enum values.")
        return "is none of the values that may stand here";
    return description;
}

const valijson::ValidationResults::Error* deepest(const valijson::ValidationResults& results) {
    const valijson::ValidationResults::Error* best = nullptr;
    for (const auto& error : results) {
        if (best == nullptr || error.context.size() > best->context.size())
            best = &error;
    }
    return best;
}

[[noreturn]] void refuse(const valijson::ValidationResults& results, const QJsonValue& document,
                         const std::string& file) {
    JsonPlace place{file, {}};
    const auto* const error = deepest(results);
    if (error == nullptr)
        place.refuse("does not match the catalogue schema");
    QJsonValue value = document;
    for (std::size_t step = 1; step < error->context.size(); ++step) {
        const std::string key = stripped(error->context[step]);
        place = place.at(key);
        value = below(value, key);
    }
    const std::string text = shown(value);
    place.refuse((text.empty() ? std::string() : text + ": ") + reasonFrom(error->description));
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

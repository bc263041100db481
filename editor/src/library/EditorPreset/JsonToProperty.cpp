// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/JsonToProperty.h"
#include "EditorPreset/SettingTable.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <cmath>

namespace EditorPreset {

namespace {

using Kestra::Core::Property;

constexpr int HIGHEST_FRAME_RATE = 1000;

Property::Rational toFrameRate(const QString& text, const JsonPlace& place) {
    if (text == QLatin1String(VALUE_SOURCE))
        return Kestra::Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE;
    const QStringList parts = text.split(QLatin1Char('/'));
    bool numeric = parts.size() <= 2;
    bool alsoNumeric = true;
    const int numerator = numeric ? parts.at(0).toInt(&numeric) : 0;
    const int denominator = parts.size() == 2 ? parts.at(1).toInt(&alsoNumeric) : 1;
    if (!numeric || !alsoNumeric || numerator <= 0 || denominator <= 0)
        place.refuse("\"" + text.toStdString() + "\" is no frame rate: \"source\", \"25\" or \"30000/1001\" are");
    const Property::Rational rate(numerator, denominator);
    if (rate > HIGHEST_FRAME_RATE)
        place.refuse("the frame rate " + text.toStdString() + " is above 1000");
    return rate;
}

Property::Value toNumber(double number) {
    // The schema keeps whole numbers far below where this cast would lose anything.
    if (std::trunc(number) == number && std::abs(number) < 1e15)
        return static_cast<std::int64_t>(number);
    return number;
}

Property toProperty(const std::string& name, const QJsonValue& value) {
    if (value.isBool())
        return Property(name, value.toBool());
    if (value.isDouble())
        return Property(name, toNumber(value.toDouble()));
    if (value.isString())
        return Property(name, value.toString().toStdString());
    Property node(name);
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member)
        node.SetChild(toProperty(member.key().toStdString(), member.value()));
    return node;
}

} // namespace

Property toPresetTree(const QJsonObject& object, const JsonPlace& place) {
    Property tree = toProperty({}, object);
    for (const SettingRow& row : Table::ROWS) {
        const char* const section = nameOf(row.section);
        const QJsonValue value = object.value(QLatin1String(section)).toObject().value(QLatin1String(row.name));
        if (std::holds_alternative<FrameRateText>(row.values) && value.isString())
            tree[section].SetChild(row.name, toFrameRate(value.toString(), place.at(section).at(row.name)));
    }
    return tree;
}

} // namespace EditorPreset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/SettingTable.h"
#include "EditorPreset/SchemaDocument.h"
#include "EditorPreset/TreeAccess.h"
#include "support/CatalogueFixture.h"
#include "support/Golden.h"
#include <QStringList>
#include <cmath>

using namespace EditorPreset;
using Kestra::Core::Property;
using TestPresets::text;

namespace {

constexpr int WIDEST_LINE = 120;

QString compact(const QJsonValue& value) {
    if (value.isObject()) {
        QStringList members;
        const QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            members.append(compact(member.key()) + text(": ") + compact(member.value()));
        return text("{") + members.join(text(", ")) + text("}");
    }
    if (value.isArray()) {
        QStringList elements;
        for (const QJsonValue& element : value.toArray())
            elements.append(compact(element));
        return text("[") + elements.join(text(", ")) + text("]");
    }
    const QString wrapped = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    return wrapped.mid(1, wrapped.size() - 2);
}

/// On one line what fits there.
QString readable(const QJsonValue& value, int used, const QString& indent = QString()) {
    const QString line = compact(value);
    if (!value.isObject() || indent.size() + used + line.size() < WIDEST_LINE)
        return line;
    const QString deeper = indent + text("  ");
    QStringList members;
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        const QString key = compact(member.key()) + text(": ");
        members.append(deeper + key + readable(member.value(), key.size(), deeper));
    }
    return text("{\n") + members.join(text(",\n")) + text("\n") + indent + text("}");
}

std::string listed(const std::vector<std::string>& names) {
    std::string result;
    for (const std::string& name : names)
        result += (result.empty() ? "`" : ", `") + name + "`";
    return result;
}

std::string shown(double number) {
    return QString::number(number, 'g', 12).toStdString();
}

struct ValuesForPeople {
    std::string operator()(const Flag&) const { return "`true`, `false`"; }
    std::string operator()(const Text&) const { return "text"; }
    std::string operator()(const Whole& values) const {
        return std::to_string(values.lowest) + " to " + std::to_string(values.highest);
    }
    std::string operator()(const Number& values) const { return shown(values.lowest) + " to " + shown(values.highest); }
    std::string operator()(const FrameRateText&) const { return "text"; }
    std::string operator()(const OneOf& values) const {
        std::vector<std::string> names;
        for (const Choice& choice : values)
            names.emplace_back(choice.name);
        return listed(names);
    }
    std::string operator()(const NameOf& values) const { return listed(values.names()); }
    std::string operator()(const OneOfNumbers& values) const {
        std::vector<std::string> names;
        for (const int number : values.numbers())
            names.push_back(std::to_string(number));
        return listed(names);
    }
    std::string operator()(const Options&) const { return "an object"; }
};

std::string page() {
    std::string result =
        "# Settings of a preset\n\n"
        "What `container`, `video` and `audio` of a preset may hold, in the catalogue and in presets of\n"
        "your own. Quality modifiers override `video` and `audio` setting by setting, and nothing of\n"
        "`container`. scripts/refresh-goldens writes this page.\n";
    for (const Section section : {Section::Container, Section::Video, Section::Audio}) {
        result += std::string("\n## `") + nameOf(section) + "`\n\n| Setting | Values | |\n|---|---|---|\n";
        for (const SettingRow& row : Table::ROWS) {
            if (row.section == section)
                result += std::string("| `") + row.name + "` | " + std::visit(ValuesForPeople(), row.values) + " | " +
                          row.description + " |\n";
        }
    }
    return result;
}

/// Another value than none, and than that of a small preset.
struct SomeValue {
    Property::Value operator()(const Flag&) const { return true; }
    Property::Value operator()(const Text&) const { return std::string("x"); }
    Property::Value operator()(const Whole& values) const { return values.highest; }
    Property::Value operator()(const Number& values) const { return values.highest; }
    Property::Value operator()(const FrameRateText&) const { return Property::Rational(24); }
    Property::Value operator()(const OneOf& values) const { return std::string((values.end() - 1)->name); }
    Property::Value operator()(const NameOf& values) const { return values.names().back(); }
    Property::Value operator()(const OneOfNumbers& values) const { return std::int64_t{values.numbers().back()}; }
    Property::Value operator()(const Options&) const { return {}; }
};

Preset smallest() {
    Property tree;
    tree["container"].SetChild("id", std::string("mp4"));
    tree["video"].SetChild("codec", std::string("h264"));
    tree["audio"].SetChild("codec", std::string("aac"));
    return Preset(tree);
}

Property modifierOf(const SettingRow& row) {
    Property modifier;
    Property& node = modifier[nameOf(row.section)].SetChild(row.name, std::visit(SomeValue(), row.values));
    if (std::holds_alternative<Options>(row.values))
        node.SetChild("name", std::string("value"));
    // The largest side is what a preset without limits is for.
    if (row.missing == Table::NO_SIZE_LIMIT)
        node.SetValue(std::int64_t{640});
    return modifier;
}

} // namespace

TEST(SettingTable, TheSchemaBesideTheCatalogueIsMadeFromIt) {
    const std::string kept = readable(schemaDocument(), 0).toStdString() + "\n";
    TestSupport::compareWithGolden(CATALOGUE_SCHEMA, kept);
}

TEST(SettingTable, ThePageOfTheSettingsIsMadeFromIt) {
    TestSupport::compareWithGolden(PRESETS_PAGE, page());
}

TEST(SettingTable, EveryValueIsTakenOverAndMakesPresetsUnequal) {
    for (const SettingRow& row : Table::ROWS) {
        Preset changed = smallest();
        EXPECT_TRUE(changed.applyQualityModifier(modifierOf(row))) << nameOf(row.section) << "/" << row.name;
        EXPECT_FALSE(changed.equalsTo(smallest())) << nameOf(row.section) << "/" << row.name;
    }
}

TEST(SettingTable, WhatAnEngineIsToldStandsUnderItsTag) {
    const auto isTold = [](const Property& data, const Property& before, const char* tag) {
        return data.ChildExists(tag) && (!before.ChildExists(tag) || data[tag] != before[tag]);
    };
    for (const SettingRow& row : Table::ROWS) {
        const Preset before = smallest();
        Preset changed = before;
        changed.setVideoBitrateMode(Export::BitrateMode::Quality);
        changed.applyQualityModifier(modifierOf(row));
        if (const auto* const container = std::get_if<Kestra::Conf::ContainerSetting>(&row.told.as)) {
            EXPECT_TRUE(isTold(changed.muxerData(), before.muxerData(), TagOf(*container))) << row.name;
        }
        if (const auto* const video = std::get_if<Kestra::Conf::VideoSetting>(&row.told.as)) {
            EXPECT_TRUE(isTold(changed.videoEncoderData(), before.videoEncoderData(), TagOf(*video))) << row.name;
        }
        if (const auto* const audio = std::get_if<Kestra::Conf::AudioSetting>(&row.told.as)) {
            EXPECT_TRUE(isTold(changed.audioEncoderData(), before.audioEncoderData(), TagOf(*audio))) << row.name;
        }
    }
}

class SettingRangeTest : public TestPresets::CatalogueFixture {};

TEST_F(SettingRangeTest, EveryNumberBeyondItsRangeIsRefusedAtItsPlace) {
    for (const SettingRow& row : Table::ROWS) {
        const auto* const whole = std::get_if<Whole>(&row.values);
        const auto* const number = std::get_if<Number>(&row.values);
        if (whole == nullptr && number == nullptr)
            continue;
        const double highest = whole != nullptr ? static_cast<double>(whole->highest) : number->highest;
        const std::string pointer = std::string("/presets/1/") + nameOf(row.section) + "/" + row.name;
        writeCatalogue(TestPresets::edited(TestPresets::smallCatalogue(), pointer.c_str(), highest + 1));
        PresetStorage storage;
        EXPECT_FALSE(load(storage)) << pointer;
        EXPECT_NE(storage.lastError().find(pointer + ": "), std::string::npos) << storage.lastError();
    }
}

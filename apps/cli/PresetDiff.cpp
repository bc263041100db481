// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PresetDiff.h"

#include "ExportCore/PlainText.h"
#include "cli/JsonText.h"
#include <QJsonDocument>
#include <map>

namespace Cli {
namespace {

using Settings = std::map<std::string, std::string>;

std::string textOf(const QJsonValue& value) {
    const QString list = QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
    return list.mid(1, list.size() - 2).toStdString(); // without the brackets
}

void list(const QJsonObject& object, const std::string& pointer, Settings& settings) {
    for (auto member = object.begin(); member != object.end(); ++member) {
        const std::string place = pointer + '/' + member.key().toStdString();
        if (member.value().isObject())
            list(member.value().toObject(), place, settings);
        else
            settings[place] = textOf(member.value());
    }
}

Settings settingsOf(QJsonObject preset) {
    preset.remove(key("id"));
    Settings settings;
    list(preset, {}, settings);
    return settings;
}

} // namespace

std::vector<std::string> presetDifferences(const QJsonObject& first, const QJsonObject& second) {
    std::map<std::string, std::pair<std::string, std::string>> pairs;
    for (const auto& [place, value] : settingsOf(first))
        pairs[place] = {value, "-"};
    for (const auto& [place, value] : settingsOf(second)) {
        auto& pair = pairs[place];
        pair = {pair.first.empty() ? "-" : pair.first, value};
    }
    std::vector<std::string> lines;
    for (const auto& [place, pair] : pairs)
        if (pair.first != pair.second)
            lines.push_back(ExportCore::PlainText::escaped(place + ": " + pair.first + " | " + pair.second));
    return lines;
}

} // namespace Cli

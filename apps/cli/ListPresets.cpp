// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/NameList.h"
#include "ExportCore/PresetCatalogue.h"
#include "Kestra/Conf/CodecID.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/JsonText.h"
#include "cli/ListCommands.h"
#include "cli/PresetText.h"
#include "cli/Terminal.h"
#include "cli/Wrapping.h"
#include <QJsonArray>
#include <algorithm>
#include <cstdio>

namespace Cli {
namespace {

using ExportCore::NameList;
using ExportCore::PresetCatalogue;

QJsonValue codecOf(bool exists, Kestra::Conf::CodecID codec) {
    return exists ? QJsonValue(key(Kestra::Conf::CodecIDToString(codec))) : QJsonValue();
}

QJsonArray arrayOf(const std::vector<std::string>& texts) {
    QJsonArray array;
    for (const std::string& text : texts)
        array.append(QString::fromStdString(text));
    return array;
}

std::vector<std::string> defaultOf(const std::string& id, const PresetCatalogue& catalogue) {
    std::vector<std::string> tags = catalogue.tagsOf(id);
    const auto isOther = [&](const std::string& tag) { return catalogue.defaultOf(tag) != id; };
    tags.erase(std::remove_if(tags.begin(), tags.end(), isOther), tags.end());
    return tags;
}

QJsonObject objectOf(const Preset& preset, const PresetCatalogue& catalogue) {
    return {{key("id"), QString::fromStdString(preset.id())},
            {key("title"), QString::fromStdString(preset.title())},
            {key("tags"), arrayOf(catalogue.tagsOf(preset.id()))},
            {key("defaultOf"), arrayOf(defaultOf(preset.id(), catalogue))},
            {key("container"), QString::fromStdString(preset.containerId())},
            {key("video"), codecOf(preset.hasVideo(), preset.videoCodec())},
            {key("audio"), codecOf(preset.hasAudio(), preset.audioCodec())},
            {key("twoPass"), PresetText::runsTwoPasses(preset)},
            {key("quality"), arrayOf(catalogue.qualitiesOf(preset.id()))}};
}

std::string markedIds(const std::string& tag, const PresetCatalogue& catalogue) {
    std::vector<std::string> ids = catalogue.idsOf(tag);
    for (std::string& id : ids)
        if (id == catalogue.defaultOf(tag))
            id += '*';
    return NameList::joined(ids);
}

void printLines(const std::vector<std::string>& ids, const PresetCatalogue& catalogue) {
    std::size_t width = 0;
    for (const std::string& id : ids)
        width = std::max(width, id.size());
    for (const std::string& id : ids)
        std::printf("%s\n",
                    PresetText::line(catalogue.preset(id), catalogue, width, Terminal::outputColumns()).c_str());
}

void printTags(const PresetCatalogue& catalogue) {
    constexpr std::size_t HANG = 2;
    std::string lines;
    for (const std::string& tag : catalogue.tags())
        lines += tag + ": " + markedIds(tag, catalogue) + '\n';
    std::fputs(Wrapping::fitted(lines, Terminal::outputColumns(), HANG).c_str(), stdout);
}

QJsonArray tagList(const PresetCatalogue& catalogue) {
    QJsonArray all;
    for (const std::string& tag : catalogue.tags())
        all.append(QJsonObject{{key("name"), QString::fromStdString(tag)},
                               {key("default"), QString::fromStdString(catalogue.defaultOf(tag))},
                               {key("presets"), arrayOf(catalogue.idsOf(tag))}});
    return all;
}

/// Each once, in the order in which they were asked for.
std::vector<std::string> chosen(const Options& options, const PresetCatalogue& catalogue) {
    if (options.inputs.empty())
        return options.tag ? catalogue.idsOf(*options.tag) : catalogue.ids();
    for (const std::string& id : options.inputs)
        catalogue.preset(id); // refuses what is none
    return options.inputs;
}

void printText(const Options& options, const std::vector<std::string>& ids, const PresetCatalogue& catalogue) {
    if (options.listTags)
        return printTags(catalogue);
    if (options.inputs.empty())
        return printLines(ids, catalogue);
    for (const std::string& id : ids)
        std::fputs(Wrapping::fitted(PresetText::whole(catalogue.preset(id), catalogue), Terminal::outputColumns(),
                                    PresetText::SECOND)
                       .c_str(),
                   stdout);
}

QJsonObject listOf(const Options& options, const std::vector<std::string>& ids, const PresetCatalogue& catalogue) {
    QJsonObject list;
    if (options.listTags) {
        list.insert(key("tags"), tagList(catalogue));
    } else {
        QJsonArray presets;
        for (const std::string& id : ids)
            presets.append(objectOf(catalogue.preset(id), catalogue));
        list.insert(key("presets"), presets);
    }
    if (!catalogue.warning().empty())
        list.insert(key("warnings"), QJsonArray{QString::fromStdString(catalogue.warning())});
    return list;
}

std::vector<std::string> namesOf(const std::string& what, const PresetCatalogue& catalogue) {
    if (what == "tags")
        return catalogue.tags();
    std::vector<std::string> names = what == "qualities" ? std::vector<std::string>() : catalogue.ids();
    const auto add = [&names](const std::vector<std::string>& more) {
        for (const std::string& name : more)
            if (std::find(names.begin(), names.end(), name) == names.end())
                names.push_back(name);
    };
    if (what == "names")
        add(catalogue.tags());
    if (what == "qualities")
        for (const std::string& id : catalogue.ids())
            add(catalogue.qualitiesOf(id));
    return names;
}

} // namespace

int describePresets(const Options& options) {
    const PresetCatalogue catalogue;
    for (const std::string& name : namesOf(options.described, catalogue))
        std::printf("%s\n", name.c_str());
    return EXIT_DONE;
}

int listPresets(const Options& options) {
    const PresetCatalogue catalogue;
    const std::vector<std::string> ids = chosen(options, catalogue);
    if (options.json) {
        std::printf("%s\n", jsonLine(listOf(options, ids, catalogue)).c_str());
        return EXIT_DONE;
    }
    if (!catalogue.warning().empty())
        ErrorOutput::tell("warning", catalogue.warning());
    printText(options, ids, catalogue);
    return EXIT_DONE;
}

} // namespace Cli

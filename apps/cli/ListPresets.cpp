#include "ExportCore/NameList.h"
#include "ExportCore/PresetCatalogue.h"
#include "Kestra/Conf/CodecID.h"
#include "cli/ErrorOutput.h"
#include "cli/ExitCode.h"
#include "cli/JsonText.h"
#include "cli/ListCommands.h"
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

/// By quality there is nothing to spread over two passes: the setting waits there for another bitrate mode.
bool runsTwoPasses(const Preset& preset) {
    return preset.isVideoTwoPassEncodingEnabled() && preset.videoBitrateMode() != Export::BitrateMode::Quality;
}

QJsonObject objectOf(const Preset& preset, const PresetCatalogue& catalogue) {
    QJsonArray tags;
    for (const std::string& tag : catalogue.tagsOf(preset.id()))
        tags.append(QString::fromStdString(tag));
    QJsonArray qualities;
    for (const std::string& quality : catalogue.qualitiesOf(preset.id()))
        qualities.append(QString::fromStdString(quality));
    return {{key("id"), QString::fromStdString(preset.id())},
            {key("title"), QString::fromStdString(preset.title())},
            {key("tags"), tags},
            {key("container"), QString::fromStdString(preset.containerId())},
            {key("video"), codecOf(preset.hasVideo(), preset.videoCodec())},
            {key("audio"), codecOf(preset.hasAudio(), preset.audioCodec())},
            {key("twoPass"), runsTwoPasses(preset)},
            {key("quality"), qualities}};
}

std::string lineOf(const Preset& preset, const PresetCatalogue& catalogue, std::size_t width) {
    std::string head = preset.id();
    head.resize(std::max(width, head.size()), ' ');
    const std::set<std::string> qualities = catalogue.qualitiesOf(preset.id());
    const std::string quality = qualities.empty()
                                    ? std::string()
                                    : ", quality " + NameList::joined({qualities.begin(), qualities.end()}, "|", "|");
    return head + ' ' + preset.title() + " [" + NameList::joined(catalogue.tagsOf(preset.id())) + ']' + quality;
}

void printLines(const std::vector<std::string>& ids, const PresetCatalogue& catalogue) {
    std::size_t width = 0;
    for (const std::string& id : ids)
        width = std::max(width, id.size());
    for (const std::string& id : ids)
        std::printf("%s\n", lineOf(catalogue.preset(id), catalogue, width).c_str());
}

} // namespace

int listPresets(const Options& options) {
    const PresetCatalogue catalogue;
    if (!catalogue.warning().empty() && !options.json)
        ErrorOutput::tell("warning", catalogue.warning());
    const std::vector<std::string> ids = options.tag ? catalogue.idsOf(*options.tag) : catalogue.ids();
    if (options.json) {
        QJsonArray presets;
        for (const std::string& id : ids)
            presets.append(objectOf(catalogue.preset(id), catalogue));
        QJsonObject list{{key("presets"), presets}};
        if (!catalogue.warning().empty())
            list.insert(key("warnings"), QJsonArray{QString::fromStdString(catalogue.warning())});
        std::printf("%s\n", jsonLine(list).c_str());
        return EXIT_DONE;
    }
    printLines(ids, catalogue);
    return EXIT_DONE;
}

} // namespace Cli

#include "ExportCore/PresetCatalogue.h"
#include "Kestra/Conf/CodecID.h"
#include "cli/ExitCode.h"
#include "cli/JsonText.h"
#include "cli/ListCommands.h"
#include <QJsonArray>
#include <cstdio>

namespace Cli {
namespace {

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

std::string lineOf(const Preset& preset, const PresetCatalogue& catalogue) {
    std::string tags;
    for (const std::string& tag : catalogue.tagsOf(preset.id()))
        tags += (tags.empty() ? "" : ", ") + tag;
    std::string qualities;
    for (const std::string& quality : catalogue.qualitiesOf(preset.id()))
        qualities += (qualities.empty() ? ", quality " : "|") + quality;
    char head[64];
    std::snprintf(head, sizeof head, "%-20s ", preset.id().c_str());
    return (preset.id().size() < 20 ? head : preset.id() + ' ') + preset.title() + " [" + tags + ']' + qualities;
}

} // namespace

int listPresets(const Options& options) {
    const PresetCatalogue catalogue;
    const std::vector<std::string> ids = options.tag.empty() ? catalogue.ids() : catalogue.idsOf(options.tag);
    if (options.json) {
        QJsonArray presets;
        for (const std::string& id : ids)
            presets.append(objectOf(catalogue.preset(id), catalogue));
        std::printf("%s\n", jsonLine(QJsonObject{{key("presets"), presets}}).c_str());
        return EXIT_DONE;
    }
    for (const std::string& id : ids)
        std::printf("%s\n", lineOf(catalogue.preset(id), catalogue).c_str());
    return EXIT_DONE;
}

} // namespace Cli

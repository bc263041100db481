// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PlacesInUse.h"

#include "EditorPreset/Preset.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/PresetChoice.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "ExportCore/SequenceName.h"
#include "ExportCore/TimelineOpening.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "cli/FilesOfMedium.h"
#include "cli/JobRunner.h"
#include "cli/SamePlace.h"
#include <filesystem>
#include <sys/stat.h>

namespace Cli {
namespace {

using ExportCore::RequestCheck;
using ExportCore::TimelineOpening;

bool stands(const std::string& path) {
    struct stat state = {};
    return ::stat(path.c_str(), &state) == 0;
}

/// A percent sign in the name of one film is a percent sign.
bool makesPictures(const Options& exported, const ExportCore::PresetCatalogue& catalogue) {
    try {
        const std::string id =
            ExportCore::PresetChoice::of(exported.preset, QString::fromStdString(exported.output), catalogue).id;
        return Kestra::ClientAPI::ContainerLimits::IsSequence(catalogue.preset(id).containerId());
    } catch (const ExportCore::Refusal&) { // that export makes nothing
        return false;
    }
}

bool isMediumOf(const Options& exported, const std::string& path) {
    for (const std::string& input : exported.inputs)
        if (RequestCheck::isMedium(QByteArray::fromStdString(path),
                                   TimelineOpening::mediaNamedIn(input, exported.timelines)))
            return true;
    return false;
}

} // namespace

PlacesInUse::Place::Place(const std::string& path)
    : whole(placeOf(path)) {
    const std::filesystem::path place(whole);
    folder = place.parent_path();
    name = place.filename();
    pattern = Kestra::Conf::NumberedName::Parse(name);
    isUsual = ExportCore::SequenceName::isUsualName(name);
}

bool PlacesInUse::Place::hasPicture(const Place& other) const {
    if (!isPictures)
        return false;
    if (pattern)
        return other.folder == folder && pattern->NumberOf(other.name);
    return other.isUsual && other.folder == whole;
}

bool PlacesInUse::Place::shares(const Place& other) const {
    return whole == other.whole || hasPicture(other) || other.hasPicture(*this);
}

bool PlacesInUse::isOfQueue(const std::string& queue, const std::string& path) {
    return isSamePlace(path, queue) || isSamePlace(path, queue + ".state");
}

std::string PlacesInUse::useBy(const Options& exported, const std::string& path) {
    if (isSamePlace(path, exported.output))
        return "the output";
    if (isPictureOf(exported, path))
        return "one of the output's pictures";
    if (!exported.queueFile.empty() && isOfQueue(exported.queueFile, path))
        return "the queue's own file";
    // Nothing that is not there can be read.
    if (!stands(path))
        return {};
    if (RequestCheck::isInput(QByteArray::fromStdString(path), JobRunner::requestOf(exported).inputs))
        return "one of the inputs";
    return isMediumOf(exported, path) ? "one of the timeline's media" : "";
}

std::string PlacesInUse::useByAny(const std::vector<Options>& exports, const std::string& path) {
    for (const Options& exported : exports) {
        if (isSamePlace(path, exported.report))
            return "the report";
        if (std::string use = useBy(exported, path); !use.empty())
            return use;
    }
    return {};
}

std::string PlacesInUse::whyNoFile(const std::string& path) {
    struct stat state = {};
    if (::stat(path.c_str(), &state) != 0 || S_ISREG(state.st_mode))
        return {};
    return S_ISDIR(state.st_mode)    ? "it is a folder; name a file in it"
           : S_ISFIFO(state.st_mode) ? "it is a pipe"
           : S_ISSOCK(state.st_mode) ? "it is a socket"
                                     : "it is a device";
}

bool PlacesInUse::isPictureOf(const Options& exported, const std::string& path) {
    if (exported.output.empty())
        return false;
    Place pictures(exported.output);
    const Place other(path);
    pictures.isPictures = true;
    return pictures.hasPicture(other) && makesPictures(exported, ExportCore::PresetCatalogue());
}

PlacesInUse::PlacesInUse(std::vector<Options> exports)
    : exports(std::move(exports)) {}

std::size_t PlacesInUse::readerOf(const std::string& path) {
    struct stat state = {};
    if (path.empty() || ::stat(path.c_str(), &state) != 0)
        return 0; // nothing that is not there can be read
    if (!isReadKnown)
        lookUpWhatIsRead();
    const auto reader = readers.find({state.st_dev, state.st_ino});
    return reader == readers.end() ? 0 : reader->second;
}

std::size_t PlacesInUse::writerBefore(std::size_t index) {
    if (written.empty())
        lookUpWhatIsWritten();
    for (std::size_t writer = 0; writer < index; ++writer)
        for (const Place& place : written[index])
            for (const Place& other : written[writer])
                if (place.shares(other))
                    return writer + 1;
    return 0;
}

void PlacesInUse::lookUpWhatIsWritten() {
    const ExportCore::PresetCatalogue catalogue;
    for (const Options& exported : exports) {
        std::vector<Place>& places = written.emplace_back();
        if (!exported.output.empty())
            places.emplace_back(exported.output).isPictures = makesPictures(exported, catalogue);
        if (!exported.report.empty())
            places.emplace_back(exported.report);
    }
}

void PlacesInUse::lookUpWhatIsRead() {
    isReadKnown = true;
    for (std::size_t index = 0; index < exports.size(); ++index)
        for (const std::string& input : exports[index].inputs) {
            addRead(input, index + 1);
            addRead(input + "/content.otio", index + 1); // of a timeline that is a folder
            for (const auto& medium : TimelineOpening::mediaNamedIn(input, exports[index].timelines))
                for (const QFileInfo& file : filesOfMedium(medium))
                    addRead(file.filePath().toStdString(), index + 1);
        }
}

void PlacesInUse::addRead(const std::string& path, std::size_t reader) {
    struct stat state = {};
    if (::stat(path.c_str(), &state) == 0)
        readers.emplace(File(state.st_dev, state.st_ino), reader); // the first one stays
}

} // namespace Cli

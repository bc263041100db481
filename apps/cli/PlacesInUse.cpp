// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PlacesInUse.h"

#include "ExportCore/RequestCheck.h"
#include "ExportCore/TimelineOpening.h"
#include "Kestra/Conf/NumberedName.h"
#include "cli/FilesOfMedium.h"
#include "cli/JobRunner.h"
#include "cli/SamePlace.h"
#include <filesystem>
#include <regex>
#include <sys/stat.h>

namespace Cli {
namespace {

using ExportCore::RequestCheck;
using ExportCore::TimelineOpening;

bool stands(const std::string& path) {
    struct stat state = {};
    return ::stat(path.c_str(), &state) == 0;
}

bool isMediumOf(const Options& exported, const std::string& path) {
    for (const std::string& input : exported.inputs)
        if (RequestCheck::isMedium(QByteArray::fromStdString(path),
                                   TimelineOpening::mediaNamedIn(input, exported.timelines)))
            return true;
    return false;
}

/// Of an output that is pictures: by their pattern, or in a folder by their usual name, in however many digits.
bool isPictureOf(const std::string& output, const std::string& path) {
    using Kestra::Conf::NumberedName;
    const std::filesystem::path place(placeOf(path)), made(output);
    const std::string name = place.filename();
    if (const auto pattern = NumberedName::Parse(made.filename()))
        return pattern->NumberOf(name) &&
               isSamePlace(place.parent_path(), made.has_parent_path() ? made.parent_path() : ".");
    static const std::regex usual("frame_[0-9]+\\.[a-z]+");
    return std::regex_match(name, usual) && isSamePlace(place.parent_path(), output);
}

} // namespace

bool PlacesInUse::isOfQueue(const std::string& queue, const std::string& path) {
    return isSamePlace(path, queue) || isSamePlace(path, queue + ".state");
}

std::string PlacesInUse::useBy(const Options& exported, const std::string& path) {
    if (isSamePlace(path, exported.output))
        return "the output";
    if (!exported.output.empty() && isPictureOf(exported.output, path))
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/RequestCheck.h"

#include "Export/PresetProvider.h"
#include "ExportCore/NameList.h"
#include "ExportCore/NearFiles.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/OtherPresets.h"
#include "ExportCore/OutputExtension.h"
#include "ExportCore/PathBytes.h"
#include "ExportCore/PathLook.h"
#include "ExportCore/PlainText.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/SequenceName.h"
#include "ExportCore/SettingText.h"
#include "ExportCore/TimeText.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/ClientAPI/CodecLimits.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <set>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::CodecLimits;
using Kestra::ClientAPI::ContainerLimits;

/// Why the last look at a path failed, and what may have been meant where it leads nowhere.
std::string whyNot(const QByteArray& path) {
    const int error = errno;
    return std::strerror(error) + (error == ENOENT ? NearFiles::question(path) : std::string());
}

using Code = Refusal::Code;
using namespace PathLook;

[[noreturn]] void refuse(const std::string& what, Code code = Code::InvalidArgument,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Refusal(what, code), place);
}

/// Of the last look at an input that failed.
Code codeOfMissing() {
    return errno == ENOENT || errno == ENOTDIR ? Code::SourceNotFound : Code::SourceUnreadable;
}

std::string quoted(const QByteArray& path) {
    return '"' + path.toStdString() + '"';
}

/// How the refusal of an input ends that is no file.
const char* insteadOf(mode_t mode) {
    return S_ISDIR(mode) ? "; name the files in it" : S_ISFIFO(mode) ? "; write what comes out of it to a file" : "";
}

void requireBytesOf(const QString& path, const char* verb) {
    if (const std::string why = PathBytes::whyNone(path); !why.empty())
        refuse(std::string("Cannot ") + verb + " \"" + PlainText::escaped(path.toStdString()) + "\": " + why);
}

void checkInput(const QString& input) {
    requireBytesOf(input, "read");
    const QByteArray path = input.toUtf8();
    const auto state = stateOf(path);
    if (!state && path == "-")
        refuse("Cannot read \"-\": standard input is no file, and inputs are read more than once; write it to one");
    if (!state) {
        const Code code = codeOfMissing();
        refuse("Cannot read " + quoted(path) + ": " + whyNot(path), code);
    }
    // A timeline may be a folder: who reads it tells what is wrong with it.
    const bool isTimeline = TimelineOpening::isTimeline(path.toStdString());
    if (const char* kind = kindOf(state->st_mode); kind && !(isTimeline && S_ISDIR(state->st_mode)))
        refuse("Cannot read " + quoted(path) + ": " + kind + insteadOf(state->st_mode), Code::SourceUnreadable);
    if (!allows(path, R_OK))
        refuse("Cannot read " + quoted(path) + ": " + std::strerror(errno), Code::SourceUnreadable);
    if (state->st_size == 0)
        refuse("Cannot read " + quoted(path) + ": it is empty", Code::SourceUnreadable);
}

void checkFolder(const QByteArray& folder, const QByteArray& output) {
    const auto state = stateOf(folder);
    if (!state) {
        const bool isMissing = errno == ENOENT;
        const std::string reason = whyNot(folder);
        const bool asks = reason.back() == '?'; // what may have been meant
        refuse("Cannot write " + quoted(output) + ": the folder " + quoted(folder) + ": " + reason +
                   (isMissing && !asks ? "; make it first" : ""),
               Code::OutputNotWritable);
    }
    if (!S_ISDIR(state->st_mode))
        refuse("Cannot write " + quoted(output) + ": " + quoted(folder) + " is not a folder", Code::OutputNotWritable);
    if (!allows(folder, W_OK | X_OK))
        refuse("Cannot write " + quoted(output) + ": the folder " + quoted(folder) + ": " + std::strerror(errno),
               Code::OutputNotWritable);
}

/// What stands in the folder decides what goes with leave only: who cannot list it fails once everything is made.
void requireListing(const QByteArray& folder, const QByteArray& output) {
    if (!allows(folder, R_OK))
        refuse("Cannot write " + quoted(output) + ": the folder " + quoted(folder) +
                   " may not be listed: " + std::strerror(errno),
               Code::OutputNotWritable);
}

void checkStanding(const struct stat& state, const QByteArray& output, const ExportRequest& request) {
    if (const char* kind = kindOf(state.st_mode))
        refuse("Cannot write " + quoted(output) + ": " + kind + (S_ISDIR(state.st_mode) ? "; name a file in it" : ""));
    if (RequestCheck::isInput(output, request.inputs))
        refuse("Cannot write " + quoted(output) + ": it is one of the inputs");
    if (!request.overwrite)
        refuse("Cannot write " + quoted(output) + ": it exists already (--overwrite replaces it)");
    if (!allows(output, W_OK))
        refuse("Cannot write " + quoted(output) + ": " + std::strerror(errno), Code::OutputNotWritable);
}

/// A new file's place: its folder's true path and its own name.
QByteArray placeOfNew(const QByteArray& output) {
    const QByteArray name = output.mid(output.lastIndexOf('/') + 1);
    if (name.isEmpty() || name == "." || name == "..")
        refuse("Cannot write " + quoted(output) + ": it does not name a file");
    const QByteArray folder = resolved(folderOf(output));
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

void checkPictures(const SequenceTarget& target, const QByteArray& output, const ExportRequest& request) {
    const std::vector<std::string> there = SequenceName{target.path, target.name}.there();
    for (const std::string& picture : there) {
        const QByteArray path = target.path + '/' + QByteArray::fromStdString(picture);
        if (RequestCheck::isInput(path, request.inputs))
            refuse("Cannot write " + quoted(output) + ": the picture \"" + picture + "\" there is one of the inputs");
        struct stat state = {};
        if (::lstat(path.constData(), &state) != 0 || !S_ISREG(state.st_mode))
            refuse("Cannot write " + quoted(output) + ": \"" + picture + "\" there is no file that could be replaced");
    }
    if (!there.empty() && !request.overwrite)
        refuse("Cannot write " + quoted(output) + ": pictures of these names exist already, \"" + there.front() +
               "\" to begin with (--overwrite replaces them)");
}

/// Whether the medium is, or has in it, one of those pictures in that folder, whose path is resolved.
bool isAmong(const Timeline::MediaTarget& medium, const QByteArray& folder, const std::vector<std::string>& pictures) {
    if (const auto* single = std::get_if<Timeline::MediaFile>(&medium)) {
        const QByteArray path = resolved(QByteArray::fromStdString(single->path.ToUtf8()));
        const std::string file = path.mid(path.lastIndexOf('/') + 1).toStdString();
        return folderOf(path) == folder && std::binary_search(pictures.begin(), pictures.end(), file);
    }
    const auto* const sequence = std::get_if<Timeline::ImageSequence>(&medium);
    return sequence && resolved(QByteArray::fromStdString(sequence->folder.ToUtf8())) == folder &&
           std::any_of(pictures.begin(), pictures.end(),
                       [sequence](const std::string& picture) { return sequence->isName(picture); });
}

void requireNoLink(const QByteArray& path, const QByteArray& output) {
    struct stat link = {};
    if (::lstat(path.constData(), &link) == 0)
        refuse("Cannot write " + quoted(output) + ": it is a link that leads nowhere", Code::OutputNotWritable);
}

/// Those of the same media and size first.
std::vector<std::string> presetsFor(const std::string& extension, const Preset& like,
                                    const PresetCatalogue& catalogue) {
    std::vector<std::pair<int, std::string>> fitting;
    for (const std::string& id : catalogue.ids()) {
        const Preset preset = catalogue.preset(id);
        if (OutputExtension::suits(preset, extension))
            fitting.emplace_back(
                (preset.hasVideo() == like.hasVideo() ? 0 : 2) + (preset.maxHeight() == like.maxHeight() ? 0 : 1), id);
    }
    std::stable_sort(fitting.begin(), fitting.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < std::min<std::size_t>(fitting.size(), 3); ++i)
        ids.push_back(fitting[i].second);
    return ids;
}

/// What the name promises and the preset does not write.
std::optional<std::string> wrongExtension(const ExportRequest& request, const Preset& preset) {
    const auto pictures = SequenceName::of(request.outputPath, preset);
    const std::string extension =
        pictures && pictures->isUsual ? std::string() : OutputExtension::of(request.outputPath.toUtf8());
    if (!ContainerLimits::IsKnownExtension(extension) || OutputExtension::suits(preset, extension))
        return std::nullopt;
    return extension;
}

/// How the refusal of a number ends where names are expected.
std::string asSetting(const std::string& name, const Preset& preset) {
    const bool hasScale = CodecLimits::VideoQuality(preset.videoCodec()).Exists();
    return hasScale && SettingText::decimal(name) ? " (a number on the codec's scale: --set quality=" + name + ')'
                                                  : std::string();
}

void requireQuality(const std::string& name, const Export::PresetProvider& provider) {
    const std::set<std::string> known = provider.qualityModifiers();
    if (known.count(name) != 0)
        return;
    const std::string preset = "The preset \"" + provider.preset().id() + '"';
    if (known.empty())
        refuse(preset + " has no qualities to choose from, so none is \"" + name + "\"; leave the quality out" +
               OtherPresets::withQualities(provider.preset()));
    const std::vector<std::string> names = PresetCatalogue().qualitiesOf(provider.preset().id());
    const std::string question = NearNames::question(name, names);
    refuse(preset + " has no quality \"" + name + '"' + (question.empty() ? "; it has " : question + " It has ") +
           NameList::joined(names) + asSetting(name, provider.preset()));
}

} // namespace

void RequestCheck::inputs(const QStringList& inputs) {
    if (inputs.isEmpty())
        refuse("No input was given");
    for (const QString& input : inputs)
        checkInput(input);
    if (inputs.size() == 1)
        return;
    for (const QString& input : inputs)
        if (TimelineOpening::isTimeline(input.toStdString()))
            refuse("Cannot export " + quoted(input.toUtf8()) + " beside other inputs: a timeline is exported alone");
}

bool RequestCheck::isInput(const QByteArray& path, const QStringList& inputs) {
    const auto state = stateOf(path);
    if (!state)
        return false;
    return std::any_of(inputs.begin(), inputs.end(), [&state](const QString& input) {
        // A timeline may be a folder, which is read by way of a file in it.
        return isSame(input.toUtf8(), *state) || isSame(input.toUtf8() + "/content.otio", *state);
    });
}

bool RequestCheck::isClosed(const QByteArray& path) {
    return !PathLook::allows(PathLook::folderOf(path), W_OK | X_OK) && (errno == EACCES || errno == EROFS);
}

bool RequestCheck::replacesInput(const ExportRequest& request, const std::optional<SequenceName>& sequence) {
    if (!sequence)
        return isInput(request.outputPath.toUtf8(), request.inputs);
    const std::vector<std::string> there = sequence->there();
    return std::any_of(there.begin(), there.end(), [&](const std::string& picture) {
        return isInput(sequence->folder + '/' + QByteArray::fromStdString(picture), request.inputs);
    });
}

void RequestCheck::outputIsNamed(const ExportRequest& request) {
    if (request.outputPath.isEmpty())
        refuse("No output file was given");
    if (request.outputPath == QLatin1String("-"))
        refuse("Cannot write \"-\": standard output is no place for an export, which is a file that is checked when it "
               "is complete; name a file, and read that when the export is done");
    requireBytesOf(request.outputPath, "write");
}

OutputTarget RequestCheck::output(const ExportRequest& request) {
    outputIsNamed(request);
    const QByteArray output = request.outputPath.toUtf8();
    OutputTarget target;
    target.replace = request.overwrite;
    if (const auto state = stateOf(output)) {
        checkStanding(*state, output, request);
        target.existed = true;
        target.mode = state->st_mode & 07777;
        target.owner = state->st_uid;
        target.group = state->st_gid;
        target.path = resolved(output);
    } else if (errno != ENOENT) {
        refuse("Cannot write " + quoted(output) + ": " + std::strerror(errno), Code::OutputNotWritable);
    } else {
        requireNoLink(output, output);
        checkFolder(folderOf(output), output);
        target.path = placeOfNew(output);
    }
    target.folder = folderOf(target.path);
    checkFolder(target.folder, output);
    return target;
}

SequenceTarget RequestCheck::sequence(const ExportRequest& request, const SequenceName& sequence) {
    outputIsNamed(request);
    const QByteArray output = request.outputPath.toUtf8();
    SequenceTarget target;
    target.replace = request.overwrite;
    target.name = sequence.name;
    if (const auto state = stateOf(sequence.folder)) {
        if (!S_ISDIR(state->st_mode))
            refuse("Cannot write " + quoted(output) + ": " + quoted(sequence.folder) + " is not a folder");
        if (isInput(sequence.folder, request.inputs))
            refuse("Cannot write " + quoted(output) + ": it is one of the inputs");
        target.existed = true;
        target.path = resolved(sequence.folder);
        checkFolder(target.path, output);
        requireListing(target.path, output);
        checkPictures(target, output, request);
        return target;
    }
    if (errno != ENOENT)
        refuse("Cannot write " + quoted(output) + ": " + std::strerror(errno), Code::OutputNotWritable);
    requireNoLink(sequence.folder, output);
    checkFolder(folderOf(sequence.folder), output);
    target.path = placeOfNew(sequence.folder);
    return target;
}

void RequestCheck::outputIsFit(const ExportRequest& request, const Preset& preset) {
    if (const auto pictures = SequenceName::of(request.outputPath, preset))
        sequence(request, *pictures);
    else
        output(request);
    outputName(request, preset);
}

void RequestCheck::outputIsNoneOf(const std::vector<Timeline::MediaTarget>& media, const ExportRequest& request,
                                  const std::optional<Preset>& preset) {
    const QByteArray output = request.outputPath.toUtf8();
    bool isThere = false;
    if (const auto pictures = preset ? SequenceName::of(request.outputPath, *preset) : std::nullopt) {
        const QByteArray folder = resolved(pictures->folder);
        const std::vector<std::string> names = pictures->there();
        isThere = std::any_of(media.begin(), media.end(), [&](const Timeline::MediaTarget& medium) {
            return !folder.isEmpty() && isAmong(medium, folder, names);
        });
    } else {
        isThere = isMedium(output, media);
    }
    if (isThere)
        refuse("Cannot write " + quoted(output) + ": it is one of the timeline's media");
}

bool RequestCheck::isMedium(const QByteArray& path, const std::vector<Timeline::MediaTarget>& media) {
    const auto state = stateOf(path);
    return state && std::any_of(media.begin(), media.end(),
                                [&state](const Timeline::MediaTarget& medium) { return isOf(medium, *state); });
}

void RequestCheck::outputName(const ExportRequest& request, const Preset& preset) {
    if (wrongExtension(request, preset))
        outputName(request, preset, PresetCatalogue());
}

void RequestCheck::outputName(const ExportRequest& request, const Preset& preset, const PresetCatalogue& catalogue) {
    const QByteArray output = request.outputPath.toUtf8();
    const std::optional<std::string> wrong = wrongExtension(request, preset);
    if (!wrong)
        return;
    const std::vector<std::string> usual = ContainerLimits::Extensions(preset.containerId(), preset.hasVideo());
    const std::vector<std::string> fitting = presetsFor(*wrong, preset, catalogue);
    refuse("Cannot write " + quoted(output) + ": the preset \"" + preset.id() + "\" writes ." +
           NameList::joined(usual, " or .", ", .") + ", not ." + *wrong +
           (fitting.empty() ? "; no preset writes that" : "; presets that do: " + NameList::joined(fitting, " or ")));
}

PresetEdit RequestCheck::presetEdit(const ExportRequest& request, const Export::PresetProvider& provider) {
    PresetEdit edit;
    edit.withoutVideo = !request.tracks.picture;
    edit.withoutAudio = request.tracks.sound == TrackOptions::Sound::None;
    if (request.tracks.sound == TrackOptions::Sound::Chosen && !provider.preset().hasAudio())
        refuse("The preset \"" + provider.preset().id() + "\" has no sound to take a track for" +
               OtherPresets::withSound(provider.preset()));
    if (request.quality) {
        edit.modifier = *request.quality;
        requireQuality(edit.modifier, provider);
    }
    edit.settings = PresetSettings::parse(request.settings);
    edit.settings.requireFit(provider.preset());
    if (request.loudness && !provider.preset().hasAudio())
        refuse("Cannot change the loudness: the preset " + quoted(provider.preset().id().c_str()) + " has no sound" +
               OtherPresets::withSound(provider.preset()));
    return edit;
}

void RequestCheck::ranges(const ExportRequest& request) {
    if (!CutPoints::countFrames(request))
        CutPoints::of(request, {});
    const Types::Range& window = request.exportRange;
    if (window != Types::Range() && (window.start < KTime(0) || window.end <= window.start))
        refuse("The export range from " + TimeText::format(window.start) + " to " + TimeText::format(window.end) +
               " is empty");
}

Types::Range RequestCheck::streamRange(const ExportRequest& request, const CutPoints& cut, KTime duration,
                                       KTime outro) {
    ranges(request);
    if (cut.in && *cut.in >= duration)
        refuse("The in point " + TimeText::format(*cut.in) + " lies outside the inputs, which last " +
               TimeText::format(duration));
    const Types::Range range{cut.in.value_or(KTime(0)), std::min(cut.out.value_or(duration), duration)};
    const KTime lasting = range.end - range.start + outro;
    if (request.exportRange.end > lasting)
        refuse("The end of the export range " + TimeText::format(request.exportRange.end) +
               " lies outside what is exported, which lasts " + TimeText::format(lasting));
    return cut.in || cut.out ? range : Types::Range();
}

} // namespace ExportCore

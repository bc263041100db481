// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SequenceName.h"

#include "EditorPreset/Preset.h"
#include "ExportCore/OutputExtension.h"
#include "ExportCore/Refusal.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace ExportCore {
namespace {

using Kestra::ClientAPI::ContainerLimits;
using Kestra::Conf::NumberedName;

const char* const USUAL_PREFIX = "frame_";
constexpr int USUAL_DIGITS = 5;

[[noreturn]] void refuse(const QByteArray& output, const std::string& reason,
                         Kestra::SourcePlace place = Kestra::SourcePlace::Here()) {
    Kestra::ThrowFrom(Refusal("Cannot write \"" + output.toStdString() + "\": " + reason), place);
}

bool isFolderItself(const QByteArray& name) {
    return name.isEmpty() || name == "." || name == "..";
}

/// The folder "/" is one slash.
QByteArray withoutSlashes(QByteArray path) {
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

SequenceName usualIn(const QByteArray& folder, const std::string& extension) {
    SequenceName sequence;
    sequence.folder = withoutSlashes(folder);
    sequence.name = {USUAL_PREFIX, '.' + extension, USUAL_DIGITS};
    sequence.isUsual = true;
    return sequence;
}

bool isOfLetters(const std::string& text, char first, char last) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [=](char letter) { return letter >= first && letter <= last; });
}

std::string waysOut(const QByteArray& output, const Preset& preset, const std::string& extension) {
    const std::string stem = output.left(output.lastIndexOf('.')).toStdString();
    return "the preset \"" + preset.id() + "\" makes a file of each picture; name a folder (\"" + stem +
           "/\") or numbered files (\"" + stem + "_%05d." + extension + "\")";
}

} // namespace

std::optional<SequenceName> SequenceName::of(const QString& output, const Preset& preset) {
    if (!ContainerLimits::IsSequence(preset.containerId()))
        return std::nullopt;
    const std::vector<std::string> usual = ContainerLimits::Extensions(preset.containerId(), true);
    const QByteArray path = output.toUtf8();
    const int slash = path.lastIndexOf('/');
    const QByteArray last = path.mid(slash + 1);
    const int places = NumberedName::CountPlaces(last.toStdString());
    const std::string extension = OutputExtension::of(last);
    if (places == 0 && !isFolderItself(last) && ContainerLimits::IsKnownExtension(extension))
        refuse(path, waysOut(path, preset, usual.front()));
    if (places == 0)
        return usualIn(path, usual.front());
    const auto name = NumberedName::Parse(last.toStdString());
    if (!name)
        refuse(path, places > 1 ? "it has more than one place for the number of a picture"
                                : "a number of that many digits there is none; write %05d");
    SequenceName sequence;
    sequence.folder = slash < 0 ? QByteArray(".") : withoutSlashes(path.left(slash + 1));
    sequence.name = *name;
    return sequence;
}

bool SequenceName::isUsualName(const std::string& file) {
    const std::string prefix = USUAL_PREFIX;
    const std::size_t dot = file.find('.');
    if (file.compare(0, prefix.size(), prefix) != 0 || dot == std::string::npos ||
        !isOfLetters(file.substr(dot + 1), 'a', 'z'))
        return false;
    const auto pattern = NumberedName::Parse(file);
    return pattern ? pattern->prefix == prefix && pattern->suffix == file.substr(dot)
                   : isOfLetters(file.substr(prefix.size(), dot - prefix.size()), '0', '9');
}

void SequenceName::widenFor(qint64 pictures) {
    if (isUsual && pictures > 0)
        name.digits = std::max<int>(name.digits, static_cast<int>(std::to_string(pictures - 1).size()));
}

QByteArray SequenceName::pathOf(qint64 number) const {
    const QByteArray file = QByteArray::fromStdString(name.NameOf(number));
    return folder.endsWith('/') ? folder + file : folder + '/' + file;
}

std::vector<std::string> SequenceName::there() const {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder.toStdString(), error), none; !error && entry != none;
         entry.increment(error))
        if (std::string file = entry->path().filename().string(); name.NumberOf(file))
            names.push_back(std::move(file));
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace ExportCore

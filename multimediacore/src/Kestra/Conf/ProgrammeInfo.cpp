// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/ProgrammeInfo.h"

#include <algorithm>

namespace Kestra::Conf {

namespace {

constexpr const char* TAG_PROGRAMME = "programme";
constexpr const char* TAG_TITLE = "title";
constexpr const char* TAG_TAGS = "tags";
constexpr const char* TAG_TIMECODE = "timecode";
constexpr const char* TAG_DROP_FRAME = "dropFrame";
constexpr const char* TAG_CHAPTERS = "chapters";
constexpr const char* TAG_START = "start";
constexpr const char* TAG_END = "end";
constexpr const char* TAG_PICTURE = "picture";
constexpr const char* TAG_SOUND = "sound";
constexpr const char* TAG_FURTHER_SOUNDS = "furtherSounds";
constexpr const char* TAG_LANGUAGE = "language";
constexpr const char* TAG_DEFAULT = "default";
constexpr const char* TAG_COVER = "cover";
constexpr const char* TAG_MIME_TYPE = "mimeType";
constexpr const char* TAG_BYTES = "bytes";
constexpr const char* TAG_WIDTH = "width";
constexpr const char* TAG_HEIGHT = "height";
constexpr const char* TAG_PIXEL_FORMAT = "pixelFormat";
constexpr const char* TAG_SUBTITLES = "subtitles";

// Children are told apart by their names, so those of a list are numbered.
Core::Property& Append(Core::Property& list) {
    return list.SetChild(std::to_string(list.GetChildren().size()));
}

ProgrammeInfo::Chapter ChapterOf(const Core::Property& node) {
    return {node[TAG_START].GetInt64(), node[TAG_END].GetInt64(), node[TAG_TITLE].GetString()};
}

void Tell(Core::Property& list, const ProgrammeInfo::Chapter& chapter) {
    Core::Property& node = Append(list);
    node.SetChild(TAG_START, chapter.start);
    node.SetChild(TAG_END, chapter.end);
    node.SetChild(TAG_TITLE, chapter.title);
}

void Tell(Core::Property& node, const ProgrammeInfo::TrackName& name) {
    node.SetChild(TAG_LANGUAGE, name.language);
    node.SetChild(TAG_TITLE, name.title);
    node.SetChild(TAG_DEFAULT, name.isDefault);
}

ProgrammeInfo::TrackName NameOf(const Core::Property& node) {
    return {node[TAG_LANGUAGE].GetString(), node[TAG_TITLE].GetString(), node[TAG_DEFAULT].GetBool()};
}

void Tell(Core::Property& told, const ProgrammeInfo::Cover& cover) {
    if (cover.bytes.empty())
        return;
    Core::Property& node = told.SetChild(TAG_COVER);
    node.SetChild(TAG_MIME_TYPE, cover.mimeType);
    node.SetChild(TAG_BYTES, cover.bytes);
    node.SetChild(TAG_WIDTH, std::int64_t{cover.width});
    node.SetChild(TAG_HEIGHT, std::int64_t{cover.height});
    node.SetChild(TAG_PIXEL_FORMAT, cover.pixelFormat);
}

ProgrammeInfo::Cover CoverOf(const Core::Property& tree) {
    if (!tree.ChildExists(TAG_COVER))
        return {};
    const Core::Property& node = tree[TAG_COVER];
    return {node[TAG_MIME_TYPE].GetString(), node[TAG_BYTES].GetString(), static_cast<int>(node[TAG_WIDTH].GetInt64()),
            static_cast<int>(node[TAG_HEIGHT].GetInt64()), node[TAG_PIXEL_FORMAT].GetString()};
}

} // namespace

bool ProgrammeInfo::IsEmpty() const {
    return *this == ProgrammeInfo();
}

bool operator==(const ProgrammeInfo& a, const ProgrammeInfo& b) {
    return a.title == b.title && a.tags == b.tags && a.timecode == b.timecode && a.dropFrame == b.dropFrame &&
           a.chapters == b.chapters && a.picture == b.picture && a.sound == b.sound &&
           a.furtherSounds == b.furtherSounds && a.cover == b.cover && a.subtitles == b.subtitles;
}

ProgrammeInfo ProgrammeInfo::Part(std::int64_t start, std::int64_t end) const {
    ProgrammeInfo part = *this;
    if (timecode)
        part.timecode = *timecode + start;
    std::stable_sort(part.chapters.begin(), part.chapters.end(),
                     [](const Chapter& a, const Chapter& b) { return a.start < b.start; });
    std::int64_t next = end;
    for (auto chapter = part.chapters.rbegin(); chapter != part.chapters.rend(); ++chapter) {
        const std::int64_t begin = chapter->start;
        chapter->end = std::min(chapter->end > begin ? chapter->end : next, end) - start;
        chapter->start = std::max(begin - start, std::int64_t{0});
        next = begin;
    }
    const auto isOutside = [](const Chapter& chapter) { return chapter.end <= chapter.start; };
    part.chapters.erase(std::remove_if(part.chapters.begin(), part.chapters.end(), isOutside), part.chapters.end());
    part.subtitles.clear();
    for (const Subtitles& track : subtitles)
        if (Subtitles shown = track.Part(start, end); !shown.cues.empty())
            part.subtitles.push_back(std::move(shown));
    return part;
}

ProgrammeInfo ProgrammeInfo::Of(const IFormatCodec& format) {
    ProgrammeInfo info;
    if (!format.GetProperty().ChildExists(TAG_PROGRAMME))
        return info;
    const Core::Property& tree = format.GetProperty()[TAG_PROGRAMME];
    info.title = tree[TAG_TITLE].GetString();
    for (const Core::Property& node : tree[TAG_TAGS].GetChildren())
        info.tags.emplace_back(node.GetName(), node.GetString());
    if (tree.ChildExists(TAG_TIMECODE))
        info.timecode = tree[TAG_TIMECODE].GetInt64();
    info.dropFrame = tree[TAG_DROP_FRAME].GetBool();
    for (const Core::Property& node : tree[TAG_CHAPTERS].GetChildren())
        info.chapters.push_back(ChapterOf(node));
    info.picture = NameOf(tree[TAG_PICTURE]);
    info.sound = NameOf(tree[TAG_SOUND]);
    for (const Core::Property& node : tree[TAG_FURTHER_SOUNDS].GetChildren())
        info.furtherSounds.push_back(NameOf(node));
    info.cover = CoverOf(tree);
    for (const Core::Property& node : tree[TAG_SUBTITLES].GetChildren())
        info.subtitles.push_back(Subtitles::Of(node));
    return info;
}

void ProgrammeInfo::TellIn(IFormatCodec& format) const {
    Core::Property tree = format.GetProperty();
    tree.RemoveChild(TAG_PROGRAMME);
    if (!IsEmpty()) {
        Core::Property& told = tree.SetChild(TAG_PROGRAMME);
        told.SetChild(TAG_TITLE, title);
        Core::Property& list = told.SetChild(TAG_TAGS);
        for (const auto& [key, value] : tags)
            list.SetChild(key, value);
        if (timecode)
            told.SetChild(TAG_TIMECODE, *timecode);
        told.SetChild(TAG_DROP_FRAME, dropFrame);
        Core::Property& marks = told.SetChild(TAG_CHAPTERS);
        for (const Chapter& chapter : chapters)
            Tell(marks, chapter);
        Tell(told.SetChild(TAG_PICTURE), picture);
        Tell(told.SetChild(TAG_SOUND), sound);
        Core::Property& sounds = told.SetChild(TAG_FURTHER_SOUNDS);
        for (const TrackName& name : furtherSounds)
            Tell(Append(sounds), name);
        Tell(told, cover);
        Core::Property& tracks = told.SetChild(TAG_SUBTITLES);
        for (const Subtitles& track : subtitles)
            track.TellIn(Append(tracks));
    }
    format.SetProperty(tree);
}

} // namespace Kestra::Conf

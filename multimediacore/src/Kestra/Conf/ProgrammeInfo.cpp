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

} // namespace

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
    }
    format.SetProperty(tree);
}

} // namespace Kestra::Conf

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Mux/ProgrammeWriter.h"

#include "Kestra/Base/Time.h"
#include "Kestra/ClientAPI/ContainerLimits.h"
#include "Kestra/Conf/StandardRates.h"
#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

extern "C" {
#include <libavutil/avstring.h>
#include <libavutil/timecode.h>
}

namespace Kestra::FF {

using Conf::ProgrammeInfo;
using Proc::TranscodingError;

namespace {

constexpr std::int64_t SECONDS_A_DAY = 86400;
constexpr const char* TITLE = "title";
constexpr const char* TIMECODE = "timecode";
constexpr const char* LANGUAGE = "language";
/// What the muxer says itself.
constexpr const char* OWN_KEYS[] = {TITLE, TIMECODE, "encoder", "encoding_tool"};

void Set(AVDictionary** tags, const char* key, const std::string& value) {
    Check(av_dict_set(tags, key, value.c_str(), 0), TranscodingError::OutOfMemory, "metadata");
}

bool IsOwn(const std::string& key) {
    return key.empty() || std::any_of(std::begin(OWN_KEYS), std::end(OWN_KEYS),
                                      [&key](const char* own) { return av_strcasecmp(key.c_str(), own) == 0; });
}

std::vector<AVStream*> Find(const AVFormatContext& context, AVMediaType type) {
    std::vector<AVStream*> found;
    for (unsigned index = 0; index < context.nb_streams; ++index)
        if (context.streams[index]->codecpar->codec_type == type)
            found.push_back(context.streams[index]);
    return found;
}

void Name(AVStream& stream, const ProgrammeInfo::TrackName& name, const Conf::Container& container) {
    if (container.languages == Conf::Container::Languages::ByTag)
        return;
    const std::string language = ClientAPI::ContainerLimits::LanguageIn(container.id, name.language);
    if (!language.empty())
        Set(&stream.metadata, LANGUAGE, language);
    SetTrackTitle(stream, name.title, container);
}

void NameSounds(const std::vector<AVStream*>& sounds, const ProgrammeInfo& programme,
                const Conf::Container& container) {
    std::vector<ProgrammeInfo::TrackName> names{programme.sound};
    names.insert(names.end(), programme.furtherSounds.begin(), programme.furtherSounds.end());
    names.resize(sounds.size());
    for (std::size_t index = 0; index < sounds.size(); ++index)
        Name(*sounds[index], names[index], container);
    if (sounds.size() < 2)
        return; // nobody has to choose
    names.front().isDefault = names.front().isDefault ||
                              std::none_of(names.begin(), names.end(), [](const auto& name) { return name.isDefault; });
    for (std::size_t index = 0; index < sounds.size(); ++index)
        sounds[index]->disposition = names[index].isDefault ? AV_DISPOSITION_DEFAULT : 0;
}

/// Where tracks have no language, the sound's is that of the file.
void TagLanguage(AVFormatContext& context, const ProgrammeInfo& programme, const Conf::Container& container) {
    const std::string language = ClientAPI::ContainerLimits::LanguageIn(container.id, programme.sound.language);
    if (container.languages == Conf::Container::Languages::ByTag && !language.empty())
        Set(&context.metadata, LANGUAGE, language);
}

void AddChapter(AVFormatContext& context, const ProgrammeInfo::Chapter& chapter) {
    auto* const made = static_cast<AVChapter*>(Allocated(av_mallocz(sizeof(AVChapter))));
    int count = static_cast<int>(context.nb_chapters);
    made->id = count;
    made->time_base = {1, static_cast<int>(TIME_BASE)};
    made->start = chapter.start;
    made->end = chapter.end;
    // The context owns it once it is in the array.
    if (av_dynarray_add_nofree(&context.chapters, &count, made) < 0) {
        av_free(made);
        throw std::bad_alloc();
    }
    context.nb_chapters = static_cast<unsigned>(count);
    Set(&made->metadata, TITLE, chapter.title);
}

/// As tags of the whole, which such files have for that. Left to it, the muxer rounds the seconds of a time but cuts
/// its milliseconds off, so that half of all chapters are a second late.
void TagChapters(AVFormatContext& context, const std::vector<ProgrammeInfo::Chapter>& chapters) {
    constexpr std::int64_t MILLISECOND = TIME_BASE / 1000, SECOND = 1000, MINUTE = 60 * SECOND, HOUR = 60 * MINUTE;
    int number = 0;
    for (const ProgrammeInfo::Chapter& chapter : chapters) {
        std::array<char, 32> key{}, time{};
        const std::int64_t start = (chapter.start + MILLISECOND / 2) / MILLISECOND;
        std::snprintf(key.data(), key.size(), "CHAPTER%03d", number++);
        std::snprintf(time.data(), time.size(), "%02d:%02d:%02d.%03d", static_cast<int>(start / HOUR),
                      static_cast<int>(start % HOUR / MINUTE), static_cast<int>(start % MINUTE / SECOND),
                      static_cast<int>(start % SECOND));
        Set(&context.metadata, key.data(), time.data());
        Set(&context.metadata, (std::string(key.data()) + "NAME").c_str(), chapter.title);
    }
}

void AddChapters(AVFormatContext& context, const std::vector<ProgrammeInfo::Chapter>& chapters,
                 const Conf::Container& container) {
    if (IsOgg(container))
        return TagChapters(context, chapters);
    const bool isMov = container.family == Conf::Container::Family::Mov;
    // The track of chapters in such files knows lengths only, so that what lies before the first is to be one as well.
    if (isMov && !chapters.empty() && chapters.front().start > 0)
        AddChapter(context, {0, chapters.front().start, {}});
    for (const ProgrammeInfo::Chapter& chapter : chapters)
        AddChapter(context, {chapter.start, chapter.end,
                             ClientAPI::ContainerLimits::ChapterTitleIn(container.id, chapter.title)});
}

} // namespace

bool IsOgg(const Conf::Container& container) {
    const std::string_view muxer = container.muxer;
    return muxer == "ogg" || muxer == "opus";
}

void SetTrackTitle(AVStream& stream, const std::string& title, const Conf::Container& container) {
    if (title.empty())
        return;
    Set(&stream.metadata, TITLE, title);
    // Not every reader of such files looks for titles, but all read this name.
    if (container.family == Conf::Container::Family::Mov)
        Set(&stream.metadata, "handler_name", title);
}

std::string TimecodeText(std::int64_t time, AVRational rate, bool dropFrame) {
    AVTimecode code = {};
    if (rate.num <= 0 || av_timecode_init(&code, rate, AV_TIMECODE_FLAG_24HOURSMAX, 0, nullptr) < 0)
        return {};
    const bool drops = dropFrame && Conf::IsDropFrameRate({rate.num, rate.den});
    const auto second = static_cast<std::int64_t>(code.fps);
    // Two numbers of thirty a second are dropped each minute but every tenth.
    const std::int64_t dropped = drops ? second / 15 * (SECONDS_A_DAY / 60 - SECONDS_A_DAY / 600) : 0;
    const std::int64_t day = SECONDS_A_DAY * second - dropped;
    const std::int64_t number = TimeToFrames(time, {rate.num, rate.den}) % day;
    if (drops)
        code.flags |= AV_TIMECODE_FLAG_DROPFRAME;
    std::array<char, AV_TIMECODE_STR_SIZE> text{};
    return av_timecode_make_string(&code, text.data(), static_cast<int>(number < 0 ? number + day : number));
}

void DescribeProgramme(AVFormatContext& context, const ProgrammeInfo& programme, const Conf::Container& container) {
    for (const auto& [key, value] : programme.tags)
        if (!IsOwn(key))
            Set(&context.metadata, key.c_str(), value);
    if (!programme.title.empty())
        Set(&context.metadata, TITLE, programme.title);
    TagLanguage(context, programme, container);
    const std::vector<AVStream*> pictures = Find(context, AVMEDIA_TYPE_VIDEO);
    for (AVStream* const track : pictures)
        Name(*track, programme.picture, container);
    NameSounds(Find(context, AVMEDIA_TYPE_AUDIO), programme, container);
    if (programme.timecode && container.timecode && !pictures.empty()) {
        const AVRational rate = pictures.front()->avg_frame_rate;
        const std::string text = TimecodeText(*programme.timecode, rate, programme.dropFrame);
        if (!text.empty())
            Set(&context.metadata, TIMECODE, text);
    }
    if (container.chapters)
        AddChapters(context, programme.chapters, container);
}

} // namespace Kestra::FF

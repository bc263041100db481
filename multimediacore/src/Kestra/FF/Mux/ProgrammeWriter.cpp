#include "Kestra/FF/Mux/ProgrammeWriter.h"

#include "Kestra/Base/Time.h"
#include "Kestra/FF/Av/Error.h"
#include <algorithm>
#include <array>

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
/// What the muxer says itself.
constexpr const char* OWN_KEYS[] = {TITLE, TIMECODE, "encoder", "encoding_tool"};

void Set(AVDictionary** tags, const char* key, const std::string& value) {
    Check(av_dict_set(tags, key, value.c_str(), 0), TranscodingError::OutOfMemory, "metadata");
}

bool IsOwn(const std::string& key) {
    return key.empty() || std::any_of(std::begin(OWN_KEYS), std::end(OWN_KEYS),
                                      [&key](const char* own) { return av_strcasecmp(key.c_str(), own) == 0; });
}

const AVStream* FindPictures(const AVFormatContext& context) {
    for (unsigned index = 0; index < context.nb_streams; ++index)
        if (context.streams[index]->codecpar->codec_type == AVMEDIA_TYPE_VIDEO)
            return context.streams[index];
    return nullptr;
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

void AddChapters(AVFormatContext& context, const std::vector<ProgrammeInfo::Chapter>& chapters, bool isMov) {
    // The track of chapters in such files knows lengths only, so that what lies before the first is to be one as well.
    if (isMov && !chapters.empty() && chapters.front().start > 0)
        AddChapter(context, {0, chapters.front().start, {}});
    for (const ProgrammeInfo::Chapter& chapter : chapters)
        AddChapter(context, chapter);
}

} // namespace

std::string TimecodeText(std::int64_t time, AVRational rate, bool dropFrame) {
    const bool drops = dropFrame && rate.den == 1001 && rate.num % 30000 == 0;
    AVTimecode code = {};
    if (rate.num <= 0 || av_timecode_init(&code, rate, AV_TIMECODE_FLAG_24HOURSMAX, 0, nullptr) < 0)
        return {};
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
    const AVStream* const pictures = FindPictures(context);
    if (programme.timecode && container.timecode && pictures) {
        const std::string text = TimecodeText(*programme.timecode, pictures->avg_frame_rate, programme.dropFrame);
        if (!text.empty())
            Set(&context.metadata, TIMECODE, text);
    }
    if (container.chapters)
        AddChapters(context, programme.chapters, container.family == Conf::Container::Family::Mov);
}

} // namespace Kestra::FF

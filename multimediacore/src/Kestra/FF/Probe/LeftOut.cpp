#include "Kestra/FF/Probe/LeftOut.h"

#include <algorithm>
#include <iterator>

namespace Kestra::FF {

namespace {

// Beyond that the numbers of tracks are of no use to anybody.
constexpr std::size_t MOST_NAMED = 8;

struct Kind {
    const char* one;
    std::vector<std::string> tracks = {};

    void Add(const AVStream& stream) {
        const AVDictionaryEntry* language = av_dict_get(stream.metadata, "language", nullptr, 0);
        tracks.push_back(std::to_string(stream.index) + (language && std::string("und") != language->value
                                                             ? std::string(", ") + language->value
                                                             : ""));
    }
    std::string Text() const {
        std::string names;
        for (const std::string& track : tracks)
            names += (names.empty() ? "" : "; ") + track;
        return std::to_string(tracks.size()) + ' ' + one + (tracks.size() == 1 ? "" : "s") +
               (tracks.size() <= MOST_NAMED ? " (" + names + ')' : std::string());
    }
};

bool HasWrittenTags(const AVDictionary* tags) {
    constexpr const char* written[] = {"title",  "artist", "album",    "comment",  "copyright", "description", "genre",
                                       "lyrics", "date",   "composer", "location", "synopsis",  "show"};
    return std::any_of(std::begin(written), std::end(written),
                       [tags](const char* tag) { return av_dict_get(tags, tag, nullptr, 0) != nullptr; });
}

} // namespace

void NoteWhatIsLeftOut(const AVFormatContext& context, int video, int audio, std::vector<std::string>& notes) {
    Kind frames{"picture track"}, sounds{"sound track"}, subtitles{"subtitle track"}, attachments{"attachment"},
        data{"data track"}, covers{"attached picture"};
    for (unsigned index = 0; index < context.nb_streams; ++index) {
        const AVStream& stream = *context.streams[index];
        const bool cover = (stream.disposition & (AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS)) != 0;
        if (stream.index == video || stream.index == audio)
            continue;
        switch (stream.codecpar->codec_type) {
        case AVMEDIA_TYPE_VIDEO:
            (cover ? covers : frames).Add(stream);
            break;
        case AVMEDIA_TYPE_AUDIO:
            sounds.Add(stream);
            break;
        case AVMEDIA_TYPE_SUBTITLE:
            subtitles.Add(stream);
            break;
        case AVMEDIA_TYPE_ATTACHMENT:
            attachments.Add(stream);
            break;
        default:
            data.Add(stream);
        }
    }
    std::vector<std::string> parts;
    for (const Kind* kind : {&frames, &sounds, &subtitles, &data, &covers, &attachments})
        if (!kind->tracks.empty())
            parts.push_back(kind->Text());
    if (context.nb_chapters > 0)
        parts.emplace_back(context.nb_chapters == 1 ? "1 chapter" : std::to_string(context.nb_chapters) + " chapters");
    if (HasWrittenTags(context.metadata))
        parts.emplace_back("tags");
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "left out: " : ", ") + part;
    if (!text.empty())
        notes.push_back(text);
}

} // namespace Kestra::FF

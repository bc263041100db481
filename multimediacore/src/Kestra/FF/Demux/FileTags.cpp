// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/FF/Demux/FileTags.h"

#include "Kestra/Conf/Language.h"
#include "Kestra/FF/Demux/Utf8Text.h"
#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>
#include <utility>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace Kestra::FF {

namespace {

constexpr const char* TITLE = "title";
constexpr const char* DATE = "date";
/// When the file was made: of what cameras write it is often the only date.
constexpr const char* CREATION = "creation_time";
/// Longer ones are data that somebody has put there.
constexpr std::size_t LONGEST_TAG = 32768;
constexpr std::size_t MOST_TAGS = 500;

/// What speaks of the file.
constexpr std::string_view TECHNICAL[] = {"accurip_id",
                                          "bps",
                                          "cddb",
                                          "compatible_brands",
                                          "cuesheet",
                                          "date_digitized",
                                          "date_encoded",
                                          "date_tagged",
                                          "deviceconformancetemplate",
                                          "discid",
                                          "duration",
                                          "encoded-by",
                                          "encoded_by",
                                          "encodedby",
                                          "encoder",
                                          "encoder_options",
                                          "encoder_settings",
                                          "encoding",
                                          "encoding_tool",
                                          "encodingparams",
                                          "encodingtime",
                                          "filename",
                                          "gapless_playback",
                                          "handler_name",
                                          "hw",
                                          "isvbr",
                                          "itunnorm",
                                          "itunsmpb",
                                          "language",
                                          "major_brand",
                                          "maxrate",
                                          "media_type",
                                          "metadata_block_picture",
                                          "metadatacreator",
                                          "metadatadate",
                                          "mimetype",
                                          "minor_version",
                                          "number_of_bytes",
                                          "number_of_frames",
                                          "originaldate_encoded",
                                          "product_version",
                                          "reel_name",
                                          "rotate",
                                          "rotation",
                                          "service_name",
                                          "service_provider",
                                          "software",
                                          "source_id",
                                          "te_is_reencode",
                                          "time_reference",
                                          "timecode",
                                          "tlen",
                                          "tool",
                                          "totalduration",
                                          "totalframes",
                                          "tsse",
                                          "umid",
                                          "uid",
                                          "variant_bitrate",
                                          "vendor_id",
                                          "wm/encodingtime",
                                          "wmfsdkneeded",
                                          "wmfsdkversion",
                                          "writing_application",
                                          "writing_library",
                                          "xmp",
                                          TITLE};
constexpr std::string_view TECHNICAL_BEGINNINGS[] = {
    "_statistics_", "asf_",         "bps-",          "com.",        "duration-",  "coding_",
    "id3v2_priv.",  "itun",         "major_",        "material_",   "number_of_", "operational_",
    "org.",         "replaygain_",  "r128_",         "wm/",         "android.",   "samsung.",
    "company_",     "application_", "modification_", "generation_", "toolkit_",   "product_"};
constexpr std::string_view APPLE = "com.apple.quicktime.";

/// How QuickTime's long names are called elsewhere.
constexpr std::pair<std::string_view, std::string_view> OF_APPLE[] = {{"displayname", TITLE},
                                                                      {"title", TITLE},
                                                                      {"artist", "artist"},
                                                                      {"author", "author"},
                                                                      {"comment", "comment"},
                                                                      {"copyright", "copyright"},
                                                                      {"creationdate", "date"},
                                                                      {"description", "description"},
                                                                      {"genre", "genre"},
                                                                      {"keywords", "keywords"},
                                                                      {"location.iso6709", "location"},
                                                                      {"make", "make"},
                                                                      {"model", "model"},
                                                                      {"album", "album"},
                                                                      {"publisher", "publisher"},
                                                                      {"director", "director"}};

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return text;
}

bool IsTechnical(const std::string& key) {
    return std::find(std::begin(TECHNICAL), std::end(TECHNICAL), key) != std::end(TECHNICAL) ||
           std::any_of(std::begin(TECHNICAL_BEGINNINGS), std::end(TECHNICAL_BEGINNINGS),
                       [&key](std::string_view beginning) { return key.compare(0, beginning.size(), beginning) == 0; });
}

std::string PlainKey(const char* key) {
    std::string name = LowerCase(Utf8Of(key));
    if (name.compare(0, APPLE.size(), APPLE) != 0)
        return name;
    for (const auto& [apple, plain] : OF_APPLE)
        if (name.compare(APPLE.size(), std::string::npos, apple) == 0)
            return std::string(plain);
    return name;
}

/// "title-eng" beside "title" says the same once more.
bool IsTranslation(const std::string& key, const AVDictionary* tags) {
    const std::size_t hyphen = key.rfind('-');
    return hyphen != std::string::npos && key.size() - hyphen == 4 &&
           av_dict_get(tags, key.substr(0, hyphen).c_str(), nullptr, 0) != nullptr;
}

class Reader {
public:
    Reader(Conf::ProgrammeInfo& programme, std::vector<std::string>& notes)
        : programme(programme)
        , notes(notes) {}

    void Read(const AVDictionary* tags) {
        const AVDictionaryEntry* entry = nullptr;
        while ((entry = av_dict_get(tags, "", entry, AV_DICT_IGNORE_SUFFIX)) != nullptr)
            Take(PlainKey(entry->key), entry->value, tags);
    }
    /// After the last read.
    void AddDate() {
        if (!creation.empty() && !Has(DATE) && programme.tags.size() < MOST_TAGS)
            programme.tags.emplace_back(DATE, creation);
    }

private:
    /// A date that somebody gave counts more.
    void TakeCreation(const std::string& value) {
        if (creation.empty() && IsUtf8(value))
            creation = value.substr(0, LONGEST_TAG);
    }
    void Take(const std::string& key, const std::string& value, const AVDictionary* tags) {
        const bool isTitle = key == TITLE;
        if (key == CREATION)
            return TakeCreation(value);
        if (value.empty() || key.empty() || (!isTitle && (IsTechnical(key) || IsTranslation(key, tags))))
            return;
        if (value.size() > LONGEST_TAG || programme.tags.size() >= MOST_TAGS)
            return Note("the tag \"" + key.substr(0, 100) + "\" is left out: it holds " + std::to_string(value.size()) +
                        " bytes");
        if (!IsUtf8(value))
            Note("the tag \"" + key + "\" is no UTF-8 and was read as Windows-1252");
        if (isTitle && programme.title.empty())
            programme.title = Utf8Of(value);
        if (!isTitle && !Has(key))
            programme.tags.emplace_back(key, Utf8Of(value));
    }
    bool Has(const std::string& key) const {
        return std::any_of(programme.tags.begin(), programme.tags.end(),
                           [&key](const auto& tag) { return tag.first == key; });
    }
    void Note(const std::string& what) { notes.push_back(what); }

    Conf::ProgrammeInfo& programme;
    std::vector<std::string>& notes;
    std::string creation;
};

} // namespace

bool TagsItsTracks(const AVFormatContext& context) {
    return std::string_view(context.iformat->name) == "ogg";
}

std::string TagOf(const AVDictionary* tags, const char* key) {
    const AVDictionaryEntry* const entry = av_dict_get(tags, key, nullptr, 0);
    return entry ? Utf8Of(std::string(entry->value).substr(0, LONGEST_TAG)) : std::string();
}

std::string LanguageOf(const AVStream& stream) {
    const std::string language = TagOf(stream.metadata, "language");
    return Conf::Language::CodeOf(language).empty() ? std::string() : language;
}

bool IsForced(const AVStream& stream) {
    constexpr std::uint32_t ALL_TEXTS = 0x80000000;
    const AVCodecParameters& parameters = *stream.codecpar;
    // QuickTime tells it in front of the track's description, where the library does not look.
    const bool isQuickTime = parameters.codec_tag == MKTAG('t', 'x', '3', 'g') && parameters.extradata_size >= 4;
    return (stream.disposition & AV_DISPOSITION_FORCED) != 0 ||
           (isQuickTime && (AV_RB32(parameters.extradata) & ALL_TEXTS) != 0);
}

void ReadTags(const AVFormatContext& context, Conf::ProgrammeInfo& programme, std::vector<std::string>& notes) {
    Reader reader(programme, notes);
    reader.Read(context.metadata);
    if (TagsItsTracks(context))
        for (unsigned index = 0; index < context.nb_streams; ++index)
            reader.Read(context.streams[index]->metadata);
    reader.AddDate();
}

} // namespace Kestra::FF

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Timeline/Reader/OtioMedia.h"

#include "Timeline/Reader/OtioSchema.h"
#include "Timeline/Reader/OtioTime.h"
#include <algorithm>
#include <cctype>
#include <cmath>

namespace Timeline {
namespace {

const char* const DEFAULT_MEDIA = "DEFAULT_MEDIA";
constexpr std::int64_t LARGEST_NUMBER = 1'000'000'000'000;
constexpr int MOST_DIGITS = 32;

/// Letters and digits alone, in lower case: "SMPTE Bars" is "smptebars".
std::string plain(const std::string& text) {
    std::string result;
    for (const unsigned char letter : text)
        if (std::isalnum(letter))
            result += static_cast<char>(std::tolower(letter));
    return result;
}

/// Nothing where the member is no whole number within the bounds; `otherwise` where it is not there.
std::optional<std::int64_t> whole(const OtioNode& node, const char* member, std::int64_t otherwise, std::int64_t least,
                                  std::int64_t most) {
    if (!node.has(member))
        return otherwise;
    const OtioNode number = node[member];
    if (!number.value().IsInt64() || number.value().GetInt64() < least || number.value().GetInt64() > most)
        return std::nullopt;
    return number.value().GetInt64();
}

std::optional<double> part(const OtioNode& node) {
    if (!node.value().IsNumber())
        return std::nullopt;
    const double number = node.value().GetDouble();
    return number >= 0 && number <= 1 ? std::optional(number) : std::nullopt;
}

bool hasSeveral(const OtioNode& clip) {
    return clip["media_references"].isObject();
}

std::string activeKeyOf(const OtioNode& clip) {
    const std::string key = clip.text("active_media_reference_key");
    return key.empty() ? DEFAULT_MEDIA : key;
}

} // namespace

OtioMedia::OtioMedia(OtioContext& context, MediaLocator locator)
    : context(context)
    , locator(std::move(locator)) {}

OtioNode OtioMedia::referenceOf(const OtioNode& clip) {
    return hasSeveral(clip) ? clip["media_references"][activeKeyOf(clip).c_str()] : clip["media_reference"];
}

MediaReference OtioMedia::read(const OtioNode& clip) const {
    const OtioNode reference = referenceOf(clip);
    MediaReference media;
    if (!reference.isObject()) {
        const std::string why =
            hasSeveral(clip) ? '"' + activeKeyOf(clip) + "\" is not among its references" : "is not named";
        media.target = missing(reference, {}, why);
        return media;
    }
    media.name = reference.text("name");
    media.target = targetOf(reference);
    if (reference.has("available_range"))
        media.available = readRange(context, reference["available_range"]);
    return media;
}

MediaTarget OtioMedia::targetOf(const OtioNode& reference) const {
    checkVersion(context, reference);
    switch (kindOf(reference)) {
    case OtioKind::ExternalReference:
        return file(reference);
    case OtioKind::ImageSequence:
        return sequence(reference);
    case OtioKind::Generator:
        return generator(reference);
    case OtioKind::MissingReference:
        return missing(reference, {}, "is said to be missing");
    default:
        return missing(reference, {}, "is of the unknown schema \"" + reference.text("OTIO_SCHEMA") + '"');
    }
}

MediaTarget OtioMedia::missing(const OtioNode& node, const std::string& url, const std::string& why,
                               Finding::Kind kind) const {
    context.tell(kind, node, url.empty() ? "its media " + why : "the media \"" + url + "\" " + why);
    return MissingMedia{url, why};
}

MediaTarget OtioMedia::file(const OtioNode& reference) const {
    const std::string url = reference.text("target_url");
    if (url.empty())
        return missing(reference["target_url"], url, "is not named");
    const MediaLocator::Result result = locator.locate(url, MediaLocator::Wanted::File);
    if (const auto* path = std::get_if<Kestra::ioPath>(&result))
        return MediaFile{*path};
    const auto& trouble = std::get<MediaLocator::Trouble>(result);
    const auto kind = trouble.isHere ? Finding::Kind::Error : Finding::Kind::MissingMedia;
    return missing(reference["target_url"], url, trouble.why, kind);
}

MediaTarget OtioMedia::sequence(const OtioNode& reference) const {
    const std::string url = reference.text("target_url_base");
    const MediaLocator::Result result = locator.locate(url.empty() ? "." : url, MediaLocator::Wanted::Folder);
    const auto* path = std::get_if<Kestra::ioPath>(&result);
    if (!path) {
        const auto& trouble = std::get<MediaLocator::Trouble>(result);
        const auto kind = trouble.isHere ? Finding::Kind::Error : Finding::Kind::MissingMedia;
        return missing(reference["target_url_base"], url, trouble.why, kind);
    }
    const auto first = whole(reference, "start_frame", 1, -LARGEST_NUMBER, LARGEST_NUMBER);
    const auto step = whole(reference, "frame_step", 1, 1, LARGEST_NUMBER);
    const auto digits = whole(reference, "frame_zero_padding", 0, 0, MOST_DIGITS);
    const OtioNode rateNode = reference["rate"];
    const auto rate = rateNode.value().IsNumber() ? exactRate(rateNode.value().GetDouble()) : std::nullopt;
    const std::string prefix = reference.text("name_prefix");
    const std::string suffix = reference.text("name_suffix");
    const bool isName = (prefix + suffix).find_first_of(std::string("/\0", 2)) == std::string::npos;
    if (!first || !step || !digits || !rate || !isName)
        return missing(reference, url + prefix, "is a sequence of pictures without a proper numbering, rate or name",
                       Finding::Kind::Error);
    const std::string policy = reference.text("missing_frame_policy");
    const auto frames = policy == "hold"    ? ImageSequence::MissingFrames::Held
                        : policy == "black" ? ImageSequence::MissingFrames::Black
                                            : ImageSequence::MissingFrames::Refused;
    if (!policy.empty() && policy != "error" && frames == ImageSequence::MissingFrames::Refused)
        context.warn(reference["missing_frame_policy"], "frames that are missing are an error, not \"" + policy + '"');
    // The rate is that of all frames, those that are left out included.
    return ImageSequence{*path, prefix, suffix, *first, *step, static_cast<int>(*digits), *rate / *step, frames};
}

MediaTarget OtioMedia::generator(const OtioNode& reference) const {
    const std::string name = reference.text("generator_kind");
    const std::string kind = plain(name);
    const OtioNode parameters = reference["parameters"];
    Generator generator;
    if (kind == "smptebars" || kind == "colorbars" || kind == "colourbars" || kind == "bars") {
        generator.kind = Generator::Kind::Bars;
    } else if (kind == "black" || kind == "slug") {
        generator.kind = Generator::Kind::Colour;
    } else if (kind == "solidcolor" || kind == "solidcolour" || kind == "color" || kind == "colour" ||
               kind == "solid") {
        readColour(parameters, generator);
    } else if (kind == "tone" || kind == "sine" || kind == "audiotone") {
        generator.kind = Generator::Kind::Tone;
        if (parameters.has("frequency")) {
            const OtioNode frequency = parameters["frequency"];
            const double wanted = frequency.value().IsNumber() ? frequency.value().GetDouble() : 0;
            if (wanted >= 1 && wanted <= 20000)
                generator.frequency = wanted;
            else
                context.warn(frequency, "the tone's frequency is no number from 1 to 20000; it sounds at 1000 Hz");
        }
    } else if (kind == "silence") {
        generator.kind = Generator::Kind::Silence;
    } else {
        return missing(reference["generator_kind"], {}, "is the unknown generator \"" + name + '"');
    }
    return generator;
}

void OtioMedia::readColour(const OtioNode& parameters, Generator& generator) const {
    const OtioNode colour = parameters["color"];
    std::optional<double> red, green, blue;
    if (colour.isArray() && colour.size() >= 3) {
        red = part(colour.at(0));
        green = part(colour.at(1));
        blue = part(colour.at(2));
    } else if (colour.isObject()) {
        red = part(colour["r"]);
        green = part(colour["g"]);
        blue = part(colour["b"]);
    } else if (colour.value().IsString()) {
        const std::string text(colour.value().GetString(), colour.value().GetStringLength());
        const bool isHex =
            text.size() == 7 && text[0] == '#' &&
            std::all_of(text.begin() + 1, text.end(), [](unsigned char one) { return std::isxdigit(one); });
        if (isHex) {
            const int number = std::stoi(text.substr(1), nullptr, 16);
            red = (number >> 16) / 255.0;
            green = ((number >> 8) & 255) / 255.0;
            blue = (number & 255) / 255.0;
        }
    }
    if (!red || !green || !blue)
        return context.warn(colour,
                            "the colour is not told as red, green and blue from 0 to 1 or as \"#rrggbb\"; it is black");
    generator.red = *red;
    generator.green = *green;
    generator.blue = *blue;
}

} // namespace Timeline

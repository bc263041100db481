#include "ExportCore/PresetSettings.h"

#include "ExportCore/NameList.h"
#include "ExportCore/NearNames.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/SettingText.h"
#include "Kestra/Base/SourcePlace.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/Settings/SettingsFilterFrameRate.h"
#include <algorithm>

namespace ExportCore {
namespace {

constexpr int LARGEST_SIDE = 16384;
constexpr int HIGHEST_FRAME_RATE = 300;
constexpr std::int64_t HIGHEST_BITRATE = 2'000'000'000;
constexpr double HIGHEST_QUALITY = 1000;
constexpr int HIGHEST_SAMPLE_RATE = 192'000;

struct ChannelName {
    const char* name;
    const char* count;
    std::uint32_t layout;
};
constexpr ChannelName CHANNELS[] = {
    {"mono", "1", Kestra::Conf::CHANNEL_LAYOUT_MONO},   {"stereo", "2", Kestra::Conf::CHANNEL_LAYOUT_STEREO},
    {"quad", "4", Kestra::Conf::CHANNEL_LAYOUT_QUAD},   {"5.0", "5", Kestra::Conf::CHANNEL_LAYOUT_5POINT0},
    {"5.1", "6", Kestra::Conf::CHANNEL_LAYOUT_5POINT1}, {"7.1", "8", Kestra::Conf::CHANNEL_LAYOUT_7POINT1},
};

/// One KEY=VALUE on its way into the settings.
struct Entry {
    std::string key;
    std::string value;

    [[noreturn]] void refuse(const std::string& reason, Kestra::SourcePlace place = Kestra::SourcePlace::Here()) const {
        Kestra::ThrowFrom(Refusal("Cannot set " + key + " to \"" + value + "\": " + reason), place);
    }
};

Entry split(const std::string& text) {
    const std::size_t sign = text.find('=');
    if (sign == std::string::npos)
        KESTRA_THROW(Refusal("\"" + text + "\" is no setting; write KEY=VALUE"));
    return {text.substr(0, sign), text.substr(sign + 1)};
}

void requireKnown(const std::string& key) {
    std::vector<std::string> names;
    for (const PresetSettings::Key& known : PresetSettings::keys())
        names.emplace_back(known.name);
    if (std::find(names.begin(), names.end(), key) != names.end())
        return;
    const std::string question = NearNames::question(key, names);
    KESTRA_THROW(Refusal("There is no setting \"" + key + '"' +
                         (question.empty() ? "; the settings are " : question + " The settings are ") +
                         NameList::joined(names)));
}

int sideOf(const std::string& text, const Entry& entry) {
    const auto side = SettingText::wholeNumber(text);
    if (!side)
        entry.refuse(entry.key == "size" ? "write pixels, as 1280x720" : "write pixels, as 720");
    if (*side < 2)
        entry.refuse("a picture has at least 2x2 pixels");
    if (*side > LARGEST_SIDE)
        entry.refuse("no side is longer than " + std::to_string(LARGEST_SIDE) + " pixels");
    if (*side % 2 != 0)
        entry.refuse(std::to_string(*side) + " is odd, and encoders need even sides");
    return static_cast<int>(*side);
}

void readSize(const Entry& entry, PresetSettings& settings) {
    const std::size_t by = entry.value.find('x');
    if (by == std::string::npos)
        entry.refuse("write pixels, as 1280x720");
    settings.width = sideOf(entry.value.substr(0, by), entry);
    settings.height = sideOf(entry.value.substr(by + 1), entry);
}

boost::rational<long long> frameRateOf(const Entry& entry) {
    if (entry.value == "source")
        return Kestra::Proc::SettingsFilterFrameRate::MARK_USE_ORIGINAL_FRAMERATE;
    const auto rate = SettingText::ratio(entry.value);
    if (!rate)
        entry.refuse("write frames a second, as 25 or 30000/1001, or source");
    if (*rate < 1 || *rate > HIGHEST_FRAME_RATE)
        entry.refuse("frame rates go from 1 to " + std::to_string(HIGHEST_FRAME_RATE));
    return *rate;
}

std::int64_t bitrateOf(const Entry& entry) {
    const auto bitrate = SettingText::amount(entry.value);
    if (!bitrate)
        entry.refuse("write bits a second, as 2500000, 2500k or 2.5M");
    if (*bitrate == 0 || *bitrate > HIGHEST_BITRATE)
        entry.refuse("bitrates go from 1 to " + std::to_string(HIGHEST_BITRATE) + " bit/s");
    return *bitrate;
}

double qualityOf(const Entry& entry) {
    const auto quality = SettingText::decimal(entry.value);
    if (!quality)
        entry.refuse("write a number on the codec's own scale, as 23");
    if (*quality <= 0 || *quality > HIGHEST_QUALITY)
        entry.refuse("no codec's scale holds it");
    return *quality;
}

int sampleRateOf(const Entry& entry) {
    const auto rate = SettingText::amount(entry.value);
    if (!rate)
        entry.refuse("write samples a second, as 48000 or 44.1k");
    if (*rate == 0 || *rate > HIGHEST_SAMPLE_RATE)
        entry.refuse("sample rates go up to " + std::to_string(HIGHEST_SAMPLE_RATE));
    return static_cast<int>(*rate);
}

std::uint32_t layoutOf(const Entry& entry) {
    for (const ChannelName& known : CHANNELS) {
        if (entry.value == known.name || entry.value == known.count)
            return known.layout;
    }
    entry.refuse("write mono, stereo, quad, 5.0, 5.1 or 7.1, or their number 1, 2, 4, 5, 6 or 8");
}

/// The key is a known one.
void read(const Entry& entry, PresetSettings& settings) {
    if (entry.key == "size")
        readSize(entry, settings);
    else if (entry.key == "width")
        settings.width = sideOf(entry.value, entry);
    else if (entry.key == "height")
        settings.height = sideOf(entry.value, entry);
    else if (entry.key == "frame-rate")
        settings.frameRate = frameRateOf(entry);
    else if (entry.key == "bitrate")
        settings.bitrateBps = bitrateOf(entry);
    else if (entry.key == "quality")
        settings.quality = qualityOf(entry);
    else if (entry.key == "sample-rate")
        settings.sampleRate = sampleRateOf(entry);
    else if (entry.key == "channels")
        settings.channelLayout = layoutOf(entry);
    else
        settings.audioBitrateBps = bitrateOf(entry);
}

void requireOnce(const std::vector<std::string>& given, const std::string& key) {
    if (std::count(given.begin(), given.end(), key) > 1)
        KESTRA_THROW(Refusal("Cannot set " + key + " twice"));
}

void requireNotBoth(const std::vector<std::string>& given, const char* one, const char* other, const char* reason) {
    const auto has = [&given](const char* key) { return std::find(given.begin(), given.end(), key) != given.end(); };
    if (has(one) && has(other))
        KESTRA_THROW(Refusal(std::string("Cannot set both ") + one + " and " + other + ": " + reason));
}

} // namespace

const std::vector<PresetSettings::Key>& PresetSettings::keys() {
    static const std::vector<Key> all = {
        {"size", "WxH", "exactly this frame, with black bars where the picture has another shape", true},
        {"width", "PIXELS", "this width, and the height of the source's shape", true},
        {"height", "PIXELS", "this height, and the width of the source's shape", true},
        {"frame-rate", "RATE", "frames a second, as 25 or 30000/1001, or source", true},
        {"bitrate", "BITS", "of the picture on average, bit/s, as 2500000, 2500k or 2.5M", true},
        {"quality", "NUMBER", "constant quality on the codec's scale (CRF), lower is better", true},
        {"sample-rate", "HZ", "samples a second, as 48000 or 44.1k", false},
        {"channels", "LAYOUT", "mono, stereo, quad, 5.0, 5.1, 7.1, or their number", false},
        {"audio-bitrate", "BITS", "of the sound, bit/s, as 128k", false},
    };
    return all;
}

PresetSettings PresetSettings::parse(const std::vector<std::string>& texts) {
    PresetSettings settings;
    for (const std::string& text : texts) {
        const Entry entry = split(text);
        requireKnown(entry.key);
        settings.given.push_back(entry.key);
        requireOnce(settings.given, entry.key);
        read(entry, settings);
    }
    requireNotBoth(settings.given, "size", "width", "the size says it");
    requireNotBoth(settings.given, "size", "height", "the size says it");
    requireNotBoth(settings.given, "bitrate", "quality", "each alone decides how many bits a picture gets");
    return settings;
}

} // namespace ExportCore

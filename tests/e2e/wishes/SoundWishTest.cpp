// SPDX-License-Identifier: GPL-3.0-or-later
// Every sound codec with every value that a catalogue can wish for: refused, or the file has just that.
#include "WishFixture.h"

using TestMedia::ProbedMedia;

namespace {

struct Codec {
    const char* name;
    const char* container;
    bool hasBitrate;
    bool isConstant = false;
};

std::ostream& operator<<(std::ostream& out, const Codec& codec) {
    return out << codec.name;
}

class SoundWish : public TestWishes::WishFixture, public ::testing::WithParamInterface<Codec> {
protected:
    static QJsonObject presetWith(const char* key, const QJsonValue& value) {
        return preset({{TestPresets::text(key), value}});
    }
    static QJsonObject preset(QJsonObject audio) {
        audio.insert(QStringLiteral("codec"), TestPresets::text(GetParam().name));
        return {
            {QStringLiteral("container"), QJsonObject{{QStringLiteral("id"), TestPresets::text(GetParam().container)}}},
            {QStringLiteral("audio"), audio}};
    }
    ProbedMedia exported(const char* clip) { return WishFixture::exported(clip, GetParam().container); }
};

TEST_P(SoundWish, OfASampleRateIsRefusedOrMet) {
    int met = 0;
    for (const int rate :
         {8000, 11025, 12000, 16000, 22050, 24000, 32000, 44100, 48000, 88200, 96000, 176400, 192000}) {
        if (!accepts(presetWith("sampleRate", rate), "/audio/sampleRate: "))
            continue;
        const ProbedMedia file = exported("short.mkv");
        ASSERT_TRUE(file.audio) << rate;
        EXPECT_EQ(file.audio->sampleRate, rate);
        // Whatever is padded, it is the clip at that rate.
        EXPECT_GE(static_cast<double>(file.audio->samples), 0.2 * rate - 2) << rate;
        EXPECT_LE(static_cast<double>(file.audio->samples), 0.2 * rate + 2048) << rate;
        ++met;
    }
    EXPECT_GE(met, 1);
}

TEST_P(SoundWish, OfALayoutIsRefusedOrMet) {
    int met = 0;
    for (const auto& [name, channels] : std::initializer_list<std::pair<const char*, int>>{
             {"mono", 1}, {"stereo", 2}, {"quad", 4}, {"5.0", 5}, {"5.1", 6}, {"7.1", 8}}) {
        if (!accepts(presetWith("channelLayout", TestPresets::text(name)), "/audio/channelLayout: "))
            continue;
        const ProbedMedia file = exported("short.mkv");
        ASSERT_TRUE(file.audio) << name;
        EXPECT_EQ(file.audio->channels, channels) << name;
        ++met;
    }
    EXPECT_GE(met, 2);
}

TEST_P(SoundWish, OfABitrateIsRefusedOrMet) {
    int met = 0;
    double last = 0;
    for (const int bitrate : {8'000, 24'000, 48'000, 64'000, 96'000, 100'000, 128'000, 192'000, 320'000, 510'000,
                              576'000, 640'000, 1'536'000}) {
        QJsonObject audio{{QStringLiteral("bitrate"), bitrate},
                          {QStringLiteral("sampleRate"), 48000},
                          {QStringLiteral("channelLayout"), QStringLiteral("stereo")}};
        if (!accepts(preset(audio), "/audio/bitrate: "))
            continue;
        exported("noise.wav");
        const double got = static_cast<double>(size) * 8 / 4;
        if (GetParam().isConstant) {
            // The container takes some of it for every packet.
            EXPECT_NEAR(got, bitrate, 0.03 * bitrate + 3000) << bitrate;
        } else {
            // What suits usual material: white noise does not fill the highest ones of AAC, and four seconds do not
            // settle the lowest, nor empty the reserve that Vorbis begins with.
            EXPECT_LT(got, 1.3 * bitrate) << bitrate;
            EXPECT_GT(got, 0.98 * last) << bitrate << ": more is more";
        }
        last = got;
        ++met;
    }
    EXPECT_EQ(met > 0, GetParam().hasBitrate);
}

INSTANTIATE_TEST_SUITE_P(Codecs, SoundWish,
                         ::testing::Values(Codec{"aac", "mp4", true}, Codec{"opus", "webm", true},
                                           Codec{"mp3", "mp3", true, true}, Codec{"flac", "flac", false},
                                           Codec{"pcm_s16le", "wav", false}, Codec{"pcm_s24le", "wav", false},
                                           Codec{"vorbis", "webm", true}, Codec{"ac3", "mkv", true, true},
                                           Codec{"alac", "m4a", false}),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

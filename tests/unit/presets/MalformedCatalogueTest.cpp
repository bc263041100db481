// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CatalogueFixture.h"
#include <QFileInfo>
#include <ostream>
#include <random>
#include <sys/stat.h>

using TestPresets::edited;
using TestPresets::smallCatalogue;
using TestPresets::text;

namespace {

struct Damage {
    const char* name;
    const char* place;   ///< what is edited
    const char* json;    ///< the new value in an array, single-quoted; an empty array takes the place away
    const char* pointer; ///< where the refusal points to
    const char* reason;  ///< a part of what it says
};

std::ostream& operator<<(std::ostream& out, const Damage& damage) {
    return out << damage.name;
}

const Damage DAMAGES[] = {
    {"NoVersion", "/version", "[]", "", "version"},
    {"AnotherVersion", "/version", "[2]", "/version", "2"},
    {"NoPresets", "/presets", "[]", "", "presets"},
    {"EmptyPresets", "/presets", "[[]]", "/presets", ""},
    {"NoTags", "/tags", "[]", "/tags", "no tags"},
    {"EmptyTags", "/tags", "[[]]", "/tags", ""},
    {"UnknownKey", "/colour", "['red']", "", "unknown key 'colour'"},
    {"UnknownKeyOfAPreset", "/presets/1/vidoe", "[{}]", "/presets/1", "unknown key 'vidoe'"},
    {"UnknownKeyOfVideo", "/presets/1/video/bitRate", "[5]", "/presets/1/video", "bitRate"},
    {"UnknownKeyOfATag", "/tags/0/icon", "['x']", "/tags/0", "icon"},
    {"UnknownCodec", "/presets/1/video/codec", "['h266']", "/presets/1/video/codec",
     "\"h266\": is none of h264, hevc, "},
    {"UnknownContainer", "/presets/1/container/id", "['avi']", "/presets/1/container/id", "avi"},
    {"UnknownBitrateMode", "/presets/1/video/bitrateMode", "['fast']", "/presets/1/video/bitrateMode", "fast"},
    {"UnknownPixelFormat", "/presets/1/video/pixelFormat", "['yuv']", "/presets/1/video/pixelFormat", "yuv"},
    {"UnknownLayout", "/presets/3/audio/channelLayout", "['9.1']", "/presets/3/audio/channelLayout", "9.1"},
    {"UnknownSampleRate", "/presets/3/audio/sampleRate", "[47999]", "/presets/3/audio/sampleRate", "47999"},
    {"BitrateTooHigh", "/presets/0/video/bitrate", "[2000000001]", "/presets/0/video/bitrate", "2000000001"},
    {"BitrateBeyondIntegers", "/presets/0/video/bitrate", "[1e300]", "/presets/0/video/bitrate", ""},
    {"BitrateTooLow", "/presets/0/video/bitrate", "[999]", "/presets/0/video/bitrate",
     "999: a whole number from 1000 to 2000000000 is expected"},
    {"BitrateNegative", "/presets/0/audio/bitrate", "[-1]", "/presets/0/audio/bitrate", "-1"},
    {"BitrateNotWhole", "/presets/0/video/bitrate", "[900000.5]", "/presets/0/video/bitrate", "900000.5"},
    {"BitrateAsText", "/presets/0/video/bitrate", "['900000']", "/presets/0/video/bitrate",
     "\"900000\": a whole number from"},
    {"WidthTooLarge", "/presets/0/video/maxWidth", "[16385]", "/presets/0/video/maxWidth", "16385"},
    {"WidthAndHeight", "/presets/0/video", "[{'codec': 'h264', 'width': -1, 'height': 'x'}]", "/presets/0/video/height",
     "\"x\": a whole number from 2 to 16384 is expected; /presets/0/video/width: -1: a whole number"},
    {"WidthOdd", "/presets/0/video/width", "[639]", "/presets/0/video/width", "odd"},
    {"WidthBeyondItsLimit", "/presets/0/video/width", "[1280]", "/presets/0/video/width", "limit of 640"},
    {"WidthWithoutHeight", "/presets/0/video/height", "[]", "/presets/0/video", "together"},
    {"MultiplierZero", "/presets/1/video/multiplier", "[0]", "/presets/1/video/multiplier", "0"},
    {"QualityTooHigh", "/presets/1/video/quality", "[256]", "/presets/1/video/quality", "256"},
    {"FrameRateWord", "/presets/0/video/frameRate", "['fast']", "/presets/0/video/frameRate", "no frame rate"},
    {"FrameRateNumber", "/presets/0/video/frameRate", "[25]", "/presets/0/video/frameRate", "25"},
    {"FrameRateByZero", "/presets/0/video/frameRate", "['25/0']", "/presets/0/video/frameRate", "25/0"},
    {"FrameRateNegative", "/presets/0/video/frameRate", "['-25']", "/presets/0/video/frameRate", "-25"},
    {"FrameRateOverflow", "/presets/0/video/frameRate", "['99999999999']", "/presets/0/video/frameRate", "99999999999"},
    {"FrameRateTooHigh", "/presets/0/video/frameRate", "['1001']", "/presets/0/video/frameRate", "1000"},
    {"DuplicateId", "/presets/2/id", "['large']", "/presets/2/id", "large"},
    {"IdWithBlank", "/presets/2/id", "['twin one']", "/presets/2/id", "twin one"},
    {"IdEmpty", "/presets/2/id", "['']", "/presets/2/id", ""},
    {"IdNumber", "/presets/2/id", "[7]", "/presets/2/id", "7"},
    {"NoId", "/presets/2/id", "[]", "/presets/2", "id"},
    {"NoContainer", "/presets/2/container", "[]", "/presets/2", "container"},
    {"NoCodec", "/presets/1/video/codec", "[]", "/presets/1/video", "\"codec\" is missing"},
    {"NeitherVideoNorAudio", "/presets/3/audio", "[]", "/presets/3", "neither"},
    {"PresetIsNull", "/presets/3", "[null]", "/presets/3", "null"},
    {"TagNamesAMissingPreset", "/tags/0/presets/2", "['huge']", "/tags/0/presets/2", "huge"},
    {"TagNamesAPresetTwice", "/tags/0/presets/2", "['small']", "/tags/0/presets/2", "small"},
    {"TagWithoutPresets", "/tags/1/presets", "[[]]", "/tags/1/presets", ""},
    {"TagTwice", "/tags/1/name", "['video']", "/tags/1/name", "video"},
    {"DefaultBeyondTheTag", "/tags/0/default", "[3]", "/tags/0/default", "3"},
    {"DefaultNegative", "/tags/0/default", "[-1]", "/tags/0/default", "-1"},
    {"CodecThatTheContainerDoesNotHold", "/presets/1/video/codec", "['vp8']", "/presets/1/video/codec", "mp4"},
    {"VideoInASoundFile", "/presets/3/video", "[{'codec': 'h264'}]", "/presets/3/video/codec", "flac"},
    {"VariableWithoutBitrate", "/presets/0/video/bitrate", "[]", "/presets/0/video", "bitrate"},
    {"QualityWithoutQuality", "/presets/0/video/bitrateMode", "['quality']", "/presets/0/video", "quality"},
    {"FixedWithoutSize", "/presets/3",
     "[{'id': 'x', 'container': {'id': 'mp4'}, 'video': {'codec': 'h264', 'fixedResolution': true}}]",
     "/presets/3/video/fixedResolution", "width"},
    {"OptionThatIsAnObject", "/presets/1/video/options", "[{'a': {}}]", "/presets/1/video/options/a", ""},
    {"ModifierWithUnknownKey", "/presets/1/qualityModifiers/high/container", "[{}]", "/presets/1/qualityModifiers/high",
     "container"},
    {"ModifierOutOfRange", "/presets/1/qualityModifiers/high/video/multiplier", "[1000]",
     "/presets/1/qualityModifiers/high/video/multiplier", "1000"},
    {"ModifierThatMakesAnImpossiblePreset", "/presets/1/qualityModifiers/high/video/codec", "['ffv1']",
     "/presets/1/qualityModifiers/high/video/codec", "ffv1"},
    {"RateThatMp3DoesNotTake", "/presets/3",
     "[{'id': 'x', 'container': {'id': 'mp3'}, 'audio': {'codec': 'mp3', 'sampleRate': 96000}}]",
     "/presets/3/audio/sampleRate", "96000: mp3 takes 8000, "},
    {"LayoutThatMp3DoesNotTake", "/presets/3",
     "[{'id': 'x', 'container': {'id': 'mp3'}, 'audio': {'codec': 'mp3', 'channelLayout': '5.1'}}]",
     "/presets/3/audio/channelLayout", "5.1: mp3 takes mono and stereo"},
    {"RateThatAacDoesNotTake", "/presets/0/audio/sampleRate", "[192000]", "/presets/0/audio/sampleRate", "192000"},
    {"RateThatOpusDoesNotTake", "/presets/0/audio", "[{'codec': 'opus', 'sampleRate': 44100}]",
     "/presets/0/audio/sampleRate", "44100: opus takes "},
    {"RateThatAc3DoesNotTake", "/presets/0/audio", "[{'codec': 'ac3', 'sampleRate': 96000}]",
     "/presets/0/audio/sampleRate", "96000: ac3 takes 32000, 44100 and 48000"},
    {"LayoutThatAc3DoesNotTake", "/presets/0/audio", "[{'codec': 'ac3', 'channelLayout': '7.1'}]",
     "/presets/0/audio/channelLayout", "7.1: ac3 takes"},
    {"BitrateBetweenTheStepsOfMp3", "/presets/0/audio", "[{'codec': 'mp3', 'bitrate': 100000, 'sampleRate': 48000}]",
     "/presets/0/audio/bitrate", "100000: mp3 takes 32000, "},
    {"BitrateAboveWhatAacTakes", "/presets/0/audio/bitrate", "[300000]", "/presets/0/audio/bitrate",
     "300000: aac takes 14700 to 264600 bit/s here"},
    {"BitrateForALosslessCodec", "/presets/3/audio/bitrate", "[900000]", "/presets/3/audio/bitrate",
     "flac does not let its bitrate be chosen"},
    {"QualityBeyondTheScaleOfH264", "/presets/1/video/quality", "[255]", "/presets/1/video/quality",
     "255: h264 takes 1 to 51"},
    {"QualityBeyondTheScaleOfMpeg4", "/presets/1/video",
     "[{'codec': 'mpeg4', 'bitrateMode': 'quality', 'quality': 100}]", "/presets/1/video/quality",
     "100: mpeg4 takes 1 to 31"},
    {"QualityBetweenTheStepsOfVp9", "/presets/1/video", "[{'codec': 'vp9', 'bitrateMode': 'quality', 'quality': 30.5}]",
     "/presets/1/video/quality", "30.5: vp9 takes whole numbers"},
    {"BitrateForProRes", "/presets/3",
     "[{'id': 'x', 'container': {'id': 'mov'}, 'video': {'codec': 'prores', 'bitrateMode': 'variable', "
     "'bitrate': 1000000}}]",
     "/presets/3/video/bitrate", "prores does not let its bitrate be chosen"},
    {"BitrateModeForProRes", "/presets/3",
     "[{'id': 'x', 'container': {'id': 'mov'}, 'video': {'codec': 'prores', 'bitrateMode': 'constant'}}]",
     "/presets/3/video/bitrateMode", "prores"},
    {"TwoPassesOfProRes", "/presets/3",
     "[{'id': 'x', 'container': {'id': 'mov'}, 'video': {'codec': 'prores', 'twoPass': true}}]",
     "/presets/3/video/twoPass", "two passes"},
    {"QualityForProRes", "/presets/3",
     "[{'id': 'x', 'container': {'id': 'mov'}, 'video': {'codec': 'prores', 'quality': 5}}]",
     "/presets/3/video/quality", "no scale"},
    {"FixedSizeThatIsNotFilled", "/presets/1/video",
     "[{'codec': 'h264', 'width': 640, 'height': 360, 'fixedResolution': true, 'resize': 'keepSize'}]",
     "/presets/1/video/resize", "does not fill"},
    {"BitrateThatTheFixedSizeCannotHave", "/presets/1/video",
     "[{'codec': 'h264', 'width': 1920, 'height': 1080, 'fixedResolution': true, 'frameRate': '30', "
     "'bitrateMode': 'variable', 'bitrate': 2000}]",
     "/presets/1/video/bitrate", "2000: h264 at 1920x1080 takes 800000 to 48000000"},
    {"FrameRateThatMpeg2HasNoCodeFor", "/presets/1/video", "[{'codec': 'mpeg2', 'frameRate': '31'}]",
     "/presets/1/video/frameRate", "mpeg2 does not take 31/1"},
    {"HeightOdd", "/presets/0/video/height", "[359]", "/presets/0/video/height", "odd"},
    {"HeightBeyondItsLimit", "/presets/0/video/height", "[362]", "/presets/0/video/height", "limit of 360"},
    {"HeightTooLarge", "/presets/0/video/maxHeight", "[16386]", "/presets/0/video/maxHeight", "16386"},
    {"SideBeyondWhatMpeg4Takes", "/presets/1/video", "[{'codec': 'mpeg4', 'width': 8192, 'height': 64}]",
     "/presets/1/video/width", "mpeg4 does not take a width of 8192"},
    {"SideBelowWhatHevcTakes", "/presets/1/video", "[{'codec': 'hevc', 'width': 64, 'height': 8}]",
     "/presets/1/video/height", "hevc does not take a height of 8"},
    {"ShortSideBesideALongOneForHevc", "/presets/1/video", "[{'codec': 'hevc', 'width': 8192, 'height': 16}]",
     "/presets/1/video/height", "hevc does not take a side so short beside one of 8192"},
    {"PixelFormatThatTheEncoderDoesNotTake", "/presets/1/video/pixelFormat", "['yuv420p12']",
     "/presets/1/video/pixelFormat", "h264 does not take yuv420p12"},
    {"GreyThatTellsNoColour", "/presets/1/video/pixelFormat", "['gray10']", "/presets/1/video/pixelFormat",
     "h264 does not take gray10: its files would not tell their colour"},
    {"GreyThatTheEncoderDoesNotTake", "/presets/1/video", "[{'codec': 'mpeg4', 'pixelFormat': 'gray8'}]",
     "/presets/1/video/pixelFormat", "mpeg4 does not take gray8"},
    {"HighRangeInEightBits", "/presets/1/video", "[{'codec': 'hevc', 'dynamicRange': 'source'}]",
     "/presets/1/video/dynamicRange", "takes a pixel format of 10 bits"},
    {"HighRangeInNamedEightBits", "/presets/1/video",
     "[{'codec': 'hevc', 'pixelFormat': 'yuv420p', 'dynamicRange': 'source'}]", "/presets/1/video/dynamicRange",
     "takes a pixel format of 10 bits"},
    {"FieldsForHevc", "/presets/1/video", "[{'codec': 'hevc', 'fields': 'source'}]", "/presets/1/video/fields",
     "\"hevc\" does not code interlaced pictures"},
    {"UnknownProfile", "/presets/1/video/profile", "['higher']", "/presets/1/video/profile",
     "\"higher\": h264 has the profiles baseline, main"},
    {"ProfileOfAnotherPixelFormat", "/presets/1/video/profile", "['high10']", "/presets/1/video/profile",
     "does not go with the pixel format yuv420p"},
    {"ProfileWhereThereAreNone", "/presets/1/video", "[{'codec': 'mpeg4', 'profile': 'main'}]",
     "/presets/1/video/profile", "mpeg4 has no profiles"},
    {"DnxhdWithoutProfile", "/presets/3",
     "[{'id': 'x', 'container': {'id': 'mov'}, 'video': {'codec': 'dnxhd', 'bitrateMode': 'quality'}}]",
     "/presets/3/video", "needs a profile: dnxhr_lb"},
    {"UnknownEncoderOption", "/presets/1/video/options", "[{'prset': 'fast'}]", "/presets/1/video/options/prset",
     "knows no option \"prset\""},
    {"OptionOfTheEncoderThatIsNotTheOneForAConstantBitrate", "/presets/1/video",
     "[{'codec': 'av1', 'bitrateMode': 'constant', 'options': {'svtav1-params': 'tune=0'}}]",
     "/presets/1/video/options/svtav1-params", "libaom-av1 knows no option \"svtav1-params\""},
    {"OptionOfTheEncoderThatIsNotTheOneForTwoPasses", "/presets/1/video",
     "[{'codec': 'av1', 'bitrateMode': 'variable', 'bitrate': 1000000, 'twoPass': true, "
     "'options': {'svtav1-params': 'tune=0'}}]",
     "/presets/1/video/options/svtav1-params", "libaom-av1 knows no option \"svtav1-params\""},
    {"RefusedValueOfAnEncoderOption", "/presets/1/video/options", "[{'bf': 'many'}]", "/presets/1/video/options/bf",
     "refuses the value \"many\""},
    {"UnknownOptionOfSound", "/presets/1/audio/options", "[{'preset': 'fast'}]", "/presets/1/audio/options/preset",
     "aac knows no option"},
    {"UnknownMuxerOption", "/presets/1/container/options", "[{'moovflags': '+faststart'}]",
     "/presets/1/container/options/moovflags", "mp4 knows no option"},
    {"OptionWithNul", "/presets/1/video/options", "[{'tune': 'film\\u0000x'}]", "/presets/1/video/options/tune",
     "U+0000"},
    {"UnknownOptionInAModifier", "/presets/1/qualityModifiers/high/video/options", "[{'prset': 'fast'}]",
     "/presets/1/qualityModifiers/high/video/options/prset", "knows no option"},
    {"ModifierForAMissingPicture", "/presets/3/qualityModifiers", "[{'high': {'video': {'codec': 'h264'}}}]",
     "/presets/3/qualityModifiers/high/video", "has no video"},
    {"ModifierForMissingSound", "/presets/2",
     "[{'id': 'twin', 'container': {'id': 'mp4'}, 'video': {'codec': 'h264'}, "
     "'qualityModifiers': {'high': {'audio': {'bitrate': 128000}}}}]",
     "/presets/2/qualityModifiers/high/audio", "has no audio"},
    {"TitleWithNul", "/presets/1/title", "['a\\u0000b']", "/presets/1/title", "control character U+0000"},
    {"TitleWithNewLine", "/presets/1/title", "['a\\nb']", "/presets/1/title", "U+000A"},
    {"TitleThatTurnsItsDirection", "/presets/1/title", "['a\\u202eb']", "/presets/1/title", "direction mark U+202E"},
    {"TagThatTurnsItsDirection", "/tags/0/name", "['a\\u2066b']", "/tags/0/name", "direction mark U+2066"},
    {"PresetThatNoTagNames", "/tags/0/presets", "[['small', 'large']]", "/presets/2/id", "no tag names \"twin\""},
    {"FractionByZero", "/presets/0/video/frameRate", "['30000/0']", "/presets/0/video/frameRate", "no frame rate"},
    {"FractionOfThree", "/presets/0/video/frameRate", "['1/2/3']", "/presets/0/video/frameRate", "no frame rate"},
    {"H264InWebm", "/presets/3", "[{'id': 'x', 'container': {'id': 'webm'}, 'video': {'codec': 'h264'}}]",
     "/presets/3/video/codec", "the container \"webm\" does not hold \"h264\""},
    {"AacInWebm", "/presets/3", "[{'id': 'x', 'container': {'id': 'webm'}, 'audio': {'codec': 'aac'}}]",
     "/presets/3/audio/codec", "the container \"webm\" does not hold \"aac\""},
    {"ModifierNameWithTilde", "/presets/1/qualityModifiers", "[{'a~b/c': {}}]", "/presets/1/qualityModifiers/a~0b~1c",
     "a~b/c"},
    {"ModifierNameWithSlash", "/presets/1/qualityModifiers", "[{'a/b': {}}]", "/presets/1/qualityModifiers/a~1b",
     "a/b"},
};

} // namespace

class MalformedCatalogueTest : public TestPresets::CatalogueFixture, public ::testing::WithParamInterface<Damage> {};

TEST_P(MalformedCatalogueTest, IsRefusedWithFilePointerAndReason) {
    const Damage& damage = GetParam();
    QByteArray json(damage.json);
    json.replace('\'', '"');
    const QJsonArray wrapped = QJsonDocument::fromJson(json).array();
    const QJsonValue value = wrapped.isEmpty() ? QJsonValue(QJsonValue::Undefined) : wrapped.first();
    writeCatalogue(edited(smallCatalogue(), damage.place, value));

    PresetStorage storage;
    EXPECT_FALSE(load(storage));
    const std::string start = cataloguePath().toStdString() + ": " +
                              (*damage.pointer == 0 ? std::string() : damage.pointer + std::string(": "));
    EXPECT_EQ(storage.lastError().find(start), 0u) << storage.lastError();
    EXPECT_NE(storage.lastError().find(damage.reason), std::string::npos) << storage.lastError();
    EXPECT_TRUE(storage.tags().empty());
}

INSTANTIATE_TEST_SUITE_P(Damages, MalformedCatalogueTest, ::testing::ValuesIn(DAMAGES),
                         [](const auto& row) { return std::string(row.param.name); });

class BrokenFileTest : public TestPresets::CatalogueFixture {
protected:
    std::string refusal() {
        PresetStorage storage;
        EXPECT_FALSE(load(storage));
        return storage.lastError();
    }
};

TEST_F(BrokenFileTest, TheUndamagedCatalogueLoads) {
    writeCatalogue(smallCatalogue());
    PresetStorage storage;
    EXPECT_TRUE(load(storage)) << storage.lastError();
}

TEST_F(BrokenFileTest, AMissingFileIsNamed) {
    EXPECT_EQ(refusal(), cataloguePath().toStdString() + ": no such file");
}

TEST_F(BrokenFileTest, AFolderIsRefused) {
    ASSERT_TRUE(QDir().mkpath(cataloguePath()));
    EXPECT_EQ(refusal(), cataloguePath().toStdString() + ": is not a regular file");
}

TEST_F(BrokenFileTest, AFifoIsRefusedWithoutWaiting) {
    ASSERT_EQ(mkfifo(QFile::encodeName(cataloguePath()).constData(), 0600), 0);
    EXPECT_EQ(refusal(), cataloguePath().toStdString() + ": is not a regular file");
}

TEST_F(BrokenFileTest, AnEmptyPathIsRefused) {
    PresetStorage storage;
    EXPECT_FALSE(storage.loadPresets(Kestra::ioPath()));
    EXPECT_NE(storage.lastError(), "");
}

TEST_F(BrokenFileTest, MalformedJsonIsRefusedWithLineAndColumn) {
    write(cataloguePath(), "{\n  \"version\": 1,\n  \"tags\": [}\n");
    EXPECT_NE(refusal().find("malformed JSON at line 3, column "), std::string::npos) << refusal();
}

TEST_F(BrokenFileTest, TheColumnIsCountedFromOneInBytes) {
    write(cataloguePath(), "{\n  \"version\": 1,\n  \"tags\": [}\n");
    EXPECT_NE(refusal().find("malformed JSON at line 3, column 13: "), std::string::npos) << refusal();
    write(cataloguePath(), "}");
    EXPECT_NE(refusal().find("malformed JSON at line 1, column "), std::string::npos) << refusal();
}

TEST_F(BrokenFileTest, AKeyThatStandsTwiceIsRefusedWithItsPlace) {
    const QByteArray sound = QJsonDocument(smallCatalogue()).toJson();
    const QByteArray version = "\"version\": 1";
    ASSERT_TRUE(sound.contains(version));
    write(cataloguePath(), QByteArray(sound).replace(version, "\"version\": 1, \"version\": 1"));
    EXPECT_EQ(refusal(), cataloguePath().toStdString() + ": /version: the key stands twice");
    ASSERT_EQ(sound.count("\"bitrate\": 900000"), 1);
    write(cataloguePath(),
          QByteArray(sound).replace("\"bitrate\": 900000", "\"bitrate\": 900000, \"b\\u0069trate\": 800000"));
    EXPECT_EQ(refusal(), cataloguePath().toStdString() + ": /presets/0/video/bitrate: the key stands twice");
}

TEST_F(BrokenFileTest, AReadThatFailsIsToldAsSuch) {
    // A file that opens, and whose first byte cannot be read.
    PresetStorage storage;
    EXPECT_FALSE(storage.loadPresets(Kestra::ioPath(std::string("/proc/self/mem"))));
    EXPECT_EQ(storage.lastError(), "/proc/self/mem: cannot be read: Input/output error");
}

TEST_F(BrokenFileTest, EmptyAndForeignDocumentsAreRefused) {
    for (const char* const content : {"", " ", "[]", "{}", "null", "[1, 2]", "\xff\xfe", "{\"version\": 1}"}) {
        write(cataloguePath(), content);
        EXPECT_NE(refusal(), "") << content;
    }
}

TEST_F(BrokenFileTest, DeepNestingIsRefused) {
    write(cataloguePath(), QByteArray(100'000, '['));
    EXPECT_NE(refusal().find("malformed JSON"), std::string::npos) << refusal();
}

TEST_F(BrokenFileTest, AHugeFileIsRefusedUnread) {
    QFile file(cataloguePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64{1} << 40));
    EXPECT_EQ(refusal(), cataloguePath().toStdString() + ": is larger than 4 MiB");
}

TEST_F(BrokenFileTest, AVeryLongNameIsRefusedAndShownShortened) {
    writeCatalogue(edited(smallCatalogue(), "/presets/0/id", QString(1'000'000, QLatin1Char('x'))));
    const std::string reason = refusal();
    EXPECT_NE(reason.find("/presets/0/id"), std::string::npos);
    EXPECT_LT(reason.size(), 1000u);
}

TEST_F(BrokenFileTest, FlippedBytesNeverHalfLoad) {
    const QByteArray sound = QJsonDocument(smallCatalogue()).toJson();
    std::mt19937 random(20);
    int refused = 0;
    for (int round = 0; round < 400; ++round) {
        QByteArray bytes = sound;
        for (int flips = 1 + round % 3; flips > 0; --flips)
            bytes[static_cast<int>(random() % static_cast<unsigned>(bytes.size()))] = static_cast<char>(random() % 256);
        write(cataloguePath(), bytes);
        PresetStorage storage;
        const bool loaded = load(storage);
        refused += loaded ? 0 : 1;
        EXPECT_EQ(loaded, storage.lastError().empty());
        EXPECT_EQ(loaded, !storage.tags().empty());
        for (const std::string& tag : storage.tags()) {
            EXPECT_LT(storage.defaultPresetIndex(tag), storage.presets(tag).size());
            for (const Preset& preset : storage.presets(tag))
                EXPECT_TRUE(storage.isPresetExists(preset.id()));
        }
    }
    EXPECT_GT(refused, 100);
}

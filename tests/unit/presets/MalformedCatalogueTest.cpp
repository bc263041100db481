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
    {"UnknownCodec", "/presets/1/video/codec", "['h266']", "/presets/1/video/codec", "\"h266\": is none of"},
    {"UnknownContainer", "/presets/1/container/id", "['avi']", "/presets/1/container/id", "avi"},
    {"UnknownBitrateMode", "/presets/1/video/bitrateMode", "['fast']", "/presets/1/video/bitrateMode", "fast"},
    {"UnknownPixelFormat", "/presets/1/video/pixelFormat", "['yuv']", "/presets/1/video/pixelFormat", "yuv"},
    {"UnknownLayout", "/presets/3/audio/channelLayout", "['9.1']", "/presets/3/audio/channelLayout", "9.1"},
    {"UnknownSampleRate", "/presets/3/audio/sampleRate", "[47999]", "/presets/3/audio/sampleRate", "47999"},
    {"BitrateTooHigh", "/presets/0/video/bitrate", "[2000000001]", "/presets/0/video/bitrate", "2000000001"},
    {"BitrateBeyondIntegers", "/presets/0/video/bitrate", "[1e300]", "/presets/0/video/bitrate", ""},
    {"BitrateTooLow", "/presets/0/video/bitrate", "[999]", "/presets/0/video/bitrate", "999"},
    {"BitrateNegative", "/presets/0/audio/bitrate", "[-1]", "/presets/0/audio/bitrate", "-1"},
    {"BitrateNotWhole", "/presets/0/video/bitrate", "[900000.5]", "/presets/0/video/bitrate", "900000.5"},
    {"BitrateAsText", "/presets/0/video/bitrate", "['900000']", "/presets/0/video/bitrate", "900000"},
    {"WidthTooLarge", "/presets/0/video/maxWidth", "[16385]", "/presets/0/video/maxWidth", "16385"},
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
    {"NoCodec", "/presets/1/video/codec", "[]", "/presets/1/video", "codec"},
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Conf/IFormatCodecVideo.h"
#include "Kestra/Proc/ICodecFactory.h"
#include "component/transcoder/TranscoderFixture.h"

using Kestra::Conf::IFormatCodec;
using Kestra::Conf::IFormatCodecVideo;

namespace {

constexpr std::int64_t SECOND = 705'600'000;

} // namespace

class Factories : public TranscoderTest {
protected:
    void startWithRange(qint64 from, qint64 to) {
        auto data = request();
        data.exportRange = {KTime(from), KTime(to)};
        QString error;
        ASSERT_TRUE(transcoder->initialize(data, error));
        makeReady();
        ASSERT_EQ(codecs->GetMade().size(), 2U);
    }

    const Kestra::Fakes::FakeCodecFactory::Made& video() { return codecs->GetMade().at(0); }
    const Kestra::Fakes::FakeCodecFactory::Made& audio() { return codecs->GetMade().at(1); }

    /// The preset as the transcoder hands it on.
    Preset adjusted() {
        Preset preset = presets.preset();
        preset.setVideoBitrateBps(presets.bitrate(&model.video).maximum);
        preset.setAudioBitrateBps(presets.bitrate(&model.audio).maximum);
        if (preset.videoBitrateMode() == Export::BitrateMode::Automatic)
            preset.setVideoBitrateMode(Export::BitrateMode::Variable);
        return preset;
    }

    void expectUncut() {
        EXPECT_EQ(video().stream, videoStream);
        EXPECT_EQ(audio().encoder->GetDuration(), 10 * SECOND);
    }
};

TEST_F(Factories, GiveTheEncodersTheModelsStreams) {
    start();
    EXPECT_TRUE(video().video);
    EXPECT_FALSE(audio().video);
    EXPECT_EQ(video().stream, videoStream);
    EXPECT_EQ(audio().stream, audioStream);
    EXPECT_EQ(processors.GetMade().at(0).streams,
              (std::vector<boost::intrusive_ptr<Kestra::Proc::IStream>>{video().encoder, audio().encoder}));
}

TEST_F(Factories, GiveTheMuxerThePresetsContainerAndTheOutputPath) {
    start();
    const auto& made = muxers->GetMade().at(0);
    EXPECT_EQ(made.format->GetProperty(), adjusted().muxerData());
    EXPECT_EQ(made.format->GetContainerID(), "mp4");
    EXPECT_EQ(made.output->GetPath(), Kestra::ioPath(outputPath().toStdString()));
    EXPECT_EQ(processors.GetMade().at(0).muxer, made.muxer);
    EXPECT_FALSE(QFileInfo::exists(outputPath()));
}

TEST_F(Factories, TakeTheOutputPathAsUtf8) {
    auto data = request();
    data.outputPath = folder.filePath(QString::fromUtf8("\xc3\xa4\xe6\x98\xa0.mp4"));
    QString error;
    ASSERT_TRUE(transcoder->initialize(data, error));
    makeReady();
    EXPECT_EQ(muxers->GetMade().at(0).output->GetPath().ToUtf8(),
              folder.path().toStdString() + "/\xc3\xa4\xe6\x98\xa0.mp4");
}

TEST_F(Factories, FixTheVideoBitrateThatTheProviderGives) {
    start();
    const auto bitrate = presets.bitrate(&model.video).maximum;
    EXPECT_GT(bitrate, 0);
    EXPECT_EQ(video().properties[IFormatCodec::TAG_BITRATE].GetInt64(), bitrate);
}

TEST_F(Factories, FixTheGreatestBitrateOfARange) {
    initialize("fixed");
    changeBitrateMode(Export::BitrateMode::Quality);
    const auto range = presets.bitrate(&model.video);
    ASSERT_LT(range.minimum, range.maximum);
    makeReady();
    EXPECT_EQ(video().properties[IFormatCodec::TAG_BITRATE].GetInt64(), range.maximum);
}

TEST_F(Factories, FixTheAudioBitrateThatTheProviderGives) {
    start();
    const auto bitrate = presets.bitrate(&model.audio).maximum;
    EXPECT_GT(bitrate, 0);
    EXPECT_EQ(audio().properties[IFormatCodec::TAG_BITRATE].GetInt64(), bitrate);
    EXPECT_EQ(audio().properties, adjusted().audioEncoderData());
}

TEST_F(Factories, ReplaceTheAutomaticModeByTheVariableOne) {
    start();
    ASSERT_EQ(presets.preset().videoBitrateMode(), Export::BitrateMode::Automatic) << "the provider's stays as it is";
    EXPECT_EQ(video().properties[IFormatCodec::TAG_BITRATE_MODE].GetString(),
              Preset::modeToString(Export::BitrateMode::Variable));
}

TEST_F(Factories, KeepEveryOtherMode) {
    initialize("fixed");
    changeBitrateMode(Export::BitrateMode::Quality);
    makeReady();
    EXPECT_EQ(video().properties[IFormatCodec::TAG_BITRATE_MODE].GetString(),
              Preset::modeToString(Export::BitrateMode::Quality));
}

TEST_F(Factories, MarkTheVideoEncodersOptionsAndChangeNothingElse) {
    start("fixed");
    Kestra::Core::Property expected = adjusted().videoEncoderData();
    ASSERT_TRUE(expected.ChildExists(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE)) << "options of the preset's own";
    expected[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE].SetChild(IFormatCodecVideo::TAG_APPROVED_VBR_MODE_ONLY, true);
    EXPECT_EQ(video().properties, expected);
    EXPECT_TRUE(video()
                    .properties[IFormatCodec::TAG_CODEC_OPTIONS_ENCODE][IFormatCodecVideo::TAG_APPROVED_VBR_MODE_ONLY]
                    .GetBool());
}

TEST_F(Factories, MakeTheVideoEncodersOptionsWhereThePresetHasNone) {
    initialize("av");
    // Every container for pictures gives its encoder an option; a user's preset may name any other.
    auto tree = presets.preset().property();
    tree["container"].SetChild("id", std::string("wav"));
    ASSERT_TRUE(presets.updatePreset(nullptr, Preset(tree)));
    Kestra::Core::Property expected = adjusted().videoEncoderData();
    ASSERT_FALSE(expected.ChildExists(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE));
    expected.SetChild(IFormatCodec::TAG_CODEC_OPTIONS_ENCODE)
        .SetChild(IFormatCodecVideo::TAG_APPROVED_VBR_MODE_ONLY, true);
    makeReady();
    EXPECT_EQ(video().properties, expected);
}

TEST_F(Factories, TakeTheBitrateForThePicturesThatTheCompositionHasAtTheStart) {
    initialize();
    const auto before = presets.bitrate(&model.video).maximum;
    Media::Video slow = model.video;
    slow.frameRateNumerator = 5;
    model.setCompositionVideo(&slow);
    const auto after = presets.bitrate(&slow).maximum;
    ASSERT_LT(after, before);
    makeReady();
    EXPECT_EQ(video().properties[IFormatCodec::TAG_BITRATE].GetInt64(), after);
    transcoder.reset();
    model.setCompositionVideo(&model.video);
}

TEST_F(Factories, AskForBitratesWithoutADescriptionWhenNoneIsObserved) {
    initialize("fixed");
    model.setCompositionVideo(nullptr);
    model.setCompositionAudio(nullptr);
    makeReady();
    ASSERT_EQ(codecs->GetMade().size(), 2U);
    EXPECT_EQ(video().properties[IFormatCodec::TAG_BITRATE].GetInt64(), 0);
    EXPECT_EQ(audio().properties[IFormatCodec::TAG_BITRATE].GetInt64(), 0);
}

TEST_F(Factories, UseThePresetThatIsSelectedAtTheStart) {
    initialize("av");
    presets.selectPreset(std::string("fixed"));
    makeReady();
    EXPECT_EQ(video().properties[IFormatCodec::TAG_BITRATE].GetInt64(), 1'200'000);
}

TEST_F(Factories, DoNotFollowThePresetAfterTheStart) {
    start();
    const auto before = video().properties;
    presets.selectPreset(std::string("fixed"));
    TestSupport::turnEventLoop();
    EXPECT_EQ(codecs->GetMade().size(), 2U);
    EXPECT_EQ(video().properties, before);
}

TEST_F(Factories, CutPicturesBeforeTheEncoderAndSoundAfterIt) {
    startWithRange(2'000, 5'000);
    ASSERT_NE(video().stream, videoStream);
    EXPECT_EQ(video().stream->GetDuration(), 3 * SECOND);
    EXPECT_EQ(audio().stream, audioStream) << "the encoder hears the whole stream";
    EXPECT_EQ(audio().encoder->GetDuration(), 3 * SECOND) << "and what it gives is cut";
}

TEST_F(Factories, CutNothingForARangeWithoutLength) {
    startWithRange(2'000, 2'000);
    expectUncut();
}

TEST_F(Factories, CutNothingForAnInvertedRange) {
    startWithRange(5'000, 2'000);
    expectUncut();
}

TEST_F(Factories, CutNothingWithoutARange) {
    start();
    expectUncut();
}

TEST_F(Factories, LetGoOfTheStreamsWithTheTranscoder) {
    start();
    transcoder.reset();
    Kestra::Core::CoreManager::Instance().SetCodecFactory(nullptr);
    codecs.reset();
    processors.Forget();
    EXPECT_EQ(videoStream->GetRefCount(), 1);
    EXPECT_EQ(audioStream->GetRefCount(), 1);
}

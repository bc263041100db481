// SPDX-License-Identifier: GPL-3.0-or-later
// The factories as the runner has them.
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ICodecFactory.h"
#include "Kestra/Proc/IMuxerFactory.h"
#include "component/transcoder-outcome/OutcomeFixture.h"
#include "fakes/kestra/FakeFactories.h"
#include "fakes/kestra/FakeStreamAudio.h"
#include "fakes/kestra/FakeStreamVideo.h"
#include <stdexcept>

using Kestra::Core::CoreManager;

namespace {

constexpr std::int64_t SECOND = 705'600'000;

} // namespace

class HandedFactories : public Outcome {
protected:
    HandedFactories() {
        CoreManager::Instance().SetCodecFactory(codecs);
        CoreManager::Instance().SetMuxerFactory(muxers);
    }
    ~HandedFactories() override {
        transcoder.reset();
        CoreManager::Instance().SetCodecFactory(nullptr);
        CoreManager::Instance().SetMuxerFactory(nullptr);
    }

    void handOver(const char* preset = "av", Types::Range range = {}) {
        presets.selectPreset(std::string(preset));
        auto data = request();
        data.exportRange = range;
        QString refusal;
        ASSERT_TRUE(transcoder->initialize(data, refusal));
        makeReady(pictures, sound);
        ASSERT_NE(FakeRunner::current(), nullptr);
    }

    const std::shared_ptr<Kestra::Fakes::FakeCodecFactory> codecs = std::make_shared<Kestra::Fakes::FakeCodecFactory>();
    const std::shared_ptr<Kestra::Fakes::FakeMuxerFactory> muxers = std::make_shared<Kestra::Fakes::FakeMuxerFactory>();
    const boost::intrusive_ptr<Kestra::Fakes::FakeStreamVideo> pictures{new Kestra::Fakes::FakeStreamVideo(250)};
    const boost::intrusive_ptr<Kestra::Fakes::FakeStreamAudio> sound{new Kestra::Fakes::FakeStreamAudio(480'000)};
};

TEST_F(HandedFactories, AreNotCalledByTheAttemptItself) {
    handOver();
    EXPECT_TRUE(codecs->GetMade().empty());
    EXPECT_TRUE(muxers->GetMade().empty());
}

TEST_F(HandedFactories, AreAllThereForPicturesWithSound) {
    handOver();
    EXPECT_TRUE(runner().videoEncoderFactory);
    EXPECT_TRUE(runner().audioEncoderFactory);
    EXPECT_TRUE(runner().muxerFactory);
}

TEST_F(HandedFactories, OfPicturesIsEmptyForSoundAlone) {
    handOver("sound");
    EXPECT_FALSE(runner().videoEncoderFactory);
    EXPECT_TRUE(runner().audioEncoderFactory);
    EXPECT_TRUE(runner().muxerFactory);
}

TEST_F(HandedFactories, OfSoundIsEmptyForPicturesAlone) {
    handOver("pictures");
    EXPECT_TRUE(runner().videoEncoderFactory);
    EXPECT_FALSE(runner().audioEncoderFactory);
    EXPECT_TRUE(runner().muxerFactory);
}

TEST_F(HandedFactories, MakeNewObjectsAtEachCall) {
    handOver("av", {KTime(1'000), KTime(3'000)});
    const auto video = runner().videoEncoderFactory();
    const auto videoAgain = runner().videoEncoderFactory();
    const auto audio = runner().audioEncoderFactory();
    const auto audioAgain = runner().audioEncoderFactory();
    const auto muxer = runner().muxerFactory();
    const auto muxerAgain = runner().muxerFactory();
    EXPECT_NE(video, videoAgain);
    EXPECT_NE(audio, audioAgain);
    EXPECT_NE(muxer, muxerAgain);
    ASSERT_EQ(codecs->GetMade().size(), 4U);
    EXPECT_NE(codecs->GetMade()[0].stream, codecs->GetMade()[1].stream) << "a segmenter for each encoder";
    EXPECT_EQ(codecs->GetMade()[0].properties, codecs->GetMade()[1].properties);
    EXPECT_EQ(audio->GetDuration(), 2 * SECOND);
    EXPECT_EQ(audioAgain->GetDuration(), 2 * SECOND);
    ASSERT_EQ(muxers->GetMade().size(), 2U);
    EXPECT_NE(muxers->GetMade()[0].format, muxers->GetMade()[1].format);
    EXPECT_NE(muxers->GetMade()[0].output, muxers->GetMade()[1].output);
}

TEST_F(HandedFactories, GiveBackWhatTheEngineMade) {
    handOver("av", {KTime(1'000), KTime(3'000)});
    const auto video = runner().videoEncoderFactory();
    const auto audio = runner().audioEncoderFactory();
    const auto muxer = runner().muxerFactory();
    EXPECT_EQ(video, codecs->GetMade().at(0).encoder);
    EXPECT_EQ(audio, codecs->GetMade().at(1).encoder) << "the encoder, not the segmenter over it";
    EXPECT_EQ(muxer, muxers->GetMade().at(0).muxer);
}

TEST_F(HandedFactories, KeepTheSamePresetEachWhateverIsSelectedLater) {
    handOver("fixed");
    const Preset kept = presets.preset();
    presets.selectPreset(std::string("av"));
    ASSERT_NE(presets.preset().muxerData(), kept.muxerData());
    const auto muxer = runner().muxerFactory();
    const auto audio = runner().audioEncoderFactory();
    const auto video = runner().videoEncoderFactory();
    EXPECT_EQ(muxers->GetMade().at(0).format->GetProperty(), kept.muxerData());
    EXPECT_EQ(codecs->GetMade().at(0).properties, kept.audioEncoderData());
    EXPECT_EQ(codecs->GetMade().at(1).properties[Kestra::Conf::IFormatCodec::TAG_BITRATE].GetInt64(), 1'200'000);
}

TEST_F(HandedFactories, ReadPathAndRangeWhenTheyAreCalled) {
    handOver("av", {KTime(1'000), KTime(3'000)});
    // The transcoder is told anew between the attempt and the making: what it holds then is what counts.
    auto later = request();
    later.outputPath = folder.filePath(QStringLiteral("later.mp4"));
    later.exportRange = {KTime(1'000), KTime(6'000)};
    const auto video = runner().videoEncoderFactory;
    const auto audio = runner().audioEncoderFactory;
    const auto muxer = runner().muxerFactory;
    QString refusal;
    ASSERT_TRUE(transcoder->initialize(later, refusal));
    EXPECT_EQ(codecs->GetMade().size(), 0U);
    video();
    EXPECT_EQ(codecs->GetMade().at(0).stream->GetDuration(), 5 * SECOND);
    EXPECT_EQ(audio()->GetDuration(), 5 * SECOND);
    muxer();
    EXPECT_EQ(muxers->GetMade().at(0).output->GetPath().ToUtf8(), later.outputPath.toStdString());
}

TEST_F(HandedFactories, AreAllThatHoldsTheStreamsBesideTheirObjects) {
    handOver();
    // This test, the transcoder's stream object, the runner's copy of the factory.
    EXPECT_EQ(pictures->GetRefCount(), 3);
    EXPECT_EQ(sound->GetRefCount(), 3);
    runner().videoEncoderFactory = nullptr;
    runner().audioEncoderFactory = nullptr;
    EXPECT_EQ(pictures->GetRefCount(), 2);
    EXPECT_EQ(sound->GetRefCount(), 2);
}

TEST_F(HandedFactories, HoldTheirStreamsAsLongAsTheyLive) {
    handOver();
    auto video = runner().videoEncoderFactory;
    auto audio = runner().audioEncoderFactory;
    auto muxer = runner().muxerFactory;
    transcoder.reset();
    EXPECT_EQ(pictures->GetRefCount(), 2);
    EXPECT_EQ(sound->GetRefCount(), 2);
    video = nullptr;
    audio = nullptr;
    EXPECT_EQ(pictures->GetRefCount(), 1);
    EXPECT_EQ(sound->GetRefCount(), 1);
}

TEST_F(HandedFactories, LetTheEnginesExceptionsThrough) {
    const auto error = std::make_exception_ptr(std::runtime_error("refused"));
    handOver();
    codecs->GetScript().ThrowAt("CreateVideoEncoder", error);
    codecs->GetScript().ThrowAt("CreateAudioEncoder", error);
    muxers->GetScript().ThrowAt("CreateMuxer", error);
    EXPECT_THROW(runner().videoEncoderFactory(), std::runtime_error);
    EXPECT_THROW(runner().audioEncoderFactory(), std::runtime_error);
    EXPECT_THROW(runner().muxerFactory(), std::runtime_error);
    EXPECT_EQ(emissions, Signals());
}

TEST_F(HandedFactories, LetASegmentersExceptionThrough) {
    handOver("av", {KTime(-1), KTime(3'000)});
    EXPECT_THROW(runner().videoEncoderFactory(), std::invalid_argument);
    EXPECT_THROW(runner().audioEncoderFactory(), std::invalid_argument);
}

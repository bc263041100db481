// SPDX-License-Identifier: GPL-3.0-or-later
#include "component/transcoder/TranscoderFixture.h"
#include <QTranslator>

namespace {

/// Answers in the transcoder's own context alone.
class Translator : public QTranslator {
public:
    QString translate(const char* context, const char* text, const char*, int) const override {
        return qstrcmp(context, "Export::Transcoder") == 0 ? QStringLiteral("<%1>").arg(QLatin1String(text))
                                                           : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class Validation : public TranscoderTest {
protected:
    /// What a request that is refused says.
    std::string refusal(const Export::Transcoder::Data& data) {
        QString error;
        EXPECT_FALSE(transcoder->initialize(data, error));
        return error.toStdString();
    }
};

TEST_F(Validation, AsksForACompositionFirst) {
    EXPECT_EQ(refusal({}), "No composition provided");
    auto data = request();
    data.composition = nullptr;
    EXPECT_EQ(refusal(data), "No composition provided");
}

TEST_F(Validation, AsksForVideoSecond) {
    model.composition.setVideo(nullptr).setAudio(nullptr);
    auto data = request();
    data.presetProvider = nullptr;
    EXPECT_EQ(refusal(data), "No video provided");
}

TEST_F(Validation, AsksForAudioBeforeThePreset) {
    model.composition.setAudio(nullptr);
    auto data = request();
    EXPECT_EQ(refusal(data), "No audio provided");
    data.presetProvider = nullptr;
    EXPECT_EQ(refusal(data), "No audio provided");
}

TEST_F(Validation, AsksForAPresetLast) {
    auto data = request();
    data.presetProvider = nullptr;
    EXPECT_EQ(refusal(data), "No export preset provided");
}

TEST_F(Validation, AsksForASelectedPreset) {
    Export::PresetProvider unloaded(nullptr);
    auto data = request();
    data.presetProvider = &unloaded;
    EXPECT_EQ(refusal(data), "No export preset provided");
}

TEST_F(Validation, SpeaksTheUsersLanguage) {
    Translator translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(refusal({}), "<No composition provided>");
    QCoreApplication::removeTranslator(&translator);
}

TEST_F(Validation, ChangesNothingWhenItRefuses) {
    model.composition.setAudio(nullptr);
    refusal(request());
    EXPECT_TRUE(model.composition.exportedVideos().empty());
    EXPECT_EQ(model.videoStreams.stream(), nullptr);
    EXPECT_FALSE(transcoder->videoNeeded());
    EXPECT_EQ(transcoder->videoPreset(), Media::Video());
    model.composition.setAudio(&model.audio);
    initialize();
    EXPECT_TRUE(transcoder->audioNeeded());
}

TEST_F(Validation, LeavesTheErrorAloneWhenItAccepts) {
    QString error = QStringLiteral("untouched");
    EXPECT_TRUE(transcoder->initialize(request(), error));
    EXPECT_EQ(error, QStringLiteral("untouched"));
}

TEST_F(TranscoderTest, AddsItsDescriptionsToTheComposition) {
    initialize();
    EXPECT_TRUE(model.composition.contains(&transcoder->videoPreset()));
    EXPECT_TRUE(model.composition.contains(&transcoder->audioPreset()));
    EXPECT_EQ(model.composition.exportedVideos().size(), 1U);
    EXPECT_EQ(model.composition.exportedAudios().size(), 1U);
}

TEST_F(TranscoderTest, DescribesWhatThePresetMakesOfTheComposition) {
    initialize();
    Media::Video expected = presets.applyPreset(&model.video);
    expected.exported = true;
    EXPECT_EQ(transcoder->videoPreset(), expected);
    EXPECT_EQ(transcoder->videoPreset().width, 640U);
    EXPECT_EQ(transcoder->audioPreset(), presets.applyPreset(&model.audio));
    EXPECT_EQ(transcoder->audioPreset().sampleRate, 48'000);
}

TEST_F(TranscoderTest, OffersItsStreamsToTheModel) {
    initialize();
    ASSERT_NE(model.videoStreams.stream(), nullptr);
    ASSERT_NE(model.audioStreams.stream(), nullptr);
    EXPECT_EQ(model.videoStreams.stream()->source, &transcoder->videoPreset());
    EXPECT_EQ(model.audioStreams.stream()->source, &transcoder->audioPreset());
    EXPECT_EQ(model.videoStreams.stream()->range, request().streamRange);
    EXPECT_EQ(model.audioStreams.stream()->range, request().streamRange);
    EXPECT_FALSE(model.videoStreams.stream()->using_);
    EXPECT_EQ(model.videoStreams.stream()->impl, nullptr);
    EXPECT_TRUE(transcoder->videoNeeded());
    EXPECT_TRUE(transcoder->audioNeeded());
}

TEST_F(TranscoderTest, TakesTheFieldsOfARequestInTheirOrder) {
    const Export::Transcoder::Data data{&model.composition,         {KTime(1), KTime(2)},    {KTime(3), KTime(4)},
                                        QStringLiteral("film.mp4"), QStringLiteral("house"), &presets};
    EXPECT_EQ(data.composition, &model.composition);
    EXPECT_EQ(data.streamRange, (Types::Range{KTime(1), KTime(2)}));
    EXPECT_EQ(data.exportRange, (Types::Range{KTime(3), KTime(4)}));
    EXPECT_EQ(data.outputPath, QStringLiteral("film.mp4"));
    EXPECT_EQ(data.brandingName, QStringLiteral("house"));
    EXPECT_EQ(data.presetProvider, &presets);
}

TEST_F(TranscoderTest, DescribesNothingBeforeItIsInitialized) {
    EXPECT_EQ(transcoder->videoPreset(), Media::Video());
    EXPECT_EQ(transcoder->audioPreset(), Media::Audio());
}

TEST_F(TranscoderTest, MarksItsPicturesAsAnExportsBeforeTheCompositionIsAsked) {
    std::vector<bool> marked;
    bus.onMessage = [&](const std::string& message) {
        if (message == "bus Change composition: 1 video and 0 audio exports")
            marked.push_back(transcoder->videoPreset().exported);
    };
    initialize();
    bus.onMessage = nullptr;
    EXPECT_EQ(marked, std::vector<bool>{true});
}

TEST_F(TranscoderTest, AsksForPicturesThenForSoundEachDescriptionAheadOfItsStream) {
    std::vector<std::string> requests;
    bus.onMessage = [&](const std::string& message) {
        if (message.find("Change composition") != std::string::npos || message.find(" Add ") != std::string::npos)
            requests.push_back(message);
    };
    initialize();
    bus.onMessage = nullptr;
    const std::string state = "+source -using -impl -available 1000..11000 ms";
    EXPECT_EQ(requests, (std::vector<std::string>{
                            "bus Change composition: 1 video and 0 audio exports", "bus Add video stream: " + state,
                            "bus Change composition: 1 video and 1 audio exports", "bus Add audio stream: " + state}));
}

TEST_F(TranscoderTest, HasTheFastTracksGuardForItsOnlyChild) {
    ASSERT_EQ(transcoder->children().size(), 1);
    initialize();
    EXPECT_EQ(transcoder->children().size(), 1) << "the scheduler is no child";
    delete transcoder->children().first();
    EXPECT_FALSE(model.fastTrack.isSuppressed());
}

TEST_F(TranscoderTest, NeedsNothingBeforeItIsInitialized) {
    EXPECT_FALSE(transcoder->videoNeeded());
    EXPECT_FALSE(transcoder->audioNeeded());
}

TEST_F(TranscoderTest, ExportsSoundAloneWithAPresetWithoutPictures) {
    initialize("sound");
    EXPECT_FALSE(transcoder->videoNeeded());
    EXPECT_TRUE(transcoder->audioNeeded());
    EXPECT_EQ(model.videoStreams.stream(), nullptr);
    EXPECT_TRUE(model.composition.exportedVideos().empty());
    EXPECT_EQ(transcoder->videoPreset(), Media::Video());
}

TEST_F(TranscoderTest, ExportsPicturesAloneWithAPresetWithoutSound) {
    initialize("pictures");
    EXPECT_TRUE(transcoder->videoNeeded());
    EXPECT_FALSE(transcoder->audioNeeded());
    EXPECT_EQ(model.audioStreams.stream(), nullptr);
    EXPECT_TRUE(model.composition.exportedAudios().empty());
}

TEST_F(TranscoderTest, NeedsNoStreamThatNobodyAdopted) {
    model.videoStreams.adoptOffers(false);
    initialize();
    EXPECT_FALSE(transcoder->videoNeeded());
    EXPECT_TRUE(transcoder->audioNeeded());
}

TEST_F(TranscoderTest, SuppressesTheFastTrackAsLongAsItLives) {
    EXPECT_TRUE(model.fastTrack.isSuppressed());
    EXPECT_FALSE(model.fastTrack.active());
    start();
    EXPECT_TRUE(model.fastTrack.isSuppressed());
    play({FakeProcessor::Finished()});
    EXPECT_TRUE(model.fastTrack.isSuppressed());
    transcoder.reset();
    EXPECT_FALSE(model.fastTrack.isSuppressed());
}

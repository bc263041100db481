// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/ProcException.h"
#include "component/transcoder/TranscoderFixture.h"
#include "fakes/branding/RecordingFactories.h"
#include "support/OutroResource.h"
#include "support/TemporaryPlace.h"
#include <QImage>
#include <stdexcept>

namespace {

using Kestra::Fakes::RecordingFactories;
using TestSupport::OutroResource;

constexpr std::int64_t SECOND = Kestra::TIME_BASE;
const std::string TRYING = "INFO 259 EXPORT: Trying to start";
const std::string STARTED = "INFO 355 EXPORT: Started";

QByteArray anyPicture() {
    return OutroResource::flat(32, 18, 0xff8040c0);
}

class TranscoderBranding : public TranscoderTest {
protected:
    void initializeNamed(const QString& name, const char* preset = "av") {
        presets.selectPreset(std::string(preset));
        Export::Transcoder::Data data = request();
        data.brandingName = name;
        QString error;
        ASSERT_TRUE(transcoder->initialize(data, error)) << error.toStdString();
    }
    void startNamed(const QString& name, const char* preset = "av") {
        initializeNamed(name, preset);
        makeReady();
    }
    const boost::intrusive_ptr<Kestra::Proc::IStream>& encoded(std::size_t index) const {
        return codecs->GetMade().at(index).stream;
    }
};

TEST_F(TranscoderBranding, AppendsTheNamedOutroToPictureAndSound) {
    const OutroResource outros({{QStringLiteral("first"), anyPicture()}});
    startNamed(QStringLiteral("first"));
    ASSERT_EQ(codecs->GetMade().size(), 2U);
    EXPECT_NE(encoded(0), videoStream);
    EXPECT_NE(encoded(1), audioStream);
    EXPECT_EQ(encoded(0)->GetDuration(), 15 * SECOND);
    EXPECT_EQ(encoded(1)->GetDuration(), 15 * SECOND);
    EXPECT_EQ(logged(), (std::vector<std::string>{TRYING, STARTED}));
}

TEST_F(TranscoderBranding, LeavesTheStreamsAsTheyAreWithoutSuchAPicture) {
    const OutroResource outros({{QStringLiteral("second"), anyPicture()}});
    startNamed(QStringLiteral("another"));
    EXPECT_EQ(encoded(0), videoStream);
    EXPECT_EQ(encoded(1), audioStream);
    EXPECT_EQ(logged(), (std::vector<std::string>{TRYING, STARTED}));
}

TEST_F(TranscoderBranding, LeavesTheStreamsAsTheyAreWithoutAName) {
    const OutroResource outros({{QStringLiteral("third"), anyPicture()}});
    startNamed(QString());
    EXPECT_EQ(encoded(0), videoStream);
    EXPECT_EQ(encoded(1), audioStream);
}

TEST_F(TranscoderBranding, LeavesTheStreamsAsTheyAreForWhatIsNoPicture) {
    const OutroResource outros({{QStringLiteral("text"), "This is no picture.\n"},
                                {QStringLiteral("cut"), anyPicture().left(20)},
                                {QStringLiteral("empty"), QByteArray()}});
    startNamed(QStringLiteral("text"));
    EXPECT_EQ(encoded(0), videoStream);
    EXPECT_EQ(encoded(1), audioStream);
}

TEST_F(TranscoderBranding, KnowsAPictureByItsContent) {
    const OutroResource outros({{QStringLiteral("bitmap"), OutroResource::flat(8, 8, 0xff00ff00, "BMP")}});
    startNamed(QStringLiteral("bitmap"));
    EXPECT_EQ(encoded(0)->GetDuration(), 15 * SECOND);
}

TEST_F(TranscoderBranding, TakesTheNameAsItIs) {
    const QString name = QStringLiteral("Ünder the %1 & %2");
    const OutroResource outros({{name, anyPicture()}});
    startNamed(name);
    EXPECT_EQ(encoded(0)->GetDuration(), 15 * SECOND);
}

TEST_F(TranscoderBranding, LengthensSoundAlone) {
    const OutroResource outros({{QStringLiteral("fourth"), anyPicture()}});
    startNamed(QStringLiteral("fourth"), "sound");
    ASSERT_EQ(codecs->GetMade().size(), 1U);
    EXPECT_EQ(encoded(0)->GetDuration(), 15 * SECOND);
}

TEST_F(TranscoderBranding, GivesBothPassesTheSameStream) {
    const OutroResource outros({{QStringLiteral("fifth"), anyPicture()}});
    startNamed(QStringLiteral("fifth"), "two-pass");
    play({FakeProcessor::Finished()});
    ASSERT_EQ(codecs->GetMade().size(), 3U);
    EXPECT_EQ(encoded(0)->GetDuration(), 15 * SECOND);
    for (const auto& made : codecs->GetMade())
        EXPECT_TRUE(!made.video || made.stream == encoded(0));
}

class BrandingFailure : public TranscoderBranding {
protected:
    BrandingFailure() { writeOutput(); }

    void failAt(const char* call, const std::exception_ptr& error) {
        record->failures[call] = error;
        startNamed(QStringLiteral("failing"));
    }

    const OutroResource outros{{{QStringLiteral("failing"), anyPicture()}}};
    const std::shared_ptr<RecordingFactories> record = std::make_shared<RecordingFactories>();
    const RecordingFactories::Installed installed{record};
    const std::exception_ptr refusal = std::make_exception_ptr(std::runtime_error("no scaler"));
};

TEST_F(BrandingFailure, IsLoggedAndToldAsFailedThenStopped) {
    failAt("CreateResizer", refusal);
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].GetDescription(), "no scaler");
    EXPECT_EQ(logged(),
              (std::vector<std::string>{
                  TRYING, "ERROR 293 EXPORT prepare stream: errInfo: unknown error(1) - no scaler",
                  "ERROR 294 EXPORT prepare stream: Exception has been caught while starting export. Details:"}));
    ASSERT_EQ(log.lines.size(), 3U);
    EXPECT_EQ(log.lines[2].file, "Transcoder.cpp");
    EXPECT_NE(log.lines[2].text.find("Details:\n"), std::string::npos);
    EXPECT_NE(log.lines[2].text.find("no scaler"), std::string::npos) << log.lines[2].text;
    EXPECT_NE(log.lines[2].text.find("runtime_error"), std::string::npos) << log.lines[2].text;
}

TEST_F(BrandingFailure, IsLoggedBeforeItIsTold) {
    onSignal = [this](const std::string&) { EXPECT_EQ(log.lines.size(), 3U); };
    failAt("CreateResizer", refusal);
    EXPECT_EQ(emissions.size(), 2U);
}

TEST_F(BrandingFailure, TellsWhatAnEngineExceptionCarries) {
    failAt("CreateResizer", std::make_exception_ptr(Kestra::Proc::ProcException(
                                Kestra::Proc::TranscodingError::FilterFailed, "the picture is too odd")));
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].GetCode(), Kestra::Proc::TranscodingError::FilterFailed);
    EXPECT_EQ(log.lines.at(1).text.find("EXPORT prepare stream: errInfo: "), 0U);
    EXPECT_NE(log.lines.at(1).text.find("(11) - the picture is too odd"), std::string::npos) << log.lines.at(1).text;
}

TEST_F(BrandingFailure, OfTheSoundComesAfterThePicture) {
    failAt("CreateDurationTrimmer", refusal);
    EXPECT_EQ(record->log.Get().back(), "CreateDurationTrimmer default");
    EXPECT_EQ(record->appended.size(), 2U) << "the picture had been done";
    EXPECT_EQ(emissions, (Signals{"failed", "stopped"}));
}

TEST_F(BrandingFailure, StartsNothingAndRemovesNoFile) {
    failAt("CreateResizer", refusal);
    EXPECT_EQ(calls->Get(), CallLog::Calls()) << "neither encoder nor muxer nor processor";
    EXPECT_TRUE(QFileInfo::exists(outputPath()));
    transcoder->stop();
    EXPECT_EQ(emissions.size(), 2U);
}

TEST_F(BrandingFailure, LeavesTheStreamsTaken) {
    failAt("CreateResizer", refusal);
    EXPECT_TRUE(model.videoStreams.stream()->using_);
    EXPECT_TRUE(model.audioStreams.stream()->using_);
    model.videoStreams.setVersion(3);
    TestSupport::turnEventLoop();
    EXPECT_EQ(countLogged(259), 1U) << "a transcoder starts once at most";
    EXPECT_EQ(emissions.size(), 2U);
}

TEST_F(BrandingFailure, KeepsTheTemporaryDirectoryUntilTheTranscoderGoes) {
    const TestSupport::TemporaryPlace place(folder.path());
    failAt("CreateResizer", refusal);
    EXPECT_EQ(TestSupport::TemporaryPlace::scratchDirectories(), 1);
    transcoder.reset();
    EXPECT_EQ(TestSupport::TemporaryPlace::scratchDirectories(), 0);
}

TEST_F(BrandingFailure, LetsTheStreamsGo) {
    initializeNamed(QStringLiteral("failing"));
    record->failures["CreateResizer"] = refusal;
    model.buildStreams(videoStream, audioStream);
    const auto videoHolders = videoStream->GetRefCount();
    const auto audioHolders = audioStream->GetRefCount();
    TestSupport::turnEventLoop();
    EXPECT_EQ(emissions.size(), 2U);
    EXPECT_EQ(videoStream->GetRefCount(), videoHolders);
    EXPECT_EQ(audioStream->GetRefCount(), audioHolders);
}

TEST_F(BrandingFailure, MayEndTheTranscoderWhenItIsTold) {
    onSignal = [this](const std::string& emitted) {
        if (emitted == "failed")
            transcoder.reset();
    };
    failAt("CreateResizer", refusal);
    EXPECT_EQ(emissions, Signals{"failed"});
}

TEST_F(BrandingFailure, OfAForeignTypeLeavesTheAttempt) {
    TestSupport::TimerCatcher catcher;
    failAt("CreateResizer", std::make_exception_ptr(42));
    ASSERT_TRUE(catcher.caught);
    EXPECT_THROW(std::rethrow_exception(catcher.caught), int);
    EXPECT_EQ(emissions, Signals());
    EXPECT_EQ(logged(), std::vector<std::string>{TRYING});
}

TEST_F(BrandingFailure, DoesNotTouchWhatItWasNotAskedFor) {
    record->failures["CreateResizer"] = refusal;
    startNamed(QStringLiteral("another"));
    EXPECT_EQ(record->log.Get(), CallLog::Calls());
    EXPECT_EQ(logged(), (std::vector<std::string>{TRYING, STARTED}));
}

// The scratch folder comes first: without one, nothing of the outro is built.
TEST_F(BrandingFailure, ComesAfterTheTemporaryDirectory) {
    const TestSupport::TemporaryPlace place(outputPath());
    TestSupport::TimerCatcher catcher;
    failAt("CreateResizer", refusal);
    EXPECT_TRUE(catcher.caught);
    EXPECT_EQ(record->log.Get(), CallLog::Calls());
    EXPECT_EQ(emissions, Signals());
}

} // namespace

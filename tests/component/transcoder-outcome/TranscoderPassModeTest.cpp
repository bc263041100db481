// SPDX-License-Identifier: GPL-3.0-or-later
// One pass or two.
#include "component/transcoder-outcome/OutcomeFixture.h"

using Export::BitrateMode;

class PassMode : public Outcome {
protected:
    /// As a user's edit of the two-pass preset.
    void startInMode(BitrateMode mode) {
        presets.selectPreset(std::string("two-pass"));
        Preset edited = presets.preset();
        edited.setVideoBitrateMode(mode);
        presets.updatePreset(nullptr, edited);
        ASSERT_EQ(presets.preset().videoBitrateMode(), mode);
        QString refusal;
        ASSERT_TRUE(transcoder->initialize(request(), refusal));
        makeReady();
        ASSERT_NE(FakeRunner::current(), nullptr);
    }
};

TEST_F(PassMode, IsOnePassWithoutTheTwoPassSetting) {
    start("av");
    EXPECT_EQ(runner().passMode, 0);
}

TEST_F(PassMode, IsTwoPassesWithTheSettingInTheAutomaticMode) {
    start("two-pass");
    ASSERT_EQ(presets.preset().videoBitrateMode(), BitrateMode::Automatic);
    EXPECT_EQ(runner().passMode, 1);
}

TEST_F(PassMode, IsTwoPassesWithTheSettingInTheConstantMode) {
    startInMode(BitrateMode::Constant);
    EXPECT_EQ(runner().passMode, 1);
}

TEST_F(PassMode, IsTwoPassesWithTheSettingInTheVariableMode) {
    startInMode(BitrateMode::Variable);
    EXPECT_EQ(runner().passMode, 1);
}

TEST_F(PassMode, IsOnePassInTheQualityModeWhateverTheSettingSays) {
    startInMode(BitrateMode::Quality);
    EXPECT_EQ(runner().passMode, 0);
}

TEST_F(PassMode, IsOnePassWhenOnlySoundIsLeft) {
    model.videoStreams.adoptOffers(false);
    start("two-pass");
    EXPECT_EQ(runner().passMode, 0);
}

TEST_F(PassMode, IsTwoPassesWhenOnlyPicturesAreLeft) {
    model.audioStreams.adoptOffers(false);
    start("two-pass");
    EXPECT_EQ(runner().passMode, 1);
}

TEST_F(PassMode, IsTwoPassesWhenNothingIsLeftWhichIsNotSoundAlone) {
    initialize("two-pass");
    model.videoStreams.remove();
    model.audioStreams.remove();
    TestSupport::turnEventLoop();
    ASSERT_NE(FakeRunner::current(), nullptr);
    EXPECT_EQ(runner().passMode, 1);
    EXPECT_FALSE(runner().videoEncoderFactory);
    EXPECT_FALSE(runner().audioEncoderFactory);
    EXPECT_TRUE(runner().muxerFactory);
}

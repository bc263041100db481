// SPDX-License-Identifier: GPL-3.0-or-later
// Clips of different size, rate and sound, one after the other.
#include "Exported.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include <cmath>
#include <functional>
#include <gtest/gtest.h>

using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using TestMedia::FlashBeep;

namespace {

/// At 25 frames a second. A picture whose time lies on no frame of the export is shown from the nearest one.
constexpr double HALF_A_FRAME = 0.0205;

class Sequence : public ::testing::Test {
protected:
    Sequence() {
        FlashBeep first;
        first.width = 160;
        first.height = 90;
        first.frames = 75;
        make("first.mov", first);
        FlashBeep second;
        second.rate = {30000, 1001};
        second.frames = 90;
        second.period = 30;
        second.width = 320;
        second.height = 180;
        second.sampleRate = 44100;
        make("second.mkv", second);
        FlashBeep third;
        third.rate = 50;
        third.frames = 150;
        third.period = 50;
        third.width = 176;
        third.height = 144;
        third.channels = 1;
        third.variableFrameRate = true;
        make("third.mp4", third, "aac");
    }

    void make(const char* name, FlashBeep media, const char* audioCodec = "pcm_s16le") {
        media.audioCodec = audioCodec;
        TestMedia::makeFlashBeep(folder / name, media);
        inputs << QString::fromStdString(folder / name);
    }

    TestMedia::ProbedMedia exported(const std::function<void(ExportRequest&)>& change = [](ExportRequest&) {}) const {
        ExportRequest request = TestExport::requestOf({}, "mov-prores-1080p", folder / "out.mov");
        request.inputs = inputs;
        change(request);
        const ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        return TestMedia::probe(folder / "out.mov");
    }
    static void expectInStep(const TestMedia::ProbedMedia& media, std::size_t flashes, double tolerance) {
        const std::vector<double> offsets = media.offsets();
        EXPECT_EQ(offsets.size(), flashes)
            << media.flashes().size() << " flashes, " << media.audio->onsets.size() << " beeps";
        for (const double offset : offsets)
            EXPECT_LE(std::abs(offset), tolerance) << "sound minus picture";
    }

    const TestMedia::Folder folder;
    QStringList inputs;
};

TEST_F(Sequence, OfThreeMixedClipsIsAsLongAsTheyAreTogether) {
    const TestMedia::ProbedMedia media = exported();
    const double seconds = 3 + 90 * 1001 / 30000.0 + 3;
    EXPECT_EQ(static_cast<long>(media.video->frames.size()), std::lround(seconds * 25));
    EXPECT_NEAR(static_cast<double>(media.audio->samples) / media.audio->sampleRate, seconds, 0.001);
    EXPECT_EQ(media.audio->gaps, 0);
    EXPECT_EQ(media.decodeErrors, 0);
    expectInStep(media, 9, HALF_A_FRAME);
}

TEST_F(Sequence, CutAcrossTheClipsStaysInStep) {
    const TestMedia::ProbedMedia media = exported([](ExportRequest& request) {
        request.in = KTime(1517);
        request.out = KTime(7409);
    });
    EXPECT_EQ(static_cast<long>(media.video->frames.size()), std::lround((7.409 - 1.520) * 25));
    EXPECT_EQ(media.audio->gaps, 0);
    expectInStep(media, 6, HALF_A_FRAME);
}

TEST_F(Sequence, OfClipsWhoseFlashesLieOnItsFramesIsInStepToTheMillisecond) {
    inputs.clear();
    FlashBeep fast;
    fast.rate = 50;
    fast.frames = 150;
    fast.period = 50;
    fast.flashFrames = 4;
    fast.variableFrameRate = true;
    fast.sampleRate = 44100;
    FlashBeep slow;
    slow.frames = 75;
    slow.width = 192;
    slow.height = 144;
    slow.channels = 1;
    FlashBeep film;
    film.rate = {24000, 1001};
    film.frames = 72;
    film.period = 72;
    make("slow.mov", slow);
    make("fast.mov", fast);
    make("film.mkv", film);
    const TestMedia::ProbedMedia whole = exported();
    EXPECT_EQ(static_cast<long>(whole.video->frames.size()), std::lround((6 + 72 * 1001 / 24000.0) * 25));
    EXPECT_EQ(whole.audio->gaps, 0);
    expectInStep(whole, 7, 0.001);
    const TestMedia::ProbedMedia cut = exported([](ExportRequest& request) {
        request.overwrite = true;
        request.in = KTime(1513);
        request.out = KTime(7011);
    });
    EXPECT_EQ(static_cast<long>(cut.video->frames.size()), std::lround((7.011 - 1.520) * 25));
    expectInStep(cut, 5, 0.001);
}

TEST_F(Sequence, AClipWithoutSoundIsSilentAndOneWithoutPictureIsBlack) {
    FlashBeep mute;
    mute.sampleRate = 0;
    mute.frames = 50;
    FlashBeep dark;
    dark.frames = 0;
    inputs.clear();
    make("mute.mov", mute);
    make("dark.wav", dark);
    const TestMedia::ProbedMedia media = exported();
    ASSERT_EQ(media.video->frames.size(), 150U);
    EXPECT_GT(media.video->frames[30].luma, 30);
    EXPECT_LT(media.video->frames[120].luma, 20);
    ASSERT_FALSE(media.audio->onsets.empty());
    EXPECT_NEAR(media.audio->onsetTime(0), 2.0, 0.001);
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
// "render" of timelines: what was cut is what comes out.
#include "RenderedTimelines.h"
#include <algorithm>
#include <cmath>

using namespace TestCli;

namespace {

TEST_F(RenderedTimelines, AreTheCutToTheFrameAndToTheSample) {
    const auto found =
        rendered(write(clipOf("a", "both.mov", 5, 25) + ',' + gapOf(5) + ',' + clipOf("b", "silent.mov", 10, 20),
                       clipOf("s", "both.mov", 5, 25) + ',' + gapOf(5) + ',' + clipOf("t", "both.mov", 10, 20)));
    std::vector<int> expected = shown(5, 25);
    append(expected, std::vector<int>(5, -1)); // black
    append(expected, shown(10, 20));
    EXPECT_EQ(found.numbers(), expected);
    EXPECT_EQ(found.audio->samples, 50 * 1920);
    EXPECT_EQ(found.audio->onsets, (std::vector<long long>{20 * 1920, 45 * 1920}));
    for (int frame = 25; frame < 30; ++frame)
        EXPECT_LT(found.video->frames[frame].luma, 17) << frame;
}

TEST_F(RenderedTimelines, BeginAndEndWithinTheCut) {
    const auto found = rendered(write(clipOf("a", "both.mov", 5, 25) + ',' + clipOf("b", "silent.mov", 10, 20),
                                      clipOf("s", "both.mov", 5, 25) + ',' + clipOf("t", "both.mov", 10, 20)),
                                {"--in", "0.6", "--out", "1.4"});
    std::vector<int> expected = shown(20, 10);
    append(expected, shown(10, 10));
    EXPECT_EQ(found.numbers(), expected);
    EXPECT_EQ(found.audio->samples, 20 * 1920);
}

TEST_F(RenderedTimelines, DissolveEveryFrameByItsPart) {
    const auto found = rendered(
        write(clipOf("a", "both.mov", 5, 10) + ',' + dissolveOf(4, 4) + ',' + clipOf("b", "both.mov", 34, 10), {}));
    ASSERT_EQ(found.video->frames.size(), 20U);
    for (int frame = 0; frame < 20; ++frame) {
        const double part = std::clamp((frame - 6 + 0.5) / 8, 0.0, 1.0);
        const double luma = (1 - part) * TestMedia::lumaOfFrame(5 + frame) + part * TestMedia::lumaOfFrame(24 + frame);
        EXPECT_NEAR(found.video->frames[frame].luma, luma, 1) << frame;
    }
}

TEST_F(RenderedTimelines, LayClipsOverOthersByTheirTransparency) {
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=white:s=320x180,format=rgba,colorchannelmixer=aa=0.5",
                          "-frames:v", "1", *media / "half.png"});
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=white:s=90x180", "-frames:v", "1", *media / "narrow.png"});
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=white:s=800x100", "-frames:v", "1", *media / "flat.png"});
    const auto found = rendered(writeTracks(track("Video", clipOf("a", "both.mov", 2, 20)) + ',' +
                                            track("Video", gapOf(5) + ',' + clipOf("half", "half.png", 0, 5) + ',' +
                                                               clipOf("narrow", "narrow.png", 0, 5))));
    ASSERT_EQ(found.video->frames.size(), 20U);
    for (int frame = 0; frame < 20; ++frame) {
        const double below = TestMedia::lumaOfFrame(2 + frame);
        // The middle that is measured is 80 wide; 90 of 320 are white there.
        const double luma = frame < 5 || frame >= 15 ? below : frame < 10 ? (below + 235) / 2 : 235;
        EXPECT_NEAR(found.video->frames[frame].luma, luma, 2) << frame;
    }
    // Above and below a flat picture the one under it is seen.
    const auto flat = rendered(writeTracks(track("Video", clipOf("a", "both.mov", 2, 5)) + ',' +
                                           track("Video", clipOf("flat", "flat.png", 0, 5))));
    const double mean = flat.video->frames[0].luma;
    EXPECT_GT(mean, TestMedia::lumaOfFrame(2) + 20);
    EXPECT_LT(mean, 230);
}

TEST_F(RenderedTimelines, KeepTheColoursOfTitlesOverPicturesOfLessColour) {
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=red:s=320x180,format=rgba,colorchannelmixer=aa=0.5", "-frames:v",
                          "1", *media / "title.png"});
    const std::string cut = writeTracks(track("Video", clipOf("a", "both.mov", 2, 4)) + ',' +
                                        track("Video", clipOf("title", "title.png", 0, 4)));
    EXPECT_EQ(TestMedia::probe(*media / "both.mov").video->pixelFormat, "yuv420p");
    EXPECT_EQ(rendered(cut).video->pixelFormat, "yuv444p");
    EXPECT_FALSE(render(cut).errors.contains(QStringLiteral("colour of 4:4:4 became"))) << "nothing of it is lost";
}

TEST_F(RenderedTimelines, PlayClipsFasterBackwardsAndFrozen) {
    const auto found =
        rendered(write(clipOf("fast", "both.mov", 2, 10, warpOf("LinearTimeWarp.1", 2)) + ',' +
                           clipOf("back", "both.mov", 24, 10, warpOf("LinearTimeWarp.1", -1)) + ',' +
                           clipOf("still", "both.mov", 12, 10, R"(,"effects":[{"OTIO_SCHEMA":"FreezeFrame.1"}])"),
                       {}));
    const std::vector<int> numbers = found.numbers();
    ASSERT_EQ(numbers.size(), 30U);
    // The middle of a period at twice the speed is the border of two frames.
    for (int i = 0; i < 10; ++i)
        EXPECT_TRUE(numbers[i] == (2 + 2 * i) % 16 || numbers[i] == (3 + 2 * i) % 16) << i << ": " << numbers[i];
    for (int i = 0; i < 10; ++i) {
        EXPECT_TRUE(numbers[10 + i] == (24 - i) % 16 || numbers[10 + i] == (23 - i) % 16)
            << i << ": " << numbers[10 + i];
        EXPECT_EQ(numbers[20 + i], 12) << i;
        if (i > 0) {
            EXPECT_EQ(numbers[10 + i], (numbers[9 + i] + 15) % 16) << i;
        }
    }
}

TEST_F(RenderedTimelines, KeepFieldsOnlyAtTheirOwnPaceAndUnderNothing) {
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc2=s=320x180:r=50", "-vf",
                          "tinterlace=interleave_top,setfield=tff", "-t", "1", "-c:v", "ffv1", "-field_order", "tt",
                          *media / "fields.mkv"});
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=white:s=320x180,format=rgba,colorchannelmixer=aa=0.5",
                          "-frames:v", "1", *media / "half.png"});
    const QString taken = QStringLiteral("deinterlaced");
    const std::string clip = clipOf("f", "fields.mkv", 0, 10);
    EXPECT_FALSE(render(write(clip, {})).errors.contains(taken));
    const Result fast = render(write(clipOf("f", "fields.mkv", 0, 10, warpOf("LinearTimeWarp.1", 2)), {}));
    EXPECT_TRUE(fast.errors.contains(taken)) << fast.errors.toStdString();
    const Result back = render(write(clipOf("f", "fields.mkv", 20, 10, warpOf("LinearTimeWarp.1", -1)), {}));
    EXPECT_TRUE(back.errors.contains(taken)) << back.errors.toStdString();
    const Result layered =
        render(writeTracks(track("Video", clip) + ',' + track("Video", clipOf("h", "half.png", 0, 10))));
    EXPECT_TRUE(layered.errors.contains(taken)) << layered.errors.toStdString();
}

TEST_F(RenderedTimelines, ChangeTheSpeedOfSoundWithThatOfPictures) {
    const auto found = rendered(write(clipOf("a", "both.mov", 0, 50, warpOf("LinearTimeWarp.1", 0.5)),
                                      clipOf("s", "both.mov", 0, 50, warpOf("LinearTimeWarp.1", 0.5))));
    EXPECT_EQ(found.audio->samples, 50 * 1920);
    ASSERT_EQ(found.flashes().size(), found.audio->onsets.size());
    for (const double offset : found.offsets())
        EXPECT_LT(std::abs(offset), 0.022) << "half a frame is told by pictures, a millisecond by sound";
}

TEST_F(RenderedTimelines, MoveThePitchWithTheSpeedWhereThatIsOrdered) {
    const std::string tone = *media / "tone.wav";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "sine=1000:r=48000:d=2", tone});
    const std::string cut = write({}, clipOf("s", "tone.wav", 0, 25, warpOf("LinearTimeWarp.1", 2)));
    EXPECT_NEAR(cyclesOf(cut), 1000, 20);
    EXPECT_NEAR(cyclesOf(cut, {"--pitch", "moved"}), 2000, 20);
}

TEST_F(RenderedTimelines, MixWhatIsHeardAtTheSameTimeAndTellWhereThatIsTooLoud) {
    const auto twice = [](int later) {
        return writeTracks(track("Video", clipOf("a", "both.mov", 0, 40)) + ',' +
                           track("Audio", clipOf("s", "both.mov", 0, 40)) + ',' +
                           track("Audio", gapOf(later) + ',' + clipOf("t", "both.mov", 0, 30)));
    };
    // A frame later 1000 Hz have the same phase: twice an amplitude of 0.8.
    const Result loud = render(twice(1));
    EXPECT_EQ(loud.code, 0) << loud.errors.toStdString();
    EXPECT_TRUE(loud.errors.contains(QStringLiteral("note: The mix goes 4.1 dB beyond full scale")))
        << loud.errors.toStdString();
    EXPECT_GT(TestMedia::probe(out()).audio->peak, 0.99);
    const Result limited = render(twice(1), {"--limiter"});
    EXPECT_TRUE(limited.errors.contains(QStringLiteral("and its peaks are turned down")))
        << limited.errors.toStdString();
    EXPECT_NEAR(TestMedia::probe(out()).audio->peak, 0.89, 0.02);
    const Result apart = render(twice(10));
    EXPECT_FALSE(apart.errors.contains(QStringLiteral("beyond full scale"))) << apart.errors.toStdString();
    EXPECT_EQ(TestMedia::probe(out()).audio->onsets, (std::vector<long long>{0, 10 * 1920, 25 * 1920, 35 * 1920}));
}

TEST_F(RenderedTimelines, HaveTheMostChannelsAndTheHighestRateOfWhatIsHeardTogether) {
    const auto make = [](const char* name, const char* sound) {
        TestMedia::runFfmpeg({"-f", "lavfi", "-i", std::string("aevalsrc=0:d=2:") + sound, *media / name});
    };
    make("voice.wav", "s=44100:c=mono");
    make("music.wav", "s=48000:c=stereo");
    const auto plan = [](const std::string& tracks) {
        return run({"render", writeTracks(tracks), "-p", "flac", "-o", *media / "out.flac", "--dry-run"}).output;
    };
    const std::string voice = clipOf("v", "voice.wav", 0, 20), music = clipOf("m", "music.wav", 10, 20);
    const QString whole = QStringLiteral("flac 48000 Hz, 2 channels"),
                  first = QStringLiteral("flac 44100 Hz, 1 channel");
    EXPECT_TRUE(plan(track("Audio", voice) + ',' + track("Audio", music)).contains(whole));
    EXPECT_TRUE(plan(track("Audio", voice + ',' + dissolveOf(3, 3) + ',' + music)).contains(whole))
        << "in a cross-fade";
    EXPECT_TRUE(plan(track("Audio", voice + ',' + music)).contains(first)) << "one behind the other, as files are";
    EXPECT_TRUE(plan(track("Audio", voice) + ',' + track("Audio", gapOf(20) + ',' + music)).contains(first));
}

TEST_F(RenderedTimelines, TellOfClipsThatNoFrameShows) {
    const auto lasting = [](std::string clip, const char* frames) {
        const std::string whole = R"("duration":)" + timeOf(3);
        clip.replace(clip.find(whole), whole.size(),
                     R"("duration":{"OTIO_SCHEMA":"RationalTime.1","rate":25,"value":)" + std::string(frames) + '}');
        return clip;
    };
    const auto told = [](const std::string& pictures, const std::vector<std::string>& more = {}) {
        const Result result = render(write(pictures, {}), more);
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        return result.errors.contains(
            QStringLiteral(
                "warning: \"%1\": track \"Video1\", clip \"s\": it lies between two frames and is not seen\n")
                .arg(QString::fromStdString(*media / "cut.otio")));
    };
    const std::string first = clipOf("a", "both.mov", 0, 5), last = clipOf("b", "both.mov", 10, 5);
    const auto between = [&](const char* frames) {
        return first + ',' + lasting(clipOf("s", "both.mov", 5, 3), frames) + ',' + last;
    };
    EXPECT_TRUE(told(between("0.4")));
    EXPECT_TRUE(
        run({"validate", write(between("0.4"), {})}).output.contains(QStringLiteral("it lies between two frames")));
    EXPECT_FALSE(told(between("0.4"), {"--set", "frame-rate=100"})) << "it is seen there";
    EXPECT_FALSE(told(between("0.4"), {"--in", "0.24"})) << "it is not exported";
    EXPECT_FALSE(told(between("0.6")));
    EXPECT_FALSE(told(first + ',' + lasting(clipOf("s", "both.mov", 5, 3, R"(,"enabled":false)"), "0.4") + ',' + last));
    EXPECT_FALSE(
        told(first + ',' + dissolveOf(2, 0) + ',' + lasting(clipOf("s", "both.mov", 5, 3), "0.4") + ',' + last))
        << "the transition shows it";
    const std::string stack =
        R"({"OTIO_SCHEMA":"Stack.1","name":"N","children":[)" + track("Video", between("0.4")) + "]}";
    EXPECT_TRUE(
        render(write(stack, {}))
            .errors.contains(QStringLiteral("track \"Video1\", stack \"N\", track \"Video1\", clip \"s\": it lies")));
    std::string slow = stack.substr(0, stack.size() - 1) + warpOf("LinearTimeWarp.1", 0.5) + '}';
    slow.replace(slow.find(first), first.size(), clipOf("a", "both.mov", 0, 2));
    EXPECT_FALSE(render(write(slow, {})).errors.contains(QStringLiteral("it lies between"))) << "slowly it lasts";
    const auto placed = [&](const char* before, const char* within) {
        const std::string clips = lasting(clipOf("a", "both.mov", 0, 3), within) + ',' +
                                  lasting(clipOf("s", "both.mov", 5, 3), "0.4") + ',' + last;
        const std::string nested = R"({"OTIO_SCHEMA":"Stack.1","name":"N","children":[)" + track("Video", clips) + "]}";
        return render(write(lasting(clipOf("f", "both.mov", 0, 3), before) + ',' + nested, {}))
            .errors.contains(QStringLiteral("clip \"s\": it lies"));
    };
    EXPECT_TRUE(placed("5.4", "2")) << "its stack begins on a frame";
    EXPECT_FALSE(placed("5.6", "2.3"));
}

TEST_F(RenderedTimelines, AreExportedAlone) {
    const Result result = run(
        {"render", write(clipOf("a", "both.mov", 0, 5), {}), *media / "both.mov", "-p", "mkv-ffv1-flac", "-o", out()});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("a timeline is exported alone"))) << result.errors.toStdString();
}

TEST_F(RenderedTimelines, OfWhichTheFirstPicturesAreSmallSayThatLargerOnesAreScaledDown) {
    TestMedia::runFfmpeg({"-i", *media / "both.mov", "-vf", "scale=640:360", "-c:v", "mpeg4", *media / "large.mov"});
    const auto isTold = [](const std::string& cut, const std::vector<std::string>& more = {}) {
        const Result result = render(cut, more);
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        return result.errors.contains(QStringLiteral("large.mov\" is scaled down to the size of the first pictures, "));
    };
    const std::string cut = write(clipOf("a", "both.mov", 0, 10) + "," + clipOf("b", "large.mov", 0, 10), {});
    EXPECT_TRUE(isTold(cut));
    EXPECT_FALSE(isTold(cut, {"--in", "0.4"})) << "the range begins with the large ones";
    EXPECT_FALSE(isTold(cut, {"--set", "size=640x360"}));
    EXPECT_FALSE(isTold(write(clipOf("b", "large.mov", 0, 10) + "," + clipOf("a", "both.mov", 0, 10), {})));
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
// "render" of timelines: what was cut is what comes out.
#include "TimelineFixture.h"
#include "support/FileHelpers.h"
#include "support/MediaProbe.h"
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

using namespace TestCli;

namespace {

std::string gapOf(int frames) {
    return R"({"OTIO_SCHEMA":"Gap.1","source_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" + timeOf(0) +
           R"(,"duration":)" + timeOf(frames) + "}}";
}

std::string dissolveOf(int before, int behind) {
    return R"({"OTIO_SCHEMA":"Transition.1","transition_type":"SMPTE_Dissolve","in_offset":)" + timeOf(before) +
           R"(,"out_offset":)" + timeOf(behind) + '}';
}

std::string warpOf(const std::string& schema, double speed) {
    return R"(,"effects":[{"OTIO_SCHEMA":")" + schema + R"(","time_scalar":)" + std::to_string(speed) + "}]";
}

/// What both.mov shows from frame `first` on, every `step`th frame.
std::vector<int> shown(int first, int count, int step = 1) {
    std::vector<int> all;
    for (int n = first; static_cast<int>(all.size()) < count; n += step)
        all.push_back(n % 25 < 2 ? -1 : n % 16);
    return all;
}

void append(std::vector<int>& all, const std::vector<int>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

class RenderedTimelines : public Timelines {
protected:
    static Result render(const std::string& cut, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments{"render", cut,           "-p",         "mkv-ffv1-flac", "-o",
                                           out(),    "--overwrite", "--progress", "none"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    static TestMedia::ProbedMedia rendered(const std::string& cut, const std::vector<std::string>& more = {}) {
        const Result result = render(cut, more);
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        return TestMedia::probe(out());
    }
    static std::string out() { return *media / "out.mkv"; }

    /// Of all that is heard.
    static int cyclesOf(const std::string& cut, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments{"render",         cut,           "-p",         "wav", "-o",
                                           *media / "o.wav", "--overwrite", "--progress", "none"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        TestMedia::runFfmpeg({"-i", *media / "o.wav", "-f", "s16le", "-ac", "1", *media / "o.raw"});
        std::ifstream file(*media / "o.raw", std::ios::binary);
        int count = 0;
        std::int16_t last = 0, value = 0;
        while (file.read(reinterpret_cast<char*>(&value), sizeof value)) {
            count += last < 0 && value >= 0 ? 1 : 0;
            last = value;
        }
        return count;
    }
    static std::string madeOf(const std::string& kind, int frames, const std::string& more = {}) {
        return R"({"OTIO_SCHEMA":"Clip.1","name":"made","source_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
               timeOf(0) + R"(,"duration":)" + timeOf(frames) + '}' + more +
               R"(,"media_reference":{"OTIO_SCHEMA":"GeneratorReference.1","generator_kind":")" + kind +
               R"(","parameters":{}}})";
    }
    /// Numbered pictures p.108.png and so on, of which 12 are said to be there.
    static std::string numbered(int first, int frames) {
        return R"({"OTIO_SCHEMA":"Clip.1","name":"seq","source_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
               timeOf(first) + R"(,"duration":)" + timeOf(frames) +
               R"(},"media_reference":{"OTIO_SCHEMA":"ImageSequenceReference.1","target_url_base":".","name_prefix":"p.","name_suffix":".png","start_frame":108,"rate":25,"available_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
               timeOf(108) + R"(,"duration":)" + timeOf(12) + "}}}";
    }
    static void makeNumbered() {
        TestMedia::runFfmpeg(
            {"-i", *media / "silent.mov", "-frames:v", "12", "-start_number", "108", *media / "p.%d.png"});
    }
};

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

TEST_F(RenderedTimelines, ShowWhatIsMade) {
    const auto found =
        rendered(write(clipOf("a", "both.mov", 2, 5) + ',' + madeOf("SMPTEBars", 10) + ',' + madeOf("black", 10), {}));
    ASSERT_EQ(found.video->frames.size(), 25U);
    EXPECT_GT(found.video->frames[8].luma, 40);
    EXPECT_LT(found.video->frames[20].luma, 17);
}

TEST_F(RenderedTimelines, TellWhereWhatIsMadeIsNeitherSeenNorHeard) {
    const QString errors = render(write(madeOf("tone", 5), madeOf("SMPTEBars", 5))).errors;
    EXPECT_TRUE(errors.contains(QStringLiteral("a tone stands among pictures"))) << errors.toStdString();
    EXPECT_TRUE(errors.contains(QStringLiteral("bars stand among sound"))) << errors.toStdString();
}

TEST_F(RenderedTimelines, TellOnceWhatGoesBeyondItsMedium) {
    const auto told = [](std::string cut, const std::string& available) {
        cut.replace(cut.find(timeOf(500)), timeOf(500).size(), available);
        return render(write(cut, {})).errors.count(QStringLiteral("beyond"));
    };
    const std::string cut = clipOf("a", "both.mov", 40, 20);
    EXPECT_EQ(told(cut, timeOf(50)), 1) << "what there is said to be";
    EXPECT_EQ(told(cut, timeOf(60)), 1) << "what there is";
    EXPECT_EQ(told(clipOf("a", "both.mov", 30, 20), timeOf(50)), 0);
}

TEST_F(RenderedTimelines, TellWhatGoesBeyondAMediumOfWhichNoRangeIsTold) {
    const auto found = [](int start, int frames, const char* kind = "Video", const std::string& more = {}) {
        std::string cut = clipOf("a", "both.mov", start, frames, more);
        const std::size_t range = cut.find(R"(,"available_range")");
        cut.replace(range, std::string::npos, "}}");
        const Result result = run({"validate", writeTracks(track(kind, cut))});
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        const QString text = result.output.trimmed();
        const int begin = text.indexOf(QStringLiteral("lasts "));
        return text.mid(begin, text.lastIndexOf(QStringLiteral(" (/")) - begin).toStdString();
    };
    EXPECT_EQ(found(40, 20), "lasts 2000 ms; the clip goes 400 ms beyond it and holds the last picture for 400 ms");
    EXPECT_EQ(found(40, 20, "Audio"), "lasts 2000 ms; the clip goes 400 ms beyond it and is silent for 400 ms");
    EXPECT_EQ(found(-5, 10),
              "lasts 2000 ms; the clip goes 200 ms before its beginning and holds the first picture for 200 ms");
    EXPECT_EQ(found(100, 10), "lasts 2000 ms; the clip goes 2400 ms beyond it and shows nothing but the last picture");
    EXPECT_EQ(found(10, 20, "Video", warpOf("LinearTimeWarp.1", -1)),
              "lasts 2000 ms; the clip goes 400 ms before its beginning and holds the first picture for 400 ms");
    EXPECT_EQ(found(0, 50).find("beyond"), std::string::npos);
}

TEST_F(RenderedTimelines, TellWhereNothingIsSeen) {
    const auto isTold = [](const std::string& pictures) {
        return render(write(pictures, {})).errors.contains(QStringLiteral("None of the inputs has a picture"));
    };
    EXPECT_FALSE(isTold(madeOf("SMPTEBars", 5)));
    EXPECT_TRUE(isTold(gapOf(5)));
    EXPECT_TRUE(isTold(clipOf("a", "both.mov", 0, 5, R"(,"enabled":false)")));
    EXPECT_FALSE(isTold(clipOf("a", "both.mov", 0, 5)));
}

TEST_F(RenderedTimelines, PlayWhatIsMadeBeforeItsCutAndAtAnySpeed) {
    const std::string cut = write({}, madeOf("silence", 25) + ',' + dissolveOf(10, 10) + ',' +
                                          madeOf("tone", 25, warpOf("LinearTimeWarp.1", 2)));
    EXPECT_NEAR(cyclesOf(cut), 1400, 15) << "1000 Hz from the beginning of the fade on";
}

TEST_F(RenderedTimelines, ShowNumberedPicturesAtTheirRate) {
    makeNumbered();
    // Behind pictures in YUV, so that the numbers can be read.
    std::vector<int> expected = shown(2, 2);
    append(expected, shown(4, 6));
    EXPECT_EQ(rendered(write(clipOf("a", "both.mov", 2, 2) + ',' + numbered(112, 6), {})).numbers(), expected);
}

TEST_F(RenderedTimelines, HoldTheLastOfNumberedPictures) {
    makeNumbered();
    std::vector<int> expected = shown(2, 2);
    append(expected, shown(8, 4));
    append(expected, std::vector<int>(3, 11));
    const std::string cut = write(clipOf("a", "both.mov", 2, 2) + ',' + numbered(116, 7), {});
    EXPECT_EQ(rendered(cut).numbers(), expected);
    EXPECT_TRUE(render(cut).errors.contains(QStringLiteral("holds the last picture for 120 ms at its end")));
}

TEST_F(RenderedTimelines, AreRefusedWhereMediaAreMissing) {
    const std::string cut = write(clipOf("a", "both.mov", 2, 5) + ',' + clipOf("gone", "gone.mov", 0, 5), {});
    std::filesystem::remove(out());
    const Result result = render(cut);
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(
        result.errors.contains(QStringLiteral("track \"Video1\", clip \"gone\": the media \"gone.mov\" is not there")))
        << result.errors.toStdString();
    EXPECT_TRUE(result.errors.contains(QStringLiteral("--missing black")));
    EXPECT_FALSE(std::filesystem::exists(out()));
    std::vector<int> expected = shown(2, 5);
    append(expected, std::vector<int>(5, -1));
    EXPECT_EQ(rendered(cut, {"--missing", "black"}).numbers(), expected);
    EXPECT_TRUE(render(cut, {"--missing", "black"}).errors.contains(QStringLiteral("warning: ")));
}

TEST_F(RenderedTimelines, TellWhatStandsInPlaceOfWhatIsMissing) {
    const std::string cut = writeTracks(track("Video", clipOf("a", "both.mov", 2, 10)) + ',' +
                                        track("Video", gapOf(5) + ',' + clipOf("gone", "gone.mov", 0, 5)));
    const auto told = QStringLiteral("black, or what lies on lower tracks where there is something, and silent");
    EXPECT_TRUE(render(cut).errors.contains(told));
    EXPECT_EQ(rendered(cut, {"--missing", "black"}).numbers(), shown(2, 10));
    EXPECT_TRUE(render(cut, {"--missing", "black"}).errors.contains(told));
    EXPECT_FALSE(render(write(clipOf("a", "both.mov", 2, 10), {}), {"--missing", "black"}).errors.contains(told));
}

TEST_F(RenderedTimelines, AskForNoMediaOfWhatIsSwitchedOff) {
    std::ofstream(*media / "text.mov") << "no media at all";
    const std::string off = R"(,"enabled":false)";
    const std::string cut = write(clipOf("a", "both.mov", 2, 5) + ',' + clipOf("gone", "gone.mov", 0, 5, off) + ',' +
                                      clipOf("broken", "text.mov", 0, 5, off),
                                  {});
    std::vector<int> expected = shown(2, 5);
    append(expected, std::vector<int>(10, -1));
    EXPECT_EQ(rendered(cut).numbers(), expected);
    EXPECT_TRUE(render(cut).errors.contains(QStringLiteral("warning: "))) << "that one is not there is told";
}

TEST_F(RenderedTimelines, ShowBlackInPlaceOfMediaThatCannotBeOpened) {
    std::ofstream(*media / "text.mov") << "no media at all";
    const std::string cut = write(clipOf("a", "both.mov", 2, 5) + ',' + clipOf("broken", "text.mov", 0, 5), {});
    EXPECT_EQ(render(cut).code, 2);
    EXPECT_EQ(rendered(cut, {"--missing", "black"}).video->frames.size(), 10U);
}

TEST_F(RenderedTimelines, ShowBlackInPlaceOfNumberedPicturesThatAreMissing) {
    makeNumbered();
    std::filesystem::remove(*media / "p.108.png");
    std::filesystem::remove(*media / "p.111.png");
    const std::string cut = write(clipOf("a", "both.mov", 2, 2) + ',' + numbered(108, 6), {});
    EXPECT_EQ(render(cut).code, 2);
    const auto found = rendered(cut, {"--missing", "black"});
    std::vector<int> expected = shown(2, 2);
    append(expected, {-1, -1, 2, -1, 4, 5});
    EXPECT_EQ(found.numbers(), expected);
    EXPECT_LT(found.video->frames[2].luma, 17);
    EXPECT_LT(found.video->frames[5].luma, 17);
}

TEST_F(RenderedTimelines, NeverReplaceTheirMedia) {
    TestMedia::FlashBeep clip;
    clip.frames = 10;
    TestMedia::makeFlashBeep(*media / "own.mkv", clip);
    const auto size = std::filesystem::file_size(*media / "own.mkv");
    const std::string cut = write(clipOf("a", "own.mkv", 0, 5), {});
    const Result result = run({"render", cut, "-p", "mkv-ffv1-flac", "-o", *media / "own.mkv", "--overwrite"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("it is one of the timeline's media")))
        << result.errors.toStdString();
    EXPECT_EQ(std::filesystem::file_size(*media / "own.mkv"), size);
}

/// Exporting `cut` over that file is refused, and the file stays as it is.
void expectKept(const std::string& cut, const std::string& file, const std::vector<std::string>& more = {}) {
    const QByteArray before = TestFiles::read(file);
    std::vector<std::string> arguments{"render", cut, "-p", "mkv-ffv1-flac", "-o", file, "--overwrite"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const Result result = run(arguments);
    EXPECT_EQ(result.code, 2) << file;
    EXPECT_TRUE(result.errors.contains(QStringLiteral("it is one of the timeline's media")))
        << file << ": " << result.errors.toStdString();
    EXPECT_EQ(TestFiles::read(file), before) << file;
}

TEST_F(RenderedTimelines, NeverReplaceAPictureOfASequence) {
    makeNumbered();
    const std::string cut = write(numbered(108, 3), {});
    std::filesystem::create_hard_link(*media / "p.110.png", *media / "shown");
    expectKept(cut, *media / "shown");
    std::filesystem::create_symlink(*media / "p.112.png", *media / "behind");
    expectKept(cut, *media / "behind");
}

TEST_F(RenderedTimelines, NeverReplaceWhatTheyNameAndDoNotShow) {
    const std::string other = *media / "other.mkv";
    std::filesystem::copy_file(*media / "both.mov", other);
    const std::string shown = clipOf("a", "both.mov", 0, 5);
    const std::string hidden = clipOf("b", "other.mkv", 0, 5);
    expectKept(write(shown + ',' + clipOf("b", "other.mkv", 0, 5, R"(,"enabled":false)"), {}), other);
    expectKept(writeTracks(track("Video", shown) + ',' + track("Subtitle", hidden)), other);
    const std::string unread = R"({"OTIO_SCHEMA":"Unknown.1","inside":)" + hidden + '}';
    expectKept(write(shown + ',' + unread, {}), other);
    std::ofstream(*media / "text.mkv") << "no media at all";
    expectKept(write(shown + ',' + clipOf("broken", "text.mkv", 0, 5), {}), *media / "text.mkv",
               {"--missing", "black"});
}

TEST_F(RenderedTimelines, NeverReplaceWhatAFolderIsReadFrom) {
    std::filesystem::create_directory(*media / "cut.otiod");
    const std::string content = write(clipOf("a", "../both.mov", 0, 5), {}, "cut.otiod/content.otio");
    const auto size = std::filesystem::file_size(content);
    const Result result = run({"render", *media / "cut.otiod", "-p", "mkv-ffv1-flac", "-o", content, "--overwrite"});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("it is one of the inputs"))) << result.errors.toStdString();
    EXPECT_EQ(std::filesystem::file_size(content), size);
}

TEST_F(RenderedTimelines, KeepTheirMarkersAndTheirNameWhereTheContainerHasPlacesForThem) {
    const std::string markers =
        R"(,"markers":[{"OTIO_SCHEMA":"Marker.2","name":"Titles","marked_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
        timeOf(25) + R"(,"duration":)" + timeOf(1) + "}}]";
    const std::string cut = write(clipOf("a", "both.mov", 10, 40, markers), {});
    ASSERT_EQ(render(cut, {"--in", "0.2"}).code, 0);
    TestMedia::runFfmpeg({"-i", out(), "-f", "ffmetadata", *media / "told.txt"});
    std::stringstream text;
    text << std::ifstream(*media / "told.txt").rdbuf();
    const std::string told = text.str();
    EXPECT_NE(told.find("title=My cut"), std::string::npos) << told;
    EXPECT_NE(told.find("START=400000000"), std::string::npos) << told; // frame 25 of the media is 0.6 s into the clip
    EXPECT_NE(told.find("title=Titles"), std::string::npos) << told;
    const Result bare = run({"render", write({}, clipOf("s", "both.mov", 10, 40, markers)), "-p", "wav", "-o",
                             *media / "o.wav", "--overwrite"});
    EXPECT_EQ(bare.code, 0) << bare.errors.toStdString();
    EXPECT_TRUE(bare.errors.contains(QStringLiteral("note: Each of the timeline's markers is left out")))
        << bare.errors.toStdString();
}

TEST_F(RenderedTimelines, KeepTheMarkersOfWhatIsCutAsAWhole) {
    const auto range = [](int start, int frames) {
        return R"({"OTIO_SCHEMA":"TimeRange.1","start_time":)" + timeOf(start) + R"(,"duration":)" + timeOf(frames) +
               '}';
    };
    const std::string marked =
        clipOf("a", "both.mov", 0, 40,
               R"(,"markers":[{"OTIO_SCHEMA":"Marker.2","name":"Titles","marked_range":)" + range(25, 1) + "}]");
    ASSERT_EQ(render(writeTracks(R"({"OTIO_SCHEMA":"Track.1","kind":"Video","source_range":)" + range(10, 30) +
                                 R"(,"children":[)" + marked + "]}"))
                  .code,
              0);
    TestMedia::runFfmpeg({"-i", out(), "-f", "ffmetadata", *media / "told.txt"});
    std::stringstream text;
    text << std::ifstream(*media / "told.txt").rdbuf();
    EXPECT_NE(text.str().find("START=600000000"), std::string::npos) << text.str();
    EXPECT_NE(text.str().find("title=Titles"), std::string::npos) << text.str();
}

TEST_F(RenderedTimelines, AreExportedAlone) {
    const Result result = run(
        {"render", write(clipOf("a", "both.mov", 0, 5), {}), *media / "both.mov", "-p", "mkv-ffv1-flac", "-o", out()});
    EXPECT_EQ(result.code, 2);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("a timeline is exported alone"))) << result.errors.toStdString();
}

} // namespace

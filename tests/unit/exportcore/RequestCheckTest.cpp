// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/RequestCheck.h"
#include "AsSomebody.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/Refusal.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using ExportCore::CutPoints;
using ExportCore::ExportRequest;
using ExportCore::OutputTarget;
using ExportCore::Refusal;
using ExportCore::RequestCheck;
using ExportCore::TimePoint;
using TestSystem::AsSomebody;

namespace {

/// The sentence of the refusal; empty when nothing was refused.
std::string refusalOf(const std::function<void()>& check) {
    try {
        check();
        return {};
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
}

#define EXPECT_REFUSED(expression, reason)                                                                             \
    do {                                                                                                               \
        const std::string sentence = refusalOf([&] { expression; });                                                   \
        EXPECT_NE(sentence.find(reason), std::string::npos) << "got: " << sentence;                                    \
        EXPECT_EQ(sentence.find('\n'), std::string::npos);                                                             \
    } while (false)

class Request : public ::testing::Test {
protected:
    Request() {
        TestFiles::write(source, "media");
        request.inputs << QString::fromStdString(source);
        request.outputPath = QString::fromStdString(output);
    }
    OutputTarget check() const { return RequestCheck::output(request); }

    TestMedia::Folder folder;
    const std::string source = folder / "source.mov";
    const std::string output = folder / "film.mp4";
    ExportRequest request;
};

TEST_F(Request, ANewFileInAnExistingFolderIsAccepted) {
    const OutputTarget target = check();
    EXPECT_FALSE(target.existed);
    EXPECT_EQ(target.path.toStdString(), output);
    EXPECT_EQ(target.path, target.folder + "/film.mp4");
    EXPECT_EQ(access(output.c_str(), F_OK), -1) << "checking makes nothing";
}

TEST_F(Request, AnExistingFileNeedsTheWordThatItMayGo) {
    TestFiles::write(output, "old");
    EXPECT_REFUSED(check(), "exists already");
    request.overwrite = true;
    EXPECT_TRUE(check().existed);
    EXPECT_TRUE(check().replace);
}

TEST_F(Request, TheInputItselfIsRefusedEvenWithOverwriting) {
    request.overwrite = true;
    request.outputPath = request.inputs[0];
    EXPECT_REFUSED(check(), "it is one of the inputs");
}

TEST_F(Request, TheInputBehindASymbolicLinkIsRefused) {
    request.overwrite = true;
    ASSERT_EQ(symlink(source.c_str(), output.c_str()), 0);
    EXPECT_REFUSED(check(), "it is one of the inputs");
}

TEST_F(Request, TheInputBehindAHardLinkIsRefused) {
    request.overwrite = true;
    ASSERT_EQ(link(source.c_str(), output.c_str()), 0);
    EXPECT_REFUSED(check(), "it is one of the inputs");
}

TEST_F(Request, TheInputThroughAnotherFolderIsRefused) {
    request.overwrite = true;
    ASSERT_EQ(symlink((folder / "").c_str(), (folder / "mirror").c_str()), 0);
    request.outputPath = QString::fromStdString(folder / "mirror/source.mov");
    EXPECT_REFUSED(check(), "it is one of the inputs");
}

TEST_F(Request, AnInputThatIsALinkToTheOutputIsRefused) {
    request.overwrite = true;
    TestFiles::write(output, "media");
    const std::string alias = folder / "alias.mp4";
    ASSERT_EQ(symlink(output.c_str(), alias.c_str()), 0);
    request.inputs = QStringList(QString::fromStdString(alias));
    EXPECT_REFUSED(check(), "it is one of the inputs");
}

TEST_F(Request, WhatIsNoFileIsRefused) {
    request.overwrite = true;
    request.outputPath = QString::fromStdString(folder / "");
    EXPECT_REFUSED(check(), "it is a folder; name a file in it");
    ASSERT_EQ(mkfifo(output.c_str(), 0600), 0);
    request.outputPath = QString::fromStdString(output);
    EXPECT_REFUSED(check(), "it is a pipe");
    request.outputPath = QStringLiteral("/dev/null");
    EXPECT_REFUSED(check(), "it is a device");
    request.outputPath = QStringLiteral("/dev/full");
    EXPECT_REFUSED(check(), "it is a device");
}

TEST_F(Request, AnOutputWithoutANameIsRefused) {
    request.outputPath = QString();
    EXPECT_REFUSED(check(), "No output file was given");
    request.outputPath = QString::fromStdString(folder / "missing/");
    EXPECT_REFUSED(check(), "missing");
}

TEST_F(Request, AMissingFolderIsRefusedWithItsName) {
    request.outputPath = QString::fromStdString(folder / "no/such/film.mp4");
    EXPECT_REFUSED(check(), "the folder \"" + (folder / "no/such") + "\": No such file or directory; make it first");
    ASSERT_EQ(mkdir((folder / "films").c_str(), 0755), 0);
    request.outputPath = QString::fromStdString(folder / "fims/film.mp4");
    EXPECT_REFUSED(check(), "did you mean \"" + (folder / "films") + "\"?");
}

TEST_F(Request, AFileInPlaceOfTheFolderIsRefused) {
    request.outputPath = QString::fromStdString(source + "/film.mp4");
    EXPECT_REFUSED(check(), "Not a directory");
}

TEST_F(Request, ANameThatIsTooLongIsRefused) {
    request.outputPath = QString::fromStdString(folder / std::string(300, 'x'));
    EXPECT_REFUSED(check(), "File name too long");
}

TEST_F(Request, ALinkThatLeadsNowhereIsRefused) {
    ASSERT_EQ(symlink("/nowhere/at/all", output.c_str()), 0);
    EXPECT_REFUSED(check(), "leads nowhere");
}

TEST_F(Request, ALinkToAFileIsKeptAndTheFileBehindItReplaced) {
    const std::string real = folder / "real.mp4";
    TestFiles::write(real, "old");
    ASSERT_EQ(symlink(real.c_str(), output.c_str()), 0);
    request.overwrite = true;
    EXPECT_EQ(check().path.toStdString(), real);
}

TEST_F(Request, AReadOnlyFolderIsRefused) {
    const std::string locked = folder / "locked";
    ASSERT_EQ(mkdir(locked.c_str(), 0555), 0);
    ASSERT_EQ(chmod((folder / "").c_str(), 0755), 0);
    request.outputPath = QString::fromStdString(locked + "/film.mp4");
    const AsSomebody somebody;
    EXPECT_REFUSED(check(), "Permission denied");
}

TEST_F(Request, AFileThatMayNotBeWrittenIsRefused) {
    TestFiles::write(output, "old");
    ASSERT_EQ(chmod(output.c_str(), 0444), 0);
    ASSERT_EQ(chmod((folder / "").c_str(), 0777), 0);
    request.overwrite = true;
    const AsSomebody somebody;
    EXPECT_REFUSED(check(), "Permission denied");
}

TEST_F(Request, NamesOutsideAsciiStayWhatTheyAre) {
    const std::string name = folder / "Фильм – été 映画.mp4";
    request.outputPath = QString::fromStdString(name);
    EXPECT_EQ(check().path.toStdString(), name);
}

TEST_F(Request, InputsThatAreNoFilesAreRefused) {
    const auto inputs = [](const std::string& path) {
        RequestCheck::inputs(QStringList(QString::fromStdString(path)));
    };
    EXPECT_EQ(refusalOf([&] { inputs(source); }), "");
    EXPECT_REFUSED(RequestCheck::inputs({}), "No input");
    EXPECT_REFUSED(inputs(folder / "missing.mov"), "No such file");
    EXPECT_REFUSED(inputs(folder / ""), "it is a folder; name the files in it");
    EXPECT_REFUSED(inputs("/dev/zero"), "it is a device");
    TestFiles::write(folder / "empty.mov", "");
    EXPECT_REFUSED(inputs(folder / "empty.mov"), "it is empty");
    ASSERT_EQ(mkfifo((folder / "pipe.mov").c_str(), 0600), 0);
    EXPECT_REFUSED(inputs(folder / "pipe.mov"), "it is a pipe; write what comes out of it to a file");
    EXPECT_REFUSED(inputs("-"), "standard input is no file");
}

TEST_F(Request, AnInputThatMayNotBeReadIsRefused) {
    ASSERT_EQ(chmod(source.c_str(), 0), 0);
    ASSERT_EQ(chmod((folder / "").c_str(), 0755), 0);
    const AsSomebody somebody;
    EXPECT_REFUSED(RequestCheck::inputs(request.inputs), "Permission denied");
}

TEST_F(Request, PointsOutOfOrderAreRefused) {
    const auto points = [this](qint64 in, qint64 out) {
        request.in = KTime(in);
        request.out = KTime(out);
        RequestCheck::ranges(request);
    };
    EXPECT_EQ(refusalOf([&] { points(1000, 2000); }), "");
    EXPECT_REFUSED(points(2000, 1000), "does not lie after");
    EXPECT_REFUSED(points(2000, 2000), "does not lie after");
    EXPECT_REFUSED(points(-1, 2000), "before the start");
    request.in.reset();
    request.out = KTime(0);
    EXPECT_REFUSED(RequestCheck::ranges(request), "does not lie after");
}

TEST_F(Request, ADurationStandsForOneOfThePoints) {
    const auto cut = [this](std::optional<TimePoint> in, std::optional<TimePoint> out,
                            std::optional<TimePoint> duration) {
        request.in = in;
        request.out = out;
        request.duration = duration;
        return CutPoints::of(request, 25);
    };
    const auto expect = [](const CutPoints& found, std::optional<KTime> in, std::optional<KTime> out) {
        EXPECT_EQ(found.in, in);
        EXPECT_EQ(found.out, out);
    };
    expect(cut(KTime(1000), {}, KTime(500)), KTime(1000), KTime(1500));
    expect(cut({}, KTime(1000), KTime(400)), KTime(600), KTime(1000));
    expect(cut({}, {}, KTime(500)), std::nullopt, KTime(500));
    expect(cut(TimePoint::ofFrames(25), {}, TimePoint::ofFrames(50)), KTime(1000), KTime(3000));
    request.in.reset();
    request.out = KTime(9000);
    request.duration = KTime(500);
    expect(CutPoints::of(request, 25, KTime(4000)), KTime(3500), KTime(9000)); // an end behind the end is the end
    EXPECT_REFUSED(cut(KTime(0), KTime(1000), KTime(1000)), "two of them say");
    EXPECT_REFUSED(cut({}, KTime(1000), KTime(1001)),
                   "The duration 00:00:01.001 up to the out point, 00:00:01.000, would begin before the start");
    request.out = KTime(9000);
    request.duration = KTime(4001);
    EXPECT_REFUSED(CutPoints::of(request, 25, KTime(4000)),
                   "The duration 00:00:04.001 up to the inputs' end, 00:00:04.000, would begin before the start");
    request.duration = KTime(4000);
    expect(CutPoints::of(request, 25, KTime(4000)), KTime(0), KTime(9000));
    EXPECT_REFUSED(cut({}, {}, KTime(0)), "is none");
    EXPECT_REFUSED(cut(TimePoint::ofFrames(50), KTime(2000), {}), "does not lie after");
    EXPECT_REFUSED(CutPoints::of(request, {}), "Frame 50 is no time: none of the inputs has pictures");
    EXPECT_EQ(refusalOf([&] { RequestCheck::ranges(request); }), "") << "nobody knows yet how long a frame is";
}

TEST_F(Request, BeginsInsideTheInputsAndEndsWithThem) {
    const KTime length(4000);
    EXPECT_REFUSED(RequestCheck::streamRange(request, {KTime(4000), {}}, length),
                   "lies outside the inputs, which last 00:00:04.000");
    EXPECT_EQ(RequestCheck::streamRange(request, {{}, KTime(4001)}, length), (Types::Range{KTime(0), length}));
    EXPECT_EQ(RequestCheck::streamRange(request, {KTime(1000), KTime(9000)}, length),
              (Types::Range{KTime(1000), length}));
}

TEST_F(Request, WhatIsLeftOpenIsTheStartAndTheEnd) {
    const KTime length(4000);
    EXPECT_EQ(RequestCheck::streamRange(request, {}, length), Types::Range());
    EXPECT_EQ(RequestCheck::streamRange(request, {KTime(1000), {}}, length), (Types::Range{KTime(1000), length}));
    EXPECT_EQ(RequestCheck::streamRange(request, {{}, KTime(3000)}, length), (Types::Range{KTime(0), KTime(3000)}));
}

TEST_F(Request, TheExportRangeLiesInsideWhatIsExported) {
    request.in = KTime(1000);
    request.out = KTime(3000);
    request.exportRange = {KTime(500), KTime(2000)};
    EXPECT_EQ(refusalOf([&] { RequestCheck::streamRange(request, CutPoints::of(request, {}), KTime(4000)); }), "");
    request.exportRange.end = KTime(2001);
    EXPECT_REFUSED(RequestCheck::streamRange(request, CutPoints::of(request, {}), KTime(4000)),
                   "lies outside what is exported");
    request.exportRange = {KTime(500), KTime(400)};
    EXPECT_REFUSED(RequestCheck::ranges(request), "is empty");
}

TEST_F(Request, StandardOutputIsNoPlaceForAnExport) {
    request.outputPath = QStringLiteral("-");
    EXPECT_REFUSED(check(), "Cannot write \"-\": standard output is no place");
    request.outputPath = QStringLiteral("./-");
    EXPECT_NO_THROW(check()) << "a file may be called so";
}

class OutputName : public Request {
protected:
    std::string refusalFor(const char* preset, const std::string& name) {
        request.outputPath = QString::fromStdString(folder / name);
        return refusalOf([&] { RequestCheck::outputName(request, ExportCore::PresetCatalogue().preset(preset)); });
    }
};

TEST_F(OutputName, OfAnotherKindIsRefusedWithThePresetsThatFit) {
    EXPECT_EQ(refusalFor("mp4-h264-1080p", "film.webm"),
              "Cannot write \"" + folder / "film.webm" +
                  "\": the preset \"mp4-h264-1080p\" writes .mp4 or .m4v, not .webm; presets that do: "
                  "webm-vp9-1080p, webm-av1-1080p or webm-vp9-1080p-silent");
    EXPECT_NE(refusalFor("mp3", "x.wav").find("the preset \"mp3\" writes .mp3, not .wav; presets that do: wav"),
              std::string::npos);
    EXPECT_NE(refusalFor("mp3", "x.MP4").find("not .mp4; presets that do: "), std::string::npos);
    EXPECT_NE(refusalFor("mp4-h264-720p", "film.avi").find("not .avi; no preset writes that"), std::string::npos);
    EXPECT_NE(refusalFor("mp4-h264-720p", "film.m4a").find("not .m4a; presets that do: m4a-aac"), std::string::npos);
}

TEST_F(OutputName, OfItsOwnKindOrOfNoneIsAccepted) {
    for (const char* const name : {"film.mp4", "film.m4v", "FILM.MP4", "film", "film.", "film.v2", "2024.11.22", ".mp3",
                                   "of.webm/film", "film.webm.part"})
        EXPECT_EQ(refusalFor("mp4-h264-720p", name), "") << name;
    EXPECT_EQ(refusalFor("mkv-ffv1-flac", "film.mkv"), "");
    EXPECT_EQ(refusalFor("mov-prores-1080p", "film.qt"), "");
    EXPECT_EQ(refusalFor("m4a-aac", "x.m4a"), "");
    EXPECT_EQ(refusalFor("wav", "x.wave"), "");
}

} // namespace

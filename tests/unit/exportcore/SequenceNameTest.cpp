// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/SequenceName.h"
#include "AsSomebody.h"
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using ExportCore::ExportRequest;
using ExportCore::RequestCheck;
using ExportCore::SequenceName;
using ExportCore::SequenceTarget;
using TestSystem::AsSomebody;

namespace {

std::optional<SequenceName> named(const std::string& output, const char* preset = "png-sequence") {
    return SequenceName::of(QString::fromStdString(output), ExportCore::PresetCatalogue().preset(preset));
}

std::string refusalOf(const std::function<void()>& check) {
    try {
        check();
        return {};
    } catch (const ExportCore::Refusal& refusal) {
        return refusal.what();
    }
}

/// Folder and third picture.
std::pair<std::string, std::string> meant(const std::string& output, const char* preset = "png-sequence") {
    const auto sequence = named(output, preset);
    EXPECT_TRUE(sequence) << output;
    return sequence ? std::pair(sequence->folder.toStdString(), sequence->name.NameOf(2))
                    : std::pair<std::string, std::string>();
}

using Meant = std::pair<std::string, std::string>;

TEST(SequenceName, OfAFolderIsTheUsualOne) {
    for (const char* folder : {"frames", "frames/", "frames//"})
        EXPECT_EQ(meant(folder), Meant("frames", "frame_00002.png")) << folder;
    EXPECT_EQ(meant("a/b.v2"), Meant("a/b.v2", "frame_00002.png"));
    EXPECT_EQ(meant("clip.mov/"), Meant("clip.mov", "frame_00002.png")) << "a folder may be called so";
    EXPECT_EQ(meant("."), Meant(".", "frame_00002.png"));
    EXPECT_EQ(meant("/"), Meant("/", "frame_00002.png"));
    EXPECT_EQ(meant("out", "jpeg-sequence"), Meant("out", "frame_00002.jpg"));
}

TEST(SequenceName, OfAPatternIsThatOne) {
    EXPECT_EQ(meant("frames/shot_%04d.png"), Meant("frames", "shot_0002.png"));
    EXPECT_EQ(meant("shot_%d.png"), Meant(".", "shot_2.png"));
    EXPECT_EQ(meant("/%03d.png"), Meant("/", "002.png"));
    EXPECT_EQ(meant("take_%02d/%03d.JPEG", "jpeg-sequence"), Meant("take_%02d", "002.JPEG"))
        << "a folder's name is no pattern";
    EXPECT_EQ(meant("100%/50%_%03d"), Meant("100%", "50%_002"));
    EXPECT_EQ(named("/%03d.png")->pathOf(2), "/002.png");
    EXPECT_EQ(named("a/%03d.png")->pathOf(2), "a/002.png");
}

TEST(SequenceName, IsNoneOfOtherPresets) {
    EXPECT_FALSE(named("frames/shot_%04d.png", "mp4-h264-720p"));
    EXPECT_FALSE(named("film.gif", "gif-gif-240p"));
}

TEST(SequenceName, KnowsTheUsualNamesInAFolder) {
    for (const char* const usual :
         {"frame_00000.png", "frame_7.png", "frame_1234567.jpg", "frame_%05d.png", "frame_%d.png"})
        EXPECT_TRUE(SequenceName::isUsualName(usual)) << usual;
    for (const char* const other :
         {"frame_.png", "frame_1", "frame_1.", "frame_1.PNG", "frame_1.p2g", "frame_x.png", "xframe_1.png",
          "frame_1x.png", "frame_%s.png", "frame_%da.png", "frame_1%d.png", ""})
        EXPECT_FALSE(SequenceName::isUsualName(other)) << other;
}

TEST(SequenceName, OfOneFileIsRefusedWithTheWaysOut) {
    EXPECT_EQ(refusalOf([] { named("a/out.png"); }),
              "Cannot write \"a/out.png\": the preset \"png-sequence\" makes a file of each picture; name a folder "
              "(\"a/out/\") or numbered files (\"a/out_%05d.png\")");
    EXPECT_NE(refusalOf([] { named("film.mp4"); }).find("(\"film_%05d.png\")"), std::string::npos);
    EXPECT_NE(refusalOf([] { named("%02d_%03d.png"); }).find("more than one place"), std::string::npos);
    EXPECT_NE(refusalOf([] { named("%099d.png"); }).find("%05d"), std::string::npos);
}

TEST(SequenceName, GetsDigitsForAllPicturesWhereNobodyChose) {
    auto usual = named("frames/"), chosen = named("frames/%03d.png");
    for (const auto& [pictures, digits] : {std::pair(1, 5), {100'000, 5}, {100'001, 6}, {12'345'678, 8}}) {
        usual->widenFor(pictures);
        EXPECT_EQ(usual->name.digits, digits) << pictures;
        chosen->widenFor(pictures);
        EXPECT_EQ(chosen->name.digits, 3) << pictures;
    }
}

class Place : public ::testing::Test {
protected:
    Place() {
        TestFiles::write(source, "media");
        request.inputs << QString::fromStdString(source);
    }
    SequenceTarget check(const std::string& output) {
        request.outputPath = QString::fromStdString(output);
        return RequestCheck::sequence(request, *named(output));
    }
    std::string refusal(const std::string& output) {
        return refusalOf([&] { check(output); });
    }

    TestMedia::Folder folder;
    const std::string source = folder / "source.mov";
    const std::string frames = folder / "frames";
    ExportRequest request;
};

TEST_F(Place, ANewFolderIsAcceptedWhereItCanBeMade) {
    const SequenceTarget target = check(frames + "/");
    EXPECT_FALSE(target.existed);
    EXPECT_EQ(target.path.toStdString(), frames);
    EXPECT_EQ(target.place().toStdString(), folder / "");
    EXPECT_EQ(access(frames.c_str(), F_OK), -1) << "checking makes nothing";
    EXPECT_NE(refusal(folder / "nowhere/frames/").find("No such file or directory"), std::string::npos);
    EXPECT_NE(refusal(source + "/").find("is not a folder"), std::string::npos);
}

TEST_F(Place, AFolderThatIsThereIsAcceptedWithWhateverElseItHolds) {
    ASSERT_EQ(mkdir(frames.c_str(), 0755), 0);
    TestFiles::write(frames + "/notes.txt", "mine");
    TestFiles::write(frames + "/frame_0001.png", "of another pattern");
    const SequenceTarget target = check(frames);
    EXPECT_TRUE(target.existed);
    EXPECT_EQ(target.place(), target.path);
    ASSERT_EQ(symlink(frames.c_str(), (folder / "link").c_str()), 0);
    EXPECT_EQ(check(folder / "link").path.toStdString(), frames);
}

TEST_F(Place, AFolderThatMayNotBeListedIsRefusedBeforeAnythingIsMade) {
    ASSERT_EQ(mkdir(frames.c_str(), 0755), 0);
    ASSERT_EQ(chmod(frames.c_str(), getuid() == 0 ? 0733 : 0333), 0);
    ASSERT_EQ(chmod((folder / "").c_str(), 0777), 0);
    request.outputPath = QString::fromStdString(frames);
    const auto pictures = named(frames);
    {
        const AsSomebody somebody;
        EXPECT_EQ(refusalOf([&] { RequestCheck::sequence(request, *pictures); }),
                  "Cannot write \"" + frames + "\": the folder \"" + frames +
                      "\" may not be listed: Permission denied");
    }
    ASSERT_EQ(chmod(frames.c_str(), 0777), 0);
    const AsSomebody somebody;
    EXPECT_EQ(refusalOf([&] { RequestCheck::sequence(request, *pictures); }), "");
}

TEST_F(Place, PicturesOfTheSameNamesNeedTheWordThatTheyMayGo) {
    ASSERT_EQ(mkdir(frames.c_str(), 0755), 0);
    TestFiles::write(frames + "/frame_00007.png", "old");
    EXPECT_NE(refusal(frames).find("\"frame_00007.png\" to begin with (--overwrite replaces them)"), std::string::npos);
    EXPECT_EQ(refusal(frames + "/other_%05d.png"), "");
    request.overwrite = true;
    EXPECT_TRUE(check(frames).replace);
}

TEST_F(Place, WhatIsNoFileOrAnInputIsNotReplaced) {
    request.overwrite = true;
    ASSERT_EQ(mkdir(frames.c_str(), 0755), 0);
    ASSERT_EQ(mkdir((frames + "/frame_00001.png").c_str(), 0755), 0);
    EXPECT_NE(refusal(frames).find("\"frame_00001.png\" there is no file"), std::string::npos);
    ASSERT_EQ(symlink(source.c_str(), (frames + "/shot_1.png").c_str()), 0);
    EXPECT_NE(refusal(frames + "/shot_%d.png").find("\"shot_1.png\" there is one of the inputs"), std::string::npos);
    EXPECT_TRUE(RequestCheck::replacesInput(request, named(frames + "/shot_%d.png")));
    EXPECT_FALSE(RequestCheck::replacesInput(request, named(frames + "/take_%d.png")));
}

TEST_F(Place, ThePresetsExtensionIsAskedForInNames) {
    const auto refusalFor = [this](const std::string& output) {
        request.outputPath = QString::fromStdString(folder / output);
        return refusalOf(
            [this] { RequestCheck::outputName(request, ExportCore::PresetCatalogue().preset("png-sequence")); });
    };
    EXPECT_NE(refusalFor("a_%05d.jpg").find("writes .png, not .jpg; presets that do: jpeg-sequence"),
              std::string::npos);
    for (const char* name : {"a_%05d.png", "a_%05d.PNG", "a_%05d", "a.mov/", "frames", "a_%05d.v2"})
        EXPECT_EQ(refusalFor(name), "") << name;
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/FileCheckTask.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/FileCheck.h"
#include "Kestra/Proc/Interrupted.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>
#include <stdexcept>

using ExportCore::ExpectedFile;
using ExportCore::FileCheckTask;

namespace {

class FileCheck : public ::testing::Test {
protected:
    FileCheck() { make({}); }

    void make(const std::vector<std::string>& more) {
        TestMedia::FlashBeep media;
        media.audioCodec = "aac";
        media.more = {"-colorspace", "bt709", "-color_primaries", "bt709", "-color_trc", "bt709"};
        media.more.insert(media.more.end(), more.begin(), more.end());
        TestMedia::makeFlashBeep(path, media);
        expected.hasVideo = expected.hasAudio = true;
        expected.frames = 100;
        expected.videoDuration = expected.audioDuration = 4 * Kestra::TIME_BASE;
    }

    /// Null when the file was found right.
    std::exception_ptr check(const std::function<void()>& last = [] {}) {
        FileCheckTask task(Kestra::ioPath(path), expected, [last](const Kestra::Proc::CheckedFile&) { last(); });
        bool ended = false;
        std::exception_ptr result;
        QObject::connect(&task, &FileCheckTask::finished, [&](const std::exception_ptr& error) {
            ended = true;
            result = error;
        });
        task.start();
        EXPECT_TRUE(TestSupport::waitUntil([&] { return ended; }));
        return result;
    }

    TestMedia::Folder folder;
    const std::string path = folder / "film.mp4";
    ExpectedFile expected;
};

TEST_F(FileCheck, AWholeFilePassesAndTheLastStepIsCalled) {
    bool called = false;
    EXPECT_FALSE(check([&called] { called = true; }));
    EXPECT_TRUE(called);
}

TEST_F(FileCheck, AnInterruptedCheckFindsNoFaultAndGoesNoFurther) {
    const std::atomic<bool> interrupted{true};
    EXPECT_THROW(Kestra::Proc::CheckFile(Kestra::ioPath(path), interrupted), Kestra::Proc::Interrupted);
    bool called = false;
    FileCheckTask task(Kestra::ioPath(path), expected, [&called](const Kestra::Proc::CheckedFile&) { called = true; });
    bool ended = false;
    QObject::connect(&task, &FileCheckTask::finished, [&ended](const std::exception_ptr& error) {
        ended = true;
        EXPECT_FALSE(error);
    });
    task.interrupt();
    task.start();
    EXPECT_TRUE(TestSupport::waitUntil([&] { return ended; }));
    EXPECT_FALSE(called);
}

TEST_F(FileCheck, ATruncatedFileIsFound) {
    const QByteArray whole = TestFiles::read(path);
    TestFiles::write(path, whole.left(whole.size() * 3 / 4));
    EXPECT_TRUE(check());
}

TEST_F(FileCheck, AFileCutOffBehindItsIndexIsFound) {
    make({"-movflags", "+faststart"});
    EXPECT_FALSE(check());
    const QByteArray whole = TestFiles::read(path);
    TestFiles::write(path, whole.left(whole.size() - 100));
    EXPECT_TRUE(check());
}

TEST_F(FileCheck, PicturesMayBeLargerThanThoseOfAStrangersFile) {
    constexpr int BEFORE_SIZE = 4 + 24; // of a sample description: its name, then what stands before width and height
    QByteArray whole = TestFiles::read(path);
    const int entry = whole.indexOf("avc1", whole.indexOf("stsd"));
    ASSERT_GT(entry, 0);
    whole.replace(entry + BEFORE_SIZE, 4, QByteArray::fromHex("75307530")); // 30000x30000
    TestFiles::write(path, whole);
    EXPECT_FALSE(check());
}

// Matroska does not say how long its packets last, and what they hold of AAC says so to its decoder alone.
TEST_F(FileCheck, KnowsHowLongPacketsLastWhereTheContainerDoesNotSay) {
    constexpr int PACKETS = 100, SAMPLES = 1024;
    const std::string sound = folder / "sound.mka";
    TestMedia::runFfmpeg({"-y", "-f", "lavfi", "-i", "sine=sample_rate=48000", "-c:a", "aac", "-frames:a",
                          std::to_string(PACKETS), sound});
    const std::atomic<bool> interrupted{false};
    const auto file = Kestra::Proc::CheckFile(Kestra::ioPath(sound), interrupted);
    ASSERT_EQ(file.streams.size(), 1U);
    ASSERT_EQ(file.streams[0].packets, PACKETS);
    const auto length = static_cast<double>(file.streams[0].end - file.streams[0].start);
    EXPECT_NEAR(length / Kestra::TIME_BASE, PACKETS * SAMPLES / 48000.0, 0.003);
}

// Nor do packets of ALAC; but no sound lasts longer than its file, and the last packet no longer than the others.
TEST_F(FileCheck, KnowsHowLongSoundLastsWhereNoPacketSaysSo) {
    const struct {
        const char* seconds;
        std::vector<std::string> besides;
        double tolerance;
    } cases[] = {{"0.01", {}, 0.002},
                 {"1", {}, 0.002},
                 {"1", {"-f", "lavfi", "-i", "testsrc2=s=64x64:d=2", "-c:v", "ffv1"}, 4096 / 48000.0}};
    for (const auto& each : cases) {
        const std::string sound = folder / "sound.mkv";
        std::vector<std::string> arguments{"-y", "-f", "lavfi", "-i",
                                           std::string("sine=sample_rate=48000:d=") + each.seconds};
        arguments.insert(arguments.end(), each.besides.begin(), each.besides.end());
        arguments.insert(arguments.end(), {"-c:a", "alac", sound});
        TestMedia::runFfmpeg(arguments);
        const std::atomic<bool> interrupted{false};
        const auto file = Kestra::Proc::CheckFile(Kestra::ioPath(sound), interrupted);
        ASSERT_FALSE(file.streams.empty());
        EXPECT_NEAR(static_cast<double>(file.streams.back().end) / Kestra::TIME_BASE, std::stod(each.seconds),
                    each.tolerance);
    }
}

TEST_F(FileCheck, AFileWithoutItsIndexIsFound) {
    QByteArray whole = TestFiles::read(path);
    whole.replace("moov", "none");
    TestFiles::write(path, whole);
    EXPECT_TRUE(check());
}

TEST_F(FileCheck, AnotherFrameCountIsFoundAndTheLastStepIsNotCalled) {
    expected.frames = 101;
    bool called = false;
    EXPECT_TRUE(check([&called] { called = true; }));
    EXPECT_FALSE(called);
}

TEST_F(FileCheck, WhatTheLastStepThrowsIsTheResult) {
    const std::exception_ptr error = check([] { throw std::runtime_error("no sync"); });
    ASSERT_TRUE(error);
    EXPECT_THROW(std::rethrow_exception(error), std::runtime_error);
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of interlaced pictures in exports, measured in the files.
#include "Exported.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "support/FlashBeep.h"
#include "unit/source/WovenMedia.h"
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using TestMedia::ShownFields;

namespace {

constexpr int FRAMES = 12;

class FieldsExport : public ::testing::Test {
protected:
    using Media = boost::intrusive_ptr<Kestra::Proc::IMediaSource>;

    static Media open(const std::string& path) {
        return Kestra::Core::CoreManager::Instance().GetSourceFactory().OpenMedia(Kestra::ioPath(path));
    }
    std::string makeWoven(const std::string& name, bool topFieldFirst, int width = 352, int height = 288) const {
        const std::string path = folder / name;
        TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                              TestMedia::barPictures("50", 2 * FRAMES, width, height) + TestMedia::weave(topFieldFirst),
                              "-vf", topFieldFirst ? "setfield=tff" : "setfield=bff", "-c:v", "ffv1", "-level", "3",
                              path});
        return path;
    }
    static ExportOutcome expectDone(const ExportRequest& request) {
        ExportOutcome outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        return outcome;
    }
    static bool notesDeinterlacing(const ExportOutcome& outcome) {
        for (const auto& note : outcome.notes)
            if (note.contains(QLatin1String("deinterlaced")))
                return true;
        return false;
    }

    TestMedia::Folder folder;
};

TEST_F(FieldsExport, ArchivesKeepSamplesFlagsAndOrder) {
    for (const bool topFieldFirst : {true, false}) {
        const std::string input = makeWoven("in.mkv", topFieldFirst);
        const std::string output = folder / (topFieldFirst ? "top.mkv" : "bottom.mkv");
        const ExportOutcome outcome = expectDone(TestExport::requestOf(input, "mkv-ffv1-flac", output));
        EXPECT_FALSE(notesDeinterlacing(outcome));
        const Media file = open(output);
        EXPECT_TRUE(file->GetInfo().video->interlaced);
        EXPECT_EQ(file->GetInfo().video->topFieldFirst, topFieldFirst);
        const auto made = file->CreateVideoStream();
        const auto original = open(input)->CreateVideoStream();
        for (int index = 0; index < FRAMES; ++index) {
            const auto picture = made->ReadVideo();
            ASSERT_TRUE(picture) << index;
            EXPECT_TRUE(TestMedia::samplesOf(*picture) == TestMedia::samplesOf(*original->ReadVideo())) << index;
            EXPECT_TRUE(TestMedia::fieldsIn(*picture).flagged) << index;
            EXPECT_EQ(TestMedia::fieldsIn(*picture).topFieldFirst, topFieldFirst) << index;
        }
        EXPECT_FALSE(made->ReadVideo());
    }
}

/// A progressive raw MPEG-2 stream, made to say that its pictures are shown for three and for two fields in turn.
void pullDown(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(in), {});
    const std::string extension("\0\0\1\xb5", 4);
    int pictures = 0;
    for (auto at = bytes.find(extension); at != std::string::npos; at = bytes.find(extension, at + 4)) {
        const int kind = static_cast<unsigned char>(bytes[at + 4]) >> 4;
        if (kind == 1) // of the sequence: not all of it is progressive
            bytes[at + 5] = static_cast<char>(bytes[at + 5] & ~0x08);
        if (kind != 8) // of a picture: which field is first, and whether it is shown again
            continue;
        constexpr int TOP = 0x80, AGAIN = 0x02;
        constexpr int CADENCE[] = {TOP | AGAIN, 0, AGAIN, TOP};
        bytes[at + 7] = static_cast<char>((bytes[at + 7] & ~(TOP | AGAIN)) | CADENCE[pictures++ % 4]);
    }
    std::ofstream(path, std::ios::binary) << bytes;
}

TEST_F(FieldsExport, FilmInSoftTelecineComesOutAsFilmAndUntouched) {
    constexpr int SHOWN = 24;
    const std::string raw = folder / "film.m2v";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", TestMedia::barPictures("30000/1001", SHOWN, 352, 288), "-c:v",
                          "mpeg2video", "-bf", "0", "-g", "12", "-b:v", "3M", raw});
    pullDown(raw);
    const std::string input = folder / "film.ts";
    TestMedia::runFfmpeg({"-i", raw, "-c", "copy", "-bsf:v", "setts=ts='(floor(N/2)*5+mod(N,2)*3)*1001/60000/TB'",
                          "-time_base", "1/90000", input});
    const ExportOutcome outcome = expectDone(TestExport::requestOf(input, "mkv-ffv1-flac", folder / "out.mkv"));
    EXPECT_FALSE(notesDeinterlacing(outcome));
    const Media file = open(folder / "out.mkv");
    EXPECT_EQ(file->GetInfo().video->frameRate, boost::rational<long long>(24000, 1001));
    const auto made = file->CreateVideoStream();
    const auto original = open(raw)->CreateVideoStream();
    for (int index = 0; index < SHOWN; ++index) {
        const auto picture = made->ReadVideo();
        ASSERT_TRUE(picture) << index;
        EXPECT_TRUE(TestMedia::samplesOf(*picture) == TestMedia::samplesOf(*original->ReadVideo())) << index;
        EXPECT_FALSE(TestMedia::fieldsIn(*picture).flagged) << index;
    }
    EXPECT_FALSE(made->ReadVideo());
}

TEST_F(FieldsExport, FieldsThatAreCodedAsPicturesAreNamed) {
    const std::string input = folder / "fields.mkv";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i",
                          TestMedia::barPictures("50", 2 * FRAMES, 352, 288) + TestMedia::weave(true), "-vf",
                          "setfield=tff,separatefields,setfield=prog", "-c:v", "libx265", "-preset", "ultrafast",
                          "-x265-params", "interlace=tff:log-level=none", input});
    const ExportOutcome outcome = expectDone(TestExport::requestOf(input, "mkv-ffv1-flac", folder / "out.mkv"));
    EXPECT_EQ(outcome.notes.filter(QLatin1String("coded field by field")).size(), 1);
    const auto made = open(folder / "out.mkv")->CreateVideoStream();
    for (int index = 0; index < 2 * FRAMES; ++index) {
        const auto picture = made->ReadVideo();
        ASSERT_TRUE(picture) << index;
        EXPECT_EQ(TestMedia::fieldsIn(*picture).top, index);
        EXPECT_EQ(TestMedia::fieldsIn(*picture).bottom, index);
        EXPECT_FALSE(TestMedia::fieldsIn(*picture).flagged);
    }
    EXPECT_FALSE(made->ReadVideo());
}

TEST_F(FieldsExport, ProgressivePresetsShowNoCombsAndSaySo) {
    const std::string input = makeWoven("in.mkv", true);
    for (const char* preset : {"mp4-h264-source", "mp4-mpeg4-720p", "mov-prores-1080p"}) {
        const std::string output = folder / (std::string(preset) + (std::string(preset)[1] == 'o' ? ".mov" : ".mp4"));
        const ExportOutcome outcome = expectDone(TestExport::requestOf(input, preset, output));
        EXPECT_TRUE(notesDeinterlacing(outcome)) << preset;
        const Media file = open(output);
        EXPECT_FALSE(file->GetInfo().video->interlaced) << preset;
        const auto made = file->CreateVideoStream();
        for (int index = 0; index < FRAMES; ++index) {
            const auto picture = made->ReadVideo();
            ASSERT_TRUE(picture) << preset << index;
            const ShownFields shown = TestMedia::fieldsIn(*picture);
            EXPECT_EQ(shown.top, 2 * index) << preset;
            EXPECT_EQ(shown.bottom, 2 * index) << preset;
            EXPECT_FALSE(shown.flagged) << preset;
        }
        EXPECT_FALSE(made->ReadVideo()) << preset;
    }
}

TEST_F(FieldsExport, OtherOrdersAndSizesBesideKeptFieldsAreDeinterlaced) {
    ExportRequest request = TestExport::requestOf(makeWoven("a.mkv", true), "mkv-ffv1-flac", folder / "out.mkv");
    request.inputs << QString::fromStdString(makeWoven("b.mkv", false))
                   << QString::fromStdString(makeWoven("c.mkv", true, 288, 144));
    const ExportOutcome outcome = expectDone(request);
    EXPECT_TRUE(notesDeinterlacing(outcome));
    const auto made = open(folder / "out.mkv")->CreateVideoStream();
    for (int index = 0; index < 3 * FRAMES; ++index) {
        const auto picture = made->ReadVideo();
        ASSERT_TRUE(picture) << index;
        const ShownFields shown = TestMedia::fieldsIn(*picture);
        const bool kept = index < FRAMES;
        EXPECT_EQ(shown.flagged, kept) << index;
        if (index >= FRAMES && index < 2 * FRAMES) {
            EXPECT_EQ(shown.top, 2 * (index - FRAMES));
            EXPECT_EQ(shown.bottom, 2 * (index - FRAMES));
        }
    }
}

} // namespace

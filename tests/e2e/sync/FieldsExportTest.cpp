// What becomes of interlaced pictures in exports, measured in the files.
#include "Exported.h"
#include "Kestra/Core/CoreManager.h"
#include "support/FlashBeep.h"
#include "unit/source/WovenMedia.h"
#include <gtest/gtest.h>

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

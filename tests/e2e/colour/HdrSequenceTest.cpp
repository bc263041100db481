// SPDX-License-Identifier: GPL-3.0-or-later
// What exports tell of light, and what they say of metadata that they cannot carry over.
#include "Kestra/FF/Picture/HdrMetadata.h"
#include "e2e/sync/Exported.h"
#include "fakes/streams/DecodedFile.h"
#include "support/FlashBeep.h"
#include <algorithm>
#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

using ExportCore::ExportOutcome;
using ExportCore::ExportRequest;
using Kestra::FF::HdrMetadata;
using Kestra::FF::HdrMetadataOf;

namespace {

using Bytes = std::string;

Bytes read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const Bytes& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// An MP4 with that Dolby Vision record in its sample entry. The sizes of the boxes around it grow; samples stand in
/// front of them.
Bytes withRecord(Bytes mp4, int profile, int compatibility) {
    Bytes box("\0\0\0\x20"
              "dvcC\1\0",
              10);
    box += static_cast<char>(profile << 1);
    box += static_cast<char>(1 << 3 | 1 << 2 | 1);
    box += static_cast<char>(compatibility << 4);
    box.resize(32);
    const std::size_t place = mp4.find("hvcC") - 4;
    for (const char* const outer : {"moov", "trak", "mdia", "minf", "stbl", "stsd", "hev1"}) {
        const std::size_t at = mp4.rfind(outer, place) - 4;
        const auto byte = [&mp4, at](std::size_t index) { return static_cast<unsigned char>(mp4[at + index]); };
        const unsigned size = (byte(0) << 24U | byte(1) << 16U | byte(2) << 8U | byte(3)) + 32U;
        for (std::size_t index = 0; index < 4; ++index)
            mp4[at + index] = static_cast<char>(size >> (24 - 8 * index) & 255U);
    }
    return mp4.insert(place, box);
}

/// A message of HDR10+ for a single window without curves, in front of the first picture of a raw stream.
Bytes withHdr10Plus(Bytes stream) {
    std::string bits = "10110101"
                       "0000000000111100"
                       "0000000000000001"
                       "00000100"
                       "00000001"
                       "01";
    const auto put = [&bits](unsigned value, int count) {
        for (int bit = count - 1; bit >= 0; --bit)
            bits += (value >> bit & 1U) != 0 ? '1' : '0';
    };
    put(0x2555555, 27);
    put(0, 1);
    for (int component = 0; component < 4; ++component)
        put(0x5555, 17);
    put(0, 4);
    put(0x155, 10);
    put(0, 3);
    while (bits.size() % 8 != 0)
        bits += '0';
    Bytes message("\0\0\0\1\x4e\1\4", 7);
    message += static_cast<char>(bits.size() / 8);
    for (std::size_t at = 0; at < bits.size(); at += 8)
        message += static_cast<char>(std::stoi(bits.substr(at, 8), nullptr, 2));
    message += '\x80';
    std::size_t slice = stream.find(Bytes("\0\0\1", 3));
    // The types from 32 on are no pictures.
    while ((static_cast<unsigned char>(stream[slice + 3]) >> 1U & 63U) >= 32)
        slice = stream.find(Bytes("\0\0\1", 3), slice + 3);
    return stream.insert(slice, message);
}

class HdrSequence : public ::testing::Test {
protected:
    std::string make(const std::string& name, const std::string& graded = "",
                     const char* transfer = "smpte2084") const {
        std::string path = folder / name;
        TestMedia::runFfmpeg(
            {"-f", "lavfi", "-i", "color=gray:rate=25:size=128x128", "-frames:v", "3", "-pix_fmt", "yuv420p10le",
             "-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
             std::string("log-level=none:bframes=0:colorprim=bt2020:colormatrix=bt2020nc:range=limited:transfer=") +
                 transfer + graded,
             "-tag:v", "hev1", path});
        return path;
    }
    static std::string graded(int white, int cll, int fall) {
        return ":hdr10=1:master-display=G(8500,39850)B(6550,2300)R(35400,14600)WP(15635,16450)L(" +
               std::to_string(10000 * white) + ",50):max-cll=" + std::to_string(cll) + "," + std::to_string(fall);
    }
    /// What the first picture tells.
    HdrMetadata exported(const std::vector<std::string>& inputs, const char* preset = "mp4-hevc-1080p-hdr") {
        ExportRequest request = TestExport::requestOf({}, preset, folder / "out.mp4");
        request.inputs.clear();
        for (const std::string& input : inputs)
            request.inputs << QString::fromStdString(input);
        request.overwrite = true;
        outcome = TestExport::run(request);
        EXPECT_EQ(outcome.status, ExportOutcome::Status::Done) << outcome.error.GetDescription();
        if (outcome.status != ExportOutcome::Status::Done)
            return {};
        return HdrMetadataOf(*Fakes::Decode(folder / "out.mp4").Video().pictures.front());
    }
    /// Streams of one kind, one after the other.
    std::string joined(const std::vector<std::string>& streams, const char* name) const {
        Bytes all;
        for (const std::string& stream : streams)
            all += read(stream);
        write(folder / "joined.hevc", all);
        TestMedia::runFfmpeg(
            {"-i", folder / "joined.hevc", "-c", "copy", "-bsf:v", "setts=ts='N/25/TB'", folder / name});
        return folder / name;
    }
    int notesOf(const char* words) const { return outcome.notes.filter(QString::fromUtf8(words)).size(); }

    const TestMedia::Folder folder;
    ExportOutcome outcome;
};

constexpr const char* OTHERS = "which are those of all clips together";

void expectTold(const HdrMetadata& told, double white, unsigned cll, unsigned fall) {
    ASSERT_TRUE(told.mastering && told.light);
    EXPECT_NEAR(av_q2d(told.mastering->max_luminance), white, 1e-3);
    EXPECT_NEAR(av_q2d(told.mastering->min_luminance), 0.005, 1e-5);
    EXPECT_NEAR(av_q2d(told.mastering->display_primaries[0][0]), 0.708, 1e-4);
    EXPECT_NEAR(av_q2d(told.mastering->white_point[1]), 0.329, 1e-4);
    EXPECT_EQ(told.light->MaxCLL, cll);
    EXPECT_EQ(told.light->MaxFALL, fall);
}

TEST_F(HdrSequence, TellsWhatItsOnlyClipOfAHighRangeTellsWhereverThatStands) {
    const std::string standard = folder / "standard.mkv";
    TestMedia::runFfmpeg(
        {"-f", "lavfi", "-i", "color=gray:rate=25:size=128x128", "-frames:v", "3", "-c:v", "ffv1", standard});
    const std::string high = make("high.mp4", graded(1000, 900, 200));
    expectTold(exported({high}), 1000, 900, 200);
    expectTold(exported({standard, high}), 1000, 900, 200);
    EXPECT_EQ(notesOf(OTHERS), 0);
}

TEST_F(HdrSequence, TellsTheMostLightOfClipsThatDifferAndNamesThem) {
    const std::string dim = make("dim.mp4", graded(1000, 500, 150));
    const std::string bright = make("bright.mp4", graded(4000, 1500, 90));
    expectTold(exported({dim, bright}), 4000, 1500, 150);
    EXPECT_EQ(notesOf(OTHERS), 2);
    exported({dim, dim});
    EXPECT_EQ(notesOf(OTHERS), 0);
}

TEST_F(HdrSequence, TellsNoLevelsThatOneClipDoesNotTell) {
    const HdrMetadata told = exported({make("told.mp4", graded(1000, 900, 200)), make("untold.mp4")});
    ASSERT_TRUE(told.mastering);
    EXPECT_NEAR(av_q2d(told.mastering->max_luminance), 1000, 1e-3);
    EXPECT_EQ(told.light ? told.light->MaxCLL : 0, 0U);
    EXPECT_EQ(notesOf(OTHERS), 2);
}

TEST_F(HdrSequence, SaysThatMetadataOfEachPictureIsLeftOut) {
    write(folder / "plus.hevc", withHdr10Plus(read(make("plain.hevc"))));
    TestMedia::runFfmpeg(
        {"-i", folder / "plus.hevc", "-c", "copy", "-bsf:v", "setts=ts='N/25/TB'", folder / "plus.mp4"});
    exported({folder / "plus.mp4"});
    EXPECT_EQ(notesOf("HDR10+ left out"), 1);
    // Behind pictures that have none.
    const std::string behind = joined({folder / "plain.hevc", folder / "plus.hevc"}, "behind.mp4");
    exported({behind});
    EXPECT_EQ(notesOf("HDR10+ left out"), 1);
    exported({behind}, "mp4-h264-source");
    EXPECT_EQ(notesOf("HDR10+ left out"), 1);
    write(folder / "vision.mp4", withRecord(read(make("plain.mp4")), 8, 1));
    for (const char* const preset : {"mp4-hevc-1080p-hdr", "mp4-h264-source"}) {
        exported({folder / "vision.mp4"}, preset);
        EXPECT_EQ(notesOf("Dolby Vision left out"), 1) << preset;
    }
    exported({folder / "plain.mp4"});
    EXPECT_EQ(notesOf("left out"), 0);
}

TEST_F(HdrSequence, RefusesByNameWhatOnlyItsMetadataMakesColoursOf) {
    const Bytes plain = read(make("plain.mp4"));
    const std::vector<std::pair<int, int>> foreign{{5, 0}, {8, 0}, {10, 0}};
    for (const auto& [profile, compatibility] : foreign) {
        write(folder / "foreign.mp4", withRecord(plain, profile, compatibility));
        outcome = TestExport::run(TestExport::requestOf(folder / "foreign.mp4", "mp4-h264-source", folder / "no.mp4"));
        EXPECT_NE(outcome.status, ExportOutcome::Status::Done) << profile;
        const std::string reason = outcome.error.GetDescription();
        EXPECT_NE(reason.find("foreign.mp4"), std::string::npos) << reason;
        EXPECT_NE(reason.find("IPTPQc2 of Dolby Vision profile " + std::to_string(profile)), std::string::npos)
            << reason;
        EXPECT_FALSE(std::ifstream(std::string(folder / "no.mp4")).good());
    }
}

} // namespace

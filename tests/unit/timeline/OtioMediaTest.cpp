// SPDX-License-Identifier: GPL-3.0-or-later
// What clips refer to.
#include "OtioFixture.h"

namespace Timeline::Tests {
namespace {

class OtioMediaTest : public OtioFixture {
protected:
    Reading readReference(const std::string& reference) const {
        return read(timelineOf({trackOf({clipOf("c", rangeOf(0, 5), reference)})}));
    }
    static const MediaTarget& target(const Reading& reading) { return clipAt(firstTrack(reading), 0).media.target; }
    static std::string sequence(const std::string& more) {
        return R"({"OTIO_SCHEMA":"ImageSequenceReference.1","target_url_base":"seq","name_prefix":"p.","name_suffix":".png")" +
               more + '}';
    }
    static std::string generator(const std::string& kind, const std::string& parameters = "{}") {
        return R"({"OTIO_SCHEMA":"GeneratorReference.1","generator_kind":")" + kind + R"(","parameters":)" +
               parameters + '}';
    }
};

TEST_F(OtioMediaTest, AreFilesWithAnAbsolutePath) {
    const Reading reading = readReference(fileReference("a.mov", R"(,"name":"A")"));
    EXPECT_EQ(std::get<MediaFile>(target(reading)).path.ToUtf8(), (folder / "a.mov").string());
    EXPECT_EQ(clipAt(firstTrack(reading), 0).media.name, "A");
}

TEST_F(OtioMediaTest, ThatAreMissingAreToldWithTheirPlace) {
    const Reading reading = readReference(fileReference("gone.mov"));
    EXPECT_EQ(inWords(reading), "stack \"S\", track \"Video1\", clip \"c\": the media \"gone.mov\" is not there "
                                "(/tracks/children/0/children/0/media_reference/target_url)\n");
    EXPECT_EQ(reading.findings[0].kind, Finding::Kind::MissingMedia);
    EXPECT_EQ(std::get<MissingMedia>(target(reading)).url, "gone.mov");
    EXPECT_EQ(firstTrack(reading).duration(), frames(5)) << "its place in the track stays";
}

TEST_F(OtioMediaTest, MayBeMissingByDesign) {
    for (const std::string& reference : {std::string(R"({"OTIO_SCHEMA":"MissingReference.1"})"), std::string("null"),
                                         fileReference(""), std::string(R"({"OTIO_SCHEMA":"Cloud.1"})")}) {
        const Reading reading = readReference(reference);
        ASSERT_EQ(reading.findings.size(), 1U) << reference;
        EXPECT_EQ(reading.findings[0].kind, Finding::Kind::MissingMedia) << reference;
    }
}

TEST_F(OtioMediaTest, OfAKeyThatIsNotThereAreMissing) {
    const Reading reading = read(timelineOf({trackOf(
        {objectOf("Clip.2", "c",
                  R"(,"media_references":{},"active_media_reference_key":"x","source_range":)" + rangeOf(0, 5))})}));
    EXPECT_NE(inWords(reading).find("its media \"x\" is not among its references"), std::string::npos);
}

TEST_F(OtioMediaTest, ThatAreNoPlainFilesAreErrors) {
    const Reading reading = readReference(fileReference("https://example.org/a.mov"));
    EXPECT_EQ(reading.findings.at(0).kind, Finding::Kind::Error);
}

TEST_F(OtioMediaTest, AreSequencesOfPictures) {
    put("seq/p.0010.png");
    const Reading reading = readReference(sequence(
        R"(,"start_frame":10,"frame_step":2,"frame_zero_padding":4,"rate":23.976,"missing_frame_policy":"hold")"));
    EXPECT_EQ(inWords(reading), "");
    const auto& found = std::get<ImageSequence>(target(reading));
    EXPECT_EQ(found.folder.ToUtf8(), (folder / "seq").string());
    EXPECT_EQ(found.nameOf(1), "p.0012.png");
    EXPECT_EQ(found.rate, boost::rational<long long>(12000, 1001)); // each stands for two frames
    EXPECT_EQ(found.missing, ImageSequence::MissingFrames::Held);
}

TEST_F(OtioMediaTest, SequencesWithoutAProperNumberingAreRefused) {
    put("seq/p.1.png");
    for (const char* const more :
         {R"(,"rate":0)", R"(,"rate":25,"frame_step":0)", R"(,"rate":25,"frame_zero_padding":99)",
          R"(,"rate":25,"start_frame":"one")", "", R"(,"rate":25,"name_suffix":"/../x")"}) {
        std::string reference = sequence(more);
        if (std::string(more).find("name_suffix") != std::string::npos)
            reference.erase(reference.find(R"("name_suffix":".png",)"), 21);
        const Reading reading = readReference(reference);
        EXPECT_TRUE(reading.has(Finding::Kind::Error)) << more;
    }
}

TEST_F(OtioMediaTest, AreMadeByGenerators) {
    EXPECT_EQ(std::get<Generator>(target(readReference(generator("SMPTEBars")))).kind, Generator::Kind::Bars);
    EXPECT_EQ(std::get<Generator>(target(readReference(generator("black")))).kind, Generator::Kind::Colour);
    EXPECT_EQ(std::get<Generator>(target(readReference(generator("Silence")))).kind, Generator::Kind::Silence);
    const Reading tone = readReference(generator("tone", R"({"frequency":440})"));
    EXPECT_EQ(std::get<Generator>(target(tone)).frequency, 440);
    for (const char* const colour :
         {R"({"color":[1,0.2,0]})", R"({"color":"#ff3300"})", R"({"color":{"r":1,"g":0.2,"b":0}})"}) {
        const Reading reading = readReference(generator("SolidColor", colour));
        EXPECT_EQ(inWords(reading), "");
        const auto& found = std::get<Generator>(target(reading));
        EXPECT_NEAR(found.red, 1, 1e-9);
        EXPECT_NEAR(found.green, 0.2, 1e-9);
        EXPECT_NEAR(found.blue, 0, 1e-9);
    }
}

TEST_F(OtioMediaTest, OfUnknownGeneratorsOrColoursAreTold) {
    EXPECT_EQ(readReference(generator("fractal")).findings.at(0).kind, Finding::Kind::MissingMedia);
    for (const char* const colour : {"{}", R"({"color":[2,0,0]})", R"({"color":"red"})", R"({"color":[1]})"})
        EXPECT_EQ(readReference(generator("SolidColor", colour)).findings.at(0).kind, Finding::Kind::Warning) << colour;
    EXPECT_TRUE(readReference(generator("tone", R"({"frequency":-3})")).has(Finding::Kind::Warning));
}

TEST_F(OtioMediaTest, GoneBeyondAreLeftToWhoeverOpensThem) {
    EXPECT_EQ(inWords(read(timelineOf({trackOf({clip(990, 20), clip(-5, 10)})}))), "");
}

} // namespace
} // namespace Timeline::Tests

// SPDX-License-Identifier: GPL-3.0-or-later
// Timelines that are wrong: each is told with its place, and nothing crashes or hangs.
#include "OtioFixture.h"
#include <sys/stat.h>

namespace Timeline::Tests {
namespace {

class OtioBadInput : public OtioFixture {
protected:
    /// The findings hold that sentence and are of that kind, all of them.
    void expect(const std::string& json, Finding::Kind kind, const std::string& text) const {
        const Reading reading = read(json);
        EXPECT_NE(inWords(reading).find(text), std::string::npos) << inWords(reading) << json.substr(0, 300);
        for (const Finding& one : reading.findings)
            EXPECT_EQ(one.kind, kind) << one.inWords();
    }
    void expectError(const std::string& json, const std::string& text) const {
        expect(json, Finding::Kind::Error, text);
    }
    void expectWarning(const std::string& json, const std::string& text) const {
        expect(json, Finding::Kind::Warning, text);
    }
    std::string wrap(const std::string& child) const { return timelineOf({trackOf({clip(0, 5), child})}); }
};

TEST_F(OtioBadInput, OfFilesThatCannotBeRead) {
    const OtioReader reader;
    EXPECT_EQ(inWords(reader.read(Kestra::ioPath((folder / "none.otio").string()), {})), "it is not there\n");
    EXPECT_EQ(inWords(reader.read(Kestra::ioPath("/dev/zero"), {})), "it is no plain file\n");
    const std::string pipe = (folder / "pipe.otio").string();
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(inWords(reader.read(Kestra::ioPath(pipe), {})), "it is no plain file\n");
    std::filesystem::create_directories(folder / "empty.otiod");
    EXPECT_EQ(inWords(reader.read(Kestra::ioPath((folder / "empty.otiod").string()), {})),
              "there is no content.otio in it\n");
}

TEST_F(OtioBadInput, OfNoJson) {
    expectError("", "it is no JSON: The document is empty");
    expectError("{\"a\":\n  1,}", "(line 2, column 5)");
    expectError("[1]", "there is no timeline in it");
    expectError("{}", "there is no timeline in it");
    expectError("3", "there is no timeline in it");
    expectError(R"({"OTIO_SCHEMA":"Timeline.1"})", "the timeline has no tracks");
    expectError("{\"name\":\"\xff\xfe\"}", "Invalid encoding");
    expectError(timelineOf({}), "there is nothing on the timeline");
    expectError(timelineOf({trackOf({})}), "there is nothing on the timeline");
}

TEST_F(OtioBadInput, OfHalvesOfLettersIsAnError) {
    for (const char* const text : {"a\\udc00", "\\udfff!", "\\ude00\\ud83d"})
        expectError(timelineOf({trackOf({clip(0, 5)})}, text), "surrogate pair");
    expectError(timelineOf({trackOf({clip(0, 5)})}, "t", R"(,"metadata":{"note":["\udc00"]})"),
                "half of a surrogate pair stands in it");
    EXPECT_EQ(inWords(read(timelineOf({trackOf({clip(0, 5)})}, "\\ud83d\\ude00 \xed\x9f\xbf"))), "");
}

TEST_F(OtioBadInput, OfNamesWithANulEndsThemThereAndTellsIt) {
    const std::string marker =
        objectOf("Marker.2", "here\\u0000beyond", R"(,"marked_range":)" + rangeOf(0, 1) + R"(,"color":"RED")");
    const Reading reading =
        read(objectOf("Timeline.1", "My\\u0000cut",
                      R"(,"tracks":)" + stackOf({trackOf({clip(0, 5)})}, R"(,"markers":)" + listOf({marker}))));
    ASSERT_TRUE(reading.document);
    EXPECT_EQ(reading.document->name, "My");
    EXPECT_EQ(reading.document->tracks->markers().at(0).name, "here");
    EXPECT_EQ(reading.findings.size(), 2U) << inWords(reading);
    EXPECT_FALSE(reading.has(Finding::Kind::Error)) << inWords(reading);
    EXPECT_NE(inWords(reading).find("a NUL stands in the name, which ends there"), std::string::npos);
}

TEST_F(OtioBadInput, OfAbsurdNesting) {
    std::string nested = clip(0, 5);
    for (int depth = 0; depth < 100; ++depth)
        nested = stackOf({trackOf({nested})});
    expectError(timelineOf({trackOf({clip(0, 5), nested})}), "stacks and tracks stand too deep in each other");
    expectError(std::string(1000000, '['), "it nests deeper than a timeline should");
    expectError(timelineOf({trackOf({clip(0, 5)})}, "t", R"(,"metadata":)" + std::string(100000, '[')),
                "it nests deeper than a timeline should");
    std::string fine = clip(0, 5);
    for (int depth = 0; depth < 25; ++depth)
        fine = stackOf({trackOf({fine})});
    EXPECT_EQ(inWords(read(timelineOf({trackOf({fine})}))), "");
}

TEST_F(OtioBadInput, OfAMillionChildren) {
    std::string children = clip(0, 5);
    for (int index = 0; index < 1000000; ++index)
        children += ",{}";
    const Reading reading = read(objectOf(
        "Timeline.1", "t",
        R"(,"tracks":)" + stackOf({objectOf("Track.1", "v", R"(,"kind":"Video","children":[)" + children + "]")})));
    ASSERT_TRUE(reading.document);
    EXPECT_EQ(firstTrack(reading).items().size(), 1U);
    EXPECT_EQ(reading.findings.size(), 1001U);
    EXPECT_EQ(reading.findings.back().text, "999000 more findings are not listed");
}

TEST_F(OtioBadInput, OfTimes) {
    const auto ranged = [](const std::string& start, const std::string& duration) {
        return clipOf("c", rangeOf(start, duration), fileReference("a.mov"));
    };
    expectError(wrap(ranged(timeOf(0), timeOf("NaN", "25"))), "the value of a time is not finite");
    expectError(wrap(ranged(timeOf(0), timeOf("5", "Infinity"))), "the rate of a time is not finite");
    expectError(wrap(ranged(timeOf(0), timeOf("5", "0"))), "a time's rate is not above 0 or beyond all measure");
    expectError(wrap(ranged(timeOf(0), timeOf("5", "-25"))), "a time's rate is not above 0 or beyond all measure");
    expectError(wrap(ranged(timeOf(0), timeOf("\"5\"", "25"))), "the value of a time is no number");
    expectError(wrap(ranged(timeOf(0), timeOf(-5))), "a duration is negative");
    expectError(wrap(ranged(timeOf(0), timeOf("1e300", "25"))), "a time lies more than a year away");
    expectError(wrap(ranged("null", timeOf(5))), "a time is missing");
    expectError(wrap(clipOf("c", "7", fileReference("a.mov"))), "a range of time is missing");
    expectWarning(wrap(ranged(timeOf(0), timeOf(0))), "clip \"c\": it lasts no time and is left out");
}

TEST_F(OtioBadInput, OfAbsurdLengthsAndSpeeds) {
    const std::string year = clipOf("y", rangeOf(0, 25.0 * 86400 * 365), fileReference("a.mov"));
    expectError(timelineOf({trackOf(std::vector<std::string>(1000, year))}), "the track lasts longer than a year");
    std::string slower = R"({"OTIO_SCHEMA":"LinearTimeWarp.1","time_scalar":0.999999})";
    for (int doubling = 0; doubling < 8; ++doubling)
        slower += ',' + slower;
    EXPECT_EQ(inWords(read(timelineOf({trackOf({clip(0, 5, "s", R"(,"effects":[)" + slower + ']')})}))), "");
    const std::string fast = R"({"OTIO_SCHEMA":"LinearTimeWarp.1","time_scalar":50})";
    expectError(wrap(clip(0, 5, "f", R"(,"effects":[)" + fast + ',' + fast + ']')),
                "the speed is no number from -100 to 100");
    ReadingOptions options;
    options.lengthOf = [](const MediaReference&, Track::Kind) { return Ticks(INT64_MAX); };
    const std::string open = objectOf("Clip.1", "o", R"(,"media_reference":)" + fileReference("a.mov"));
    EXPECT_TRUE(read(timelineOf({trackOf({open})}), options).has(Finding::Kind::Error));
}

TEST_F(OtioBadInput, OfThePlaceIsToldAsAPointer) {
    const Reading reading = read(wrap(clipOf("c", rangeOf(timeOf(0), timeOf("5", "0")), fileReference("a.mov"))));
    ASSERT_EQ(reading.findings.size(), 1U);
    EXPECT_EQ(reading.findings[0].pointer, "/tracks/children/0/children/1/source_range/duration");
    EXPECT_EQ(reading.findings[0].place, "stack \"S\", track \"Video1\", clip \"c\"");
}

TEST_F(OtioBadInput, OfUnknownSchemasBecomesAGap) {
    const Reading reading =
        read(timelineOf({trackOf({objectOf("Wormhole.1", "w", R"(,"source_range":)" + rangeOf(0, 30)), clip(0, 5)})}));
    EXPECT_EQ(reading.findings.at(0).text, "\"Wormhole.1\" is not known; there is a gap in its place");
    EXPECT_EQ(reading.findings[0].kind, Finding::Kind::Warning);
    EXPECT_EQ(firstTrack(reading).startOf(1), frames(30));
    expectWarning(wrap("17"), "is not known; it has no length either, and what follows begins at its place");
    expectWarning(wrap("null"), "is not known");
}

TEST_F(OtioBadInput, OfSchemasWithoutAProperVersionIsNotTakenForAKnownOne) {
    for (const char* const schema : {"Clip", "Clip.", "Clip.x", "Clip.-1", "Clip.0", "Clip.2x", ""})
        expectWarning(wrap(objectOf(schema, "c", R"(,"source_range":)" + rangeOf(0, 30))),
                      '"' + std::string(schema) + "\" is not known; there is a gap in its place");
    expectError(
        wrap(objectOf("Clip.99999999999999", "c",
                      R"(,"media_reference":)" + fileReference("a.mov") + R"(,"source_range":)" + rangeOf(0, 5))),
        "Clip.99999999999999 is newer than what can be read, Clip.2");
}

TEST_F(OtioBadInput, OfMembersThatStandTwiceTakesTheLastAndTellsIt) {
    const Reading reading = read(timelineOf(
        {trackOf({objectOf("Gap.1", "g",
                           R"(,"source_range":null,"source_range":)" + rangeOf(0, 5) + R"(,"source_range":)" +
                               rangeOf(0, 30) + R"(,"metadata":{"a~/":{"b":1,"b":2}})"),
                  clip(0, 5)})}));
    EXPECT_EQ(firstTrack(reading).startOf(1), frames(30));
    ASSERT_EQ(reading.findings.size(), 2U) << inWords(reading);
    EXPECT_EQ(reading.findings[0].text, "\"source_range\" stands in it more than once; the last one counts");
    EXPECT_EQ(reading.findings[0].pointer, "/tracks/children/0/children/0");
    EXPECT_EQ(reading.findings[0].kind, Finding::Kind::Warning);
    EXPECT_EQ(reading.findings[1].pointer, "/tracks/children/0/children/0/metadata/a~0~1");
    EXPECT_EQ(read(timelineOf({trackOf({clip(0, 5)})}, "t", R"(,"metadata":{"x":1,"y":3,"x":2})")).document->metadata,
              R"({"y":3,"x":2})");
}

TEST_F(OtioBadInput, OfMembersThatAllStandTwiceIsReadInTime) {
    constexpr int COUNT = 300000;
    std::string members;
    for (int index = 0; index < COUNT; ++index)
        members += "\"a\":" + std::to_string(index) + ',';
    for (int index = 0; index < COUNT; ++index)
        members += "\"b" + std::to_string(index) + "\":0,";
    const Reading reading =
        read(timelineOf({trackOf({clip(0, 5)})}, "t", R"(,"metadata":{"first":1,)" + members + R"("last":2})"));
    ASSERT_TRUE(reading.document) << inWords(reading);
    EXPECT_EQ(reading.findings.size(), 1U);
    const std::string& kept = reading.document->metadata;
    const std::string start = R"({"first":1,"a":299999,"b0":0,"b1":0,)", end = R"(,"b299999":0,"last":2})";
    EXPECT_EQ(kept.substr(0, start.size()), start);
    EXPECT_EQ(kept.substr(kept.size() - end.size()), end);
}

TEST_F(OtioBadInput, OfANewerVersionIsRefusedUnlessItIsReadLeniently) {
    const std::string newer = timelineOf({trackOf({objectOf(
        "Clip.3", "c", R"(,"media_reference":)" + fileReference("a.mov") + R"(,"source_range":)" + rangeOf(0, 5))})});
    expectError(newer, "Clip.3 is newer than what can be read, Clip.2");
    ReadingOptions lenient;
    lenient.lenient = true;
    const Reading reading = read(newer, lenient);
    ASSERT_EQ(reading.findings.size(), 1U) << "once";
    EXPECT_EQ(reading.findings[0].kind, Finding::Kind::Warning);
    EXPECT_EQ(reading.document->duration(), frames(5));
}

TEST_F(OtioBadInput, OfDissolvesOfStacksWithNothingBeyondTheCutIsTold) {
    const auto words = [this](const std::string& before, const std::string& behind) {
        return inWords(read(timelineOf({trackOf({before, transitionOf(3, 4), behind})})));
    };
    const auto stack = [](double start, double count, const std::string& more = {}) {
        return stackOf({trackOf({clip(0, 30)})}, R"(,"source_range":)" + rangeOf(start, count) + more);
    };
    const std::string backwards = R"(,"effects":[)" + objectOf("LinearTimeWarp.1", "", R"(,"time_scalar":-1)") + ']';
    const std::string lacksEnd =
        "transition \"cross\": the stack \"S\" before it has too little beyond the cut: for 160 ms";
    const std::string lacksStart = "the stack \"S\" behind it has too little before the cut: for 120 ms";
    EXPECT_EQ(words(stack(5, 10), stack(5, 10)), "");
    EXPECT_NE(words(stack(20, 10), clip(50, 10)).find(lacksEnd), std::string::npos);
    EXPECT_NE(words(stack(18, 10), clip(50, 10)).find("for 80 ms"), std::string::npos);
    EXPECT_NE(words(clip(50, 10), stack(0, 10)).find(lacksStart), std::string::npos);
    EXPECT_NE(words(stack(10, 10, backwards), clip(50, 10)).find(lacksEnd), std::string::npos);
    EXPECT_EQ(words(stack(20, 10, R"(,"enabled":false)"), clip(50, 10)), "");
    const std::string heard = stackOf({trackOf({clip(0, 30)}, "Audio")}, R"(,"source_range":)" + rangeOf(20, 10));
    const std::string sound = inWords(read(timelineOf({trackOf({heard, transitionOf(3, 4), clip(50, 10)}, "Audio")})));
    EXPECT_NE(sound.find("for 160 ms nothing is heard of it"), std::string::npos) << sound;
}

TEST_F(OtioBadInput, OfStacksAndTracksBeyondTheirContentsIsTold) {
    const auto told = [this](const std::string& children, const char* kind = "Video") {
        return inWords(read(timelineOf({trackOf({children}, kind)})));
    };
    const auto stack = [](const std::string& more, const char* kind = "Video") {
        return stackOf({trackOf({clip(0, 30)}, kind)}, more);
    };
    const auto range = [](double start, double count) { return R"(,"source_range":)" + rangeOf(start, count); };
    const auto speed = [](double scalar) {
        return R"(,"effects":[)" + objectOf("LinearTimeWarp.1", "", R"(,"time_scalar":)" + number(scalar)) + ']';
    };
    const std::string place = "stack \"S\", track \"Video1\", stack \"S\": ";
    const std::string beyond = place + "it goes beyond what there is of its contents and ";
    const auto is = [&beyond](const std::string& what) { return beyond + what + " (/tracks/children/0/children/0)\n"; };
    EXPECT_EQ(told(stack(range(5, 25))), "");
    EXPECT_EQ(told(stack(range(25, 10))), is("holds the last picture for 200 ms at its end"));
    EXPECT_EQ(told(stack(range(-2, 10))), is("holds the first picture for 80 ms at its start"));
    EXPECT_EQ(told(stack(range(-5, 40))),
              is("holds the first picture for 200 ms at its start and holds the last picture "
                 "for 200 ms at its end"));
    EXPECT_EQ(told(stack(range(40, 5))), is("holds the last picture throughout"));
    EXPECT_EQ(told(stack(speed(2))), is("holds the last picture for 600 ms at its end")) << "not those of its contents";
    EXPECT_EQ(told(stack(range(5, 10) + speed(-1))), is("holds the first picture for 200 ms at its end"));
    EXPECT_EQ(told(stack(range(35, 10) + speed(-1))), is("holds the last picture for 200 ms at its start"));
    EXPECT_EQ(told(stack(range(35, 10) + speed(0))), is("holds the last picture throughout"));
    EXPECT_NE(told(stack(range(25, 10), "Audio"), "Audio").find("its contents and is silent for 200 ms at its end"),
              std::string::npos);
    EXPECT_NE(inWords(read(timelineOf({trackOf({clip(0, 5)}, "Video", range(0, 10))}))).find("for 200 ms at its end"),
              std::string::npos);
    EXPECT_EQ(inWords(read(timelineOf({trackOf({stackOf({}, range(0, 10)), clip(0, 5)})}))), "")
        << "a place to be kept";
}

TEST_F(OtioBadInput, OfTransitionsIsShortenedOrLeftOut) {
    const auto timeline = [](const std::vector<std::string>& children) { return timelineOf({trackOf(children)}); };
    expectWarning(timeline({clip(0, 10), transitionOf(15, 3), clip(50, 10)}), "is shortened to them");
    expectWarning(timeline({clip(0, 10), transitionOf(3, 3), transitionOf(2, 2, "second"), clip(50, 10)}),
                  "transition \"second\": it follows another transition and is left out");
    expectWarning(timeline({clip(0, 10), transitionOf(0, 0), clip(50, 10)}), "there is no time for it");
    expectWarning(timeline({clip(0, 10), transitionOf(3, 8), clip(50, 10), transitionOf(8, 3, "late"), clip(80, 10)}),
                  "transition \"late\": it is longer than the clips beside it");
    expectError(timeline({clip(0, 10), transitionOf(-3, 8), clip(50, 10)}), "reaches a negative time");
    expectWarning(timelineOf({trackOf({clip(0, 5)}), transitionOf(1, 1)}), "stands outside of a track");
    const Reading fitted =
        read(timeline({clip(0, 10), transitionOf(3, 8), clip(50, 10), transitionOf(8, 3, "late"), clip(80, 10)}));
    EXPECT_EQ(firstTrack(fitted).transitions().at(1).before, frames(2)) << "what the one before leaves of the clip";
}

TEST_F(OtioBadInput, OfTransitionsThatAreNoDissolvesIsTold) {
    const auto typed = [](std::string transition, const std::string& type) {
        const std::string dissolve = "SMPTE_Dissolve";
        transition.replace(transition.find(dissolve), dissolve.size(), type);
        return timelineOf({trackOf({clip(0, 10), transition, clip(50, 10)})});
    };
    expectWarning(typed(transitionOf(3, 3), "Custom_Wipe"),
                  "transition \"cross\": transitions of the type \"Custom_Wipe\" are made as dissolves "
                  "(/tracks/children/0/children/1/transition_type)");
    EXPECT_EQ(inWords(read(typed(transitionOf(3, 3), "SMPTE_Dissolve"))), "");
    EXPECT_EQ(inWords(read(typed(transitionOf(3, 3), ""))), "");
}

TEST_F(OtioBadInput, OfMarkersLeavesThemOutAndReadsTheRest) {
    const auto marked = [this](const std::string& marker) {
        return wrap(clip(0, 5, "e", R"(,"markers":[)" + marker + ']'));
    };
    const auto marker = [](const std::string& range) {
        return objectOf("Marker.2", "m", R"(,"marked_range":)" + range);
    };
    expectWarning(marked(objectOf("Marker.2", "m")),
                  "marker \"m\": a range of time is missing; the marker is left out");
    expectWarning(marked(marker(rangeOf("null", timeOf(1)))), "a time is missing; the marker is left out");
    expectWarning(marked(marker(rangeOf(0, -1))), "a duration is negative; the marker is left out");
    expectWarning(marked(marker(rangeOf(timeOf("0", "0"), timeOf(1)))), "; the marker is left out");
    const Reading reading = read(marked(marker("7") + ',' + marker(rangeOf(2, 1))));
    ASSERT_TRUE(reading.document);
    EXPECT_EQ(firstTrack(reading).items().at(1).markers.size(), 1U);
    expectError(marked(objectOf("Marker.4", "m", R"(,"marked_range":)" + rangeOf(0, 1))),
                "newer than what can be read");
}

TEST_F(OtioBadInput, OfTracksAndEffectsIsTold) {
    expectWarning(timelineOf({trackOf({clip(0, 5)}), trackOf({clip(0, 5)}, "Subtitle")}),
                  "tracks of the kind \"Subtitle\" are left out");
    expectWarning(timelineOf({objectOf("Track.1", "t", R"(,"children":)" + listOf({clip(0, 5)}))}),
                  "the track does not say what it holds");
    expectError(timelineOf({trackOf({clip(0, 5)}), objectOf("Track.1", "t", R"(,"kind":"Video")")}),
                "a track has no list of children");
    expectWarning(wrap(clip(0, 5, "e", R"(,"effects":[{"OTIO_SCHEMA":"Effect.1","effect_name":"blur"}])")),
                  "the effect \"blur\" is not known and is left out");
    expectError(wrap(clip(0, 5, "e", R"(,"effects":[{"OTIO_SCHEMA":"LinearTimeWarp.1","time_scalar":NaN}])")),
                "the speed is no number from -100 to 100");
    expectWarning(wrap(clip(0, 5, "e", R"(,"markers":[{"OTIO_SCHEMA":"Clip.1"}])")), "it is no marker and is left out");
    expectWarning(
        timelineOf({trackOf({clip(0, 5), stackOf({trackOf({clip(0, 5)}, "Audio")})})}),
        "track \"Video1\", stack \"S\": it has no pictures, and its place in a track of pictures stays empty");
}

} // namespace
} // namespace Timeline::Tests

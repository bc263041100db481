// SPDX-License-Identifier: GPL-3.0-or-later
// What a timeline says is what the document holds.
#include "OtioFixture.h"

namespace Timeline::Tests {
namespace {

class OtioReaderTest : public OtioFixture {};

TEST_F(OtioReaderTest, ReadsTracksClipsAndGapsInTheirOrder) {
    const Reading reading = read(
        timelineOf({trackOf({clip(10, 50, "one"), gapOf(25), clip(0, 5, "two")}), trackOf({clip(0, 3)}, "Audio")}));
    ASSERT_EQ(inWords(reading), "");
    EXPECT_EQ(reading.document->name, "cut");
    EXPECT_EQ(reading.document->duration(), frames(80));
    ASSERT_EQ(reading.document->tracks->tracks().size(), 2U);
    const Track& track = firstTrack(reading);
    EXPECT_EQ(track.kind(), Track::Kind::Video);
    ASSERT_EQ(track.items().size(), 3U);
    EXPECT_EQ(track.items()[0].name, "one");
    EXPECT_EQ(clipAt(track, 0).excerpt.start, frames(10));
    EXPECT_EQ(clipAt(track, 0).origin, frames(0));
    EXPECT_TRUE(std::holds_alternative<Gap>(track.items()[1].content));
    EXPECT_EQ(track.startOf(2), frames(75));
    EXPECT_EQ(reading.document->tracks->tracks()[1].kind(), Track::Kind::Audio);
}

TEST_F(OtioReaderTest, MixesRatesWithoutADrift) {
    std::vector<std::string> children;
    for (int index = 0; index < 1000; ++index)
        children.push_back(clipOf("n", rangeOf(0, 1, 29.97), fileReference("a.mov")));
    const Reading reading = read(timelineOf({trackOf(children)}));
    EXPECT_EQ(reading.document->duration(), Ticks(1001 * (TIME_BASE / 30)));
    EXPECT_EQ(clipAt(firstTrack(reading), 0).rate, (boost::rational<long long>(30000, 1001)));
}

TEST_F(OtioReaderTest, SubtractsTheMediasOwnTimeCode) {
    const std::string hour = fileReference("a.mov", R"(,"available_range":)" + rangeOf(90000, 1000));
    const Reading reading = read(timelineOf(
        {trackOf({clipOf("a", rangeOf(90010, 20), hour), clipOf("b", rangeOf(90010, 20), fileReference("a.mov"))})}));
    EXPECT_EQ(inWords(reading), "");
    EXPECT_EQ(clipAt(firstTrack(reading), 0).excerpt.start, frames(90010));
    EXPECT_EQ(clipAt(firstTrack(reading), 0).origin, frames(90000));
    EXPECT_FALSE(clipAt(firstTrack(reading), 1).origin) << "the media tells";
}

TEST_F(OtioReaderTest, TakesTheWholeMediaWhereNoRangeIsTold) {
    const std::string whole = objectOf("Clip.2", "w",
                                       R"(,"source_range":null,"media_references":{"DEFAULT_MEDIA":)" +
                                           fileReference("a.mov", R"(,"available_range":)" + rangeOf(100, 40)) + "}");
    const std::string open = objectOf("Clip.1", "o", R"(,"media_reference":)" + fileReference("a.mov"));
    ReadingOptions options;
    options.lengthOf = [](const MediaReference&, Track::Kind kind) {
        return std::optional(frames(kind == Track::Kind::Video ? 7 : 9));
    };
    const Reading reading = read(timelineOf({trackOf({whole, open}), trackOf({open}, "Audio")}), options);
    EXPECT_EQ(inWords(reading), "");
    const Track& track = firstTrack(reading);
    EXPECT_EQ(track.items()[0].duration, frames(40));
    EXPECT_EQ(clipAt(track, 0).excerpt.start - *clipAt(track, 0).origin, frames(0));
    EXPECT_EQ(clipAt(track, 0).rate, boost::rational<long long>(25));
    EXPECT_FALSE(clipAt(track, 1).rate);
    EXPECT_EQ(track.items()[1].duration, frames(7));
    EXPECT_EQ(reading.document->tracks->tracks()[1].duration(), frames(9));
    EXPECT_NE(inWords(read(timelineOf({trackOf({open})}))).find("nothing tells how long it lasts"), std::string::npos);
}

TEST_F(OtioReaderTest, TakesTheActiveOneOfSeveralMedia) {
    put("proxy.mov");
    const std::string two = R"(,"media_references":{"high":)" + fileReference("a.mov") + R"(,"low":)" +
                            fileReference("proxy.mov") + R"(},"active_media_reference_key":"low","source_range":)" +
                            rangeOf(0, 5);
    const Reading reading = read(timelineOf({trackOf({objectOf("Clip.2", "c", two)})}));
    EXPECT_EQ(std::get<MediaFile>(clipAt(firstTrack(reading), 0).media.target).path.ToUtf8(),
              (folder / "proxy.mov").string());
}

TEST_F(OtioReaderTest, ReadsTimeWarpsAndFreezes) {
    const auto effects = [](const std::string& list) { return R"(,"effects":)" + list; };
    const std::string twice = R"({"OTIO_SCHEMA":"LinearTimeWarp.1","time_scalar":2.0})";
    const std::string back = R"({"OTIO_SCHEMA":"LinearTimeWarp.1","time_scalar":-0.5})";
    const std::string freeze = R"({"OTIO_SCHEMA":"FreezeFrame.1","time_scalar":0})";
    const Reading reading = read(timelineOf({trackOf({clip(0, 10, "fast", effects('[' + twice + ']')),
                                                      clip(90, 10, "both", effects('[' + twice + ',' + back + ']')),
                                                      clip(5, 10, "still", effects('[' + freeze + ']'))})}));
    EXPECT_EQ(inWords(reading), "");
    const Track& track = firstTrack(reading);
    EXPECT_EQ(clipAt(track, 0).excerpt.speed, 2);
    EXPECT_EQ(clipAt(track, 1).excerpt.speed, -1);
    EXPECT_EQ(clipAt(track, 2).excerpt.speed, 0);
    EXPECT_EQ(track.duration(), frames(30)) << "a warp changes what is shown, not for how long";
}

TEST_F(OtioReaderTest, PassesOverEffectsThatAreSwitchedOff) {
    const std::string off = R"(,"enabled":false)";
    const std::string effects =
        listOf({objectOf("LinearTimeWarp.1", "", R"(,"time_scalar":2)" + off), objectOf("FreezeFrame.1", "", off),
                objectOf("Effect.1", "", off), objectOf("LinearTimeWarp.1", "", R"(,"time_scalar":3,"enabled":true)")});
    const Reading reading = read(timelineOf({trackOf({clip(0, 10, "a", R"(,"effects":)" + effects)})}));
    EXPECT_EQ(inWords(reading), "");
    EXPECT_EQ(clipAt(firstTrack(reading), 0).excerpt.speed, 3);
}

TEST_F(OtioReaderTest, ReadsTransitionsBetweenTheirNeighbours) {
    const Reading reading =
        read(timelineOf({trackOf({transitionOf(0, 5, "in"), clip(0, 50), transitionOf(10, 12), clip(100, 50)})}));
    EXPECT_EQ(inWords(reading), "");
    const auto& transitions = firstTrack(reading).transitions();
    ASSERT_EQ(transitions.size(), 2U);
    EXPECT_EQ(transitions[0].at, 0U);
    EXPECT_EQ(transitions[1].at, 1U);
    EXPECT_EQ(transitions[1].before, frames(10));
    EXPECT_EQ(transitions[1].behind, frames(12));
    EXPECT_EQ(transitions[1].type, "SMPTE_Dissolve");
    EXPECT_EQ(firstTrack(reading).duration(), frames(100)) << "a transition takes no time of its own";
}

TEST_F(OtioReaderTest, NestsStacksAndTracksWithTheirRangesAndSpeeds) {
    const std::string inner = trackOf({clip(0, 40), clip(100, 40)});
    const std::string stack = stackOf({inner}, R"(,"source_range":)" + rangeOf(30, 20));
    const Reading reading = read(timelineOf({trackOf({gapOf(5), stack})}));
    EXPECT_EQ(inWords(reading), "");
    const Item& item = firstTrack(reading).items()[1];
    EXPECT_EQ(item.duration, frames(20));
    const Nested& nested = std::get<Nested>(item.content);
    EXPECT_EQ(nested.excerpt.start, frames(30));
    EXPECT_EQ(nested.stack->duration(), frames(80));
}

TEST_F(OtioReaderTest, CutsATrackThatHasARange) {
    const Reading reading =
        read(timelineOf({trackOf({clip(0, 40), clip(100, 40)}, "Audio", R"(,"source_range":)" + rangeOf(10, 50))}));
    EXPECT_EQ(inWords(reading), "");
    const Track& track = firstTrack(reading);
    EXPECT_EQ(track.kind(), Track::Kind::Audio);
    EXPECT_EQ(track.duration(), frames(50));
    EXPECT_EQ(std::get<Nested>(track.items()[0].content).excerpt.start, frames(10));
}

TEST_F(OtioReaderTest, CutsATimelineThatHasARange) {
    const std::string root =
        stackOf({trackOf({clip(0, 40)}), trackOf({clip(0, 40)}, "Audio")}, R"(,"source_range":)" + rangeOf(10, 20));
    const Reading reading = read(objectOf("Timeline.1", "t", R"(,"tracks":)" + root));
    EXPECT_EQ(reading.document->duration(), frames(20));
    ASSERT_EQ(reading.document->tracks->tracks().size(), 2U);
    EXPECT_EQ(reading.document->tracks->tracks()[1].kind(), Track::Kind::Audio);
}

TEST_F(OtioReaderTest, KeepsMarkersInTheTimeOfTheirItem) {
    const auto marker = [](const char* schema, const char* range, double at) {
        return objectOf(schema, "m",
                        R"(,"color":"RED","comment":"look",")" + std::string(range) + "\":" + rangeOf(at, 2));
    };
    const std::string marked =
        clip(10, 50, "a",
             R"(,"markers":)" + listOf({marker("Marker.1", "range", 15), marker("Marker.1", "marked_range", 16),
                                        marker("Marker.2", "marked_range", 17)}));
    const std::string track =
        trackOf({gapOf(100), marked}, "Video", R"(,"markers":[)" + marker("Marker.3", "marked_range", 7) + "]");
    const Reading reading = read(timelineOf({track}));
    EXPECT_EQ(inWords(reading), "");
    ASSERT_EQ(firstTrack(reading).items()[1].markers.size(), 3U);
    EXPECT_EQ(firstTrack(reading).items()[1].markers[2].range.start, frames(7));
    const Marker& found = firstTrack(reading).items()[1].markers[0];
    EXPECT_EQ(found.range.start, frames(5));
    EXPECT_EQ(found.range.duration, frames(2));
    EXPECT_EQ(found.name + found.colour + found.comment, "mREDlook");
    EXPECT_EQ(firstTrack(reading).markers().at(0).range.start, frames(7));
}

TEST_F(OtioReaderTest, KeepsWhatIsDisabled) {
    const Reading reading = read(timelineOf({trackOf({clip(0, 5, "off", R"(,"enabled":false)"), clip(0, 5)}),
                                             trackOf({clip(0, 5)}, "Video", R"(,"enabled":false)")}));
    EXPECT_FALSE(firstTrack(reading).items()[0].enabled);
    EXPECT_TRUE(firstTrack(reading).items()[1].enabled);
    EXPECT_FALSE(reading.document->tracks->tracks()[1].isEnabled());
}

TEST_F(OtioReaderTest, KeepsTheStartTimeCodeAndTheMetadata) {
    const Reading reading = read(timelineOf(
        {trackOf({clip(0, 5)})}, "t", R"(,"global_start_time":)" + timeOf(90000) + R"(,"metadata":{"x":[1,NaN]})"));
    EXPECT_EQ(reading.document->globalStart, frames(90000));
    EXPECT_EQ(reading.document->metadata, R"({"x":[1,NaN]})");
}

TEST_F(OtioReaderTest, ChoosesATimelineByItsName) {
    const std::string two = objectOf("SerializableCollection.1", "c",
                                     R"(,"children":)" + listOf({timelineOf({trackOf({clip(0, 5)})}, "short"),
                                                                 timelineOf({trackOf({clip(0, 50)})}, "long")}));
    const std::string old =
        objectOf("SerializeableCollection.1", "c", R"(,"children":)" + listOf({timelineOf({trackOf({clip(0, 5)})})}));
    EXPECT_EQ(inWords(read(old)), "");
    ReadingOptions options;
    options.timeline = "long";
    EXPECT_EQ(read(two, options).document->duration(), frames(50));
    EXPECT_EQ(inWords(read(two)), "there are several timelines in it, and none was chosen: \"short\", \"long\"\n");
    const std::string twins = objectOf("SerializableCollection.1", "c",
                                       R"(,"children":)" + listOf({timelineOf({trackOf({clip(0, 5)})}, "long"),
                                                                   timelineOf({trackOf({clip(0, 50)})}, "long")}));
    EXPECT_EQ(
        inWords(read(twins, options)).find("2 timelines in it are called \"long\"; their numbers choose one: 1, 2"),
        0U);
    EXPECT_NE(inWords(read(twins)).find("\"long\", \"long\"; a number from 1 to 2 chooses one as well"),
              std::string::npos);
    for (const auto& [number, lasts] : {std::pair("1", 5), std::pair("2", 50)}) {
        options.timeline = number;
        EXPECT_EQ(read(twins, options).document->duration(), frames(lasts)) << number;
    }
    for (const char* const none : {"0", "3", "2nd", "-1", "99999999999999999999999"}) {
        options.timeline = none;
        EXPECT_FALSE(read(twins, options).document) << none;
    }
    const std::string named = objectOf("SerializableCollection.1", "c",
                                       R"(,"children":)" + listOf({timelineOf({trackOf({clip(0, 5)})}, "2"),
                                                                   timelineOf({trackOf({clip(0, 50)})}, "x")}));
    options.timeline = "2";
    EXPECT_EQ(read(named, options).document->duration(), frames(5)) << "a name comes first";
    options.timeline = "other";
    const Reading none = read(two, options);
    EXPECT_FALSE(none.document);
    EXPECT_NE(inWords(none).find("there is no timeline \"other\" in it; there are \"short\", \"long\""),
              std::string::npos);
}

TEST_F(OtioReaderTest, TellsThatTimeCodesHaveNoDays) {
    const auto told = [this](double value, double rate) {
        return inWords(
            read(timelineOf({trackOf({clip(0, 5)})}, "cut", R"(,"global_start_time":)" + timeOf(value, rate))));
    };
    const std::string warning =
        "the global start time lies outside of 0 to 24 hours, and its time code wraps around (/global_start_time)\n";
    EXPECT_EQ(told(86400 * 25 - 1, 25), "");
    EXPECT_EQ(told(86400 * 25, 25), warning);
    EXPECT_EQ(told(-1, 25), warning);
    EXPECT_EQ(told(86400 * 24 - 1, 23.976), "") << "its frames are counted at 24";
    EXPECT_EQ(told(86400 * 24, 23.976), warning);
    EXPECT_EQ(told(0, 25), "");
}

TEST_F(OtioReaderTest, TakesATrackOrAStackForATimeline) {
    EXPECT_EQ(read(trackOf({clip(0, 5)})).document->duration(), frames(5));
    EXPECT_EQ(read(stackOf({trackOf({clip(0, 6)})})).document->duration(), frames(6));
}

TEST_F(OtioReaderTest, ReadsAFolderWithItsMedia) {
    put("bundle.otiod/media/b.mov");
    put("bundle.otiod/content.otio", timelineOf({trackOf({clipOf("b", rangeOf(0, 5), fileReference("media/b.mov"))})}));
    const OtioReader reader;
    const Kestra::ioPath bundle((folder / "bundle.otiod").string());
    EXPECT_TRUE(reader.reads(bundle));
    EXPECT_TRUE(reader.reads(Kestra::ioPath("cut.OTIO")));
    EXPECT_FALSE(reader.reads(Kestra::ioPath("cut.mov")));
    const Reading reading = reader.read(bundle, {});
    EXPECT_EQ(inWords(reading), "");
    EXPECT_EQ(reading.document->duration(), frames(5));
}

TEST_F(OtioReaderTest, ReadsTenThousandClips) {
    std::vector<std::string> children;
    for (int index = 0; index < 10000; ++index)
        children.push_back(clip(index % 900, 2, "c" + std::to_string(index)));
    const Reading reading = read(timelineOf({trackOf(children)}));
    EXPECT_EQ(inWords(reading), "");
    EXPECT_EQ(firstTrack(reading).itemAt(frames(19999)), 9999U);
}

} // namespace
} // namespace Timeline::Tests

// SPDX-License-Identifier: GPL-3.0-or-later
// Writes timelines of OpenTimelineIO, piece by piece, and reads them.
#pragma once

#include "Kestra/Base/Time.h"
#include "Timeline/Reader/OtioReader.h"
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace Timeline::Tests {

using Kestra::Ticks;
using Kestra::TIME_BASE;

inline std::string number(double value) {
    std::ostringstream text;
    text.precision(17);
    text << value;
    return text.str();
}

inline std::string timeOf(const std::string& value, const std::string& rate) {
    return R"({"OTIO_SCHEMA":"RationalTime.1","value":)" + value + R"(,"rate":)" + rate + '}';
}
inline std::string timeOf(double value, double rate = 25) {
    return timeOf(number(value), number(rate));
}
inline std::string rangeOf(const std::string& start, const std::string& duration) {
    return R"({"OTIO_SCHEMA":"TimeRange.1","start_time":)" + start + R"(,"duration":)" + duration + '}';
}
inline std::string rangeOf(double start, double duration, double rate = 25) {
    return rangeOf(timeOf(start, rate), timeOf(duration, rate));
}
inline std::string listOf(const std::vector<std::string>& values) {
    std::string list;
    for (const std::string& one : values)
        list += (list.empty() ? "" : ",") + one;
    return '[' + list + ']';
}
/// `more`: further members, each with a comma in front.
inline std::string objectOf(const std::string& schema, const std::string& name, const std::string& more = {}) {
    return R"({"OTIO_SCHEMA":")" + schema + R"(","name":")" + name + '"' + more + '}';
}
inline std::string fileReference(const std::string& url, const std::string& more = {}) {
    return R"({"OTIO_SCHEMA":"ExternalReference.1","target_url":")" + url + '"' + more + '}';
}
inline std::string clipOf(const std::string& name, const std::string& range, const std::string& reference,
                          const std::string& more = {}) {
    return objectOf("Clip.1", name, R"(,"source_range":)" + range + R"(,"media_reference":)" + reference + more);
}
inline std::string gapOf(double frames) {
    return objectOf("Gap.1", "", R"(,"source_range":)" + rangeOf(0, frames));
}
inline std::string transitionOf(double before, double behind, const std::string& name = "cross") {
    return objectOf("Transition.1", name,
                    R"(,"transition_type":"SMPTE_Dissolve","in_offset":)" + timeOf(before) + R"(,"out_offset":)" +
                        timeOf(behind));
}
inline std::string trackOf(const std::vector<std::string>& children, const std::string& kind = "Video",
                           const std::string& more = {}) {
    return objectOf("Track.1", kind + "1", R"(,"kind":")" + kind + R"(","children":)" + listOf(children) + more);
}
inline std::string stackOf(const std::vector<std::string>& children, const std::string& more = {}) {
    return objectOf("Stack.1", "S", R"(,"children":)" + listOf(children) + more);
}
inline std::string timelineOf(const std::vector<std::string>& tracks, const std::string& name = "cut",
                              const std::string& more = {}) {
    return objectOf("Timeline.1", name, R"(,"tracks":)" + stackOf(tracks) + more);
}

class OtioFixture : public ::testing::Test {
protected:
    void SetUp() override {
        std::string name = (std::filesystem::temp_directory_path() / "otio-XXXXXX").string();
        ASSERT_TRUE(::mkdtemp(name.data()));
        folder = name;
        put("a.mov");
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    /// A plain file below the folder; the reader opens no media.
    std::string put(const std::string& name, const std::string& content = {}) const {
        std::filesystem::create_directories((folder / name).parent_path());
        std::ofstream(folder / name) << content;
        return (folder / name).string();
    }
    Reading read(const std::string& json, const ReadingOptions& options = {}) const {
        return OtioReader().read(Kestra::ioPath(put("cut.otio", json)), options);
    }
    /// A clip of a.mov, of which there are 1000 frames.
    static std::string clip(double start, double frames, const std::string& name = "a", const std::string& more = {}) {
        return clipOf(name, rangeOf(start, frames), fileReference("a.mov", R"(,"available_range":)" + rangeOf(0, 1000)),
                      more);
    }
    static const Track& firstTrack(const Reading& reading) { return reading.document->tracks->tracks().front(); }
    static const Clip& clipAt(const Track& track, std::size_t index) {
        return std::get<Clip>(track.items()[index].content);
    }
    static std::string inWords(const Reading& reading) {
        std::string words;
        for (const Finding& one : reading.findings)
            words += one.inWords() + '\n';
        return words;
    }
    static Ticks frames(double count) { return Ticks(static_cast<std::int64_t>(count * (TIME_BASE / 25))); }

    std::filesystem::path folder;
};

} // namespace Timeline::Tests

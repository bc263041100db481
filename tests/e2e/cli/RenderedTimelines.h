// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of exported timelines share: parts of timelines beside clips, and what comes out of them.
#pragma once

#include "TimelineFixture.h"
#include "support/MediaProbe.h"
#include <cstdint>
#include <vector>

namespace TestCli {

inline std::string gapOf(int frames) {
    return R"({"OTIO_SCHEMA":"Gap.1","source_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" + timeOf(0) +
           R"(,"duration":)" + timeOf(frames) + "}}";
}

inline std::string dissolveOf(int before, int behind) {
    return R"({"OTIO_SCHEMA":"Transition.1","transition_type":"SMPTE_Dissolve","in_offset":)" + timeOf(before) +
           R"(,"out_offset":)" + timeOf(behind) + '}';
}

inline std::string warpOf(const std::string& schema, double speed) {
    return R"(,"effects":[{"OTIO_SCHEMA":")" + schema + R"(","time_scalar":)" + std::to_string(speed) + "}]";
}

/// What both.mov shows from frame `first` on, every `step`th frame.
inline std::vector<int> shown(int first, int count, int step = 1) {
    std::vector<int> all;
    for (int n = first; static_cast<int>(all.size()) < count; n += step)
        all.push_back(n % 25 < 2 ? -1 : n % 16);
    return all;
}

inline void append(std::vector<int>& all, const std::vector<int>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

class RenderedTimelines : public Timelines {
protected:
    static Result render(const std::string& cut, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments{"render", cut,           "-p",         "mkv-ffv1-flac", "-o",
                                           out(),    "--overwrite", "--progress", "none"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }
    static TestMedia::ProbedMedia rendered(const std::string& cut, const std::vector<std::string>& more = {}) {
        const Result result = render(cut, more);
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        return TestMedia::probe(out());
    }
    static std::string out() { return *media / "out.mkv"; }

    /// Of all that is heard.
    static int cyclesOf(const std::string& cut, const std::vector<std::string>& more = {}) {
        std::vector<std::string> arguments{"render",         cut,           "-p",         "wav", "-o",
                                           *media / "o.wav", "--overwrite", "--progress", "none"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Result result = run(arguments);
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        TestMedia::runFfmpeg({"-i", *media / "o.wav", "-f", "s16le", "-ac", "1", *media / "o.raw"});
        std::ifstream file(*media / "o.raw", std::ios::binary);
        int count = 0;
        std::int16_t last = 0, value = 0;
        while (file.read(reinterpret_cast<char*>(&value), sizeof value)) {
            count += last < 0 && value >= 0 ? 1 : 0;
            last = value;
        }
        return count;
    }
    static std::string madeOf(const std::string& kind, int frames, const std::string& more = {}) {
        return R"({"OTIO_SCHEMA":"Clip.1","name":"made","source_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
               timeOf(0) + R"(,"duration":)" + timeOf(frames) + '}' + more +
               R"(,"media_reference":{"OTIO_SCHEMA":"GeneratorReference.1","generator_kind":")" + kind +
               R"(","parameters":{}}})";
    }
    /// Numbered pictures p.108.png and so on, of which 12 are said to be there.
    static std::string numbered(int first, int frames) {
        return R"({"OTIO_SCHEMA":"Clip.1","name":"seq","source_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
               timeOf(first) + R"(,"duration":)" + timeOf(frames) +
               R"(},"media_reference":{"OTIO_SCHEMA":"ImageSequenceReference.1","target_url_base":".","name_prefix":"p.","name_suffix":".png","start_frame":108,"rate":25,"available_range":{"OTIO_SCHEMA":"TimeRange.1","start_time":)" +
               timeOf(108) + R"(,"duration":)" + timeOf(12) + "}}}";
    }
    static void makeNumbered() {
        TestMedia::runFfmpeg(
            {"-i", *media / "silent.mov", "-frames:v", "12", "-start_number", "108", *media / "p.%d.png"});
    }
};

} // namespace TestCli

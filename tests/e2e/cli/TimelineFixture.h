// SPDX-License-Identifier: GPL-3.0-or-later
// Timelines as text, over media that are made for them.
#pragma once

#include "Program.h"
#include "support/FlashBeep.h"
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace TestCli {

inline std::string timeOf(int frames) {
    return R"({"OTIO_SCHEMA":"RationalTime.1","rate":25,"value":)" + std::to_string(frames) + '}';
}

/// A clip of `media`, all of whose 500 frames are said to be there; without a range of its own where `frames` is 0.
inline std::string clipOf(const std::string& name, const std::string& media, int start, int frames,
                          const std::string& more = {}) {
    const auto range = [](int first, int count) {
        return R"({"OTIO_SCHEMA":"TimeRange.1","start_time":)" + timeOf(first) + R"(,"duration":)" + timeOf(count) +
               '}';
    };
    const std::string told = frames > 0 ? R"(,"source_range":)" + range(start, frames) : std::string();
    const std::string available = frames > 0 ? R"(,"available_range":)" + range(0, 500) : std::string();
    return R"({"OTIO_SCHEMA":"Clip.1","name":")" + name + '"' + told + more +
           R"(,"media_reference":{"OTIO_SCHEMA":"ExternalReference.1","target_url":")" + media + '"' + available + "}}";
}

/// With 50 frames of 25 a second in both.mov and, without sound, silent.mov.
class Timelines : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        media = std::make_unique<TestMedia::Folder>();
        TestMedia::FlashBeep clip;
        clip.frames = 50;
        TestMedia::makeFlashBeep(*media / "both.mov", clip);
        clip.sampleRate = 0;
        TestMedia::makeFlashBeep(*media / "silent.mov", clip);
    }
    static void TearDownTestSuite() { media.reset(); }

    static std::string track(const std::string& kind, const std::string& children) {
        return R"({"OTIO_SCHEMA":"Track.1","name":")" + kind + R"(1","kind":")" + kind + R"(","children":[)" +
               children + "]}";
    }
    static std::string writeTracks(const std::string& tracks, const std::string& name = "cut.otio") {
        std::ofstream(*media / name)
            << R"({"OTIO_SCHEMA":"Timeline.1","name":"My cut","tracks":{"OTIO_SCHEMA":"Stack.1","children":[)" << tracks
            << "]}}";
        return *media / name;
    }
    /// A timeline of a track of pictures and one of sound.
    static std::string write(const std::string& pictures, const std::string& sound,
                             const std::string& name = "cut.otio") {
        return writeTracks(track("Video", pictures) + ',' + track("Audio", sound), name);
    }

    static inline std::unique_ptr<TestMedia::Folder> media;
};

} // namespace TestCli

// SPDX-License-Identifier: GPL-3.0-or-later
// Puts fake media and filters into the engine, and reads streams to their end.
#pragma once

#include "EditorProject/ExportWindow.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "Render/Streams.h"
#include "Types/Time.h"
#include "fakes/project/FakeFilters.h"
#include "fakes/project/FakeMedia.h"
#include <gtest/gtest.h>

namespace Project::Tests {

using Fakes::Contents;
using Rate = boost::rational<long long>;
using Pictures = boost::intrusive_ptr<Kestra::Proc::IStreamVideo>;
using Sound = boost::intrusive_ptr<Kestra::Proc::IStreamAudio>;

/// Samples [first, first + count) of a medium, from `place` of the stream on.
struct Stretch {
    int id;
    std::int64_t place;
    std::int64_t first;
    std::int64_t count;
    friend bool operator==(const Stretch& a, const Stretch& b) {
        return a.id == b.id && a.place == b.place && a.first == b.first && a.count == b.count;
    }
    friend std::ostream& operator<<(std::ostream& out, const Stretch& run) {
        return out << "{" << run.id << " at " << run.place << ": " << run.first << " + " << run.count << "}";
    }
};

class RenderFixture : public ::testing::Test {
protected:
    void SetUp() override {
        Kestra::Core::CoreManager::Instance().SetSourceFactory(media);
        Kestra::Core::CoreManager::Instance().SetFilterFactory(filters);
    }
    void TearDown() override {
        Kestra::Core::CoreManager::Instance().SetSourceFactory(nullptr);
        Kestra::Core::CoreManager::Instance().SetFilterFactory(nullptr);
    }

    /// Clips named "1", "2" ... with the id of their name.
    std::vector<Kestra::ioPath> put(std::vector<Contents> contents) {
        std::vector<Kestra::ioPath> paths;
        for (Contents& one : contents) {
            one.id = static_cast<int>(paths.size()) + 1;
            paths.emplace_back(std::to_string(one.id));
            media->put(paths.back().ToUtf8(), one);
        }
        return paths;
    }
    Render::Sequence timeline(const std::vector<Contents>& contents) {
        return Render::Sequence::ofFiles(put(contents));
    }
    /// Where the medium of that index begins.
    static std::int64_t startOf(const Render::Sequence& sequence, std::size_t index) {
        return sequence.document->tracks->tracks().front().startOf(index).Value();
    }
    static Types::Range milliseconds(std::int64_t start, std::int64_t end) { return {KTime(start), KTime(end)}; }
    /// A rate of 0 means no pictures.
    static ExportWindow window(const Render::Sequence& line, const Types::Range& range, const Rate& rate) {
        const auto grid = rate > 0 ? std::optional(Kestra::FrameGrid(rate)) : std::nullopt;
        return ExportWindow(range, line.document->duration(), grid);
    }
    static Pictures pictures(const Render::Sequence& line, const Rate& rate, const Types::Range& range = {}) {
        return Render::createPictureStream(line, window(line, range, rate), {128, 72, 16, 9});
    }
    static Sound sound(const Render::Sequence& line, int sampleRate, const Rate& pictureRate,
                       const Types::Range& range = {}) {
        Kestra::Conf::SampleInfo format;
        format.Init(Kestra::Conf::SAMPLE_FORMAT_FLTP, sampleRate, Kestra::Conf::CHANNEL_LAYOUT_STEREO);
        return Render::createSoundStream(line, window(line, range, pictureRate), format);
    }
    /// To the end; checks that frame n stands exactly for the nth period.
    static std::vector<int> numbers(const Pictures& stream, const Rate& rate) {
        std::vector<int> found;
        while (const auto frame = stream->ReadVideo()) {
            const auto index = static_cast<std::int64_t>(found.size());
            EXPECT_EQ(frame->GetTime(), Kestra::FramesToTime(index, rate));
            EXPECT_EQ(frame->GetTime() + frame->GetDuration(), Kestra::FramesToTime(index + 1, rate));
            found.push_back(dynamic_cast<const Kestra::Fakes::FakeFrame&>(*frame).GetNumber());
        }
        EXPECT_FALSE(stream->ReadVideo());
        return found;
    }
    /// To the end; checks that blocks follow each other without gap, and joins those that continue one another.
    static std::vector<Stretch> runs(const Sound& stream, int sampleRate) {
        std::vector<Stretch> found;
        std::int64_t place = 0;
        while (const auto data = stream->ReadAudio()) {
            const auto& block = dynamic_cast<const Fakes::TaggedBlock&>(*data);
            EXPECT_EQ(data->GetTime(), Kestra::SamplesToTime(place, sampleRate));
            EXPECT_GT(data->GetSampleCount(), 0);
            Stretch run{block.GetId(), place, block.GetId() == Fakes::SILENCE ? 0 : block.GetFirst(),
                        data->GetSampleCount()};
            place += run.count;
            const bool continues = !found.empty() && found.back().id == run.id &&
                                   (run.id == Fakes::SILENCE || found.back().first + found.back().count == run.first);
            if (continues)
                found.back().count += run.count;
            else
                found.push_back(run);
        }
        EXPECT_FALSE(stream->ReadAudio());
        return found;
    }
    static std::int64_t total(const std::vector<Stretch>& all) {
        return all.empty() ? 0 : all.back().place + all.back().count;
    }
    static std::vector<int> range(int first, int count) {
        std::vector<int> all;
        for (int i = 0; i < count; ++i)
            all.push_back(first + i);
        return all;
    }

    std::shared_ptr<Fakes::FakeSourceFactory> media = std::make_shared<Fakes::FakeSourceFactory>();
    std::shared_ptr<Fakes::FakeFilterFactory> filters = std::make_shared<Fakes::FakeFilterFactory>();
};

} // namespace Project::Tests

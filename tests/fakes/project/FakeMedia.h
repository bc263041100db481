// SPDX-License-Identifier: GPL-3.0-or-later
// Media files that exist in memory only, for the timeline.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/ISourceFactory.h"
#include "fakes/kestra/FakeData.h"
#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace Project::Fakes {

/// A sound track beside the first one.
struct FurtherSound {
    std::int64_t samples = 0;
    std::int64_t origin = 0; ///< where the medium's time 0 lies when this is its main sound
};

/// A medium's contents. Track 0 is its picture, track 1 its sound, the further sounds those behind; the samples of
/// track n carry `id` + 1000 * (n - 1). Its frame n has the number `id` * 100000 + n, its samples carry `id` and their
/// place.
struct Contents {
    int id = 0;
    int frames = 0; ///< 0: no picture
    boost::rational<long long> rate = 25;
    std::int64_t samples = 0; ///< 0: no sound
    int sampleRate = 48000;
    std::int32_t sampleFormat = Kestra::Conf::SAMPLE_FORMAT_S16;
    bool brokenPicture = false; ///< announced, but nothing can be read
    bool still = false;         ///< the picture is said to have no length of its own
    bool transparent = false;
    std::int64_t duration = 0; ///< 0: the longer of the two
    std::vector<FurtherSound> furtherSounds{};
};

/// Counts streams that exist at a time; shared by everything that one factory makes.
struct StreamCount {
    std::atomic<int> alive{0};
    std::atomic<int> most{0};
    std::atomic<int> created{0};
    std::atomic<int> among{0}; ///< of so many the last one with pictures was said to be

    void enter() {
        ++created;
        const int now = ++alive;
        for (int seen = most; now > seen && !most.compare_exchange_weak(seen, now);) {
        }
    }
    void leave() { --alive; }
};

/// A block of samples [first, first + count) of a medium's sound; id -1 is silence.
class TaggedBlock : public Kestra::Proc::IDataAudio, public Kestra::RefCountImpl {
public:
    TaggedBlock(int id, std::int64_t first, std::int64_t count, int rate);

    int GetId() const { return id; }
    std::int64_t GetFirst() const { return first; }
    std::int64_t GetTime() const override { return time; }
    void SetTime(std::int64_t value) override { time = value; }
    std::int64_t GetDuration() const override { return duration; }
    void SetDuration(std::int64_t value) override { duration = value; }
    std::size_t GetByteSize() const override { return static_cast<std::size_t>(count) * 4; }
    std::int64_t GetSampleCount() const override { return count; }
    int GetSampleRate() const override { return rate; }
    boost::intrusive_ptr<IDataAudio> Slice(std::int64_t offset, std::int64_t length) const override;

private:
    int id;
    std::int64_t first;
    std::int64_t count;
    int rate;
    std::int64_t time;
    std::int64_t duration;
};

boost::intrusive_ptr<Kestra::Proc::IStreamVideo> makePictures(const Contents& contents,
                                                              std::shared_ptr<StreamCount> count = {});
boost::intrusive_ptr<Kestra::Proc::IStreamAudio> makeSound(const Contents& contents,
                                                           std::shared_ptr<StreamCount> count = {});

class FakeMedia : public Kestra::Proc::IMediaSource, public Kestra::RefCountImpl {
public:
    FakeMedia(Kestra::ioPath path, const Contents& contents, std::shared_ptr<StreamCount> count,
              const Kestra::Proc::TrackChoice& choice = {});

    const Kestra::ioPath& GetPath() const override { return path; }
    const Kestra::Proc::MediaInfo& GetInfo() const override { return info; }
    boost::intrusive_ptr<Kestra::Proc::IStreamVideo> CreateVideoStream() override {
        return makePictures(contents, count);
    }
    boost::intrusive_ptr<Kestra::Proc::IStreamVideo> CreateVideoStreamAmong(int streams) override {
        count->among = streams;
        return CreateVideoStream();
    }
    boost::intrusive_ptr<Kestra::Proc::IStreamAudio> CreateAudioStream() override { return makeSound(heard, count); }
    std::vector<Kestra::Proc::DamageReport> TakeDamageReports() override;
    std::vector<Kestra::Proc::SourceNote> TakeNotes() override;
    bool IsBeingRead() const override { return false; }
    void Note(const std::string&) override {}

private:
    void listTracks();

    Kestra::ioPath path;
    Contents contents;
    Contents heard; ///< as of the main sound
    Kestra::Proc::MediaInfo info;
    std::shared_ptr<StreamCount> count;
};

/// Knows the media that a test has put in; refuses every other path as not found.
class FakeSourceFactory : public Kestra::Proc::ISourceFactory {
public:
    void put(const std::string& path, const Contents& contents) { media[path] = contents; }
    int opened() const { return openings; }
    /// That were made of tracks, in their order.
    const std::vector<Kestra::Proc::TrackChoice>& choices() const { return chosen; }
    StreamCount& streams() { return *count; }

    boost::intrusive_ptr<Kestra::Proc::IMediaSource> OpenMedia(const Kestra::ioPath& path,
                                                               const std::atomic<bool>* interrupted,
                                                               const Kestra::Proc::MediaLimits& limits,
                                                               const Kestra::Proc::TrackChoice& choice) override;

private:
    std::map<std::string, Contents> media;
    std::shared_ptr<StreamCount> count = std::make_shared<StreamCount>();
    int openings = 0;
    std::vector<Kestra::Proc::TrackChoice> chosen;
};

} // namespace Project::Fakes

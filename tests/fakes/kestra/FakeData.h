// SPDX-License-Identifier: GPL-3.0-or-later
// Frames, blocks of samples and packets without contents.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IDataAudio.h"
#include "Kestra/Proc/IDataRaw.h"
#include "Kestra/Proc/IDataVideo.h"
#include <memory>
#include <vector>

namespace Kestra::Fakes {

/// `number` tells frames apart, also after their times have changed.
class FakeFrame : public Proc::IDataVideo, public RefCountImpl {
public:
    FakeFrame(int number, std::int64_t time, std::int64_t duration, Conf::FrameInfo info = {})
        : number(number)
        , time(time)
        , duration(duration)
        , info(info) {}

    int GetNumber() const { return number; }

    std::int64_t GetTime() const override { return time; }
    void SetTime(std::int64_t value) override { time = value; }
    std::int64_t GetDuration() const override { return duration; }
    void SetDuration(std::int64_t value) override { duration = value; }
    std::size_t GetByteSize() const override { return std::size_t{4} * info.width * info.height; }
    Conf::FrameInfo GetFrameInfo() const override { return info; }
    Conf::PixelFormat GetPixelFormat() const override { return Conf::PixelFormat::YUV420P; }
    boost::intrusive_ptr<IDataVideo> Share() const override { return new FakeFrame(number, time, duration, info); }

private:
    int number;
    std::int64_t time;
    std::int64_t duration;
    Conf::FrameInfo info;
};

class FakeBlock : public Proc::IDataAudio, public RefCountImpl {
public:
    FakeBlock(std::int64_t time, std::int64_t samples, int rate);

    std::int64_t GetTime() const override { return time; }
    void SetTime(std::int64_t value) override { time = value; }
    std::int64_t GetDuration() const override { return duration; }
    void SetDuration(std::int64_t value) override { duration = value; }
    std::size_t GetByteSize() const override { return static_cast<std::size_t>(samples) * 8; }
    std::int64_t GetSampleCount() const override { return samples; }
    int GetSampleRate() const override { return rate; }
    boost::intrusive_ptr<IDataAudio> Slice(std::int64_t offset, std::int64_t count) const override;

private:
    std::int64_t time;
    std::int64_t duration;
    std::int64_t samples;
    int rate;
};

/// The bytes are all zero. Holds `lifeToken` while it lives, so that a test can count packets by its use count.
class FakePacket : public Proc::IDataRaw, public RefCountImpl {
public:
    FakePacket(std::int64_t time, std::int64_t duration, std::size_t size, std::shared_ptr<void> lifeToken = {});

    std::int64_t GetTime() const override { return time; }
    void SetTime(std::int64_t value) override { time = value; }
    std::int64_t GetDuration() const override { return duration; }
    void SetDuration(std::int64_t value) override { duration = value; }
    std::size_t GetByteSize() const override { return bytes->size(); }
    std::int64_t GetDecodeTime() const override { return decodeTime; }
    void SetDecodeTime(std::int64_t value) override { decodeTime = value; }
    bool IsKeyframe() const override { return true; }
    const std::uint8_t* GetBytes() const override { return bytes->data(); }
    std::size_t GetSize() const override { return bytes->size(); }
    std::int64_t GetTrimStart() const override { return trimStart; }
    std::int64_t GetTrimEnd() const override { return trimEnd; }
    void SetTrim(std::int64_t start, std::int64_t end) override;
    boost::intrusive_ptr<IDataRaw> Share() const override;

private:
    std::int64_t time;
    std::int64_t decodeTime;
    std::int64_t duration;
    std::int64_t trimStart = 0;
    std::int64_t trimEnd = 0;
    std::shared_ptr<const std::vector<std::uint8_t>> bytes;
    std::shared_ptr<void> lifeToken;
};

} // namespace Kestra::Fakes

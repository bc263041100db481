// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::FakeStreamVideo: numbered frames of a constant rate.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IStreamVideo.h"
#include "fakes/kestra/FakeData.h"
#include "fakes/kestra/Script.h"
#include <atomic>

namespace Kestra::Fakes {

/// Calls in its script: "Initialize", "Seek <time>", "Interrupt", "Prepare", "Reset", "ReadVideo <number>".
/// Interrupt opens the script's gates; from then to Reset every read throws Interrupted.
class FakeStreamVideo : public Proc::IStreamVideo, public RefCountImpl {
public:
    using Rational = boost::rational<long long>;

    explicit FakeStreamVideo(int frames, Rational rate = 25, Conf::FrameInfo info = {64, 36, 16, 9},
                             std::shared_ptr<Script> script = std::make_shared<Script>());

    const std::shared_ptr<Script>& GetScript() const { return script; }
    void SetSeekable(bool value) { seekable = value; }
    void SetDurationKnown(bool value) { durationKnown = value; }

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override { return settings; }
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadVideo(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override;
    bool IsSeekable() const override { return seekable; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override { GetFormatCodecBase(format); }
    std::string Describe() const override { return "fake video"; }
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

private:
    std::int64_t TimeOf(int number) const;

    const int frames;
    const Rational rate;
    const Conf::FrameInfo info;
    const std::shared_ptr<Script> script;
    Core::Property settings;
    bool seekable = true;
    bool durationKnown = true;
    int next = 0;
    std::atomic<bool> interrupted{false};
};

} // namespace Kestra::Fakes

// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::RecordingVideo: tells of every operation with all its arguments.
#pragma once

#include "fakes/kestra/CallLog.h"
#include "fakes/kestra/FakeStreamVideo.h"

namespace Kestra::Fakes {

/// Frames are a FakeStreamVideo's. Calls in its log: the operation's name, with its arguments for Seek and
/// PreferFormat.
class RecordingVideo final : public FakeStreamVideo {
public:
    explicit RecordingVideo(int frames, std::shared_ptr<CallLog> log = std::make_shared<CallLog>())
        : FakeStreamVideo(frames)
        , log(std::move(log)) {}

    CallLog& GetLog() const { return *log; }
    /// The next read throws it.
    void ThrowNext(std::exception_ptr error) { next = std::move(error); }
    void SetDescription(std::string text) { description = std::move(text); }

    boost::intrusive_ptr<Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<Proc::IData> ReadData() override;
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override;
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override;
    bool IsSeekable() const override;
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::string Describe() const override;
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

private:
    const std::shared_ptr<CallLog> log;
    std::exception_ptr next;
    std::string description = "recorded";
};

} // namespace Kestra::Fakes

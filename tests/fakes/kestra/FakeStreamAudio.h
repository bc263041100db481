// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::FakeStreamAudio: silent blocks of a constant length.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "fakes/kestra/FakeData.h"
#include "fakes/kestra/Script.h"
#include <atomic>

namespace Kestra::Fakes {

/// Calls in its script: "Initialize", "Seek <time>", "Interrupt", "Prepare", "Reset", "ReadAudio <first sample>".
/// Interrupt opens the script's gates; from then to Reset every read throws Interrupted.
class FakeStreamAudio : public Proc::IStreamAudio, public RefCountImpl {
public:
    explicit FakeStreamAudio(std::int64_t samples, int rate = 48000, std::int64_t blockSize = 1024,
                             std::shared_ptr<Script> script = std::make_shared<Script>());

    const std::shared_ptr<Script>& GetScript() const { return script; }

    boost::intrusive_ptr<Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Conf::IFormatCodecAudio>& format) const override;
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override { return settings; }
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadAudio(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override;
    bool IsSeekable() const override { return true; }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override { GetFormatCodecBase(format); }
    std::string Describe() const override { return "fake audio"; }
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

private:
    const std::int64_t samples;
    const int rate;
    const std::int64_t blockSize;
    const std::shared_ptr<Script> script;
    Core::Property settings;
    std::int64_t next = 0;
    std::atomic<bool> interrupted{false};
};

} // namespace Kestra::Fakes

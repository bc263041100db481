// SPDX-License-Identifier: GPL-3.0-or-later
// Engine streams that only exist and are counted.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IStreamAudio.h"
#include "Kestra/Proc/IStreamVideo.h"

class FakeVideoRead : public Kestra::Proc::IStreamVideo {
public:
    boost::intrusive_ptr<Kestra::Proc::IDataVideo> ReadVideo() override { return nullptr; }
    void GetVideoFormat(boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo>&) const override {}
};

class FakeAudioRead : public Kestra::Proc::IStreamAudio {
public:
    boost::intrusive_ptr<Kestra::Proc::IDataAudio> ReadAudio() override { return nullptr; }
    void GetAudioFormat(boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio>&) const override {}
};

template <class Read>
class FakeStream : public Read, public Kestra::RefCountImpl {
public:
    void Initialize(const Kestra::Core::Property&) override {}
    Kestra::Core::Property GetSettings() const override { return {}; }
    std::int64_t GetDuration() const override { return 0; }
    std::int64_t GetPosition() const override { return 0; }
    boost::intrusive_ptr<Kestra::Proc::IData> ReadData() override { return nullptr; }
    void Seek(std::int64_t, Kestra::Proc::SeekMode) override {}
    void Interrupt() override {}
    bool IsSeekable() const override { return false; }
    void GetFormatCodec(boost::intrusive_ptr<Kestra::Conf::IFormatCodec>&) const override {}
    std::string Describe() const override { return "nothing"; }
    void PreferFormat(const Kestra::Conf::IFormatCodec&) override {}
    void Prepare() override {}
    void Reset() override {}
};

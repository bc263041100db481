// SPDX-License-Identifier: GPL-3.0-or-later
// Decorators of what writes: encoders with their packet sources, muxers, data outputs.
#pragma once

#include "Kestra/Core/IDataOutput.h"
#include "Kestra/Proc/IEncoder.h"
#include "Kestra/Proc/IMuxer.h"
#include "fakes/counting/CountedStreams.h"

namespace Kestra::Fakes {

class CountedPacketSource final : public Proc::IPacketSource, public RefCountImpl {
public:
    CountedPacketSource(boost::intrusive_ptr<Proc::IPacketSource> inner, Counter counter, std::string name);

    void Prepare() override;
    boost::intrusive_ptr<Proc::IDataRaw> ReadPacket() override;
    void GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void AlignTo(std::int64_t start, std::int64_t end) override;
    void RunBesideOthers() override { inner->RunBesideOthers(); }
    void Interrupt() override { inner->Interrupt(); }
    void Reset() override;
    std::string Describe() const override;
    /// Counted under the same name.
    std::vector<boost::intrusive_ptr<Proc::IPacketSource>> GetFurtherTracks() const override;

private:
    void Call(const char* method) const { counter->Call(name + '.' + method); }

    const boost::intrusive_ptr<Proc::IPacketSource> inner;
    const Counter counter;
    const std::string name;
};

/// Its packets come through a counted source, so that what is assigned onto it counts too.
class CountedEncoder final : public Proc::IEncoder, public RefCountImpl {
public:
    CountedEncoder(const boost::intrusive_ptr<Proc::IEncoder>& inner, const Counter& counter, const std::string& name);

    boost::intrusive_ptr<Proc::IDataRaw> ReadRaw() override;
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    boost::intrusive_ptr<Proc::IData> ReadData() override { return ReadRaw(); }
    void Seek(std::int64_t time, Proc::SeekMode mode) override;
    void Interrupt() override { packetSource->Interrupt(); }
    bool IsSeekable() const override;
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::string Describe() const override;
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

private:
    void Call(const char* method) const { counter->Call(name + '.' + method); }

    const boost::intrusive_ptr<Proc::IEncoder> inner;
    const Counter counter;
    const std::string name;
};

class CountedMuxer final : public Proc::IMuxer, public RefCountImpl {
public:
    CountedMuxer(boost::intrusive_ptr<Proc::IMuxer> inner, Counter counter);

    int AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& format) override;
    void Open() override;
    void Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) override;
    void Finish() override;
    void Abort() noexcept override { inner->Abort(); }

private:
    const boost::intrusive_ptr<Proc::IMuxer> inner;
    const Counter counter;
};

class CountedDataOutput final : public Core::IDataOutput, public RefCountImpl {
public:
    CountedDataOutput(boost::intrusive_ptr<Core::IDataOutput> inner, Counter counter);

    void Open() override;
    void Write(const void* bytes, std::size_t size) override;
    void Seek(std::int64_t offset) override;
    std::int64_t GetPosition() const override;
    std::int64_t GetSize() const override;
    void Close() override;
    void Abort() noexcept override { inner->Abort(); }
    const ioPath& GetPath() const override { return inner->GetPath(); }

private:
    void Call(const char* method) const;

    const boost::intrusive_ptr<Core::IDataOutput> inner;
    const Counter counter;
};

} // namespace Kestra::Fakes

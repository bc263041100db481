// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::FakePacketSource: packets by plan, or one for each piece of a stream.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Base/Time.h"
#include "Kestra/Proc/IPacketSource.h"
#include "Kestra/Proc/IStream.h"
#include "fakes/kestra/Script.h"
#include <atomic>
#include <utility>
#include <vector>

namespace Kestra::Fakes {

/// How many packets, and what each is like.
struct PacketPlan {
    int count = 10;
    std::int64_t period = TIME_BASE / 25; ///< each packet's duration and distance to the next
    std::size_t size = 100;
    bool sound = false; ///< what GetFormat describes
    /// What GetDuration says; TIME_UNKNOWN is one answer. Unset: count periods.
    std::int64_t saidDuration = -1;
    /// Held by every packet of the plan.
    std::shared_ptr<void> lifeToken;
};

/// Calls in its script: "Prepare", "ReadRaw <number>", "GetDuration", "AlignTo <start> <end>", "RunBesideOthers",
/// "Interrupt", "Reset". Interrupt opens the script's gates, unless it is stubborn; from then to Reset every read
/// throws Interrupted.
class FakePacketSource : public Proc::IPacketSource, public RefCountImpl {
public:
    FakePacketSource(PacketPlan plan, std::shared_ptr<Script> script);
    /// Reads `stream` and gives a packet of 100 bytes for each piece of it, with its times.
    FakePacketSource(boost::intrusive_ptr<Proc::IStream> stream, std::shared_ptr<Script> script);

    /// Before anybody asks for its further tracks.
    void AddFurtherTrack(boost::intrusive_ptr<Proc::IPacketSource> track) { further.push_back(std::move(track)); }
    /// Blocked reads then outlast an interruption; the test opens the gates itself.
    void SetStubborn(bool value) { stubborn = value; }

    void Prepare() override;
    boost::intrusive_ptr<Proc::IDataRaw> ReadPacket() override;
    void GetFormat(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override { return position; }
    void AlignTo(std::int64_t start, std::int64_t end) override;
    void RunBesideOthers() override { script->Call("RunBesideOthers"); }
    void Interrupt() override;
    void Reset() override;
    std::string Describe() const override { return "fake packets"; }
    std::vector<boost::intrusive_ptr<Proc::IPacketSource>> GetFurtherTracks() const override { return further; }

private:
    boost::intrusive_ptr<Proc::IDataRaw> MakePlanned();
    boost::intrusive_ptr<Proc::IDataRaw> MakeFromStream();

    const PacketPlan plan;
    const boost::intrusive_ptr<Proc::IStream> stream;
    const std::shared_ptr<Script> script;
    std::vector<boost::intrusive_ptr<Proc::IPacketSource>> further;
    int next = 0;
    std::int64_t position = 0;
    std::atomic<bool> interrupted{false};
    std::atomic<bool> stubborn{false};
};

} // namespace Kestra::Fakes

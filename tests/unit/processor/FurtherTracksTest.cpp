// SPDX-License-Identifier: GPL-3.0-or-later
// Further tracks of an encoder: they run beside those that a processor was given, and count like them.
#include "ProcessorFixture.h"
#include "fakes/kestra/FakePacketSource.h"

namespace Kestra::Proc {
namespace {

using Events = CallLog::Calls;
using Fakes::FakePacketSource;

/// The sound has two further tracks, whose calls have "second:" and "third:" before them.
class FurtherTracks : public ProcessorFixture {
protected:
    void LaunchAll() {
        boost::intrusive_ptr<FakeEncoder> pictures(new FakeEncoder(videoPlan, video));
        boost::intrusive_ptr<FakeEncoder> sound(new FakeEncoder(audioPlan, audio));
        sound->AddFurtherTrack(new FakePacketSource(audioPlan, second));
        sound->AddFurtherTrack(new FakePacketSource(audioPlan, third));
        output.reset(new FakeMuxer(muxer));
        processor = CreateStreamProcessor({pictures, sound}, output);
        processor->SetEventsReceiver(&events);
        processor->Initialize();
        processor->Start();
    }
    void RunAllToEnd() {
        LaunchAll();
        ASSERT_TRUE(events.WaitForEnd());
        Release();
    }

    std::shared_ptr<Script> second = std::make_shared<Script>(log, "second:");
    std::shared_ptr<Script> third = std::make_shared<Script>(log, "third:");
};

TEST_F(FurtherTracks, AreWrittenBehindTheOthersToTheirLastPacket) {
    RunAllToEnd();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
    std::vector<int> packets(4);
    for (const FakeMuxer::Written& one : output->GetWritten())
        ++packets.at(static_cast<std::size_t>(one.index));
    EXPECT_EQ(packets, (std::vector<int>{10, 10, 10, 10}));
    EXPECT_TRUE(log->Contains("muxer:AddStream 3"));
}

TEST_F(FurtherTracks, AreResetPreparedAndToldThatTheyAreSeveral) {
    RunAllToEnd();
    for (const std::string track : {"second:", "third:"}) {
        EXPECT_LT(IndexOf(track + "Reset"), IndexOf(track + "RunBesideOthers"));
        EXPECT_LT(IndexOf(track + "RunBesideOthers"), IndexOf(track + "Prepare"));
        EXPECT_LT(IndexOf(track + "Prepare"), IndexOf("muxer:AddStream 0"));
    }
}

TEST_F(FurtherTracks, ThatFailFailTheRun) {
    third->ThrowAt("ReadRaw 5", Failure("planned failure"));
    RunAllToEnd();
    EXPECT_EQ(ErrorText(), "planned failure");
    EXPECT_EQ(events.GetMainEvents().back(), "onError");
    EXPECT_FALSE(log->Contains("muxer:Finish"));
    EXPECT_TRUE(log->Contains("second:Interrupt"));
}

TEST_F(FurtherTracks, AreInterruptedByAStop) {
    const auto gate = third->BlockAt("ReadRaw 5");
    events.GetScript().At("onStarted", [this] {
        processor->Stop();
        processor->Discard();
    });
    LaunchAll();
    ASSERT_TRUE(events.WaitForEnd());
    Release();
    EXPECT_EQ(events.GetMainEvents(), (Events{"onStarted", "onFinished"}));
    EXPECT_TRUE(log->Contains("third:Interrupt"));
}

TEST_F(FurtherTracks, HoldTheProgressBackWhereTheyAreTheSlowest) {
    const auto gate = third->BlockAt("ReadRaw 2");
    LaunchAll();
    ASSERT_TRUE(gate->WaitUntilReached());
    ASSERT_TRUE(log->WaitForCall("muxer:Write 7")) << "two packets of each";
    ASSERT_FALSE(events.GetProgress().empty());
    for (const auto& one : events.GetProgress())
        EXPECT_LE(one.position, 2 * audioPlan.period);
    gate->Open();
    ASSERT_TRUE(events.WaitForEnd());
}

} // namespace
} // namespace Kestra::Proc

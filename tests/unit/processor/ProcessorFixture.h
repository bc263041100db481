// SPDX-License-Identifier: GPL-3.0-or-later
// One stream processor over two fake encoders and a fake muxer.
#pragma once

#include "Kestra/Proc/IStreamProcessor.h"
#include "fakes/kestra/EventRecorder.h"
#include "fakes/kestra/FakeEncoder.h"
#include "fakes/kestra/FakeMuxer.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>

namespace Kestra::Proc {

using Fakes::CallLog;
using Fakes::EventRecorder;
using Fakes::FakeEncoder;
using Fakes::FakeMuxer;
using Fakes::PacketPlan;
using Fakes::Script;

/// The encoders' and the muxer's calls are in `log`, with "video:", "audio:" and "muxer:" before them. Nobody but the
/// processor holds the encoders.
class ProcessorFixture : public testing::Test {
protected:
    ProcessorFixture() { audioPlan.sound = true; }

    void Make() {
        boost::intrusive_ptr<FakeEncoder> videoEncoder(new FakeEncoder(videoPlan, video));
        boost::intrusive_ptr<FakeEncoder> audioEncoder(new FakeEncoder(audioPlan, audio));
        videoEncoder->SetStubborn(stubborn);
        audioEncoder->SetStubborn(stubborn);
        if (withMuxer) {
            output.reset(new FakeMuxer(muxer));
        }
        processor = CreateStreamProcessor({videoEncoder, audioEncoder}, output);
        processor->SetEventsReceiver(&events);
    }

    void Launch() {
        Make();
        processor->Initialize();
        processor->Start();
    }

    void RunToEnd() {
        Launch();
        ASSERT_TRUE(events.WaitForEnd());
    }

    /// Releases the processor: after it nothing of the run moves any more.
    void Release() { processor.reset(); }

    std::size_t IndexOf(const std::string& call) const {
        const CallLog::Calls calls = log->Get();
        const auto found = std::find(calls.begin(), calls.end(), call);
        EXPECT_NE(found, calls.end()) << call << " was not called";
        return static_cast<std::size_t>(found - calls.begin());
    }

    static std::exception_ptr Failure(const std::string& text) {
        return std::make_exception_ptr(std::runtime_error(text));
    }

    std::string ErrorText() const {
        try {
            if (events.GetError()) {
                std::rethrow_exception(events.GetError());
            }
        } catch (const std::exception& error) {
            return error.what();
        } catch (...) {
            return "not a std::exception";
        }
        return "no error";
    }

    std::shared_ptr<CallLog> log = std::make_shared<CallLog>();
    std::shared_ptr<Script> video = std::make_shared<Script>(log, "video:");
    std::shared_ptr<Script> audio = std::make_shared<Script>(log, "audio:");
    std::shared_ptr<Script> muxer = std::make_shared<Script>(log, "muxer:");
    PacketPlan videoPlan;
    PacketPlan audioPlan;
    bool withMuxer = true;
    bool stubborn = false;
    EventRecorder events;
    boost::intrusive_ptr<FakeMuxer> output;
    boost::intrusive_ptr<IStreamProcessor> processor;
};

} // namespace Kestra::Proc

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Export/CreateStreamProcessingHelper.h"
#include "fakes/kestra/FakeEncoder.h"
#include "fakes/kestra/FakeMuxer.h"
#include "fakes/processors/FakeProcessorFactory.h"
#include "support/WaitUntil.h"
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using Kestra::Fakes::CallLog;
using Kestra::Fakes::FakeProcessor;
using Kestra::Fakes::FakeProcessorFactory;
using Signals = std::vector<std::string>;

/// A runner over fake processors, and what it has emitted.
class Runner : public ::testing::Test {
protected:
    Runner() { make(); }

    void make(int passMode = 0) {
        runner = Export::createStreamProcessingHelper(passMode, videoFactory(), audioFactory(), muxerFactory(),
                                                      QStringLiteral("/dev/null/nowhere"));
        if (runner)
            listen(*runner);
    }

    void listen(Export::IStreamProcessingHelper& helper) {
        using Helper = Export::IStreamProcessingHelper;
        QObject::connect(&helper, &Helper::started, &helper, [this] { note("started"); });
        QObject::connect(&helper, &Helper::stopped, &helper, [this] { note("stopped"); });
        QObject::connect(&helper, &Helper::progressChanged, &helper, [this](int percent, KTime remaining) {
            note("progress " + std::to_string(percent) + " " + std::to_string(remaining.count()));
        });
        QObject::connect(&helper, &Helper::startFailed, &helper,
                         [this](std::exception_ptr error) { note("startFailed " + textOf(error)); });
        QObject::connect(&helper, &Helper::processingFailed, &helper,
                         [this](std::exception_ptr error) { note("processingFailed " + textOf(error)); });
    }

    void note(const std::string& emitted) {
        emissions.push_back(emitted);
        if (onSignal)
            onSignal(emitted);
    }

    Export::EncoderFactory videoFactory() {
        return [this] { return encoder("video encoder"); };
    }
    Export::EncoderFactory audioFactory() {
        return [this] { return encoder("audio encoder"); };
    }
    Export::MuxerFactory muxerFactory() {
        return [this] {
            processors.GetLog().Add("muxer");
            lastMuxer = new Kestra::Fakes::FakeMuxer;
            return lastMuxer;
        };
    }
    boost::intrusive_ptr<Kestra::Proc::IEncoder> encoder(const std::string& name) {
        processors.GetLog().Add(name);
        encoders.push_back(new Kestra::Fakes::FakeEncoder);
        return encoders.back();
    }

    static std::string textOf(const std::exception_ptr& error) {
        try {
            std::rethrow_exception(error);
        } catch (const std::exception& exception) {
            return exception.what();
        } catch (...) {
            return "foreign";
        }
    }

    FakeProcessor& processor() { return processors.GetLast(); }
    CallLog::Calls calls() { return processors.GetLog().Get(); }

    /// Plays events on the engine's thread and lets the runner hear them.
    void play(const std::vector<FakeProcessor::Event>& events) {
        playUnheard(events);
        TestSupport::turnEventLoop();
    }
    /// The same up to the door of the runner's thread.
    void playUnheard(const std::vector<FakeProcessor::Event>& events) {
        for (const auto& event : events)
            processor().Emit(event);
        processor().WaitUntilDelivered();
    }

    FakeProcessorFactory processors;
    std::vector<boost::intrusive_ptr<Kestra::Proc::IEncoder>> encoders;
    boost::intrusive_ptr<Kestra::Proc::IMuxer> lastMuxer;
    Signals emissions;
    std::function<void(const std::string&)> onSignal;
    std::unique_ptr<Export::IStreamProcessingHelper> runner;
};

#include "component/transcoder/TranscoderFixture.h"
#include "support/Golden.h"
#include <stdexcept>

namespace {

constexpr std::int64_t SECOND = 705'600'000;

FakeProcessor::Event progress(int percent, int elapsedSeconds, int remainingSeconds) {
    return FakeProcessor::Progress(percent, percent * SECOND / 10, 10 * SECOND, elapsedSeconds, remainingSeconds);
}

} // namespace

/// One export after another, from the making of the transcoder to its end. All that happens is added to one list on
/// this thread, as it happens.
class TranscoderTrace : public TranscoderTest {
protected:
    TranscoderTrace() {
        transcoder.reset();
        calls->Clear();
        bus.onMessage = [this](const std::string& message) { calls->Add(message); };
        onSignal = [this](const std::string& emitted) { calls->Add("signal " + emitted); };
        log.onLine = [this](const TestSupport::LogLine& line) {
            calls->Add("log " + line.severity + ' ' + line.file + ':' + std::to_string(line.tag) + ' ' + line.text);
        };
    }
    ~TranscoderTrace() override {
        log.onLine = nullptr;
        onSignal = nullptr;
        bus.onMessage = nullptr;
    }

    void step(const std::string& name) { calls->Add("-- " + name); }

    void beginExport() {
        step("construct");
        transcoder = makeTranscoder();
        step("initialize");
        initialize();
        step("build streams");
        model.buildStreams(videoStream, audioStream);
        step("event loop");
        TestSupport::turnEventLoop();
    }

    void endExport() {
        step("destroy");
        transcoder.reset();
        step("end");
    }

    std::string trace() const {
        std::string text;
        for (const auto& line : calls->Get())
            text += line + '\n';
        return text;
    }
    std::string kept(const std::string& name) const {
        return TestSupport::keptText(std::string(GOLDEN_FOLDER) + '/' + name, trace());
    }
};

TEST_F(TranscoderTrace, OfACompleteExportIsAsKept) {
    beginExport();
    step("engine runs");
    play({FakeProcessor::Started(), progress(0, 0, -1), progress(50, 5, 5), progress(100, 10, 0),
          FakeProcessor::Finished()});
    endExport();
    EXPECT_EQ(trace(), kept("complete-export.txt"));
}

TEST_F(TranscoderTrace, OfAStoppedExportIsAsKept) {
    beginExport();
    step("engine runs");
    play({FakeProcessor::Started(), progress(20, 2, 8)});
    step("stop");
    transcoder->stop();
    processor().WaitUntilDelivered();
    step("event loop");
    TestSupport::turnEventLoop();
    endExport();
    EXPECT_EQ(trace(), kept("stopped-export.txt"));
}

TEST_F(TranscoderTrace, OfAFailedExportIsAsKept) {
    beginExport();
    step("engine fails");
    play({FakeProcessor::Started(), FakeProcessor::Error(std::make_exception_ptr(std::runtime_error("cable cut")))});
    endExport();
    EXPECT_EQ(trace(), kept("failed-export.txt"));
}

// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::FakeProcessorFactory: stands in for Proc::CreateStreamProcessor.
#pragma once

#include "fakes/kestra/FakeProcessor.h"

namespace Kestra::Fakes {

/// A program that links this library calls its CreateStreamProcessor, also from within the product's shared libraries:
/// the definition in the program comes first. Exactly one factory must live when that is called. Thread-bound.
class FakeProcessorFactory {
public:
    struct Made {
        std::vector<boost::intrusive_ptr<Proc::IStream>> streams;
        boost::intrusive_ptr<Proc::IMuxer> muxer;
        FakeProcessor* processor; ///< not held, so that its end is the product's affair
    };
    using Preparation = std::function<void(FakeProcessor& processor)>;

    /// Records "CreateStreamProcessor"; the processors share the log.
    explicit FakeProcessorFactory(std::shared_ptr<CallLog> log = std::make_shared<CallLog>());
    ~FakeProcessorFactory();
    FakeProcessorFactory(const FakeProcessorFactory&) = delete;
    FakeProcessorFactory& operator=(const FakeProcessorFactory&) = delete;

    /// Scripts every processor that is made from now on.
    void Prepare(Preparation newPreparation) { preparation = std::move(newPreparation); }
    /// What the next call throws, after it has been recorded.
    void ThrowNext(std::exception_ptr error) { nextError = std::move(error); }

    const std::vector<Made>& GetMade() const { return made; }
    FakeProcessor& GetLast() const { return *made.back().processor; }
    /// Lets go of the streams and muxers of the processors so far.
    void Forget() { made.clear(); }
    CallLog& GetLog() { return *log; }

    boost::intrusive_ptr<Proc::IStreamProcessor> Make(const std::vector<boost::intrusive_ptr<Proc::IStream>>& streams,
                                                      const boost::intrusive_ptr<Proc::IMuxer>& muxer);

private:
    std::shared_ptr<CallLog> log;
    Preparation preparation;
    std::exception_ptr nextError;
    std::vector<Made> made;
};

} // namespace Kestra::Fakes

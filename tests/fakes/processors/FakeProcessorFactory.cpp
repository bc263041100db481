// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/processors/FakeProcessorFactory.h"

#include <stdexcept>
#include <utility>

namespace Kestra {

namespace {

Fakes::FakeProcessorFactory* current = nullptr;

} // namespace

namespace Fakes {

FakeProcessorFactory::FakeProcessorFactory(std::shared_ptr<CallLog> callLog)
    : log(std::move(callLog)) {
    current = this;
}

FakeProcessorFactory::~FakeProcessorFactory() {
    current = nullptr;
}

boost::intrusive_ptr<Proc::IStreamProcessor>
FakeProcessorFactory::Make(const std::vector<boost::intrusive_ptr<Proc::IStream>>& streams,
                           const boost::intrusive_ptr<Proc::IMuxer>& muxer) {
    log->Add("CreateStreamProcessor");
    if (nextError) {
        std::rethrow_exception(std::exchange(nextError, nullptr));
    }
    const boost::intrusive_ptr<FakeProcessor> processor(new FakeProcessor(log));
    if (preparation) {
        preparation(*processor);
    }
    made.push_back({streams, muxer, processor.get()});
    return processor;
}

} // namespace Fakes

boost::intrusive_ptr<Proc::IStreamProcessor>
Proc::CreateStreamProcessor(const std::vector<boost::intrusive_ptr<IStream>>& streams,
                            const boost::intrusive_ptr<IMuxer>& muxer) {
    if (!current) {
        throw std::logic_error("no fake processor factory lives");
    }
    return current->Make(streams, muxer);
}

} // namespace Kestra

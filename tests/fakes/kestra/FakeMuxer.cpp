// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/kestra/FakeMuxer.h"
#include <stdexcept>
#include <utility>

namespace Kestra::Fakes {

FakeMuxer::FakeMuxer(std::shared_ptr<Script> script)
    : script(std::move(script)) {}

FakeMuxer::~FakeMuxer() {
    script->GetLog()->Add("~FakeMuxer");
}

std::vector<FakeMuxer::Written> FakeMuxer::GetWritten() const {
    const std::lock_guard<std::mutex> lock(mutex);
    return written;
}

void FakeMuxer::Call(const std::string& call, Stage expected) {
    if (stage != expected) {
        script->GetLog()->Add("misused: " + call);
        throw std::logic_error("FakeMuxer: " + call + " came out of order.");
    }
    stage = Stage::Failed;
    script->Call(call);
    stage = expected;
}

int FakeMuxer::AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& format) {
    if (format == nullptr) {
        throw std::invalid_argument("FakeMuxer: AddStream got no format.");
    }
    Call("AddStream " + std::to_string(streams), Stage::Adding);
    return streams++;
}

void FakeMuxer::Open() {
    Call("Open", Stage::Adding);
    stage = Stage::Open;
}

void FakeMuxer::Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) {
    Call("Write " + std::to_string(GetWritten().size()), Stage::Open);
    const std::lock_guard<std::mutex> lock(mutex);
    written.push_back({index, packet->GetDecodeTime(), packet->GetTime() + packet->GetDuration()});
}

void FakeMuxer::Finish() {
    Call("Finish", Stage::Open);
    stage = Stage::Closed;
}

void FakeMuxer::Abort() noexcept {
    script->GetLog()->Add("Abort");
    stage = Stage::Closed;
}

} // namespace Kestra::Fakes

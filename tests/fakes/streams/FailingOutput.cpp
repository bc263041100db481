// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/streams/FailingOutput.h"

#include "Kestra/Core/DataOutputFF.h"
#include "Kestra/Proc/ProcException.h"

namespace Fakes {

using namespace Kestra;

FailingOutput::FailingOutput(const ioPath& path)
    : real(Core::DataOutputFF::Create(path)) {}

void FailingOutput::Fail() {
    const Proc::ProcException exception(Proc::TranscodingError::DiskFull, "the test's disk is full");
    failure = std::make_exception_ptr(exception);
    throw exception;
}

void FailingOutput::Open() {
    if (failOpen)
        Fail();
    real->Open();
}

void FailingOutput::Write(const void* bytes, std::size_t size) {
    written += static_cast<std::int64_t>(size);
    if (written > room)
        Fail();
    real->Write(bytes, size);
}

void FailingOutput::Close() {
    real->Close();
    if (failClose)
        Fail();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace Fakes

// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/Processor/DeferredRelease.h"
#include "Kestra/Proc/Processor/RunRest.h"
#include <utility>

namespace Kestra::Proc {
namespace {

thread_local DeferredRelease* innermost = nullptr;

} // namespace

DeferredRelease::DeferredRelease() noexcept
    : outer(std::exchange(innermost, this)) {}

DeferredRelease::~DeferredRelease() {
    innermost = outer;
}

std::shared_ptr<const void> DeferredRelease::Take() noexcept {
    return std::move(rest);
}

bool DeferredRelease::Accept(std::shared_ptr<RunRest>& rest) noexcept {
    if (innermost == nullptr || innermost->rest != nullptr) {
        return false;
    }
    innermost->rest = std::move(rest);
    return true;
}

} // namespace Kestra::Proc

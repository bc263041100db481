// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Exception.h"
#include <boost/stacktrace/safe_dump_to.hpp>
#include <boost/stacktrace/stacktrace.hpp>
#include <ostream>
#include <utility>

namespace Kestra {

Exception::Exception(std::string text)
    : message(std::move(text)) {}
Exception::Exception(const Exception&) = default;
Exception& Exception::operator=(const Exception&) = default;
Exception::~Exception() noexcept = default;

const char* Exception::what() const noexcept {
    return message.c_str();
}

std::string CallStack::Text() const {
    return boost::stacktrace::to_string(
        boost::stacktrace::stacktrace::from_dump(places.data(), places.size() * sizeof(places.front())));
}

CallStack GetCallStack() {
    constexpr std::size_t ownFrames = 1;
    constexpr std::size_t deepest = 64;
    CallStack stack;
    stack.places.resize(deepest);
    // It counts the zero that it puts behind them.
    const std::size_t count =
        boost::stacktrace::safe_dump_to(ownFrames, stack.places.data(), deepest * sizeof(stack.places.front()));
    stack.places.resize(count);
    return stack;
}

std::ostream& operator<<(std::ostream& out, const CallStack& stack) {
    return out << stack.Text();
}

} // namespace Kestra

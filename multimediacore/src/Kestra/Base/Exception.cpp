#include "Kestra/Base/Exception.h"
#include <boost/stacktrace/stacktrace.hpp>
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

std::string GetCallStack() {
    constexpr std::size_t ownFrames = 1;
    constexpr std::size_t deepest = 64;
    return boost::stacktrace::to_string(boost::stacktrace::stacktrace(ownFrames, deepest));
}

} // namespace Kestra

// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Exception: what the engine throws, with its records of origin.
#pragma once

#include "KestraExport.h"
#include <boost/exception/exception.hpp>
#include <boost/exception/info.hpp>
#include <boost/throw_exception.hpp>
#include <exception>
#include <iosfwd>
#include <string>
#include <vector>

namespace Kestra {

/// The base of the engine's exceptions. what() is a sentence that names what failed and why.
class KESTRA_EXPORT Exception : public virtual std::exception, public virtual boost::exception {
public:
    explicit Exception(std::string message);
    Exception(const Exception&);
    Exception& operator=(const Exception&);
    ~Exception() noexcept override;
    const char* what() const noexcept override;

private:
    std::string message;
};

/// Calls that were under way. They are quick to note; their names are looked up, in all libraries, when somebody reads.
class KESTRA_EXPORT CallStack {
public:
    /// One frame a line, the innermost first. Never throws but for lack of memory; thread-safe.
    std::string Text() const;

private:
    friend KESTRA_EXPORT CallStack GetCallStack();

    std::vector<const void*> places;
};

/// The caller's. Never throws but for lack of memory; thread-safe.
KESTRA_EXPORT CallStack GetCallStack();
/// For boost::diagnostic_information.
KESTRA_EXPORT std::ostream& operator<<(std::ostream& out, const CallStack& stack);

/// Records attached with operator<<: a description, the call stack at the throw, the code of TranscodingError.
using TagDescription = boost::error_info<struct TagDescriptionName, std::string>;
using TagCallStack = boost::error_info<struct TagCallStackName, CallStack>;
using TagErrorCode = boost::error_info<struct TagErrorCodeName, int>;

/// Throws `exception` wrapped for boost::diagnostic_information with the given place of origin.
template <class E>
[[noreturn]] void ThrowFrom(const E& exception, const char* function, const char* file, int line) {
    ::boost::throw_exception(exception, ::boost::source_location(file, static_cast<unsigned>(line), function));
}

} // namespace Kestra

/// Throws with the function, file and line of this place.
#define KESTRA_THROW(exception) ::Kestra::ThrowFrom((exception), BOOST_CURRENT_FUNCTION, __FILE__, __LINE__)

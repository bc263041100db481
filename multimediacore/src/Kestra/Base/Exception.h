// Kestra::Exception: what the engine throws, with its records of origin.
#pragma once

#include "KestraExport.h"
#include <boost/exception/exception.hpp>
#include <boost/exception/info.hpp>
#include <boost/throw_exception.hpp>
#include <exception>
#include <string>

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

/// Records attached with operator<<: a description, the call stack at the throw, the code of TranscodingError.
using TagDescription = boost::error_info<struct TagDescriptionName, std::string>;
using TagCallStack = boost::error_info<struct TagCallStackName, std::string>;
using TagErrorCode = boost::error_info<struct TagErrorCodeName, int>;

/// The caller's call stack, one frame a line. Never throws but for lack of memory; thread-safe.
KESTRA_EXPORT std::string GetCallStack();

/// Throws `exception` wrapped for boost::diagnostic_information with the given place of origin.
template <class E>
[[noreturn]] void ThrowFrom(const E& exception, const char* function, const char* file, int line) {
    ::boost::throw_exception(exception, ::boost::source_location(file, static_cast<unsigned>(line), function));
}

} // namespace Kestra

/// Throws with the function, file and line of this place.
#define KESTRA_THROW(exception) ::Kestra::ThrowFrom((exception), BOOST_CURRENT_FUNCTION, __FILE__, __LINE__)

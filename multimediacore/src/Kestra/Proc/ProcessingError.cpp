// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Proc/ProcessingError.h"
#include "Kestra/Base/Exception.h"
#include <boost/exception/get_error_info.hpp>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace Kestra::Proc {
namespace {

TranscodingError CodeByType(const std::exception& exception) {
    if (dynamic_cast<const std::bad_alloc*>(&exception) != nullptr) {
        return TranscodingError::OutOfMemory;
    }
    // A thread for which there is no room, most often in memory.
    if (const auto* const system = dynamic_cast<const std::system_error*>(&exception))
        if (system->code() == std::errc::resource_unavailable_try_again)
            return TranscodingError::OutOfMemory;
    if (dynamic_cast<const std::invalid_argument*>(&exception) != nullptr) {
        return TranscodingError::InvalidArgument;
    }
    return TranscodingError::Unknown;
}

// Without memory for the sentence there are the words that need none.
std::string WordsFor(const std::exception& error) {
    if (dynamic_cast<const std::bad_alloc*>(&error) == nullptr)
        return error.what();
    try {
        return "There is too little memory: smaller pictures, or fewer exports at a time, take less";
    } catch (const std::bad_alloc&) {
        return "out of memory";
    }
}

// E is std::exception or boost::exception: whichever base the thrown object was caught by.
template <class E>
ProcessingError ReadRecords(const E& exception, TranscodingError codeWithoutRecord,
                            const std::string& textWithoutRecord) {
    const int* code = boost::get_error_info<TagErrorCode>(exception);
    const std::string* text = boost::get_error_info<TagDescription>(exception);
    return ProcessingError(code != nullptr ? static_cast<TranscodingError>(*code) : codeWithoutRecord,
                           text != nullptr ? *text : textWithoutRecord);
}

} // namespace

ProcessingError::ProcessingError(TranscodingError code, std::string description)
    : code(code)
    , description(std::move(description)) {}

ProcessingError ProcessingError::MakeProcessingErrorFromException(const std::exception_ptr& exception) {
    if (!exception) {
        return ProcessingError(TranscodingError::Unknown, "Processing failed for a reason that was not given.");
    }
    constexpr const char* foreign = "Processing failed with an error of a foreign kind.";
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& error) {
        return ReadRecords(error, CodeByType(error), WordsFor(error));
    } catch (const boost::exception& error) {
        return ReadRecords(error, TranscodingError::Unknown, foreign);
    } catch (...) {
        return ProcessingError(TranscodingError::Unknown, foreign);
    }
}

} // namespace Kestra::Proc

#include "Kestra/Core/Log.h"

extern "C" {
#include <libavutil/log.h>
}

namespace Kestra::Core {

void SetEngineLogLevel(LogLevel level) noexcept {
    switch (level) {
    case LogLevel::Quiet:
        av_log_set_level(AV_LOG_QUIET);
        break;
    case LogLevel::Warning:
        av_log_set_level(AV_LOG_WARNING);
        break;
    case LogLevel::Verbose:
        av_log_set_level(AV_LOG_VERBOSE);
        break;
    }
}

} // namespace Kestra::Core

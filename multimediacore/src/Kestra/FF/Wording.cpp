#include "Kestra/FF/Wording.h"

#include "Kestra/Base/Time.h"
#include <cstdlib>

namespace Kestra::FF {

std::string Seconds(std::int64_t time) {
    const std::int64_t milliseconds = MulDivRound(std::abs(time), 1000, TIME_BASE);
    const std::string part = std::to_string(1000 + milliseconds % 1000);
    return (time < 0 ? "-" : "") + std::to_string(milliseconds / 1000) + '.' + part.substr(1) + " s";
}

} // namespace Kestra::FF

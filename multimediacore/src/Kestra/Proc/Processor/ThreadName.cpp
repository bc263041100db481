#include "Kestra/Proc/Processor/ThreadName.h"
#include <cstring>
#include <pthread.h>

namespace Kestra::Proc {

void SetThreadName(const std::string& name) noexcept {
    constexpr std::size_t size = 16; // the kernel's, with the terminator; a longer name is refused whole
    char buffer[size] = {};
    std::strncpy(buffer, name.c_str(), size - 1);
    pthread_setname_np(pthread_self(), buffer);
}

} // namespace Kestra::Proc

// Kestra::Fakes::CountedEngine: the engine with every call into it counted, as long as it lives.
#pragma once

#include "fakes/counting/CallCounter.h"
#include <memory>

namespace Kestra::Fakes {

/// Sets every factory of CoreManager to one that counts and whose products count, over the engine's own; destruction
/// puts the engine's own back. What has been made goes on counting.
class CountedEngine {
public:
    explicit CountedEngine(const std::shared_ptr<CallCounter>& counter);
    ~CountedEngine();
    CountedEngine(const CountedEngine&) = delete;
    CountedEngine& operator=(const CountedEngine&) = delete;
};

} // namespace Kestra::Fakes

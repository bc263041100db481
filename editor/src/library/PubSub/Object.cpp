#include "PubSub/Object.h"

namespace PubSub {

Object::~Object() = default;

} // namespace PubSub

#include "PubSub/Details/MessageBase.h"

namespace PubSub::Details {

MessageBase::~MessageBase() = default;

} // namespace PubSub::Details

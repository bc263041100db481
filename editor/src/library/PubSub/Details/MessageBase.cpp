// SPDX-License-Identifier: GPL-3.0-or-later
#include "PubSub/Details/MessageBase.h"

namespace PubSub::Details {

MessageBase::~MessageBase() = default;

} // namespace PubSub::Details

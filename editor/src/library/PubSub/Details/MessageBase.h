// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "EditorModelExport.h"

namespace PubSub::Details {

/// What every message is. Messages live on the publisher's stack, for one delivery.
class EDITORMODEL_EXPORT MessageBase {
public:
    virtual ~MessageBase();

protected:
    MessageBase() = default;
    MessageBase(const MessageBase&) = default;
    MessageBase& operator=(const MessageBase&) = default;
};

} // namespace PubSub::Details

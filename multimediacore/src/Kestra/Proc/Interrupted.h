// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::Interrupted: what a read throws that an Interrupt has broken off.
#pragma once

#include "Kestra/Base/Exception.h"

namespace Kestra::Proc {

/// No failure: nothing is wrong with what was read, and whoever interrupted knows why. So it is no ProcException, and
/// streams let it pass. Caught where a thread reads: the encoder's, the read-ahead's, the check's.
class KESTRA_EXPORT Interrupted : public Exception {
public:
    Interrupted();
    ~Interrupted() noexcept override;
};

} // namespace Kestra::Proc

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Kestra/Proc/IStreamVideo.h"

namespace Kestra::Proc {

/// Video streams one after the other. Its format is the first one's, which the others are told to prefer. One at a time
/// reads.
class KESTRA_EXPORT IConcatenation : public IStreamVideo {
public:
    ~IConcatenation() override;
    /// Possible until the first read. Throws std::invalid_argument for null or for a stream of unknown duration.
    virtual void Append(const boost::intrusive_ptr<IStreamVideo>& stream) = 0;
};

} // namespace Kestra::Proc

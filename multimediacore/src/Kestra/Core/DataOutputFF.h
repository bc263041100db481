// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Core::DataOutputFF: the output to a regular file.
#pragma once

#include "Kestra/Core/IDataOutput.h"

namespace Kestra::Core {

class KESTRA_EXPORT DataOutputFF {
public:
    DataOutputFF() = delete;
    /// Touches nothing before Open.
    static boost::intrusive_ptr<IDataOutput> Create(const ioPath& path);
};

} // namespace Kestra::Core

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ExportFacts.h"

#include <algorithm>

namespace ExportCore {

int ExportFacts::countOf(Kestra::Proc::CheckedStream::Kind kind) const {
    const auto isOne = [kind](const Kestra::Proc::CheckedStream& stream) { return stream.kind == kind; };
    return static_cast<int>(std::count_if(streams.begin(), streams.end(), isOne));
}

} // namespace ExportCore

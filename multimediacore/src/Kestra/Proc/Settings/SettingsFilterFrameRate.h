// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "KestraExport.h"
#include <boost/rational.hpp>

namespace Kestra::Proc {

/// Settings of the filter that brings a stream to a constant frame rate.
class KESTRA_EXPORT SettingsFilterFrameRate {
public:
    using Rational = boost::rational<long long>;

    /// The mark by which a preset says: the source's own rate. It is 0/1.
    static const Rational MARK_USE_ORIGINAL_FRAMERATE;

    void SetFrameRate(const Rational& value) { rate = value; }
    const Rational& GetFrameRate() const { return rate; }

private:
    Rational rate = 0;
};

} // namespace Kestra::Proc

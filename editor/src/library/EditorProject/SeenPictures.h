// SPDX-License-Identifier: GPL-3.0-or-later
// Project::SeenPictures: a medium whose pictures an export shows.
#pragma once

#include "Kestra/Base/ioPath.h"
#include "Kestra/Conf/FrameInfo.h"
#include <boost/rational.hpp>

namespace Project {

/// A value.
struct SeenPictures {
    Kestra::ioPath path;
    Kestra::Conf::FrameInfo frame;     ///< as shown
    boost::rational<long long> rate{}; ///< 0 of a still picture
};

} // namespace Project

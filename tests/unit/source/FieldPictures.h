// SPDX-License-Identifier: GPL-3.0-or-later
// H.264 that codes each field as a picture of its own, as broadcasts do and no encoder at hand does.
#pragma once

#include <string>

namespace TestMedia {

/// How a container holds the two fields of a frame.
enum class FieldPackets {
    Apart,   ///< each in a packet with its time
    OneTime, ///< each in a packet, of which the second has no time
    Together ///< both in one packet
};

/// Writes `fields` fields of the bar of barPictures(), two a frame and 25 frames a second, losslessly; container by
/// extension. Every second frame between keyframes is shown before the one that is coded ahead of it.
void makeFieldPictures(const std::string& path, int width, int height, int fields, bool topFieldFirst,
                       FieldPackets packets);

} // namespace TestMedia

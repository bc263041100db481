// SPDX-License-Identifier: GPL-3.0-or-later
// Media of fields: a bar that moves with each field, so that every row tells which field it shows.
#pragma once

#include "Kestra/Proc/IDataVideo.h"
#include <string>
#include <vector>

namespace TestMedia {

/// A lavfi source of that many fields, `rate` of them a second, each a whole picture; at most 80.
std::string barPictures(const std::string& rate, int fields, int width, int height);
/// The filters that weave two fields into each picture.
std::string weave(bool topFieldFirst);

/// The fields that the upper one's rows and the lower one's show; -1 where rows differ among themselves.
struct ShownFields {
    int top = -1;
    int bottom = -1;
    bool flagged = false; ///< as interlaced
    bool topFieldFirst = false;
};
ShownFields fieldsIn(const Kestra::Proc::IDataVideo& picture);
/// All samples of all planes.
std::vector<unsigned char> samplesOf(const Kestra::Proc::IDataVideo& picture);

} // namespace TestMedia

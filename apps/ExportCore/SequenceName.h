// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::SequenceName: the folder and the names of pictures that an output means.
#pragma once

#include "ExportCoreExport.h"
#include "Kestra/Conf/NumberedName.h"
#include <QByteArray>
#include <QString>
#include <optional>
#include <string>
#include <vector>

class Preset;

namespace ExportCore {

/// A value.
struct EXPORTCORE_EXPORT SequenceName {
    /// Where the preset makes a file of each picture: the output is a folder ("frames/", "frames"), whose pictures are
    /// called frame_00000.png and so on, or a folder and a pattern ("shots/a_%04d.png"). Nothing for other presets.
    /// Throws Refusal for what is neither: the name of one file, two places for the number. Looks at no file.
    static std::optional<SequenceName> of(const QString& output, const Preset& preset);
    /// Whether a file without its folder is called as pictures in a folder are, in however many digits, or is the
    /// pattern of such names.
    static bool isUsualName(const std::string& file);

    QByteArray folder; ///< as it was written, without a slash at its end
    Kestra::Conf::NumberedName name;
    bool isUsual = false; ///< nobody chose the names

    /// As many digits as that many pictures take, so that their names stand in their order, where nobody chose.
    void widenFor(qint64 pictures);
    /// Of a picture, from 0 on.
    QByteArray pathOf(qint64 number) const;
    /// What is called in the folder as its pictures are, in order. Looks at the folder, which may not answer.
    std::vector<std::string> there() const;
};

} // namespace ExportCore

// SPDX-License-Identifier: GPL-3.0-or-later
// Dialog::OutputName: names for files that are yet to be made.
#pragma once

#include <QString>
#include <QStringList>

namespace Dialog {

struct OutputName {
    /// Beside the first input, with its name and that extension, or none where it is empty; none of the inputs. Looks
    /// at no file.
    static QString suggestedFor(const QStringList& inputs, const QString& extension);
    /// The path with that extension, or none where it is empty, in place of one that stands for a kind of media, else
    /// behind the name.
    static QString withExtension(const QString& path, const QString& extension);

    /// As somebody means it who has written it to its end: without blanks around it, and with that extension behind a
    /// name that has none of any kind of media. As it is where it names no file, or the extension is empty.
    static QString completed(const QString& path, const QString& extension);

    /// With the user's folder in place of "~".
    static QString expanded(const QString& path);
    /// Whether that is how the path of one of the inputs is written. Looks at no file.
    static bool isOneOf(const QStringList& inputs, const QString& path);

    OutputName() = delete;
};

} // namespace Dialog

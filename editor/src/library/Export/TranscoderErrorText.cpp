// SPDX-License-Identifier: GPL-3.0-or-later
#include "Export/TranscoderErrorText.h"

#include <QString>

namespace Export {

std::string errorText(const Kestra::Proc::ProcessingError& error) {
    const QString name = QString::fromUtf8(Kestra::Proc::TranscodingErrorToString(error.GetCode()));
    const QString number = QString::number(static_cast<int>(error.GetCode()));
    const QString description = QString::fromStdString(error.GetDescription());
    // All at once: a description may itself contain "%1".
    return QStringLiteral("%1(%2) - %3").arg(name, number, description).toStdString();
}

} // namespace Export

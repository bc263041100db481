// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::Report: one export in a file, for programs.
#pragma once

#include "ExportCore/ExportOutcome.h"
#include "cli/Options.h"
#include <QDateTime>
#include <QJsonObject>

namespace Cli {

/// Its form is resources/schemas/report.schema.json, whose version is raised with every change that a reader notices.
class Report {
public:
    static constexpr int VERSION = 1;

    /// Made when the export begins. Throws ExportCore::Refusal where a file stands already that may not be replaced.
    explicit Report(const Options& options);

    QJsonObject object(const ExportCore::ExportOutcome& outcome, int exitCode) const;
    /// Writes the file, if there is to be one: whole or not at all. Returns the exit code, another one where it cannot
    /// be written; that is told.
    int write(const ExportCore::ExportOutcome& outcome, int exitCode) const;

private:
    const Options options;
    const QDateTime started;
};

} // namespace Cli

// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::QueueFile: jobs that stand in a file, and which of them are done.
#pragma once

#include "cli/Options.h"
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <functional>
#include <string>
#include <vector>

namespace Cli {

/// Their form is resources/schemas/queue.schema.json. Beside the file, under its name with ".state" behind it, stands
/// what is done. While one of these exists no other process has the same file. Names in jobs count from where the
/// process stands.
class QueueFile {
public:
    struct Job {
        Options options;    ///< none where the job is no good, and `fault` says why
        std::string output; ///< as it is written there; empty when missing
        std::string fault;
        QString digest; ///< the same for the same job
    };

    /// Throws ExportCore::Refusal where the file, or what is kept beside it, cannot be read or is of another form.
    explicit QueueFile(const std::string& path);

    const std::vector<Job>& jobs() const { return all; }
    /// Finds what a process finished that was killed before it could keep so: it is done. Before the first job begins,
    /// where the process stands.
    void takeOver();
    /// Its file stands where it was made, and neither has changed since nor what it was made of.
    bool isDone(const Job& job) const;
    /// It was, but what it was made of has changed.
    bool isOutdated(const Job& job) const;
    /// Before a job begins: what it is made of.
    void begin(const Job& job);
    /// What keeps, of the job that has begun, how its output can be told when it stands at its place; to be called with
    /// the path of what was made right before that, on any thread. That this cannot be written is told by keep().
    std::function<void(const QString& made)> beforePlacing(const Job& job) const;
    /// Keeps that the job is done. False when that cannot be written; it is told.
    bool keep(const Job& job);

private:
    void lock();
    void readJobs();
    void readState();

    const std::string name; ///< of the file, as it was given
    QFile file;
    const QString statePath;
    std::vector<Job> all;
    QJsonObject done;     ///< by digest
    QJsonObject underWay; ///< likewise, what was about to be put at its place
    QJsonArray inputs;    ///< of the job that has begun, as they were then
};

} // namespace Cli

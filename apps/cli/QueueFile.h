// Cli::QueueFile: jobs that stand in a file, and which of them are done.
#pragma once

#include <QFile>
#include <QJsonObject>
#include <string>
#include <vector>

namespace Cli {

/// Their form is resources/schemas/queue.schema.json. Beside the file, under its name with ".state" behind it, stands
/// what is done. While one of these exists no other process has the same file.
class QueueFile {
public:
    struct Job {
        /// What stands behind "render". Empty where the job is no good, and `fault` says why.
        std::vector<std::string> words;
        std::string output; ///< as it is written there; empty when missing
        std::string fault;
        QString digest; ///< the same for the same job
    };

    /// Throws ExportCore::Refusal where the file, or what is kept beside it, cannot be read or is of another form.
    explicit QueueFile(const std::string& path);

    const std::vector<Job>& jobs() const { return all; }
    /// Its file stands where it was made and has not changed since.
    bool isDone(const Job& job) const;
    /// Keeps that the job is done. False when that cannot be written; it is told.
    bool keep(const Job& job);

private:
    void lock();
    void readJobs();
    void readState();

    QFile file;
    const QString statePath;
    std::vector<Job> all;
    QJsonObject done; ///< by digest
};

} // namespace Cli

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/JobTally.h"

#include "ExportCore/NameList.h"
#include "ExportCore/PlainText.h"
#include "cli/ErrorOutput.h"
#include "cli/JsonText.h"

namespace Cli {
namespace {

/// ", 2 failed (number 3 and 5)"; empty where there are none.
std::string numbersOf(const std::vector<std::size_t>& jobs, const char* what) {
    std::vector<std::string> numbers;
    numbers.reserve(jobs.size());
    for (const std::size_t number : jobs)
        numbers.push_back(std::to_string(number));
    return jobs.empty() ? std::string()
                        : ", " + std::to_string(jobs.size()) + ' ' + what + " (number " +
                              ExportCore::NameList::joined(numbers, " and ") + ')';
}

} // namespace

void JobTally::tell(const char* status, std::size_t index, const std::string& output) const {
    ErrorOutput::tellJob({{key("type"), key("job")},
                          {key("status"), key(status)},
                          {key("number"), static_cast<int>(index + 1)},
                          {key("count"), static_cast<int>(count)},
                          {key("output"), QString::fromStdString(output)}},
                         "job " + std::to_string(index + 1) + " of " + std::to_string(count) + ", \"" + output +
                             "\": " + status);
}

void JobTally::begin(std::size_t index, const std::string& output) const {
    tell("begun", index, output);
    ErrorOutput::keepUnder("job " + std::to_string(index + 1) + " of " + std::to_string(count));
}

void JobTally::skip(std::size_t index, const std::string& output) {
    ++before;
    tell("done before", index, output);
}

void JobTally::end(std::size_t index, const std::string& output, int code) {
    ErrorOutput::keepUnder({});
    begun = begun || code != EXIT_BAD_INPUT;
    if (code == EXIT_DONE) {
        ++done;
        return;
    }
    const bool isStopped = code > EXIT_SIGNAL_BASE;
    if (isStopped)
        signalCode = code;
    (isStopped ? stopped : failed).push_back(index + 1);
    tell(isStopped ? "stopped" : "failed", index, output);
}

int JobTally::exitCode() const {
    if (done + before == count)
        return EXIT_DONE;
    return signalCode != 0 ? signalCode : EXIT_EXPORT_FAILED;
}

std::string JobTally::summary() const {
    std::string text = std::to_string(count) + (count == 1 ? " job: " : " jobs: ") + std::to_string(done) + " done";
    if (before > 0)
        text += ", " + std::to_string(before) + " done before";
    text += numbersOf(failed, "failed") + numbersOf(stopped, "stopped");
    const std::size_t left = count - done - before - failed.size() - stopped.size();
    return left > 0 ? text + ", " + std::to_string(left) + " not begun" : text;
}

} // namespace Cli

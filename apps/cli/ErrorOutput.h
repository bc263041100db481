// Cli::ErrorOutput: the program's standard error.
#pragma once

#include <QJsonObject>
#include <string>

namespace Cli {

/// Whatever the program says beside its results passes here, one line a call; from any thread. A line is plain text
/// with the program's name in front, or, once that has been asked for, an object.
struct ErrorOutput {
    static void useJson();

    /// For an end without an outcome: wrong usage, or standard output that cannot be written. As JSON "refused" or
    /// "failed". `path` is the file that it is about, as it was given; empty where it is about none.
    static void refuse(const std::string& what, const std::string& path = {});
    static void fail(const std::string& what);
    /// As JSON an object of that type with a message.
    static void tell(const std::string& type, const std::string& what);
    /// What libraries log, in lines of their own.
    static void log(const std::string& line);
    static void print(const QJsonObject& object);

    ErrorOutput() = delete;
};

} // namespace Cli

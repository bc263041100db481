// SPDX-License-Identifier: GPL-3.0-or-later
// Cli::ErrorOutput: the program's standard error.
#pragma once

#include "Kestra/Proc/TranscodingError.h"
#include <QJsonObject>
#include <string>

namespace Cli {

/// Whatever the program says beside its results passes here, one line a call; from any thread. A line is plain text
/// with the program's name in front, or, once that has been asked for, an object.
struct ErrorOutput {
    static void useJson();
    /// Where lines go from now on: a descriptor, which stays the caller's.
    static void useDescriptor(int descriptor);
    /// Warnings, notes and what libraries log are not said; errors are.
    static void beQuiet();
    /// What libraries log is not said, though it may be kept.
    static void keepLogsOut();
    /// Every line is kept at the end of that file, too, with the time in front; libraries' lines included. False, with
    /// the reason in errno, when it cannot be opened.
    static bool keepIn(const std::string& path);
    /// A line that is kept alone, for who reads of it later.
    static void keep(const std::string& what);
    /// The job of several that whatever is kept from now on belongs to; empty for none.
    static void keepUnder(const std::string& job);

    /// For an end without an outcome: wrong usage, or standard output that cannot be written. As JSON "refused" or
    /// "failed". `path` is the file that it is about, as it was given; empty where it is about none.
    static void refuse(const std::string& what, const std::string& path = {},
                       Kestra::Proc::TranscodingError code = Kestra::Proc::TranscodingError::InvalidArgument);
    static void fail(const std::string& what);
    /// As JSON an object of that type with a message.
    static void tell(const std::string& type, const std::string& what);
    /// What libraries log, in lines of their own.
    static void log(const std::string& line);
    static void print(const QJsonObject& object);
    /// The object, or the sentence.
    static void tellJob(const QJsonObject& object, const std::string& what);
    /// A line without anything in front.
    static void line(const std::string& text);

    /// The last line of a terminal, which is written again and again: lines go above it. Shows as much of it as the
    /// terminal is wide; empty takes it away.
    static void showStatus(const std::string& text);

    ErrorOutput() = delete;
};

} // namespace Cli

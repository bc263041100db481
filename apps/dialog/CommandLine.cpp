// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog/CommandLine.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <string_view>

namespace Dialog {
namespace {

constexpr std::array<std::string_view, 4> QUESTIONS{"-h", "--help", "-v", "--version"};

/// The one description of the options. Qt's own help would tell of itself that it needs a display.
class Parser {
public:
    Parser() {
        parser.setApplicationDescription(
            QCoreApplication::translate("main", "Exports media files, or a timeline, from a window."));
        parser.addOption(help);
        parser.addOption(version);
        parser.addPositionalArgument(
            QStringLiteral("input"),
            QCoreApplication::translate("main", "Media files, one after the other, or one timeline."),
            QStringLiteral("[input...]"));
    }

    QCommandLineParser parser;
    const QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                                  QCoreApplication::translate("main", "Shows this.")};
    const QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                                     QCoreApplication::translate("main", "Shows the version.")};
};

} // namespace

bool CommandLine::asksForText(int argc, const char* const* argv) {
    const char* const* const end = argv + std::max(argc, 1);
    const char* const* const last = std::find(argv + 1, end, std::string_view("--"));
    return std::any_of(argv + 1, last, [](const char* word) {
        return std::find(QUESTIONS.begin(), QUESTIONS.end(), word) != QUESTIONS.end();
    });
}

QString CommandLine::text(const QStringList& arguments) {
    Parser line;
    line.parser.parse(arguments);
    if (line.parser.isSet(line.help))
        return line.parser.helpText();
    return QStringLiteral("%1 %2\n").arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion());
}

CommandLine CommandLine::of(const QStringList& arguments) {
    Parser line;
    CommandLine result;
    if (!line.parser.parse(arguments))
        result.problem = line.parser.errorText();
    result.inputs = line.parser.positionalArguments();
    return result;
}

} // namespace Dialog

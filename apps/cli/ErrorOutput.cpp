#include "cli/ErrorOutput.h"

#include "ExportCore/PlainText.h"
#include "Kestra/Proc/TranscodingError.h"
#include "cli/JsonText.h"
#include <atomic>
#include <cstdio>

namespace Cli {
namespace {

using ExportCore::PlainText;
using Kestra::Proc::TranscodingError;

std::atomic<bool> json{false};

/// In one write, so that lines of several threads do not mix.
void write(const std::string& line) {
    const std::string whole = line + '\n';
    std::fwrite(whole.data(), 1, whole.size(), stderr);
}

void end(const char* type, TranscodingError code, const std::string& what, const std::string& path = {}) {
    if (!json)
        return write("editor-export: " + PlainText::escaped(what));
    QJsonObject object{{key("type"), key(type)},
                       {key("error"), key(Kestra::Proc::TranscodingErrorToString(code))},
                       {key("code"), static_cast<int>(code)},
                       {key("message"), QString::fromStdString(PlainText::escaped(what))}};
    if (!path.empty())
        object.insert(key("path"), QString::fromStdString(path));
    ErrorOutput::print(object);
}

} // namespace

void ErrorOutput::useJson() {
    json = true;
}

void ErrorOutput::refuse(const std::string& what, const std::string& path) {
    end("refused", TranscodingError::InvalidArgument, what, path);
}

void ErrorOutput::fail(const std::string& what) {
    end("failed", TranscodingError::OutputFailed, what);
}

void ErrorOutput::tell(const std::string& type, const std::string& what) {
    const std::string sentence = PlainText::escaped(what);
    if (!json)
        return write("editor-export: " + type + ": " + sentence);
    print({{key("type"), QString::fromStdString(type)}, {key("message"), QString::fromStdString(sentence)}});
}

void ErrorOutput::log(const std::string& line) {
    const std::string sentence = PlainText::escaped(line);
    if (!json)
        return write(sentence);
    print({{key("type"), key("log")}, {key("message"), QString::fromStdString(sentence)}});
}

void ErrorOutput::print(const QJsonObject& object) {
    write(jsonLine(object));
}

} // namespace Cli

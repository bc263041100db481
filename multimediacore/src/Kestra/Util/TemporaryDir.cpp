#include "Kestra/Util/TemporaryDir.h"

#include "Kestra/Proc/ProcException.h"
#include <QDir>

namespace Kestra::Util {

namespace {

QString pathTemplate() {
    return QDir(QDir::tempPath()).absoluteFilePath(QStringLiteral("editor-export-XXXXXX"));
}

} // namespace

TemporaryDir::TemporaryDir()
    : directory(pathTemplate()) {
    if (!directory.isValid()) {
        KESTRA_THROW(Proc::ProcException(Proc::TranscodingError::OutputNotWritable,
                                         "cannot create a temporary directory " + pathTemplate().toStdString() + ": " +
                                             directory.errorString().toStdString()));
    }
}

TemporaryDir::~TemporaryDir() = default;

QString TemporaryDir::path() const {
    return directory.path();
}

} // namespace Kestra::Util

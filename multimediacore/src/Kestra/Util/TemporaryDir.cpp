#include "Kestra/Util/TemporaryDir.h"

#include "Kestra/Base/Exception.h"
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
        KESTRA_THROW(Exception("cannot create a temporary directory " + pathTemplate().toStdString() + ": " +
                               directory.errorString().toStdString()));
    }
}

TemporaryDir::~TemporaryDir() = default;

QString TemporaryDir::path() const {
    return directory.path();
}

} // namespace Kestra::Util

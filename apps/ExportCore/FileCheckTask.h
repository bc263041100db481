// ExportCore::FileCheckTask: checks a finished file away from the event loop.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "ExportCore/ExpectedFile.h"
#include "Kestra/Base/ioPath.h"

namespace ExportCore {

/// One check. Finished without an error, the file is right; once interrupted, it ends soon with whatever result.
class EXPORTCORE_EXPORT FileCheckTask : public BackgroundTask {
    Q_OBJECT
public:
    /// `last` is called on the worker thread after the file was found right; what it throws is the check's failure. It
    /// owns what it touches.
    FileCheckTask(const Kestra::ioPath& path, const ExpectedFile& expected, const std::function<void()>& last,
                  QObject* parent = nullptr);

    /// After finished() without an error.
    const Kestra::Proc::CheckedFile& result() const { return *file; }

private:
    using File = std::shared_ptr<Kestra::Proc::CheckedFile>;

    FileCheckTask(const File& file, const Kestra::ioPath& path, const ExpectedFile& expected,
                  const std::function<void()>& last, QObject* parent);

    const File file;
};

} // namespace ExportCore

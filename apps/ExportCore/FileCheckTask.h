// ExportCore::FileCheckTask: checks a finished file away from the event loop.
#pragma once

#include "ExportCore/ExpectedFile.h"
#include "ExportCoreExport.h"
#include "Kestra/Base/ioPath.h"
#include "Kestra/Util/FunctorExecutionForwarder.h"
#include <QObject>
#include <atomic>
#include <exception>
#include <functional>
#include <thread>

namespace ExportCore {

/// One check. Lives on the thread that made it; the signal comes from that thread's event loop. Destruction waits for
/// the worker, which gives up soon when it is interrupted.
class EXPORTCORE_EXPORT FileCheckTask : public QObject {
    Q_OBJECT
public:
    /// `last` is called on the worker thread after the file was found right; what it throws is the check's failure.
    FileCheckTask(Kestra::ioPath path, const ExpectedFile& expected, std::function<void()> last,
                  QObject* parent = nullptr);
    ~FileCheckTask() override;

    void start();
    /// The check ends at once, with whatever result.
    void interrupt() { interrupted = true; }
    /// After finished() without an error.
    const Kestra::Proc::CheckedFile& result() const { return file; }

Q_SIGNALS:
    /// Null when the file is right.
    void finished(std::exception_ptr error);

private:
    std::exception_ptr run();

    const Kestra::ioPath path;
    const ExpectedFile expected;
    const std::function<void()> last;
    std::atomic<bool> interrupted{false};
    Kestra::Proc::CheckedFile file;
    Kestra::Util::FunctorExecutionForwarder forwarder;
    std::thread worker;
};

} // namespace ExportCore

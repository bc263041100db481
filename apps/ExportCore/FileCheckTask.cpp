#include "ExportCore/FileCheckTask.h"

#include "Kestra/Proc/FileCheck.h"
#include <utility>

namespace ExportCore {

FileCheckTask::FileCheckTask(Kestra::ioPath path, const ExpectedFile& expected, std::function<void()> last,
                             QObject* parent)
    : QObject(parent)
    , path(std::move(path))
    , expected(expected)
    , last(std::move(last)) {}

FileCheckTask::~FileCheckTask() {
    interrupt();
    if (worker.joinable())
        worker.join();
}

void FileCheckTask::start() {
    worker = std::thread([this] {
        std::exception_ptr error = run();
        forwarder.Forward([this, error = std::move(error)] { Q_EMIT finished(error); });
    });
}

std::exception_ptr FileCheckTask::run() {
    try {
        file = Kestra::Proc::CheckFile(path, interrupted);
        if (interrupted)
            return nullptr;
        expected.require(file);
        last();
        return nullptr;
    } catch (...) { // whatever it is, it is told on the other thread
        return std::current_exception();
    }
}

} // namespace ExportCore

// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/ExportJob.h"

#include "ExportCore/ExportRun.h"
#include <utility>

namespace ExportCore {

ExportJob::ExportJob(ExportRequest request, QObject* parent)
    : QObject(parent)
    , run(std::make_unique<ExportRun>(std::move(request), *this)) {
    connect(run.get(), &ExportRun::started, this, &ExportJob::started);
    connect(run.get(), &ExportRun::progressChanged, this, &ExportJob::progressChanged);
    connect(run.get(), &ExportRun::finished, this, &ExportJob::finished);
}

ExportJob::~ExportJob() = default;

std::shared_ptr<Kestra::Proc::PictureBox> ExportJob::watchPictures() {
    return run->watchPictures();
}

void ExportJob::callBeforePlacing(std::function<void(const QString& made)> call) {
    run->callBeforePlacing(std::move(call));
}

void ExportJob::start() {
    run->start();
}

void ExportJob::stop() {
    run->stop();
}

void ExportJob::fail(const std::exception_ptr& error) {
    run->fail(error);
}

void ExportJob::failInEventLoop(const std::exception_ptr& error, QObject* receiver) {
    run->failInEventLoop(error, receiver);
}

} // namespace ExportCore

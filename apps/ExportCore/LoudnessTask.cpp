#include "ExportCore/LoudnessTask.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"

namespace ExportCore {

using Kestra::Proc::IStreamAudio;

LoudnessTask::LoudnessTask(const boost::intrusive_ptr<IStreamAudio>& sound, QObject* parent)
    : LoudnessTask(std::make_shared<Heard>(), sound, parent) {}

LoudnessTask::LoudnessTask(const std::shared_ptr<Heard>& heard, const boost::intrusive_ptr<IStreamAudio>& sound,
                           QObject* parent)
    : BackgroundTask(
          "loudness",
          [heard, sound](const std::atomic<bool>& interrupted) {
              sound->Prepare();
              const auto length = static_cast<double>(sound->GetDuration());
              const auto meter = Kestra::Core::CoreManager::Instance().GetFilterFactory().CreateLoudnessMeter();
              while (const auto block = sound->ReadAudio()) {
                  if (interrupted)
                      KESTRA_THROW(Kestra::Proc::Interrupted());
                  meter->Hear(*block);
                  if (length > 0)
                      heard->share = static_cast<double>(block->GetTime() + block->GetDuration()) / length;
              }
              heard->loudness = meter->Finish();
          },
          parent)
    , heard(heard) {}

double LoudnessTask::progress() const {
    return heard->share;
}

} // namespace ExportCore

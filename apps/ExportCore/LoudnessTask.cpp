// SPDX-License-Identifier: GPL-3.0-or-later
#include "ExportCore/LoudnessTask.h"

#include "Kestra/Core/CoreManager.h"
#include "Kestra/Proc/IFilterFactory.h"
#include "Kestra/Proc/Interrupted.h"

namespace ExportCore {

using Kestra::Proc::IStreamAudio;

namespace {

/// Tells `told` what share has been heard.
template <class Told>
Kestra::Proc::Loudness loudnessOf(IStreamAudio& sound, const Told& told, const std::atomic<bool>& interrupted) {
    sound.Prepare();
    const auto length = static_cast<double>(sound.GetDuration());
    const auto meter = Kestra::Core::CoreManager::Instance().GetFilterFactory().CreateLoudnessMeter();
    while (const auto block = sound.ReadAudio()) {
        if (interrupted)
            KESTRA_THROW(Kestra::Proc::Interrupted());
        meter->Hear(*block);
        if (length > 0)
            told(static_cast<double>(block->GetTime() + block->GetDuration()) / length);
    }
    return meter->Finish();
}

} // namespace

LoudnessTask::LoudnessTask(const boost::intrusive_ptr<IStreamAudio>& sound, QObject* parent)
    : LoudnessTask(std::make_shared<Heard>(), sound, parent) {}

LoudnessTask::LoudnessTask(const std::shared_ptr<Heard>& heard, const boost::intrusive_ptr<IStreamAudio>& sound,
                           QObject* parent)
    : BackgroundTask(
          "loudness",
          [heard, sound](const std::atomic<bool>& interrupted) {
              std::vector<boost::intrusive_ptr<IStreamAudio>> tracks = sound->GetFurtherTracks();
              tracks.insert(tracks.begin(), sound);
              for (std::size_t track = 0; track < tracks.size(); ++track) {
                  const auto told = [&heard, track, count = tracks.size()](double share) {
                      heard->share = (static_cast<double>(track) + share) / static_cast<double>(count);
                  };
                  heard->loudness.push_back(loudnessOf(*tracks[track], told, interrupted));
              }
          },
          parent)
    , heard(heard) {}

double LoudnessTask::progress() const {
    return heard->share;
}

} // namespace ExportCore

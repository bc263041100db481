// SPDX-License-Identifier: GPL-3.0-or-later
// ExportCore::LoudnessTask: listens to the sound of a programme to the end and finds how loud it is.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "Kestra/Proc/ILoudnessMeter.h"
#include "Kestra/Proc/IStreamAudio.h"
#include <memory>
#include <vector>

namespace ExportCore {

class LoudnessTask : public BackgroundTask {
    Q_OBJECT
public:
    /// Nobody else reads the stream. Its further tracks are listened to after it, one after the other.
    explicit LoudnessTask(const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& sound, QObject* parent = nullptr);

    /// Of each track, the stream's own first; after finished() without an error.
    const std::vector<Kestra::Proc::Loudness>& loudness() const { return heard->loudness; }
    /// From 0 to 1; of a track of which nobody knows how long it is, that of those before it.
    double progress() const;

private:
    struct Heard {
        std::vector<Kestra::Proc::Loudness> loudness;
        std::atomic<double> share{0};
    };

    LoudnessTask(const std::shared_ptr<Heard>& heard, const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& sound,
                 QObject* parent);

    const std::shared_ptr<Heard> heard; ///< the thread's too
};

} // namespace ExportCore

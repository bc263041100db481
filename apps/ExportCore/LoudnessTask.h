// ExportCore::LoudnessTask: listens to a programme to the end and finds how loud it is.
#pragma once

#include "ExportCore/BackgroundTask.h"
#include "Kestra/Proc/ILoudnessMeter.h"
#include "Kestra/Proc/IStreamAudio.h"
#include <memory>

namespace ExportCore {

class EXPORTCORE_EXPORT LoudnessTask : public BackgroundTask {
    Q_OBJECT
public:
    /// Nobody else reads the stream.
    explicit LoudnessTask(const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& sound, QObject* parent = nullptr);

    /// After finished() without an error.
    const Kestra::Proc::Loudness& loudness() const { return heard->loudness; }
    /// From 0 to 1; 0 where nobody knows how long the sound is.
    double progress() const;

private:
    struct Heard {
        Kestra::Proc::Loudness loudness;
        std::atomic<double> share{0};
    };

    LoudnessTask(const std::shared_ptr<Heard>& heard, const boost::intrusive_ptr<Kestra::Proc::IStreamAudio>& sound,
                 QObject* parent);

    const std::shared_ptr<Heard> heard; ///< the thread's too
};

} // namespace ExportCore

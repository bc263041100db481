// Project::SequenceAudio: the sound of a timeline's window in one format.
#pragma once

#include "EditorProject/Span.h"
#include "EditorProject/StreamSlot.h"
#include "EditorProjectExport.h"
#include "Kestra/Conf/SampleInfo.h"
#include "Kestra/Proc/Filters/StreamBase.h"
#include <memory>

namespace Project {

/// Exactly the window's number of samples: sound that ends before its clip is followed by silence, what is over is cut.
/// One file is open at a time, and none before a read reaches it. Read errors of a clip name its file.
class EDITORPROJECT_EXPORT SequenceAudio final : public Kestra::Proc::StreamBase<Kestra::Proc::IStreamAudio> {
public:
    /// `format` has a rate and a layout; an open sample format is float until a consumer prefers one.
    SequenceAudio(std::shared_ptr<const Timeline> timeline, const ExportWindow& window,
                  const Kestra::Conf::SampleInfo& format);

    boost::intrusive_ptr<Kestra::Proc::IDataAudio> ReadAudio() override;
    void GetAudioFormat(boost::intrusive_ptr<Kestra::Conf::IFormatCodecAudio>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Kestra::Proc::SeekMode mode) override;
    void Interrupt() override { clip.interrupt(); }
    std::string Describe() const override;
    void PreferFormat(const Kestra::Conf::IFormatCodec& format) override;
    void Reset() override;

private:
    using Block = boost::intrusive_ptr<Kestra::Proc::IDataAudio>;

    bool HasSound(const SoundSpan& candidate) const;
    void OpenClip();
    void OpenSilence();
    Block ReadClip();
    Block Placed(const Block& block);
    void NoteLoss(const Kestra::Proc::AudioTrackInfo& track) const;
    void Forget();

    const std::shared_ptr<const Timeline> timeline;
    const Kestra::SampleGrid grid;
    const SoundSpans spans;
    const Kestra::SampleIndex samples;
    Kestra::Conf::SampleInfo format;
    const int sampleBits; ///< that no clip's samples exceed
    /// What the encoder makes of it, as far as it has said.
    std::uint32_t encodedLayout = Kestra::Conf::CHANNEL_LAYOUT_UNKNOWN;
    bool layoutOrdered = false;
    std::int32_t encodedFormat = Kestra::Conf::SAMPLE_FORMAT_UNKNOWN;
    int bitsKept = 0;

    StreamSlot<Kestra::Proc::IStreamAudio> clip; ///< the clip's sound, or silence in its place
    const SoundSpan* span = nullptr;             ///< of the open clip
    bool silent = false;
    Kestra::SampleIndex drop; ///< of the open clip, to be passed over
    bool landed = false;      ///< the first block after opening has told where reading began
    Kestra::SampleIndex nextSample;
};

} // namespace Project

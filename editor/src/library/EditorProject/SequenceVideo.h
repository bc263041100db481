// Project::SequenceVideo: the pictures of a timeline's window at a constant rate in one frame size.
#pragma once

#include "EditorProject/Span.h"
#include "EditorProject/StreamSlot.h"
#include "EditorProjectExport.h"
#include "Kestra/Conf/FrameInfo.h"
#include "Kestra/Conf/HdrInfo.h"
#include "Kestra/Proc/Filters/StreamBase.h"
#include <memory>
#include <utility>
#include <vector>

namespace Project {

/// Exactly the window's number of frames. Clips are opened when a read reaches them and closed when they are done, so
/// one file is open at a time. Read errors of a clip name its file.
class EDITORPROJECT_EXPORT SequenceVideo final : public Kestra::Proc::StreamBase<Kestra::Proc::IStreamVideo> {
public:
    /// The window has pictures.
    SequenceVideo(std::shared_ptr<const Timeline> timeline, const ExportWindow& window,
                  const Kestra::Conf::FrameInfo& frame);

    boost::intrusive_ptr<Kestra::Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Kestra::Proc::SeekMode mode) override;
    void Interrupt() override { clip.interrupt(); }
    std::string Describe() const override;
    void PreferFormat(const Kestra::Conf::IFormatCodec& format) override;
    void Reset() override;

private:
    void DescribePictures();
    Kestra::Conf::PixelFormat FormatOf(const PictureSpan& candidate) const;
    void DescribeHdr(int transfer);
    void NoteOtherHdr() const;
    void NoteLoss() const;
    void OpenClip();
    void Fetch();
    void Take(const Kestra::Proc::IDataVideo& picture);
    void Forget();

    const std::shared_ptr<const Timeline> timeline;
    const Kestra::FrameGrid grid;
    const PictureSpans spans;
    const Kestra::FrameIndex frames;
    /// What clips are brought to: frame and rate as ordered, colour as the first picture's of the highest
    /// dynamic range, the first picture's pixel format, or
    /// that of a later clip which holds all that the ones before it do; unless a consumer prefers others. So they do
    /// not change from clip to clip.
    const boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo> target;

    bool formatOrdered = false; ///< the pixel format is what the user ordered: only lost transparency is noted
    /// By clip, of those in the transfer of `target`.
    std::vector<std::pair<std::size_t, Kestra::Conf::HdrInfo>> hdrOfClips;
    Kestra::Conf::HdrInfo hdr; ///< of them together
    bool offersFields = false; ///< the first picture is interlaced, and could stay so

    StreamSlot<Kestra::Proc::IStreamVideo> clip;
    const PictureSpan* span = nullptr; ///< of the open clip
    Kestra::FrameIndex opened;         ///< at which the clip was opened
    Kestra::FrameIndex nextFrame;
    boost::intrusive_ptr<Kestra::Proc::IDataVideo> picture; ///< shown up to `pictureEnd`
    Kestra::FrameIndex pictureEnd;
};

} // namespace Project

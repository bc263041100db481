// SPDX-License-Identifier: GPL-3.0-or-later
// Fakes::SyntheticVideo: a working video stream whose pictures a function paints.
#pragma once

#include "Kestra/FF/Data/DataVideoFF.h"
#include "Kestra/Proc/IStreamVideo.h"
#include <atomic>
#include <boost/rational.hpp>
#include <functional>

namespace Fakes {

struct VideoShape {
    int width = 64;
    int height = 48;
    AVPixelFormat format = AV_PIX_FMT_YUV420P;
    Kestra::Conf::ColourInfo colour;
    boost::rational<long long> rate{25};
    int frames = 25;
    /// What frame `index` shows; null: a flat grey that grows lighter.
    std::function<void(AVFrame& frame, int index)> paint;
    /// Engine time of frame `index`; null: constant rate.
    std::function<std::int64_t(int index)> timeOf;
    AVRational aspect = {0, 0}; ///< of the whole frame
    bool tagFrames = true;      ///< whether each frame carries the colour, or the stream's format alone
};

class SyntheticVideo final : public Kestra::Proc::IStreamVideo, public Kestra::RefCountImpl {
public:
    explicit SyntheticVideo(VideoShape shape);

    boost::intrusive_ptr<Kestra::Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo>& format) const override;
    void Initialize(const Kestra::Core::Property&) override {}
    Kestra::Core::Property GetSettings() const override { return Kestra::Core::Property(); }
    std::int64_t GetDuration() const override { return TimeOf(shape.frames); }
    std::int64_t GetPosition() const override { return TimeOf(next); }
    boost::intrusive_ptr<Kestra::Proc::IData> ReadData() override { return ReadVideo(); }
    void Seek(std::int64_t time, Kestra::Proc::SeekMode mode) override;
    void Interrupt() override { interrupted = true; }
    bool IsSeekable() const override { return true; }
    void GetFormatCodec(boost::intrusive_ptr<Kestra::Conf::IFormatCodec>& format) const override;
    std::string Describe() const override { return "synthetic pictures"; }
    void PreferFormat(const Kestra::Conf::IFormatCodec&) override { ++preferences; }
    void Prepare() override {}
    void Reset() override;

    int GetPreferences() const { return preferences; }

private:
    std::int64_t TimeOf(int index) const;

    const VideoShape shape;
    int next = 0;
    int preferences = 0;
    std::atomic<bool> interrupted{false};
};

boost::intrusive_ptr<SyntheticVideo> MakeVideo(VideoShape shape);

} // namespace Fakes

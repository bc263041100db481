// SPDX-License-Identifier: GPL-3.0-or-later
// Render::PictureStream: the pictures of a sequence's window at a constant rate in one frame size.
#pragma once

#include "Kestra/Proc/Filters/StreamBase.h"
#include "Kestra/Proc/IFrameBlender.h"
#include "Render/MaterialPictures.h"
#include "Render/OpenMaterials.h"
#include "Render/Sequence.h"
#include "Render/Window.h"
#include <memory>

namespace Render {

/// As createPictureStream() says.
class PictureStream final : public Kestra::Proc::StreamBase<Kestra::Proc::IStreamVideo> {
public:
    /// The window has pictures.
    PictureStream(Sequence sequence, const Window& window, const Kestra::Conf::FrameInfo& frame);
    ~PictureStream() override;

    boost::intrusive_ptr<Kestra::Proc::IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Kestra::Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, Kestra::Proc::SeekMode mode) override;
    void Interrupt() override { streams.interrupt(); }
    std::string Describe() const override;
    void PreferFormat(const Kestra::Conf::IFormatCodec& format) override;
    void Reset() override;

private:
    using Shown = MaterialPictures::Shown;

    /// Of the composition.
    Kestra::FrameIndex current() const { return window.firstFrame() + nextFrame; }
    void fetch();
    void enter();
    void forget();
    Shown compose();
    Shown show(const Parts& parts, bool onBlack);
    Shown show(const Part& part, bool onBlack);
    Shown show(const Material& material, Usage usage);
    Shown blackFrame();
    Kestra::Proc::IFrameBlender& blending();

    const Sequence sequence;
    const Window window;
    const Kestra::FrameGrid grid;
    const Kestra::FrameIndex frames;
    const PicturePlanner planner;
    PictureTarget target;
    const Kestra::Conf::ProgrammeInfo programme;

    MaterialPictures::Streams streams;
    OpenMaterials<MaterialPictures> open;
    boost::intrusive_ptr<Kestra::Proc::IFrameBlender> blender;

    Scene scene;
    Kestra::FrameIndex sceneEnd; ///< of the composition; the scene holds from the next frame up to it
    Kestra::FrameIndex nextFrame;
    boost::intrusive_ptr<Kestra::Proc::IDataVideo> picture; ///< shown up to `pictureEnd` of the composition
    Kestra::FrameIndex pictureEnd;
};

} // namespace Render

// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::EffectHost: a stream's pictures with effects on them.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IEffectHost.h"
#include "KestraExport.h"
#include <vector>

namespace Kestra::Proc {

class KESTRA_EXPORT EffectHost final : public IEffectHost, public RefCountImpl {
public:
    /// Throws std::invalid_argument for a null source.
    explicit EffectHost(const boost::intrusive_ptr<IStreamVideo>& source);

    void AddEffect(const boost::intrusive_ptr<IEffectVideo>& effect) override;

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    void Initialize(const Core::Property& settings) override;
    Core::Property GetSettings() const override;
    std::int64_t GetDuration() const override { return source->GetDuration(); }
    std::int64_t GetPosition() const override { return source->GetPosition(); }
    boost::intrusive_ptr<IData> ReadData() override { return ReadVideo(); }
    void Seek(std::int64_t time, SeekMode mode) override { source->Seek(time, mode); }
    void Interrupt() override { source->Interrupt(); }
    bool IsSeekable() const override { return source->IsSeekable(); }
    void GetFormatCodec(boost::intrusive_ptr<Conf::IFormatCodec>& format) const override { GetFormatCodecBase(format); }
    std::string Describe() const override { return "effects on " + source->Describe(); }
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override { source->Prepare(); }
    void Reset() override;

private:
    const boost::intrusive_ptr<IStreamVideo> source;
    std::vector<boost::intrusive_ptr<IEffectVideo>> effects;
    bool begun = false;
};

} // namespace Kestra::Proc

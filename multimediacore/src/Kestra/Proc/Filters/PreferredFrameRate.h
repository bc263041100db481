// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::PreferredFrameRate: pictures at the rate that their consumer wishes.
#pragma once

#include "Kestra/Proc/Filters/VideoFilterBase.h"
#include "KestraExport.h"
#include <atomic>
#include <boost/rational.hpp>

namespace Kestra::Proc {

/// As long as its source, whatever the rate: the last frame is cut or stretched. Where no rate is preferred, the
/// source's pictures pass as they are; those of a source that has no rate come at STILL_RATE.
class KESTRA_EXPORT PreferredFrameRate final : public VideoFilterBase {
public:
    static constexpr int STILL_RATE = 25;

    explicit PreferredFrameRate(const boost::intrusive_ptr<IStreamVideo>& source);

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetPosition() const override;
    void Seek(std::int64_t time, SeekMode mode) override;
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Reset() override;

private:
    /// 0: the source's pictures as they are.
    boost::rational<long long> Rate() const;
    IStreamVideo& Pacer() const;
    void Prefer(const boost::rational<long long>& rate);
    void FitToEnd(IDataVideo& frame) const;

    boost::rational<long long> preferred{0};
    /// What does the work; made when the rate is needed, and anew when another one is preferred.
    mutable boost::intrusive_ptr<IStreamVideo> pacer;
};

} // namespace Kestra::Proc

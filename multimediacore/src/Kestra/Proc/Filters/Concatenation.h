// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Proc::Concatenation: video streams one after the other.
#pragma once

#include "Kestra/Proc/Filters/StreamBase.h"
#include "Kestra/Proc/IConcatenation.h"
#include "KestraExport.h"
#include <vector>

namespace Kestra::Proc {

/// A part fills exactly its duration: its last picture is stretched or cut to the seam.
class KESTRA_EXPORT Concatenation final : public StreamBase<IConcatenation> {
public:
    void Append(const boost::intrusive_ptr<IStreamVideo>& stream) override;

    boost::intrusive_ptr<IDataVideo> ReadVideo() override;
    void GetVideoFormat(boost::intrusive_ptr<Conf::IFormatCodecVideo>& format) const override;
    std::int64_t GetDuration() const override;
    std::int64_t GetPosition() const override { return position; }
    void Seek(std::int64_t time, SeekMode mode) override;
    void Interrupt() override;
    bool IsSeekable() const override;
    std::string Describe() const override;
    void PreferFormat(const Conf::IFormatCodec& format) override;
    void Prepare() override;
    void Reset() override;

private:
    struct Part {
        boost::intrusive_ptr<IStreamVideo> stream;
        std::int64_t start = 0;
        std::int64_t end = 0;
        bool prepared = false;
    };

    boost::intrusive_ptr<IDataVideo> ReadPart();
    void PreparePart(Part& part);
    void Enter(std::size_t index);

    std::vector<Part> parts;
    std::size_t current = 0;
    std::int64_t position = 0;
    bool begun = false;
    /// The part's picture that waits until it is known whether another follows before the seam.
    boost::intrusive_ptr<IDataVideo> ahead;
};

} // namespace Kestra::Proc

// SPDX-License-Identifier: GPL-3.0-or-later
// Kestra::Fakes::FakeMuxer: takes packets and remembers them.
#pragma once

#include "Kestra/Base/RefCountImpl.h"
#include "Kestra/Proc/IMuxer.h"
#include "fakes/kestra/Script.h"

namespace Kestra::Fakes {

/// Calls in its script: "AddStream <index>", "Open", "Write <count so far>", "Finish", "Abort"; Abort takes no
/// action. Refuses an order of calls that IMuxer forbids with std::logic_error.
class FakeMuxer : public Proc::IMuxer, public RefCountImpl {
public:
    struct Written {
        int index;
        std::int64_t decodeTime;
        std::int64_t end;
    };

    explicit FakeMuxer(std::shared_ptr<Script> script = std::make_shared<Script>());
    ~FakeMuxer() override;

    const std::shared_ptr<Script>& GetScript() const { return script; }
    /// Thread-safe.
    std::vector<Written> GetWritten() const;

    int AddStream(const boost::intrusive_ptr<Conf::IFormatCodec>& format) override;
    void Open() override;
    void Write(int index, const boost::intrusive_ptr<Proc::IDataRaw>& packet) override;
    void Finish() override;
    void Abort() noexcept override;

private:
    enum class Stage { Adding, Open, Failed, Closed };

    /// Records the call; throws when the muxer is not at `expected`. An exception of the script makes it Failed.
    void Call(const std::string& call, Stage expected);

    const std::shared_ptr<Script> script;
    mutable std::mutex mutex;
    std::vector<Written> written;
    Stage stage = Stage::Adding;
    int streams = 0;
};

} // namespace Kestra::Fakes

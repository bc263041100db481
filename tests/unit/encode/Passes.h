// SPDX-License-Identifier: GPL-3.0-or-later
// EncodeTest::Passes: one encoder that sees the same pictures twice.
#pragma once

#include "RatedEncoding.h"
#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>
#include <sys/resource.h>

namespace EncodeTest {

using Packets = std::vector<boost::intrusive_ptr<Kestra::Proc::IDataRaw>>;

inline std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Both passes over one log in a folder of its own.
class Passes {
public:
    explicit Passes(std::string codec, Fakes::VideoShape shape = Noise(12))
        : Passes(std::move(codec), Fakes::MakeVideo(std::move(shape))) {}
    Passes(std::string codec, boost::intrusive_ptr<Kestra::Proc::IStreamVideo> pictures)
        : codec(std::move(codec))
        , stream(std::move(pictures)) {}

    boost::intrusive_ptr<Kestra::Proc::IEncoder> Make(bool first) const {
        Kestra::Proc::SettingsTwoPassEncoding settings;
        settings.SetLogFile(log);
        settings.firstPass = first;
        auto description = Rated(codec.c_str(), mode.c_str(), bitrate);
        description.Merge(extra);
        const auto encoder = Fakes::VideoEncoder(stream, description);
        encoder->Initialize(Kestra::Proc::IEncoder::Settings2Property(settings));
        encoder->Reset();
        return encoder;
    }
    Packets Run(bool first) const { return Fakes::ReadAll(*Make(first)); }

    /// What the second pass fails with.
    Kestra::Proc::ProcessingError Second() const {
        return Failure([this] { Run(false); });
    }
    std::set<std::string> Files() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(folder.File(""))))
            names.insert(entry.path().filename().string());
        return names;
    }

    /// How a first pass fails when no file may grow beyond so many bytes.
    Kestra::Proc::ProcessingError FirstWithRoomFor(std::size_t bytes) const {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before = {};
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit tight = before;
        tight.rlim_cur = bytes;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
        const auto failure = Failure([this] { Run(true); });
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        return failure;
    }

    const Fakes::ScratchFolder folder;
    const std::string codec;
    const boost::intrusive_ptr<Kestra::Proc::IStreamVideo> stream;
    std::string log = folder.File("pass:1 of 2.log");
    std::string mode = "vbr";
    std::int64_t bitrate = 125000;
    Kestra::Core::Property extra;
};

} // namespace EncodeTest

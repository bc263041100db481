// SPDX-License-Identifier: GPL-3.0-or-later
// What a stream holds open where closing finds no memory.
#include "Render/OpenMaterials.h"
#include "Kestra/Core/CoreManager.h"
#include "fakes/project/FakeMedia.h"
#include <gtest/gtest.h>
#include <new>

namespace Render {
namespace {

class ForgetfulMaterial {
public:
    ForgetfulMaterial(const Material& material, MediaPool& media)
        : shown(material)
        , source(media.open(material.clip->media)) {}

    const Material& material() const { return shown; }
    const MediaPool::Source& medium() const { return source; }
    [[noreturn]] void leave() { throw std::bad_alloc(); }

private:
    const Material shown;
    const MediaPool::Source source;
};

TEST(OpenMaterials, HoldWhatStaysWhereThereIsNoMemoryToHandTheRestOn) {
    const auto media = std::make_shared<Project::Fakes::FakeSourceFactory>();
    media->put("a", {});
    Kestra::Core::CoreManager::Instance().SetSourceFactory(media);
    MediaPool pool;
    const Timeline::Clip clip{{"a", Timeline::MediaFile{Kestra::ioPath("a")}}, {}, {}};
    const Material first{&clip, nullptr, {}, Kestra::Ticks(1)}, second{&clip, nullptr, {}, Kestra::Ticks(2)};
    OpenMaterials<ForgetfulMaterial> open;
    open.add(std::make_unique<ForgetfulMaterial>(first, pool));
    const auto* const stays = &open.add(std::make_unique<ForgetfulMaterial>(second, pool));
    Scene scene;
    scene.parts.push_back({second});
    EXPECT_THROW(open.keepOnly(scene, pool), std::bad_alloc);
    EXPECT_EQ(open.find([](const ForgetfulMaterial&) { return true; }), stays);
    open.keepOnly(Scene(), pool);
    EXPECT_TRUE(open.isEmpty());
    Kestra::Core::CoreManager::Instance().SetSourceFactory(nullptr);
}

} // namespace
} // namespace Render

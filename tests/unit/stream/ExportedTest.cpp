// SPDX-License-Identifier: GPL-3.0-or-later
// What a program that links the module finds in its library.
#include <array>
#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace {

using ::testing::HasSubstr;

/// The names that a library defines for others, one a line.
std::string definedNames(const std::string& library) {
    const std::string command = NM " -DC --defined-only '" + library + "'";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string names;
    std::array<char, 4096> part{};
    while (pipe && std::fgets(part.data(), part.size(), pipe.get()))
        names += part.data();
    return names;
}

class ExportedViews : public ::testing::Test {
protected:
    static void SetUpTestSuite() { names = definedNames(EDITOREXPORT_LIBRARY); }

    struct Medium {
        std::string media;
        std::string interface;
        std::string object() const { return "Stream::Object<Media::" + media + ", Kestra::Proc::" + interface + ">"; }
    };
    const std::array<Medium, 2> both{Medium{"Video", "IStreamVideo"}, Medium{"Audio", "IStreamAudio"}};

    static inline std::string names;
};

TEST_F(ExportedViews, HaveEveryOperationOfTheGenericView) {
    for (const Medium& medium : both) {
        const std::string o = medium.object();
        const std::string view = "Message::View<" + o + " >::";
        for (const char* operation : {"View(@ const*)",
                                      "~View()",
                                      "add(@*)",
                                      "own(@*)",
                                      "change(@ const*)",
                                      "remove(@ const*)",
                                      "observe(@ const*)",
                                      "observeAll()",
                                      "observeNew(bool)",
                                      "processAddRequests(bool)",
                                      "forget(@ const*)",
                                      "enumerateAll()",
                                      "objects() const",
                                      "object() const",
                                      "isObserved(@ const*) const",
                                      "isOwned(@ const*) const",
                                      "ownedPtr(@ const*) const",
                                      "ownerPointer(@ const*) const",
                                      "added(@ const*)",
                                      "changed(@ const*, @ const*, @ const*)",
                                      "changed(@ const*, @ const*)",
                                      "changed(@ const*)",
                                      "removed(@ const*)",
                                      "addRequested(@*)",
                                      "changeRequested(@*, @*)",
                                      "removeRequested(@*)",
                                      "doAdd(@*, bool)",
                                      "doChange(@ const*, @*)",
                                      "doRemove(@ const*)",
                                      "notify(Message::Types::Add<@ > const&)",
                                      "notify(Message::Types::Added<@ > const&)",
                                      "notify(Message::Types::Change<@ > const&)",
                                      "notify(Message::Types::Changed<@ > const&)",
                                      "notify(Message::Types::Remove<@ > const&)",
                                      "notify(Message::Types::Removed<@ > const&)",
                                      "SetterChain::~SetterChain()"}) {
            std::string name = operation;
            for (std::size_t at = name.find('@'); at != std::string::npos; at = name.find('@'))
                name.replace(at, 1, o);
            EXPECT_NE(names.find(' ' + view + name + '\n'), std::string::npos) << view << name;
        }
    }
}

TEST_F(ExportedViews, HaveTheHooksAndTypesOfTheStreamViews) {
    for (const Medium& medium : both) {
        const std::string o = medium.object();
        const std::string base = "Stream::ObjectViewBase<" + o + " >";
        const std::string view = "Stream::View<Media::" + medium.media + ", Kestra::Proc::" + medium.interface + ">";
        const std::string one = "(" + o + " const*)";
        for (const std::string& name : {"vtable for Message::View<" + o + " >",
                                        "typeinfo for Message::View<" + o + " >",
                                        "vtable for " + base,
                                        "typeinfo for " + base,
                                        "vtable for " + view,
                                        "typeinfo for " + view,
                                        base + "::ObjectViewBase()",
                                        base + "::ObjectViewBase(" + base + " const&)",
                                        base + "::~ObjectViewBase()",
                                        base + "::streamAdded" + one,
                                        base + "::streamRemoved" + one,
                                        base + "::streamChanged" + one,
                                        view + "::View()",
                                        view + "::View(" + view + " const&)",
                                        view + "::~View()",
                                        view + "::sourceChanged" + one,
                                        view + "::implChanged" + one,
                                        view + "::versionChanged" + one,
                                        view + "::isUsing(" + o + " const*, bool)",
                                        view + "::isAvailable(" + o + " const*, bool)",
                                        view + "::streamChanged(" + o + " const*, " + o + " const*, " + o + " const*)"})
            EXPECT_NE(names.find(' ' + name + '\n'), std::string::npos) << name;
    }
}

TEST_F(ExportedViews, ComeWithTheModulesClasses) {
    for (const char* name : {"typeinfo for Export::Transcoder", "typeinfo for Export::PresetProvider"})
        EXPECT_THAT(names, HasSubstr(name));
    for (const char* operation :
         {"BrandingController()", "BrandingController(BrandingController const&)",
          "BrandingController(BrandingController&&)", "operator=(BrandingController const&)",
          "operator=(BrandingController&&)", "~BrandingController()", "setBranding(QPixmap const&)",
          "addBranding(boost::intrusive_ptr<Kestra::Proc::IStreamVideo> const&)",
          "addBranding(boost::intrusive_ptr<Kestra::Proc::IStreamAudio> const&)"})
        EXPECT_THAT(names, HasSubstr(std::string(" BrandingController::") + operation + '\n'));
}

} // namespace

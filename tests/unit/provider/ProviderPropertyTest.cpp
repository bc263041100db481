// SPDX-License-Identifier: GPL-3.0-or-later
// Random operations on a provider, against a plain model of what it promises.
#include "EditorSettings/Settings.h"
#include "ProviderFixture.h"
#include <QAbstractItemModelTester>
#include <map>
#include <rapidcheck.h>
#include <vector>

namespace {

using Log = std::vector<std::string>;

/// A preset stands here for its id and what was edited in it; equal settings have equal numbers.
struct Entry {
    std::string id;
    int settings = 0;
};

const std::vector<std::string>& tagNames() {
    static const std::vector<std::string> names{"video", "audio", "none", "web"};
    return names;
}

const std::vector<Entry>& presets() {
    static const std::vector<Entry> all{{"small", 1}, {"large", 2}, {"twin", 2}, {"sound", 3}};
    return all;
}

const Entry* find(const std::string& id) {
    for (const Entry& entry : presets()) {
        if (entry.id == id)
            return &entry;
    }
    return nullptr;
}

enum class Kind { Load, Tag, Row, Id, Edit, Save, Custom, Commit, Retranslate, Reload };

struct Operation {
    Kind kind;
    int number;
    int bitrate;
};

void showValue(const Operation& operation, std::ostream& out) {
    static const char* const NAMES[] = {"load", "tag",    "row",    "id",          "edit",
                                        "save", "custom", "commit", "retranslate", "reload"};
    out << NAMES[static_cast<int>(operation.kind)] << ' ' << operation.number << ' ' << operation.bitrate;
}

/// The promises, without Qt and without a storage.
struct Model {
    std::map<std::string, Log> rowsOf{
        {"video", {"small", "large", "twin"}}, {"audio", {"sound"}}, {"web", {"twin", "large"}}};
    std::map<std::string, int> rows{{"video", 1}, {"audio", 0}, {"web", 0}};
    std::map<std::string, Entry> custom;
    std::string tag, id, savedTag, savedId;
    Entry current;
    bool selected = false;
    Log shown;
    Log log;

    void row(int number) {
        if (number < 0 || number >= static_cast<int>(shown.size()))
            return;
        const Entry chosen = *find(shown[number]);
        if (selected && chosen.settings == current.settings)
            return;
        id = chosen.id;
        current = chosen;
        selected = true;
        rows[tag] = number;
        log.push_back("preset " + std::to_string(number));
    }
    void byId(const std::string& wanted) {
        for (std::size_t number = 0; number < shown.size(); ++number) {
            if (shown[number] == wanted)
                return row(static_cast<int>(number));
        }
    }
    void fill() {
        shown = rowsOf[tag];
        row(rows[tag]);
    }
    void load() {
        const std::string before = tag;
        const bool known = savedTag == "video" || savedTag == "audio" || savedTag == "web";
        if (known)
            tag = savedTag;
        if (tag.empty())
            tag = "video";
        if (tag != before)
            log.push_back("tag " + tag);
        fill();
        if (!savedId.empty())
            byId(savedId);
    }
    void selectTag(const std::string& name) {
        if (name == tag)
            return;
        tag = name;
        fill();
        log.push_back("tag " + tag);
    }
    /// Whether the update succeeds.
    bool update(const Entry& entry) {
        if (entry.id != id)
            return false;
        if (entry.settings == current.settings)
            return true;
        current = entry;
        log.push_back("preset " + std::to_string(rows[tag]));
        return true;
    }
    void save(const Entry& entry) {
        if (custom.count(entry.id) != 0)
            custom[entry.id] = entry;
        else
            custom.emplace(current.id, entry);
    }
    Entry customPreset() const { return custom.count(current.id) != 0 ? custom.at(current.id) : current; }
    void commit() {
        if (id.empty())
            return;
        savedTag = tag;
        savedId = id;
    }
    /// A new provider over the same settings.
    void restart() {
        const std::string group = savedTag, last = savedId;
        *this = Model();
        savedTag = group;
        savedId = last;
    }
};

class ProviderProperty : public ProviderFixture {
protected:
    ProviderProperty() {
        QJsonObject catalogue = TestPresets::smallCatalogue();
        writeCatalogue(TestPresets::edited(
            catalogue, "/tags/2", TestPresets::object("{'name': 'web', 'default': 0, 'presets': ['twin', 'large']}")));
        EXPECT_TRUE(load(storage)) << storage.lastError();
    }

    void restart() {
        tester.reset();
        make();
        tester = std::make_unique<QAbstractItemModelTester>(provider->model(),
                                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
    }

    /// The preset of an entry: an edited one has a sound bitrate of its own, by which it is told.
    Preset real(const Entry& entry) const {
        Preset preset = storage.preset(entry.id);
        if (entry.settings >= 10)
            preset.setAudioBitrateBps(entry.settings * 1000);
        return preset;
    }

    void runLoaded(const Operation& op, Model& model) {
        const Entry& named = presets()[static_cast<std::size_t>(op.number) % presets().size()];
        const Entry changed{named.id, named.id == "sound" ? named.settings : op.bitrate};
        switch (op.kind) {
        case Kind::Edit:
            if (model.selected)
                RC_ASSERT(provider->updatePreset(nullptr, real(changed)) == model.update(changed));
            return;
        case Kind::Save:
            if (model.selected) {
                provider->saveCustomPreset(real(changed));
                model.save(changed);
            }
            return;
        case Kind::Custom:
            if (model.selected)
                RC_ASSERT(provider->updatePreset(nullptr, provider->customPreset()) ==
                          model.update(model.customPreset()));
            return;
        default:
            return;
        }
    }

    void run(const Operation& op, Model& model) {
        const std::string tag = tagNames()[static_cast<std::size_t>(op.number) % tagNames().size()];
        const std::string id = presets()[static_cast<std::size_t>(op.number) % presets().size()].id;
        switch (op.kind) {
        case Kind::Load:
            provider->load();
            return model.load();
        case Kind::Tag:
            provider->selectTag(tag);
            return model.selectTag(tag);
        case Kind::Row:
            provider->selectPreset(op.number - 1);
            return model.row(op.number - 1);
        case Kind::Id:
            provider->selectPreset(id);
            return model.byId(id);
        case Kind::Commit:
            provider->commit();
            return model.commit();
        case Kind::Retranslate:
            return provider->retranslate();
        case Kind::Reload:
            restart();
            return model.restart();
        default:
            return runLoaded(op, model);
        }
    }

    void compare(const Model& model) {
        RC_ASSERT(log == model.log);
        RC_ASSERT(provider->currentTag() == model.tag);
        RC_ASSERT(provider->availablePresets() == model.shown);
        RC_ASSERT(provider->isPresetExists() == model.selected);
        RC_ASSERT(provider->tags() == (Log{"video", "audio", "web"}));
        const auto row = model.rows.find(model.tag);
        const QModelIndex index = provider->modelIndexForCurrentPreset();
        const int wanted = row == model.rows.end() ? 0 : row->second;
        RC_ASSERT(index.row() == (wanted < static_cast<int>(model.shown.size()) ? wanted : -1));
        RC_ASSERT(Settings::lastUsedPresetGroup() == model.savedTag);
        RC_ASSERT(Settings::lastUsedPresetId() == model.savedId);
        if (model.selected)
            compareSelection(model);
    }

    void compareSelection(const Model& model) {
        RC_ASSERT(provider->preset().property() == real(model.current).property());
        RC_ASSERT(provider->originalPreset().property() == storage.preset(model.id).property());
        RC_ASSERT(provider->customPresetExists() == (model.custom.count(model.current.id) != 0));
        RC_ASSERT(provider->customPreset().property() == real(model.customPreset()).property());
        RC_ASSERT(provider->qualityModifiers() == storage.qualityModifierTags(model.id));
    }

    PresetStorage storage;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

rc::Gen<Operation> anyOperation() {
    return rc::gen::map(rc::gen::tuple(rc::gen::weightedElement<Kind>({{2, Kind::Load},
                                                                       {5, Kind::Tag},
                                                                       {6, Kind::Row},
                                                                       {4, Kind::Id},
                                                                       {6, Kind::Edit},
                                                                       {5, Kind::Save},
                                                                       {3, Kind::Custom},
                                                                       {2, Kind::Commit},
                                                                       {1, Kind::Retranslate},
                                                                       {1, Kind::Reload}}),
                                       rc::gen::inRange(0, 6), rc::gen::inRange(32, 36)),
                        [](const std::tuple<Kind, int, int>& parts) {
                            return Operation{std::get<0>(parts), std::get<1>(parts), std::get<2>(parts)};
                        });
}

} // namespace

TEST_F(ProviderProperty, DoesWhatAPlainModelOfItDoes) {
    const bool held = rc::check([this] {
        Settings::setLastUsedPresetGroup("");
        Settings::setLastUsedPresetId("");
        restart();
        Model model;
        const auto operations = *rc::gen::scale(2.0, rc::gen::container<std::vector<Operation>>(anyOperation()));
        for (const Operation& operation : operations) {
            log.clear();
            model.log.clear();
            run(operation, model);
            compare(model);
        }
    });
    EXPECT_TRUE(held);
}

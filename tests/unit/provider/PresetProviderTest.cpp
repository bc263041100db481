// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Exception.h"
#include "ProviderFixture.h"
#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTranslator>
#include <boost/exception/get_error_info.hpp>
#include <climits>

using Export::PresetProvider;
using TestPresets::text;

namespace {

constexpr int ID_ROLE = 257;

/// Translates every name of the presets' context, without a comment and a number, to the name in brackets.
class BracketTranslator : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char* comment, int number) const override {
        const bool asked = qstrcmp(context, "editorPresets") == 0 && comment == nullptr && number == -1;
        return asked ? text("[") + QString::fromUtf8(source) + text("]") : QString();
    }
};

} // namespace

class PresetProviderTest : public ProviderFixture {};

TEST_F(PresetProviderTest, TheMetaObjectListsSignalsAndSlotsInOrder) {
    const QMetaObject& meta = PresetProvider::staticMetaObject;
    EXPECT_STREQ(meta.className(), "Export::PresetProvider");
    const char* const signatures[] = {"tagChanged(std::string)", "presetChanged(int)", "qualityChanged()",
                                      "selectPreset(int)", "selectPreset(std::string)"};
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 5);
    for (int index = 0; index < 5; ++index) {
        const QMetaMethod method = meta.method(meta.methodOffset() + index);
        EXPECT_STREQ(method.methodSignature().constData(), signatures[index]);
        EXPECT_EQ(method.methodType(), index < 3 ? QMetaMethod::Signal : QMetaMethod::Slot);
        EXPECT_EQ(method.access(), QMetaMethod::Public);
    }
    EXPECT_EQ(QMetaMethod::fromSignal(&PresetProvider::tagChanged).methodIndex(), meta.methodOffset());
    EXPECT_EQ(QMetaMethod::fromSignal(&PresetProvider::presetChanged).methodIndex(), meta.methodOffset() + 1);
    EXPECT_EQ(QMetaMethod::fromSignal(&PresetProvider::qualityChanged).methodIndex(), meta.methodOffset() + 2);
}

TEST_F(PresetProviderTest, ACatalogueThatCannotBeLoadedThrowsWithItsOrigin) {
    write(cataloguePath(), "{}");
    try {
        PresetProvider broken(nullptr);
        FAIL() << "nothing was thrown";
    } catch (const Kestra::Exception& exception) {
        EXPECT_STREQ(exception.what(), "PresetStorage::loadPresets FAILED");
        const char* const* function = boost::get_error_info<boost::throw_function>(exception);
        const char* const* file = boost::get_error_info<boost::throw_file>(exception);
        const int* line = boost::get_error_info<boost::throw_line>(exception);
        ASSERT_TRUE(function && file && line);
        EXPECT_STREQ(*function, "__cdecl Export::PresetProvider::PresetProvider(class QObject *)");
        EXPECT_STREQ(*file, "..\\ext\\editor\\src\\library\\Export\\PresetProvider");
        EXPECT_EQ(*line, 33);
        const std::string* reason = boost::get_error_info<Kestra::TagDescription>(exception);
        ASSERT_NE(reason, nullptr);
        EXPECT_EQ(reason->find(cataloguePath().toStdString()), 0u) << *reason;
    }
}

TEST_F(PresetProviderTest, IsEmptyUntilItIsLoaded) {
    PresetProvider& provider = make();
    EXPECT_EQ(provider.tags(), (Ids{"video", "audio"}));
    EXPECT_EQ(provider.currentTag(), "");
    EXPECT_EQ(provider.model()->rowCount(), 0);
    EXPECT_FALSE(provider.isPresetExists());
    EXPECT_EQ(provider.preset().id(), "");
    EXPECT_TRUE(provider.availablePresets().empty());
    EXPECT_EQ(provider.model()->QObject::parent(), &provider);
}

TEST_F(PresetProviderTest, LoadsTheFirstTagAndItsDefaultWhenNothingIsRemembered) {
    make().load();
    EXPECT_EQ(log, (Log{"tag video", "preset 1"}));
    EXPECT_EQ(provider->currentTag(), "video");
    EXPECT_EQ(provider->preset().id(), "large");
    EXPECT_TRUE(provider->isPresetExists());
    EXPECT_EQ(provider->modelIndexForCurrentPreset().row(), 1);
}

TEST_F(PresetProviderTest, ARememberedGroupThatIsNoMoreGivesTheFirstTag) {
    Settings::setLastUsedPresetGroup("gone");
    make().load();
    EXPECT_EQ(log, (Log{"tag video", "preset 1"}));
}

TEST_F(PresetProviderTest, ARememberedGroupIsComparedByItsBytes) {
    Settings::setLastUsedPresetGroup("Audio");
    make().load();
    EXPECT_EQ(provider->currentTag(), "video");
}

TEST_F(PresetProviderTest, RestoresTheRememberedGroupAndPreset) {
    Settings::setLastUsedPresetGroup("video");
    Settings::setLastUsedPresetId("small");
    make().load();
    EXPECT_EQ(log, (Log{"tag video", "preset 1", "preset 0"}));
    EXPECT_EQ(provider->preset().id(), "small");
    EXPECT_EQ(provider->modelIndexForCurrentPreset().row(), 0);
}

TEST_F(PresetProviderTest, ARememberedPresetOfAnotherTagLeavesTheDefault) {
    Settings::setLastUsedPresetGroup("audio");
    Settings::setLastUsedPresetId("small");
    make().load();
    EXPECT_EQ(log, (Log{"tag audio", "preset 0"}));
    EXPECT_EQ(provider->preset().id(), "sound");
}

TEST_F(PresetProviderTest, LoadingAgainRestoresAgainWithoutATagSignal) {
    Settings::setLastUsedPresetGroup("video");
    Settings::setLastUsedPresetId("small");
    make().load();
    provider->selectPreset(1);
    log.clear();
    provider->load();
    EXPECT_EQ(log, (Log{"preset 0"}));
    EXPECT_EQ(provider->preset().id(), "small");
}

TEST_F(PresetProviderTest, LoadingAgainKeepsTheTagWhenNoneIsRemembered) {
    makeLoaded().selectTag("audio");
    log.clear();
    provider->load();
    EXPECT_EQ(provider->currentTag(), "audio");
    EXPECT_EQ(log, (Log{}));
}

TEST_F(PresetProviderTest, TheModelHasARowPerPresetOfTheTag) {
    const PresetProvider& provider = makeLoaded();
    const auto* model = qobject_cast<const QStandardItemModel*>(provider.model());
    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->columnCount(), 1);
    EXPECT_EQ(provider.availablePresets(), (Ids{"small", "large", "twin"}));
    for (int row = 0; row < 3; ++row) {
        const QStandardItem* item = model->item(row);
        EXPECT_EQ(item->data(ID_ROLE).toString().toStdString(),
                  provider.availablePresets()[static_cast<std::size_t>(row)]);
        EXPECT_EQ(item->flags(), QStandardItem().flags());
        EXPECT_FALSE(item->hasChildren());
    }
}

TEST_F(PresetProviderTest, TheModelHasNoHeaders) {
    const auto* model = qobject_cast<const QStandardItemModel*>(makeLoaded().model());
    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->horizontalHeaderItem(0), nullptr);
    EXPECT_EQ(model->verticalHeaderItem(0), nullptr);
}

TEST_F(PresetProviderTest, RowsAreLookedUpByTheirIdAndNeverByTheirText) {
    PresetProvider& provider = makeLoaded();
    ASSERT_TRUE(provider.model()->setData(provider.model()->index(2, 0), text("small")));
    ASSERT_TRUE(provider.model()->setData(provider.model()->index(0, 0), text("large")));
    EXPECT_EQ(provider.availablePresets(), (Ids{"small", "large", "twin"}));
    provider.selectPreset(std::string("small"));
    EXPECT_EQ(log, (Log{"preset 0"}));
    EXPECT_EQ(provider.preset().id(), "small");
    provider.retranslate();
    EXPECT_EQ(provider.model()->index(0, 0).data().toString(), text("small"));
}

TEST_F(PresetProviderTest, AFillResetsTheModelAndThenAppendsRowByRow) {
    PresetProvider& provider = makeLoaded();
    provider.selectTag("audio");
    log.clear();
    QObject::connect(provider.model(), &QAbstractItemModel::modelReset,
                     [&] { log.push_back("reset to " + std::to_string(provider.model()->rowCount())); });
    QObject::connect(provider.model(), &QAbstractItemModel::rowsInserted, [&](const QModelIndex&, int first, int last) {
        const QString id = provider.model()->index(last, 0).data(ID_ROLE).toString();
        log.push_back(std::to_string(first) + " to " + std::to_string(last) + " " + id.toStdString());
    });
    provider.selectTag("video");
    EXPECT_EQ(log, (Log{"reset to 0", "0 to 0 small", "1 to 1 large", "2 to 2 twin", "preset 1", "tag video"}));
}

TEST_F(PresetProviderTest, TheTagOfALoadIsToldBeforeTheModelIsFilled) {
    PresetProvider& provider = make();
    int rows = -1;
    QObject::connect(&provider, &PresetProvider::tagChanged, [&] { rows = provider.model()->rowCount(); });
    provider.load();
    EXPECT_EQ(rows, 0);
}

TEST_F(PresetProviderTest, ASwitchIsToldWhenEverythingIsInPlace) {
    PresetProvider& provider = makeLoaded();
    QObject::connect(&provider, &PresetProvider::presetChanged, [&] {
        log.push_back(provider.currentTag() + " " + provider.preset().id() + " " +
                      std::to_string(provider.modelIndexForCurrentPreset().row()));
    });
    QObject::connect(&provider, &PresetProvider::tagChanged,
                     [&] { log.push_back(std::to_string(provider.model()->rowCount()) + " rows"); });
    provider.selectTag("audio");
    EXPECT_EQ(log, (Log{"preset 0", "audio sound 0", "tag audio", "1 rows"}));
}

TEST_F(PresetProviderTest, TheModelKeepsTheRulesOfModels) {
    PresetProvider& provider = make();
    const QAbstractItemModelTester tester(provider.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    provider.load();
    provider.selectTag("audio");
    provider.retranslate();
    provider.selectTag("video");
    provider.selectTag("none");
    EXPECT_EQ(provider.model()->rowCount(), 0);
}

TEST_F(PresetProviderTest, SwitchingTheTagSelectsFirstAndSignalsTheTagLast) {
    makeLoaded().selectTag("audio");
    EXPECT_EQ(log, (Log{"preset 0", "tag audio"}));
    EXPECT_EQ(provider->preset().id(), "sound");
}

TEST_F(PresetProviderTest, SwitchingBackRestoresTheRowOfThatTag) {
    makeLoaded().selectPreset(0);
    provider->selectTag("audio");
    log.clear();
    provider->selectTag("video");
    EXPECT_EQ(log, (Log{"preset 0", "tag video"}));
    EXPECT_EQ(provider->preset().id(), "small");
}

TEST_F(PresetProviderTest, SelectingTheCurrentTagDoesNothing) {
    PresetProvider& provider = makeLoaded();
    QSignalSpy resets(provider.model(), &QAbstractItemModel::modelReset);
    provider.selectTag("video");
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(log, (Log{}));
}

TEST_F(PresetProviderTest, ATagWithoutRowsSelectsNothingAndKeepsThePreset) {
    makeLoaded().selectTag("none");
    EXPECT_EQ(log, (Log{"tag none"}));
    EXPECT_EQ(provider->currentTag(), "none");
    EXPECT_EQ(provider->preset().id(), "large");
    EXPECT_FALSE(provider->modelIndexForCurrentPreset().isValid());
}

TEST_F(PresetProviderTest, RowsOutOfRangeAreIgnored) {
    PresetProvider& provider = makeLoaded();
    for (const int row : {-1, 3, 1000, INT_MIN, INT_MAX})
        provider.selectPreset(row);
    EXPECT_EQ(log, (Log{}));
    EXPECT_EQ(provider.preset().id(), "large");
}

TEST_F(PresetProviderTest, AnEqualPresetOfAnotherRowChangesNothing) {
    PresetProvider& provider = makeLoaded();
    provider.selectPreset(2);
    EXPECT_EQ(log, (Log{}));
    EXPECT_EQ(provider.preset().id(), "large");
    EXPECT_EQ(provider.modelIndexForCurrentPreset().row(), 1);
    provider.selectPreset(std::string("twin"));
    EXPECT_EQ(log, (Log{}));
}

TEST_F(PresetProviderTest, SelectingTheSelectedRowAgainChangesNothing) {
    makeLoaded().selectPreset(1);
    provider->selectPreset(std::string("large"));
    EXPECT_EQ(log, (Log{}));
}

TEST_F(PresetProviderTest, SelectingTheSelectedRowAgainDropsItsEdits) {
    PresetProvider& provider = makeLoaded();
    Preset edited = provider.preset();
    edited.setAudioBitrateBps(64'000);
    ASSERT_TRUE(provider.updatePreset(nullptr, edited));
    log.clear();
    provider.selectPreset(1);
    EXPECT_EQ(log, (Log{"preset 1"}));
    EXPECT_EQ(provider.preset().audioBitrateBps(), 192'000);
}

TEST_F(PresetProviderTest, AnEqualPresetOfAnotherTagLeavesBothTagsRows) {
    QJsonObject catalogue = TestPresets::smallCatalogue();
    catalogue = TestPresets::edited(catalogue, "/tags/1/presets", QJsonArray{text("sound"), text("twin")});
    writeCatalogue(TestPresets::edited(catalogue, "/tags/1/default", 1));
    makeLoaded().selectTag("audio");
    // The twin of what is selected: the row is the tag's default all the same, and the id stays the old one.
    EXPECT_EQ(log, (Log{"tag audio"}));
    EXPECT_EQ(provider->preset().id(), "large");
    EXPECT_EQ(provider->modelIndexForCurrentPreset().row(), 1);
    provider->commit();
    EXPECT_EQ(Settings::lastUsedPresetGroup(), "audio");
    EXPECT_EQ(Settings::lastUsedPresetId(), "large");
}

TEST_F(PresetProviderTest, SelectsById) {
    makeLoaded().selectPreset(std::string("small"));
    EXPECT_EQ(log, (Log{"preset 0"}));
    provider->selectPreset(std::string("sound"));
    provider->selectPreset(std::string());
    EXPECT_EQ(log, (Log{"preset 0"}));
    EXPECT_EQ(provider->preset().id(), "small");
}

TEST_F(PresetProviderTest, TheSlotsAreReachedByName) {
    PresetProvider& provider = makeLoaded();
    ASSERT_TRUE(QMetaObject::invokeMethod(&provider, "selectPreset", Q_ARG(int, 0)));
    ASSERT_TRUE(QMetaObject::invokeMethod(&provider, "selectPreset", Q_ARG(std::string, std::string("large"))));
    EXPECT_EQ(log, (Log{"preset 0", "preset 1"}));
}

TEST_F(PresetProviderTest, ViewsThatReactToTheRefillCannotSelect) {
    PresetProvider& provider = makeLoaded();
    provider.selectTag("audio");
    log.clear();
    int calls = 0;
    const auto meddle = [&] {
        ++calls;
        provider.selectPreset(0);
        provider.selectPreset(std::string("small"));
    };
    QObject::connect(provider.model(), &QAbstractItemModel::modelReset, meddle);
    QObject::connect(provider.model(), &QAbstractItemModel::rowsInserted, meddle);
    provider.selectTag("video");
    EXPECT_EQ(calls, 4);
    EXPECT_EQ(log, (Log{"preset 1", "tag video"}));
    EXPECT_EQ(provider.preset().id(), "large");
}

TEST_F(PresetProviderTest, TheGuardIsLeftAfterARefill) {
    makeLoaded().selectTag("audio");
    provider->selectTag("video");
    log.clear();
    provider->selectPreset(0);
    EXPECT_EQ(log, (Log{"preset 0"}));
}

TEST_F(PresetProviderTest, CommitBeforeASelectionWritesNothing) {
    make().commit();
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(text("config"))));
}

TEST_F(PresetProviderTest, CommitRemembersTagAndPreset) {
    makeLoaded().selectPreset(0);
    EXPECT_EQ(Settings::lastUsedPresetId(), "");
    provider->commit();
    EXPECT_EQ(Settings::lastUsedPresetGroup(), "video");
    EXPECT_EQ(Settings::lastUsedPresetId(), "small");
    make().load();
    EXPECT_EQ(provider->preset().id(), "small");
}

TEST_F(PresetProviderTest, DestructionDoesNotCommit) {
    makeLoaded();
    provider.reset();
    EXPECT_EQ(Settings::lastUsedPresetId(), "");
}

TEST_F(PresetProviderTest, TheIndexIsThatOfTheTagsRememberedRow) {
    PresetProvider& provider = makeLoaded();
    EXPECT_EQ(provider.modelIndexForCurrentPreset(), provider.model()->index(1, 0));
    provider.selectTag("audio");
    EXPECT_EQ(provider.modelIndexForCurrentPreset(), provider.model()->index(0, 0));
}

TEST_F(PresetProviderTest, TheIndexOfATagThatWasNeverFilledIsRowZero) {
    PresetProvider& provider = make();
    EXPECT_FALSE(provider.modelIndexForCurrentPreset().isValid());
    auto* const model = qobject_cast<QStandardItemModel*>(provider.model());
    ASSERT_NE(model, nullptr);
    // Rows of somebody else: nothing is remembered yet that could name one of them.
    model->appendRow(new QStandardItem);
    model->appendRow(new QStandardItem);
    EXPECT_EQ(provider.modelIndexForCurrentPreset(), model->index(0, 0));
}

TEST_F(PresetProviderTest, RetranslationTouchesRowByRowAndResetsNothing) {
    PresetProvider& provider = makeLoaded();
    QSignalSpy resets(provider.model(), &QAbstractItemModel::modelReset);
    QSignalSpy removals(provider.model(), &QAbstractItemModel::rowsRemoved);
    BracketTranslator translator;
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    Log touched;
    QObject::connect(provider.model(), &QAbstractItemModel::dataChanged,
                     [&](const QModelIndex& index) { touched.push_back(std::to_string(index.row())); });
    provider.retranslate();
    QCoreApplication::removeTranslator(&translator);
    EXPECT_EQ(touched, (Log{"0", "1", "2"}));
    EXPECT_EQ(resets.count() + removals.count(), 0);
}

TEST_F(PresetProviderTest, ATagIsDeliveredThroughAQueuedConnection) {
    make();
    std::vector<std::string> told;
    QObject receiver;
    QObject::connect(
        provider.get(), &Export::PresetProvider::tagChanged, &receiver,
        [&told](const std::string& tag) { told.push_back(tag); }, Qt::QueuedConnection);
    provider->load();
    EXPECT_TRUE(told.empty());
    QCoreApplication::sendPostedEvents(&receiver);
    EXPECT_EQ(told, std::vector<std::string>{"video"});
}

TEST_F(PresetProviderTest, RetranslationChangesOnlyTheTexts) {
    PresetProvider& provider = makeLoaded();
    EXPECT_EQ(provider.model()->index(0, 0).data().toString(), text("small"));
    EXPECT_EQ(provider.localizeTag("audio"), text("audio"));
    BracketTranslator translator;
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    provider.retranslate();
    EXPECT_EQ(provider.model()->index(0, 0).data().toString(), text("[small]"));
    EXPECT_EQ(provider.model()->index(2, 0).data().toString(), text("[twin]"));
    EXPECT_EQ(provider.localizeTag("audio"), text("[audio]"));
    EXPECT_EQ(provider.availablePresets(), (Ids{"small", "large", "twin"}));
    EXPECT_EQ(provider.modelIndexForCurrentPreset().row(), 1);
    EXPECT_EQ(log, (Log{}));
    provider.selectTag("audio");
    EXPECT_EQ(provider.model()->index(0, 0).data().toString(), text("[sound]"));
    QCoreApplication::removeTranslator(&translator);
}

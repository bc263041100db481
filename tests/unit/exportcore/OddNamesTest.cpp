// SPDX-License-Identifier: GPL-3.0-or-later
// Names that nobody expects, with every ending, and as presets and tags: what is decided before anything opens.
#include "ExportCore/PresetCatalogue.h"
#include "ExportCore/PresetChoice.h"
#include "ExportCore/Refusal.h"
#include "ExportCore/RequestCheck.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/OddStrings.h"
#include "support/StrictText.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <climits>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

using ExportCore::ExportRequest;
using ExportCore::OutputTarget;
using ExportCore::PresetCatalogue;
using ExportCore::PresetChoice;
using ExportCore::Refusal;
using ExportCore::RequestCheck;
using TestSupport::oddStrings;
using TestSupport::shown;

namespace {

/// As whoever embeds the library may have it, halves of letters included; nothing for what no text holds.
std::optional<QString> textOf(const std::string& odd) {
    try {
        const QByteArray json = QByteArray::fromStdString('[' + TestSupport::jsonString(odd) + ']');
        return QJsonDocument::fromJson(json).array().first().toString();
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
}

std::vector<QString> texts() {
    std::vector<QString> all;
    for (const std::string& odd : oddStrings())
        if (const auto text = textOf(odd))
            all.push_back(*text);
    return all;
}

/// Whether it is the name of a file without a folder.
bool isName(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return text.isValidUtf16() && !text.contains(QChar(0)) && !bytes.isEmpty() && !bytes.contains('/') &&
           bytes != "." && bytes != ".." && bytes.size() <= NAME_MAX;
}

std::string refusalOf(const std::function<void()>& step) {
    try {
        step();
        return {};
    } catch (const Refusal& refusal) {
        return refusal.what();
    }
}

TEST(OddNames, OfOutputsMeanThatVeryFileOrAreRefused) {
    const TestMedia::Folder place;
    const QString folder = QString::fromStdString(std::filesystem::canonical(place / "").string() + '/');
    ExportRequest request;
    std::size_t accepted = 0;
    for (const char* const ending : {"", ".mp4", ".mov"})
        for (const QString& text : texts()) {
            const QString file = text + QString::fromUtf8(ending);
            request.outputPath = folder + file;
            QByteArray path;
            const std::string refusal = refusalOf([&] { path = RequestCheck::output(request).path; });
            if (text.contains(QLatin1Char('/'))) // elsewhere, where that can be
                continue;
            EXPECT_EQ(refusal.empty(), isName(file)) << shown(file.toStdString()) << ": " << refusal;
            if (!isName(file))
                continue;
            EXPECT_EQ(shown(path.toStdString()), shown((folder + file).toStdString()));
            ++accepted;
        }
    EXPECT_GT(accepted, 1250U);
    EXPECT_TRUE(TestFiles::namesIn(place / "").isEmpty()) << "checking makes nothing";
}

TEST(OddNames, OfInputsThatAreNotThereAreRefused) {
    const TestMedia::Folder place;
    for (const QString& text : texts()) {
        const QString file = QString::fromStdString(place / "missing") + text;
        const std::string refusal = refusalOf([&] { RequestCheck::inputs({file}); });
        EXPECT_EQ(refusal.rfind("Cannot read \"", 0), 0U) << shown(text.toStdString());
        EXPECT_EQ(refusal.find("a NUL stands in it") != std::string::npos, text.contains(QChar(0)));
        EXPECT_EQ(refusal.find("half of a surrogate pair") != std::string::npos,
                  !text.isValidUtf16() && !text.contains(QChar(0)));
    }
}

TEST(OddNames, OfPresetsAndTagsThatAreNoneAreRefused) {
    const PresetCatalogue catalogue;
    const auto isIn = [](const std::vector<std::string>& names, const std::string& name) {
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    for (const std::string& odd : oddStrings()) {
        const bool isTag = isIn(catalogue.tags(), odd), isPreset = isIn(catalogue.ids(), odd);
        const std::string choice = refusalOf([&] { PresetChoice::of(odd, QStringLiteral("film.mp4"), catalogue); });
        EXPECT_EQ(choice.empty(), isTag || isPreset || odd.empty()) << shown(odd) << choice;
        EXPECT_EQ(refusalOf([&] { catalogue.idsOf(odd); }).empty(), isTag) << shown(odd);
        EXPECT_EQ(refusalOf([&] { catalogue.preset(odd); }).empty(), isPreset) << shown(odd);
    }
}

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
// Names that nobody expects: of outputs, of inputs, of presets and tags, of films.
#include "Program.h"
#include "support/Described.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include "support/MediaProbe.h"
#include "support/OddStrings.h"
#include "support/StrictText.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using TestCli::Program;
using TestCli::Result;
using TestSupport::hasControls;
using TestSupport::isUtf8;
using TestSupport::jsonString;
using TestSupport::oddStrings;
using TestSupport::shown;

namespace {

QString name(const char* text) {
    return QString::fromUtf8(text);
}

const std::string BYTE_ORDER_MARK = "\xef\xbb\xbf";

/// A name as who reads JSON gets it: two halves make one letter.
std::string readFromJson(const std::string& text) {
    std::string whole = text;
    const std::string halves = "\xed\xa0\xbd\xed\xb8\x80";
    if (const std::size_t at = whole.find(halves); at != std::string::npos)
        whole.replace(at, halves.size(), "\xf0\x9f\x98\x80");
    return whole;
}

bool standsInJson(const std::string& text) {
    try {
        return !jsonString(text).empty();
    } catch (const std::logic_error&) {
        return false;
    }
}

/// Behind what names a folder, or leaves this one altogether, nothing is put: that would be another place.
std::string withEnding(const std::string& text, const std::string& ending) {
    const bool isPlace = !text.empty() && (text.front() == '/' || text.back() == '/');
    return isPlace ? text : text + ending;
}

std::set<std::string> filesBelow(const std::string& folder) {
    std::set<std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        if (!entry.is_directory())
            files.insert(entry.path().string());
    return files;
}

/// Where the system puts a new file of that name, seen from the folder; empty where it can put none.
std::string placeOf(const std::string& folder, const std::string& text) {
    if (text.find('\0') != std::string::npos || text.size() >= PATH_MAX)
        return {};
    const std::size_t slash = text.rfind('/') + 1; // npos + 1 is 0
    const std::string last = text.substr(slash);
    if (last.empty() || last == "." || last == ".." || last.size() > NAME_MAX)
        return {};
    const int from = ::open(folder.c_str(), O_PATH | O_CLOEXEC);
    const std::string parent = slash == 0 ? "." : text.substr(0, slash);
    const int there = ::openat(from, parent.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    const std::string place =
        there < 0 ? "" : fs::read_symlink("/proc/self/fd/" + std::to_string(there)).string() + '/' + last;
    ::close(from);
    ::close(there);
    return place;
}

/// What was told of the jobs of a queue, by their numbers.
std::map<int, QList<QJsonObject>> outcomesOf(const Result& result) {
    std::map<int, QList<QJsonObject>> outcomes;
    int number = 0;
    for (const QJsonObject& object : TestCli::jsonLines(result.errors)) {
        const QString type = object.value(name("type")).toString();
        if (type == name("job") && object.value(name("status")).toString() == name("begun"))
            number = object.value(name("number")).toInt();
        if (type == name("done") || type == name("refused") || type == name("failed"))
            outcomes[number] << object;
    }
    return outcomes;
}

QString typeOf(const QJsonObject& outcome) {
    return outcome.value(name("type")).toString();
}

class OddNames : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        media = std::make_unique<TestMedia::Folder>();
        TestMedia::FlashBeep film;
        film.width = film.height = 32;
        film.frames = 2;
        film.samples = 2 * 48'000 / 25;
        TestMedia::makeFlashBeep(*media / "tiny.mov", film);
    }
    static void TearDownTestSuite() { media.reset(); }

    OddNames() {
        fs::create_directories(inner);
        for (const std::string& file : {outer + "/others.mp4", inner + "/others.mp4"})
            TestFiles::write(file, "others'");
    }

    std::string tiny() const { return *media / "tiny.mov"; }

    static std::string job(const std::string& input, const std::string& output, const std::string& preset = PRESET) {
        return "{\"inputs\":" + jsonString(input) + ",\"output\":" + jsonString(output) +
               ",\"preset\":" + jsonString(preset) + ",\"audio\":\"none\"}";
    }
    static std::string listed(const std::vector<std::string>& jobs) {
        std::string text;
        for (const std::string& one : jobs)
            text += (text.empty() ? "{\"queue\":1,\"jobs\":[\n" : ",\n") + one;
        return text + "]}";
    }
    Result runQueue(const std::string& progress) const {
        Result result = TestCli::run({"queue", inner + "/jobs.json", "--progress", progress});
        expectHarmless(result);
        return result;
    }

    /// Of everything that a run says: no terminal obeys it, each line is whole.
    static void expectHarmless(const Result& result) {
        EXPECT_TRUE(result.ended);
        EXPECT_TRUE(result.code == 0 || result.code == 1 || result.code == 2) << result.code;
        for (const std::string* const said : {&result.rawOutput, &result.rawErrors}) {
            EXPECT_TRUE(isUtf8(*said));
            for (const QString& line : QString::fromStdString(*said).split(QLatin1Char('\n')))
                EXPECT_FALSE(hasControls(line.toStdString())) << shown(line.toStdString());
        }
    }
    static void expectObjects(const Result& result) {
        for (const QJsonObject& object : TestCli::jsonLines(result.errors))
            EXPECT_FALSE(object.value(name("type")).toString().isEmpty()) << "a line is no object";
    }
    /// A sentence that says what is wrong, with its name where that can be printed.
    static void expectReason(const QJsonObject& outcome, const std::string& text) {
        const std::string message = outcome.value(name("message")).toString().toStdString();
        EXPECT_EQ(typeOf(outcome), name("refused")) << shown(text) << ": " << message;
        EXPECT_GT(message.size(), 20U) << shown(text);
        const bool isPlain = shown(text) == text && !text.empty();
        EXPECT_TRUE(!isPlain || message.find(text) != std::string::npos ||
                    message.find("writes a file that job") != std::string::npos)
            << shown(text) << ": " << message;
    }
    static void expectFilm(const std::string& path) {
        struct stat state = {};
        ASSERT_EQ(::lstat(path.c_str(), &state), 0) << shown(path);
        ASSERT_TRUE(S_ISREG(state.st_mode)) << shown(path);
        const TestMedia::ProbedMedia film = TestMedia::probe(path);
        ASSERT_TRUE(film.video) << shown(path);
        EXPECT_EQ(film.video->frames.size(), 2U) << shown(path);
        EXPECT_EQ(film.video->width, 32) << shown(path);
        EXPECT_EQ(film.decodeErrors, 0) << shown(path);
    }
    void expectNothingElse(std::set<std::string> made) const {
        for (const char* const file : {"/jobs.json", "/jobs.json.state", "/others.mp4"})
            made.insert(inner + file);
        made.insert(outer + "/others.mp4");
        for (const std::string& file : filesBelow(outer))
            EXPECT_TRUE(made.count(file) > 0) << "nobody asked for " << shown(file);
        EXPECT_EQ(TestFiles::read(inner + "/others.mp4"), "others'");
        EXPECT_EQ(TestFiles::read(outer + "/others.mp4"), "others'");
    }

    static constexpr const char* PRESET = "mp4-h264-480p";
    static inline std::unique_ptr<TestMedia::Folder> media;
    const TestMedia::Folder place;
    const std::string outer = fs::canonical(place / "").string();
    const std::string inner = outer + "/some/folders/deep";
};

class OddTitles : public OddNames {
protected:
    /// A timeline of that name.
    std::string timeline(const std::string& title, std::size_t number) const {
        const std::string path = sources / (std::to_string(number) + ".otio");
        TestFiles::write(
            path, QByteArray::fromStdString(
                      R"({"OTIO_SCHEMA":"Timeline.1","name":)" + jsonString(title) +
                      R"(,"tracks":{"OTIO_SCHEMA":"Stack.1","children":[{"OTIO_SCHEMA":"Track.1","kind":"Video",)"
                      R"("children":[{"OTIO_SCHEMA":"Clip.1","media_reference":{"OTIO_SCHEMA":"ExternalReference.1",)"
                      R"("target_url":)" +
                      jsonString(tiny()) + "}}]}]}}"));
        return path;
    }
    /// A NUL ends a title.
    static void expectTitle(const std::string& path, const std::string& title, const QJsonObject& outcome) {
        const std::string kept = title.substr(0, title.find('\0'));
        EXPECT_EQ(TestMedia::describe(path).tag("title"), kept) << shown(title);
        const QString warnings = QString::fromUtf8(QJsonDocument(outcome).toJson());
        EXPECT_EQ(warnings.contains(name("a NUL stands in the name")), kept != title) << shown(title);
    }

    const TestMedia::Folder sources;
};

TEST_F(OddTitles, AndOutputsAreMadeAsTheyAreCalledOrRefusedByName) {
    std::vector<std::string> texts, jobs;
    for (const std::string& text : oddStrings())
        if (standsInJson(text)) {
            texts.push_back(text);
            jobs.push_back(job(timeline(text, texts.size()), withEnding(text, ".mp4")));
        }
    ASSERT_GT(texts.size(), 480U);
    TestFiles::write(inner + "/jobs.json", QByteArray::fromStdString(listed(jobs)));
    std::map<std::size_t, std::string> places;
    std::set<std::string> made;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string output = readFromJson(withEnding(texts[i], ".mp4"));
        const std::string at = placeOf(inner, output);
        struct stat state = {};
        if (!at.empty() && ::lstat(at.c_str(), &state) != 0 && isUtf8(output) &&
            output.rfind(BYTE_ORDER_MARK, 0) != 0 && made.insert(at).second)
            places[i] = at;
    }
    const Result result = runQueue("json");
    expectObjects(result);
    EXPECT_EQ(result.code, 1) << "some cannot be made";
    const auto outcomes = outcomesOf(result);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto told = outcomes.find(static_cast<int>(i + 1));
        ASSERT_TRUE(told != outcomes.end() && told->second.size() == 1) << shown(texts[i]);
        const QJsonObject& outcome = told->second.first();
        if (places.count(i) == 0) {
            expectReason(outcome, withEnding(texts[i], ".mp4"));
            continue;
        }
        EXPECT_EQ(typeOf(outcome), name("done"))
            << shown(texts[i]) << ": " << outcome.value(name("message")).toString().toStdString();
        expectFilm(places[i]);
        expectTitle(places[i], readFromJson(texts[i]), outcome);
    }
    EXPECT_GT(places.size(), 420U);
    expectNothingElse(made);
    const Result again = runQueue("plain");
    EXPECT_TRUE(again.output.contains(QString::number(places.size()) + name(" done before"))) << again.rawOutput;
    for (const QString& line : again.errorLines())
        EXPECT_TRUE(line.startsWith(name("editor-export: "))) << line.toStdString();
    EXPECT_EQ(again.errorLines().filter(name("\": failed")).size(), static_cast<int>(texts.size() - places.size()));
    expectNothingElse(made);
}

TEST_F(OddNames, OfMediaAreReadUnderThem) {
    std::vector<std::string> names, jobs;
    QStringList words{name("env"), name("-C"), QString::fromStdString(inner)};
    std::set<std::string> files{inner + "/others.mp4"};
    for (const std::string& text : oddStrings()) {
        const std::string file = text + ".mov";
        if (file.find('\0') != std::string::npos || file.find('/') != std::string::npos || file.size() > NAME_MAX)
            continue;
        ASSERT_EQ(::link(tiny().c_str(), (inner + '/' + file).c_str()), 0) << shown(file);
        files.insert(inner + '/' + file);
        if (isUtf8(file) && file.rfind(BYTE_ORDER_MARK, 0) != 0)
            names.push_back(file);
    }
    ASSERT_GT(names.size(), 420U);
    std::vector<std::string> arguments{"info", "--json", "--"};
    arguments.insert(arguments.end(), names.begin(), names.end());
    Program program(arguments);
    program.setWrapper(words);
    const Result told = program.run();
    expectHarmless(told);
    EXPECT_EQ(told.rawErrors, "");
    std::vector<std::string> read;
    for (const QJsonValue& medium :
         QJsonDocument::fromJson(told.output.toUtf8()).object().value(name("media")).toArray()) {
        read.push_back(medium.toObject().value(name("path")).toString().toStdString());
        EXPECT_EQ(medium.toObject().value(name("tracks")).toArray().size(), 2) << shown(read.back());
    }
    EXPECT_EQ(read, names);
    std::set<std::string> films;
    for (std::size_t i = 0; i < names.size(); i += 9) {
        const std::string film = std::to_string(i) + ".mp4";
        jobs.push_back(job(names[i], film));
        films.insert(inner + '/' + film);
    }
    TestFiles::write(inner + "/jobs.json", QByteArray::fromStdString(listed(jobs)));
    const Result made = runQueue("plain");
    EXPECT_EQ(made.code, 0) << made.rawErrors;
    for (const std::string& film : films)
        expectFilm(film);
    files.insert(films.begin(), films.end());
    expectNothingElse(files);
}

TEST_F(OddNames, OfPresetsAndTagsAreRefused) {
    std::vector<std::string> texts, jobs;
    for (std::size_t i = 0; i < oddStrings().size(); ++i)
        if (const std::string& text = oddStrings()[i];
            standsInJson(text) && (i % 5 == 0 || text == "mp4" || text == "web")) {
            texts.push_back(text);
            jobs.push_back(job(tiny(), std::to_string(texts.size()) + ".mp4", text));
        }
    ASSERT_GT(texts.size(), 95U);
    TestFiles::write(inner + "/jobs.json", QByteArray::fromStdString(listed(jobs)));
    const Result result = runQueue("json");
    expectObjects(result);
    std::set<std::string> made;
    const auto outcomes = outcomesOf(result);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QJsonObject outcome = outcomes.at(static_cast<int>(i + 1)).first();
        if (texts[i] == "mp4" || texts[i] == "web") {
            EXPECT_EQ(typeOf(outcome), name("done")) << texts[i];
            made.insert(inner + '/' + std::to_string(i + 1) + ".mp4");
        } else {
            expectReason(outcome, texts[i]);
        }
    }
    EXPECT_EQ(made.size(), 2U);
    expectNothingElse(made);
    for (std::size_t i = 0; i < texts.size(); i += 7) {
        if (texts[i].find('\0') != std::string::npos)
            continue;
        const Result tag = TestCli::run({"presets", "--tag=" + texts[i]});
        expectHarmless(tag);
        EXPECT_EQ(tag.code, 2) << shown(texts[i]);
        EXPECT_EQ(tag.errorLines().size(), 1) << tag.rawErrors;
    }
}

TEST_F(OddNames, OfWhatTheCommandLineIsGivenAreMadeOrRefused) {
    std::set<std::string> made;
    const char* const endings[] = {".mp4", ".mov", ""};
    for (std::size_t i = 0; i < oddStrings().size(); ++i) {
        const std::string& text = oddStrings()[i];
        const bool isTaken = i % 23 == 0 || !isUtf8(text) || (!text.empty() && text.front() == '-');
        if (!isTaken || text.find('\0') != std::string::npos)
            continue;
        const std::string ending = endings[i % 3], output = withEnding(text, ending);
        const std::string preset = ending == ".mov" ? "mov-h264-1080p" : PRESET;
        const bool isWord = !text.empty() && text.front() == '-'; // that is to be seen as it is
        std::vector<std::string> words{"render", tiny(), "--audio", "none", "-p", preset, "--output="};
        words.back() += isWord || output.empty() ? output : inner + '/' + output;
        Program program(words);
        if (isWord)
            program.setWrapper({name("env"), name("-C"), QString::fromStdString(inner)});
        const Result result = program.run();
        expectHarmless(result);
        const std::string at = placeOf(inner, output);
        if (result.code == 0) {
            expectFilm(at);
            made.insert(at);
            continue;
        }
        EXPECT_EQ(result.code, 2) << shown(output) << result.rawErrors;
        EXPECT_EQ(result.errorLines().size(), 1) << shown(output) << result.rawErrors;
        const bool mayBeRefused = at.empty() || !isUtf8(output) || output == "-" || ending.empty();
        EXPECT_TRUE(mayBeRefused) << shown(output) << ": " << result.rawErrors;
    }
    EXPECT_GT(made.size(), 20U);
    expectNothingElse(made);
}

TEST_F(OddNames, ThatWouldBeOthersAsBytesAreRefusedForThat) {
    const auto messageOf = [this](const std::string& output) {
        TestFiles::write(inner + "/jobs.json", QByteArray::fromStdString(listed({job(tiny(), output)})));
        const auto outcomes = outcomesOf(runQueue("json"));
        return outcomes.at(1).first().value(name("message")).toString().toStdString();
    };
    EXPECT_EQ(messageOf(std::string("others\0.mp4", 11)), "\"output\": a NUL stands in it, which ends a name");
    EXPECT_EQ(messageOf("others\xed\xa0\x80.mp4"),
              "\"output\": half of a surrogate pair stands in it, which is no letter");
    EXPECT_EQ(messageOf(BYTE_ORDER_MARK + "others.mp4"),
              "\"output\": it begins with a byte order mark; write ./ in front of a name that does");
    const Result marked = TestCli::run({"render", tiny(), BYTE_ORDER_MARK + "others.mp4"});
    EXPECT_EQ(marked.rawErrors, "editor-export: argument 3 begins with a byte order mark; write ./ in front of a name "
                                "that does (see --help)\n");
    expectNothingElse({});
    const Result named = TestCli::run({"render", tiny(), inner + "/./" + BYTE_ORDER_MARK + "others.mp4"});
    EXPECT_EQ(named.code, 0) << named.rawErrors;
    expectFilm(inner + '/' + BYTE_ORDER_MARK + "others.mp4");
}

TEST_F(OddNames, WithAPercentSignAreOneFilm) {
    TestFiles::write(inner + "/jobs.json",
                     QByteArray::fromStdString(
                         listed({job(tiny(), "film_%d.mp4"), job(tiny(), "film_7.mp4"), job(tiny(), "%04d.mp4")})));
    const Result result = runQueue("plain");
    EXPECT_EQ(result.code, 0) << result.rawErrors;
    for (const char* const film : {"/film_%d.mp4", "/film_7.mp4", "/%04d.mp4"})
        expectFilm(inner + film);
}

} // namespace

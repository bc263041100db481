// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorPreset/CatalogueKeys.h"
#include "EditorPreset/CatalogueError.h"
#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#include <set>
#include <vector>

namespace EditorPreset {

namespace {

/// Walks with the parser through objects and arrays, and knows the place of what comes next.
class KeyScanner : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, KeyScanner> {
public:
    explicit KeyScanner(const std::string& scannedFile)
        : file(scannedFile) {}

    bool Default() {
        if (!levels.empty())
            ++levels.back().index;
        return true;
    }
    bool StartObject() { return open(false); }
    bool EndObject(rapidjson::SizeType) { return close(); }
    bool StartArray() { return open(true); }
    bool EndArray(rapidjson::SizeType) { return close(); }
    bool Key(const char* text, rapidjson::SizeType length, bool) {
        Level& level = levels.back();
        level.key.assign(text, length);
        if (!level.keys.insert(level.key).second)
            place().refuse("the key stands twice");
        return true;
    }

private:
    struct Level {
        bool isArray = false;
        std::size_t index = 0;
        std::string key;
        std::set<std::string> keys;
    };

    bool open(bool isArray) {
        levels.emplace_back();
        levels.back().isArray = isArray;
        return true;
    }
    bool close() {
        levels.pop_back();
        return Default();
    }
    JsonPlace place() const {
        JsonPlace here{file, {}};
        for (const Level& level : levels)
            here = level.isArray ? here.at(level.index) : here.at(level.key);
        return here;
    }

    const std::string& file;
    std::vector<Level> levels;
};

} // namespace

void checkKeysAreUnique(const QByteArray& bytes, const std::string& file) {
    const int mark = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    rapidjson::MemoryStream stream(bytes.constData() + mark, static_cast<std::size_t>(bytes.size() - mark));
    KeyScanner scanner(file);
    rapidjson::Reader reader;
    const rapidjson::ParseResult result =
        reader.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseStopWhenDoneFlag>(stream, scanner);
    if (!result)
        JsonPlace{file, {}}.refuse(std::string("malformed JSON: ") + rapidjson::GetParseError_En(result.Code()));
}

} // namespace EditorPreset

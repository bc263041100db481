// The command line in a terminal of its own, as it looks there.
#include "support/FlashBeep.h"
#include "support/Golden.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <pty.h>
#include <regex>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

/// What a terminal shows in the end: a return goes back to the start of a line, which is written over then.
class Screen {
public:
    explicit Screen(std::size_t columns)
        : columns(columns) {}

    void take(const std::string& bytes) {
        for (const char byte : bytes)
            if (byte == '\n')
                newLine();
            else if (byte == '\r')
                at = 0;
            else
                put(byte);
    }
    std::string text() const {
        std::string all;
        for (std::string line : lines) {
            line.erase(line.find_last_not_of(' ') + 1);
            all += line + '\n';
        }
        return all;
    }
    /// A line went on to the next one because the terminal ended.
    int broken() const { return breaks; }

private:
    void newLine() {
        lines.emplace_back();
        at = 0;
    }
    void put(char byte) {
        const bool begins = (byte & 0xC0) != 0x80;
        if (begins && at == columns) {
            ++breaks;
            newLine();
        }
        std::string& line = lines.back();
        line.resize(std::max(line.size(), at + 1), ' ');
        line[at++] = byte;
    }

    const std::size_t columns;
    std::vector<std::string> lines{std::string()};
    std::size_t at = 0;
    int breaks = 0;
};

struct Shown {
    std::string bytes;
    int code = -1;
};

/// Runs the program in `folder`.
Shown show(const std::vector<std::string>& arguments, unsigned short columns, const std::string& folder) {
    int terminal = -1;
    const winsize size{24, columns, 0, 0};
    const pid_t child = forkpty(&terminal, nullptr, nullptr, &size);
    if (child == 0) {
        std::vector<char*> words{const_cast<char*>("editor-export")};
        for (const std::string& argument : arguments)
            words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        setenv("XDG_CONFIG_HOME", "/nonexistent", 1);
        setenv("EDITOR_EXPORT_PRESETS", EDITOR_EXPORT_CATALOGUE, 1);
        if (chdir(folder.c_str()) == 0)
            execv(EDITOR_EXPORT_PROGRAM, words.data());
        _exit(99);
    }
    Shown shown;
    char buffer[4096];
    // A terminal whose last user has gone answers with an error.
    for (ssize_t count = 0; (count = read(terminal, buffer, sizeof buffer)) > 0;)
        shown.bytes.append(buffer, static_cast<std::size_t>(count));
    close(terminal);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    shown.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return shown;
}

/// What depends on the machine and the minute.
std::string masked(std::string text) {
    const std::pair<const char*, const char*> masks[] = {{"made in [0-9.]+ s \\([0-9.]+x\\)", "made in # s (#x)"},
                                                         {"[0-9]+ bytes, made", "# bytes, made"}};
    for (const auto& [pattern, mask] : masks)
        text = std::regex_replace(text, std::regex(pattern), mask);
    return text;
}

/// The first and the last state of the bar, one a line, their numbers masked.
std::string statesOf(const std::string& bytes) {
    std::vector<std::string> kinds;
    std::string state;
    for (const char byte : bytes + '\r') {
        if (byte != '\r' && byte != '\n') {
            state += byte;
            continue;
        }
        state = std::regex_replace(state, std::regex("\\[[#-]+\\]"), "[bar]");
        state = std::regex_replace(state, std::regex("[0-9][0-9.:]*( [kM]B| bytes?)?"), "#$1");
        state = std::regex_replace(state, std::regex("# ([kM]B|bytes?)"), "# size");
        state.erase(state.find_last_not_of(' ') + 1);
        if (state.find('%') != std::string::npos)
            kinds.push_back(state);
        state.clear();
    }
    // The first has nothing but a percentage; in the end all is known that there is room for.
    return kinds.empty() ? std::string() : kinds.front() + '\n' + kinds.back() + '\n';
}

class Transcript : public ::testing::TestWithParam<int> {
protected:
    static void SetUpTestSuite() {
        folder = new TestMedia::Folder;
        TestMedia::FlashBeep media;
        media.frames = 750;
        media.width = 640;
        media.height = 360;
        TestMedia::makeFlashBeep(*folder / "clip.mov", media);
    }
    static void TearDownTestSuite() { delete folder; }

    std::string transcriptOf(const std::vector<std::string>& arguments) {
        const Shown shown = show(arguments, static_cast<unsigned short>(GetParam()), *folder / "");
        std::string command = "$ editor-export";
        for (const std::string& argument : arguments)
            command += ' ' + argument;
        Screen screen(static_cast<std::size_t>(GetParam()));
        screen.take(shown.bytes);
        return command + '\n' + masked(screen.text()) + "exit " + std::to_string(shown.code) + "\n\n";
    }
    static std::string golden(const char* kind) {
        return std::string(GOLDEN_FOLDER "/") + kind + '-' + std::to_string(GetParam()) + ".txt";
    }

    static TestMedia::Folder* folder;
};

TestMedia::Folder* Transcript::folder = nullptr;

TEST_P(Transcript, OfHelp) {
    TestSupport::compareWithGolden(golden("help"), transcriptOf({"--help"}) + transcriptOf({"render", "--help"}) +
                                                       transcriptOf({"presets", "export", "--help"}));
}

TEST_P(Transcript, OfErrors) {
    TestSupport::compareWithGolden(
        golden("errors"),
        transcriptOf({"rendr", "clip.mov"}) + transcriptOf({"clip.mov"}) + transcriptOf({"clip.mvo", "film.mp4"}) +
            transcriptOf({"clip.mov", "film.mp4", "--ovewrite"}) +
            transcriptOf({"clip.mov", "film.mp4", "-p", "mp4-h246-720p"}) +
            transcriptOf({"render", "clip.mov", "-p", "mp3", "-o", "film.mp4"}) +
            transcriptOf({"render", "clip.mov", "-o", "-"}) + transcriptOf({"clip.mov", "film.mp4", "--in", "soon"}));
}

TEST_P(Transcript, OfProgressIsClearedAndFits) {
    const std::vector<std::string> arguments{"render", "clip.mov", "-p", "mp4-h264-480p", "-y", "-o", "film.mp4"};
    const Shown shown = show(arguments, static_cast<unsigned short>(GetParam()), *folder / "");
    EXPECT_EQ(shown.code, 0);
    Screen screen(static_cast<std::size_t>(GetParam()));
    screen.take(shown.bytes);
    std::string states = statesOf(shown.bytes);
    if (GetParam() == 40) // whether there is room for the size goes by the figures of the speed
        states = std::regex_replace(states, std::regex("x, # size,"), "x,");
    TestSupport::compareWithGolden(golden("progress"), states);
    std::string last = screen.text();
    last.erase(std::remove(last.begin(), last.end(), '\n'), last.end());
    EXPECT_EQ(last.rfind("film.mp4: 00:00:30.000", 0), 0U) << "the bar has gone: " << last;
    const std::string running = shown.bytes.substr(0, shown.bytes.find("film.mp4"));
    for (std::size_t from = 0, to = 0; (to = running.find('\r', from)) != std::string::npos; from = to + 1)
        EXPECT_LT(to - from, static_cast<std::size_t>(GetParam())) << "a state as wide as the terminal";
}

INSTANTIATE_TEST_SUITE_P(Columns, Transcript, ::testing::Values(20, 40, 80, 200));

} // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a target over a corpus and over mutations of it, the same ones each time: PROGRAM FOLDER MUTATIONS.
#include "fuzz/Fuzz.h"
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <unistd.h>
#include <vector>

namespace {

using Input = std::vector<std::uint8_t>;

/// Where the faults are told; what a target prints itself goes nowhere.
int report = STDERR_FILENO;
char current[256] = "";

void tellAndDie(int signal) {
    static_cast<void>(!write(report, current, std::char_traits<char>::length(current)));
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void silence() {
    report = dup(STDERR_FILENO);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

std::vector<std::filesystem::path> filesOf(const char* folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

Input read(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class Mutator {
public:
    explicit Mutator(unsigned seed)
        : random(seed) {}

    Input mutated(const std::vector<Input>& all) {
        Input input = all[below(all.size())];
        for (std::size_t times = 1 + below(4); times > 0; --times)
            mutate(input, all[below(all.size())]);
        return input;
    }

private:
    std::size_t below(std::size_t count) { return count == 0 ? 0 : random() % count; }

    void mutate(Input& input, const Input& other) {
        const auto at = static_cast<std::ptrdiff_t>(below(input.size()));
        const auto size =
            static_cast<std::ptrdiff_t>(below(std::min<std::size_t>(input.size() - below(input.size()), 40)));
        const auto end = std::min(at + size, static_cast<std::ptrdiff_t>(input.size()));
        switch (below(5)) {
        case 0:
            if (!input.empty())
                input[static_cast<std::size_t>(at)] ^= static_cast<std::uint8_t>(1U << below(8));
            break;
        case 1:
            if (!input.empty())
                input[static_cast<std::size_t>(at)] = static_cast<std::uint8_t>("0919-\"{}[],:\n =\xff\0"[below(17)]);
            break;
        case 2:
            input.erase(input.begin() + at, input.begin() + end);
            break;
        case 3: {
            const Input piece(input.begin() + at, input.begin() + end);
            input.insert(input.begin() + static_cast<std::ptrdiff_t>(below(input.size())), piece.begin(), piece.end());
            break;
        }
        default: {
            const auto from = static_cast<std::ptrdiff_t>(below(other.size()));
            const auto until = std::min(from + 40, static_cast<std::ptrdiff_t>(other.size()));
            input.insert(input.begin() + at, other.begin() + from, other.begin() + until);
            break;
        }
        }
    }

    std::mt19937 random;
};

void run(const Input& input, const std::string& name) {
    std::snprintf(current, sizeof current, "in %s\n", name.c_str());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    silence();
    std::signal(SIGABRT, &tellAndDie);
    std::signal(SIGSEGV, &tellAndDie);
    std::vector<Input> inputs;
    for (const auto& file : filesOf(argv[1])) {
        inputs.push_back(read(file));
        run(inputs.back(), file.filename().string());
    }
    if (inputs.empty())
        return 2;
    const int mutations = std::atoi(argv[2]);
    Mutator mutator(20'260);
    for (int at = 0; at < mutations; ++at)
        run(mutator.mutated(inputs), "mutation " + std::to_string(at));
    dprintf(report, "%zu files and %d mutations of them\n", inputs.size(), mutations);
    return 0;
}

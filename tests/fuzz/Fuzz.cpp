// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/Fuzz.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace Fuzz {
namespace {

namespace fs = std::filesystem;

fs::path parent() {
    std::error_code error;
    const fs::path inMemory = "/dev/shm";
    return fs::is_directory(inMemory, error) && access(inMemory.c_str(), W_OK) == 0 ? inMemory
                                                                                    : fs::temp_directory_path();
}

} // namespace

void require(bool kept, const char* promise) {
    if (kept)
        return;
    std::fprintf(stderr, "not kept: %s\n", promise);
    std::abort();
}

Folder::Folder() {
    std::string pattern = (parent() / "fuzz-XXXXXX").string();
    require(mkdtemp(pattern.data()) != nullptr, "there is a place for files");
    folder = pattern;
}

Folder::~Folder() {
    std::error_code error;
    fs::remove_all(folder, error);
}

void Folder::write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path(name), std::ios::binary) << bytes;
}

void Folder::remove(const std::string& name) const {
    std::error_code error;
    fs::remove(path(name), error);
}

unsigned Bytes::next() {
    return empty() ? 0 : static_cast<unsigned char>(text[at++]);
}

std::string Bytes::upTo(const std::string& separator) {
    const std::size_t end = separator.empty() ? std::string::npos : text.find(separator, at);
    std::string result = empty() ? std::string() : text.substr(at, end - at);
    at = end == std::string::npos ? text.size() : end + separator.size();
    return result;
}

} // namespace Fuzz

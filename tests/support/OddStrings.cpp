// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/OddStrings.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <set>
#include <stdexcept>

namespace TestSupport {
namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t COUNT = 515;

/// The bytes of a code point, of a surrogate, too.
std::string utf8(std::uint32_t code) {
    const auto tail = [code](int shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3f)); };
    if (code < 0x80)
        return {static_cast<char>(code)};
    if (code < 0x800)
        return {static_cast<char>(0xc0 | code >> 6), tail(0)};
    if (code < 0x10000)
        return {static_cast<char>(0xe0 | code >> 12), tail(6), tail(0)};
    return {static_cast<char>(0xf0 | code >> 18), tail(12), tail(6), tail(0)};
}

std::string times(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

void add(Texts& texts, std::initializer_list<const char*> more) {
    texts.insert(texts.end(), more.begin(), more.end());
}

/// Each code point between two letters, where it cannot be overlooked.
void addInside(Texts& texts, std::uint32_t first, std::uint32_t last) {
    for (std::uint32_t code = first; code <= last; ++code)
        texts.push_back('a' + utf8(code) + 'z');
}

void addBlanks(Texts& texts) {
    add(texts, {"", " ", "   ", "\t", "\n", "\r\n", " before", "behind ", "in  the middle", "\tbefore", "behind\n",
                "two\nlines", "two\r\nlines", "\n\n\n", " \t \n "});
    for (const std::uint32_t blank : {0xa0U, 0x1680U, 0x2000U, 0x2003U, 0x2009U, 0x200aU, 0x202fU, 0x205fU, 0x3000U})
        texts.push_back(utf8(blank));
}

void addControls(Texts& texts) {
    addInside(texts, 0x01, 0x08);
    addInside(texts, 0x0b, 0x10);
    addInside(texts, 0x18, 0x1c);
    for (const std::uint32_t code : {0x7fU, 0x80U, 0x85U, 0x8dU, 0x90U, 0x9bU, 0x9cU, 0x9dU, 0x9eU, 0x9fU})
        addInside(texts, code, code);
    add(texts, {"\x1b[31mred\x1b[0m", "\x1b]0;another title\a", "\x1b[2J\x1b[H", "\x1b[?1049h",
                "\x1b"
                "c",
                "\x1bP1;2|x\x1b\\", "\x1b[6n", "\x1b]52;c;YQ==\a", "\x1b[1A\x1b[2K", "\a\a\a", "\b\b\bover it",
                "line\rover it", "\x1b",
                "\xc2\x9b"
                "31m"});
}

void addInvisible(Texts& texts) {
    addInside(texts, 0x200b, 0x200f);
    addInside(texts, 0x2028, 0x202e);
    addInside(texts, 0x2060, 0x2060);
    addInside(texts, 0x2066, 0x2069);
    addInside(texts, 0xfff9, 0xfffb);
    for (const std::uint32_t code : {0xadU, 0x34fU, 0x61cU, 0x115fU, 0x180eU, 0x3164U, 0xfeffU, 0xe0001U, 0xe0041U})
        texts.push_back(utf8(code) + "seen");
    texts.push_back(utf8(0x202e) + "gpm.4pm");
    texts.push_back("photo" + utf8(0x202e) + "vom");
}

void addJoined(Texts& texts) {
    for (const std::uint32_t mark : {0x301U, 0x308U, 0x338U, 0x489U, 0x20ddU, 0x1abeU})
        texts.push_back('o' + utf8(mark));
    texts.push_back(utf8(0x301));
    texts.push_back('Z' + times(60, utf8(0x317)));
    add(texts, {"\xc3\xa9", "e\xcc\x81", "\xc3\x85", "A\xcc\x8a", "\xe2\x84\xab", "\xea\xb0\x80",
                "\xe1\x84\x80\xe1\x85\xa1", "\xef\xac\x81lm", "\xe1\xba\x9b\xcc\xa3", "\xef\xb7\xba"});
    const std::string joiner = utf8(0x200d), woman = utf8(0x1f469), girl = utf8(0x1f467);
    texts.push_back(woman + joiner + woman + joiner + girl);
    texts.push_back(utf8(0x1f3f3) + utf8(0xfe0f) + joiner + utf8(0x1f308));
    texts.push_back(utf8(0x1f44d) + utf8(0x1f3ff));
    texts.push_back(utf8(0x1f1e9) + utf8(0x1f1ea));
    texts.push_back(utf8(0x1f1e9));
    texts.push_back("1" + utf8(0xfe0f) + utf8(0x20e3));
    texts.push_back(utf8(0x2764) + utf8(0xfe0f));
    texts.push_back(utf8(0x2764) + utf8(0xfe0e));
    texts.push_back(times(20, utf8(0x1f3ac)));
}

void addScripts(Texts& texts) {
    add(texts, {"\xd1\x84\xd0\xb8\xd0\xbb\xd1\x8c\xd0\xbc",
                "\xcf\x84\xce\xb1\xce\xb9\xce\xbd\xce\xaf\xce\xb1",
                "\xd7\xa1\xd7\xa8\xd7\x98",
                "\xd9\x81\xd9\x8a\xd9\x84\xd9\x85",
                "\xd7\xa1 and s",
                "\xe6\x98\xa0\xe7\x94\xbb",
                "\xec\x98\x81\xed\x99\x94",
                "\xe7\x94\xb5\xe5\xbd\xb1",
                "\xe0\xb8\xab\xe0\xb8\x99\xe0\xb8\xb1\xe0\xb8\x87",
                "\xe0\xa4\xab\xe0\xa4\xbc\xe0\xa4\xbf\xe0\xa4\xb2\xe0\xa5\x8d\xe0\xa4\xae",
                "\xd6\x86\xd5\xab\xd5\xac",
                "\xef\xbd\x86\xef\xbd\x89\xef\xbd\x8c\xef\xbd\x8d",
                "\xef\xbe\x8c\xef\xbd\xa8\xef\xbe\x99\xef\xbe\x91",
                "\xf0\x9d\x92\x87\xf0\x9d\x92\x8a\xf0\x9d\x92\x8d\xf0\x9d\x92\x8e",
                "\xf0\x90\x8c\xb0",
                "f\xd1\x96lm", // one letter of another alphabet
                "fi\xd3\x8fm",
                "\xce\x91lpha",
                "\xe2\x85\xa7",
                "\xe2\x91\xa8",
                "\xc2\xbd",
                "x\xc2\xb2",
                "\xd9\xa3\xd9\xa4",
                "\xef\xbc\x91\xef\xbc\x92",
                "\xe2\xa0\x8b",
                "\xe1\x9a\xa0"});
    // What changes, grows or shrinks as its case does.
    add(texts, {"FILM", "film", "fILm", "\xc4\xb0", "\xc4\xb1",
                "stra\xc3\x9f"
                "e",
                "STRASSE", "\xe1\xba\x9e", "\xc5\xbf", "\xe2\x84\xaa", "\xcf\x82", "\xcf\x83", "\xce\xa3", "\xc7\x86",
                "\xc7\x85", "\xc5\x89", "\xef\xac\x83", "\xce\x90"});
}

void addEdges(Texts& texts) {
    for (const std::uint32_t code : {0x7ffU, 0x800U, 0xd7ffU, 0xe000U, 0xf8ffU, 0xfdd0U, 0xfdefU, 0xfffcU, 0xfffdU,
                                     0xfffeU, 0xffffU, 0x10000U, 0x1fffeU, 0x1ffffU, 0xf0000U, 0x10fffeU, 0x10ffffU})
        texts.push_back(utf8(code) + '!');
    for (const std::uint32_t code : {0xd800U, 0xdbffU, 0xdc00U, 0xdfffU})
        texts.push_back("half" + utf8(code));
    texts.push_back(utf8(0xdc00) + utf8(0xd800));
    texts.push_back(utf8(0xd83d) + utf8(0xde00));
    add(texts, {"\x80",
                "\xbf",
                "\xff",
                "\xfe",
                "\xc0\x80",
                "\xc1\xbf",
                "up\xc0\xaf",
                "\xe0\x80\xaf",
                "\xf0\x80\x80\xaf",
                "\xc3",
                "\xe2\x82",
                "\xf0\x9f\x8e",
                "\xf5\x80\x80\x80",
                "\xf4\x90\x80\x80",
                "\xf8\x88\x80\x80\x80",
                "a\xff"
                "b",
                "caf\xe9",
                "\xff\xfeU",
                "\xc3(",
                "\xe6\x98"});
    for (const char* const text : {"\0", "a\0z", "a\0\0", "\0z"})
        texts.emplace_back(text, text[0] == '\0' && text[1] == '\0' ? 1 : text[0] == 'a' ? 3 : 2);
    add(texts, {"%00", "\\0", "\\x00", "&#0;", "\\u0000", "a%00z", "%2500", "\xe2\x90\x80", "%0a", "%2e%2e%2f"});
}

void addOfShells(Texts& texts) {
    add(texts, {"$(reboot)", "$HOME",  "${IFS}", "; ls",  "| cat",  "> out", "< in",   "!",      "#",
                "# no more", "*",      "?",      "[a-z]", "{1..3}", "a*z",   "[",      "{",      "'",
                "\"",        "\"\"",   "'\"'",   "\\",    "\\\\",   "\\n",   "$'\\n'", "%PATH%", "%%",
                "^",         "~",      "~root",  "=",     "a=b",    "+",     ",",      ";",      ":",
                "@",         "@words", "|",      "<",     "$",      "$0",    "`",      "it's",   "say \"so\""});
}

void addFormats(Texts& texts) {
    add(texts, {"%s",       "%n",       "%d",     "%s%s%s%s%n",   "%99999d",     "%04d",         "a%04dz",   "%05d.png",
                "frame_%d", "%0d",      "%1$s",   "%1",           "%2 and %1",   "%L1",          "%%d",      "%",
                "100%",     "%*d",      "%d%d",   "{0}",          "{}",          "{0:x}",        "%(name)s", "#{x}",
                "{{7*7}}",  "<%= 7 %>", "%H%M%S", "$Number%05d$", "frame_00000", "shot_0001.png"});
}

void addAddresses(Texts& texts) {
    add(texts, {"file:x",
                "file:///nowhere/x",
                "http://localhost/x",
                "https:x",
                "concat:a|b",
                "concatf:x",
                "pipe:",
                "pipe:0",
                "pipe:1",
                "fd:0",
                "data:text/plain,x",
                "data:;base64,AA==",
                "subfile,,start,0,end,9,,:x",
                "crypto:x",
                "cache:x",
                "async:x",
                "md5:",
                "tee:x|y",
                "tcp://localhost:1",
                "udp:x",
                "rtmp:x",
                "ftp:x",
                "hls+file:x",
                "unix:x",
                "tls:x",
                "C:\\x",
                "C:x",
                "\\\\server\\x",
                "\\\\?\\x",
                "qrc:/x",
                ":/x",
                ":x",
                ":memory:",
                "javascript:x",
                "about:x",
                "jar:file:x!y"});
}

void addPaths(Texts& texts) {
    add(texts, {".",
                "..",
                "...",
                "....",
                "a/../z",
                "a/./z",
                "a//z",
                "a/z",
                "/",
                "//",
                "///",
                "./",
                "../",
                "./x",
                ".//x2",
                "../x",
                "../../x",
                "x/",
                "x//",
                ".hidden",
                "..hidden",
                "at its end.",
                "at its end..",
                "a.b.c",
                ".mp4",
                ".mov",
                "..mp4",
                "film.mp4",
                "film.mp4.",
                "film.mp4.mp4",
                "film.part",
                ".part",
                "film.tmp",
                "film~",
                ".editor-export-1-2-3-0123456789abcdef.mp4",
                ".editor-export-",
                "/nowhere/x",
                "/dev/null",
                "/dev/full",
                "/etc/passwd/x",
                "a/../../z",
                "a\\z",
                "\xe2\x88\x95",
                "\xef\xbc\x8f",
                "\xe2\x80\xa5",
                "a/b/c/d/z",
                "x.mkv",
                "x.png",
                "x.unknown",
                "x.otio",
                "x.otioz",
                "x.json"});
}

void addNumbers(Texts& texts) {
    add(texts, {"-1",
                "-0",
                "+1",
                "00",
                "1e309",
                "1e-400",
                "NaN",
                "inf",
                "-inf",
                "0x10",
                "0xFFFFFFFFFFFFFFFF",
                "0b1",
                "1,5",
                "1.5",
                "1.",
                ".5",
                "2147483648",
                "-2147483649",
                "9223372036854775808",
                "18446744073709551616",
                "99999999999999999999999999",
                "true",
                "false",
                "null",
                "undefined"});
}

void addCode(Texts& texts) {
    add(texts, {"<b>",
                "<x/>",
                "&lt;",
                "]]>",
                "<!--",
                "<![CDATA[",
                "<?xml version=\"1.0\"?>",
                "<!DOCTYPE x>",
                "{\"a\":1}",
                "\"}",
                "' OR '1'='1",
                "'; DROP TABLE film;--",
                "1; SELECT 1",
                "<img src=x onerror=y>",
                "\\u0041",
                "#include <x>",
                "key: value",
                "a;b,c",
                "=cmd|x",
                "..\\..\\x"});
}

void addWords(Texts& texts) {
    add(texts, {"CON", "nul", "AUX.mp4", "desktop.ini", ".DS_Store", "lost+found", "core"});
    add(texts, {"-",
                "--",
                "---",
                "-o",
                "-y",
                "-h",
                "--help",
                "--version",
                "-p",
                "--overwrite",
                "--output=x",
                "-o=x",
                "--progress=json",
                "-rf",
                "\xe2\x80\x94",
                "\xe2\x80\x90",
                "--describe=man",
                "render",
                "queue",
                "presets",
                "info",
                "validate"});
    add(texts,
        {"mp4", "web", "MP4", "MP4-H264-480P", "mp4-h264-480p ", " mp4-h264-480p", "mp4-h264-480p\n", "mp4-h264-480",
         "mp4\xe2\x80\x91h264\xe2\x80\x91"
         "480p",
         "\xef\xbd\x8dp4"});
}

void addLengths(Texts& texts) {
    for (const std::size_t size : {250, 251, 252, 255, 256})
        texts.push_back(times(size, "x"));
    texts.push_back(times(127, utf8(0xe9)));
    texts.push_back(times(128, utf8(0xe9)));
    texts.push_back(times(83, utf8(0x6620)));
    texts.push_back(times(64, utf8(0x1f3ac)));
    texts.push_back(times(1000, "%s"));
    texts.push_back(times(2000, "./") + 'x');
    texts.push_back(times(2045, "./") + 'y');
    texts.push_back(times(2100, "./") + 'z');
    texts.push_back(times(100, "d/") + 'z');
    texts.push_back(times(5000, "y"));
}

/// Some of all, one behind the other.
void addMixtures(Texts& texts) {
    const Texts parts = texts;
    std::uint32_t state = 515;
    const auto next = [&]() -> const std::string& {
        do
            state = state * 1664525 + 1013904223;
        while (parts[(state >> 8) % parts.size()].size() > 40 ||
               parts[(state >> 8) % parts.size()].find('/') != std::string::npos);
        return parts[(state >> 8) % parts.size()];
    };
    while (texts.size() < COUNT) {
        std::string text = "m";
        for (int part = 0; part < 3; ++part)
            text += next();
        texts.push_back(text);
    }
}

Texts make() {
    Texts texts;
    for (const auto addSome :
         {addBlanks, addControls, addInvisible, addJoined, addScripts, addEdges, addOfShells, addFormats, addAddresses,
          addPaths, addNumbers, addCode, addWords, addLengths, addMixtures})
        addSome(texts);
    if (texts.size() != COUNT || std::set<std::string>(texts.begin(), texts.end()).size() != COUNT)
        throw std::logic_error("there are " + std::to_string(texts.size()) + " odd strings, or two are alike");
    return texts;
}

} // namespace

const std::vector<std::string>& oddStrings() {
    static const Texts texts = make();
    return texts;
}

} // namespace TestSupport

// SPDX-License-Identifier: GPL-3.0-or-later
// Small files that claim much, and files that name others.
#include "Program.h"
#include "support/FileHelpers.h"
#include "support/FlashBeep.h"
#include <QDir>
#include <QFileInfo>
#include <QtEndian>
#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

using TestCli::Program;
using TestCli::Result;

namespace {

constexpr qint64 MIB = qint64(1) << 20;
// Of one run, whatever its input claims: the program itself takes about 100.
#ifdef EDITOREXPORT_SANITIZED
constexpr qint64 MOST_MEMORY = 2000 * MIB; // a sanitizer keeps what has been freed, and a shadow of all
#else
constexpr qint64 MOST_MEMORY = 700 * MIB;
#endif

/// Deflated zeros without a packer, 13 bits for 258 of them: one literal, then the longest repetition again and again.
QByteArray deflatedZeros(qint64 count) {
    QByteArray data("\x78\x01");
    quint64 bits = 0;
    int held = 0;
    const auto put = [&](quint64 value, int width) {
        bits |= value << held;
        for (held += width; held >= 8; held -= 8, bits >>= 8)
            data += static_cast<char>(bits & 0xff);
    };
    put(1 | 1 << 1, 3); // the last block, with fixed codes
    put(0b00001100, 8); // 0: 00110000, its first bit first
    for (qint64 done = 1; done < count; done += 258)
        put(0b10100011, 13); // 258 letters: 11000101; one back: 00000
    put(0, 7);
    put(0, 8);
    return data;
}

QByteArray bigEndian(quint32 value) {
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray piece(const char* name, const QByteArray& content) {
    return bigEndian(static_cast<quint32>(content.size())) + name + content + QByteArray(4, '\0');
}

/// Black, 8 bits of grey or 16 of red, green, blue and alpha; `more` stands in front of the picture.
QByteArray png(int side, int bits, const QByteArray& more = QByteArray()) {
    const bool deep = bits == 16;
    const QByteArray head = bigEndian(static_cast<quint32>(side)) + bigEndian(static_cast<quint32>(side)) +
                            static_cast<char>(bits) + static_cast<char>(deep ? 6 : 0) + QByteArray(3, '\0');
    return QByteArray("\x89PNG\r\n\x1a\n") + piece("IHDR", head) + more +
           piece("IDAT", deflatedZeros(qint64(side) * (1 + qint64(side) * (deep ? 8 : 1)))) + piece("IEND", {});
}

QByteArray wav(quint32 rate, quint16 channels, int bytes) {
    const auto number = [](auto value) {
        QByteArray text(sizeof value, '\0');
        qToLittleEndian(value, text.data());
        return text;
    };
    return "RIFF" + number(quint32(bytes + 36)) + "WAVEfmt " + number(quint32(16)) + number(quint16(1)) +
           number(channels) + number(rate) + number(quint32(rate * 2 * channels)) + number(quint16(2 * channels)) +
           number(quint16(16)) + "data" + number(quint32(bytes)) + QByteArray(bytes, '\1');
}

/// 25 small pictures.
QByteArray y4m(const char* rate) {
    QByteArray film = QByteArray("YUV4MPEG2 W64 H64 Ip A1:1 C420jpeg F") + rate + '\n';
    for (int i = 0; i < 25; ++i)
        film += "FRAME\n" + QByteArray(64 * 64 * 3 / 2, '\x40');
    return film;
}

void makeSparse(const std::string& path, const QByteArray& head) {
    TestFiles::write(path, head);
    ASSERT_EQ(truncate(path.c_str(), 20 * 1024 * MIB), 0);
}

class HostileInput : public ::testing::Test {
protected:
    /// Renders and measures what that takes.
    Result render(const std::string& input, const std::vector<std::string>& more = {}) const {
        std::vector<std::string> words{"render", input, "-p", "mp4-h264-480p", "-o", output, "--progress", "none"};
        words.insert(words.end(), more.begin(), more.end());
        return TestCli::run(words);
    }

    void expectRefused(const std::string& input, const char* reason, const std::vector<std::string>& more = {}) const {
        const Result run = render(input, more);
        EXPECT_EQ(run.code, 2) << input << ": " << run.errors.toStdString();
        EXPECT_EQ(run.errors.count(QLatin1Char('\n')), 1) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains(QString::fromStdString(input))) << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains(QLatin1String(reason))) << run.errors.toStdString();
        EXPECT_LT(run.memory, MOST_MEMORY) << input;
        EXPECT_FALSE(QFileInfo::exists(QString::fromStdString(output)));
    }
    std::string write(const std::string& name, const QByteArray& content) const {
        TestFiles::write(folder / name, content);
        return folder / name;
    }

    const TestMedia::Folder folder;
    const TestMedia::Folder place;
    const std::string output = place / "film.mp4";
};

TEST_F(HostileInput, APlaylistUnderAnyNameOpensNothingThatItNames) {
    const std::string media = folder / "clip.ts";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=s=64x64:d=1", media});
    TestFiles::write(place / "clip.ts", TestFiles::read(media));
    const QByteArray head("#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:1\n#EXT-X-MEDIA-SEQUENCE:0\n");
    for (const std::string& named :
         {media, std::string("clip.ts"),
          "../" + (place / "").substr((place / "").rfind('/', (place / "").size() - 2) + 1) + "clip.ts"}) {
        const QByteArray list = head + "#EXTINF:1,\n" + named.c_str() + "\n#EXT-X-ENDLIST\n";
        expectRefused(write("list.m3u8", list), "it is a playlist");
        const Result run = render(write("list.mp4", list));
        EXPECT_EQ(run.code, 2) << named << run.errors.toStdString();
        expectRefused(write("list.ffconcat", QByteArray("ffconcat version 1.0\nfile '") + named.c_str() + "'\n"),
                      "it is a playlist");
    }
    expectRefused(write("list.mpd", "<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" "
                                    "profiles=\"urn:mpeg:dash:profile:isoff-main:2011\" type=\"static\"></MPD>\n"),
                  "it is a playlist");
    expectRefused(write("call.sdp", "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nt=0 0\n"
                                    "m=video 5004 RTP/AVP 96\na=rtpmap:96 H264/90000\n"),
                  "it is a playlist");
}

TEST_F(HostileInput, APlaylistOfItselfIsRefusedAtOnce) {
    QByteArray list("#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:1\n#EXT-X-MEDIA-SEQUENCE:0\n");
    for (int i = 0; i < 1000; ++i)
        list += "#EXTINF:1,\nlist.m3u8\n";
    expectRefused(write("list.m3u8", list), "it is a playlist");
}

TEST_F(HostileInput, SubtitlesInTwoFilesAreNamedAsThat) {
    TestFiles::write(folder / "words.sub", QByteArray(4096, '\0'));
    expectRefused(write("words.idx", "# VobSub index file, v7 (do not modify this line!)\nsize: 720x576\n"
                                     "id: en, index: 0\ntimestamp: 00:00:01:000, filepos: 000000000\n"),
                  "subtitles that stand in another file");
}

TEST_F(HostileInput, APictureThatIsTooLargeIsRefusedBeforeItIsDecoded) {
    expectRefused(write("large.png", png(16000, 16)), "16000x16000");
}

TEST_F(HostileInput, TheLimitOfAPictureIsAnOption) {
    const std::string picture = write("grey.png", png(2048, 8));
    expectRefused(picture, "the limit is 3", {"--max-picture", "3"});
    const Result run = render(picture, {"--max-picture", "4"});
    EXPECT_EQ(run.code, 0) << run.errors.toStdString();
}

TEST_F(HostileInput, TextsInAPictureAreNotUnpacked) {
    const QByteArray texts = deflatedZeros(1536 * MIB);
    const QByteArray comment = piece("zTXt", QByteArray("Comment\0\0", 9) + texts);
    const QByteArray profile = piece("iCCP", QByteArray("icc\0\0", 5) + texts);
    for (const QByteArray& more : {comment, profile}) {
        const Result run = render(write("text.png", png(64, 8, more)), {"--overwrite"});
        EXPECT_EQ(run.code, 0) << run.errors.toStdString();
        EXPECT_LT(run.memory, MOST_MEMORY);
    }
}

TEST_F(HostileInput, SoundThatIsTooSlowOrTooFastIsRefused) {
    expectRefused(write("slow.wav", wav(1, 1, 1 << 20)), "1 samples of sound a second");
    expectRefused(write("fast.wav", wav(0x7fffffff, 1, 1 << 20)), "2147483647 samples of sound a second");
    expectRefused(write("wide.wav", wav(48000, 30000, 1 << 20)), "30000 channels");
}

TEST_F(HostileInput, PicturesThatAreTooFastAreRefused) {
    expectRefused(write("million.y4m", y4m("1000000:1")), "more than 1000 frames a second");
    expectRefused(write("above.y4m", y4m("1001:1")), "more than 1000 frames a second");
    const std::string raw = folder / "million.h264";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=s=64x64:r=1000000:d=0.00003", raw});
    expectRefused(raw, "more than 1000 frames a second");
    const Result run = render(write("fastest.y4m", y4m("1000:1")));
    EXPECT_EQ(run.code, 0) << run.errors.toStdString();
}

TEST_F(HostileInput, ARateThatOnlyTheHeaderClaimsIsNotTaken) {
    const std::string film = folder / "film.flv";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=s=64x64:r=25:d=1", film});
    QByteArray content = TestFiles::read(film);
    const qsizetype rate = content.indexOf("framerate") + 9;
    ASSERT_GT(rate, 9);
    content.replace(rate, 9, QByteArray("\0\x41\x2e\x84\x80\0\0\0\0", 9)); // a million
    const Result told = TestCli::run({"info", write("lie.flv", content)});
    EXPECT_TRUE(told.output.contains(QStringLiteral("25 fps"))) << told.output.toStdString();
}

TEST_F(HostileInput, ADrawingIsRefused) {
    expectRefused(write("drawing.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4000\" height=\"4000\">"
                                       "<filter id=\"f\"><feGaussianBlur stdDeviation=\"500\"/></filter>"
                                       "<rect width=\"4000\" height=\"4000\" filter=\"url(#f)\"/></svg>"),
                  "drawing");
}

TEST_F(HostileInput, TheNumberOfTracksHasALimitThatIsAnOption) {
    const std::string film = folder / "tracks.mkv";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "color=s=64x64:d=1", "-map", "0", "-map", "0", "-map", "0", film});
    expectRefused(film, "more than 2 tracks", {"--max-tracks", "2"});
    expectRefused(film, "more than 1 track,", {"--max-tracks", "1"});
    const Result run = render(film, {"--max-tracks", "3"});
    EXPECT_EQ(run.code, 0) << run.errors.toStdString();
}

TEST_F(HostileInput, ASearchThatFindsNothingHasAnEnd) {
    const std::string film = folder / "zeros.h264";
    makeSparse(film, QByteArray("\0\0\0\1\x67\x42\0\x1e", 8));
    expectRefused(film, "neither picture nor sound");
}

TEST_F(HostileInput, ASearchAmongSeveralTracksHasAnEnd) {
    for (const char* const kind : {"avi", "ts"}) {
        const std::string film = folder / "film." + kind;
        TestMedia::runFfmpeg(
            {"-f", "lavfi", "-i", "color=s=64x64:r=25:d=1", "-f", "lavfi", "-i", "sine=r=44100:d=1", film});
        makeSparse(film, TestFiles::read(film));
        const Result run = render(film);
        EXPECT_EQ(run.code, 1) << kind << run.errors.toStdString();
        EXPECT_TRUE(run.errors.contains(QLatin1String("nothing that can be read stands in the next 64 MiB")))
            << run.errors.toStdString();
    }
}

TEST_F(HostileInput, AnotherTrackMayTakeAnyRoomBetweenTwoPackets) {
    const std::string film = folder / "gap.mkv";
    TestMedia::runFfmpeg({"-f", "lavfi", "-i", "testsrc=s=320x240:r=25:d=6", "-f", "lavfi", "-i", "sine=r=48000:d=6",
                          "-af", "aselect='lt(t,0.5)+gt(t,5)'", "-c:v", "rawvideo", "-pix_fmt", "rgb24", "-c:a",
                          "pcm_s16le", "-allow_raw_vfw", "1", film});
    ASSERT_GT(QFileInfo(QString::fromStdString(film)).size(), 30 * MIB);
    const Result run = render(film, {"--max-picture", "1"}); // the search is no longer than that, either
    EXPECT_EQ(run.code, 0) << run.errors.toStdString();
    const std::string end = folder / "end.raw";
    TestMedia::runFfmpeg({"-ss", "5.5", "-i", output, "-vn", "-ac", "1", "-f", "u8", end});
    const QByteArray samples = TestFiles::read(end);
    EXPECT_LT(samples.count('\x80'), samples.size() / 2) << "the tone behind the gap is gone";
}

TEST_F(HostileInput, ALongSearchTakesAStop) {
    const std::string film = folder / "zeros.avi";
    makeSparse(film, QByteArray("RIFF\xff\xff\xff\xff"
                                "AVI LIST",
                                16));
    Program program({"render", film, "-p", "mp4-h264-480p", "-o", output, "--progress", "json"});
    program.start();
    ASSERT_TRUE(program.waitUntilOpen(QString::fromStdString(film)));
    program.signal(SIGINT);
    const Result result = program.finish();
    EXPECT_EQ(result.code, 128 + SIGINT);
    EXPECT_TRUE(result.errors.contains(QStringLiteral("\"stopped\""))) << result.errors.toStdString();
    EXPECT_EQ(TestFiles::namesIn(place / ""), QStringList());
}

} // namespace

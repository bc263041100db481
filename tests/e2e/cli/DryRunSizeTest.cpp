// SPDX-License-Identifier: GPL-3.0-or-later
// What "--dry-run" learns from what it tries about the size of a file whose bits the material decides.
#include "TracksFixture.h"
#include <QJsonDocument>
#include <QJsonObject>

namespace TestCli {
namespace {

class DryRunSize : public TracksTest {
protected:
    struct Told {
        double bytes;
        bool rough;
    };
    Told estimateOf(const std::string& film) const {
        const Result result =
            run({"render", film, "-p", "mkv-ffv1-flac", "-o", place / "a.mkv", "--dry-run", "--json"});
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        const QJsonValue plan = QJsonDocument::fromJson(result.output.toUtf8()).object()[QStringLiteral("plan")];
        return {plan[QStringLiteral("sizeBytes")].toDouble(), plan[QStringLiteral("sizeIsRough")].toBool()};
    }
    double sizeOf(const std::string& film) {
        render({film, "-p", "mkv-ffv1-flac"}, "b.mkv");
        return static_cast<double>(TestFiles::read(place / "b.mkv").size());
    }
};

/// A tenth of what such pictures take on average.
TEST_F(DryRunSize, IsThatOfTheMaterialWhereTheMaterialDecides) {
    const std::string film =
        make("film.mkv", {{"-f", "lavfi", "-i", "testsrc2=s=640x360:r=25:d=40", "-c:v", "mpeg4", "-q:v", "2"}});
    const Told told = estimateOf(film);
    const double real = sizeOf(film);
    EXPECT_LT(told.bytes, real * 1.5);
    EXPECT_GT(told.bytes, real / 1.5);
}

TEST_F(DryRunSize, IsTheRealOneWhereAllWasTried) {
    const std::string film = make(
        "film.mkv", {{"-f", "lavfi", "-i", "color=gray:s=640x360:r=25:d=1", "-c:v", "mpeg4"}, tone(440), {"-t", "1"}});
    const Told told = estimateOf(film);
    EXPECT_FALSE(told.rough);
    EXPECT_EQ(told.bytes, sizeOf(film));
}

} // namespace
} // namespace TestCli

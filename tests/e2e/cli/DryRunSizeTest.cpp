// SPDX-License-Identifier: GPL-3.0-or-later
// What "--dry-run" learns from what it tries about the size of a file whose bits the material decides.
#include "TracksFixture.h"
#include <QJsonDocument>
#include <QJsonObject>

namespace TestCli {
namespace {

class DryRunSize : public TracksTest {
protected:
    double estimateOf(const std::string& film) const {
        const Result result =
            run({"render", film, "-p", "mkv-ffv1-flac", "-o", place / "a.mkv", "--dry-run", "--json"});
        EXPECT_EQ(result.code, 0) << result.errors.toStdString();
        const QJsonValue plan = QJsonDocument::fromJson(result.output.toUtf8()).object()[QStringLiteral("plan")];
        EXPECT_TRUE(plan[QStringLiteral("sizeIsRough")].toBool());
        return plan[QStringLiteral("sizeBytes")].toDouble();
    }
};

TEST_F(DryRunSize, IsThatOfTheMaterialWhereTheMaterialDecides) {
    constexpr double SECONDS = 30;
    const std::string film = make(
        "film.mkv",
        {{"-f", "lavfi", "-i", "color=gray:s=640x360:r=25:d=30,noise=alls=60:allf=t", "-c:v", "mpeg4", "-q:v", "2"}});
    const double told = estimateOf(film);
    render({film, "-p", "mkv-ffv1-flac", "--out", "3"}, "part.mkv");
    const double real = static_cast<double>(TestFiles::read(place / "part.mkv").size()) / 3 * SECONDS;
    EXPECT_LT(told, real * 1.4);
    EXPECT_GT(told, real / 1.4);
}

} // namespace
} // namespace TestCli

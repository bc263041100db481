// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Base/Time.h"
#include "KTime/KTime.h"
#include "Types/Range.h"
#include "Types/Time.h"
#include "Types/UniqueId.h"
#include <QSet>
#include <QVariant>
#include <gtest/gtest.h>
#include <type_traits>

namespace {

constexpr qint64 LOWEST = std::numeric_limits<qint64>::min();
constexpr qint64 HIGHEST = std::numeric_limits<qint64>::max();

TEST(KTime, IsZeroByDefault) {
    EXPECT_EQ(KTime().count(), 0);
    EXPECT_TRUE(KTime().isNull());
    EXPECT_FALSE(KTime(-1).isNull());
}

TEST(KTime, IsNotMadeFromANumberUnasked) {
    EXPECT_FALSE((std::is_convertible_v<qint64, KTime>));
}

TEST(KTime, CountsMilliseconds) {
    static_assert(KTime(1500).milliseconds() == 1500);
    static_assert(KTime::fromSeconds(2) == KTime(2000));
    EXPECT_EQ(KTime(QTime(1, 2, 3, 4)).count(), 3723004);
    EXPECT_EQ(KTime::fromQTime(QTime(0, 0, 1)).count(), 1000);
}

TEST(KTime, OfAnInvalidQTimeIsZero) {
    EXPECT_EQ(KTime(QTime()), KTime());
}

TEST(KTime, ComparesAndAdds) {
    static_assert(KTime(1) < KTime(2) && KTime(2) > KTime(1) && KTime(1) <= KTime(1) && KTime(1) >= KTime(1));
    static_assert(KTime(1) != KTime(2));
    static_assert(KTime(5) + KTime(7) == KTime(12) && KTime(5) - KTime(7) == KTime(-2) && -KTime(3) == KTime(-3));
    KTime time(10);
    time += KTime(5);
    time -= KTime(1);
    EXPECT_EQ(time, KTime(14));
}

TEST(KTime, StopsAtTheEndsOfItsRange) {
    EXPECT_EQ(KTime(HIGHEST) + KTime(1), KTime(HIGHEST));
    EXPECT_EQ(KTime(LOWEST) + KTime(-1), KTime(LOWEST));
    EXPECT_EQ(KTime(LOWEST) - KTime(1), KTime(LOWEST));
    EXPECT_EQ(KTime(HIGHEST) - KTime(-1), KTime(HIGHEST));
    EXPECT_EQ(-KTime(LOWEST), KTime(HIGHEST));
    EXPECT_EQ(KTime::fromSeconds(LOWEST), KTime(LOWEST));
    EXPECT_EQ(KTime::fromSeconds(HIGHEST), KTime(HIGHEST));
}

TEST(KTime, IsKnownToTheMetaTypeSystemByItsName) {
    const int id = qRegisterMetaType<KTime>();
    EXPECT_STREQ(QMetaType::typeName(id), "KTime");
    EXPECT_EQ(QVariant::fromValue(KTime(42)).value<KTime>(), KTime(42));
}

TEST(EngineTime, IsSevenHundredFiveThousandSixHundredTicksAMillisecond) {
    EXPECT_EQ(Types::toAvTime(KTime(1)), 705'600);
    EXPECT_EQ(Types::toAvTime(KTime(-1)), -705'600);
    EXPECT_EQ(Types::toAvTime(KTime::fromSeconds(1)), Kestra::TIME_BASE);
}

TEST(EngineTime, IsRoundedToTheNearestMillisecond) {
    EXPECT_EQ(Types::fromAvTime(352'799), KTime(0));
    EXPECT_EQ(Types::fromAvTime(352'800), KTime(1));
    EXPECT_EQ(Types::fromAvTime(-352'799), KTime(0));
    EXPECT_EQ(Types::fromAvTime(-352'800), KTime(-1));
    EXPECT_EQ(Types::fromAvTime(3 * 705'600 + 1), KTime(3));
}

TEST(EngineTime, IsClampedWhereAMillisecondCountDoesNotFit) {
    EXPECT_EQ(Types::toAvTime(KTime(HIGHEST)), HIGHEST);
    EXPECT_EQ(Types::toAvTime(KTime(LOWEST)), LOWEST);
    EXPECT_EQ(Types::toAvTime(KTime(HIGHEST / 705'600)), HIGHEST / 705'600 * 705'600);
    EXPECT_EQ(Types::fromAvTime(HIGHEST), KTime(HIGHEST / 705'600 + (HIGHEST % 705'600 >= 352'800 ? 1 : 0)));
}

TEST(EngineTime, GivesEveryMillisecondBack) {
    for (qint64 count : {0LL, 1LL, -1LL, 999LL, 86'400'000LL, -86'400'001LL, 13'000'000'000'000LL})
        EXPECT_EQ(Types::fromAvTime(Types::toAvTime(KTime(count))), KTime(count));
}

TEST(Range, IsFromZeroToZeroByDefault) {
    EXPECT_EQ(Types::Range(), (Types::Range{KTime(0), KTime(0)}));
    EXPECT_NE(Types::Range(), (Types::Range{KTime(0), KTime(1)}));
    EXPECT_NE(Types::Range(), (Types::Range{KTime(1), KTime(0)}));
}

TEST(UniqueId, IsFreshAtEachCallAndFitForAFileName) {
    QSet<QString> ids;
    for (int count = 0; count < 1000; ++count) {
        const QString id = Types::nextUniqueId();
        EXPECT_FALSE(id.isEmpty());
        for (const QChar letter : id)
            EXPECT_TRUE(letter.isLetterOrNumber() || letter == QLatin1Char('-')) << qPrintable(id);
        ids.insert(id);
    }
    EXPECT_EQ(ids.size(), 1000);
}

} // namespace

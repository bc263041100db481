// SPDX-License-Identifier: GPL-3.0-or-later
#include "Kestra/Core/Property.h"
#include "Kestra/Base/Exception.h"
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

using Kestra::Core::Property;

namespace {

std::string messageOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Kestra::Exception& exception) {
        return exception.what();
    }
    return "nothing was thrown";
}

} // namespace

TEST(Property, SetChildReplacesTheChildOfThatNameWithItsChildren) {
    Property tree;
    tree["a"]["b"].SetValue(std::int64_t{1});
    tree.SetChild("a", std::string("x"));
    EXPECT_EQ(tree.GetChildren().size(), 1u);
    EXPECT_EQ(tree["a"].GetString(), "x");
    EXPECT_FALSE(tree["a"].ChildExists("b"));
}

TEST(Property, SetChildTakesASubtreeOfItsOwnTree) {
    Property tree;
    tree["outer"]["inner"]["leaf"].SetValue(true);
    tree.SetChild(tree["outer"]["inner"]);
    EXPECT_TRUE(tree["inner"]["leaf"].GetBool());
    EXPECT_TRUE(tree["outer"]["inner"]["leaf"].GetBool());
}

TEST(Property, SetChildTakesTheTreeItself) {
    Property tree("root");
    tree["leaf"].SetValue(std::int64_t{7});
    tree.SetChild(tree);
    EXPECT_EQ(tree["root"]["leaf"].GetInt64(), 7);
    EXPECT_FALSE(tree["root"].ChildExists("root"));
}

TEST(Property, CopiesAreIndependent) {
    Property tree;
    tree["a"].SetValue(std::int64_t{1});
    Property copy = tree;
    copy["a"].SetValue(std::int64_t{2});
    EXPECT_EQ(tree["a"].GetInt64(), 1);
}

TEST(Property, ChildrenKeepTheOrderOfInsertion) {
    Property tree;
    tree.SetChild("z");
    tree.SetChild("a");
    tree.SetChild("z", true);
    ASSERT_EQ(tree.GetChildren().size(), 2u);
    EXPECT_EQ(tree.GetChildren()[0].GetName(), "z");
    EXPECT_EQ(tree.GetChildren()[1].GetName(), "a");
}

TEST(Property, RemoveChildSaysWhetherThereWasOne) {
    Property tree;
    tree.SetChild("a");
    EXPECT_TRUE(tree.RemoveChild("a"));
    EXPECT_FALSE(tree.RemoveChild("a"));
    EXPECT_FALSE(tree.ChildExists("a"));
}

TEST(Property, AMissingChildOfAConstantTreeIsNamedInTheException) {
    const Property tree("codec");
    const std::string message = messageOf([&tree] { (void)tree["bitrate"]; });
    EXPECT_NE(message.find("bitrate"), std::string::npos) << message;
    EXPECT_NE(message.find("codec"), std::string::npos) << message;
}

TEST(Property, NumbersConvertWhereNothingIsLost) {
    EXPECT_EQ(Property("n", 3.0).GetInt64(), 3);
    EXPECT_EQ(Property("n", Property::Rational(6, 2)).GetInt64(), 3);
    EXPECT_EQ(Property("n", std::int64_t{3}).GetDouble(), 3.0);
    EXPECT_EQ(Property("n", Property::Rational(3, 4)).GetDouble(), 0.75);
    EXPECT_EQ(Property("n", 0.75).GetRational(), Property::Rational(3, 4));
    EXPECT_EQ(Property("n", std::int64_t{25}).GetRational(), Property::Rational(25));
    EXPECT_EQ(Property("n", -9223372036854775808.0).GetInt64(), std::numeric_limits<std::int64_t>::min());
}

TEST(Property, AConversionThatWouldLoseSomethingThrows) {
    EXPECT_THROW(Property("n", 3.5).GetInt64(), Kestra::Exception);
    EXPECT_THROW(Property("n", 9223372036854775808.0).GetInt64(), Kestra::Exception);
    EXPECT_THROW(Property("n", std::nan("")).GetInt64(), Kestra::Exception);
    EXPECT_THROW(Property("n", Property::Rational(1, 3)).GetInt64(), Kestra::Exception);
    EXPECT_THROW(Property("n", Property::Rational(30000, 1001)).GetDouble(), Kestra::Exception);
    EXPECT_THROW(Property("n", std::int64_t{9007199254740993}).GetDouble(), Kestra::Exception);
    EXPECT_THROW(Property("n", std::numeric_limits<std::int64_t>::max()).GetDouble(), Kestra::Exception);
    EXPECT_THROW(Property("n", std::numeric_limits<double>::infinity()).GetRational(), Kestra::Exception);
    EXPECT_THROW(Property("n", 1e-30).GetRational(), Kestra::Exception);
}

TEST(Property, OtherKindsDoNotConvert) {
    EXPECT_THROW(Property("n", true).GetInt64(), Kestra::Exception);
    EXPECT_THROW(Property("n", std::int64_t{1}).GetBool(), Kestra::Exception);
    EXPECT_THROW(Property("n", std::string("1")).GetInt64(), Kestra::Exception);
    EXPECT_THROW(Property("n", std::int64_t{1}).GetString(), Kestra::Exception);
    EXPECT_THROW(Property("n").GetDouble(), Kestra::Exception);
}

TEST(Property, AWrongKindIsNamedWithNodeAndValue) {
    const std::string message = messageOf([] { Property("gop", std::string("often")).GetInt64(); });
    EXPECT_EQ(message, "Property \"gop\" holds a string (often) where an integer is needed");
}

TEST(Property, MergeTakesOverNodeByNodeAndKeepsTheRest) {
    Property base;
    base["video"].SetChild("codec", std::string("h264"));
    base["video"].SetChild("quality", std::int64_t{20});
    Property other;
    other["video"].SetChild("quality", std::int64_t{18});
    other["video"].SetChild("profile", std::string("high"));
    base.Merge(other);
    EXPECT_EQ(base["video"]["codec"].GetString(), "h264");
    EXPECT_EQ(base["video"]["quality"].GetInt64(), 18);
    EXPECT_EQ(base["video"]["profile"].GetString(), "high");
}

TEST(Property, MergeOfANodeWithoutAValueKeepsTheValue) {
    Property base;
    base.SetChild("a", std::int64_t{1});
    Property other;
    other.SetChild("a");
    base.Merge(other);
    EXPECT_EQ(base["a"].GetInt64(), 1);
}

TEST(Property, MergeWithItselfChangesNothing) {
    Property tree;
    tree["a"]["b"].SetValue(true);
    const Property before = tree;
    tree.Merge(tree);
    EXPECT_EQ(tree, before);
}

TEST(Property, EqualityIgnoresTheOrderOfChildrenOnly) {
    Property a;
    a.SetChild("x", std::int64_t{1});
    a.SetChild("y", std::int64_t{2});
    Property b;
    b.SetChild("y", std::int64_t{2});
    b.SetChild("x", std::int64_t{1});
    EXPECT_EQ(a, b);
    b.SetChild("x", 1.0);
    EXPECT_NE(a, b);
    b.SetChild("x", std::int64_t{1});
    b["x"].SetChild("deep");
    EXPECT_NE(a, b);
    EXPECT_NE(Property("a"), Property("b"));
}

TEST(Property, ToStringHasALinePerValue) {
    Property tree("preset");
    tree.SetChild("id", std::string("mp3"));
    tree["audio"].SetChild("rate", Property::Rational(30000, 1001));
    tree["audio"].SetChild("open");
    EXPECT_EQ(tree.ToString(), "preset/id = mp3\npreset/audio/rate = 30000/1001\npreset/audio/open = \n");
}

TEST(Property, ToStringDoesNotFollowTheLocaleOfTheProgram) {
    Property tree;
    tree.SetChild("n", 1234567.5);
    tree.SetChild("f", true);
    EXPECT_EQ(tree.ToString(), "n = 1234567.5\nf = true\n");
}

// SPDX-License-Identifier: GPL-3.0-or-later
// Operations in any order, from outside and from inside of hooks, on views of every kind of objects that an export
// deals with: what is told, and what each view holds, is what a plain model of views says.
#include "sweep/storm/OperationLog.h"
#include "sweep/ReferenceExport.h"
#include "sweep/storm/AllKinds.h"
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

using namespace Sweep;

namespace {

/// Empty when the views do what the model does.
template <class ObjectKind>
std::string difference(const OperationLog& log) {
    ViewModel model;
    model.parts = &ObjectKind::parts;
    RealViews<ObjectKind> real;
    for (const Step& step : log) {
        model.log.clear();
        real.log.clear();
        model.run(step);
        real.run(step);
        const std::string told = real.differenceTo(model);
        if (!told.empty())
            return told;
    }
    return "";
}

std::string textOf(const OperationLog& log) {
    std::ostringstream text;
    Sweep::operator<<(text, log);
    return text.str();
}

/// The shortest log that tells the views from the model, in the form in which it can be given back.
template <class ObjectKind>
std::string told(const OperationLog& log) {
    const OperationLog core =
        shortened(log, [](const OperationLog& shorter) { return !difference<ObjectKind>(shorter).empty(); });
    return "these steps, which SWEEP_LOG=FILE plays again:\n" + textOf(core) + difference<ObjectKind>(core);
}

template <class ObjectKind>
class OperationLogs : public ::testing::Test {};

TYPED_TEST_SUITE(OperationLogs, AllKinds, NamesOfKinds);

TYPED_TEST(OperationLogs, TellWhatAPlainModelOfViewsTells) {
    if (const char* path = std::getenv("SWEEP_LOG")) {
        std::ifstream file(path);
        ASSERT_TRUE(file) << path;
        EXPECT_EQ(difference<TypeParam>(readLog(file)), "");
        return;
    }
    // For all the kinds together, a log where the storm has ten changes.
    const int count = countOr(24'000) / 60;
    int worst = 2;
    for (int seed = 0; seed < count && worst > 0; ++seed) {
        const OperationLog log = randomLog(static_cast<std::uint64_t>(seed), TypeParam::NUMBERS);
        if (difference<TypeParam>(log).empty())
            continue;
        --worst;
        ADD_FAILURE() << "seed " << seed << ", " << told<TypeParam>(log);
    }
}

TEST(OperationLog, IsReadAsItWasWritten) {
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        const std::string text = textOf(randomLog(seed, 256));
        std::istringstream in(text);
        EXPECT_EQ(textOf(readLog(in)), text);
    }
}

TEST(OperationLog, IsNotReadFromWhatIsNone) {
    for (const char* text : {"fly view 0 item 0 value 0", "own view 4 item 0 value 0", "own view 0 item 3 value 0",
                             "own", "own view 0 item 0 value 0; in passing of view 0: own view 0 item 0 value 0"}) {
        std::istringstream in(text);
        EXPECT_THROW(readLog(in), std::invalid_argument) << text;
    }
}

/// Stands for a fault that needs three things: item 1 owned by view 2, then a change with a removal inside of it.
bool hasTheFault(const OperationLog& log) {
    bool owned = false;
    for (const Step& step : log) {
        owned = owned || (step.operation.kind == Kind::Own && step.operation.view == 2 && step.operation.item == 1);
        for (const Reaction& reaction : step.reactions)
            if (owned && step.operation.kind == Kind::Change && reaction.operation.kind == Kind::Remove)
                return true;
    }
    return false;
}

TEST(OperationLog, IsShortenedToTheStepsThatTellAFault) {
    int found = 0;
    for (std::uint64_t seed = 0; seed < 200; ++seed) {
        const OperationLog log = randomLog(seed, 256);
        if (!hasTheFault(log))
            continue;
        ++found;
        const OperationLog core = shortened(log, &hasTheFault);
        ASSERT_EQ(core.size(), 2U) << textOf(core);
        EXPECT_TRUE(core[0].reactions.empty());
        EXPECT_EQ(core[1].reactions.size(), 1U);
    }
    EXPECT_GT(found, 10);
}

} // namespace

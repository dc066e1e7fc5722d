#include "zt_tb/post/result_tracer.h"

#include "zt_tb/post/fake_checker.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

class ResultTracer : public testing::Test {
protected:
    ResultTracer() {
        doc->MakeCurrent();
        doc->SetChekCtrl(&checker);
        doc->StartTracerMode();
    }

    using Loads = std::vector<LoadChoice>;
    const Loads offered{{.key = 1}, {.key = 3}, {.key = 3, .kind = LoadCaseKind::EsSpectrum}};
    FakeChecker checker;
    std::unique_ptr<CDBDoc> doc = CDBDoc::New();
};

TEST_F(ResultTracer, NothingIsTracedOutsideTracerModeOrWithoutAChecker) {
    doc->EndTracerMode();
    EXPECT_EQ(nullptr, TracingChecker());
    EXPECT_FALSE(TracedLoads(offered));
    doc->StartTracerMode();
    doc->SetChekCtrl(nullptr);
    EXPECT_EQ(nullptr, TracingChecker());
}

TEST_F(ResultTracer, ObjectsAreNarrowedToThoseThatWereFound) {
    std::vector<std::uint32_t> numbers{1, 2, 3};
    DropUntraced(numbers);
    EXPECT_EQ(std::vector<std::uint32_t>{2}, numbers);
    doc->EndTracerMode();
    numbers = {1, 2, 3};
    DropUntraced(numbers);
    EXPECT_EQ(3u, numbers.size());
}

TEST_F(ResultTracer, AFindingIsThatOfItsCheckStoryAndLoadCase) {
    doc->SetCheckMode(73);
    EXPECT_TRUE(IsTraced(73, 7, {.key = 3}));
    EXPECT_FALSE(IsTraced(73, 8, {.key = 3}));
    EXPECT_FALSE(IsTraced(73, 7, {.key = 1}));
    EXPECT_FALSE(IsTraced(73, 7, {.key = 3, .kind = LoadCaseKind::Spectrum}));
    doc->SetCheckMode(72);
    EXPECT_FALSE(IsTraced(73, 7, {.key = 3}));
}

TEST_F(ResultTracer, TheCheckSaysWhichLoadCasesAreTicked) {
    EXPECT_EQ((Loads{{.key = 3}}), TracedLoads(offered));
    checker.check = 108;
    EXPECT_EQ(offered, TracedLoads(offered));
    checker.check = 99;
    EXPECT_EQ(Loads{}, TracedLoads(offered));
    checker.check = 116;
    EXPECT_EQ((Loads{{.key = 3, .kind = LoadCaseKind::EsSpectrum}}), TracedLoads(offered));
    checker.check = 72;
    EXPECT_EQ(std::nullopt, TracedLoads(offered));
}

}  // namespace
}  // namespace zt

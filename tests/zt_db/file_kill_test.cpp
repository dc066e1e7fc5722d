#include "zt_db/kill_test.h"

namespace zt {
namespace {

using FileKill = KillTest;

TEST_F(FileKill, AKilledProgramLosesNothingReportedAndLeavesNoStepInPart) { KillOften(20, 1); }

}  // namespace
}  // namespace zt

#include "zt_db/kill_test.h"

namespace zt {
namespace {

using FileKillOften = KillTest;

TEST_F(FileKillOften, AKilledProgramLosesNothingReportedAndLeavesNoStepInPart) { KillOften(200, 2); }

}  // namespace
}  // namespace zt

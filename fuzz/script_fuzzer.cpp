#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>

#include "fuzz_support.h"
#include "zt_script/script_runner.h"

// Scripts can save and open files. They run in a folder of their own, and cannot name another one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    if (text.find("sample") != std::string::npos) return 0;  // large buildings only cost time
    std::replace(text.begin(), text.end(), '/', '_');
    std::filesystem::current_path(zt::FuzzFolder());
    std::ostringstream output;
    const zt::ScriptCount count = zt::ScriptRunner(output).RunText("script", text);
    zt::Require(count.passed >= 0 && count.ExitStatus() <= 2, "a script ends with a count");
    zt::Require(count.failed + count.unreadable == 0 || !output.str().empty(), "a failure is reported");
    zt::EmptyFuzzFolder();
    return 0;
}

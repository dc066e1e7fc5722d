#include "zt_tb/post/result_declaration.h"

#include <string>

#include "velda_lib/msg_dll.h"

namespace zt {

std::string ResultTitle(std::string_view title) {
    return title.starts_with("IDS_") ? velda::CMsgDll::pfuncLoadStr(std::string(title).c_str(), 0) : std::string(title);
}

}  // namespace zt

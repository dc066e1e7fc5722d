#pragma once

#include "velda_lib/msg_dll.h"

namespace velda {

/// The text of a key in the current language.
inline std::string KeyText(std::string_view key) { return CMsgDll::pfuncLoadStr(key, 0); }

}  // namespace velda

#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "velda_lib/msg_dll.h"

namespace zt {

/// The engine's texts are UTF-8.
inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) { return text.toStdString(); }
/// A word of the language resource.
inline QString Word(std::string_view key) { return ToQt(velda::CMsgDll::pfuncLoadStr(key, 0)); }

}  // namespace zt

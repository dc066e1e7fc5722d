#pragma once

#include "zt_db/core/record_class.h"

namespace zt {

struct T_RSLT_UNIT;

/// The results that hold for the model as it is, known by the identification of their run; there is at most one record,
/// under key 1. While it stands nothing that the results depend on can change.
struct T_RSLT_D {
    static constexpr std::uint32_t kKey = 1;

    std::string run{};
    std::string time{};  ///< when the run ended, as text

    static const T_RSLT_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_RSLT_D&) const = default;
};

template <>
struct Fields<T_RSLT_D> {
    static constexpr auto list = std::tuple{
        Plain("run", &T_RSLT_D::run),
        Plain("time", &T_RSLT_D::time),
    };
};

ZT_RECORD(RSLT, Rslt)
ZT_PLAIN_CLASS(RSLT, Rslt)

}  // namespace zt

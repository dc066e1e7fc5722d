#pragma once

#include "zt_db/core/record_class.h"

namespace zt {

struct T_STND_UNIT;

/// The design standards of the model, by their code names.
struct T_STND_D {
    std::string concrete{};
    std::string steel{};
    std::string composite{};
    std::string load{};
    std::string seismic{};

    static const T_STND_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_STND_D&) const = default;
};

template <>
struct Fields<T_STND_D> {
    static constexpr auto list = std::tuple{
        Plain("concrete", &T_STND_D::concrete),   Plain("steel", &T_STND_D::steel),
        Plain("composite", &T_STND_D::composite), Plain("load", &T_STND_D::load),
        Plain("seismic", &T_STND_D::seismic),
    };
};

ZT_RECORD(STND, Stnd)
ZT_PLAIN_CLASS(STND, Stnd)

}  // namespace zt

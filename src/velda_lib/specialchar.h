#pragma once

#include <string_view>

namespace velda {

/// Characters that unit labels and column titles are composed of, in UTF-8.
struct CSpecialchar {
    static constexpr std::string_view m_cs2Square = "\u00B2";
    static constexpr std::string_view m_cs3Square = "\u00B3";
    static constexpr std::string_view m_cs4Square = "\u2074";
    static constexpr std::string_view m_cs6Square = "\u2076";
    static constexpr std::string_view m_csMiddleDot = "\u00B7";
    static constexpr std::string_view m_csDegree = "\u00B0";
};

}  // namespace velda

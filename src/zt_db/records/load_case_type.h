#pragma once

#include <string_view>

namespace zt {

/// Types of static load cases, the codes that their records hold.
namespace LoadCaseType {
inline constexpr std::string_view Dead = "D";
inline constexpr std::string_view Live = "L";
inline constexpr std::string_view RoofLive = "LR";
inline constexpr std::string_view Snow = "S";
inline constexpr std::string_view Wind = "W";
inline constexpr std::string_view Earthquake = "E";
inline constexpr std::string_view Temperature = "T";
inline constexpr std::string_view EarthPressure = "EP";
inline constexpr std::string_view WaterPressure = "WP";
inline constexpr std::string_view Accidental = "A";
}  // namespace LoadCaseType

/// A type of static load cases and the text key of its name.
struct LoadCaseTypeName {
    std::string_view type;
    std::string_view nameKey;
};

/// The types that have a name, the usual ones first. Records may hold others.
inline constexpr LoadCaseTypeName kLoadCaseTypes[] = {
    {LoadCaseType::Dead, "IDS_DB_LOADTYPE_D"},           {LoadCaseType::Live, "IDS_DB_LOADTYPE_L"},
    {LoadCaseType::RoofLive, "IDS_DB_LOADTYPE_LR"},      {LoadCaseType::Snow, "IDS_DB_LOADTYPE_S"},
    {LoadCaseType::Wind, "IDS_DB_LOADTYPE_W"},           {LoadCaseType::Earthquake, "IDS_DB_LOADTYPE_E"},
    {LoadCaseType::Temperature, "IDS_DB_LOADTYPE_T"},    {LoadCaseType::EarthPressure, "IDS_DB_LOADTYPE_EP"},
    {LoadCaseType::WaterPressure, "IDS_DB_LOADTYPE_WP"}, {LoadCaseType::Accidental, "IDS_DB_LOADTYPE_A"},
};

}  // namespace zt

#pragma once

#include "zt_tb/boundary_load/member_load_table.h"

namespace zt {

/// Loads on beams and secondary beams, and the loads of cranes.
class CTBBeamld : public MemberLoadTable<CTBBeamld, CClassLnld> {
public:
    static constexpr int kMemberTypes[] = {201, 205};
    static constexpr std::string_view kWrongType = "IDS_TB_LOAD_NOT_BEAM_TYPE";
    static constexpr const auto& kDirections = kLoadDirections;
    static constexpr bool kSharesClass = true;
    static constexpr bool kShowsCranes = true;

    static const Declaration& Declared();
    static const std::string m_strRegName;
};

/// Loads on lines.
class CTBLnld : public MemberLoadTable<CTBLnld, CClassLnld> {
public:
    static constexpr int kMemberTypes[] = {200};
    static constexpr std::string_view kWrongType = "IDS_TB_LOAD_NOT_LINE_TYPE";
    static constexpr const auto& kDirections = kLoadDirections;
    static constexpr bool kSharesClass = true;
    static constexpr bool kShowsCranes = false;

    static const Declaration& Declared();
    static const std::string m_strRegName;
};

/// Loads on columns.
class CTBCmld : public MemberLoadTable<CTBCmld, CClassCmld> {
public:
    static constexpr int kMemberTypes[] = {101, 207};
    static constexpr std::string_view kWrongType = "IDS_TB_LOAD_NOT_COLM_TYPE";
    static constexpr const auto& kDirections = kLoadDirections;
    static constexpr bool kSharesClass = false;
    static constexpr bool kShowsCranes = false;

    static const Declaration& Declared();
    static const std::string m_strRegName;
};

/// Loads on walls.
class CTBWallld : public MemberLoadTable<CTBWallld, CClassLnld> {
public:
    static constexpr int kMemberTypes[] = {202};
    static constexpr std::string_view kWrongType = "IDS_TB_LOAD_NOT_WALL_TYPE";
    static constexpr const auto& kDirections = kFaceDirections;
    static constexpr bool kSharesClass = true;
    static constexpr bool kShowsCranes = false;

    static const Declaration& Declared();
    static const std::string m_strRegName;
};

}  // namespace zt

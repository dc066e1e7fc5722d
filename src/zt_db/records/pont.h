#pragma once

#include "zt_db/core/record_class.h"
#include "zt_db/records/stor.h"

namespace zt {

struct T_PONT_UNIT;

/// A node. The height `z` counts from the top level of the story.
struct T_PONT_D {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    int plan = 0;
    std::uint32_t story = 0;
    std::uint32_t no = 0;
    std::string name{};

    static const T_PONT_UNIT unit;
    void Initialize() { *this = {}; }
    bool operator==(const T_PONT_D&) const = default;
};

template <>
struct Fields<T_PONT_D> {
    static constexpr auto list = std::tuple{
        Measured("x", &T_PONT_D::x, Unit::Length),
        Measured("y", &T_PONT_D::y, Unit::Length),
        Measured("z", &T_PONT_D::z, Unit::Length),
        Plain("plan", &T_PONT_D::plan),
        Refers<T_STOR_D>("story", &T_PONT_D::story, IfGone::Refuse),
        Number("no", &T_PONT_D::no),
        Plain("name", &T_PONT_D::name),
    };
};

ZT_RECORD(PONT, Pont)

class CClassPont : public CClassOf<T_PONT_D> {
public:
    ZT_CLASS_NAMES(PONT)

    /// The user's number of a node, and the node with a number; 0 when there is none.
    std::uint32_t GetPontNoByKey(std::uint32_t key) const { return store_ ? store_->NumberOfKey(key) : 0; }
    std::uint32_t GetPontKeyByNo(std::uint32_t no) const { return store_ ? store_->KeyOfNumber(no) : 0; }
    /// The next free number.
    std::uint32_t GetNewNo() const { return store_ ? store_->NewNumber() : 1; }

    /// Reads a node with its place in space: as Get, but `z` is the absolute height, the top level of the story and the
    /// node's own height together. A node without a story counts from 0. False, and `copy` is left alone, when the key
    /// does not exist.
    int Get3DPos(std::uint32_t key, T_PONT_D& copy) const;
};

}  // namespace zt

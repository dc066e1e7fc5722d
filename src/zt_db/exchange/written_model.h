#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "zt_db/core/database.h"
#include "zt_db/exchange/exchange_model.h"
#include "zt_db/exchange/exchange_report.h"
#include "zt_db/geometry/member_geometry.h"
#include "zt_db/exchange/model_check.h"

namespace zt {

using KeyOfName = std::unordered_map<std::string, std::uint32_t>;

/// A member that has been written.
struct WrittenMember {
    std::uint32_t key = 0;
    int type = 0;
    double length = 0.0;
    bool hasInnerNodes = false;
};

/// What the writers of a model share: where it goes, what was said, and the keys that its names have got.
struct WrittenModel {
    DB_CDataBase& database;
    const ExchangeModel& model;
    ExchangeReport& report;
    KeyOfName materials{};
    KeyOfName sections{};
    KeyOfName storeys{};
    KeyOfName nodes{};
    KeyOfName loadCases{};
    std::unordered_map<std::string, WrittenMember> members{};
    std::unordered_map<std::string, WrittenMember> surfaces{};
    std::unordered_map<std::string, Vector3> places{};  ///< of the nodes
    std::unordered_map<std::string, std::string> loadCaseTypes{};

    void Tell(FindingLevel level, const ExchangeOrigin& origin, std::string_view key, std::string value = {},
              std::string column = {}) {
        report.Add(level, PlaceOf(model, origin, std::move(column)), key, {std::move(value)});
    }
    /// A row counts once, also when several records came from it.
    void CountKept(const ExchangeOrigin& origin) {
        if (origin.sheet >= model.sheets.size()) return;
        const std::uint64_t place = std::uint64_t{origin.sheet} << 32 | origin.row;
        if (kept.insert(place).second) report.CountKept(model.sheets[origin.sheet], 1);
    }

    std::unordered_set<std::uint64_t> kept{};
};

/// Writes supports, releases, links, masses and loads. False when the database refuses a record.
bool WriteSupports(WrittenModel& written);
bool WriteLoads(WrittenModel& written);

}  // namespace zt

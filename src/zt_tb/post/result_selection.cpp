#include "zt_tb/post/result_selection.h"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"

namespace zt {
namespace {

using Keys = std::vector<std::uint32_t>;

/// The source of a grid whose objects can be selected; null for others.
const CTBPostDS* ObjectSourceOf(const velda::CTBCore& grid) {
    const CTBPostDS* source = PostSourceOf(&grid);
    const bool hasObjects =
        source && (source->KeyDomainOf() == KeyDomain::Nodes || source->KeyDomainOf() == KeyDomain::Members);
    return hasObjects ? source : nullptr;
}

std::uint32_t KeyOf(const CDataBase& database, std::uint32_t domain, std::uint32_t number) {
    return domain == KeyDomain::Nodes ? database.GetClass<CClassPont>()->GetPontKeyByNo(number)
                                      : database.GetClass<CClassMemb>()->GetMembKeyByNo(number);
}

std::uint32_t NumberOf(const CDataBase& database, std::uint32_t domain, std::uint32_t key) {
    return domain == KeyDomain::Nodes ? database.GetClass<CClassPont>()->GetPontNoByKey(key)
                                      : database.GetClass<CClassMemb>()->GetMembNoByKey(key);
}

/// The objects of the rows that commands work on, by their places.
std::set<std::size_t> ObjectsOfRows(const velda::CTBCore& grid, const CTBPostDS& source) {
    std::set<std::size_t> objects;
    std::vector<velda::PositionRange> ranges = grid.Selected().Ranges();
    if (ranges.empty()) ranges.push_back(grid.CommandRange());
    for (const velda::PositionRange& range : ranges) {
        const int last = std::min(range.bottom, grid.RowCount());
        for (int row = std::max(range.top, 1); row <= last && objects.size() < source.ObjectCount(); ++row) {
            const long record = grid.RecCtrl().GetRecNo(row);
            if (record > 0) objects.insert(static_cast<std::size_t>(record - 1) / source.Rows().size());
        }
    }
    return objects;
}

}  // namespace

void PushObjects(CDataBase& database, const velda::CTBCore& grid, CDBUpdateConnector* sender) {
    const CTBPostDS* source = ObjectSourceOf(grid);
    if (!source || source->Rows().empty()) return;
    const std::uint32_t domain = source->KeyDomainOf();
    Keys keys;
    for (const std::size_t object : ObjectsOfRows(grid, *source)) {
        if (const std::uint32_t key = KeyOf(database, domain, source->ObjectNumber(object))) keys.push_back(key);
    }
    std::sort(keys.begin(), keys.end());
    CViewCtrl& view = *database.GetViewCtrl();
    Keys selected;
    domain == KeyDomain::Nodes ? view.GetAllSelectedPont(selected) : view.GetAllSelectedMemb(selected);
    std::sort(selected.begin(), selected.end());
    if (keys.empty() || keys == selected) return;
    domain == KeyDomain::Nodes ? view.SelectPont(sender, keys) : view.SelectMemb(sender, keys);
}

void SelectRowsOfObjects(CDataBase& database, velda::CTBCore& grid) {
    const CTBPostDS* source = ObjectSourceOf(grid);
    if (!source || source->Rows().empty()) return;
    const std::uint32_t domain = source->KeyDomainOf();
    const CViewCtrl& view = *database.GetViewCtrl();
    Keys selected;
    domain == KeyDomain::Nodes ? view.GetAllSelectedPont(selected) : view.GetAllSelectedMemb(selected);
    std::unordered_set<std::uint32_t> numbers;
    for (const std::uint32_t key : selected) numbers.insert(NumberOf(database, domain, key));

    int row = 0;
    int col = 0;
    grid.GetCurrentCell(row, col);
    const auto rows = static_cast<long>(source->Rows().size());
    const long current = std::max(grid.RecCtrl().GetRecNo(row), 1L);
    std::vector<int> found;
    for (std::size_t object = 0; object < source->ObjectCount() && !numbers.empty(); ++object) {
        if (!numbers.contains(source->ObjectNumber(object))) continue;
        found.push_back(grid.RecCtrl().RowOfRecord(static_cast<long>(object) * rows + (current - 1) % rows + 1));
    }
    if (found.empty()) {
        grid.ClearSelection();
        return;
    }
    std::sort(found.begin(), found.end());
    const int height = grid.RecHdr().RowsOfRecord();
    grid.SetCurrentCell(found.front(), std::max(col, 1));
    for (std::size_t first = 0, end = 0; first < found.size(); first = end) {
        for (end = first + 1; end < found.size() && found[end] == found[end - 1] + height;) ++end;
        const auto range = velda::PositionRange::Rows(found[first], found[end - 1] + height - 1);
        first == 0 ? grid.SelectRange(range) : grid.AddRange(range);
    }
}

}  // namespace zt

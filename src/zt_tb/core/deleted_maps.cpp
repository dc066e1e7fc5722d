#include "zt_db/records/mbtp.h"
#include "zt_db/records/memb.h"
#include "zt_db/records/pont.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {
namespace {

/// Visits the deleted records of a class in the buffer.
template <class Class, class Visit>
void ForEachDeleted(const CViewBuff& buffer, Visit visit) {
    using Record = typename Class::Record;
    CDataOf<Record> data;
    for (POSITION at = buffer.GetHeadPosition(); at;) {
        const std::uint64_t entry = buffer.GetNext(at);
        const int code = static_cast<int>(static_cast<std::uint32_t>(entry));
        if (code != IdentityOf<Record>::value.codes[static_cast<std::size_t>(ChangeEntry::Delete)]) continue;
        if (buffer.ReadData(entry, data)) visit(data.key, data.record);
    }
}

template <class Class>
void RecordNumbers(const CViewBuff& buffer, IntMap& map) {
    map.Rebuild();
    ForEachDeleted<Class>(buffer, [&](std::uint32_t key, const typename Class::Record& record) {
        map.Set(static_cast<std::int32_t>(key), static_cast<std::int32_t>(record.no));
    });
}

std::uint32_t ValueOf(const IntMap& map, std::uint32_t key) {
    std::int32_t value = 0;
    map.Lookup(static_cast<std::int32_t>(key), value);
    return static_cast<std::uint32_t>(value);
}

}  // namespace

void CTBCommonWnd::MakeDeletedPontMap(const CViewBuff& buffer) { RecordNumbers<CClassPont>(buffer, deletedPonts_); }

void CTBCommonWnd::MakeDeletedMembMap(const CViewBuff& buffer) {
    RecordNumbers<CClassMemb>(buffer, deletedMembs_);
    // Member type data knows its member, not the other way round, and goes with it in the same step.
    membsOfDeletedMbtps_.Rebuild();
    ForEachDeleted<CClassMbtp>(buffer, [this](std::uint32_t key, const T_MBTP_D& options) {
        if (!IsDeletedMemb(options.memb)) return;
        membsOfDeletedMbtps_.Set(static_cast<std::int32_t>(key), static_cast<std::int32_t>(options.memb));
    });
}

void CTBCommonWnd::RemoveAllDeletedMembMap() {
    deletedMembs_.RemoveAll();
    membsOfDeletedMbtps_.RemoveAll();
}

int CTBCommonWnd::IsDeletedPont(std::uint32_t key) const {
    return deletedPonts_.Contains(static_cast<std::int32_t>(key)) ? 1 : 0;
}

int CTBCommonWnd::IsDeletedMemb(std::uint32_t key) const {
    return deletedMembs_.Contains(static_cast<std::int32_t>(key)) ? 1 : 0;
}

std::uint32_t CTBCommonWnd::GetPontNoByDeletedKey(std::uint32_t key) const { return ValueOf(deletedPonts_, key); }

std::uint32_t CTBCommonWnd::GetMembNoByDeletedKey(std::uint32_t key) const { return ValueOf(deletedMembs_, key); }

std::uint32_t CTBCommonWnd::GetDeletedMembKByMbtpK(std::uint32_t key) const {
    return ValueOf(membsOfDeletedMbtps_, key);
}

}  // namespace zt

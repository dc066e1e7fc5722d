#include "velda_lib/msg_dll.h"
#include "velda_util/text/unicode_text.h"
#include "zt_db/records/load.h"
#include "zt_db/records/matl.h"
#include "zt_db/records/name.h"
#include "zt_db/records/sect.h"
#include "zt_db/records/stor.h"
#include "zt_db/records/thik.h"
#include "zt_tb/core/tb_common_wnd.h"

namespace zt {
namespace {

constexpr std::string_view kModuleSeparator = " : ";
constexpr int kValueBits = 32;

std::string NoneText() { return velda::CMsgDll::pfuncLoadStr("IDS_TB_NAME_NONE", 0); }

template <class Class>
std::uint32_t FirstKeyOfName(std::string_view name) {
    const Class* records = CTBCommonWnd::GetRecords<Class>();
    if (!records) return 0;
    std::uint32_t key = 0;
    typename Class::Record record;
    for (POSITION at = records->DB_GetStart(); at;) {
        records->GetNextData(at, key, record);
        if (velda::CCompFunc::CompString(record.name, name) == 0) return key;
    }
    return 0;
}

/// The key that a class gives for a name, in a cell that can stand at none.
template <class Class, class... Type>
std::uint32_t KeyOfNameOrNone(std::string_view name, Type... type) {
    const Class* records = CTBCommonWnd::GetRecords<Class>();
    if (!records || name.empty() || velda::CCompFunc::EqualNoCase(name, NoneText())) return 0;
    return records->GetKey(name, type...);
}

template <class Class>
std::string NameOfKey(std::uint32_t key) {
    const Class* records = CTBCommonWnd::GetRecords<Class>();
    if (!records) return {};
    if (key == 0) return NoneText();
    typename Class::Record record;
    return records->Get(key, record) ? record.name : std::string();
}

}  // namespace

std::uint32_t CTBCommonWnd::GetMatlKey(std::string_view name) { return FirstKeyOfName<CClassMatl>(name); }

std::uint32_t CTBCommonWnd::GetSectKey(std::string_view name) { return FirstKeyOfName<CClassSect>(name); }

std::uint32_t CTBCommonWnd::GetThikKey(std::string_view name) { return FirstKeyOfName<CClassThik>(name); }

std::string CTBCommonWnd::GetMatlName(std::uint32_t key) { return NameOfKey<CClassMatl>(key); }

std::string CTBCommonWnd::GetSectName(std::uint32_t key) { return NameOfKey<CClassSect>(key); }

std::string CTBCommonWnd::GetThikName(std::uint32_t key) { return NameOfKey<CClassThik>(key); }

std::uint32_t CTBCommonWnd::GetPontNameKey(std::string_view name) { return GetMembNameKey(name, T_NAME_D::kNodeGroup); }

std::uint32_t CTBCommonWnd::GetMembNameKey(std::string_view name, int type) {
    return KeyOfNameOrNone<CClassName>(name, type);
}

std::string CTBCommonWnd::GetPontNameName(std::uint32_t key) { return NameOfKey<CClassName>(key); }

std::string CTBCommonWnd::GetMembNameName(std::uint32_t key) { return NameOfKey<CClassName>(key); }

std::uint32_t CTBCommonWnd::GetStldKey(std::string_view name) { return KeyOfNameOrNone<CClassStld>(name); }

std::string CTBCommonWnd::GetStldName(std::uint32_t key) { return NameOfKey<CClassStld>(key); }

// ---- stories ----

std::uint32_t CTBCommonWnd::GetStorKey(std::string_view text) {
    const auto* modules = GetRecords<CClassMdul>();
    const auto* stories = GetRecords<CClassStor>();
    Keys moduleKeys;
    if (!modules || !modules->GetKeyList(moduleKeys)) return 0;
    if (moduleKeys.size() == 1) return stories->GetKey(text, moduleKeys.front());
    const std::size_t separator = text.find(kModuleSeparator);
    if (separator == std::string_view::npos) return 0;
    const std::uint32_t moduleKey = modules->GetKey(text.substr(0, separator));
    return stories->GetKey(text.substr(separator + kModuleSeparator.size()), moduleKey);
}

std::string CTBCommonWnd::GetStorName(std::uint32_t key) {
    const std::string name = NameOfKey<CClassStor>(key);
    const auto* modules = GetRecords<CClassMdul>();
    T_STOR_D story;
    if (!modules || modules->GetCount() <= 1 || !GetRecords<CClassStor>()->Get(key, story)) return name;
    T_MDUL_D module;
    if (!modules->Get(story.mdul, module)) return {};
    return module.name + std::string(kModuleSeparator) + name;
}

// ---- flags ----

int CTBCommonWnd::GetYesNo(std::string_view text) { return velda::CCompFunc::EqualNoCase(text, "Yes") ? 1 : 0; }

std::string CTBCommonWnd::GetYesNoName(int value) { return value != 0 ? "Yes" : "No"; }

int CTBCommonWnd::GetValueNum(std::string_view text) {
    std::uint32_t value = 0;
    for (int bit = 0; bit < kValueBits && !text.empty(); ++bit) {
        if (text.front() != '0') value |= 1u << bit;
        text.remove_prefix(velda::FirstCharacterLength(text));
    }
    return static_cast<int>(value);
}

std::string CTBCommonWnd::GetValueStr(int value, int width) {
    std::string text(static_cast<std::size_t>(std::max(width, 0)), '0');
    for (int bit = 0; bit < std::min(width, kValueBits); ++bit) {
        if ((static_cast<std::uint32_t>(value) >> bit & 1u) != 0) text[static_cast<std::size_t>(bit)] = '1';
    }
    return text;
}

}  // namespace zt

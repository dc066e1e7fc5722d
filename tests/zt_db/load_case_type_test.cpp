#include "zt_db/records/load_case_type.h"

#include <set>

#include "velda_lib/language.h"
#include "zt_db/exchange/member_kinds.h"
#include <gtest/gtest.h>

namespace zt {
namespace {

bool HasName(std::string_view type) {
    for (const LoadCaseTypeName& known : kLoadCaseTypes) {
        if (known.type == type) return true;
    }
    return false;
}

TEST(LoadCaseTypes, AreEachListedOnceWithANameInBothLanguages) {
    std::set<std::string_view> types;
    for (const LoadCaseTypeName& known : kLoadCaseTypes) {
        EXPECT_TRUE(types.insert(known.type).second) << known.type;
        for (const velda::Language language : {velda::Language::English, velda::Language::Korean}) {
            EXPECT_TRUE(velda::CatalogOf(language).Find(known.nameKey)) << known.nameKey;
        }
    }
}

TEST(LoadCaseTypes, HaveANameWhereTheyComeFromWordsOfFiles) {
    for (const char* word : {"Wind", "Snow", "Seismic", "Temperature", "Self weight", "Static", "Others"}) {
        for (const char* action : {"Permanent", "Variable", "Accidental"}) {
            const std::string_view type = LoadCaseTypeOf(action, word, "");
            EXPECT_TRUE(HasName(type)) << action << ' ' << word << ' ' << type;
        }
    }
}

}  // namespace
}  // namespace zt

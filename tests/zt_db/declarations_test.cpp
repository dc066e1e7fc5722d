// One walk over every declared record class: what is said once has to be right everywhere.

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

#include "velda_lib/language.h"
#include "zt_db/file/model_schema.h"
#include "zt_db/records/registry.h"
#include "zt_db/test_support.h"

namespace zt {
namespace {

/// Calls `visit.operator()<Class>()` for each record class.
template <class Visit>
void ForEachClass(Visit visit) {
    std::apply([&]<class... Class>(const Class&...) { (visit.template operator()<Class>(), ...); }, RecordClassList{});
}

TEST(Declarations, EveryClassHasANameInEveryLanguage) {
    ForEachClass([]<class Class>() {
        const std::string key = "IDS_DB_DATA_NAME_" + std::string(Class::kMnemonic);
        EXPECT_TRUE(velda::CatalogOf(velda::Language::English).Find(key)) << key;
        EXPECT_TRUE(velda::CatalogOf(velda::Language::Korean).Find(key)) << key;
    });
}

TEST(Declarations, IdentitiesStandInTheOrderOfTheList) {
    const auto stores = MakeRecordStores();
    int index = 0;
    ForEachClass([&]<class Class>() {
        const RecordIdentity& identity = IdentityOf<typename Class::Record>::value;
        EXPECT_EQ(identity.index, index);
        EXPECT_EQ(identity.mnemonic, Class::kMnemonic);
        EXPECT_EQ(stores[static_cast<std::size_t>(index)]->Identity().classId, Class::m_nClassID);
        EXPECT_EQ(ClassIndexOfId(Class::m_nClassID), index);
        ++index;
    });
}

TEST(Declarations, ColumnNamesAreUniqueAndAreNotTheKey) {
    for (const auto& store : MakeRecordStores()) {
        std::set<std::string> names{"key"};
        for (const std::string& name : store->ColumnNames()) {
            EXPECT_TRUE(names.insert(name).second) << store->Identity().mnemonic << " " << name;
        }
        EXPECT_EQ(store->ColumnKinds().size(), store->ColumnNames().size());
    }
}

TEST(Declarations, EveryUnitCodeIsKnownAndStandsAtANumber) {
    const CUnitCtrl units;
    ForEachClass([&]<class Class>() {
        typename Class::Record record;
        record.Initialize();
        VisitScalars(record, [&](auto tag, const auto&, const auto& value) {
            constexpr const auto& field = decltype(tag)::value;
            if constexpr (field.units.Convert()) {
                for (std::size_t i = 0; i < field.units.count; ++i) {
                    if (field.units.codes[i] == Unit::None) continue;
                    EXPECT_FALSE(units.Label(field.units.codes[i]).empty()) << Class::kMnemonic << " " << field.name;
                }
                EXPECT_TRUE((std::is_same_v<std::remove_cvref_t<decltype(value)>, double>));
            }
        });
    });
}

TEST(Declarations, EveryReferenceLeadsToADeclaredClass) {
    ForEachClass([]<class Class>() {
        AnyField<typename Class::Record>([](const auto& field) {
            if (field.reference.target) {
                EXPECT_GE(field.reference.target->index, 0) << Class::kMnemonic << " " << field.name;
            }
            return false;
        });
    });
}

// A record that follows another to a new key is not followed itself.
TEST(Declarations, NoClassRefersToOneThatStandsUnderForeignKeys) {
    const auto stores = MakeRecordStores();
    for (const auto& target : stores) {
        if (!target->ForeignKeyClass()) continue;
        EXPECT_GE(target->ForeignKeyClass()->index, 0) << target->Identity().mnemonic;
        ForEachClass([&]<class Class>() {
            EXPECT_NE(KeyClass<typename Class::Record>(), &target->Identity()) << Class::kMnemonic;
            AnyField<typename Class::Record>([&](const auto& field) {
                EXPECT_NE(field.reference.target, &target->Identity()) << Class::kMnemonic << " " << field.name;
                return false;
            });
        });
    }
}

TEST(Declarations, DefaultsAreWhatInitializeGivesAndTheirTextsReadBack) {
    for (const auto& store : MakeRecordStores()) {
        const auto images = store->NewImages();
        const std::uint32_t original = images->AppendDefault();
        const std::uint32_t copy = images->AppendDefault();
        for (int column = 0; column < static_cast<int>(store->ColumnNames().size()); ++column) {
            EXPECT_TRUE(images->SetFieldText(copy, column, images->FieldText(original, column)))
                << store->Identity().mnemonic << " " << store->ColumnNames()[static_cast<std::size_t>(column)];
        }
        EXPECT_TRUE(images->Equal(original, copy));
    }
}

TEST(Declarations, ATextThatIsNoValueLeavesTheFieldAlone) {
    for (const auto& store : MakeRecordStores()) {
        const auto images = store->NewImages();
        const std::uint32_t original = images->AppendDefault();
        const std::uint32_t changed = images->AppendDefault();
        for (int column = 0; column < static_cast<int>(store->ColumnNames().size()); ++column) {
            const bool isPlainText = store->ColumnKinds()[static_cast<std::size_t>(column)] == ColumnKind::Text &&
                                     !images->FieldText(original, column).starts_with('[');
            if (isPlainText) continue;
            for (const char* wrong :
                 {"", "abc", "1x", "[", "[1", "[[", "[\"", "inf", "nan", "1e999", "[1,]", "[1] 2"}) {
                EXPECT_FALSE(images->SetFieldText(changed, column, wrong))
                    << store->Identity().mnemonic << " " << store->ColumnNames()[static_cast<std::size_t>(column)]
                    << " took " << wrong;
            }
        }
        EXPECT_TRUE(images->Equal(original, changed));
    }
}

/// Fills every scalar of a record with a value of its own.
template <class R>
R Filled() {
    R record;
    record.Initialize();
    int next = 1;
    const auto fill = [&next](auto&, auto&, auto& value) {
        using Value = std::remove_cvref_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, std::string>) {
            value = "text \"" + std::to_string(next++) + "\" 층\n";
        } else {
            value = static_cast<Value>(next++);
        }
    };
    VisitFields(record, [&](auto tag, auto& owner) {
        auto& list = owner.*(decltype(tag)::value.member);
        if constexpr (IsStdVector<std::remove_cvref_t<decltype(list)>>::value) list.resize(3);
    });
    VisitScalars(record, fill);
    return record;
}

/// Keeps the values of one row in memory.
class RowInMemory final : public RowWriter, public RowReader {
public:
    void Integer(int, std::int64_t value) override { integers_.push_back(value), Note(0); }
    void Real(int, double value) override { reals_.push_back(value), Note(1); }
    void Text(int, std::string_view value) override { texts_.emplace_back(value), Note(2); }
    bool Integer(int column, std::int64_t& value) override { return Take(column, 0, integers_, value); }
    bool Real(int column, double& value) override { return Take(column, 1, reals_, value); }
    bool Text(int column, std::string_view& value) override { return Take(column, 2, texts_, value); }

private:
    void Note(int kind) {
        const std::size_t sizes[] = {integers_.size(), reals_.size(), texts_.size()};
        places_.emplace_back(kind, sizes[kind] - 1);
    }
    template <class List, class Value>
    bool Take(int column, int kind, const List& list, Value& value) const {
        const auto& [storedKind, place] = places_[static_cast<std::size_t>(column)];
        if (storedKind == kind) value = list[place];
        return storedKind == kind;
    }
    std::vector<std::int64_t> integers_;
    std::vector<double> reals_;
    std::vector<std::string> texts_;
    std::vector<std::pair<int, std::size_t>> places_;
};

TEST(Declarations, EveryFieldSurvivesTheWayThroughAStorage) {
    ForEachClass([]<class Class>() {
        using Record = typename Class::Record;
        Images<Record> images;
        images.records.push_back(Filled<Record>());
        RowInMemory row;
        images.WriteRow(0, row);
        RecordStore<Record> store;
        EXPECT_EQ(store.LoadRow(7, row), -1);
        store.FinishLoading();
        ASSERT_NE(store.Find(7), nullptr);
        EXPECT_EQ(*store.Find(7), images.records[0]) << Class::kMnemonic;
    });
}

TEST(Declarations, EveryFieldTakesPartInComparison) {
    ForEachClass([]<class Class>() {
        using Record = typename Class::Record;
        int field = 0;
        const Record original = Filled<Record>();
        Record counted = original;
        int scalars = 0;
        VisitScalars(counted, [&](auto, auto&, auto&) { ++scalars; });
        for (; field < scalars; ++field) {
            Record changed = original;
            int at = 0;
            VisitScalars(changed, [&](auto, auto&, auto& value) {
                if (at++ != field) return;
                if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, std::string>) {
                    value += "x";
                } else {
                    value += 1;
                }
            });
            EXPECT_FALSE(changed == original) << Class::kMnemonic << " field " << field;
        }
    });
}

// A change here means that files of the released version have other tables: raise kModelSchemaVersion, and add a file
// with the new tables beside this one.
TEST(Declarations, TheTablesOfTheFileAreThoseOfItsVersion) {
    std::string tables;
    for (const auto& store : MakeRecordStores()) tables += CreateTableSql(*store) + ";\n";
    std::ifstream file(std::string(ZT_SOURCE_DIR) + "/tests/zt_db/schema_version_" +
                       std::to_string(kModelSchemaVersion) + ".sql");
    std::ostringstream expected;
    expected << file.rdbuf();
    EXPECT_EQ(tables, expected.str());
}

}  // namespace
}  // namespace zt

#include "velda_util/pref/table_registry.h"

#include <stdexcept>

#include "velda_util/preference_damage.h"
#include "velda_util/preference_folder.h"
#include "velda_util/result/tb_data_src.h"
#include <gmock/gmock.h>

namespace velda {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Items = std::vector<STBPrefItem>;
using Widths = std::vector<int>;

const Items kThik{{1, 2, 0, 45}, {3, 2, 0, 80}, {2, 2, 4, 120}};

void ThikDefaults(Items& items) { items.insert(items.end(), kThik.begin(), kThik.end()); }
void MembDefaults(Items& items) { items.push_back({1, 2, 0, 60}); }
void WiderThikDefaults(Items& items) {
    ThikDefaults(items);
    items.push_back({3, 2, 0, 80});
}
void NoColumns(Items&) {}

// As table classes do it.
const std::string kNameAtLoadTime = TableRegistry::OfProcess().RegisterTable("TBLoadTime", &ThikDefaults);

class TableRegistryTest : public PreferenceFolderTest {
protected:
    /// A registry as another start of the program would have it.
    struct Started : TableRegistry {
        explicit Started(const fs::path& file) : TableRegistry(PreferenceFile(file)) {
            RegisterTable("TBThik", &ThikDefaults);
            RegisterTable("TBMemb", &MembDefaults);
        }
    };
    Started registry{path};

    static Widths WidthsOf(TableRegistry& of, std::string_view name) {
        Widths widths;
        for (const STBPrefItem& item : of.GetPrefInfo(name)) widths.push_back(item.columnWidth);
        return widths;
    }
};

TEST_F(TableRegistryTest, RegisteringGivesTheNameToKeep) {
    EXPECT_EQ(registry.RegisterTable("TBSect", &MembDefaults), "TBSect");
    EXPECT_THAT(registry.RegisteredNames(), ElementsAre("TBMemb", "TBSect", "TBThik"));
}

TEST_F(TableRegistryTest, TablesRegisterInTheProcessAtLoadTime) {
    EXPECT_EQ(kNameAtLoadTime, "TBLoadTime");
    EXPECT_THAT(TableRegistry::OfProcess().RegisteredNames(), testing::Contains("TBLoadTime"));
}

TEST_F(TableRegistryTest, RegisteringTheSameAgainIsNoFault) {
    EXPECT_EQ(registry.RegisterTable("TBThik", &ThikDefaults), "TBThik");
    EXPECT_THAT(registry.RegisteredNames(), ElementsAre("TBMemb", "TBThik"));
}

TEST_F(TableRegistryTest, RegisteringANameWithAnotherFunctionIsABrokenInvariant) {
    EXPECT_THROW(registry.RegisterTable("TBThik", &MembDefaults), std::invalid_argument);
    EXPECT_EQ(registry.GetPrefInfo("TBThik"), kThik);
}

/// A source of two columns, by its kind and argument.
class TwoColumns final : public CTBDataSrc {
public:
    TwoColumns(int kind, int argument) : CTBDataSrc(kind), argument_(argument) {}
    static std::unique_ptr<CTBDataSrc> Make(int kind, int argument) {
        return std::make_unique<TwoColumns>(kind, argument);
    }
    int Argument() const { return argument_; }
    void InitColHeader() override {}
    void InitRecFields() override {}
    void MakeRecords() override {}
    void AppendPreferences(Items& items) const override { items.insert(items.end(), {{2, 2, 6, 90}, {3, 0, 0, 80}}); }
    int UserDefinedInit() override { return 1; }
    long GetRecCount() override { return 0; }
    int SeekRec(long) override { return 0; }
    void GetRecTexts(RecordCells&) override {}

private:
    int argument_;
};
std::unique_ptr<CTBDataSrc> MakeOther(int kind, int) { return TwoColumns::Make(kind, 0); }

TEST_F(TableRegistryTest, AClassOfResultTablesIsMadeByItsNameAndTellsItsPreferences) {
    EXPECT_EQ(registry.RegisterTable("CTBPostTwo", "TBPostTwo", &TwoColumns::Make), "TBPostTwo");
    const DataSrcFactory make = registry.FactoryOf("CTBPostTwo");
    ASSERT_NE(make, nullptr);
    const auto source = make(7, 3);
    EXPECT_EQ(source->GetKind(), 7);
    EXPECT_EQ(dynamic_cast<TwoColumns&>(*source).Argument(), 3);
    EXPECT_THAT(WidthsOf(registry, "TBPostTwo"), ElementsAre(90, 80));
    EXPECT_EQ(registry.FactoryOf("TBPostTwo"), nullptr) << "the name of its preferences";
    EXPECT_EQ(registry.FactoryOf("CTBPostOther"), nullptr);
}

TEST_F(TableRegistryTest, AClassHasOneNameAndANameOneFactory) {
    registry.RegisterTable("CTBPostTwo", "TBPostTwo", &TwoColumns::Make);
    EXPECT_EQ(registry.RegisterTable("CTBPostTwo", "TBPostTwo", &TwoColumns::Make), "TBPostTwo");
    EXPECT_THROW(registry.RegisterTable("CTBPostTwo", "TBPostMore", &TwoColumns::Make), std::invalid_argument);
    EXPECT_THROW(registry.RegisterTable("CTBPostMore", "TBPostTwo", &MakeOther), std::invalid_argument);
    EXPECT_THROW(registry.RegisterTable("CTBPostThik", "TBThik", &MakeOther), std::invalid_argument);
    EXPECT_THROW(registry.RegisterTable("", "TBPostMore", &MakeOther), std::invalid_argument);
    EXPECT_THROW(registry.RegisterTable("CTBPostMore", "TBPostMore", nullptr), std::invalid_argument);
    EXPECT_EQ(registry.FactoryOf("CTBPostMore"), nullptr);
    EXPECT_THAT(registry.RegisteredNames(), ElementsAre("TBMemb", "TBPostTwo", "TBThik"));
}

TEST_F(TableRegistryTest, ATableWithoutNameOrDefaultsIsABrokenInvariant) {
    EXPECT_THROW(registry.RegisterTable("", &MembDefaults), std::invalid_argument);
    EXPECT_THROW(registry.RegisterTable("TBNone", nullptr), std::invalid_argument);
    EXPECT_THAT(registry.RegisteredNames(), ElementsAre("TBMemb", "TBThik"));
}

TEST_F(TableRegistryTest, TheDefaultsAreThoseThatWereRegistered) {
    EXPECT_EQ(registry.GetPrefInfo("TBThik"), kThik);
    EXPECT_EQ(registry.GetPrefInfo("TBMemb"), (Items{{1, 2, 0, 60}}));
    EXPECT_EQ(registry.GetLayout("TBThik"), TableLayout());
    EXPECT_EQ(FileNames(), std::set<std::string>());
}

TEST_F(TableRegistryTest, AnUnknownNameHasNothing) {
    EXPECT_THAT(registry.GetPrefInfo("TBNone"), IsEmpty());
    EXPECT_EQ(registry.GetLayout("TBNone"), TableLayout());
    EXPECT_FALSE(registry.SetPrefInfo("TBNone", {}));
    EXPECT_FALSE(registry.SetCurrColWithInPrefInfo("TBNone", {}));
    EXPECT_FALSE(registry.SetLayout("TBNone", {}));
    EXPECT_EQ(registry.WriteToRegistry("TBNone").Reason(), "There is no table with the name \"TBNone\".");
    EXPECT_EQ(FileNames(), std::set<std::string>());
}

TEST_F(TableRegistryTest, WidthsHoldAtOnceAndAfterWritingInTheNextStart) {
    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 0, 130}));
    EXPECT_EQ(registry.GetPrefInfo("TBThik"), (Items{{1, 2, 0, 50}, {3, 2, 0, 0}, {2, 2, 4, 130}}));
    EXPECT_EQ(WidthsOf(registry, "TBMemb"), Widths{60});
    Started unwritten(path);
    EXPECT_EQ(unwritten.GetPrefInfo("TBThik"), kThik);

    ASSERT_TRUE(registry.WriteToRegistry("TBThik"));
    Started next(path);
    EXPECT_EQ(next.GetPrefInfo("TBThik"), (Items{{1, 2, 0, 50}, {3, 2, 0, 0}, {2, 2, 4, 130}}));
    EXPECT_EQ(WidthsOf(next, "TBMemb"), Widths{60});
}

TEST_F(TableRegistryTest, ABadWidthLeavesTheOneBefore) {
    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 90, 130}));
    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {-1, 95, kMaxColumnWidth + 1}));
    EXPECT_EQ(WidthsOf(registry, "TBThik"), (Widths{50, 95, 130}));
}

TEST_F(TableRegistryTest, WidthsOfAnotherNumberOfColumnsChangeNothing) {
    EXPECT_FALSE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 90}));
    EXPECT_FALSE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 90, 130, 10}));
    EXPECT_FALSE(registry.SetCurrColWithInPrefInfo("TBThik", {}));
    EXPECT_FALSE(registry.SetPrefInfo("TBThik", {{1, 2, 0, 1}}));
    EXPECT_EQ(registry.GetPrefInfo("TBThik"), kThik);
}

TEST_F(TableRegistryTest, FormatAndPlacesAreKeptToo) {
    const Items items{{1, 1, 0, 45}, {3, 2, 0, 80}, {2, 3, 6, 120}};
    ASSERT_TRUE(registry.SetPrefInfo("TBThik", items));
    ASSERT_TRUE(registry.WriteToRegistry("TBThik"));
    EXPECT_EQ(Started(path).GetPrefInfo("TBThik"), items);
}

TEST_F(TableRegistryTest, TheLayoutIsKeptBesideTheWidths) {
    const TableLayout layout{{2, 0, 1}, {1}, {0}};
    ASSERT_TRUE(registry.SetLayout("TBThik", layout));
    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 90, 130}));
    EXPECT_EQ(registry.GetLayout("TBThik"), layout);
    ASSERT_TRUE(registry.WriteToRegistry("TBThik"));
    Started next(path);
    EXPECT_EQ(next.GetLayout("TBThik"), layout);
    EXPECT_EQ(WidthsOf(next, "TBThik"), (Widths{50, 90, 130}));
    EXPECT_EQ(next.GetLayout("TBMemb"), TableLayout());
}

TEST_F(TableRegistryTest, ALayoutThatDoesNotFitIsTakenAsFarAsItFits) {
    ASSERT_TRUE(registry.SetLayout("TBThik", {{0, 1}, {1, 7}, {-1, 2}}));
    EXPECT_EQ(registry.GetLayout("TBThik"), (TableLayout{{}, {1}, {2}}));
}

TEST_F(TableRegistryTest, ATableThatGotAnotherColumnStartsWithItsDefaults) {
    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 90, 130}));
    ASSERT_TRUE(registry.SetLayout("TBThik", {{2, 0, 1}, {1}, {0}}));
    ASSERT_TRUE(registry.WriteToRegistry("TBThik"));
    TableRegistry next{PreferenceFile(path)};
    next.RegisterTable("TBThik", &WiderThikDefaults);
    EXPECT_EQ(WidthsOf(next, "TBThik"), (Widths{45, 80, 120, 80}));
    EXPECT_EQ(next.GetLayout("TBThik"), (TableLayout{{}, {1}, {0}}));
}

TEST_F(TableRegistryTest, ATableWithoutColumnsIsATableToo) {
    registry.RegisterTable("TBNone", &NoColumns);
    EXPECT_THAT(registry.GetPrefInfo("TBNone"), IsEmpty());
    EXPECT_TRUE(registry.SetCurrColWithInPrefInfo("TBNone", {}));
    EXPECT_TRUE(registry.WriteToRegistry("TBNone"));
    EXPECT_THAT(Started(path).GetPrefInfo("TBNone"), IsEmpty());
}

TEST_F(TableRegistryTest, AnUnchangedTableIsWrittenAsItStands) {
    ASSERT_TRUE(registry.WriteToRegistry("TBThik"));
    PreferenceText text;
    ASSERT_EQ(text.Read(Content(path)), PreferenceText::Fault::None);
    EXPECT_EQ(text.Table("TBThik"), (TablePreferences{kThik, {}}));
}

TEST_F(TableRegistryTest, NamesOfAnyCharactersSurviveTheFile) {
    const std::vector<std::string> names{"a b", "]\n[table TBThik", "%0a", std::string("\0\x01\xFF", 3),
                                         "\xEB\x91\x90\xEA\xBB\x98"};
    Started next(path);
    for (const std::string& name : names) {
        registry.RegisterTable(name, &MembDefaults);
        next.RegisterTable(name, &MembDefaults);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        ASSERT_TRUE(registry.SetCurrColWithInPrefInfo(names[i], {static_cast<int>(i)}));
        ASSERT_TRUE(registry.WriteToRegistry(names[i]));
    }
    for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(WidthsOf(next, names[i]), Widths{static_cast<int>(i)});
    EXPECT_EQ(next.GetPrefInfo("TBThik"), kThik);
}

TEST_F(TableRegistryTest, TwoStartsOfTheProgramKeepTheTablesOfEachOther) {
    Started other(path);
    for (int round = 1; round <= 3; ++round) {
        ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {round, round, round}));
        ASSERT_TRUE(other.SetCurrColWithInPrefInfo("TBMemb", {100 + round}));
        ASSERT_TRUE(registry.WriteToRegistry("TBThik"));
        ASSERT_TRUE(other.WriteToRegistry("TBMemb"));
        Started next(path);
        EXPECT_EQ(WidthsOf(next, "TBThik"), (Widths{round, round, round}));
        EXPECT_EQ(WidthsOf(next, "TBMemb"), Widths{100 + round});
    }
    EXPECT_EQ(WidthsOf(other, "TBThik"), (Widths{3, 3, 3}));
}

TEST_F(TableRegistryTest, WritingOneTableLeavesTheChangesOfAnotherUnwritten) {
    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 90, 130}));
    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBMemb", {99}));
    ASSERT_TRUE(registry.WriteToRegistry("TBMemb"));
    EXPECT_EQ(WidthsOf(registry, "TBThik"), (Widths{50, 90, 130}));
    EXPECT_EQ(Started(path).GetPrefInfo("TBThik"), kThik);
}

TEST_F(TableRegistryTest, ChangesHoldInTheProcessWhenTheyCannotBeWritten) {
    WriteProtect(folder);
    {
        const WithoutPrivileges user;
        ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 90, 130}));
        EXPECT_THAT(registry.WriteToRegistry("TBThik").Reason(), HasSubstr("Permission denied"));
        EXPECT_EQ(WidthsOf(registry, "TBThik"), (Widths{50, 90, 130}));
    }
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_TRUE(registry.WriteToRegistry("TBThik"));
    EXPECT_EQ(WidthsOf(registry, "TBThik"), (Widths{50, 90, 130}));
}

TEST_F(TableRegistryTest, ADamagedFileIsToldOnceAndTheDefaultsHold) {
    Fill(path, "nothing of ours");
    EXPECT_EQ(registry.GetPrefInfo("TBThik"), kThik);
    EXPECT_THAT(registry.TakeMessage(), HasSubstr("tables.conf.damaged"));
    EXPECT_EQ(registry.TakeMessage(), "");
    EXPECT_EQ(FileNames(), std::set<std::string>{"tables.conf.damaged"});
}

TEST_F(TableRegistryTest, TheFileIsNotReadWhileTablesRegister) {
    Fill(path, "nothing of ours");
    registry.RegisterTable("TBSect", &MembDefaults);
    EXPECT_EQ(FileNames(), std::set<std::string>{"tables.conf"});
}

TEST_F(TableRegistryTest, AnotherFileBringsItsOwnPreferences) {
    Started other(folder / "other.conf");
    ASSERT_TRUE(other.SetCurrColWithInPrefInfo("TBThik", {1, 2, 3}));
    ASSERT_TRUE(other.WriteToRegistry("TBThik"));

    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {7, 8, 9}));
    registry.UseFile(PreferenceFile(folder / "other.conf"));
    EXPECT_EQ(WidthsOf(registry, "TBThik"), (Widths{1, 2, 3}));
    EXPECT_THAT(registry.RegisteredNames(), ElementsAre("TBMemb", "TBThik"));
}

TEST_F(TableRegistryTest, RandomDamageOfTheFileLeavesTheProgramAtWork) {
    ASSERT_TRUE(registry.SetCurrColWithInPrefInfo("TBThik", {50, 90, 130}));
    ASSERT_TRUE(registry.SetLayout("TBThik", {{2, 0, 1}, {1}, {0}}));
    ASSERT_TRUE(registry.WriteToRegistry("TBThik"));
    const std::string bytes = Content(path);
    Damage damage(3);
    for (int i = 0; i < 500; ++i) {
        const std::string damaged = damage.Of(bytes);
        Fill(path, damaged);
        Started next(path);
        const Widths expected = damaged == bytes ? Widths{50, 90, 130} : Widths{45, 80, 120};
        ASSERT_EQ(WidthsOf(next, "TBThik"), expected) << damaged;
        ASSERT_EQ(next.TakeMessage().empty(), damaged == bytes);
        fs::remove(path.string() + ".damaged");
    }
}

}  // namespace
}  // namespace velda

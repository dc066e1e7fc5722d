#include "velda_lib/language.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>
#include <functional>
#include <new>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "velda_lib/msg_dll.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

namespace velda {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Text(Language language, std::string_view key) {
    return std::string(CatalogOf(language).Find(key).value_or("(missing)"));
}

/// Texts that the rules of the tables compare with, so that they are the same in every language.
const std::vector<std::pair<std::string, std::string>>& FixedLiterals() {
    static const std::vector<std::pair<std::string, std::string>> literals = {
        {"IDS_TB_MATL_None", "None"},
        {"IDS_TB_RESULTVIEW_NG", "NG"},
        {"IDS_TB_POSTDISP_NG", "NG"},
        {"IDS_TB_POSTDISP_OK", "OK"},
        {"IDS_TB_COMMONWND_YESNO", "Yes\nNo"},
        {"IDS_TB_YES", "Yes"},
        {"IDS_TB_NO", "No"},
        {"CMB_URBE_ARRANGE_TYPE_1", "Type-1"},
        {"CMB_URBE_ARRANGE_TYPE_2", "Type-2"},
        {"CMB_URBE_ARRANGE_TYPE_3", "Type-3"},
    };
    return literals;
}

bool IsFixedLiteral(std::string_view key) {
    return std::any_of(FixedLiterals().begin(), FixedLiterals().end(),
                       [&](const auto& literal) { return literal.first == key; });
}

/// The printf conversions of a text in their order: "%s", "%ld", "%.4e".
std::vector<std::string> Conversions(const std::string& text) {
    static const std::regex pattern(R"(%%|%[-+#0]*[0-9]*(\.[0-9]+)?(hh|h|ll|l|z)?[diouxXeEfFgGcs])");
    std::vector<std::string> found;
    for (std::sregex_iterator it(text.begin(), text.end(), pattern), end; it != end; ++it) {
        if (it->str() != "%%") found.push_back(it->str());
    }
    return found;
}

/// The places "%1" to "%9" of a text.
std::set<char> Places(std::string_view text) {
    std::set<char> places;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '%') continue;
        const char next = text[++i];
        if (next >= '1' && next <= '9') places.insert(next);
    }
    return places;
}

/// Whether a text is nothing but the end of its key, words and all: "Story_Drift" for "IDS_TB_Story_Drift".
bool IsTailOfKey(std::string_view key, std::string_view text) {
    return text.find('_') != std::string_view::npos && (key == text || key.ends_with("_" + std::string(text)));
}

bool IsLatinLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Symbols are not translated: no word of them has more than three letters ("Fx (i)", "P-M-M", "(+)").
bool IsSymbol(std::string_view text) {
    std::size_t letters = 0;
    for (const char c : text) {
        letters = IsLatinLetter(c) ? letters + 1 : 0;
        if (letters > 3) return false;
    }
    return true;
}

/// Whether a UTF-8 text holds a Hangul syllable, U+AC00 to U+D7A3.
bool HoldsHangul(std::string_view text) {
    for (std::size_t i = 0; i + 2 < text.size(); ++i) {
        const std::string_view three = text.substr(i, 3);
        if (three >= "\xEA\xB0\x80" && three <= "\xED\x9E\xA3") return true;
    }
    return false;
}

class LanguageSwitch : public testing::Test {
protected:
    ~LanguageSwitch() override { SetCurrentLanguage(Language::English); }
};

TEST_F(LanguageSwitch, EnglishIsSpokenAtFirst) {
    EXPECT_EQ(CurrentLanguage(), Language::English);
    EXPECT_EQ(CMsgDll::pfuncLoadStr("IDS_TB_MEMB_TYPE_COLUMN", 0), "Column");
}

TEST_F(LanguageSwitch, TakesEffectWithTheNextLookup) {
    SetCurrentLanguage(Language::Korean);
    EXPECT_EQ(CMsgDll::pfuncLoadStr("IDS_TB_MEMB_TYPE_COLUMN", 0), "기둥");
    EXPECT_EQ(FormatText("IDS_DB_STEP_ADD", {"기둥"}), "기둥 추가");
    SetCurrentLanguage(Language::English);
    EXPECT_EQ(CMsgDll::pfuncLoadStr("IDS_TB_MEMB_TYPE_COLUMN", 0), "Column");
}

TEST_F(LanguageSwitch, AnUnknownKeyAnswersWithItselfInEveryLanguage) {
    for (const Language language : {Language::English, Language::Korean}) {
        SetCurrentLanguage(language);
        EXPECT_EQ(CMsgDll::pfuncLoadStr("IDS_TB_NO_SUCH_KEY", 0), "IDS_TB_NO_SUCH_KEY");
        EXPECT_EQ(CMsgDll::pfuncLoadStr("", 0), "");
    }
}

TEST(LanguageCode, LeadsToTheLanguageAndBack) {
    EXPECT_EQ(LanguageOfCode("en"), Language::English);
    EXPECT_EQ(LanguageOfCode("ko"), Language::Korean);
    EXPECT_EQ(LanguageOfCode("xx"), std::nullopt);
    EXPECT_EQ(LanguageOfCode(""), std::nullopt);
    EXPECT_EQ(LanguageOfCode("EN"), std::nullopt);
    for (const Language language : {Language::English, Language::Korean}) {
        EXPECT_EQ(LanguageOfCode(CodeOfLanguage(language)), language);
    }
}

TEST(LanguageResource, HoldsTheSameKeysInBothLanguages) {
    const auto english = CatalogOf(Language::English).Keys();
    EXPECT_EQ(english, CatalogOf(Language::Korean).Keys());
    EXPECT_GT(english.size(), 1'000u);
}

TEST(LanguageResource, FindsEveryKeyItHolds) {
    for (const Language language : {Language::English, Language::Korean}) {
        const auto keys = CatalogOf(language).Keys();
        EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
        for (const std::string_view key : keys) EXPECT_TRUE(CatalogOf(language).Find(key).has_value()) << key;
    }
}

TEST(LanguageResource, TellsKeysApartByCase) {
    EXPECT_EQ(Text(Language::English, "IDS_TB_NO"), "No");
    EXPECT_EQ(Text(Language::English, "IDS_TB_No"), "No.");
    EXPECT_EQ(CatalogOf(Language::English).Find("ids_tb_no"), std::nullopt);
}

TEST(LanguageResource, DoesNotShowItsHeader) { EXPECT_EQ(CatalogOf(Language::English).Find(""), std::nullopt); }

TEST(LanguageResource, EveryTextSaysSomethingOfItsOwn) {
    for (const Language language : {Language::English, Language::Korean}) {
        for (const std::string_view key : CatalogOf(language).Keys()) {
            const std::string text = Text(language, key);
            EXPECT_THAT(text, testing::Not(IsEmpty())) << key;
            EXPECT_NE(text, key);
            EXPECT_FALSE(IsTailOfKey(key, text)) << key << ": " << text;
        }
    }
}

TEST(LanguageResource, ATailOfTheKeyIsNoText) {
    EXPECT_TRUE(IsTailOfKey("IDS_TB_Story_Drift", "Story_Drift"));
    EXPECT_FALSE(IsTailOfKey("IDS_TB_Story_Drift", "Story Drift"));
    EXPECT_FALSE(IsTailOfKey("IDS_TB_FRLS_Fx", "Fx"));
}

TEST(LanguageResource, PrintfConversionsAreTheSameInTheSameOrder) {
    for (const std::string_view key : CatalogOf(Language::English).Keys()) {
        EXPECT_EQ(Conversions(Text(Language::English, key)), Conversions(Text(Language::Korean, key))) << key;
    }
}

TEST(LanguageResource, ConversionsAreToldFromOtherPercentSigns) {
    EXPECT_THAT(Conversions("%s %d %ld: %.4e %06d"), ElementsAre("%s", "%d", "%ld", "%.4e", "%06d"));
    EXPECT_THAT(Conversions("50 % of (%) %%d %1 %2"), IsEmpty());
}

TEST(LanguageResource, PlacesOfArgumentsAreTheSame) {
    for (const std::string_view key : CatalogOf(Language::English).Keys()) {
        EXPECT_EQ(Places(Text(Language::English, key)), Places(Text(Language::Korean, key))) << key;
    }
    EXPECT_THAT(Places("%2 %1 %%3 %0"), ElementsAre('1', '2'));
}

TEST(LanguageResource, LiteralsThatTheTablesCompareWithAreNotTranslated) {
    for (const auto& [key, text] : FixedLiterals()) {
        EXPECT_EQ(Text(Language::English, key), text) << key;
        EXPECT_EQ(Text(Language::Korean, key), text) << key;
    }
}

TEST(LanguageResource, KoreanTextsAreKorean) {
    std::size_t words = 0;
    std::vector<std::string> foreign;
    for (const std::string_view key : CatalogOf(Language::Korean).Keys()) {
        const std::string text = Text(Language::Korean, key);
        if (IsFixedLiteral(key) || (IsSymbol(text) && !HoldsHangul(text))) continue;
        ++words;
        if (!HoldsHangul(text)) foreign.push_back(std::string(key) + ": " + text);
    }
    EXPECT_GT(words, 1'000u);
    EXPECT_LE(foreign.size() * 100, words * 15) << testing::PrintToString(foreign);
}

TEST(LanguageResource, HangulIsToldFromOtherLetters) {
    EXPECT_TRUE(HoldsHangul("Cb 가"));
    EXPECT_TRUE(HoldsHangul("힣"));
    EXPECT_FALSE(HoldsHangul("Cb \u03B2\u00B2 \uFF08"));
    EXPECT_TRUE(IsSymbol("Mpb (i)"));
    EXPECT_FALSE(IsSymbol("Column"));
}

class LanguageSource : public testing::TestWithParam<const char*> {};

TEST_P(LanguageSource, EntriesStandInTheOrderOfTheirKeys) {
    std::ifstream file(ZT_SOURCE_DIR "/resources/language/" + std::string(GetParam()) + ".po");
    ASSERT_TRUE(file);
    std::vector<std::string> keys;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("msgid ")) keys.push_back(line.substr(6));
    }
    EXPECT_GT(keys.size(), 1'000u);
    EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end(), std::greater_equal<>()), keys.end());
}

INSTANTIATE_TEST_SUITE_P(, LanguageSource, testing::Values("en", "ko"));

/// Bytes that end where readable memory ends: a read behind them stops the test program.
class GuardedBytes {
public:
    explicit GuardedBytes(std::string_view bytes) : size_(bytes.size()) {
        const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
        const std::size_t readable = (size_ + page - 1) / page * page;
        mapped_ = readable + page;
        void* memory = ::mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) throw std::bad_alloc();
        memory_ = static_cast<unsigned char*>(memory);
        ::mprotect(memory_ + readable, page, PROT_NONE);
        begin_ = memory_ + readable - size_;
        std::memcpy(begin_, bytes.data(), size_);
    }
    ~GuardedBytes() { ::munmap(memory_, mapped_); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    LanguageCatalog Catalog() const { return {begin_, size_}; }
    bool Holds(std::string_view part) const {
        const auto* first = reinterpret_cast<const unsigned char*>(part.data());
        return part.empty() || (first >= begin_ && first + part.size() <= begin_ + size_);
    }

private:
    unsigned char* memory_ = nullptr;
    unsigned char* begin_ = nullptr;
    std::size_t size_;
    std::size_t mapped_ = 0;
};

void AppendWord(std::string& bytes, std::size_t word) {
    const auto value = static_cast<std::uint32_t>(word);
    std::array<char, sizeof value> raw;
    std::memcpy(raw.data(), &value, raw.size());
    bytes.append(raw.data(), raw.size());
}

using Entries = std::vector<std::pair<std::string, std::string>>;

/// A message catalogue of the gettext tools with these entries, which stand in the order of their keys.
std::string CatalogBytes(const Entries& entries) {
    constexpr std::size_t kHeaderSize = 28;
    const std::size_t tableSize = entries.size() * 8;
    std::string bytes;
    for (const std::size_t word : {std::size_t{0x950412de}, std::size_t{0}, entries.size(), kHeaderSize,
                                   kHeaderSize + tableSize, std::size_t{0}, kHeaderSize + 2 * tableSize}) {
        AppendWord(bytes, word);
    }
    std::string texts;
    const auto place = [&](const std::string& text) {
        AppendWord(bytes, text.size());
        AppendWord(bytes, kHeaderSize + 2 * tableSize + texts.size());
        texts += text + '\0';
    };
    for (const auto& entry : entries) place(entry.first);
    for (const auto& entry : entries) place(entry.second);
    return bytes + texts;
}

const Entries kSample = {{"", "Header: 1\n"},
                         {"IDS_A", "Alpha"},
                         {"IDS_B", "Beta"},
                         {"IDS_C", "Gamma"},
                         {"IDS_Column_long", "A text that takes a good part of the whole catalogue"}};

/// Looks everything up that can be looked up and expects every answer to lie within the bytes.
void ExpectNoAnswerFromOutside(const GuardedBytes& bytes) {
    const LanguageCatalog catalog = bytes.Catalog();
    const auto keys = catalog.Keys();
    for (const std::string_view key : keys) ASSERT_TRUE(bytes.Holds(key));
    for (const auto& entry : kSample) ASSERT_TRUE(bytes.Holds(catalog.Find(entry.first).value_or("")));
    for (std::size_t i = 0; i < std::min<std::size_t>(keys.size(), 50); ++i) {
        ASSERT_TRUE(bytes.Holds(catalog.Find(keys[i]).value_or("")));
    }
}

TEST(LanguageCatalog, ReadsASoundCatalogue) {
    const GuardedBytes bytes(CatalogBytes(kSample));
    EXPECT_THAT(bytes.Catalog().Keys(), ElementsAre("IDS_A", "IDS_B", "IDS_C", "IDS_Column_long"));
    EXPECT_EQ(bytes.Catalog().Find("IDS_B"), "Beta");
    EXPECT_EQ(bytes.Catalog().Find("IDS_"), std::nullopt);
    EXPECT_EQ(bytes.Catalog().Find("IDS_D"), std::nullopt);
}

TEST(LanguageCatalog, NeverReadsBehindACutOffCatalogue) {
    const std::string whole = CatalogBytes(kSample);
    ASSERT_GE(whole.size(), 200u);
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        ExpectNoAnswerFromOutside(GuardedBytes(std::string_view(whole).substr(0, size)));
        if (testing::Test::HasFatalFailure()) FAIL() << size << " bytes";
    }
}

TEST(LanguageCatalog, NeverReadsOutsideRandomBytes) {
    std::mt19937 random(1);
    for (int i = 0; i < 5'000; ++i) {
        std::string bytes(random() % 300, '\0');
        for (char& byte : bytes) byte = static_cast<char>(random());
        ExpectNoAnswerFromOutside(GuardedBytes(bytes));
        if (testing::Test::HasFatalFailure()) FAIL() << "round " << i;
    }
}

TEST(LanguageCatalog, NeverReadsOutsideACatalogueWithFlippedBytes) {
    std::mt19937 random(2);
    const std::string whole = CatalogBytes(kSample);
    for (int i = 0; i < 20'000; ++i) {
        std::string bytes = whole;
        for (std::size_t flips = 1 + random() % 3; flips > 0; --flips) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        ExpectNoAnswerFromOutside(GuardedBytes(bytes));
        if (testing::Test::HasFatalFailure()) FAIL() << "round " << i;
    }
}

TEST(LanguageCatalog, AnAbsurdCountEndsWithTheBytes) {
    std::string bytes = CatalogBytes(kSample);
    std::memset(bytes.data() + 8, 0xFF, 4);
    const GuardedBytes guarded(bytes);
    EXPECT_LE(guarded.Catalog().Keys().size(), bytes.size() / 16);
}

}  // namespace
}  // namespace velda

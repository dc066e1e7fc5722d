#include <stdlib.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <regex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "velda_lib/language.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velda {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// Breaches of a rule, as "folder/file:line: what".
using Findings = std::vector<std::string>;

/// The floors of the house. A floor may include its own headers and those of floors that lie lower.
struct Floor {
    std::string_view name;
    int height;
};
constexpr std::array<Floor, 9> kFloors{{{"velda_lib", 0},
                                        {"velda_base", 1},
                                        {"velda_util", 2},
                                        {"zt_db", 3},
                                        {"zt_anl", 4},
                                        {"zt_cmd", 4},
                                        {"zt_dgn", 4},
                                        {"zt_tb", 5},
                                        {"zt_script", 6}}};

/// Headers that do not come with the language, by the beginning of their name, and the folders or files that may
/// include them.
struct Library {
    std::string_view header;
    std::vector<std::string_view> folders;
};
const std::vector<Library>& Libraries() {
    static const std::vector<Library> libraries = {
        {"sqlite3.h", {"src/zt_db/file/", "tests/zt_db/", "bench/", "fuzz/"}},

        {"hdf5", {"src/zt_db/post/hdf5_handle.h", "tests/zt_db/post/"}},
        {"pugixml", {"src/zt_db/file/"}},
        {"xlsxwriter", {"src/velda_util/export/xlsx_file.cpp", "bench/"}},
        {"zip.h", {"src/zt_db/exchange/zip_archive.cpp", "tests/zt_db/exchange/"}},
        {"expat.h", {"src/zt_db/exchange/xml_reader.cpp"}},
        {"zlib.h", {"tests/velda_util/"}},
        {"muParser", {"src/velda_util/formula/"}},
        {"Eigen/", {"src/zt_anl/", "tests/zt_anl/", "bench/"}},
        {"Spectra/", {"src/zt_anl/", "bench/"}},
        {"Q", {"apps/desktop/", "tests/desktop/", "bench/desktop_bench"}},
        {"gtest/", {"tests/"}},
        {"gmock/", {"tests/"}},
        {"benchmark/", {"bench/"}},
    };
    return libraries;
}

/// Headers of the operating system; they may stand anywhere.
const std::vector<std::string_view> kSystemHeaders = {"fcntl.h", "signal.h", "spawn.h", "stdlib.h", "unistd.h", "sys/"};

struct SourceLine {
    std::string path;  ///< below the root, with slashes
    std::size_t number = 0;
    std::string text;

    std::string Finding(const std::string& what) const { return path + ":" + std::to_string(number) + ": " + what; }
};

/// Files below some folders of a source tree, in the order of their paths.
std::vector<fs::path> FilesBelow(const fs::path& root, const std::vector<std::string_view>& folders) {
    std::vector<fs::path> files;
    for (const std::string_view folder : folders) {
        if (!fs::exists(root / folder)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
            if (entry.is_regular_file()) files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool IsCxx(const fs::path& file) {
    const fs::path extension = file.extension();
    return extension == ".h" || extension == ".cpp" || extension == ".inc";
}

template <class Predicate, class Visitor>
void ForEachLine(const fs::path& root, const std::vector<std::string_view>& folders, Predicate wanted, Visitor visit) {
    for (const fs::path& file : FilesBelow(root, folders)) {
        if (!wanted(file)) continue;
        std::ifstream stream(file);
        SourceLine line{fs::relative(file, root).generic_string(), 0, {}};
        while (std::getline(stream, line.text)) {
            ++line.number;
            visit(line);
        }
    }
}

/// The header that a line includes, without its brackets or quotes.
std::optional<std::string> IncludedHeader(const std::string& line) {
    static const std::regex pattern(R"(^\s*#\s*include\s*[<"]([^>"]+)[>"])");
    std::smatch match;
    if (!std::regex_search(line, match, pattern)) return std::nullopt;
    return match[1].str();
}

const Floor* FloorOf(std::string_view path) {
    const std::string_view name = path.substr(0, path.find('/'));
    const auto found = std::find_if(kFloors.begin(), kFloors.end(), [&](const Floor& f) { return f.name == name; });
    return path.find('/') == std::string_view::npos || found == kFloors.end() ? nullptr : &*found;
}

bool MayInclude(const Floor& floor, const Floor& other) {
    return other.name == floor.name || other.height < floor.height;
}

/// Headers in quotes name a floor, and it is the file's own or a lower one.
Findings FloorFindings(const fs::path& root) {
    Findings findings;
    ForEachLine(root, {"src"}, IsCxx, [&](const SourceLine& line) {
        const auto header = IncludedHeader(line.text);
        if (!header) return;
        const Floor* floor = FloorOf(std::string_view(line.path).substr(4));
        const Floor* other = FloorOf(*header);
        if (floor == nullptr) {
            findings.push_back(line.Finding("stands on no floor"));
        } else if (other != nullptr && !MayInclude(*floor, *other)) {
            findings.push_back(line.Finding(*header));
        } else if (other == nullptr && line.text.find('"') != std::string::npos) {
            findings.push_back(line.Finding(*header + " names no floor"));
        }
    });
    return findings;
}

bool IsWindowToolkitHeader(const std::string& header) {
    static const std::regex pattern(R"(^(Qt[A-Za-z0-9]*/.*|Q[A-Z][A-Za-z0-9]*|q[a-z0-9]+\.h|(ui|moc)_.*)$)");
    return std::regex_match(header, pattern);
}

/// Nothing under src/ knows the window toolkit.
Findings WindowToolkitFindings(const fs::path& root) {
    Findings findings;
    ForEachLine(root, {"src"}, IsCxx, [&](const SourceLine& line) {
        const auto header = IncludedHeader(line.text);
        if (header && IsWindowToolkitHeader(*header)) findings.push_back(line.Finding(*header));
    });
    return findings;
}

/// Headers of the language have neither folder nor extension.
bool IsStandardHeader(std::string_view header) {
    return std::all_of(header.begin(), header.end(),
                       [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'; });
}

bool MayIncludeLibrary(const std::string& path, const std::string& header) {
    const auto startsHeader = [&](std::string_view name) { return header.starts_with(name); };
    if (std::any_of(kSystemHeaders.begin(), kSystemHeaders.end(), startsHeader)) return true;
    return std::any_of(Libraries().begin(), Libraries().end(), [&](const Library& library) {
        return startsHeader(library.header) &&
               std::any_of(library.folders.begin(), library.folders.end(),
                           [&](std::string_view folder) { return path.starts_with(folder); });
    });
}

/// Libraries of others are included where the table above lists them, and there alone.
Findings LibraryFindings(const fs::path& root) {
    Findings findings;
    ForEachLine(root, {"src", "apps", "tests", "bench", "fuzz"}, IsCxx, [&](const SourceLine& line) {
        const auto header = IncludedHeader(line.text);
        if (!header || line.text.find('<') == std::string::npos) return;
        if (IsStandardHeader(*header) || FloorOf(*header) != nullptr) return;
        if (!MayIncludeLibrary(line.path, *header)) findings.push_back(line.Finding(*header));
    });
    return findings;
}

/// Whether a text key exists, or is the beginning of existing ones that a program completes.
bool IsKnownKey(std::string_view key, const std::vector<std::string_view>& keys, bool mayBePrefix) {
    const auto at = std::lower_bound(keys.begin(), keys.end(), key);
    if (at == keys.end()) return false;
    return *at == key || (mayBePrefix && key.ends_with('_') && at->starts_with(key));
}

void CheckKeys(const SourceLine& line, const std::regex& pattern, const std::vector<std::string_view>& keys,
               bool mayBePrefix, Findings& findings) {
    for (std::sregex_iterator it(line.text.begin(), line.text.end(), pattern), end; it != end; ++it) {
        const std::string key = (*it)[1].str();
        if (!IsKnownKey(key, keys, mayBePrefix)) findings.push_back(line.Finding(key));
    }
}

/// Text keys in C++ sources and in table scripts exist. `keys` is sorted.
Findings KeyFindings(const fs::path& root, const std::vector<std::string_view>& keys) {
    static const std::regex literal(R"re("((IDS|IDB|CMB|IDC)_[A-Za-z0-9_]*)")re");
    static const std::regex inScript(R"re(\{((IDS|IDB|CMB|IDC)_[A-Za-z0-9_]*)\})re");
    const auto isScript = [](const fs::path& file) { return file.extension() == ".zts" || file.extension() == ".zti"; };
    Findings findings;
    ForEachLine(root, {"src", "apps"}, IsCxx,
                [&](const SourceLine& line) { CheckKeys(line, literal, keys, true, findings); });
    ForEachLine(root, {"tests/scripts"}, isScript,
                [&](const SourceLine& line) { CheckKeys(line, inScript, keys, false, findings); });
    return findings;
}

/// Work that is not done is not left behind as a note. The words are put together here so that this file may hold them.
Findings LeftoverFindings(const fs::path& root) {
    static const std::regex note(
        "\\b(TO"
        "DO|FIX"
        "ME|X"
        "XX)\\b");
    const auto anyFile = [](const fs::path&) { return true; };
    Findings findings;
    ForEachLine(root, {"src", "apps", "tests", "bench", "fuzz", "cmake"}, anyFile, [&](const SourceLine& line) {
        std::smatch match;
        if (std::regex_search(line.text, match, note)) findings.push_back(line.Finding(match[1].str()));
    });
    return findings;
}

/// The name of the type that a line defines in a namespace; none where it defines none.
std::optional<std::string> DefinedType(const std::string& line) {
    static const std::regex pattern(R"(^(?:struct|class|enum class|enum) (\w+)(?: final)?(?: :[^:].*)? ?\{)");
    std::smatch match;
    if (!std::regex_search(line, match, pattern)) return std::nullopt;
    return match[1].str();
}

/// Two types of one name in one namespace are one type to the linker, which takes the functions of either. What stands
/// in a namespace without a name belongs to its file.
Findings DoubledTypeFindings(const fs::path& root) {
    static const std::regex opens(R"(^namespace ([\w:]+) \{)");
    std::map<std::string, std::string> definedIn;
    Findings findings;
    std::string path;
    std::string space;
    bool isOwn = false;
    ForEachLine(root, {"src"}, IsCxx, [&](const SourceLine& line) {
        if (std::exchange(path, line.path) != line.path) {
            space.clear();
            isOwn = false;
        }
        std::smatch match;
        if (std::regex_search(line.text, match, opens)) space = match[1].str();
        if (line.text == "namespace {") isOwn = true;
        if (line.text == "}  // namespace") isOwn = false;
        const auto name = DefinedType(line.text);
        if (!name || isOwn) return;
        const auto [place, isNew] = definedIn.try_emplace(space + "::" + *name, line.path);
        if (!isNew && place->second != line.path) findings.push_back(line.Finding(place->first));
    });
    return findings;
}

/// A small source tree of a test's own.
class ExampleTree : public testing::Test {
protected:
    ExampleTree() {
        std::string name = (fs::temp_directory_path() / "zt_house_XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        root = name;
    }
    ~ExampleTree() override {
        std::error_code error;
        fs::remove_all(root, error);
    }
    void Write(const std::string& path, const std::string& text) const {
        fs::create_directories((root / path).parent_path());
        std::ofstream(root / path) << text;
    }

    fs::path root;
};

TEST(House, IsWalkedAsAWhole) {
    const std::vector<fs::path> files = FilesBelow(ZT_SOURCE_DIR, {"src", "apps", "tests", "cmake"});
    const auto holds = [&](std::string_view path) {
        return std::binary_search(files.begin(), files.end(), fs::path(ZT_SOURCE_DIR) / path);
    };
    EXPECT_GT(files.size(), 50u);
    EXPECT_TRUE(holds("src/velda_lib/language.cpp"));
    EXPECT_TRUE(holds("apps/zts/main.cpp"));
    EXPECT_TRUE(holds("tests/house/house_rules_test.cpp"));
    EXPECT_TRUE(holds("cmake/Floor.cmake"));
}

TEST(House, EachFloorIncludesOnlyWhatLiesBelow) { EXPECT_THAT(FloorFindings(ZT_SOURCE_DIR), IsEmpty()); }

TEST(House, NoFloorKnowsTheWindowToolkit) { EXPECT_THAT(WindowToolkitFindings(ZT_SOURCE_DIR), IsEmpty()); }

TEST(House, LibrariesOfOthersStayAtTheEdges) { EXPECT_THAT(LibraryFindings(ZT_SOURCE_DIR), IsEmpty()); }

TEST(House, EveryTextKeyExistsInEveryLanguage) {
    for (const Language language : {Language::English, Language::Korean}) {
        EXPECT_THAT(KeyFindings(ZT_SOURCE_DIR, CatalogOf(language).Keys()), IsEmpty()) << CodeOfLanguage(language);
    }
}

TEST(House, NoTwoTypesOfANamespaceHaveOneName) { EXPECT_THAT(DoubledTypeFindings(ZT_SOURCE_DIR), IsEmpty()); }

TEST(House, NoNoteOfUndoneWorkIsLeft) { EXPECT_THAT(LeftoverFindings(ZT_SOURCE_DIR), IsEmpty()); }

TEST_F(ExampleTree, AHeaderOfAHigherOrNeighbouringFloorIsFound) {
    Write("src/zt_db/doc/doc.h", "#pragma once\n#include \"zt_db/core/a.h\"\n#include \"velda_lib/b.h\"\n");
    Write("src/zt_db/file/up.cpp", "#include <vector>\n\n  #  include \"zt_tb/core/view.h\"\n");
    Write("src/zt_dgn/beside.cpp", "#include \"zt_anl/solver.h\"\n#include <zt_script/command.h>\n");
    EXPECT_THAT(FloorFindings(root),
                ElementsAre("src/zt_db/file/up.cpp:3: zt_tb/core/view.h", "src/zt_dgn/beside.cpp:1: zt_anl/solver.h",
                            "src/zt_dgn/beside.cpp:2: zt_script/command.h"));
}

TEST_F(ExampleTree, AHeaderOrAFileOutsideTheFloorsIsFound) {
    Write("src/zt_db/doc/doc.cpp", "#include \"doc.h\"\n#include \"core/a.h\"\n");
    Write("src/zt_new/new.cpp", "#include \"velda_lib/b.h\"\n");
    EXPECT_THAT(FloorFindings(root), ElementsAre("src/zt_db/doc/doc.cpp:1: doc.h names no floor",
                                                 "src/zt_db/doc/doc.cpp:2: core/a.h names no floor",
                                                 "src/zt_new/new.cpp:1: stands on no floor"));
}

TEST(FloorTable, NamesEachFloorOnceFromTheGroundUp) {
    for (std::size_t i = 1; i < kFloors.size(); ++i) {
        EXPECT_LE(kFloors[i - 1].height, kFloors[i].height);
        for (std::size_t j = 0; j < i; ++j) EXPECT_NE(kFloors[i].name, kFloors[j].name);
    }
}

TEST_F(ExampleTree, AHeaderOfTheWindowToolkitIsFoundUnderSrcOnly) {
    Write("src/velda_util/grid.h", "#include <QWidget>\n#include <QtCore/qglobal.h>\n#include \"qstring.h\"\n");
    Write("src/velda_util/ok.h", "#include <queue>\n// #include <Q...> is for the desktop\n");
    Write("apps/desktop/main.cpp", "#include <QApplication>\n");
    EXPECT_THAT(WindowToolkitFindings(root),
                ElementsAre("src/velda_util/grid.h:1: QWidget", "src/velda_util/grid.h:2: QtCore/qglobal.h",
                            "src/velda_util/grid.h:3: qstring.h"));
}

TEST_F(ExampleTree, ALibraryOutsideItsFoldersIsFound) {
    Write("src/zt_db/file/handle.h", "#include <sqlite3.h>\n#include <unistd.h>\n#include <sys/stat.h>\n");
    Write("src/zt_db/doc/doc.cpp", "#include <sqlite3.h>\n#include <string>\n#include <cstdint>\n");
    Write("src/zt_tb/core/table.cpp", "#include <Eigen/Dense>\n#include <gtest/gtest.h>\n");
    Write("bench/open.cpp", "#include <boost/any.hpp>\n");
    EXPECT_THAT(LibraryFindings(root),
                ElementsAre("bench/open.cpp:1: boost/any.hpp", "src/zt_db/doc/doc.cpp:1: sqlite3.h",
                            "src/zt_tb/core/table.cpp:1: Eigen/Dense", "src/zt_tb/core/table.cpp:2: gtest/gtest.h"));
}

TEST_F(ExampleTree, ATextKeyThatDoesNotExistIsFound) {
    Write("src/zt_tb/a.cpp", "Text(\"IDS_A\"); Text(\"IDS_WRONG\");\nText(\"IDS_NAME_\" + x);\nText(\"IDS_GAME_\");\n");
    Write("apps/zts/b.cpp", "Text(\"IDC_A\", \"CMB_A\");\n");
    Write("tests/scripts/c.zts", "expect {IDS_A} {IDB_A} {IDS_NAME_} {other}\n");
    const std::vector<std::string_view> keys = {"IDS_A", "IDS_END_", "IDS_NAME_X"};
    EXPECT_THAT(KeyFindings(root, keys),
                ElementsAre("apps/zts/b.cpp:1: IDC_A", "apps/zts/b.cpp:1: CMB_A", "src/zt_tb/a.cpp:1: IDS_WRONG",
                            "src/zt_tb/a.cpp:3: IDS_GAME_", "tests/scripts/c.zts:1: IDB_A",
                            "tests/scripts/c.zts:1: IDS_NAME_"));
}

TEST(TextKey, MayBeAPrefixOnlyWhereItEndsWithAnUnderscore) {
    const std::vector<std::string_view> keys = {"IDS_A", "IDS_END_", "IDS_NAME_X"};
    EXPECT_TRUE(IsKnownKey("IDS_NAME_", keys, true));
    EXPECT_FALSE(IsKnownKey("IDS_NAME", keys, true));
    EXPECT_FALSE(IsKnownKey("IDS_NAME_", keys, false));
    EXPECT_TRUE(IsKnownKey("IDS_END_", keys, false));
    EXPECT_FALSE(IsKnownKey("IDS_Z", keys, true));
}

TEST_F(ExampleTree, TwoTypesOfOneNameAreFound) {
    const std::string own = "namespace zt {\nnamespace {\nstruct Row {\n};\n}  // namespace\n}  // namespace zt\n";
    Write("src/zt_db/own.cpp", own);
    Write("src/zt_db/rows.h", "namespace zt {\nstruct Row;\nstruct Row final : Base {\n};\n}  // namespace zt\n");
    Write("src/zt_tb/other.h", "namespace zt::other {\nclass Row {\n};\n}  // namespace zt::other\n");
    EXPECT_THAT(DoubledTypeFindings(root), IsEmpty());
    Write("src/zt_tb/rows.cpp", "namespace zt {\nenum class Row { A };\n}  // namespace zt\n");
    EXPECT_THAT(DoubledTypeFindings(root), ElementsAre("src/zt_tb/rows.cpp:2: zt::Row"));
}

TEST_F(ExampleTree, ANoteOfUndoneWorkIsFound) {
    Write("cmake/Floor.cmake",
          "# TO"
          "DO: later\n");
    Write("fuzz/a.cpp",
          "// FIX"
          "ME\n");
    Write("tests/scripts/b.zts",
          "ok\n# X"
          "XX\n");
    Write("src/zt_db/c.cpp",
          "struct T_XX"
          "XX_D;  // TO"
          "DOS, fix"
          "me\n");
    EXPECT_THAT(LeftoverFindings(root), ElementsAre("cmake/Floor.cmake:1: TO"
                                                    "DO",
                                                    "fuzz/a.cpp:1: FIX"
                                                    "ME",
                                                    "tests/scripts/b.zts:2: X"
                                                    "XX"));
}

}  // namespace
}  // namespace velda

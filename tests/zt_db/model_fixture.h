#pragma once

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "zt_db/record_texts.h"
#include "zt_db/test_support.h"
#include <gtest/gtest.h>

namespace zt {

/// Rights bind everybody but the superuser. Tests of them give his up, where they have them, and take them back at
/// their end.
inline void BecomeOrdinaryUser() {
    constexpr uid_t kNobody = 65534;
    if (geteuid() != 0) return;
    ASSERT_EQ(seteuid(kNobody), 0);
}
inline void BecomeStartingUser() { ASSERT_EQ(seteuid(getuid()), 0); }

/// What a user can see of a model: its records, its history, the last changes.
struct ModelState {
    std::vector<std::string> records;
    std::vector<std::string> undoNames;
    std::vector<std::string> redoNames;
    std::vector<std::uint64_t> changes;
    std::uint64_t transactions = 0;
    bool operator==(const ModelState&) const = default;
};

inline ModelState StateOf(CDBDoc& doc) {
    CDataBase& database = *doc.GetMDBCtrl()->GetCurrentDB();
    ModelState state{
        AllRecords(doc), database.GetUndoNames(), database.GetRedoNames(), {}, database.GetTransactionCount()};
    const CViewBuff& buffer = *database.GetViewBuff();
    for (POSITION position = buffer.GetHeadPosition(); position;) state.changes.push_back(buffer.GetNext(position));
    return state;
}

/// Puts supports, releases, links, loads and masses on the nodes and the first member of the small model.
template <class Add>
void FillSmallModelWithLoads(const Add& add, const CDataBase& database) {
    T_RIGD_D link;
    link.master = 1;
    link.freedoms = 110001;
    link.slaves = {2, 3};
    T_LNLD_D lineLoad;
    lineLoad.memb = 1;
    lineLoad.stld = 1;
    lineLoad.x = {0.0, 1.0};
    lineLoad.p = {-12.5, -12.5};
    T_CMLD_D columnLoad;
    columnLoad.memb = 1;
    columnLoad.stld = 2;
    columnLoad.type = LoadType::ConcentratedMoments;
    columnLoad.p = {4.5};
    T_BLTP_D beamLoadType;
    beamLoadType.name = "Parapet";
    T_BMLA_D beamLoad;
    beamLoad.memb = 1;
    beamLoad.type = 1;
    T_BWTP_D wallType;
    wallType.name = "Block";
    T_PTLD_D nodalLoad;
    nodalLoad.node = 2;
    nodalLoad.stld = 1;
    nodalLoad.fz = -30.0;
    T_SWGT_D weight;
    weight.stld = 1;
    weight.z = -1.0;
    add(database.GetClass<CClassSpts>(), {{.flags = "111111"}, {.flags = "001000", .value = {1500.0}}});
    add(database.GetClass<CClassFrls>(), {{.flagsI = "000011"}});
    add(database.GetClass<CClassRigd>(), {link});
    add(database.GetClass<CClassLnld>(), {lineLoad, lineLoad});
    add(database.GetClass<CClassCmld>(), {columnLoad});
    add(database.GetClass<CClassBltp>(), {beamLoadType});
    add(database.GetClass<CClassBmla>(), {beamLoad});
    add(database.GetClass<CClassBwtp>(), {wallType});
    add(database.GetClass<CClassBwld>(), {{.type = 1, .dl = 3.75}});
    add(database.GetClass<CClassSltp>(), {{.dl = 4.2, .ll = 2.5}});
    add(database.GetClass<CClassSbla>(), {{.type = 1, .dl = 4.2}});
    add(database.GetClass<CClassPtld>(), {nodalLoad, nodalLoad});
    add(database.GetClass<CClassPmas>(), {{.mx = 12.0}, {.my = 12.0}});
    add(database.GetClass<CClassSwgt>(), {weight});
}

/// What an analysis needs besides the structure and its loads.
template <class Add>
void FillSmallModelForAnalysis(Add add, CDataBase& database) {
    add(database.GetClass<CClassActl>(), {{.modes = 9, .massLoads = {{1, 0.25}}}});
    add(database.GetClass<CClassSpfc>(), {{.name = "S", .points = {{0.0, 0.4}, {1.0, 0.2}}}});
    add(database.GetClass<CClassSplc>(), {{.name = "RX", .spfc = 1}});
    add(database.GetClass<CClassThfc>(), {{.name = "EQ", .points = {{0.0, 0.0}, {0.02, 0.1}}}});
    add(database.GetClass<CClassThlc>(), {{.name = "TH", .items = {{.thfc = 1}}}});
    add(database.GetClass<CClassStmp>(), {{.stld = 1, .temperature = 20.0}});
    add(database.GetClass<CClassPtmp>(), {{.node = 2, .stld = 1, .temperature = 5.0}});
    add(database.GetClass<CClassSdsp>(), {{.node = 1, .stld = 2, .flags = "001000"}});
    add(database.GetClass<CClassOffs>(), {{.mode = T_OFFS_D::kByValue, .vertical = -0.1}});
    add(database.GetClass<CClassRgde>(), {{.lengthI = 0.3}});
    add(database.GetClass<CClassRstp>(), {{.verticalLoads = {{LoadCaseKind::Static, 1, 1.0}}, .betas = {{1, 0.8}}}});
    add(database.GetClass<CClassRslt>(), {{.run = "0123"}});
    add(database.GetClass<CClassMctl>(), {{.system = StructureSystem::Other}});
}

/// Puts two or more records of most classes into an empty model, with references of every kind between them.
inline void FillSmallModel(CDBDoc& doc) {
    CDataBase& database = *doc.GetMDBCtrl()->GetCurrentDB();
    const auto add = [&]<class Class>(Class* records, const std::vector<typename Class::Record>& values) {
        std::vector<std::uint32_t> keys;
        for (std::uint32_t key = 1; key <= values.size(); ++key) keys.push_back(key);
        ASSERT_TRUE(records->TR_Add(keys, values)) << database.GetLastReason();
    };
    const auto node = [](double x, std::uint32_t no) {
        T_PONT_D point;
        point.x = x;
        point.story = 1;
        point.no = no;
        return point;
    };
    T_MDUL_D module;
    module.name = "M";
    T_STOR_D story;
    story.name = "1F";
    story.mdul = 1;
    story.height = 3.6;
    T_MATL_D material;
    material.name = "C30";
    T_SECT_D section;
    section.name = "400x600";
    section.base.size[0] = 0.4;
    T_THIK_D thickness;
    thickness.thickness = 0.2;
    add(database.GetClass<CClassMdul>(), {module});
    add(database.GetClass<CClassStor>(), {story, story});
    add(database.GetClass<CClassPont>(), {node(0.0, 11), node(6.0, 12), node(12.0, 13)});
    add(database.GetClass<CClassMatl>(), {material, material});
    add(database.GetClass<CClassSect>(), {section, section});
    add(database.GetClass<CClassThik>(), {thickness});
    T_MEMB_D member;
    member.story = 1;
    member.prop = 1;
    member.matl = 1;
    member.nodes = {1, 2};
    T_MEMB_D second = member;
    second.nodes = {2, 3};
    add(database.GetClass<CClassMemb>(), {member, second});
    T_STLD_D load;
    load.name = "DL";
    load.type = "D";
    add(database.GetClass<CClassStld>(), {load, load});
    T_LCOM_D inner;
    inner.name = "C1";
    inner.items = {{LoadCaseKind::Static, 1, 1.2}, {LoadCaseKind::Static, 2, 1.4}};
    T_LCOM_D outer;
    outer.name = "C2";
    outer.items = {{LoadCaseKind::Combination, 1, 1.0}};
    add(database.GetClass<CClassLcom>(), {inner, outer});
    T_NAME_D nodes;
    nodes.name = "기둥";
    nodes.keys = {1, 2};
    add(database.GetClass<CClassName>(), {nodes});
    T_MBTP_D options;
    options.memb = 1;
    add(database.GetClass<CClassMbtp>(), {options});
    T_PREL_D element;
    element.memb = 2;
    add(database.GetClass<CClassPrel>(), {element});
    T_STND_D standards;
    standards.concrete = "GB50010";
    add(database.GetClass<CClassStnd>(), {standards});
    FillSmallModelWithLoads(add, database);
    FillSmallModelForAnalysis(add, database);
}

inline std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

/// Every file of a folder with its size and a sum of its bytes.
inline std::map<std::string, std::string> FolderContent(const std::filesystem::path& folder) {
    std::map<std::string, std::string> content;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string bytes = entry.is_regular_file() ? ReadBytes(entry.path().string()) : std::string{};
        content[entry.path().filename().string()] =
            std::to_string(bytes.size()) + " bytes, " + std::to_string(std::hash<std::string>{}(bytes));
    }
    return content;
}

/// Runs statements on a file behind the program's back.
inline void RunSql(const std::string& path, const std::string& sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    char* message = nullptr;
    EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &message), SQLITE_OK) << (message ? message : "");
    sqlite3_free(message);
    ASSERT_EQ(sqlite3_close(db), SQLITE_OK);
}

/// A test with a folder, and in it a small model file that is closed.
class ModelFileTest : public testing::Test {
protected:
    ModelFileTest() : path(folder.File("model.ztm")) {
        const auto doc = CDBDoc::New();
        FillSmallModel(*doc);
        records = AllRecords(*doc);
        const velda::Outcome saved = doc->SaveAs(path);
        EXPECT_TRUE(saved) << saved.Reason();
    }

    std::unique_ptr<CDBDoc> Open(OpenMode mode = OpenMode::Normal) { return CDBDoc::Open(path, mode, report); }

    TemporaryFolder folder;
    std::string path;
    std::vector<std::string> records;
    OpenReport report;
};

}  // namespace zt

#pragma once

#include <zip.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "zt_db/exchange/model_exchange.h"
#include "zt_db/test_support.h"

namespace zt {

/// The models that the tests read.
inline std::filesystem::path ExampleFolder() { return std::filesystem::path(ZT_SOURCE_DIR) / "tests/data/exchange"; }

inline void WriteText(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

/// A zip file with parts of these names and contents.
inline void WriteZip(const std::string& path, const std::vector<std::pair<std::string, std::string>>& parts) {
    std::filesystem::remove(path);
    int code = 0;
    zip_t* archive = zip_open(path.c_str(), ZIP_CREATE, &code);
    if (!archive) throw std::runtime_error("no zip file");
    for (const auto& [name, content] : parts) {
        zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
        zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8);
    }
    if (zip_close(archive) != 0) throw std::runtime_error("zip file not written");
}

inline std::string XmlText(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '&') {
            out += "&amp;";
        } else if (c == '<') {
            out += "&lt;";
        } else {
            out += c;
        }
    }
    return out;
}

/// A sheet of a workbook: its name, and rows of cells. Texts that begin with "#" are written as numbers.
struct TestSheet {
    std::string name;
    std::vector<std::vector<std::string>> rows;

    std::string Xml() const {
        std::string xml = "<?xml version=\"1.0\"?><worksheet><sheetData>";
        for (const auto& row : rows) {
            xml += "<row>";
            for (const std::string& cell : row) {
                xml += cell.starts_with("#") ? "<c><v>" + cell.substr(1) + "</v></c>"
                                             : "<c t=\"inlineStr\"><is><t>" + XmlText(cell) + "</t></is></c>";
            }
            xml += "</row>";
        }
        return xml + "</sheetData></worksheet>";
    }
};

/// The parts of a workbook with sheets whose XML is given.
inline std::vector<std::pair<std::string, std::string>> WorkbookParts(
    const std::vector<std::pair<std::string, std::string>>& sheets) {
    std::vector<std::pair<std::string, std::string>> parts;
    std::string book = "<workbook><sheets>";
    std::string relations = "<Relationships>";
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const std::string id = std::to_string(i + 1);
        book += "<sheet name=\"" + sheets[i].first + "\" r:id=\"rId" + id + "\"/>";
        relations +=
            "<Relationship Id=\"rId" + id + "\" Type=\"x/worksheet\" Target=\"worksheets/sheet" + id + ".xml\"/>";
        parts.emplace_back("xl/worksheets/sheet" + id + ".xml", sheets[i].second);
    }
    parts.emplace_back("xl/workbook.xml", book + "</sheets></workbook>");
    parts.emplace_back("xl/_rels/workbook.xml.rels", relations + "</Relationships>");
    return parts;
}

inline void WriteWorkbook(const std::string& path, const std::vector<TestSheet>& sheets) {
    std::vector<std::pair<std::string, std::string>> xml;
    for (const TestSheet& sheet : sheets) xml.emplace_back(sheet.name, sheet.Xml());
    WriteZip(path, WorkbookParts(xml));
}

/// A frame of one column and one beam, as a workbook that imports without a finding.
inline std::vector<TestSheet> FrameSheets() {
    return {
        {"Model",
         {{"SAF Version", "2.2.0"}, {"Global coordinate system", "Z vertical"}, {"System of units", "Metric"}}},
        {"StructuralMaterial",
         {{"Name", "Type", "Quality", "Unit mass [kg/m3]", "E modulus [MPa]", "Poisson Coefficient"},
          {"S355", "Steel", "S355", "#7850", "#210000", "#0.3"}}},
        {"StructuralCrossSection",
         {{"Name", "Material", "Cross-section type", "A [m2]", "Iy [m4]", "Iz [m4]", "It [m4]"},
          {"CS1", "S355", "General", "#0.01", "#0.0002", "#0.0001", "#0.00001"}}},
        {"StructuralStorey", {{"Name", "Height level [m]"}, {"Base", "#0"}, {"Roof", "#4"}}},
        {"StructuralPointConnection",
         {{"Name", "Coordinate X [m]", "Coordinate Y [m]", "Coordinate Z [m]"},
          {"N1", "#0", "#0", "#0"},
          {"N2", "#0", "#0", "#4"},
          {"N3", "#6", "#0", "#4"}}},
        {"StructuralCurveMember",
         {{"Name", "Type", "Cross section", "Nodes"},
          {"B1", "Column", "CS1", "N1;N2"},
          {"B2", "Beam", "CS1", "N2;N3"}}},
    };
}

/// Replaces a sheet of a workbook, or adds it.
inline std::vector<TestSheet> With(std::vector<TestSheet> sheets, const TestSheet& sheet) {
    for (TestSheet& old : sheets) {
        if (old.name == sheet.name) {
            old = sheet;
            return sheets;
        }
    }
    sheets.push_back(sheet);
    return sheets;
}

/// Expects equal lists of records, and shows only those that differ.
inline void ExpectSameRecords(const std::vector<std::string>& records, const std::vector<std::string>& wanted) {
    EXPECT_EQ(records.size(), wanted.size());
    constexpr int kMostShown = 5;
    int shown = 0;
    for (std::size_t i = 0; i < std::min(records.size(), wanted.size()) && shown < kMostShown; ++i) {
        if (records[i] == wanted[i]) continue;
        EXPECT_EQ(records[i], wanted[i]);
        ++shown;
    }
}

/// A test that imports files into an open model and looks at the report.
class ExchangeTest : public ModelTest {
protected:
    bool Import(const std::filesystem::path& source) {
        report = {};
        return ImportModel(Db(), source, options, report);
    }
    bool ImportSheets(const std::vector<TestSheet>& sheets) {
        const std::string path = folder.File("book.xlsx");
        WriteWorkbook(path, sheets);
        return Import(path);
    }
    template <class Class>
    int Count() {
        return Records<Class>().GetCount();
    }
    template <class Class>
    typename Class::Record RecordAt(std::uint32_t key) {
        typename Class::Record record;
        EXPECT_TRUE(Records<Class>().Get(key, record));
        return record;
    }
    /// Whether the report has a finding of a level with a key at a place.
    bool Found(FindingLevel level, const std::string& key, const std::string& sheet = "", std::uint32_t row = 0,
               const std::string& column = "") const {
        for (const ExchangeFinding& finding : report.Findings()) {
            const ExchangePlace& place = finding.place;
            if (finding.level == level && finding.key == key && place.sheet == sheet && place.row == row &&
                place.column == column) {
                return true;
            }
        }
        return false;
    }
    bool ModelIsEmpty() {
        for (std::uint16_t i = 0; i < Db().ClassCount(); ++i) {
            if (Db().StoreAt(i).Count() > 0) return false;
        }
        return Db().GetUndoNames().empty();
    }

    TemporaryFolder folder;
    ImportOptions options;
    ExchangeReport report;
};

}  // namespace zt

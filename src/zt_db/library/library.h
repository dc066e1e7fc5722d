#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "velda_lib/outcome.h"
#include "zt_db/library/library_reader.h"
#include "zt_db/library/library_rows.h"

namespace zt {

/// The library of materials, sections, bars, bolts and plates. The tables that come with the program are read when
/// they are first asked for; a user may have files of his own in the same form. A library never changes: a new one
/// takes its place, and who holds the old one keeps it. All operations may be called from any thread.
class Library {
public:
    /// The library in use.
    static std::shared_ptr<const Library> Current();
    /// The tables that come with the program.
    static std::shared_ptr<const Library> BuiltIn();

    /// Puts a library in use that has the rows of these files besides those of the program. A file that is wrong is
    /// left out as a whole. Returns why, one line for each such file; empty when all were read.
    static std::vector<std::string> UseFiles(const std::vector<std::filesystem::path>& files);
    /// The same with all files of a folder whose names end with ".csv", in the order of their names. A folder that does
    /// not exist has none.
    static std::vector<std::string> UseFolder(const std::filesystem::path& folder);

    template <class Row>
    const std::vector<Row>& Rows() const {
        return std::get<Table<Row>>(tables_).rows;
    }
    /// The row whose key columns are these texts; null when there is none. Compared exactly.
    template <class Row, class... Texts>
    const Row* Find(const Texts&... key) const {
        std::string text;
        (AppendKey(text, key), ...);
        const Table<Row>& table = std::get<Table<Row>>(tables_);
        const auto at = table.places.find(text);
        return at == table.places.end() ? nullptr : &table.rows[at->second];
    }

private:
    template <class Row>
    struct Table {
        std::vector<Row> rows{};
        /// Where the row of a key stands.
        std::unordered_map<std::string, std::size_t> places{};
    };
    using Tables = std::tuple<Table<SteelGrade>, Table<ConcreteGrade>, Table<LibrarySection>, Table<LibraryBar>,
                              Table<LibraryBarGrade>, Table<LibrarySpacing>, Table<LibraryBolt>, Table<LibraryPlate>,
                              Table<DesignCodeSet>>;

    static void AppendKey(std::string& key, std::string_view text) { (key += text) += '\n'; }
    static void AppendKey(std::string& key, double number);
    template <class Row>
    static std::string KeyOf(Row& row);
    static std::shared_ptr<const Library> LoadBuiltIn();

    /// Adds the rows of a file. Nothing is added when a row is wrong.
    velda::Outcome Add(std::string_view bytes, const std::string& fileName);
    template <class Row>
    bool AddRows(LibraryReader& reader, LibraryFault& fault);
    std::string RowFault(const SteelGrade& row) const;
    std::string RowFault(const ConcreteGrade& row) const;
    std::string RowFault(const LibrarySection& row) const;
    template <class Row>
    std::string RowFault(const Row&) const {
        return {};
    }

    Tables tables_;
};

}  // namespace zt

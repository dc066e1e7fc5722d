#include "zt_db/library/library.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <mutex>
#include <stdexcept>

#include "velda_lib/msg_dll.h"
#include "velda_lib/number_text.h"
#include "zt_db/library/sect_shape.h"

// The tables that come with the program, as the build links them.
#define ZT_LIBRARY_BYTES(kind)             \
    extern const char zt_library_##kind[]; \
    extern const char zt_library_##kind##_end[]
extern "C" {
ZT_LIBRARY_BYTES(materials_steel);
ZT_LIBRARY_BYTES(materials_concrete);
ZT_LIBRARY_BYTES(sections);
ZT_LIBRARY_BYTES(rebar_bars);
ZT_LIBRARY_BYTES(rebar_grades);
ZT_LIBRARY_BYTES(rebar_spacings);
ZT_LIBRARY_BYTES(bolts);
ZT_LIBRARY_BYTES(plates);
ZT_LIBRARY_BYTES(design_codes);
}
#undef ZT_LIBRARY_BYTES

namespace zt {
namespace {

namespace fs = std::filesystem;

/// Far above what a user writes by hand; a longer file is no library.
constexpr std::uintmax_t kMaxBytes = 64u << 20;

std::string_view Between(const char* begin, const char* end) { return {begin, static_cast<std::size_t>(end - begin)}; }

std::vector<std::string_view> BuiltInTables() {
    return {Between(zt_library_materials_steel, zt_library_materials_steel_end),
            Between(zt_library_materials_concrete, zt_library_materials_concrete_end),
            Between(zt_library_sections, zt_library_sections_end),
            Between(zt_library_rebar_bars, zt_library_rebar_bars_end),
            Between(zt_library_rebar_grades, zt_library_rebar_grades_end),
            Between(zt_library_rebar_spacings, zt_library_rebar_spacings_end),
            Between(zt_library_bolts, zt_library_bolts_end),
            Between(zt_library_plates, zt_library_plates_end),
            Between(zt_library_design_codes, zt_library_design_codes_end)};
}

/// The library in use; null is that of the program.
std::mutex g_mutex;
std::shared_ptr<const Library> g_current;

velda::Outcome Refusal(const std::string& fileName, const LibraryFault& fault) {
    const auto number = [](std::size_t value) { return velda::FormatLong(static_cast<std::int64_t>(value)); };
    return velda::Outcome::Refused(
        velda::FormatText("IDS_DB_LIBRARY_FAULT", {fileName, number(fault.line), number(fault.column), fault.reason}));
}

velda::Outcome ReadBytes(const fs::path& file, std::string& bytes) {
    std::error_code error;
    const bool regular = fs::is_regular_file(file, error);
    const std::uintmax_t size = regular ? fs::file_size(file, error) : 0;
    std::ifstream stream(file, std::ios::binary);
    if (!regular || error || size > kMaxBytes || !stream) {
        return velda::Outcome::Refused(velda::FormatText("IDS_DB_LIBRARY_CANNOT_READ", {file.string()}));
    }
    bytes.assign(std::istreambuf_iterator<char>(stream), {});
    return velda::Outcome::Done();
}

}  // namespace

void Library::AppendKey(std::string& key, double number) { AppendKey(key, velda::FormatDouble(number)); }

template <class Row>
std::string Library::KeyOf(Row& row) {
    std::string key;
    std::size_t count = 0;
    std::apply(
        [&](const auto&... column) {
            ((count++ < LibraryTable<Row>::keyColumns ? AppendKey(key, column.In(row)) : void()), ...);
        },
        LibraryTable<Row>::columns);
    return key;
}

/// A code is one of steel or one of concrete, so that its name tells which.
std::string Library::RowFault(const SteelGrade& row) const {
    const std::vector<ConcreteGrade>& others = Rows<ConcreteGrade>();
    const bool taken = std::any_of(others.begin(), others.end(), [&](const auto& o) { return o.code == row.code; });
    return taken ? velda::FormatText("IDS_DB_LIBRARY_CODE_OF_CONCRETE", {row.code}) : "";
}

std::string Library::RowFault(const ConcreteGrade& row) const {
    const std::vector<SteelGrade>& others = Rows<SteelGrade>();
    const bool taken = std::any_of(others.begin(), others.end(), [&](const auto& o) { return o.code == row.code; });
    return taken ? velda::FormatText("IDS_DB_LIBRARY_CODE_OF_STEEL", {row.code}) : "";
}

std::string Library::RowFault(const LibrarySection& row) const {
    return FindRegularShape(row.shape) ? "" : velda::FormatText("IDS_DB_LIBRARY_SHAPE", {row.shape});
}

template <class Row>
bool Library::AddRows(LibraryReader& reader, LibraryFault& fault) {
    Table<Row>& table = std::get<Table<Row>>(tables_);
    std::vector<Row> rows;
    if (!reader.ReadRows(rows)) {
        fault = reader.Fault();
        return false;
    }
    auto places = table.places;
    places.reserve(places.size() + rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string key = KeyOf(rows[i]);
        fault = {RowFault(rows[i]), reader.RowLines()[i], 1};
        if (fault.reason.empty() && !places.emplace(key, table.rows.size() + i).second) {
            std::string name = key.substr(0, key.size() - 1);
            std::replace(name.begin(), name.end(), '\n', ' ');
            fault.reason = velda::FormatText("IDS_DB_LIBRARY_DUPLICATE", {name});
        }
        if (!fault.reason.empty()) return false;
    }
    table.places = std::move(places);
    table.rows.insert(table.rows.end(), std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
    return true;
}

velda::Outcome Library::Add(std::string_view bytes, const std::string& fileName) {
    LibraryReader reader(bytes);
    const std::string kind = reader.ReadKind();
    if (kind.empty()) return Refusal(fileName, reader.Fault());
    LibraryFault fault{velda::FormatText("IDS_DB_LIBRARY_NO_KIND", {kind}), 1, 2};
    const bool good = std::apply(
        [&]<class... Row>(const Table<Row>&...) {
            return ((kind == LibraryTable<Row>::kind && AddRows<Row>(reader, fault)) || ...);
        },
        tables_);
    return good ? velda::Outcome::Done() : Refusal(fileName, fault);
}

std::shared_ptr<const Library> Library::LoadBuiltIn() {
    auto library = std::make_shared<Library>();
    for (const std::string_view bytes : BuiltInTables()) {
        const velda::Outcome outcome = library->Add(bytes, "library");
        if (!outcome) throw std::logic_error(outcome.Reason());
    }
    return library;
}

std::shared_ptr<const Library> Library::BuiltIn() {
    static const std::shared_ptr<const Library> library = LoadBuiltIn();
    return library;
}

std::shared_ptr<const Library> Library::Current() {
    {
        const std::lock_guard lock(g_mutex);
        if (g_current) return g_current;
    }
    return BuiltIn();
}

std::vector<std::string> Library::UseFiles(const std::vector<fs::path>& files) {
    auto library = std::make_shared<Library>(*BuiltIn());
    std::vector<std::string> reasons;
    for (const fs::path& file : files) {
        std::string bytes;
        velda::Outcome outcome = ReadBytes(file, bytes);
        if (outcome) outcome = library->Add(bytes, file.string());
        if (!outcome) reasons.push_back(outcome.Reason());
    }
    const std::lock_guard lock(g_mutex);
    g_current = files.empty() ? nullptr : std::move(library);
    return reasons;
}

std::vector<std::string> Library::UseFolder(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (at->path().extension() == ".csv") files.push_back(at->path());
    }
    std::sort(files.begin(), files.end());
    return UseFiles(files);
}

}  // namespace zt

#include "zt_db/post/result_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <map>
#include <string>

#include "velda_lib/msg_dll.h"
#include "velda_util/pref/whole_file.h"
#include "zt_db/post/hdf5_handle.h"
#include <sys/mman.h>
#include <sys/stat.h>

namespace zt {
namespace {

using velda::FormatText;
using velda::Outcome;

/// The numbers are mapped as they lie in the file.
static_assert(std::endian::native == std::endian::little);

constexpr std::size_t kMostRank = 2;

/// A file that is mapped to memory for reading.
class FileMap {
public:
    explicit FileMap(const std::filesystem::path& path) {
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat status {};
        if (file < 0) return;
        if (fstat(file, &status) == 0 && status.st_size > 0) {
            size_ = static_cast<std::size_t>(status.st_size);
            void* start = mmap(nullptr, size_, PROT_READ, MAP_SHARED, file, 0);
            start_ = start == MAP_FAILED ? nullptr : static_cast<const std::byte*>(start);
        }
        close(file);
    }
    ~FileMap() {
        if (start_) munmap(const_cast<std::byte*>(start_), size_);
    }
    FileMap(const FileMap&) = delete;
    FileMap& operator=(const FileMap&) = delete;

    /// Where `count` numbers lie from a place on; null when they do not all lie in the file, or not where a number can.
    const double* Numbers(std::uint64_t at, std::uint64_t count) const {
        const bool fits = start_ && at % alignof(double) == 0 && at < size_ && count <= (size_ - at) / sizeof(double);
        return fits ? reinterpret_cast<const double*>(start_ + at) : nullptr;
    }

private:
    const std::byte* start_ = nullptr;
    std::size_t size_ = 0;
};

/// Reads an array block by block.
class BlockLoader : public ResultArray::Loader {
public:
    BlockLoader(Hdf5Dataset dataset, std::size_t rows, std::size_t columns, bool isList)
        : dataset_(std::move(dataset)), rows_(rows), columns_(columns), isList_(isList) {}

    const double* Row(std::size_t row) const override {
        if (row < first_ || row >= first_ + loaded_) Load(row - row % kBlock);
        return row >= first_ && row < first_ + loaded_ ? block_.data() + (row - first_) * columns_ : nullptr;
    }

private:
    static constexpr std::size_t kBlock = 4096;

    void Load(std::size_t first) const {
        const std::size_t count = std::min(kBlock, rows_ - first);
        block_.resize(count * columns_);
        const hsize_t start[kMostRank] = {first, 0};
        const hsize_t size[kMostRank] = {count, columns_};
        const Hdf5Space from(H5Dget_space(dataset_.Id()));
        const Hdf5Space to(H5Screate_simple(isList_ ? 1 : 2, size, nullptr));
        const bool good =
            H5Sselect_hyperslab(from.Id(), H5S_SELECT_SET, start, nullptr, size, nullptr) >= 0 &&
            H5Dread(dataset_.Id(), H5T_NATIVE_DOUBLE, to.Id(), from.Id(), H5P_DEFAULT, block_.data()) >= 0;
        first_ = first;
        loaded_ = good ? count : 0;
    }

    Hdf5Dataset dataset_;
    std::size_t rows_;
    std::size_t columns_;
    bool isList_;
    mutable std::vector<double> block_;
    mutable std::size_t first_ = 0;
    mutable std::size_t loaded_ = 0;
};

std::string ReadText(hid_t object, const char* name) {
    if (H5Aexists(object, name) <= 0) return {};
    const Hdf5Attribute attribute(H5Aopen(object, name, H5P_DEFAULT));
    const Hdf5Type type(H5Aget_type(attribute.Id()));
    const Hdf5Space space(H5Aget_space(attribute.Id()));
    if (!type || H5Tget_class(type.Id()) != H5T_STRING || H5Sget_simple_extent_npoints(space.Id()) != 1) return {};
    if (H5Tis_variable_str(type.Id()) > 0) {
        const Hdf5Type text(H5Tcopy(H5T_C_S1));
        H5Tset_size(text.Id(), H5T_VARIABLE);
        H5Tset_cset(text.Id(), H5Tget_cset(type.Id()));
        char* read = nullptr;
        if (H5Aread(attribute.Id(), text.Id(), &read) < 0 || !read) return {};
        std::string value = read;
        H5free_memory(read);
        return value;
    }
    constexpr std::size_t kLongest = 1 << 20;
    const std::size_t size = H5Tget_size(type.Id());
    std::string value(std::min(size, kLongest), '\0');
    if (size > kLongest || H5Aread(attribute.Id(), type.Id(), value.data()) < 0) return {};
    value.resize(std::strlen(value.c_str()));
    return value;
}

std::int64_t ReadNumber(hid_t object, const char* name, std::int64_t otherwise) {
    if (H5Aexists(object, name) <= 0) return otherwise;
    const Hdf5Attribute attribute(H5Aopen(object, name, H5P_DEFAULT));
    const Hdf5Space space(H5Aget_space(attribute.Id()));
    std::int64_t value = otherwise;
    const bool isOne = H5Sget_simple_extent_npoints(space.Id()) == 1;
    return isOne && H5Aread(attribute.Id(), H5T_NATIVE_INT64, &value) >= 0 ? value : otherwise;
}

void WriteText(hid_t object, const char* name, const std::string& text) {
    const Hdf5Type type(H5Tcopy(H5T_C_S1));
    H5Tset_size(type.Id(), text.size() + 1);
    H5Tset_cset(type.Id(), H5T_CSET_UTF8);
    const Hdf5Space space(H5Screate(H5S_SCALAR));
    const Hdf5Attribute attribute(H5Acreate2(object, name, type.Id(), space.Id(), H5P_DEFAULT, H5P_DEFAULT));
    H5Awrite(attribute.Id(), type.Id(), text.c_str());
}

void WriteNumber(hid_t object, const char* name, std::int64_t value) {
    const Hdf5Space space(H5Screate(H5S_SCALAR));
    const Hdf5Attribute attribute(H5Acreate2(object, name, H5T_STD_I64LE, space.Id(), H5P_DEFAULT, H5P_DEFAULT));
    H5Awrite(attribute.Id(), H5T_NATIVE_INT64, &value);
}

constexpr const char* kFormat = "zt-results";
constexpr std::int64_t kVersion = 1;

/// The case of a group "case/1_3"; false for another name.
bool CaseOfGroup(std::string_view name, ResultCase& loadCase) {
    constexpr std::string_view kCases = "case/";
    if (name.substr(0, kCases.size()) != kCases) return false;
    name.remove_prefix(kCases.size());
    const char* const end = name.data() + name.size();
    const auto kind = std::from_chars(name.data(), end, loadCase.kind);
    if (kind.ec != std::errc{} || kind.ptr == end || *kind.ptr != '_') return false;
    const auto key = std::from_chars(kind.ptr + 1, end, loadCase.key);
    return key.ec == std::errc{} && key.ptr == end;
}

}  // namespace

// ---- reading ----

class ResultFile::Content {
public:
    Content(Hdf5File file, const std::filesystem::path& path) : file_(std::move(file)), map_(path) {}

    bool Read() {
        const Hdf5Group root(H5Gopen2(file_.Id(), "/", H5P_DEFAULT));
        if (!root) return false;
        head = {ReadText(root.Id(), "run"), ReadText(root.Id(), "fingerprint"), ReadText(root.Id(), "time"),
                ReadText(root.Id(), "solver")};
        head.stations =
            static_cast<std::uint32_t>(std::clamp<std::int64_t>(ReadNumber(root.Id(), "stations", 9), 2, 1000));
        if (H5Ovisit2(file_.Id(), H5_INDEX_NAME, H5_ITER_NATIVE, &Content::Visit, this, H5O_INFO_BASIC) < 0)
            return false;
        std::sort(cases.begin(), cases.end(), [](const ResultCase& a, const ResultCase& b) {
            return a.kind != b.kind ? a.kind < b.kind : a.key < b.key;
        });
        return true;
    }

    ResultArray Array(std::string_view name, const std::shared_ptr<const void>& keeper) const {
        const auto found = places_.find(name);
        if (found == places_.end() || found->second.isKeys) return {};
        const Place& place = found->second;
        const double* values = place.offset ? map_.Numbers(place.offset, place.rows * place.columns) : nullptr;
        if (values) return {values, place.rows, place.columns, keeper};
        Hdf5Dataset dataset(H5Dopen2(file_.Id(), found->first.c_str(), H5P_DEFAULT));
        if (!dataset) return {};
        return {std::make_shared<BlockLoader>(std::move(dataset), place.rows, place.columns, place.isList), place.rows,
                place.columns};
    }

    std::vector<std::uint32_t> Keys(std::string_view name) const {
        const auto found = places_.find(name);
        if (found == places_.end() || !found->second.isKeys) return {};
        std::vector<std::uint32_t> keys(found->second.rows * found->second.columns);
        const Hdf5Dataset dataset(H5Dopen2(file_.Id(), found->first.c_str(), H5P_DEFAULT));
        if (H5Dread(dataset.Id(), H5T_NATIVE_UINT32, H5S_ALL, H5S_ALL, H5P_DEFAULT, keys.data()) < 0) return {};
        return keys;
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& [name, place] : places_) names.push_back(name);
        return names;
    }

    ResultHead head;
    std::vector<ResultCase> cases;

private:
    /// Where an array lies; at 0 when it cannot be mapped.
    struct Place {
        std::uint64_t offset = 0;
        std::size_t rows = 0;
        std::size_t columns = 0;
        bool isKeys = false;
        bool isList = false;
    };

    static herr_t Visit(hid_t file, const char* name, const H5O_info_t* info, void* self) {
        auto& content = *static_cast<Content*>(self);
        if (info->type == H5O_TYPE_DATASET) content.AddArray(file, name);
        ResultCase loadCase;
        if (info->type == H5O_TYPE_GROUP && CaseOfGroup(name, loadCase)) {
            const Hdf5Group group(H5Gopen2(file, name, H5P_DEFAULT));
            loadCase.name = ReadText(group.Id(), "name");
            loadCase.type = ReadText(group.Id(), "type");
            content.cases.push_back(std::move(loadCase));
        }
        return 0;
    }

    void AddArray(hid_t file, const char* name) {
        const Hdf5Dataset dataset(H5Dopen2(file, name, H5P_DEFAULT));
        const Hdf5Type type(dataset ? H5Dget_type(dataset.Id()) : H5I_INVALID_HID);
        const Hdf5Space space(dataset ? H5Dget_space(dataset.Id()) : H5I_INVALID_HID);
        if (!type || !space) return;
        const H5T_class_t kind = H5Tget_class(type.Id());
        const int rank = H5Sget_simple_extent_ndims(space.Id());
        if ((kind != H5T_FLOAT && kind != H5T_INTEGER) || rank < 1 || rank > static_cast<int>(kMostRank)) return;
        hsize_t size[kMostRank] = {0, 1};
        H5Sget_simple_extent_dims(space.Id(), size, nullptr);
        // More than an analysis can give is damage.
        constexpr hsize_t kMostRows = hsize_t{1} << 40;
        constexpr hsize_t kMostColumns = 1 << 14;
        if (size[0] > kMostRows || size[1] > kMostColumns || size[1] == 0) return;
        Place place{.rows = size[0], .columns = size[1], .isKeys = kind == H5T_INTEGER, .isList = rank == 1};
        constexpr std::size_t kMostKeys = std::size_t{1} << 27;
        if (place.isKeys && place.rows * place.columns > kMostKeys) return;
        const haddr_t offset = H5Dget_offset(dataset.Id());
        if (offset != HADDR_UNDEF && H5Tequal(type.Id(), H5T_IEEE_F64LE) > 0) place.offset = offset;
        places_[name] = place;
    }

    Hdf5File file_;
    FileMap map_;
    std::map<std::string, Place, std::less<>> places_;
};

ResultFile::ResultFile(std::shared_ptr<Content> content) : content_(std::move(content)) {}
ResultFile::~ResultFile() = default;

std::unique_ptr<ResultFile> ResultFile::Open(const std::filesystem::path& path, Outcome& outcome) {
    SilenceHdf5();
    const auto refuse = [&](std::string_view key, std::string_view first = {}, std::string_view second = {}) {
        outcome = Outcome::Refused(FormatText(key, {path.string(), first, second}));
        return nullptr;
    };
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return refuse("IDS_DB_RESULT_NOT_FOUND");
    if (H5Fis_hdf5(path.c_str()) <= 0) return refuse("IDS_DB_RESULT_NOT_RESULTS");
    Hdf5File file(H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT));
    if (!file) return refuse("IDS_DB_RESULT_DAMAGED");
    if (ReadText(file.Id(), "format") != kFormat) return refuse("IDS_DB_RESULT_NOT_RESULTS");
    const std::int64_t version = ReadNumber(file.Id(), "version", 0);
    if (version > kVersion) return refuse("IDS_DB_RESULT_NEWER", std::to_string(version), std::to_string(kVersion));
    auto content = std::make_shared<Content>(std::move(file), path);
    if (version < 1 || !content->Read()) return refuse("IDS_DB_RESULT_DAMAGED");
    outcome = Outcome::Done();
    return std::unique_ptr<ResultFile>(new ResultFile(std::move(content)));
}

const ResultHead& ResultFile::Head() const { return content_->head; }
const std::vector<ResultCase>& ResultFile::Cases() const { return content_->cases; }
std::vector<std::uint32_t> ResultFile::Keys(std::string_view name) const { return content_->Keys(name); }
std::vector<std::string> ResultFile::Names() const { return content_->Names(); }
ResultArray ResultFile::Array(std::string_view name) const { return content_->Array(name, content_); }

// ---- writing ----

class ResultFileWriter::File {
public:
    explicit File(const std::filesystem::path& path) : path_(path), part_(path, error_) {
        SilenceHdf5();
        if (error_) return;
        const Hdf5Properties access(H5Pcreate(H5P_FILE_ACCESS));
        // Numbers can be mapped only where they lie on their boundaries.
        constexpr hsize_t kBoundary = 64;
        H5Pset_alignment(access.Id(), 1, kBoundary);
        file_ = Hdf5File(H5Fcreate(part_.Path().c_str(), H5F_ACC_TRUNC, H5P_DEFAULT, access.Id()));
        links_ = Hdf5Properties(H5Pcreate(H5P_LINK_CREATE));
        H5Pset_create_intermediate_group(links_.Id(), 1);
        place_ = Hdf5Properties(H5Pcreate(H5P_DATASET_CREATE));
        H5Pset_layout(place_.Id(), H5D_CONTIGUOUS);
        H5Pset_alloc_time(place_.Id(), H5D_ALLOC_TIME_EARLY);
        good_ = static_cast<bool>(file_);
    }

    Outcome PutHead(const ResultHead& head) {
        if (!good_) return Failed();
        WriteText(file_.Id(), "format", kFormat);
        WriteNumber(file_.Id(), "version", kVersion);
        WriteText(file_.Id(), "run", head.run);
        WriteText(file_.Id(), "fingerprint", head.fingerprint);
        WriteText(file_.Id(), "time", head.time);
        WriteText(file_.Id(), "solver", head.solver);
        WriteNumber(file_.Id(), "stations", head.stations);
        return Outcome::Done();
    }

    Outcome PutCase(const ResultCase& loadCase) {
        const std::string path = "case/" + std::to_string(loadCase.kind) + "_" + std::to_string(loadCase.key);
        if (!good_) return Failed();
        const Hdf5Group group(H5Gcreate2(file_.Id(), path.c_str(), links_.Id(), H5P_DEFAULT, H5P_DEFAULT));
        good_ = static_cast<bool>(group);
        if (!good_) return Failed();
        WriteText(group.Id(), "name", loadCase.name);
        WriteText(group.Id(), "type", loadCase.type);
        return Outcome::Done();
    }

    Outcome Put(std::string_view name, hid_t stored, hid_t held, std::size_t columns, const void* values,
                std::size_t count) {
        if (!good_) return Failed();
        const hsize_t size[kMostRank] = {columns ? count / columns : 0, columns};
        const Hdf5Space space(H5Screate_simple(2, size, nullptr));
        const Hdf5Dataset dataset(H5Dcreate2(file_.Id(), std::string(name).c_str(), stored, space.Id(), links_.Id(),
                                             place_.Id(), H5P_DEFAULT));
        good_ = dataset && (count == 0 || H5Dwrite(dataset.Id(), held, H5S_ALL, H5S_ALL, H5P_DEFAULT, values) >= 0);
        return good_ ? Outcome::Done() : Failed();
    }

    Outcome Finish() {
        if (good_) good_ = H5Fflush(file_.Id(), H5F_SCOPE_GLOBAL) >= 0;
        file_ = {};
        if (good_) error_ = part_.Commit();
        return good_ && !error_ ? Outcome::Done() : Failed();
    }

private:
    Outcome Failed() const {
        const std::string why = error_ ? error_.message() : std::strerror(errno);
        return Outcome::Refused(FormatText("IDS_DB_RESULT_WRITE_FAILED", {path_.string(), why}));
    }

    std::filesystem::path path_;
    std::error_code error_;
    velda::PartFile part_;
    Hdf5File file_;
    Hdf5Properties links_;
    Hdf5Properties place_;
    bool good_ = false;
};

ResultFileWriter::ResultFileWriter(const std::filesystem::path& path) : file_(std::make_unique<File>(path)) {}
ResultFileWriter::~ResultFileWriter() = default;

Outcome ResultFileWriter::PutHead(const ResultHead& head) { return file_->PutHead(head); }
Outcome ResultFileWriter::PutCase(const ResultCase& loadCase) { return file_->PutCase(loadCase); }
Outcome ResultFileWriter::PutArray(std::string_view name, std::size_t columns, std::span<const double> values) {
    return file_->Put(name, H5T_IEEE_F64LE, H5T_NATIVE_DOUBLE, columns, values.data(), values.size());
}
Outcome ResultFileWriter::PutKeys(std::string_view name, std::span<const std::uint32_t> keys) {
    return file_->Put(name, H5T_STD_U32LE, H5T_NATIVE_UINT32, 1, keys.data(), keys.size());
}
Outcome ResultFileWriter::Finish() { return file_->Finish(); }

}  // namespace zt

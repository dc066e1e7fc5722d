#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "zt_db/post/result_source.h"

namespace zt {

/// Results in an HDF5 file. Arrays that lie in one piece are read where they lie, by a map of the file; others by
/// blocks. Nothing is held but the names of the arrays and where they lie.
class ResultFile : public ResultSource {
public:
    /// Null, with the reason in `outcome`, when the file is missing, no result file, newer or damaged.
    static std::unique_ptr<ResultFile> Open(const std::filesystem::path& path, velda::Outcome& outcome);
    ~ResultFile() override;

    const ResultHead& Head() const override;
    const std::vector<ResultCase>& Cases() const override;
    ResultArray Array(std::string_view name) const override;
    std::vector<std::uint32_t> Keys(std::string_view name) const override;
    std::vector<std::string> Names() const override;

private:
    class Content;
    explicit ResultFile(std::shared_ptr<Content> content);
    /// Shared with the arrays that are given out, so that they outlive the file object.
    std::shared_ptr<Content> content_;
};

/// Writes a result file. It appears whole, in place of one that was there, when Finish succeeds; otherwise not at all.
class ResultFileWriter : public ResultSink {
public:
    explicit ResultFileWriter(const std::filesystem::path& path);
    ~ResultFileWriter() override;

    velda::Outcome PutHead(const ResultHead& head) override;
    velda::Outcome PutCase(const ResultCase& loadCase) override;
    velda::Outcome PutArray(std::string_view name, std::size_t columns, std::span<const double> values) override;
    velda::Outcome PutKeys(std::string_view name, std::span<const std::uint32_t> keys) override;
    velda::Outcome Finish();

private:
    class File;
    std::unique_ptr<File> file_;
};

}  // namespace zt

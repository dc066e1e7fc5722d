#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zt_db/core/database.h"
#include "zt_db/core/model_storage.h"
#include "zt_db/doc/open_report.h"
#include "zt_db/file/sqlite_handle.h"

namespace zt {

/// The model file that a database lives in. It is locked for the time that it is open, and holds every transaction from
/// the moment in which its commit returns.
class ModelFile final : public ModelStorage {
public:
    /// Opens a file and fills an empty database from it. Null, with the reason in the report, when anything is wrong
    /// with it; the file is not changed then.
    static std::unique_ptr<ModelFile> Open(const std::string& path, FileSafety safety, CDataBase& database,
                                           OpenReport& report);
    /// Writes the content of a database to a new file, in place of what stands there, and opens it. The file appears
    /// whole or not at all. Null with a refusal when that fails; null without one when `path` is the file `current`
    /// itself.
    static std::unique_ptr<ModelFile> Create(const std::string& path, const std::string& current, FileSafety safety,
                                             const CDataBase& database, velda::Outcome& outcome);

    velda::Outcome Begin() override;
    velda::Outcome Write(const Batch& batch, Direction direction) override;
    velda::Outcome Commit() override;
    void Rollback() override;

private:
    struct ClassStatements {
        SqliteStatement insert;
        SqliteStatement update;
        SqliteStatement remove;
    };

    ModelFile(SqliteHandle db, std::string path, const CDataBase& database);

    int WriteChanges(const Batch& batch, Direction direction);
    int WriteState(SqliteStatement& statement, const ImageList& images, const RecordState& state);
    int DeleteKey(std::uint16_t classIndex, std::uint32_t key);
    SqliteStatement& Prepared(SqliteStatement& statement, const std::string& sql);
    velda::Outcome Failure(int result) const;

    SqliteHandle db_;
    std::string path_;
    const CDataBase& database_;
    std::vector<ClassStatements> statements_;
    SqliteStatement begin_;
    SqliteStatement commit_;
    int writes_ = 0;
    std::string lost_;  // why the unit of work that is open cannot be committed any more
};

/// Whether two paths lead to the same existing file.
bool IsSameFile(const std::string& a, const std::string& b);

/// Fills an empty database with what can be read of a model file, which is never written. False, with the reason in the
/// report, when nothing can be read. What had to be left out of a damaged file is listed in the report; what is left in
/// the database is consistent in itself.
bool ReadModelFile(const std::string& path, CDataBase& database, OpenReport& report);

}  // namespace zt

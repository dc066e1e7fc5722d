#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "zt_db/doc/doc.h"

namespace zt {

/// What a running script works on: the open model and what its commands remember.
class ScriptSession {
public:
    explicit ScriptSession(std::ostream& output) : output_(output) { NewModel(); }

    CDBDoc& Doc() { return *doc_; }
    CDataBase& Database() { return *doc_->GetMDBCtrl()->GetCurrentDB(); }
    CUnitCtrl& Units() { return *doc_->GetUnitCtrl(); }
    std::ostream& Output() { return output_; }

    void NewModel() { Use(CDBDoc::New(Settings())); }
    /// Opens a model; the one that was open stays when that is refused.
    velda::Outcome OpenModel(const std::string& path, OpenMode mode);

    /// Turns to a new model with a sample building; the one that was open stays when there is no such sample.
    velda::Outcome SampleModel(const std::string& name);

    /// Starts the count of transactions anew.
    void Mark() { mark_ = Database().GetTransactionCount(); }
    std::uint64_t TransactionsSinceMark() { return Database().GetTransactionCount() - mark_; }

    /// Why the last command marked as refused was refused.
    const std::string& Reason() const { return reason_; }
    void SetReason(std::string reason) { reason_ = std::move(reason); }

private:
    CInitCtrl Settings() const;
    void Use(std::unique_ptr<CDBDoc> doc);

    std::ostream& output_;
    std::unique_ptr<CDBDoc> doc_;
    std::uint64_t mark_ = 0;
    std::string reason_;
};

}  // namespace zt

#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "zt_db/doc/doc.h"
#include "zt_script/script_control.h"
#include "zt_script/script_host.h"
#include "zt_script/script_views.h"

namespace zt {

/// What a running script works on: the open model, the views that show it, and what its commands remember. Tables have
/// their default preferences, and what a script changes of these or searches for is not kept.
class ScriptSession {
public:
    explicit ScriptSession(std::ostream& output);
    ~ScriptSession();
    ScriptSession(const ScriptSession&) = delete;
    ScriptSession& operator=(const ScriptSession&) = delete;

    CDBDoc& Doc() { return *doc_; }
    CDataBase& Database() { return *doc_->GetMDBCtrl()->GetCurrentDB(); }
    CUnitCtrl& Units() { return *doc_->GetUnitCtrl(); }
    ScriptViews& Views() { return views_; }
    ScriptHost& Host() { return host_; }
    std::ostream& Output() { return output_; }

    // Turning to another model closes all views. The model that was open stays with its views when an open row cannot
    // be left or the other model cannot be had.
    velda::Outcome NewModel();
    velda::Outcome OpenModel(const std::string& path, OpenMode mode);
    /// A new model with a sample building.
    velda::Outcome SampleModel(const std::string& name);

    /// The control that keys are pressed in; null while there is none.
    ScriptControl* Control() { return control_.get(); }
    void SetControl(std::unique_ptr<ScriptControl> control) { control_ = std::move(control); }

    /// Shows a view.
    void OpenView(std::unique_ptr<CTBView> view);
    /// Leaves the open rows of all views; refused when one stays open.
    velda::Outcome LeaveRows();
    /// Why a table refused what it was asked for: its last warning, or its last message.
    std::string TableReason() const;

    /// Starts the counts of transactions and redraws anew.
    void Mark();
    std::uint64_t TransactionsSinceMark() { return Database().GetTransactionCount() - mark_; }

    /// Why the last command marked as refused was refused.
    const std::string& Reason() const { return reason_; }
    void SetReason(std::string reason) { reason_ = std::move(reason); }

    /// What the last conversion gave.
    const std::string& Value() const { return value_; }
    void SetValue(std::string value) { value_ = std::move(value); }

private:
    CInitCtrl Settings() const;
    void Use(std::unique_ptr<CDBDoc> doc);

    std::ostream& output_;
    velda::STBFindStruct findBefore_;
    ScriptHost host_;
    std::unique_ptr<CDBDoc> doc_;
    ScriptViews views_{host_.queue};
    std::unique_ptr<ScriptControl> control_;
    std::uint64_t mark_ = 0;
    std::string reason_;
    std::string value_;
};

}  // namespace zt

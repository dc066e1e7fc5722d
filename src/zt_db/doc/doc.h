#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "zt_db/doc/hint_codes.h"
#include "zt_db/doc/mdb_ctrl.h"
#include "zt_db/doc/open_report.h"
#include "zt_db/doc/update_connector.h"
#include "zt_db/doc/update_hint.h"
#include "zt_db/units/unit_ctrl.h"

namespace zt {

class CCheckerCtrl;
class CMatlDB;
class CPostCtrl;
class ModelFile;
class ResultKeeper;

/// Settings that a document starts with.
struct CInitCtrl {
    T_UNIT_INDEX units;
    FileSafety fileSafety = FileSafety::Normal;
};

/// An open model: its databases, its units, the views that show it, and the file it lives in.
class CDBDoc {
public:
    /// The document that the program works on; null while no model is open. Set by MakeCurrent.
    static inline CDBDoc* m_pDBDoc = nullptr;

    /// A new model that lives in memory only.
    static std::unique_ptr<CDBDoc> New(const CInitCtrl& init = {});
    /// Opens a model file. Returns null, with the reason in the report, when it cannot be opened in this way.
    static std::unique_ptr<CDBDoc> Open(const std::string& path, OpenMode mode, OpenReport& report,
                                        const CInitCtrl& init = {});
    ~CDBDoc();
    CDBDoc(const CDBDoc&) = delete;
    CDBDoc& operator=(const CDBDoc&) = delete;

    void MakeCurrent() { m_pDBDoc = this; }

    // ---- the file

    /// Writes the whole model to a new file, and lives in that file from then on. The file appears whole or not at all.
    velda::Outcome SaveAs(const std::string& path);
    /// Path of the model file; empty for a model in memory.
    const std::string& GetPath() const { return path_; }
    bool IsReadOnly() const { return readOnly_; }

    // ---- databases and services

    CMDBCtrl* GetMDBCtrl() { return &databases_; }
    CUnitCtrl* GetUnitCtrl() { return &units_; }
    CInitCtrl* GetInitCtrl() { return &init_; }
    CMatlDB* GetMatlDB() { return matlDb_; }
    CPostCtrl* GetPostCtrl() { return postCtrl_.get(); }
    // A service that another stage brings to a document; null until it does.
    CCheckerCtrl* GetChekCtrl() { return checkerCtrl_; }
    void SetChekCtrl(CCheckerCtrl* control) { checkerCtrl_ = control; }

    /// The results of the model: their file, whether they are current, how they are discarded.
    ResultKeeper& GetResults() { return *results_; }

    // ---- views

    void AddView(CDBUpdateConnector* view);
    void RemoveView(CDBUpdateConnector* view);
    /// The views in the order in which they were added.
    std::vector<CDBUpdateConnector*> GetViews() const;
    /// Tells every view, in the order in which they were added, before it returns. A view may close itself or others
    /// while it is told; one that is opened meanwhile is not told of this change.
    void UpdateAllViews(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint);
    /// Takes a view out and deletes it, as soon as no view is being told: a view may have to go while it is told.
    void DeleteView(std::unique_ptr<CDBUpdateConnector> view);

    // ---- state

    /// Analysis results exist and are current; tables are locked against edits while they are.
    int IsExcuted() const { return executed_; }
    void SetExcuted(int executed) { executed_ = executed; }
    /// Which side of the application is active. A switch is told to the views.
    int IsPreMode() const { return postMode_ ? 0 : 1; }
    int IsPostMode() const { return postMode_ ? 1 : 0; }
    void SetModePre();
    void SetModePost();
    /// The model checker's tracer, its mode, and the table that it traces.
    int IsTracerMode() const { return tracerMode_ ? 1 : 0; }
    void StartTracerMode() { tracerMode_ = true; }
    void EndTracerMode() { tracerMode_ = false; }
    int GetCheckMode() const { return checkMode_; }
    void SetCheckMode(int mode) { checkMode_ = mode; }
    int GetTableID4Checker() const { return checkerTable_; }
    void SetTableID4Checker(int table) { checkerTable_ = table; }

private:
    explicit CDBDoc(const CInitCtrl& init);
    void UseFile(std::unique_ptr<ModelFile> file, const std::string& path);
    void TellChange();
    bool TakeResults();
    void OpenResults();

    CInitCtrl init_;
    CUnitCtrl units_;
    CMDBCtrl databases_;
    std::unique_ptr<ModelFile> file_;
    std::string path_;
    bool readOnly_ = false;

    std::unique_ptr<CPostCtrl> postCtrl_;
    std::unique_ptr<ResultKeeper> results_;
    CMatlDB* matlDb_;
    CCheckerCtrl* checkerCtrl_ = nullptr;

    std::vector<CDBUpdateConnector*> views_;  // a closed view leaves null while views are being told
    int telling_ = 0;
    std::vector<std::unique_ptr<CDBUpdateConnector>> leaving_;  ///< to be deleted once all views are told

    int executed_ = 0;
    bool postMode_ = false;
    bool tracerMode_ = false;
    int checkMode_ = 0;
    int checkerTable_ = 0;
};

}  // namespace zt

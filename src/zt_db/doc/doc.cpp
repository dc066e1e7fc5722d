#include "zt_db/doc/doc.h"

#include <algorithm>
#include <utility>

#include "velda_lib/msg_dll.h"
#include "zt_db/core/change_test.h"
#include "zt_db/file/model_file.h"
#include "zt_db/library/matl_db.h"
#include "zt_db/post/post_ctrl.h"
#include "zt_db/post/result_keeper.h"
#include "zt_db/records/rslt.h"

namespace zt {

CDBUpdateConnector::~CDBUpdateConnector() { DisconnectFromDoc(); }

void CDBUpdateConnector::ConnectToDoc(CDBDoc* doc) {
    DisconnectFromDoc();
    if (doc) doc->AddView(this);
}

void CDBUpdateConnector::DisconnectFromDoc() {
    if (doc_) doc_->RemoveView(this);
}

CDBDoc::CDBDoc(const CInitCtrl& init)
    : init_(init),
      databases_(units_),
      postCtrl_(std::make_unique<CPostCtrl>(databases_, units_)),
      results_(std::make_unique<ResultKeeper>(*databases_.GetCurrentDB())),
      matlDb_(&CMatlDB::Shared()) {
    units_.SetUnitIndexCurrent(init.units);
    units_.SetListener([this] { UpdateAllViews(nullptr, HintCode::Unit, nullptr); });
    databases_.GetCurrentDB()->SetListener([this] { TellChange(); });
    databases_.GetCurrentDB()->SetLock([this](const Batch& batch) { return results_->MayChange(batch); });
    databases_.GetCurrentDB()->GetViewCtrl()->SetListener([this](CDBUpdateConnector* sender, int code) {
        T_UPDATE_HINT hint;
        hint.dbIndex = CMDBCtrl::kModel;
        UpdateAllViews(sender, code, &hint);
    });
}

CDBDoc::~CDBDoc() {
    for (CDBUpdateConnector* view : views_) {
        if (view) view->doc_ = nullptr;
    }
    if (m_pDBDoc == this) m_pDBDoc = nullptr;
}

std::unique_ptr<CDBDoc> CDBDoc::New(const CInitCtrl& init) { return std::unique_ptr<CDBDoc>(new CDBDoc(init)); }

std::unique_ptr<CDBDoc> CDBDoc::Open(const std::string& path, OpenMode mode, OpenReport& report,
                                     const CInitCtrl& init) {
    auto doc = New(init);
    CDataBase& database = *doc->databases_.GetCurrentDB();
    report = {};
    if (mode == OpenMode::ReadOnly) {
        if (!ReadModelFile(path, database, report)) return nullptr;
        doc->readOnly_ = true;
        doc->path_ = path;
        database.SetReadOnly(true);
        doc->OpenResults();
        return doc;
    }
    std::unique_ptr<ModelFile> file = ModelFile::Open(path, init.fileSafety, database, report);
    if (!file) return nullptr;
    doc->UseFile(std::move(file), path);
    doc->OpenResults();
    return doc;
}

/// Makes the results current that the model names. Whether that changed something.
bool CDBDoc::TakeResults() {
    const auto before = results_->Current();
    results_->Refresh();
    if (results_->Current() == before) return false;
    databases_.SetResults(results_->Current());
    executed_ = results_->Current() ? 1 : 0;
    return true;
}

/// A step that touches the record of the results may lock the tables or open them.
void CDBDoc::TellChange() {
    T_UPDATE_HINT hint;
    hint.dbIndex = CMDBCtrl::kModel;
    if (!Touches<T_RSLT_D>(*databases_.GetCurrentDB()->GetViewBuff()))
        return UpdateAllViews(nullptr, HintCode::Changed, &hint);
    const bool isOther = TakeResults();
    UpdateAllViews(nullptr, HintCode::Changed0, &hint);
    if (!isOther) return;
    UpdateAllViews(nullptr, HintCode::PostDatabaseChanged, nullptr);
    if (!executed_ && postMode_) SetModePre();
}

void CDBDoc::UseFile(std::unique_ptr<ModelFile> file, const std::string& path) {
    databases_.GetCurrentDB()->SetStorage(file.get());
    databases_.GetCurrentDB()->SetReadOnly(false);
    file_ = std::move(file);
    path_ = path;
    readOnly_ = false;
}

velda::Outcome CDBDoc::SaveAs(const std::string& path) {
    CDataBase& database = *databases_.GetCurrentDB();
    if (readOnly_ && IsSameFile(path, path_)) {
        return velda::Outcome::Refused(velda::FormatText("IDS_DB_FILE_SAVE_ELSEWHERE", {path}));
    }
    velda::Outcome outcome = velda::Outcome::Done();
    const std::string current = file_ ? path_ : std::string{};
    std::unique_ptr<ModelFile> file = ModelFile::Create(path, current, init_.fileSafety, database, outcome);
    if (!file) return outcome;
    UseFile(std::move(file), path);
    return results_->MoveTo(path);
}

void CDBDoc::OpenResults() {
    // A model that was just opened has no results that could be lost on the way.
    (void)results_->MoveTo(path_);
    TakeResults();
}

// ---- views ----

void CDBDoc::AddView(CDBUpdateConnector* view) {
    views_.push_back(view);
    view->doc_ = this;
}

void CDBDoc::RemoveView(CDBUpdateConnector* view) {
    const auto found = std::find(views_.begin(), views_.end(), view);
    if (found == views_.end()) return;
    view->doc_ = nullptr;
    if (telling_ > 0) {
        *found = nullptr;
    } else {
        views_.erase(found);
    }
}

std::vector<CDBUpdateConnector*> CDBDoc::GetViews() const {
    std::vector<CDBUpdateConnector*> open = views_;
    std::erase(open, nullptr);
    return open;
}

void CDBDoc::DeleteView(std::unique_ptr<CDBUpdateConnector> view) {
    if (!view) return;
    RemoveView(view.get());
    if (telling_ > 0) leaving_.push_back(std::move(view));
}

void CDBDoc::UpdateAllViews(CDBUpdateConnector* sender, int code, T_UPDATE_HINT* hint) {
    struct Telling {
        CDBDoc& doc;
        explicit Telling(CDBDoc& d) : doc(d) { ++doc.telling_; }
        ~Telling() {
            if (--doc.telling_ > 0) return;
            std::erase(doc.views_, nullptr);
            std::exchange(doc.leaving_, {}).clear();
        }
    } telling(*this);
    const std::size_t count = views_.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (views_[i]) views_[i]->OnUpdate(sender, code, hint);
    }
}

// ---- state ----

void CDBDoc::SetModePre() {
    postMode_ = false;
    UpdateAllViews(nullptr, HintCode::PreMode, nullptr);
}

void CDBDoc::SetModePost() {
    postMode_ = true;
    UpdateAllViews(nullptr, HintCode::PostMode, nullptr);
}

}  // namespace zt

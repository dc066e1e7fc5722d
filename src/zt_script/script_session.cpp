#include "zt_script/script_session.h"

#include <utility>

#include "velda_util/pref/table_registry.h"
#include "zt_db/sample/sample_building.h"

namespace zt {

ScriptSession::ScriptSession(std::ostream& output)
    : output_(output), findBefore_(std::exchange(velda::CTBGrid::m_Find, {})) {
    velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile(std::filesystem::path()));
    Use(CDBDoc::New());
}

ScriptSession::~ScriptSession() {
    velda::CTBGrid::m_Find = findBefore_;
    velda::TableRegistry::OfProcess().UseFile(velda::PreferenceFile());
}

// The units that the script chose stay when it turns to another model.
CInitCtrl ScriptSession::Settings() const {
    CInitCtrl settings;
    doc_->GetUnitCtrl()->GetUnitIndexCurrent(settings.units);
    return settings;
}

void ScriptSession::Use(std::unique_ptr<CDBDoc> doc) {
    views_.CloseAll();
    doc_ = std::move(doc);
    doc_->MakeCurrent();
    mark_ = 0;
}

velda::Outcome ScriptSession::NewModel() {
    velda::Outcome left = LeaveRows();
    if (left) Use(CDBDoc::New(Settings()));
    return left;
}

velda::Outcome ScriptSession::OpenModel(const std::string& path, OpenMode mode) {
    if (velda::Outcome left = LeaveRows(); !left) return left;
    OpenReport report;
    std::unique_ptr<CDBDoc> doc = CDBDoc::Open(path, mode, report, Settings());
    if (!doc) return velda::Outcome::Refused(report.message);
    for (const std::string& loss : report.losses) output_ << loss << '\n';
    Use(std::move(doc));
    return velda::Outcome::Done();
}

velda::Outcome ScriptSession::SampleModel(const std::string& name) {
    if (velda::Outcome left = LeaveRows(); !left) return left;
    std::unique_ptr<CDBDoc> doc = CDBDoc::New(Settings());
    velda::Outcome outcome = BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), name);
    if (outcome) Use(std::move(doc));
    return outcome;
}

void ScriptSession::OpenView(std::unique_ptr<CTBView> view) {
    view->SetGridHost(&host_);
    views_.Open(std::move(view));
}

velda::Outcome ScriptSession::LeaveRows() {
    return views_.LeaveRows() ? velda::Outcome::Done() : velda::Outcome::Refused(TableReason());
}

std::string ScriptSession::TableReason() const {
    return host_.Warning() ? *host_.Warning() : host_.Message().value_or("the table did nothing");
}

void ScriptSession::Mark() {
    mark_ = Database().GetTransactionCount();
    views_.Mark();
}

}  // namespace zt

#include "zt_script/script_session.h"

#include "zt_db/sample/sample_building.h"

namespace zt {

// The units that the script chose stay when it turns to another model.
CInitCtrl ScriptSession::Settings() const {
    CInitCtrl settings;
    if (doc_) doc_->GetUnitCtrl()->GetUnitIndexCurrent(settings.units);
    return settings;
}

void ScriptSession::Use(std::unique_ptr<CDBDoc> doc) {
    doc_ = std::move(doc);
    doc_->MakeCurrent();
    mark_ = 0;
}

velda::Outcome ScriptSession::OpenModel(const std::string& path, OpenMode mode) {
    OpenReport report;
    std::unique_ptr<CDBDoc> doc = CDBDoc::Open(path, mode, report, Settings());
    if (!doc) return velda::Outcome::Refused(report.message);
    for (const std::string& loss : report.losses) output_ << loss << '\n';
    Use(std::move(doc));
    return velda::Outcome::Done();
}

velda::Outcome ScriptSession::SampleModel(const std::string& name) {
    std::unique_ptr<CDBDoc> doc = CDBDoc::New(Settings());
    velda::Outcome outcome = BuildSample(*doc->GetMDBCtrl()->GetCurrentDB(), name);
    if (outcome) Use(std::move(doc));
    return outcome;
}

}  // namespace zt

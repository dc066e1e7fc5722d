#include "zt_db/post/result_keeper.h"

#include <unistd.h>

#include <algorithm>
#include <ctime>

#include "velda_lib/msg_dll.h"
#include "velda_util/pref/whole_file.h"
#include "zt_db/post/fingerprint.h"
#include "zt_db/post/result_file.h"
#include "zt_db/records/rslt.h"

namespace zt {
namespace {

namespace fs = std::filesystem;
using velda::FormatText;
using velda::Outcome;

std::string TimeText() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char text[32];
    return {text, std::strftime(text, sizeof(text), "%Y-%m-%d %H:%M:%S", &local)};
}

/// A group of the history that is taken back unless it was ended.
class GroupStep {
public:
    GroupStep(CDataBase& database, const std::string& name)
        : database_(database), isOpen_(database.BeginGroup(name) != 0) {}
    ~GroupStep() {
        if (isOpen_) database_.CancelGroup();
    }
    GroupStep(const GroupStep&) = delete;
    GroupStep& operator=(const GroupStep&) = delete;

    explicit operator bool() const { return isOpen_; }
    bool End() {
        isOpen_ = false;
        return database_.EndGroup() != 0;
    }

private:
    CDataBase& database_;
    bool isOpen_;
};

}  // namespace

ResultKeeper::~ResultKeeper() {
    std::error_code error;
    if (!temporary_.empty()) fs::remove(temporary_, error);
}

fs::path ResultKeeper::FileBeside(const fs::path& model) {
    fs::path file = model;
    return file.replace_extension(".results.h5");
}

fs::path ResultKeeper::File() const {
    if (!modelFile_.empty()) return FileBeside(modelFile_);
    if (temporary_.empty()) {
        temporary_ =
            fs::temp_directory_path() / ("zt_" + std::to_string(getpid()) + "_" + NewRunName() + ".results.h5");
    }
    return temporary_;
}

Outcome ResultKeeper::MoveTo(const fs::path& model) {
    const fs::path from = File();
    const fs::path to = FileBeside(model);
    if (current_ && from != to) {
        std::error_code error;
        velda::PartFile part(to, error);
        if (!error) fs::copy_file(from, part.Path(), fs::copy_options::overwrite_existing, error);
        if (!error) error = part.Commit();
        if (error) return Outcome::Refused(FormatText("IDS_DB_RESULT_WRITE_FAILED", {to.string(), error.message()}));
    }
    modelFile_ = model;
    return Outcome::Done();
}

// ---- what holds ----

std::string ResultKeeper::RunOfRecord() const {
    T_RSLT_D record;
    return model_.GetClass<CClassRslt>()->Get(T_RSLT_D::kKey, record) ? record.run : std::string{};
}

void ResultKeeper::Refresh() {
    const std::string run = RunOfRecord();
    if (current_ && current_->Head().run == run) return;
    message_.clear();
    current_ = run.empty() ? nullptr : OpenRun(run);
}

std::shared_ptr<const ResultSource> ResultKeeper::OpenRun(const std::string& run) {
    Outcome outcome = Outcome::Done();
    std::shared_ptr<const ResultSource> results = ResultFile::Open(File(), outcome);
    if (!results) {
        message_ = outcome.Reason();
    } else if (results->Head().run != run) {
        message_ = FormatText("IDS_DB_RESULT_OTHER_RUN", {File().string()});
    } else if (results->Head().fingerprint != FingerprintOf(model_)) {
        message_ = FormatText("IDS_DB_RESULT_OUT_OF_DATE", {File().string()});
    }
    return message_.empty() ? results : nullptr;
}

Outcome ResultKeeper::MayChange(const Batch& batch) const {
    if (!current_ || RunOfRecord().empty()) return Outcome::Done();
    const bool touches = std::any_of(batch.changes.begin(), batch.changes.end(), [this](const Change& change) {
        return ResultsDependOn(model_.StoreAt(change.classIndex));
    });
    return touches ? Outcome::Refused(FormatText("IDS_DB_REASON_HAS_RESULTS", {})) : Outcome::Done();
}

// ---- steps ----

Outcome ResultKeeper::Keep(const std::string& stepName, const std::string& solver, std::uint32_t stations,
                           const std::function<Outcome(ResultSink&)>& write) {
    const T_RSLT_D record{.run = NewRunName(), .time = TimeText()};
    GroupStep group(model_, stepName);
    if (!group) return Outcome::Refused(model_.GetLastReason());
    {
        ResultFileWriter writer(File());
        Outcome outcome = writer.PutHead({record.run, FingerprintOf(model_), record.time, solver, stations});
        if (outcome) outcome = write(writer);
        if (outcome) outcome = writer.Finish();
        if (!outcome) return outcome;
    }
    CClassRslt& records = *model_.GetClass<CClassRslt>();
    const int done = records.Exist(T_RSLT_D::kKey) ? records.TR_Modify(T_RSLT_D::kKey, T_RSLT_D::kKey, record)
                                                   : records.TR_Add(T_RSLT_D::kKey, record);
    if (!done || !group.End()) return Outcome::Refused(model_.GetLastReason());
    return Outcome::Done();
}

Outcome ResultKeeper::Discard() {
    GroupStep group(model_, FormatText("IDS_DB_STEP_DISCARD", {}));
    const bool done = group && model_.GetClass<CClassRslt>()->TR_Del(T_RSLT_D::kKey) && group.End();
    return done ? Outcome::Done() : Outcome::Refused(model_.GetLastReason());
}

}  // namespace zt

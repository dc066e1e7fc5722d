#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "zt_db/post/post_database.h"

namespace zt {

/// The results of a document: where their file is, whether they are current, and what may change while they are. The
/// record RSLT of the model names the run whose results hold; adding and deleting it are steps of the history, so that
/// an undo brings results back that were discarded.
class ResultKeeper {
public:
    explicit ResultKeeper(CDataBase& model) : model_(model) {}
    ~ResultKeeper();
    ResultKeeper(const ResultKeeper&) = delete;
    ResultKeeper& operator=(const ResultKeeper&) = delete;

    /// Where the results of a model file lie: beside it, with its name. Those of a model without a file lie among the
    /// temporary files and go with the document.
    static std::filesystem::path FileBeside(const std::filesystem::path& model);
    std::filesystem::path File() const;
    /// The model lives in another file from now on. Its results, where it has current ones, go with it; refused when
    /// they cannot be copied.
    velda::Outcome MoveTo(const std::filesystem::path& model);

    /// Writes new results, and makes them current, as one step of the history.
    velda::Outcome Keep(const std::string& stepName, const std::string& solver, std::uint32_t stations,
                        const std::function<velda::Outcome(ResultSink&)>& write);
    /// Deletes the record of the results as one step; the file stays, so that the step can be taken back.
    velda::Outcome Discard();

    /// Looks anew which results hold. To be called when a model was opened and when its record of results changed.
    void Refresh();
    /// The current results; null when there are none.
    const std::shared_ptr<const ResultSource>& Current() const { return current_; }
    /// Why the results that the model names do not hold; empty otherwise.
    const std::string& Message() const { return message_; }
    /// Refused for changes of what the current results depend on.
    velda::Outcome MayChange(const Batch& batch) const;

private:
    std::shared_ptr<const ResultSource> OpenRun(const std::string& run);
    std::string RunOfRecord() const;

    CDataBase& model_;
    std::filesystem::path modelFile_;
    mutable std::filesystem::path temporary_;
    std::shared_ptr<const ResultSource> current_;
    std::string message_;
};

}  // namespace zt

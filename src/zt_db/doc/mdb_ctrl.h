#pragma once

#include <memory>

#include "zt_db/core/database.h"

namespace zt {

class CPostDataBase;
class ResultSource;

/// The databases of a document.
class CMDBCtrl {
public:
    /// Index of the model database in hints.
    static constexpr int kModel = 0;

    explicit CMDBCtrl(CUnitCtrl& units);
    ~CMDBCtrl();

    /// The database of an index such as a hint carries; null for an index without database.
    CDataBase* GetDB(int index) { return index == kModel ? &model_ : nullptr; }
    /// The model database.
    CDataBase* GetCurrentDB() { return &model_; }
    /// The result database; empty while the document has no results. Frames are analysed in space, so that it is that of
    /// the analysis in space as well.
    const CPostDataBase* GetDBPost() const { return post_.get(); }
    const CPostDataBase* GetDBPost3D() const { return post_.get(); }
    /// The model as a result database without results, for tables that work before any analysis.
    const CPostDataBase* GetDBPre() const { return pre_.get(); }
    /// Makes results the current ones; null for none.
    void SetResults(std::shared_ptr<const ResultSource> results);

private:
    CDataBase model_;
    std::unique_ptr<CPostDataBase> pre_;
    std::unique_ptr<CPostDataBase> post_;
};

}  // namespace zt

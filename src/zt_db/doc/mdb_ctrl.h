#pragma once

#include "zt_db/core/database.h"
#include "zt_db/post/post_database.h"

namespace zt {

/// The databases of a document.
class CMDBCtrl {
public:
    /// Index of the model database in hints.
    static constexpr int kModel = 0;

    explicit CMDBCtrl(CUnitCtrl& units) : model_(units) {}

    /// The database of an index such as a hint carries; null for an index without database.
    CDataBase* GetDB(int index) { return index == kModel ? &model_ : nullptr; }
    /// The model database.
    CDataBase* GetCurrentDB() { return &model_; }
    /// The result database; empty while the document has no results. Frames are analysed in space, so that it is that
    /// of the analysis in space as well.
    const CPostDataBase* GetDBPost() const { return &post_; }
    const CPostDataBase* GetDBPost3D() const { return &post_; }
    /// The model as a result database without results, for tables that work before any analysis.
    const CPostDataBase* GetDBPre() const { return &pre_; }
    /// Makes results the current ones; null for none.
    void SetResults(std::shared_ptr<const ResultSource> results) {
        post_ = results ? CPostDataBase(&model_, std::move(results)) : CPostDataBase();
    }

private:
    CDataBase model_;
    CPostDataBase pre_{&model_, nullptr};
    CPostDataBase post_;
};

}  // namespace zt

#pragma once

#include "zt_db/core/database.h"

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
    /// The result databases; null while the document has no results.
    CDataBase* GetDBPost() { return nullptr; }
    CDataBase* GetDBPost3D() { return nullptr; }

private:
    CDataBase model_;
};

}  // namespace zt

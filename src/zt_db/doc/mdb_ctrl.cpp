#include "zt_db/doc/mdb_ctrl.h"

#include "zt_db/post/post_database.h"

namespace zt {

CMDBCtrl::CMDBCtrl(CUnitCtrl& units)
    : model_(units),
      pre_(std::make_unique<CPostDataBase>(&model_, nullptr)),
      post_(std::make_unique<CPostDataBase>()) {}

CMDBCtrl::~CMDBCtrl() = default;

void CMDBCtrl::SetResults(std::shared_ptr<const ResultSource> results) {
    CDataBase* const model = results ? &model_ : nullptr;
    *post_ = CPostDataBase(model, std::move(results));
}

}  // namespace zt

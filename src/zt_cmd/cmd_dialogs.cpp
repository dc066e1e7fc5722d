#include "zt_cmd/cmd_dialogs.h"

#include <memory>

#include "zt_cmd/analysis_control_dialog.h"
#include "zt_cmd/drift_restriction_dialog.h"
#include "zt_cmd/load_case_dialog.h"
#include "zt_cmd/load_combination_dialog.h"
#include "zt_cmd/load_type_dialogs.h"
#include "zt_cmd/matl_dialog.h"
#include "zt_cmd/sect_dialog.h"
#include "zt_cmd/spectrum_dialogs.h"
#include "zt_cmd/thik_dialog.h"
#include "zt_cmd/time_history_dialogs.h"
#include "zt_db/doc/doc.h"

namespace zt {
namespace {

using Maker = std::unique_ptr<PropertyDialog> (*)(DB_CDataBase& database);

template <class Dialog>
std::unique_ptr<PropertyDialog> Make(DB_CDataBase& database) {
    return std::make_unique<Dialog>(database);
}

struct Entry {
    std::string_view name;
    Maker make;
};
template <class Dialog>
constexpr Entry kEntry{Dialog::kName, &Make<Dialog>};
constexpr Entry kDialogs[] = {
    kEntry<CModelPropThikDlg>,     kEntry<CModelPropMatlDlg>,      kEntry<CCMSectItemDlg>,
    kEntry<LoadCaseDialog>,        kEntry<LoadCombinationDialog>,  kEntry<BeamLoadTypeDialog>,
    kEntry<WallLoadTypeDialog>,    kEntry<SlabLoadTypeDialog>,     kEntry<AnalysisControlDialog>,
    kEntry<SpectrumDialog>,        kEntry<SpectrumCaseDialog>,     kEntry<TimeFunctionDialog>,
    kEntry<TimeHistoryCaseDialog>, kEntry<DriftRestrictionDialog>,
};

}  // namespace

int CmdDialogs::DoModal3(std::string_view name, std::uint32_t key, void* /*first*/, void* /*second*/) {
    CDBDoc* doc = CDBDoc::m_pDBDoc;
    if (!doc) return 0;
    for (const Entry& entry : kDialogs) {
        if (entry.name != name) continue;
        const std::unique_ptr<PropertyDialog> dialog = entry.make(*doc->GetMDBCtrl()->GetCurrentDB());
        dialog->Select(key);
        return velda::DoModal(*dialog) ? 1 : 0;
    }
    return 0;
}

}  // namespace zt

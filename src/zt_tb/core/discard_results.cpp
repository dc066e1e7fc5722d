#include "zt_tb/core/discard_results.h"

#include "velda_base/host/message_box.h"
#include "velda_lib/msg_dll.h"
#include "zt_db/doc/doc.h"
#include "zt_db/post/result_keeper.h"

namespace zt {

bool AskToDiscardResults() {
    CDBDoc* doc = CDBDoc::m_pDBDoc;
    if (!doc || !doc->GetResults().Current()) return false;
    const std::string question = velda::FormatText("IDS_TB_ASK_DISCARD_RESULTS", {});
    if (velda::AfxMessageBox(question, velda::MessageButtons::YesNo) == velda::MessageAnswer::Yes) {
        const velda::Outcome outcome = doc->GetResults().Discard();
        if (!outcome) velda::AfxMessageBox(outcome.Reason());
    }
    return true;
}

}  // namespace zt

#include "zt_tb/model/tb_node_elem_sel_edit.h"

namespace zt {

bool CTBNodeElemSelEdit::PreTranslateMessage(const velda::KeyMessage& message) {
    const bool confirms = message.kind == velda::KeyMessage::Kind::Down && message.chord.key == velda::Key::Enter;
    if (!confirms || Parent() == nullptr) return CEdit::PreTranslateMessage(message);
    Parent()->PostCommand({Id(), kListConfirmed, this});
    return true;
}

}  // namespace zt

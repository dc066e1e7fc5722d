#pragma once

#include "velda_base/host/message_box.h"

namespace zt {

class QtMessageBox final : public velda::IMessageBox {
public:
    velda::MessageAnswer Show(const std::string& text, velda::MessageButtons buttons) override;
};

}  // namespace zt

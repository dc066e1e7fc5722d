#pragma once

#include <string>
#include <utility>

#include "velda_base/host/control.h"

namespace velda {

/// An edit control. The host edits the text and puts it here.
class CEdit : public Control {
public:
    using Control::Control;

    const std::string& Text() const { return text_; }
    void SetText(std::string text) { text_ = std::move(text); }

private:
    std::string text_;
};

}  // namespace velda

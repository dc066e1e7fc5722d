#pragma once

#include <cstdint>

#include "velda_base/host/window.h"

namespace velda {

/// What a control of a window does by itself. The host shows it and offers it the messages first.
class Control {
public:
    /// `parent` may be null; otherwise it outlives the control. `id` is unique among the controls of the parent.
    Control(CWnd* parent, std::uint16_t id) : parent_(parent), id_(id) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    CWnd* Parent() const { return parent_; }
    std::uint16_t Id() const { return id_; }

    /// Looks at a message before the host does. True when it is handled; otherwise the host passes it on, to its own
    /// editing of texts and then to the window.
    virtual bool PreTranslateMessage(const KeyMessage& /*message*/) { return false; }

private:
    CWnd* parent_;
    std::uint16_t id_;
};

}  // namespace velda

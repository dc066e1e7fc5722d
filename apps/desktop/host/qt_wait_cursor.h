#pragma once

#include <QGuiApplication>

#include "velda_base/host/wait_cursor.h"

namespace zt {

/// The wait cursor; the toolkit counts how deep it is nested.
class QtWaitCursor final : public velda::IWaitCursor {
public:
    void Begin() override { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    void End() override { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace zt

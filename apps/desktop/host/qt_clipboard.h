#pragma once

#include <QClipboard>
#include <QGuiApplication>

#include "desktop/grid/qt_text.h"
#include "velda_base/host/clipboard.h"

namespace zt {

class QtClipboard final : public velda::IClipboard {
public:
    void SetText(std::string text) override { QGuiApplication::clipboard()->setText(ToQt(text)); }
    std::string GetText() override { return FromQt(QGuiApplication::clipboard()->text()); }
};

}  // namespace zt

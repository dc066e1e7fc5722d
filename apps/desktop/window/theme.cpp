#include "desktop/window/theme.h"

#include <QPalette>

#include "desktop/window/look_style.h"
#include "desktop/window/system_look.h"

namespace zt {
namespace {

struct PaletteColors {
    QColor window;
    QColor base;
    QColor alternate;
    QColor text;
    QColor faint;
    QColor button;
    QColor highlight;
};

QPalette PaletteOf(const PaletteColors& colors) {
    QPalette palette(colors.button, colors.window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, colors.text);
        palette.setColor(QPalette::Disabled, role, colors.faint);
    }
    palette.setColor(QPalette::PlaceholderText, colors.faint);
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, colors.alternate);
    palette.setColor(QPalette::ToolTipBase, colors.alternate);
    palette.setColor(QPalette::Highlight, colors.highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, colors.highlight);
    return palette;
}

const PaletteColors kLight{"#f3f3f3", "#ffffff", "#f7f7f7", "#1b1b1b", "#8a8a8a", "#eaeaea", "#1f6fc5"};
const PaletteColors kDark{"#25272b", "#1c1e21", "#2b2d31", "#e6e6e6", "#858a91", "#34373c", "#3079d0"};

}  // namespace

void UseTheme(QApplication& application, Theme theme) {
    const bool follows = theme == Theme::System;
    delete application.findChild<SystemLook*>();
    const auto* look = follows ? new SystemLook(&application) : nullptr;
    if (look) {
        QObject::connect(
            look, &SystemLook::Changed, &application, [&application] { UseTheme(application, Theme::System); },
            Qt::QueuedConnection);
    }
    const std::optional<bool> dark = look ? look->PrefersDark() : theme == Theme::Dark;
    if (!dark) {
        application.setPalette(QPalette());
        return;
    }
    application.setStyle(new LookStyle);
    application.setPalette(PaletteOf(*dark ? kDark : kLight));
}

}  // namespace zt

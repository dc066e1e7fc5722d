#include "desktop/window/system_look.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace zt {
namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");
const QString kKey = QStringLiteral("color-scheme");
/// A portal that does not answer at once must not hold up the start of the program.
constexpr int kPatience = 300;

}  // namespace

SystemLook::SystemLook(QObject* parent) : QObject(parent) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                SLOT(OnSettingChanged(QString, QString, QDBusVariant)));
}

std::optional<bool> SystemLook::PrefersDark() const {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return std::nullopt;
    QDBusMessage question = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    question << kGroup << kKey;
    const QDBusMessage answer = bus.call(question, QDBus::Block, kPatience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return std::nullopt;
    return DarkOf(answer.arguments().front());
}

std::optional<bool> SystemLook::DarkOf(QVariant scheme) {
    // Older portals wrap the number twice.
    while (scheme.canConvert<QDBusVariant>()) scheme = scheme.value<QDBusVariant>().variant();
    bool isNumber = false;
    const uint number = scheme.toUInt(&isNumber);
    if (!isNumber || (number != 1 && number != 2)) return std::nullopt;
    return number == 1;
}

void SystemLook::OnSettingChanged(const QString& group, const QString& key, const QDBusVariant& /*value*/) {
    if (group == kGroup && key == kKey) emit Changed();
}

}  // namespace zt

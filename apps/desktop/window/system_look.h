#pragma once

#include <QDBusVariant>
#include <QObject>
#include <optional>

namespace zt {

/// What the desktop environment says of its look, over its settings portal.
class SystemLook : public QObject {
    Q_OBJECT

public:
    explicit SystemLook(QObject* parent = nullptr);

    /// Whether the user prefers a dark look; nothing where the environment does not say.
    std::optional<bool> PrefersDark() const;
    /// Reads the number that the portal gives for the colour scheme: 1 dark, 2 light, others none.
    static std::optional<bool> DarkOf(QVariant scheme);

signals:
    void Changed();

private slots:
    void OnSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};

}  // namespace zt

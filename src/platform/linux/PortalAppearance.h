#pragma once

#include "core/Task.h"
#include "platform/Appearance.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <optional>

namespace kestrio {

/// The appearance that the desktop's settings portal reports, and the lightness of Qt's palette
/// where none answers or it has no preference. KESTRIO_APPEARANCE=light or =dark forces one, for
/// trying. The bus is asked in the background; the palette counts until it answers.
class PortalAppearance : public Appearance {
    Q_OBJECT

  public:
    /// `busAddress` empty stands for the session's bus.
    explicit PortalAppearance(QString busAddress = {});

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Q_SLOT void onSettingChanged(const QString& group, const QString& key,
                                 const QDBusVariant& value);
    Task<> listen(QString busAddress);
    void read(const QDBusConnection& bus, const QString& group, const QString& key);
    void learn(const QString& group, const QString& key, const QVariant& value);
    void refresh();

    std::optional<bool> forced_;
    std::optional<bool> asked_;  // what the portal says about darkness
    bool hasAnimations_ = true;
    bool asksForLessMotion_ = false;
};

}  // namespace kestrio

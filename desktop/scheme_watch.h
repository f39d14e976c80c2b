// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <optional>

#include "desktop/drawing_context.h"

namespace brevant {

// Whether the desktop is light or dark: what its settings portal says, and where there is none, or
// it leaves the choice open, what the widgets' palette looks like. Follows both while it lives.
//
// The portal is asked without waiting; until it answers the palette counts.
class SchemeWatch : public QObject {
  Q_OBJECT
 public:
  explicit SchemeWatch(const QDBusConnection& bus = QDBusConnection::sessionBus(),
                       QObject* parent = nullptr);

  [[nodiscard]] ColorScheme scheme() const { return scheme_; }

 Q_SIGNALS:
  void changed(ColorScheme scheme);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private Q_SLOTS:
  void takeSetting(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  void askPortal(const QDBusConnection& bus);
  void decide();

  std::optional<ColorScheme> fromPortal_;
  ColorScheme scheme_;
};

}  // namespace brevant

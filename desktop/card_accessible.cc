// SPDX-License-Identifier: MIT
#include "desktop/card_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "desktop/card_window.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

class CardAccessible : public QAccessibleWidget {
 public:
  explicit CardAccessible(CardWindow* card) : QAccessibleWidget(card, QAccessible::Window) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    return static_cast<const CardWindow*>(widget())->spokenText();
  }
};

QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
  auto* card = className == "brevant::CardWindow"_L1 ? qobject_cast<CardWindow*>(object) : nullptr;
  return card ? new CardAccessible(card) : nullptr;
}

}  // namespace

void installCardAccessibility() {
  QAccessible::installFactory(makeAccessible);
}

}  // namespace brevant

// SPDX-License-Identifier: MIT
#include "desktop/pill.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHBoxLayout>
#include <QPainter>

#include "desktop/card_row.h"

namespace brevant {
namespace {

// Lies over the pill while the keyboard is at it.
class FocusRing : public QWidget {
 public:
  explicit FocusRing(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    const QRectF ring = QRectF(rect().marginsRemoved(kCardMargins)).adjusted(1, 1, -1, -1);
    painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
  }
};

// Reads the time at the moment it is asked.
class PillAccessible : public QAccessibleWidget {
 public:
  explicit PillAccessible(Pill* pill) : QAccessibleWidget(pill, QAccessible::Button) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    return static_cast<const Pill*>(widget())->spokenText();
  }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
  auto* pill = dynamic_cast<Pill*>(object);
  return pill ? new PillAccessible(pill) : nullptr;
}

}  // namespace

Pill::Pill(std::unique_ptr<QWidget> surface, std::function<QString()> spoken)
    : ring_(new FocusRing(this)), spoken_(std::move(spoken)) {
  [[maybe_unused]] static const bool isInstalled = [] {
    QAccessible::installFactory(makeAccessible);
    return true;
  }();
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(surface.release());
  setFocusPolicy(Qt::TabFocus);
}

void Pill::focusInEvent(QFocusEvent*) {
  ring_->raise();
  ring_->show();
}

void Pill::focusOutEvent(QFocusEvent*) {
  ring_->hide();
}

void Pill::resizeEvent(QResizeEvent*) {
  ring_->setGeometry(rect());
}

}  // namespace brevant

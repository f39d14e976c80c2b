// SPDX-License-Identifier: MIT
#include "desktop/boxes.h"

#include <QGraphicsOpacityEffect>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/rounded_shape.h"

namespace brevant {
namespace {

constexpr double kOutdatedOpacity = 0.4;

class Background : public QWidget {
 public:
  Background(double cornerRadius, const QColor& fill) : cornerRadius_(cornerRadius), fill_(fill) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(roundedShape(rect(), cornerRadius_), fill_);
  }

 private:
  double cornerRadius_;
  QColor fill_;
};

class Frame : public QWidget {
 public:
  Frame(std::unique_ptr<QWidget> content, const FrameSize& size, Qt::Alignment alignment) {
    fillWith(*this, std::move(content), alignment);
    if (size.width) setFixedWidth(*size.width);
    if (size.height) setFixedHeight(*size.height);
    if (size.maxWidth) setMaximumWidth(*size.maxWidth);
    if (size.maxHeight) setMaximumHeight(*size.maxHeight);
    setSizePolicy(policyFor(size.width, size.maxWidth), policyFor(size.height, size.maxHeight));
  }

  // Without a layout around it that would know the limits.
  [[nodiscard]] QSize sizeHint() const override {
    return QWidget::sizeHint().expandedTo(minimumSize()).boundedTo(maximumSize());
  }
  [[nodiscard]] int heightForWidth(int width) const override {
    return std::clamp(QWidget::heightForWidth(width), minimumHeight(), maximumHeight());
  }

 private:
  static QSizePolicy::Policy policyFor(std::optional<int> fixed, std::optional<int> most) {
    if (fixed) return QSizePolicy::Fixed;
    return most ? QSizePolicy::Expanding : QSizePolicy::Preferred;
  }
};

}  // namespace

void alignUnlessExpanding(QLayoutItem& item, Qt::Alignment alignment) {
  const Qt::Orientations expanding = item.expandingDirections();
  if (expanding & Qt::Horizontal) alignment &= ~Qt::AlignHorizontal_Mask;
  if (expanding & Qt::Vertical) alignment &= ~Qt::AlignVertical_Mask;
  item.setAlignment(alignment);
}

void fillWith(QWidget& box, std::unique_ptr<QWidget> content, Qt::Alignment alignment) {
  auto* layout = new QVBoxLayout(&box);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(content.release());
  alignUnlessExpanding(*layout->itemAt(0), alignment);
}

std::unique_ptr<QWidget> paddingAround(std::unique_ptr<QWidget> content, QMargins padding) {
  auto box = std::make_unique<QWidget>();
  fillWith(*box, std::move(content), {});
  box->layout()->setContentsMargins(padding);
  return box;
}

std::unique_ptr<QWidget> frameAround(std::unique_ptr<QWidget> content, const FrameSize& size,
                                     Qt::Alignment alignment) {
  return std::make_unique<Frame>(std::move(content), size, alignment);
}

std::unique_ptr<QWidget> backgroundBehind(std::unique_ptr<QWidget> content, double cornerRadius,
                                          const QColor& fill) {
  auto box = std::make_unique<Background>(cornerRadius, fill);
  fillWith(*box, std::move(content), {});
  return box;
}

InvalidatableBox::InvalidatableBox(std::unique_ptr<QWidget> content) {
  fillWith(*this, std::move(content), {});
}

void InvalidatableBox::setOutdated(bool outdated) {
  if (!outdated) return setGraphicsEffect(nullptr);
  auto* effect = new QGraphicsOpacityEffect;
  effect->setOpacity(kOutdatedOpacity);
  setGraphicsEffect(effect);
}

}  // namespace brevant

#include "desktop/island_window.h"

#include <QHBoxLayout>
#include <QJsonObject>
#include <QKeyEvent>
#include <QPainter>
#include <chrono>
#include <utility>
#include <vector>

#include "desktop/card_row.h"
#include "desktop/control.h"
#include "desktop/spoken.h"
#include "desktop/surface.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kHoverOpens = 350ms;
constexpr auto kLeaveCloses = 500ms;

// Lies over a closed presentation while the keyboard is at it.
class FocusRing : public QWidget {
 public:
  explicit FocusRing(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
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

// A closed presentation. It can be reached with the keyboard; the mouse passes through to the
// window, which tells a click from a drag.
class Pill : public QWidget {
 public:
  explicit Pill(std::unique_ptr<QWidget> surface) : ring_(new FocusRing(this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(surface.release());
    ring_->hide();
    setFocusPolicy(Qt::TabFocus);
  }

 protected:
  void focusInEvent(QFocusEvent*) override {
    ring_->raise();
    ring_->show();
  }
  void focusOutEvent(QFocusEvent*) override { ring_->hide(); }
  void resizeEvent(QResizeEvent*) override { ring_->setGeometry(rect()); }

 private:
  FocusRing* ring_;
};

QString idOf(const QJsonObject& presentation) {
  return presentation["id"_L1].toString();
}

}  // namespace

IslandWindow::IslandWindow(const DrawingContext& drawing)
    : CardWindow(WindowKind::kIsland, Anchor::kTopCentre, drawing) {
  hover_.setSingleShot(true);
  leave_.setSingleShot(true);
  connect(&hover_, &QTimer::timeout, this, [this] { expand(pointedAtId_); });
  connect(&leave_, &QTimer::timeout, this, &IslandWindow::collapse);
}

void IslandWindow::showActivities(const QJsonArray& presentations, const QString& trouble) {
  presentations_ = presentations;
  if (presentation(expandedId_).isEmpty()) expandedId_.clear();
  draw();
  setTrouble(trouble);
}

QString IslandWindow::spokenText() const {
  return spokenPresentations(presentations_, drawing().now());
}

void IslandWindow::takeClick(QPoint position) {
  if (isExpanded()) {
    wasJustClosed_ = true;
    return collapse();
  }
  for (QWidget* under = childAt(position); under && under != this; under = under->parentWidget())
    if (dynamic_cast<Pill*>(under)) return expand(under->objectName());
}

void IslandWindow::keyPressEvent(QKeyEvent* event) {
  const auto* pill = dynamic_cast<Pill*>(focusWidget());
  switch (event->key()) {
    case Qt::Key_Escape:
      return collapse();
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!pill) return;
      expand(pill->objectName());
      if (auto* first = content()->findChild<Control*>()) first->setFocus();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void IslandWindow::enterEvent(QEnterEvent*) {
  leave_.stop();
}

void IslandWindow::leaveEvent(QEvent*) {
  wasJustClosed_ = false;
  hover_.stop();
  if (isExpanded()) leave_.start(kLeaveCloses);
}

// Watches the pills for the pointer. One that appears under it at a closing click was not pointed
// at.
bool IslandWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Enter && !wasJustClosed_) {
    pointedAtId_ = watched->objectName();
    hover_.start(kHoverOpens);
  }
  return CardWindow::eventFilter(watched, event);
}

void IslandWindow::expand(const QString& id) {
  hover_.stop();
  leave_.stop();
  if (id == expandedId_) return;
  expandedId_ = id;
  draw();
}

void IslandWindow::draw() {
  if (presentations_.isEmpty()) return setContent(nullptr);
  if (!isExpanded()) return setContent(makePills());
  setContent(buildSurface(Surface::kIslandExpanded, presentation(expandedId_), drawing()));
}

std::unique_ptr<QWidget> IslandWindow::makePills() {
  std::vector<std::unique_ptr<QWidget>> pills;
  const Surface surface =
      presentations_.size() == 1 ? Surface::kIslandCompact : Surface::kIslandMinimal;
  for (const QJsonValue& value : presentations_) {
    const QJsonObject presentation = value.toObject();
    auto pill = std::make_unique<Pill>(buildSurface(surface, presentation, drawing()));
    pill->setObjectName(idOf(presentation));
    pill->setAccessibleName(presentation["contentState"_L1]["typeName"_L1].toString());
    pill->installEventFilter(this);
    pills.push_back(std::move(pill));
  }
  return makeCardRow(std::move(pills), Qt::Horizontal, drawing().locale.textDirection());
}

QJsonObject IslandWindow::presentation(const QString& id) const {
  for (const QJsonValue& value : presentations_)
    if (idOf(value.toObject()) == id) return value.toObject();
  return {};
}

}  // namespace brevant

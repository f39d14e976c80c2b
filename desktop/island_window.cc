#include "desktop/island_window.h"

#include <QHBoxLayout>
#include <QJsonObject>
#include <QKeyEvent>
#include <QPainter>
#include <chrono>

#include "desktop/control.h"
#include "desktop/spoken.h"
#include "desktop/surface.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kHoverOpens = 350ms;
constexpr auto kLeaveCloses = 500ms;
constexpr int kPillSpacing = 6;

// A closed presentation. It can be reached with the keyboard; the mouse passes through to the
// window, which tells a click from a drag.
class Pill : public QWidget {
 public:
  explicit Pill(std::unique_ptr<QWidget> surface) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(surface.release());
    setFocusPolicy(Qt::StrongFocus);
  }

 protected:
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }
  void paintEvent(QPaintEvent*) override {
    if (!hasFocus()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    const double radius = height() / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
  }
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
  if (isExpanded()) return collapse();
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
      if (auto* first = findChild<Control*>()) first->setFocus();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void IslandWindow::enterEvent(QEnterEvent*) {
  leave_.stop();
}

void IslandWindow::leaveEvent(QEvent*) {
  hover_.stop();
  if (isExpanded()) leave_.start(kLeaveCloses);
}

// Watches the pills for the pointer.
bool IslandWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Enter) {
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
  auto pills = std::make_unique<QWidget>();
  auto* layout = new QHBoxLayout(pills.get());
  layout->setContentsMargins({});
  layout->setSpacing(kPillSpacing);
  const Surface surface =
      presentations_.size() == 1 ? Surface::kIslandCompact : Surface::kIslandMinimal;
  for (const QJsonValue& value : presentations_) {
    const QJsonObject presentation = value.toObject();
    auto* pill = new Pill(buildSurface(surface, presentation, drawing()));
    pill->setObjectName(idOf(presentation));
    pill->setAccessibleName(presentation["contentState"_L1]["typeName"_L1].toString());
    pill->installEventFilter(this);
    layout->addWidget(pill);
  }
  return pills;
}

QJsonObject IslandWindow::presentation(const QString& id) const {
  for (const QJsonValue& value : presentations_)
    if (idOf(value.toObject()) == id) return value.toObject();
  return {};
}

}  // namespace brevant

// SPDX-License-Identifier: MIT
#include "desktop/island_window.h"

#include <QJsonObject>
#include <QKeyEvent>
#include <chrono>
#include <utility>
#include <vector>

#include "desktop/card_row.h"
#include "desktop/control.h"
#include "desktop/pill.h"
#include "desktop/spoken.h"
#include "desktop/surface.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kHoverOpens = 350ms;
constexpr auto kLeaveCloses = 500ms;

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
      return collapseByKeyboard();
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!pill) return;
      expand(pill->objectName());
      if (auto* first = content()->findChild<Control*>()) first->setFocus();
      return;
    default:
      CardWindow::keyPressEvent(event);
  }
}

// The keyboard stays at what it has closed.
void IslandWindow::collapseByKeyboard() {
  const QString id = expandedId_;
  collapse();
  auto* pill = id.isEmpty() ? nullptr : content()->findChild<QWidget*>(id);
  if (pill) pill->setFocus(Qt::ShortcutFocusReason);
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
    const auto spoken = [presentation, now = drawing().now] {
      return spokenPresentations({presentation}, now());
    };
    auto pill = std::make_unique<Pill>(buildSurface(surface, presentation, drawing()), spoken);
    pill->setObjectName(idOf(presentation));
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

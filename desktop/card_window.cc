// SPDX-License-Identifier: MIT
#include "desktop/card_window.h"

#include <QAccessible>
#include <QApplication>
#include <QBitmap>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>

#include "desktop/card_row.h"
#include "desktop/timer_view.h"
#include "desktop/translate.h"
#include "desktop/x11_hints.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kNoticeTime = 4s;
constexpr auto kMoveSettles = 300ms;
constexpr double kOutOfDateOpacity = 0.55;
constexpr int kNoticeMargin = 8;

QLabel* makeNotice(QWidget* window) {
  auto* notice = new QLabel(window);
  notice->setWordWrap(true);
  notice->setAlignment(Qt::AlignCenter);
  notice->setTextFormat(Qt::PlainText);
  notice->setStyleSheet(
      u"background: rgba(0, 0, 0, 216); color: white; border-radius: 10px; padding: 6px 10px"_s);
  notice->hide();
  return notice;
}

// The screen may be gone since the place was chosen. A shadow may reach over the edge.
QRect roomNear(QPoint point) {
  const QScreen* screen = QGuiApplication::screenAt(point);
  if (!screen) screen = QGuiApplication::primaryScreen();
  return screen->availableGeometry().marginsAdded(kCardMargins);
}

QPoint inside(const QRect& room, QPoint topLeft, QSize size) {
  const int rightmost = std::max(room.left(), room.right() + 1 - size.width());
  const int lowest = std::max(room.top(), room.bottom() + 1 - size.height());
  return {std::clamp(topLeft.x(), room.left(), rightmost),
          std::clamp(topLeft.y(), room.top(), lowest)};
}

}  // namespace

CardWindow::CardWindow(WindowKind kind, Anchor anchor, DrawingContext drawing)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint),
      kind_(kind),
      anchor_(anchor),
      drawing_(std::move(drawing)),
      notice_(makeNotice(this)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_AlwaysShowToolTips);  // a widget on the desktop is seldom the active window
  setFocusPolicy(Qt::StrongFocus);
  setObjectName(wordOf(kind));
  setWindowTitle(titleOf(kind));
  drawing_.runIntent = [this](const IntentCall& call) { Q_EMIT intentAsked(call); };
  drawing_.openLink = [this](const QString& destination) { Q_EMIT linkAsked(destination); };
  setFocus();  // so that it is the card that is read when the window becomes active
  noticeEnd_.setSingleShot(true);
  movedEnd_.setSingleShot(true);
  connect(&noticeEnd_, &QTimer::timeout, this, [this] {
    notice_->hide();
    setFailedControl(Control::State::kReady);
    failedControl_.clear();
  });
  connect(&movedEnd_, &QTimer::timeout, this, [this] { Q_EMIT moved(anchorPoint_); });
}

void CardWindow::setWanted(bool wanted) {
  wanted_ = wanted;
  updateVisibility();
}

// The window stays where it is meanwhile: hidden and shown again, it would lose its workspaces.
void CardWindow::setOnTop(bool onTop) {
  overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, onTop));
  if (QWindow* window = windowHandle()) window->setFlag(Qt::WindowStaysOnTopHint, onTop);
}

void CardWindow::placeAt(QPoint anchor) {
  anchorPoint_ = anchor;
  fit();
}

void CardWindow::setTrouble(const QString& why) {
  trouble_ = why;
  setToolTip(why.isEmpty() ? QString() : translate("Not up to date: %1").arg(why));
  setAccessibleDescription(toolTip());
  dim();
}

bool CardWindow::coversTimer(const QRect& place) const {
  if (!content_) return false;
  const auto views = content_->findChildren<QWidget*>();
  return std::any_of(views.begin(), views.end(), [&](const QWidget* view) {
    const bool isTimer = dynamic_cast<const TimerView*>(view) != nullptr;
    return isTimer && place.intersects(QRect(view->mapTo(this, QPoint()), view->size()));
  });
}

void CardWindow::say(const QString& message) {
  notice_->setText(message);
  notice_->setAccessibleName(message);
  const QRect card = rect().marginsRemoved(kCardMargins + kNoticeMargin);
  QRect place(card.topLeft(), QSize(card.width(), notice_->heightForWidth(card.width())));
  place.moveBottom(card.bottom());
  if (coversTimer(place)) place.moveTop(card.top());
  notice_->setGeometry(place);
  QAccessibleEvent announcement(notice_, QAccessible::Alert);
  QAccessible::updateAccessibility(&announcement);
  notice_->raise();
  notice_->show();
  noticeEnd_.start(kNoticeTime);
}

void CardWindow::beginIntent() {
  intentRuns_ = true;
  failedControl_.clear();
}

// After a success the control waits for the card that takes its place.
void CardWindow::endIntent(const QString& failure) {
  intentRuns_ = false;
  if (failure.isEmpty() || !content_) return;
  for (const Control* control : content_->findChildren<Control*>())
    if (control->state() == Control::State::kBusy) failedControl_ = control->objectName();
  setFailedControl(Control::State::kFailed);
  say(failure);
}

void CardWindow::setContent(std::unique_ptr<QWidget> content) {
  const QWidget* focused = focusWidget();
  const QString focusedName = focused && focused != this ? focused->objectName() : QString();
  setFocus();
  if (content_) {  // it may be its own event that has led here
    content_->hide();
    content_->deleteLater();
  }
  content_ = content.release();
  if (content_) {
    content_->setParent(this);
    content_->show();
    watchControls();
    setFailedControl(Control::State::kFailed);
    // What does the same to the same activity: never a neighbour that only has the same word.
    auto* next = focusedName.isEmpty() ? nullptr : content_->findChild<QWidget*>(focusedName);
    if (next) next->setFocus();
    dim();
    fit();
    notice_->raise();
  }
  updateVisibility();
}

// The view that asks for an intent does so before its click is told here.
void CardWindow::watchControls() {
  for (Control* control : content_->findChildren<Control*>())
    connect(control, &Control::clicked, this, [this, control] {
      if (intentRuns_) control->setState(Control::State::kBusy);
    });
}

// Also in the next card: one is drawn as soon as an intent has ended.
void CardWindow::setFailedControl(Control::State state) {
  if (failedControl_.isEmpty() || !content_) return;
  if (auto* control = content_->findChild<Control*>(failedControl_)) control->setState(state);
}

void CardWindow::fit() {
  if (!content_) return;
  const QSize size = content_->sizeHint().expandedTo(content_->minimumSize());
  const int shift = anchor_ == Anchor::kTopCentre ? size.width() / 2 : 0;
  placedAt_ = inside(roomNear(anchorPoint_), anchorPoint_ - QPoint(shift, 0), size);
  content_->setGeometry(QRect({0, 0}, size));
  setFixedSize(size);
  move(placedAt_);
  cutOut();
}

// Without blending the transparent margin would be black: the window takes the card's shape.
void CardWindow::cutOut() {
  if (isBlended()) return clearMask();
  QImage card(size(), QImage::Format_ARGB32_Premultiplied);
  card.fill(Qt::transparent);
  content_->render(&card, {}, {}, DrawChildren);
  setMask(QBitmap::fromImage(card.createAlphaMask(Qt::ThresholdAlphaDither)));
}

void CardWindow::dim() {
  if (!content_) return;
  if (trouble_.isEmpty()) return content_->setGraphicsEffect(nullptr);
  auto* effect = new QGraphicsOpacityEffect;
  effect->setOpacity(kOutOfDateOpacity);
  content_->setGraphicsEffect(effect);
}

void CardWindow::updateVisibility() {
  setVisible(wanted_ && content_);
}

void CardWindow::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressedAt_ = event->position().toPoint();
  dragged_ = false;
}

void CardWindow::mouseMoveEvent(QMouseEvent* event) {
  if (!pressedAt_) return;
  const QPoint way = event->position().toPoint() - *pressedAt_;
  if (!dragged_ && way.manhattanLength() < QApplication::startDragDistance()) return;
  dragged_ = wasMoved_ = true;
  if (windowHandle()->startSystemMove()) {
    pressedAt_.reset();  // the window manager has the pointer now
  } else {
    move(pos() + way);
  }
}

void CardWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(pressedAt_, std::nullopt)) return;
  if (!dragged_) takeClick(event->position().toPoint());
}

void CardWindow::contextMenuEvent(QContextMenuEvent* event) {
  const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
  Q_EMIT menuAsked(byMouse ? event->globalPos() : mapToGlobal(rect().center()));
}

// What the menu key does, for keyboards without one.
void CardWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_F10 || event->modifiers() != Qt::ShiftModifier)
    return QWidget::keyPressEvent(event);
  Q_EMIT menuAsked(mapToGlobal(rect().center()));
}

// Only people's moves count, not where this window or the window manager puts it.
void CardWindow::moveEvent(QMoveEvent* event) {
  QWidget::moveEvent(event);
  if (!wasMoved_ || pos() == placedAt_) return;
  anchorPoint_ = pos() + QPoint(anchor_ == Anchor::kTopCentre ? width() / 2 : 0, 0);
  movedEnd_.start(kMoveSettles);
}

void CardWindow::showEvent(QShowEvent* event) {
  declareDesktopFixture(*this);
  QWidget::showEvent(event);
  const auto askWhenShown = [this] {
    if (isVisible()) askForDesktopFixture(*this);
  };
  QMetaObject::invokeMethod(this, askWhenShown, Qt::QueuedConnection);
}

void CardWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  Q_EMIT dismissed();
}

}  // namespace brevant

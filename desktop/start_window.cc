// SPDX-License-Identifier: MIT
#include "desktop/start_window.h"

#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/autostart.h"
#include "desktop/translate.h"
#include "desktop/tray.h"

namespace brevant {
namespace {

constexpr int kIconSize = 64;
constexpr int kTextWidth = 380;
constexpr int kMargin = 24;

QLabel* makeText(const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  label->setTextFormat(Qt::PlainText);
  label->setMinimumWidth(kTextWidth);
  return label;
}

QLabel* makeTitle(const QString& text) {
  QLabel* title = makeText(text);
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.5);
  font.setWeight(QFont::DemiBold);
  title->setFont(font);
  return title;
}

QLabel* makeIcon() {
  auto* icon = new QLabel;
  icon->setPixmap(programIcon().pixmap(kIconSize));
  return icon;
}

}  // namespace

StartWindow::StartWindow(const QString& container)
    : sample_(translate("Make a sample log")),
      choose_(translate("Choose a folder…")),
      atLogin_(translate("Start at login")) {
  setWindowTitle(translate("Welcome to Brevant"));
  setWindowIcon(programIcon());
  failure_.setWordWrap(true);
  failure_.setTextFormat(Qt::PlainText);
  failure_.hide();
  sample_.setDefault(true);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kMargin / 2);
  layout->addWidget(makeIcon());
  layout->addWidget(makeTitle(translate("There is no time log yet")));
  layout->addWidget(makeText(
      translate("No database.sqlite was found in %1. Make a sample log to try everything on, or "
                "choose the folder in which your time tracker keeps its log. This window closes by "
                "itself when a log appears.")
          .arg(QDir::toNativeSeparators(container))));
  layout->addWidget(&failure_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(&atLogin_);
  buttons->addStretch();
  buttons->addWidget(&choose_);
  buttons->addWidget(&sample_);
  layout->addLayout(buttons);

  connect(&sample_, &QPushButton::clicked, this, [this] {
    sample_.setEnabled(false);
    Q_EMIT sampleAsked();
  });
  atLogin_.setChecked(startsAtLogin());
  connect(&atLogin_, &QCheckBox::clicked, this, [this](bool wanted) {
    if (setStartsAtLogin(wanted)) return;
    atLogin_.setChecked(startsAtLogin());
    sayFailure(translate("The start at login could not be changed"));
  });
  connect(&choose_, &QPushButton::clicked, this, &StartWindow::folderAsked);
}

void StartWindow::sayFailure(const QString& why) {
  sample_.setEnabled(true);
  failure_.setText(why);
  failure_.show();
  // What wraps has no room of its own until the window gives it.
  layout()->activate();
  resize(width(), std::max(height(), layout()->totalHeightForWidth(width())));
}

// As in a dialog, which this is not: it stands alone.
void StartWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    auto* focused = qobject_cast<QPushButton*>(focusWidget());
    (focused ? focused : &sample_)->click();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void StartWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  Q_EMIT closed();
}

std::unique_ptr<QFileDialog> makeFolderDialog() {
  auto dialog = std::make_unique<QFileDialog>(nullptr, translate("Choose a folder…"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  dialog->setDirectory(QDir::homePath());  // not where the session was started from
  return dialog;
}

}  // namespace brevant

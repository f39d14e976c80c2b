// SPDX-License-Identifier: MIT
#include "desktop/widget_window.h"

#include "desktop/control.h"
#include "desktop/spoken.h"
#include "desktop/surface.h"
#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

namespace {

// Where there never was anything to draw, the card itself says why.
QJsonObject entrySaying(const QString& message) {
  const QJsonObject text{{u"view"_s, u"Text"_s}, {u"text"_s, message}};
  return {{u"name"_s, message},
          {u"views"_s, QJsonObject{{u"systemSmall"_s, text}, {u"systemMedium"_s, text}}}};
}

}  // namespace

WidgetWindow::WidgetWindow(WindowKind kind, const DrawingContext& drawing)
    : CardWindow(kind, Anchor::kTopLeft, drawing) {}

void WidgetWindow::showEntry(const QJsonObject& entry, const QString& trouble) {
  entry_ = entry;
  draw(entry);
  setTrouble(trouble);
}

void WidgetWindow::showPlaceholder(const QJsonObject& placeholder, const QString& trouble) {
  entry_ = entrySaying(trouble);
  draw(placeholder.isEmpty() ? entry_ : placeholder);
  for (Control* control : content()->findChildren<Control*>()) control->setEnabled(false);
  setTrouble(trouble);
}

void WidgetWindow::draw(const QJsonObject& entry) {
  const Surface surface = kind() == WindowKind::kSmall ? Surface::kSmall : Surface::kMedium;
  setContent(buildSurface(surface, entry, drawing()));
}

QString WidgetWindow::spokenText() const {
  return spokenEntry(entry_, drawing().now());
}

}  // namespace brevant

// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QSettings>
#include <QString>
#include <optional>

#include "desktop/window_kind.h"

namespace brevant {

// What people have chosen in this host, kept in a file from one start to the next. A file that is
// missing or unreadable means that nothing was chosen yet.
class Preferences {
 public:
  // `file`: normally defaultFile().
  explicit Preferences(const QString& file);
  [[nodiscard]] static QString defaultFile();

  // The folder that was chosen instead of the usual container; empty while none was.
  [[nodiscard]] QString container() const;
  void setContainer(const QString& folder);

  [[nodiscard]] bool isWanted(WindowKind kind) const;
  void setWanted(WindowKind kind, bool wanted);
  // Where the window was moved to.
  [[nodiscard]] std::optional<QPoint> position(WindowKind kind) const;
  void setPosition(WindowKind kind, QPoint position);

  [[nodiscard]] bool isOnTop() const;
  void setOnTop(bool onTop);

  // True the first time it is asked: what is worth saying once is said then.
  [[nodiscard]] bool tellOnceThatTrayIsMissing();

 private:
  QSettings settings_;
};

}  // namespace brevant

// SPDX-License-Identifier: MIT
#include "desktop/window_kind.h"

#include "desktop/translate.h"

namespace brevant {

using namespace Qt::Literals::StringLiterals;

QString wordOf(WindowKind kind) {
  switch (kind) {
    case WindowKind::kSmall:
      return u"small"_s;
    case WindowKind::kMedium:
      return u"medium"_s;
    case WindowKind::kLockScreen:
      return u"lock-screen"_s;
    case WindowKind::kIsland:
      return u"island"_s;
  }
  return {};
}

QString titleOf(WindowKind kind) {
  switch (kind) {
    case WindowKind::kSmall:
      return translate("Small widget");
    case WindowKind::kMedium:
      return translate("Medium widget");
    case WindowKind::kLockScreen:
      return translate("Live Activity banner");
    case WindowKind::kIsland:
      return translate("Dynamic Island");
  }
  return {};
}

}  // namespace brevant

#include "windows/accessible_roles.h"

#include <QAccessibleWidget>

#include "windows/aids/dice_panels.h"
#include "windows/board/park_markers.h"
#include "windows/boxes/message_box.h"
#include "windows/scorecard/card_view.h"
#include "windows/season/season_chart.h"
#include "windows/shared/controls.h"

namespace dtb {
namespace {

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr) return nullptr;
  if (qobject_cast<PictureBox*>(widget) != nullptr ||
      qobject_cast<SeasonChart*>(widget) != nullptr || qobject_cast<CardView*>(widget) != nullptr) {
    return new QAccessibleWidget(widget, QAccessible::Graphic);
  }
  if (qobject_cast<FaceDie*>(widget) != nullptr) {
    return new QAccessibleWidget(widget, QAccessible::StaticText);
  }
  if (qobject_cast<ParkMarker*>(widget) != nullptr) {
    return new QAccessibleWidget(widget, QAccessible::Grip);
  }
  if (qobject_cast<Panel*>(widget) != nullptr) {
    return new QAccessibleWidget(widget, QAccessible::Grouping);
  }
  if (qobject_cast<MessageBox*>(widget) != nullptr) {
    return new QAccessibleWidget(widget, QAccessible::AlertMessage);
  }
  return nullptr;
}

}  // namespace

void InstallAccessibleRoles() { QAccessible::installFactory(MakeInterface); }

}  // namespace dtb

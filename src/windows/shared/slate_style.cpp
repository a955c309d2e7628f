#include "windows/shared/slate_style.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <QTabBar>
#include <algorithm>
#include <cmath>

#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr int kScrollBarWidth = 12;
constexpr int kMarkSize = 16;  // check and option marks

bool Has(const QStyleOption* option, QStyle::StateFlag flag) {
  return option->state.testFlag(flag);
}

void DrawButton(QPainter& painter, const QStyleOption* option) {
  const bool enabled = Has(option, QStyle::State_Enabled);
  const bool pressed = Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On);
  const bool hover = enabled && Has(option, QStyle::State_MouseOver);
  QColor fill = kSlateRaised;
  if (hover) fill = kSlateHover;
  if (pressed) fill = QColor(14, 26, 20);
  // A button with a colour of its own keeps its hue.
  if (const QColor own = option->palette.color(QPalette::Button); own != kSlateRaised) {
    fill = own;
    if (hover) fill = own.lighter(115);
    if (pressed) fill = own.darker(130);
  }
  if (!enabled) fill = QColor(30, 46, 38);
  QColor edge = hover ? kCream : kEdgeBright;
  if (!enabled) edge = kEdge;
  DrawPlate(painter, option->rect, fill, edge, 1);
  if (Has(option, QStyle::State_HasFocus) && enabled) DrawFocus(painter, option->rect);
}

void DrawField(QPainter& painter, const QStyleOption* option) {
  const bool focus = Has(option, QStyle::State_HasFocus);
  DrawPlate(painter, option->rect, option->palette.color(QPalette::Base),
            focus ? kAccent : QColor(96, 116, 104), focus ? 2 : 1, 4);
}

// The largest square in the middle of the mark's place whose edges lie between pixels of the
// screen, whatever its density.
QRectF MarkRect(const QPainter& painter, const QStyleOption* option) {
  const QTransform& toScreen = painter.deviceTransform();
  const QRectF place = toScreen.mapRect(QRectF(option->rect));
  const double side = std::floor(std::min(place.width(), place.height()));
  const QRectF square(std::round(place.center().x() - side / 2),
                      std::round(place.center().y() - side / 2), side, side);
  return toScreen.inverted().mapRect(square);
}

// The edge of a mark in whole pixels of the screen.
double MarkEdgeWidth(const QPainter& painter, const QRectF& mark) {
  const double density = painter.deviceTransform().m11();
  return std::max(1.0, std::round(mark.width() * density / 10)) / density;
}

// The ink of the words beside a mark, so that it is seen on the same ground.
QColor MarkInk(const QStyleOption* option) { return option->palette.color(QPalette::WindowText); }

// Off, a mark is an empty outline; under the pointer it has a breath of its ink inside.
QColor EmptyMark(const QStyleOption* option) {
  constexpr int kBreath = 56;
  QColor inside = MarkInk(option);
  const bool hover = Has(option, QStyle::State_MouseOver) && Has(option, QStyle::State_Enabled);
  inside.setAlpha(hover ? kBreath : 0);
  return inside;
}

void DrawCheckMark(QPainter& painter, const QStyleOption* option) {
  const QRectF rect = MarkRect(painter, option);
  const QColor ink = MarkInk(option);
  const bool on = Has(option, QStyle::State_On);
  DrawPlate(painter, rect, on ? ink : EmptyMark(option), ink, MarkEdgeWidth(painter, rect),
            rect.width() / 6);
  if (!on) return;
  constexpr int kLightInk = 128;
  painter.setPen(QPen(ink.lightness() > kLightInk ? kSlate : QColor(Qt::white), rect.width() / 7,
                      Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const auto at = [&](double x, double y) {
    return QPointF(rect.left() + x * rect.width(), rect.top() + y * rect.height());
  };
  painter.drawPolyline(QPolygonF{at(0.24, 0.52), at(0.43, 0.72), at(0.77, 0.28)});
}

void DrawOptionMark(QPainter& painter, const QStyleOption* option) {
  const QRectF rect = MarkRect(painter, option);
  const double edge = MarkEdgeWidth(painter, rect);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(MarkInk(option), edge));
  painter.setBrush(EmptyMark(option));
  painter.drawEllipse(rect.adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2));
  if (!Has(option, QStyle::State_On)) return;
  painter.setPen(Qt::NoPen);
  painter.setBrush(MarkInk(option));
  const double inset = edge + rect.width() / 6;
  painter.drawEllipse(rect.adjusted(inset, inset, -inset, -inset));
}

// What the focus ring of a mark and its words may take at each side, with the space inside it: less
// where type and control are small.
int RingRoom(const QWidget* widget) {
  constexpr int kLowType = 16;
  const int type = widget != nullptr ? widget->fontMetrics().height() : kLowType;
  return type < kLowType ? 3 : 3 + type / 8;
}

// Points up where the column rises from small to large, down where it falls.
void DrawSortArrow(QPainter& painter, const QStyleOption* option) {
  const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
  // Qt's words for it go the other way round.
  const bool up = header != nullptr && header->sortIndicator == QStyleOptionHeader::SortDown;
  const QRectF place(option->rect);
  const double half = std::min(place.width(), place.height()) * 0.4;
  const QPointF middle = place.center();
  const double lean = up ? -half * 0.6 : half * 0.6;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kAccent);
  painter.drawPolygon(QPolygonF{middle + QPointF(-half, -lean), middle + QPointF(half, -lean),
                                middle + QPointF(0, lean)});
}

void DrawMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& item) {
  const bool selected = Has(&item, QStyle::State_Selected) && Has(&item, QStyle::State_Enabled);
  painter.fillRect(item.rect, selected ? kSlateHover : kSlate);
  painter.setPen(Has(&item, QStyle::State_Enabled) ? kCream : kDisabled);
  painter.drawText(item.rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine,
                   item.text);
  if (Has(&item, QStyle::State_HasFocus) && selected) DrawFocus(painter, item.rect, 2);
}

// A tab grows out of the page under it; the one in front has the colour of the page.
void DrawTab(QPainter& painter, const QStyleOption* option) {
  const bool front = Has(option, QStyle::State_Selected);
  const bool hover = Has(option, QStyle::State_MouseOver) && !front;
  const QRectF tab = QRectF(option->rect).adjusted(1, front ? 0 : 3, -1, 8);
  painter.setClipRect(option->rect);
  DrawPlate(painter, tab, front ? kSlate : (hover ? kSlateHover : kSlateRaised),
            front ? kEdgeBright : kEdge);
  if (front) painter.fillRect(QRectF(tab.left() + 8, tab.top() + 1, tab.width() - 16, 3), kAccent);
}

void DrawTabPage(QPainter& painter, const QStyleOption* option) {
  painter.fillRect(option->rect, kSlate);
  painter.setPen(kEdgeBright);
  painter.drawLine(option->rect.topLeft(), option->rect.topRight());
}

void DrawProgress(QPainter& painter, const QStyleOptionProgressBar& bar) {
  const double all = std::max(1, bar.maximum - bar.minimum);
  QRectF done = QRectF(bar.rect).adjusted(1, 1, -1, -1);
  done.setWidth(done.width() * (bar.progress - bar.minimum) / all);
  DrawPlate(painter, done, kAccent, Qt::transparent, 0, 3);
}

void DrawScrollBar(QPainter& painter, const QStyle& style, const QStyleOptionSlider& bar,
                   const QWidget* widget) {
  painter.fillRect(bar.rect, QColor(214, 210, 198));
  const QRect slider =
      style.subControlRect(QStyle::CC_ScrollBar, &bar, QStyle::SC_ScrollBarSlider, widget);
  const bool active = Has(&bar, QStyle::State_MouseOver) || Has(&bar, QStyle::State_Sunken);
  DrawPlate(painter, QRectF(slider).adjusted(2, 2, -2, -2), active ? kSlateHover : kEdgeBright,
            Qt::transparent, 0, 4);
}

// Mark, words, and the ring around both.
void DrawMarkedChoice(QPainter& painter, const SlateStyle& style, const QStyleOptionButton& button,
                      bool radio, const QWidget* widget) {
  QStyleOptionButton part = button;
  part.rect = style.subElementRect(
      radio ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator, &button, widget);
  if (radio) {
    DrawOptionMark(painter, &part);
  } else {
    DrawCheckMark(painter, &part);
  }
  part.rect = style.subElementRect(
      radio ? QStyle::SE_RadioButtonContents : QStyle::SE_CheckBoxContents, &button, widget);
  style.drawControl(radio ? QStyle::CE_RadioButtonLabel : QStyle::CE_CheckBoxLabel, &part, &painter,
                    widget);
  if (!Has(&button, QStyle::State_HasFocus)) return;
  DrawFocus(painter, style.subElementRect(
                         radio ? QStyle::SE_RadioButtonFocusRect : QStyle::SE_CheckBoxFocusRect,
                         &button, widget));
}

}  // namespace

SlateStyle::SlateStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void SlateStyle::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  const bool isPressed = qobject_cast<QAbstractButton*>(widget) != nullptr ||
                         qobject_cast<QTabBar*>(widget) != nullptr;
  if (isPressed && !widget->testAttribute(Qt::WA_SetCursor)) {
    widget->setCursor(Qt::PointingHandCursor);
  }
}

void SlateStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  painter->save();
  switch (element) {
    case PE_PanelButtonCommand:
      DrawButton(*painter, option);
      break;
    case PE_PanelLineEdit:
      // A field without a frame is part of something that draws its own ground.
      if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
          frame != nullptr && frame->lineWidth > 0) {
        DrawField(*painter, option);
      }
      break;
    case PE_FrameLineEdit:
    case PE_FrameStatusBarItem:
      break;
    case PE_FrameFocusRect:
      DrawFocus(*painter, QRectF(option->rect), 4);
      break;
    case PE_IndicatorHeaderArrow:
      DrawSortArrow(*painter, option);
      break;
    case PE_PanelMenuBar:
      painter->fillRect(option->rect, kSlate);
      break;
    case PE_FrameTabWidget:
      DrawTabPage(*painter, option);
      break;
    case PE_FrameTabBarBase:
      break;
    case PE_FrameMenu:
      DrawPlate(*painter, option->rect, Qt::transparent, kEdgeBright, 1, 0);
      break;
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  painter->restore();
}

void SlateStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  painter->save();
  if (element == CE_MenuBarItem) {
    if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option)) {
      DrawMenuBarItem(*painter, *item);
    }
  } else if (element == CE_MenuBarEmptyArea) {
    painter->fillRect(option->rect, kSlate);
  } else if (element == CE_HeaderEmptyArea) {
    painter->fillRect(option->rect, option->palette.color(QPalette::Base));
  } else if (element == CE_HeaderSection) {
    painter->fillRect(option->rect, kSlateRaised);
    painter->setPen(kEdgeBright);
    painter->drawLine(option->rect.topRight(), option->rect.bottomRight());
    painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
  } else if (element == CE_CheckBox || element == CE_RadioButton) {
    if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
      DrawMarkedChoice(*painter, *this, *button, element == CE_RadioButton, widget);
    }
  } else if (element == CE_TabBarTabShape) {
    DrawTab(*painter, option);
  } else if (element == CE_ProgressBarGroove) {
    DrawPlate(*painter, option->rect, QColor(14, 26, 20), kEdgeBright, 1, 4);
  } else if (element == CE_ProgressBarContents) {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option)) {
      DrawProgress(*painter, *bar);
    }
  } else {
    QProxyStyle::drawControl(element, option, painter, widget);
  }
  painter->restore();
}

void SlateStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ScrollBar && bar != nullptr) {
    painter->save();
    DrawScrollBar(*painter, *this, *bar, widget);
    painter->restore();
    return;
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect SlateStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
  const bool check = element == SE_CheckBoxFocusRect || element == SE_CheckBoxIndicator ||
                     element == SE_CheckBoxContents || element == SE_CheckBoxClickRect;
  const bool radio = element == SE_RadioButtonFocusRect || element == SE_RadioButtonIndicator ||
                     element == SE_RadioButtonContents || element == SE_RadioButtonClickRect;
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (!(check || radio) || button == nullptr) {
    return QProxyStyle::subElementRect(element, option, widget);
  }
  if (element == SE_CheckBoxClickRect || element == SE_RadioButtonClickRect) return option->rect;
  // The ring goes around mark and words together.
  const int words = button->fontMetrics.horizontalAdvance(button->text);
  const int all = words + pixelMetric(PM_IndicatorWidth, option, widget) +
                  pixelMetric(PM_CheckBoxLabelSpacing, option, widget);
  const int room = std::clamp((option->rect.width() - all) / 2, 0, RingRoom(widget));
  QStyleOptionButton inside = *button;
  inside.rect.adjust(room, 0, -room, 0);
  if (element != SE_CheckBoxFocusRect && element != SE_RadioButtonFocusRect) {
    return QProxyStyle::subElementRect(element, &inside, widget);
  }
  const int height = std::min(option->rect.height(), button->fontMetrics.height() + 2 * room);
  const QRect ring(0, 0, std::min(option->rect.width(), all + 2 * room), height);
  return visualRect(button->direction, option->rect,
                    ring.translated(option->rect.left(),
                                    option->rect.top() + (option->rect.height() - height) / 2));
}

QSize SlateStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
  const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
  if (type != CT_CheckBox && type != CT_RadioButton) return usual;
  return usual + QSize(2 * RingRoom(widget), 2 * RingRoom(widget));
}

int SlateStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
  switch (metric) {
    case PM_ScrollBarExtent:
      return kScrollBarWidth;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      // Marks follow the type, so that they keep pace with a scaled form.
      return widget != nullptr ? qMax(8, widget->fontMetrics().height() * 7 / 8) : kMarkSize;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
      return widget != nullptr ? qMax(3, widget->fontMetrics().height() / 3) : 6;
    case PM_HeaderMarkSize:
      return widget != nullptr ? widget->fontMetrics().height() * 2 / 3 : kMarkSize;
    case PM_TabBarTabHSpace:
      return 28;
    case PM_TabBarTabVSpace:
      return 16;
    case PM_TabBarTabShiftVertical:
    case PM_TabBarTabShiftHorizontal:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
      return 0;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int SlateStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returnData) const {
  if (hint == SH_Table_GridLineColor) return static_cast<int>(QColor(168, 174, 168).rgba());
  if (hint == SH_EtchDisabledText || hint == SH_UnderlineShortcut) return 0;
  return QProxyStyle::styleHint(hint, option, widget, returnData);
}

}  // namespace dtb

// Qt's own controls, drawn in the looks of the board.
#pragma once

#include <QProxyStyle>

namespace dtb {

// Flat plates for buttons, fields, marks, menus, tabs, headers, progress and scroll bars. Rest,
// hover, press, focus and disabled look different from each other.
class SlateStyle : public QProxyStyle {
  Q_OBJECT
 public:
  SlateStyle();

  // The hand of the pointer stands over whatever a press of the mouse sets off, buttons, marks,
  // labels and tabs, and nowhere else; what can be dragged has the open hand.
  void polish(QWidget* widget) override;
  using QProxyStyle::polish;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option,
                       const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returnData) const override;
};

}  // namespace dtb

// The tournament as a bracket: five columns of slots, each tied to the two it follows from.
#pragma once

#include <QWidget>
#include <vector>

#include "browser/browser.h"
#include "windows/shared/controls.h"

namespace dtb {

// A click on a slot, or Space or Enter, places the text of tb_Team in it.
class BracketView : public QWidget {
  Q_OBJECT
 public:
  BracketView(Browser& browser, QWidget* parent);

  // Type size in pixels.
  void SetType(double pixels);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void AddSlot(const std::string& key, Field<std::string>& text);
  [[nodiscard]] double Pitch() const;
  // The middle of a slot's height.
  [[nodiscard]] double MiddleOf(int round, int slot) const;
  [[nodiscard]] QRectF PlaceOf(int round, int slot) const;

  Browser& browser_;
  std::vector<ClickLabel*> slots_;  // round after round, from the top
};

}  // namespace dtb

// The controls that the board draws itself.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <functional>

#include "game/board.h"

namespace dtb {

// A floating plate of slate over the park; a lit one has a cream edge.
class Panel : public QWidget {
  Q_OBJECT
 public:
  explicit Panel(QWidget* parent);
  void SetLit(bool lit);
  void SetFill(const QColor& fill);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool lit_ = false;
  QColor fill_;
};

// A label that can be clicked: its ground changes under the pointer, its border shows while it is
// pressed, with whichever button. It does not take the focus from a text field when clicked, but
// can be reached by Tab.
class ClickLabel : public QAbstractButton {
  Q_OBJECT
 public:
  struct Shades {
    QColor rest;
    QColor hover;
    QColor text;
  };
  ClickLabel(const QString& caption, const Shades& shades, QWidget* parent);
  void SetShades(const Shades& shades);
  // The hint is shown, dimly, while the caption is "".
  void SetHint(const QString& hint);
  // How the hint is shown: dim, bright, as that of the next step, or for a moment the other way
  // round.
  enum class HintLight { Dim, Bright, Flash };
  void SetHintLight(HintLight light);
  // A second line under the caption, in small type.
  void SetFoot(const QString& foot);
  // A caption too long for the label is set in a smaller type of the look that fits, down to the
  // smallest before it is cut.
  void SetTextFits() { textFits_ = true; }
  // After a release the ground is that of rest until the pointer moves again.
  void SetRestsAfterRelease() { restsAfterRelease_ = true; }

 signals:
  void doubleClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void DrawHint(QPainter& painter, const QRect& inside) const;

  Shades shades_;
  QString hint_;
  HintLight hintLight_ = HintLight::Dim;
  QString foot_;
  bool textFits_ = false;
  bool lit_ = false;      // the pointer moved over it
  bool pressed_ = false;  // with any button of the mouse
  bool restsAfterRelease_ = false;
};

// Shows a picture, whole and in its proportions, or stretched over the whole box.
class PictureBox : public QWidget {
  Q_OBJECT
 public:
  enum class Fit { Whole, Stretched };
  PictureBox(Fit fit, QWidget* parent);
  void SetImage(const QImage& image);
  // A plate stands where no picture is.
  void SetPlateWhenEmpty() { plateWhenEmpty_ = true; }
  [[nodiscard]] bool empty() const { return image_.isNull(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  Fit fit_;
  bool plateWhenEmpty_ = false;
  QImage image_;
  QPixmap scaled_;  // for the present size; null: to be made
};

// The picture without the ground around it, from its corners on, where that has the colour of the
// panels. Any other picture comes back as it is.
[[nodiscard]] QImage WithoutSlate(const QImage& image);

// A picture that can be clicked.
class PictureButton : public QAbstractButton {
  Q_OBJECT
 public:
  explicit PictureButton(QWidget* parent);
  // A ground of the panels' colour around the picture lets the panel through.
  void SetImage(const QImage& image) { box_->SetImage(WithoutSlate(image)); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  PictureBox* box_;
};

// A text field with a fixed ground, for figures of the scoreboard.
class FigureField : public QLineEdit {
  Q_OBJECT
 public:
  explicit FigureField(QWidget* parent);
  void SetGround(const QColor& ground, const QColor& figures);
  // A marked field has a bar at its foot.
  void SetMark(bool on);
  // Texts too long for either of two fields are set in the next smaller type of the look that fits
  // both, so that they always have one size.
  void SetTextFits(FigureField* partner);
  // What becomes of a printable key in this field: a letter of its text, a key of the board, which
  // ends the visit, or nothing more, since the answer itself has dealt with it.
  enum class KeyUse { Text, Board, Done };
  void SetKeyUse(std::function<KeyUse(const QString& typed)> use) { keyUse_ = std::move(use); }

 signals:
  void focused();
  void returned();  // the focus came back after a box, a menu or another window
  // The person moved the caret or typed. A selected text counts as one that is still to be
  // replaced.
  void caretMoved(bool toStart);
  void marked();  // double click or Ctrl + Enter

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void FitText();
  [[nodiscard]] bool Fits(const QFont& font) const;
  void TellCaret();

  std::function<KeyUse(const QString& typed)> keyUse_;  // none: all are text
  bool mark_ = false;
  bool firstPress_ = false;
  FigureField* partner_ = nullptr;  // of one type size; none: the text need not fit
  bool fitting_ = false;
  int fullSize_ = 0;  // of the type, in pixels, before it was made to fit
};

// A name on slate, behind a word or none. Where it has no room the last name stands for it.
class NameLabel : public QLabel {
  Q_OBJECT
 public:
  explicit NameLabel(QWidget* parent, Qt::Alignment alignment);
  void SetName(const QString& lead, const QString& name);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void FitName();

  QString lead_;
  QString name_;
};

// A caption on slate.
QLabel* MakeCaption(const QString& text, QWidget* parent,
                    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter);

}  // namespace dtb

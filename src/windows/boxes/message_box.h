// The message boxes of the program: small plates over the window that the person works in.
#pragma once

#include <QEventLoop>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include "platform/platform.h"

namespace dtb {

// A box that holds the program until the person closes it: with Enter, Space or Esc, by a click
// anywhere, or by its close box. A question takes Yes and No only; Esc and the close box are a No.
// Its objectName is "CustMsgBox" for the confirmations of the game and "MsgBox" for all others.
class MessageBox : public QWidget {
  Q_OBJECT
 public:
  struct Content {
    QString message;
    QString title;  // none for the confirmations of the game
    BoxIcon icon = BoxIcon::None;
    BoxAlignment alignment = BoxAlignment::Centred;
    bool question = false;
    bool yesIsUsual = false;   // the button Yes has the focus at first
    QStringList answers = {};  // of a question that is no Yes or No; the last one closes the box
    int usual = 0;             // the place of the one that has the focus at first
  };

  // Shows the box over the window and waits. True for Yes, and for every way to close a box that
  // asks nothing. `scale` gives the size of the type, 1 at the reference size of the board. The box
  // is as large as its text needs; one that does not fit into the window, or that has no visible
  // window, is a window of its own.
  static bool Run(QWidget* window, const Content& content, double scale);
  // The same for a question with answers of its own: the place of the one that was chosen.
  static int RunChoice(QWidget* window, const Content& content, double scale);

  // The box that is open, if one is.
  [[nodiscard]] static MessageBox* Open();
  // How many have been opened up to now.
  [[nodiscard]] static int Opened();

  [[nodiscard]] QString message() const { return content_.message; }
  [[nodiscard]] bool question() const { return content_.question; }
  [[nodiscard]] const QStringList& answers() const { return content_.answers; }
  // The button with this caption; none where the box has no such answer.
  [[nodiscard]] QPushButton* ButtonOf(const QString& answer) const;
  // The place of the one that Enter gives.
  [[nodiscard]] int usualAnswer() const { return content_.usual; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  MessageBox(QWidget* window, const Content& content, double scale);

  void Build(double scale);
  void BuildButtons(double scale, QWidget* below);
  [[nodiscard]] int WidthOfAnswers(double scale) const;
  struct Answer {
    bool yes = false;
    int chosen = 0;
  };
  static Answer Wait(QWidget* window, const Content& content, double scale);
  void Choose(int answer);
  void StepThroughAnswers(int by);
  void AnswerWithFocus();
  void PlaceOverWindow();
  void Finish(bool answer);
  // Leaves the screen and gives the focus back.
  void GiveBack(QWidget* focus);
  [[nodiscard]] bool Confirmation() const { return content_.title.isEmpty(); }
  [[nodiscard]] bool Holds(const QObject* watched, const QEvent* event) const;
  bool FilterKey(QEvent* event);

  Content content_;
  QPointer<QWidget> window_;
  QEventLoop loop_;
  bool answer_ = false;
  int chosen_ = 0;  // of the answers of its own
};

// While it lives, boxes that ask nothing also close with this key: the one that brought them about.
class BoxKey {
 public:
  explicit BoxKey(int key);
  ~BoxKey();
  BoxKey(const BoxKey&) = delete;
  BoxKey& operator=(const BoxKey&) = delete;

 private:
  int outer_;
};

}  // namespace dtb

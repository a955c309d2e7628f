// Plays a table script as a person at the board would.
#pragma once

#include <QSize>
#include <QStringList>
#include <map>

#include "replay/driver.h"
#include "replay/play_table.h"

namespace dtb::replay {

// Lines are taken apart into single gestures. A box is closed at once; only a picture, or a gesture
// at the box itself, comes before that.
class Player : public Driver {
 public:
  struct Options {
    bool show = false;
    QString pictures;  // folder of the pictures; "": none are kept
    QSize screen;
    QString database;         // that takes the game; "": one of its own
    bool keys = false;        // outcomes by the keyboard
    bool undo = false;        // at the end of the script all of it is taken back and done again
    qsizetype killEvery = 0;  // so many lines; 0: never
    qsizetype from = 0;       // the line with which to begin
    bool save = false;        // the game, at the end of the script: it settles the last pitchers
    bool dump = false;        // the state at the end, on the output
    bool proofRight = false;  // the proof puts right what it can
  };

  // Files that the script names are looked for beside it.
  Player(PlayTable& table, const QString& script, const Options& options);
  [[nodiscard]] qsizetype lines() const { return scriptLines_; }

  // The file in the table's folder that names the line after the one that killed the program.
  static constexpr const char* kNextLine = "next-line";

 protected:
  void MakeGesture() override;
  bool Answer(MessageBox& box) override;
  [[nodiscard]] QString AnswerTo(const MessageBox& box);
  void Refuse(const QString& reason) override;

 private:
  void TakeLine();
  void RequireForm(const QString& line) const;
  [[nodiscard]] QStringList GesturesOf(const QString& line) const;
  [[nodiscard]] QStringList GesturesOfSwap(Side side, const QString& players) const;
  [[nodiscard]] QStringList GesturesOfSteal(const std::string& name) const;
  // The control of the game piece with the name.
  [[nodiscard]] QString PieceOf(const std::string& name) const;
  // The gesture that frees a piece for the next batter; "" where one is free.
  [[nodiscard]] QString Tidying();
  [[nodiscard]] bool StealsLater(const std::string& name) const;
  [[nodiscard]] bool NextLineIsFor(const MessageBox& box) const;
  void Perform(const QString& gesture);
  bool UseKeys(const QString& verb, const QString& gesture);
  // Beside the script, else in the table's folder; with "*" the last one there of that pattern.
  [[nodiscard]] QString FileToChoose(const QString& name) const;
  bool NoteAnswer(const QString& verb, const QString& gesture);
  void Tick(int periods);
  bool UseMouse(QString verb, const QString& gesture);
  // "NAME = VALUE", as DUMP shows it; "NAME =" is what DUMP leaves out.
  void RequireState(const QString& expectation) const;
  void Dump();
  void NoteStates();
  void Kill();
  void KeepPicture(const QString& name) const;

  PlayTable& table_;
  Board& board_;
  QString script_;
  Options options_;
  QStringList lines_;
  qsizetype scriptLines_ = 0;
  qsizetype next_ = 0;     // line to be played next
  QStringList gestures_;   // what is left of the present line
  bool goesBack_ = false;  // the script is played, and its steps are taken back
  QStringList answers_;    // to the next questions
  QString proofAnswer_;    // to the next list of the proof; "": as it stands
  QStringList messages_;   // of the boxes since the last dump
  QPointer<MessageBox> seen_;
  QString key_;  // the outcome key pressed last; "" after another gesture
  std::map<std::size_t, std::string> states_;  // the game after so many steps
  int half_ = 0;
  int clock_ = 0;
  std::map<std::string, int> players_;  // on the pieces; the larger, the later he came on
};

}  // namespace dtb::replay

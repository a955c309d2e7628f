// Plays a table script as a person at the board would.
#pragma once

#include <QSize>
#include <QStringList>
#include <array>

#include "replay/driver.h"
#include "replay/play_table.h"

namespace dtb::replay {

// Lines are taken apart into single gestures, so that the whole player knows but one kind. Boxes
// are closed at once; only a picture, or a gesture at the box itself, comes before that.
class Player : public Driver {
 public:
  struct Options {
    bool show = false;
    QString pictures;  // folder of the pictures; "": none are kept
    QSize screen;
    bool save = false;  // the game, at the end of the script: it settles the last pitchers
  };

  // The script's file; chosen files are looked for beside it.
  Player(PlayTable& table, const QString& script, const Options& options);

  [[nodiscard]] int lines() const { return static_cast<int>(lines_.size()); }

 protected:
  void MakeGesture() override;
  bool Answer(MessageBox& box) override;
  void Refuse(const QString& reason) override;

 private:
  struct Man {
    std::string name;
    int since = 0;  // the larger, the later he came on
  };

  bool TakeLine();
  [[nodiscard]] QStringList GesturesOf(const QString& line);
  [[nodiscard]] QStringList SwapGestures(const QString& side, const QString& players);
  [[nodiscard]] bool NextLineIsFor(const MessageBox& box) const;
  void Perform(const QString& gesture);
  void WatchPieces();
  // The gesture that frees a piece for the next batter; "" where one is free.
  [[nodiscard]] QString Tidying() const;
  [[nodiscard]] bool StealsLater(const std::string& name) const;
  void Choose(const QString& file);
  void Dump();
  void Tick(int periods);
  void KeepPicture(const QString& name);

  PlayTable& table_;
  Board& board_;
  QString script_;
  Options options_;
  QStringList lines_;
  qsizetype next_ = 0;    // line to be played next
  QStringList gestures_;  // what is left of the present line
  QStringList answers_;   // to the next questions
  QStringList messages_;  // of the boxes since the last dump
  QPointer<MessageBox> seen_;
  int half_ = 0;
  int clock_ = 0;
  std::array<Man, kPieces> men_;
};

}  // namespace dtb::replay

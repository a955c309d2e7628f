// The window "The day": the real games of a date as a day's programme.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <vector>

#include "archive/kept_season.h"
#include "real/day_programme.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// The games of a day with what was played of them, and the standings of both worlds in the evening.
// Created for each opening.
class DayWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens the window over another, reads the archive of the season in use if that was not read yet,
  // and waits until the person has closed it or a game's teams are on the board. What is missing is
  // told, and the person is offered to choose an archive. Throws ProgramError where the database
  // cannot be read.
  static void Run(Board& board, archive::KeptSeason& kept, QWidget* over);

  DayWindow(Board& board, archive::KeptSeason& kept, QWidget* parent);
  ~DayWindow() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void BuildDays(QVBoxLayout* column);
  void BuildTables(QVBoxLayout* column);
  void BuildButtons(QVBoxLayout* column);

  void ShowDay(int day);
  void Play(int row);
  void CopyDay();

  Board& board_;
  archive::KeptSeason& kept_;
  real::BothWorlds worlds_;
  real::ArchiveIds ids_;
  real::DayProgramme programme_;
  real::BothStandings both_;
  StatGrid games_{1, 1};
  StatGrid standings_{1, 1};
  QWidget* inside_;
  QPushButton* before_ = nullptr;
  QPushButton* after_ = nullptr;
  QPushButton* next_ = nullptr;
  QPushButton* play_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* close_ = nullptr;
  QLabel* title_ = nullptr;
  QLabel* told_ = nullptr;
  QLabel* note_ = nullptr;
  StatGridView* gamesView_ = nullptr;
  StatGridView* standingsView_ = nullptr;
};

}  // namespace dtb

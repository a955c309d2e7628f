// The window in which teams are made of a real season.
#pragma once

#include <QBoxLayout>
#include <QButtonGroup>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "archive/archive_desk.h"
#include "base/control_resizer.h"
#include "real/use.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// Created for each opening.
class ArchiveWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens the window over another, reads the archive of the last run if there is one, and waits
  // until the person has closed it.
  static void Run(Board& board, archive::KeptSeason& kept, QWidget* over);

  ArchiveWindow(Board& board, archive::KeptSeason& kept, QWidget* parent);
  ~ArchiveWindow() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildArchive(QVBoxLayout* whole);
  void BuildTables(QVBoxLayout* whole);
  void BuildForms(QVBoxLayout* whole);
  void BuildButtons(QVBoxLayout* whole);

  // A button that shows one of the nines of the season, and is marked while it is shown.
  void AddNine(QBoxLayout* strip, const char* name, const char* caption, const char* tip,
               archive::SeasonNine nine);
  QLabel* AddText(QBoxLayout* place, const char* name, Field<std::string>& text);
  StatGridView* AddGrid(QBoxLayout* place, const char* name, const char* accessibleName,
                        StatGrid& grid);
  // Calls the function with the grid's row when another one is chosen, by mouse or keys.
  void OnRow(StatGridView* grid, void (*select)(archive::ArchiveDesk&, int));

  void Read(const std::optional<std::filesystem::path>& archive);
  void Finish(bool loaded);
  // Puts the marks of the lists where the choice is.
  void MarkChoice();
  // Gives the focus to what comes next: the next game of the club that was chosen, else the teams.
  void FocusNext();

  // "over" of a player who has had more than his real use; read once.
  std::string UseOf(const std::string& team, const std::string& player);

  archive::SeasonState state_;
  archive::ArchiveDesk desk_;
  std::optional<real::UseMarks> marks_;
  std::shared_ptr<const archive::Season> marksOf_;
  ControlResizer resizer_;
  QWidget* inside_;
  StatGridView* teams_ = nullptr;
  StatGridView* games_ = nullptr;
  QPushButton* next_ = nullptr;
  std::vector<StatGridView*> grids_;
  std::vector<QLabel*> titles_;
  std::vector<QLabel*> notes_;  // in small type
};

}  // namespace dtb

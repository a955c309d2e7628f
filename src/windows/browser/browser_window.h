// The database browser.
#pragma once

#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>
#include <map>
#include <vector>

#include "archive/kept_season.h"
#include "base/control_resizer.h"
#include "browser/opening.h"
#include "record/game_record.h"
#include "windows/boxes/busy.h"
#include "windows/browser/bracket_view.h"
#include "windows/browser/no_match.h"
#include "windows/season/season_tab.h"
#include "windows/shared/hand_over.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// Created for each opening.
class BrowserWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens the browser over a window and waits until the person has closed it.
  // `kept`: the archive that was read in this run.
  static void Run(Platform& platform, archive::KeptSeason& kept, QWidget* over);

  BrowserWindow(Platform& platform, archive::KeptSeason& kept, QWidget* parent);
  ~BrowserWindow() override;
  [[nodiscard]] const BrowserState& state() const { return state_; }
  [[nodiscard]] const SeasonTab& season() const { return *season_; }

  // All tables are there, and what was wrong with the database is told.
  [[nodiscard]] bool Settled() const { return settled_ && !season_->reading(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Search {
    Query query;
    const char* box;   // none: a button alone
    const char* hint;  // what the box takes
  };
  struct Typed {
    QWidget* widget;
    double size;
    bool bold;
  };
  struct SizedGrid {
    StatGridView* view;
    double size;
  };
  using GridField = BrowserGrid BrowserState::*;

  void BuildLineScores();
  void BuildSavedTwice(QVBoxLayout* page);
  void BuildStatTab(const char* caption, const char* gridName, GridField grid,
                    const std::vector<Search>& searches, const char* noteName = nullptr);
  void BuildWinLoss();
  void BuildGameStats();
  void SizeLineScore();
  // The game that the tab shows; nothing where it is gone, which is told.
  std::optional<GameRecord> ShownGame();
  void AddTeamHeading(const char* name, int row, QGridLayout* places, int place);
  void BuildTournament();
  void BuildSeason();

  // Shows what was read meanwhile; the pointer is busy while the tab in front lacks a table.
  void ShowTables();
  // Does so, and tells what was wrong once nothing is left to read.
  void Settle();
  // Runs an operation that the person started: the pointer is busy, and what it fails with is told.
  void Do(const std::function<void()>& operation);
  // Waits for the tables of the tab in front, or for all, and then does so.
  void WithTab(const std::function<void()>& operation);
  void WithAll(const std::function<void()>& operation);

  void RunSearch(Query which);
  void BringBack();
  void SendTablesToExcel();
  void SendGridsToExcel();

  // A tab's inside, one below the other.
  QVBoxLayout* AddTab(const char* caption);
  QHBoxLayout* AddStrip(QVBoxLayout* page);
  void AddSearches(QHBoxLayout* strip, const std::vector<Search>& searches);
  StatGridView* AddGrid(const char* name, const char* accessibleName, GridField grid,
                        double typeSize);

  BrowserState state_;
  Browser browser_;
  archive::KeptSeason& kept_;
  HandOver handOver_;
  Opening opening_;
  bool settled_ = false;
  std::optional<BusyPointer> busy_;
  ControlResizer resizer_;
  QTabWidget* SSTab1_;
  StatGridView* lineScore_ = nullptr;  // of one game
  QLineEdit* team_ = nullptr;          // the text that goes into the bracket
  BracketView* bracket_ = nullptr;
  SeasonTab* season_ = nullptr;
  std::vector<Typed> typed_;  // all others have the form's own type
  std::vector<SizedGrid> grids_;
  std::map<const BrowserGrid*, NoMatch*> noMatch_;
  std::optional<std::filesystem::path> workbook_;  // in which the person wants to go on
};

}  // namespace dtb

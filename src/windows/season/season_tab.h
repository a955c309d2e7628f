// The season of the saved games: standings, leaders, one team or player, and scores.
#pragma once

#include <QAbstractButton>
#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <thread>

#include "browser/browser.h"
#include "season/season_splits.h"
#include "windows/browser/no_match.h"
#include "windows/season/real_view.h"
#include "windows/season/season_games_chart.h"
#include "windows/season/season_leader_board.h"
#include "windows/season/season_score_charts.h"
#include "windows/season/standings_view.h"
#include "windows/shared/hand_over.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// Shows the browser's season as soon as that is read. A team or a player is read by a thread of its
// own, when he is chosen.
class SeasonTab : public QWidget {
  Q_OBJECT
 public:
  // `kept`: the archive that was read in this run.
  SeasonTab(Browser& browser, archive::KeptSeason& kept);
  ~SeasonTab() override;

  // 1: layout units are pixels.
  void SetScale(double scale);

  // Its tables.
  [[nodiscard]] const StatGrid& standings() const { return standings_->grid(); }
  [[nodiscard]] const StatGrid& names() const { return namesGrid_; }
  [[nodiscard]] const StatGrid& months() const { return monthsGrid_; }

  // A team or a player is chosen and not shown yet.
  [[nodiscard]] bool reading() const { return shown_ != asked_ || real_->reading(); }
  [[nodiscard]] const RealView& real() const { return *real_; }

 signals:
  void gameWanted(const QString& id, const QString& visitors, const QString& home);
  void pagesWanted();

 private:
  struct Listed {
    int team = 0;
    int player = -1;  // none: the whole team
  };

  void BuildStrip(QBoxLayout* whole);
  QWidget* BuildLeaders();
  QWidget* BuildGames();
  QBoxLayout* BuildChosen();
  void BuildSplits(QBoxLayout* place);
  QWidget* BuildScores();

  // Shows another reading of the season. Who was chosen in the one before stays so by name, and is
  // let go where that name is gone.
  void ShowSeason(std::shared_ptr<const SeasonFigures> season);
  void ShowLeaders();
  void ShowScores();
  void ListNames();
  void ChoosePlayer(int player, SeasonRole role);
  void ChooseListed(int row);
  // Chooses a team or a player, or nobody.
  void Choose(const std::optional<SeasonSubject>& subject);
  void ShowChosenInList();
  // Reads and shows who is chosen, in the role that is chosen.
  void ReadChosen();
  // Says who is chosen, a team with its record beside the real one.
  void TellChosen();
  void ShowSplit();
  void TellGame(const SeasonGame& game, const SeasonFigures& season);

  // One reading of the season, and all that holds good in it alone.
  struct Reading {
    std::shared_ptr<const SeasonFigures> season;  // none: nothing is read yet
    std::vector<Listed> listed = {};              // the rows of namesGrid_ from 1 on
    std::optional<SeasonSubject> chosen = {};
  };

  Browser& browser_;
  Reading now_;
  SeasonRole role_ = SeasonRole::Batting;  // asked for last
  StatGrid namesGrid_{1, 1};
  StatGrid monthsGrid_{1, 1};
  SeasonSplit split_ = SeasonSplit::Months;  // asked for last
  // What was read of the chosen one.
  std::vector<SeasonOuting> outings_;
  std::vector<SplitLine> duels_;
  int asked_ = 0;  // readings of a team or a player so far
  int shown_ = 0;  // the last of them that ended

  QStackedWidget* views_;
  std::vector<QPushButton*> switches_;
  StandingsView* standings_ = nullptr;
  std::vector<SeasonLeaderBoard*> boards_;
  QCheckBox* qualified_ = nullptr;
  QLabel* rule_ = nullptr;
  QLineEdit* search_ = nullptr;
  StatGridView* names_ = nullptr;
  NoMatch* noName_ = nullptr;
  QLabel* who_ = nullptr;
  QPushButton* batting_ = nullptr;
  QPushButton* pitching_ = nullptr;
  SeasonGamesChart* games_ = nullptr;
  StatGridView* months_ = nullptr;
  QLabel* sums_ = nullptr;
  SeasonBars* runs_ = nullptr;
  SeasonBars* runsByMonth_ = nullptr;
  SeasonFinals* finals_ = nullptr;
  RealView* real_ = nullptr;
  QLabel* note_ = nullptr;  // what is to be known of all of it
  HandOver handOver_;
  std::jthread reading_;  // the last of the logic's members, so that the others outlive it
};

}  // namespace dtb

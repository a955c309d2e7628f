// "Real and replayed": the season on the board beside the real one of its archive.
#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <thread>

#include "archive/kept_season.h"
#include "browser/browser.h"
#include "real/both_players.h"
#include "real/team_games.h"
#include "real/use.h"
#include "windows/season/real_charts.h"
#include "windows/season/use_table.h"
#include "windows/shared/hand_over.h"

namespace dtb {

// Reads the archive once it is shown, if the program has not read it yet, and says where it is
// gone. A thread of its own reads what the season's figures lack, and shows nothing itself.
class RealView : public QWidget {
  Q_OBJECT
 public:
  RealView(Browser& browser, archive::KeptSeason& kept);
  ~RealView() override;

  // The season in use is tied to an archive.
  [[nodiscard]] static bool HasArchive(const Browser& browser);

  // Another reading of the saved games. The team that is chosen stays so by name.
  void SetSeason(std::shared_ptr<const SeasonFigures> season);
  // The person looks at it from now on: reads what is missing.
  void Open();
  void SetScale(double scale);

  // Is busy with the saved games.
  [[nodiscard]] bool reading() const { return read_ != asked_; }
  // "37 of 162: 20-17, really 22-15" of a team of the season; "" as long as that is not known.
  [[nodiscard]] QString HeadlineOf(int team) const;

  // Its tables.
  [[nodiscard]] const StatGrid& standings() const { return standingsGrid_; }
  [[nodiscard]] const StatGrid& games() const { return gamesGrid_; }
  [[nodiscard]] const StatGrid& batters() const { return battersGrid_; }
  [[nodiscard]] const StatGrid& pitchers() const { return pitchersGrid_; }

 signals:
  void gameWanted(const QString& id, const QString& visitors, const QString& home);
  // Both worlds have been read, or read again.
  void worldsRead();

 private:
  QWidget* BuildMissing();
  QWidget* BuildWorlds();
  QWidget* BuildStandings();
  QWidget* BuildGames();
  QWidget* BuildLeaders();
  QWidget* BuildUse();

  void TellMissing(const QString& why);
  void ReadArchive(const std::optional<std::filesystem::path>& archive);
  // Reads of the saved games what the season's figures lack, and shows both worlds.
  void ReadSaved();
  void ShowWorlds();
  void ShowMoment();
  void ShowTeam();
  // In a row of both standings, the first is 0.
  [[nodiscard]] std::string TeamAt(std::size_t row) const;
  void ChooseTeam(int row, const StatGridView* grid);

  Browser& browser_;
  archive::KeptSeason& kept_;
  std::shared_ptr<const SeasonFigures> season_;
  // Both worlds; none: not read yet.
  std::optional<real::BothWorlds> worlds_;
  real::StartsOfPitchers starts_;
  real::ArchiveIds ids_;
  real::Moment moment_;
  std::shared_ptr<const real::BothStandings> both_;
  std::vector<real::BothPlayer> players_;
  std::vector<real::TeamGame> listed_;  // the rows of gamesGrid_
  std::vector<int> teams_;              // the rows of teamsGrid_
  std::string team_;                    // the chosen one
  StatGrid standingsGrid_{1, 1};
  StatGrid teamsGrid_{1, 1};
  StatGrid gamesGrid_{1, 1};
  StatGrid battersGrid_{1, 1};
  StatGrid pitchersGrid_{1, 1};
  bool open_ = false;
  int asked_ = 0;
  int read_ = 0;

  QStackedWidget* whole_;
  QStackedWidget* pages_ = nullptr;
  QLabel* why_ = nullptr;
  QPushButton* again_ = nullptr;
  StatGridView* standings_ = nullptr;
  StatGridView* list_ = nullptr;
  StatGridView* games_ = nullptr;
  UseTable* batters_ = nullptr;
  UseTable* pitchers_ = nullptr;
  RealCourseChart* course_ = nullptr;
  RealCourseChart* teamCourse_ = nullptr;
  std::vector<RealLeadersChart*> boards_;
  QLabel* headline_ = nullptr;
  QLabel* note_ = nullptr;
  QLabel* useNote_ = nullptr;
  HandOver handOver_;
  std::jthread reader_;  // the last of the logic's members, so that the others outlive it
};

}  // namespace dtb

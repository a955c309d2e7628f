// The standings of a season: each team's course as a picture, and the table beside it.
#pragma once

#include <QPushButton>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "season/season_standings.h"
#include "windows/season/season_course_chart.h"
#include "windows/shared/stat_grid_view.h"

namespace dtb {

// A click on a team makes its line stand out, and one on the name of a group lights the lines of
// that group alone; a second click takes that back. With more teams than the picture has colours
// the first group is lit from the start.
class StandingsView : public QWidget {
  Q_OBJECT
 public:
  explicit StandingsView(const Platform& platform);
  ~StandingsView() override;

  // Another reading of the season. What was chosen in the one before stays so by name.
  void ShowSeason(std::shared_ptr<const SeasonFigures> season);

  // 1: layout units are pixels.
  void SetScale(double scale);

  [[nodiscard]] const StatGrid& grid() const { return grid_; }

 signals:
  // A game of the season that the picture shows.
  void gameChosen(const SeasonGame& game, const SeasonFigures& season);

 private:
  // What a row of the table stands for.
  struct Line {
    int group = 0;
    int place = -1;  // in its group; -1: the name of the group
  };

  void Show();
  void FillGrid();
  void Click(int row);
  void EditGroups();
  [[nodiscard]] int TeamOf(const Line& line) const;

  const Platform& platform_;
  std::shared_ptr<const SeasonFigures> season_;
  std::vector<GroupStandings> groups_;
  std::vector<Line> lines_;  // of the rows from 1 on
  StatGrid grid_{1, 1};
  std::string team_;                  // whose line stands out; "": none
  std::optional<std::string> group_;  // whose lines are lit; none: of all
  bool groupsChosen_ = false;         // the person has lit a group, or all
  QWidget* inside_;
  SeasonCourseChart* courses_;
  StatGridView* standings_;
  QPushButton* edit_;
};

}  // namespace dtb

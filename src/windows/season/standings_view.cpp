#include "windows/season/standings_view.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <functional>

#include "browser/grid_format.h"
#include "platform/qt/qt_text.h"
#include "windows/season/groups_window.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

constexpr int kSampleTwips = 620;  // of a line before a team's name

// The name of a team behind a piece of its line, or the name of a group. `placeOf` tells of a row
// the place of its team in the group; below 0: it names a group.
class TeamDelegate : public QStyledItemDelegate {
 public:
  TeamDelegate(std::function<int(int)> placeOf, QObject* parent)
      : QStyledItemDelegate(parent), placeOf_(std::move(placeOf)) {}

 protected:
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem rest = option;
    const int place = placeOf_(index.row());
    if (place < 0) {
      rest.font.setBold(true);
      return QStyledItemDelegate::paint(painter, rest, index);
    }
    const int room = option.fontMetrics.height() * 5 / 2;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    painter->fillRect(option.rect, selected ? option.palette.highlight()
                                            : index.data(Qt::BackgroundRole).value<QColor>());
    const QRectF plate =
        QRectF(option.rect.left() + 3, option.rect.top() + 2, room - 5, option.rect.height() - 4);
    painter->save();
    DrawPlate(*painter, plate, kChartGround, Qt::transparent, 0, 2);
    painter->setPen(LinePen(LineLookOf(place), option.fontMetrics.height() / 12.0));
    painter->drawLine(QPointF(plate.left() + 2, plate.center().y()),
                      QPointF(plate.right() - 2, plate.center().y()));
    painter->restore();
    rest.rect.setLeft(option.rect.left() + room);
    QStyledItemDelegate::paint(painter, rest, index);
  }

 private:
  std::function<int(int)> placeOf_;
};

}  // namespace

StandingsView::StandingsView(const Platform& platform)
    : platform_(platform), inside_(new QWidget(this)) {
  auto* around = new QHBoxLayout(this);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(inside_);
  auto* sides = new QHBoxLayout(inside_);
  sides->setContentsMargins(0, 0, 0, 0);
  sides->setSpacing(12);
  courses_ = new SeasonCourseChart;
  sides->addWidget(courses_, 5);
  connect(courses_, &SeasonCourseChart::gameChosen, this, &StandingsView::gameChosen);
  auto* right = new QVBoxLayout;
  right->setSpacing(8);
  sides->addLayout(right, 3);
  standings_ = new StatGridView(grid_, nullptr);
  Name(standings_, "grd_Standings", QStringLiteral("Standings of the season"));
  standings_->ShowAsResult();
  standings_->StretchAllColumns();
  standings_->setSelectionBehavior(QTableView::SelectRows);
  standings_->setItemDelegateForColumn(
      1,
      new TeamDelegate([this](int row) { return lines_.at(static_cast<std::size_t>(row)).place; },
                       standings_));
  connect(standings_, &StatGridView::cellClicked, this, [this](int row, int /*column*/) {
    if (row >= 1 && row <= static_cast<int>(lines_.size())) Click(row);
  });
  right->addWidget(standings_, 1);
  edit_ =
      MakeButton("cmd_Groups", QStringLiteral("Groups of teams..."),
                 QStringLiteral("Leagues and divisions, each with standings of its own"), inside_);
  edit_->setEnabled(false);
  right->addWidget(edit_, 0, Qt::AlignRight);
  connect(edit_, &QPushButton::clicked, this, &StandingsView::EditGroups);
}

// The views go before the grid that they show.
StandingsView::~StandingsView() { delete inside_; }

int StandingsView::TeamOf(const Line& line) const {
  const auto& standings = groups_.at(static_cast<std::size_t>(line.group)).standings;
  return standings.at(static_cast<std::size_t>(line.place)).team;
}

void StandingsView::ShowSeason(std::shared_ptr<const SeasonFigures> season) {
  season_ = std::move(season);
  Show();
}

void StandingsView::Show() {
  groups_ = StandingsByGroup(*season_, GroupsOfSeason(platform_));
  edit_->setEnabled(!season_->teams.empty());
  std::size_t teams = 0;
  for (const GroupStandings& group : groups_) teams += group.standings.size();
  if (!groupsChosen_) {
    group_.reset();
    if (groups_.size() > 1 && teams > kLineColours) group_ = groups_.front().name;
  }
  FillGrid();
  const auto lit = std::ranges::find_if(
      groups_, [this](const GroupStandings& group) { return group_ && group.name == *group_; });
  if (lit == groups_.end()) group_.reset();
  const auto team = std::ranges::find(season_->teams, team_, &SeasonTeam::name);
  const bool found = !team_.empty() && team != season_->teams.end();
  if (!found) team_.clear();
  courses_->SetSeason(season_, groups_,
                      group_ ? static_cast<int>(lit - groups_.begin()) : kAllGroups,
                      found ? static_cast<int>(team - season_->teams.begin()) : -1);
}

void StandingsView::FillGrid() {
  lines_.clear();
  std::vector<std::vector<std::string>> rows{StandingsHeader()};
  int current = 0;
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    const auto& [name, standings] = groups_[group];
    const int number = static_cast<int>(group);
    if (!name.empty()) {
      rows.emplace_back(rows.front().size()).front() = name;
      lines_.push_back({number});
      if (team_.empty() && group_ == name) current = static_cast<int>(lines_.size());
    }
    int place = 0;
    for (auto& line : StandingsLines(*season_, standings)) {
      lines_.push_back({number, place++});
      if (line.front() == team_) current = static_cast<int>(lines_.size());
      rows.push_back(std::move(line));
    }
  }
  StatGrid grid = GridOf(rows);
  grid.SetColumnWidth(1, grid.ColumnAt(1).width + kSampleTwips);
  grid_.Take(std::move(grid));
  if (current > 0) standings_->SetCurrentCell(current, 1);
}

void StandingsView::Click(int row) {
  const Line line = lines_[static_cast<std::size_t>(row) - 1];
  const GroupStandings& group = groups_[static_cast<std::size_t>(line.group)];
  bool again = false;
  if (line.place < 0) {
    again = group_ == group.name && team_.empty();
    groupsChosen_ = true;
    group_ = again ? std::nullopt : std::optional(group.name);
    team_.clear();
  } else {
    const std::string& team = season_->teams[static_cast<std::size_t>(TeamOf(line))].name;
    again = team_ == team;
    team_ = again ? std::string() : team;
    // Its group is what it is seen among.
    if (group_) group_ = group.name;
  }
  Show();
  if (again) standings_->clearSelection();
}

void StandingsView::EditGroups() {
  std::vector<std::string> teams;
  for (const SeasonTeam& team : season_->teams) teams.push_back(team.name);
  if (!GroupsWindow::Run(platform_, teams, this)) return;
  groupsChosen_ = false;
  Show();
}

void StandingsView::SetScale(double scale) {
  courses_->SetType(kBody * scale);
  standings_->SetScale(kBody * scale, kTwip * scale);
}

}  // namespace dtb

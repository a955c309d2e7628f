#include "windows/season/season_leader_board.h"

#include <QPainter>
#include <algorithm>

#include "windows/shared/bind.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

using namespace look;

std::string ObjectName(SeasonLead lead) {
  return "pic_Leaders" + std::to_string(static_cast<int>(lead));
}

}  // namespace

SeasonLeaderBoard::SeasonLeaderBoard(SeasonLead lead)
    : SeasonChart(ObjectName(lead).c_str(), QString::fromLatin1(LeadTitle(lead))), lead_(lead) {}

QString SeasonLeaderBoard::NameOf(const SeasonLeader& leader) const {
  const SeasonPlayer& player = season_->players[leader.player];
  return ToQt(player.name) + QStringLiteral(", ") + ToQt(season_->teams[player.team].name);
}

QString SeasonLeaderBoard::WordsOf(int mark) const {
  const SeasonLeader& leader = leaders_.at(static_cast<std::size_t>(mark));
  return NameOf(leader) + QStringLiteral(": ") + ToQt(leader.text);
}

void SeasonLeaderBoard::SetSeason(std::shared_ptr<const SeasonFigures> season, bool qualified) {
  season_ = std::move(season);
  LeaderList list = Leaders(*season_, lead_, qualified);
  more_ = ToQt(MoreText(list));
  leaders_ = std::move(list.first);
  QString words;
  for (int mark = 0; mark < marks(); ++mark) words += WordsOf(mark) + QLatin1Char('\n');
  words += more_;
  SetWords(words);
}

QRectF SeasonLeaderBoard::RowOf(int mark) const {
  const QRectF inside = Inside();
  // The last line tells of those who share the tenth place.
  const std::size_t lines = kMostLeaders + (more_.isEmpty() ? 0 : 1);
  const double high = inside.height() / static_cast<double>(lines);
  return {inside.left(), inside.top() + mark * high, inside.width(), high};
}

int SeasonLeaderBoard::MarkAt(const QPointF& place) const {
  for (int mark = 0; mark < marks(); ++mark) {
    if (RowOf(mark).contains(place)) return mark;
  }
  return -1;
}

void SeasonLeaderBoard::Choose(int mark) {
  emit playerChosen(leaders_.at(static_cast<std::size_t>(mark)).player, RoleOf(lead_));
}

void SeasonLeaderBoard::DrawLit(QPainter& painter, int mark) {
  DrawPlate(painter, RowOf(mark), Qt::transparent, kAccent, 1.5, 3);
  painter.setFont(SmallFont());
  const double room = RowOf(mark).width() - kFigureRoom * type();
  const QString name = NameOf(leaders_.at(static_cast<std::size_t>(mark)));
  if (painter.fontMetrics().horizontalAdvance(name) > room) {
    DrawBubble(painter, RowOf(mark).center(), WordsOf(mark));
  }
}

void SeasonLeaderBoard::Draw(QPainter& painter) {
  if (leaders_.empty()) return DrawNote(painter, QStringLiteral("Nobody yet"));
  double longest = 0;
  for (const SeasonLeader& leader : leaders_) longest = std::max(longest, leader.value);
  for (int mark = 0; mark < marks(); ++mark) {
    const SeasonLeader& leader = leaders_[static_cast<std::size_t>(mark)];
    DrawLeader(painter, RowOf(mark), leader, *season_, longest, QColor(46, 88, 108));
  }
  if (more_.isEmpty()) return;
  painter.setFont(SmallFont());
  painter.setPen(QColor(206, 206, 188));
  painter.drawText(RowOf(marks()).adjusted(type() * 0.4, 0, 0, 0),
                   Qt::AlignVCenter | Qt::TextSingleLine, more_);
}

}  // namespace dtb

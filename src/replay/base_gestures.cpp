#include "replay/base_gestures.h"

#include "game/base_running.h"
#include "game/bases.h"
#include "game/play_words.h"
#include "platform/qt/qt_text.h"
#include "replay/gestures.h"
#include "windows/board/base_targets.h"

namespace dtb::replay {
namespace {

QString PieceNamed(const BoardState& state, const std::string& name) {
  const auto piece = PieceOf(state, name);
  if (!piece) throw Refused("no game piece bears " + ToQt(name));
  return QStringLiteral("pb_Player%1").arg(*piece + 1);
}

QString RunnerPiece(const BoardState& state, int base) {
  const Runner runner = RunnerOn(state, base);
  if (runner.none()) throw Refused(QStringLiteral("nobody is on ") + BaseName(base));
  return PieceNamed(state, runner.name);
}

// "X,Y": the middle of a target in the park, in layout units.
QString TargetOf(Desk& desk, const QString& word) {
  const int place = word == "OUT" ? kPutOut : word == "HOME" ? kHomePlate : word.toInt();
  const QPointF target = place == kPutOut ? OutField().center() : SpotOf(desk.aids(), place);
  return QStringLiteral("%1,%2").arg(qRound(target.x())).arg(qRound(target.y()));
}

QStringList Turn(Desk& desk, bool on) {
  if (KeepsBases(desk.board().state) == on) return {};
  QStringList click{"CLICK cb_KeepBases"};
  if (desk.board().state.fra_Options_visible.value()) return click;
  return QStringList{"MENU Options"} + click + QStringList{"MENU Options"};
}

QStringList Run(Desk& desk, const QString& from, const QString& to, bool own, bool keys) {
  const BoardState& state = desk.board().state;
  if (from == "BATTER") {
    if (keys) return {to == "OUT" ? "OUTCOME A" : "OUTCOME H"};
    return {"DRAG " + PieceNamed(state, state.lbl_Selected.value()) + ' ' + TargetOf(desk, to)};
  }
  if (from == "HOME") return {keys ? "OUTCOME Shift+4" : "CLICK cmd_HoldAtThird"};
  const int start = from.toInt();
  const QString piece = RunnerPiece(state, start);
  const int end = to == "HOME" ? kHomePlate : to.toInt();
  if (keys && to != "OUT" && end > start) {
    QStringList steps;
    for (int base = start; base < end; ++base) {
      // After the first one a step of its own is that of the same play.
      const char* held = own && base == start ? "Ctrl" : "Shift";
      steps += QStringLiteral("OUTCOME %1+%2").arg(QLatin1String(held)).arg(base);
    }
    return steps;
  }
  return {(own ? "CTRLDRAG " : "DRAG ") + piece + ' ' + TargetOf(desk, to)};
}

QStringList NameOut(Desk& desk, int base, bool keys) {
  Board& board = desk.board();
  const auto* question = desk.form1().findChild<QWidget*>(QStringLiteral("RunnerHint"));
  if (question->isVisible()) {
    if (keys) return {QStringLiteral("OUTCOME %1").arg(base)};
    return {"CLICK " + RunnerPiece(board.state, base)};
  }
  if (!CanPutOutAnother(board)) throw Refused("there is no other runner who can be out");
  const Play last = board.state.plays.Last();
  const std::string runner = RunnerBefore(last, base);
  if (runner.empty()) throw Refused(QStringLiteral("nobody was on ") + BaseName(base));
  // Who is out already has no piece any more.
  if (!PieceOf(board.state, runner)) return {};
  return {"CLICK " + PieceNamed(board.state, runner)};
}

QStringList PutOn(Desk& desk, int base, const QString& player) {
  const Side side = SideAtBat(desk.board().state).value_or(Side::Visitors);
  const LineupList& list = SideOf(desk.board(), side).list;
  const auto row = RowOfPlayer(list, FromQt(player));
  if (!row) throw Refused("there is no " + player + " in the line-up");
  const QWidget* park = FindControl(QStringLiteral("Picture1"));
  const QPointF spot = SpotOf(desk.aids(), base);
  return {QStringLiteral("DRAGONTO %1 %2 Picture1@%3,%4")
              .arg(QLatin1String(side == Side::Visitors ? "List1" : "List2"))
              .arg(*row)
              .arg(qRound(spot.x() / kSceneWidth * park->width()))
              .arg(qRound(spot.y() / kSceneHeight * park->height()))};
}

}  // namespace

std::optional<QStringList> BaseGesturesOf(const QString& line, Desk& desk, bool keys) {
  const QString verb = line.section(' ', 0, 0);
  const QString first = line.section(' ', 1, 1);
  if (verb == "BASES") return Turn(desk, first == "ON");
  if (verb == "RUN" || verb == "ADVANCE") {
    return Run(desk, first, line.section(' ', 2, 2), verb == "ADVANCE", keys);
  }
  if (verb == "OUT") return NameOut(desk, first.toInt(), keys);
  if (verb == "PLACE") return PutOn(desk, first.toInt(), line.section(' ', 2));
  return std::nullopt;
}

}  // namespace dtb::replay

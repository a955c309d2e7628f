#include "replay/player.h"

#include <QApplication>
#include <QDir>
#include <cstdio>
#include <unordered_map>

#include "platform/paths.h"
#include "platform/qt/qt_text.h"
#include "replay/gestures.h"
#include "replay/state_dump.h"
#include "teams/player_name.h"

namespace dtb::replay {
namespace {

constexpr int kShowPause = 150;  // milliseconds

// "X,Y" is a place of the park in layout units, the same at every size of the window.
void DragToScene(const QString& name, const QString& place) {
  QWidget* park = FindControl("Picture1");
  const double x = place.section(',', 0, 0).toDouble() / kSceneWidth;
  const double y = place.section(',', 1, 1).toDouble() / kSceneHeight;
  Drag(TargetAt(name), {park, QPoint(qRound(park->width() * x), qRound(park->height() * y))});
}

struct Names {
  const char* load;
  const char* list;
  const char* pitcher;
  const char* atBat;
  const char* edit;
  const char* newEntry;
};
constexpr Names kVisitors{"Command6", "List1",  "lbl_VisPitcher",
                          "Option5",  "Check1", "tb_List1edit"};
constexpr Names kHome{"Command7", "List2", "lbl_HomePitcher", "Option6", "Check2", "tb_List2edit"};

struct SideWord {
  Side side;
  const Names& names;
};

SideWord SideOfWord(const QString& word) {
  if (word == "visitors") return {Side::Visitors, kVisitors};
  if (word == "home") return {Side::Home, kHome};
  throw Refused("\"" + word + "\" is no side");
}

const QHash<QString, QString>& Outcomes() {
  static const QHash<QString, QString> outcomes{
      {"1B", "lbl_Single"}, {"2B", "lbl_Double"}, {"3B", "lbl_Triple"}, {"HR", "lbl_Homer"},
      {"BB", "lbl_BB"},     {"K", "lbl_K"},       {"GO", "lbl_GO"},     {"FO", "lbl_FO"},
      {"LO", "lbl_LO"},     {"PO", "lbl_PO"},     {"DP", "lbl_DP"},     {"FC", "lbl_FC"},
      {"TO", "lbl_Pick"},   {"AB", "lbl_AB"},     {"RBI", "lbl_RBI"}};
  return outcomes;
}

QString Word(const QString& line, int n) { return line.section(' ', n, n); }
QString Rest(const QString& line, int n) { return line.section(' ', n); }

int Number(const QString& line, int n) {
  bool good = false;
  const int number = Word(line, n).toInt(&good);
  if (!good || number < 0) throw Refused("\"" + Word(line, n) + "\" is no number");
  return number;
}

int RowOfPlayer(const LineupList& list, const QString& name) {
  for (int row = 0; row < list.size(); ++row) {
    if (ToQt(PlayerNameOf(list.entries()[row])) == name) return row;
  }
  throw Refused("there is no " + name + " in the line-up");
}

QString RowGesture(const char* gesture, const char* list, int row) {
  return QString("%1 %2 %3").arg(gesture, list).arg(row);
}

bool IsRemark(const QString& line) { return line.trimmed().isEmpty() || line.startsWith('#'); }

bool BringsUpBatter(const QString& verb) {
  return verb == "BATTER" || (Outcomes().contains(verb) && verb != "RBI" && verb != "TO");
}

}  // namespace

Player::Player(PlayTable& table, const QString& script, const Options& options)
    : Driver(options.show ? kShowPause : 0),
      table_(table),
      board_(table.desk().board()),
      script_(script),
      options_(options) {
  QFile file(script);
  if (!file.open(QIODevice::ReadOnly)) throw Refused(script + ": cannot be read");
  lines_ = QString::fromUtf8(file.readAll()).remove('\r').split('\n');
  if (lines_.last().isEmpty()) lines_.removeLast();
  if (options.save) lines_ += {"CLICK lbl_STATS", "CLICK Command2", "CLOSE"};
  // On a screen the timers run by themselves; else they tick when the script says so.
  if (!options.show) table.desk().form1().constantTimer().stop();
}

void Player::Refuse(const QString& reason) {
  const QString report = QString("%1:%2: %3\n").arg(script_).arg(next_).arg(reason);
  std::fputs(report.toUtf8().constData(), stderr);
  Finish(1);
}

bool Player::TakeLine() {
  while (next_ < lines_.size() && IsRemark(lines_[next_])) ++next_;
  if (next_ == lines_.size()) return false;
  const QString line = lines_[next_++];
  WatchPieces();
  if (BringsUpBatter(Word(line, 0))) gestures_ = QStringList{Tidying()};
  gestures_ += GesturesOf(line);
  gestures_.removeAll({});
  return true;
}

void Player::MakeGesture() {
  if (HalfInProgress(board_.state) > half_) {
    half_ = HalfInProgress(board_.state);
    KeepPicture(QString("half-%1").arg(half_, 2, 10, QChar('0')));
  }
  if (gestures_.isEmpty() && !TakeLine()) {
    Finish(0);
  } else {
    Perform(gestures_.takeFirst());
  }
}

bool Player::NextLineIsFor(const MessageBox& box) const {
  if (!gestures_.isEmpty() || next_ == lines_.size()) return false;
  const QString name = Word(lines_[next_], 1).section('@', 0, 0);
  return Word(lines_[next_], 0) == "SHOT" || box.objectName() == name ||
         (!name.isEmpty() && box.findChild<QWidget*>(name) != nullptr);
}

bool Player::Answer(MessageBox& box) {
  if (seen_ != &box) {
    seen_ = &box;
    messages_.append(box.message());
  }
  if (NextLineIsFor(box)) {
    const QString line = lines_[next_++];
    Perform(line);
    return Word(line, 0) != "SHOT";
  }
  if (box.question()) {
    const QString answer = answers_.isEmpty() ? "Yes" : answers_.takeFirst();
    Click(TargetAt("cmd_" + answer.toUpper()));
  } else {
    PressKey(&box, "Return");
  }
  return true;
}

QStringList Player::GesturesOf(const QString& line) {
  const QString verb = Word(line, 0);
  if (Outcomes().contains(verb)) return {"CLICK " + Outcomes()[verb]};
  if (verb == "SB") {
    const std::string name = FromQt(Rest(line, 1));
    for (int piece = 0; piece < kPieces; ++piece) {
      if (board_.state.pieces.at(piece).tag.value() != name) continue;
      const QString box = QString("pb_Player%1").arg(piece + 1);
      const QWidget* control = FindControl(box);
      return {QString("CTRLCLICK %1@%2,%3")
                  .arg(box)
                  .arg(control->width() / 2)
                  .arg(control->height() / 4)};
    }
    throw Refused("no game piece bears " + Rest(line, 1));
  }
  if (verb == "SWAP") return SwapGestures(Word(line, 1), Rest(line, 2));
  static const QStringList forms{"LOAD", "PITCHER", "ATBAT", "BATTER"};
  if (!forms.contains(verb)) return {line};
  const auto [side, names] = SideOfWord(Word(line, 1));
  if (verb == "ATBAT") return {QString("CLICK ") + names.atBat};
  if (verb == "LOAD") return {"CHOOSE " + Rest(line, 2), QString("CLICK ") + names.load};
  const int row = RowOfPlayer(SideOf(board_, side).list, Rest(line, 2));
  QStringList gestures{RowGesture("ROW", names.list, row)};
  if (verb == "PITCHER") gestures += QString("DBLCLICK ") + names.pitcher;
  return gestures;
}

QStringList Player::SwapGestures(const QString& sideWord, const QString& players) {
  const auto [side, names] = SideOfWord(sideWord);
  const LineupList& list = SideOf(board_, side).list;
  const int first = RowOfPlayer(list, players.section(" | ", 0, 0));
  const int second = RowOfPlayer(list, players.section(" | ", 1));
  QStringList gestures{QString("CLICK ") + names.edit};
  for (const auto& [row, entryOf] : {std::pair{first, second}, std::pair{second, first}}) {
    gestures += RowGesture("ROW", names.list, row);
    gestures += QString("TYPE %1 ").arg(names.newEntry) + ToQt(list.entries()[entryOf]);
    gestures += RowGesture("DBLROW", names.list, row);
  }
  if (list.HasRow(list.selected())) gestures += RowGesture("ROW", names.list, list.selected());
  return gestures += QString("CLICK ") + names.edit;
}

void Player::WatchPieces() {
  for (int piece = 0; piece < kPieces; ++piece) {
    const GamePiece& shown = board_.state.pieces.at(piece);
    Man& man = men_.at(piece);
    if (shown.free()) {
      man = {};
    } else if (man.since == 0 || man.name != shown.tag.value()) {
      man = {shown.tag.value(), ++clock_};
    }
  }
}

bool Player::StealsLater(const std::string& name) const {
  const QString atBat = board_.state.Option5.value() ? "visitors" : "home";
  for (qsizetype i = next_; i < lines_.size(); ++i) {
    const QString verb = Word(lines_[i], 0);
    if (verb == "SB" && FromQt(Rest(lines_[i], 1)) == name) return true;
    if (verb == "BATTER" && Word(lines_[i], 1) != atBat) return false;
  }
  return false;
}

QString Player::Tidying() const {
  int oldest = -1;
  for (int piece = 0; piece < kPieces; ++piece) {
    const Man& man = men_.at(piece);
    if (man.since == 0) return {};
    if (man.name == board_.state.lbl_Selected.value() || StealsLater(man.name)) continue;
    if (oldest < 0 || man.since < men_.at(oldest).since) oldest = piece;
  }
  return oldest < 0 ? QString() : QString("DBLCLICK pb_Player%1").arg(oldest + 1);
}

void Player::Perform(const QString& gesture) {
  using Operation = std::function<void(Player&, const QString&)>;
  static const std::unordered_map<std::string, Operation> operations{
      {"CLICK", [](Player&, const QString& g) { Click(TargetAt(Word(g, 1))); }},
      {"DBLCLICK", [](Player&, const QString& g) { DoubleClick(TargetAt(Word(g, 1))); }},
      {"CTRLCLICK",
       [](Player&, const QString& g) {
         Click(TargetAt(Word(g, 1)), Qt::LeftButton, Qt::ControlModifier);
       }},
      {"RIGHTCLICK",
       [](Player&, const QString& g) { Click(TargetAt(Word(g, 1)), Qt::RightButton); }},
      {"ROW", [](Player&, const QString& g) { Click(TargetAtRow(Word(g, 1), Number(g, 2))); }},
      {"DBLROW",
       [](Player&, const QString& g) { DoubleClick(TargetAtRow(Word(g, 1), Number(g, 2))); }},
      {"RIGHTROW",
       [](Player&, const QString& g) {
         Click(TargetAtRow(Word(g, 1), Number(g, 2)), Qt::RightButton);
       }},
      {"DRAGROW",
       [](Player&, const QString& g) { DragRow(Word(g, 1), Number(g, 2), Number(g, 3)); }},
      {"SHIFTDRAGROW",
       [](Player&, const QString& g) {
         DragRow(Word(g, 1), Number(g, 2), Number(g, 3), Qt::ShiftModifier);
       }},
      {"DRAG", [](Player&, const QString& g) { DragToScene(Word(g, 1), Word(g, 2)); }},
      {"CELL",
       [](Player&, const QString& g) {
         Click(TargetAtCell(Word(g, 1), Number(g, 2), Number(g, 3)));
       }},
      {"DBLCELL",
       [](Player&, const QString& g) {
         DoubleClick(TargetAtCell(Word(g, 1), Number(g, 2), Number(g, 3)));
       }},
      {"CTRLDBLCELL",
       [](Player&, const QString& g) {
         DoubleClick(TargetAtCell(Word(g, 1), Number(g, 2), Number(g, 3)), Qt::ControlModifier);
       }},
      {"TYPE", [](Player&, const QString& g) { TypeText(FindControl(Word(g, 1)), Rest(g, 2)); }},
      {"KEY", [](Player&, const QString& g) { PressKey(FindControl(Word(g, 1)), Word(g, 2)); }},
      {"MENU", [](Player&, const QString& g) { Click(TargetAtMenu(Rest(g, 1))); }},
      {"TAB", [](Player&, const QString& g) { Click(TargetAtTab(Word(g, 1), Number(g, 2))); }},
      {"ANSWER", [](Player& p, const QString& g) { p.answers_ += Word(g, 1); }},
      {"CHOOSE", [](Player& p, const QString& g) { p.Choose(Rest(g, 1)); }},
      {"CANCEL", [](Player& p, const QString&) { p.table_.dialogs().answers += std::nullopt; }},
      {"CLOSE", [](Player&, const QString&) { CloseWindow(FrontWindow()); }},
      {"TICK", [](Player& p, const QString& g) { p.Tick(Number(g, 1)); }},
      {"DUMP", [](Player& p, const QString&) { p.Dump(); }},
      {"SHOT", [](Player& p, const QString& g) { p.KeepPicture(Word(g, 1)); }},
  };
  const auto operation = operations.find(FromQt(Word(gesture, 0)));
  if (operation == operations.end()) throw Refused("there is no gesture " + Word(gesture, 0));
  operation->second(*this, gesture);
}

void Player::Choose(const QString& file) {
  table_.dialogs().answers += PathOf(FromQt(QFileInfo(script_).dir().absoluteFilePath(file)));
}

void Player::Dump() {
  for (const auto& [name, value] : StateLines(board_, table_.desk().form1(), messages_)) {
    std::printf("%s = %s\n", name.c_str(), value.c_str());
  }
  messages_.clear();
}

void Player::Tick(int periods) {
  QTimer& timer = table_.desk().form1().constantTimer();
  for (int i = 0; i < periods; ++i) QMetaObject::invokeMethod(&timer, "timeout");
}

void Player::KeepPicture(const QString& name) {
  QWidget* window = FrontWindow();
  if (options_.pictures.isEmpty() || window == nullptr) return;
  if (!window->grab().save(options_.pictures + '/' + name + ".png")) {
    throw Refused("the picture " + name + " cannot be saved");
  }
}

}  // namespace dtb::replay

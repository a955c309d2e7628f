#include "replay/player.h"

#include <QKeySequence>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "base/system.h"
#include "base/whole_file.h"
#include "game/bases.h"
#include "game/batting_order.h"
#include "game/history.h"
#include "replay/base_gestures.h"
#include "replay/game_state.h"
#include "replay/gesture_forms.h"
#include "replay/gestures.h"
#include "replay/script_check.h"
#include "windows/shared/outcome_table.h"

namespace dtb::replay {
namespace {

constexpr int kShowPause = 150;  // milliseconds
const QString kAsItStands = QStringLiteral("Save as it stands");
const QString kPutRight = QStringLiteral("Put right and save");

struct Names {
  QString list, load, pitcher, atBat, edit, newEntry;
};

const Names& NamesOf(Side side) {
  static const Names visitors{"List1",   "Command6", "lbl_VisPitcher",
                              "Option5", "Check1",   "tb_List1edit"};
  static const Names home{"List2",   "Command7", "lbl_HomePitcher",
                          "Option6", "Check2",   "tb_List2edit"};
  return side == Side::Visitors ? visitors : home;
}

// By what stands on the label of the outcome: "1B".
const OutcomeEntry* OutcomeOf(const QString& caption) {
  const auto found = std::ranges::find_if(kOutcomes, [&caption](const OutcomeEntry& entry) {
    return caption == QLatin1String(entry.caption);
  });
  return found == kOutcomes.end() ? nullptr : &*found;
}

QString Word(const QString& line, int n) { return line.section(' ', n, n); }
QString Rest(const QString& line, int n) { return line.section(' ', n); }

int Number(const QString& line, int n) { return static_cast<int>(Word(line, n).toUInt()); }

QString RowOf(const LineupList& list, const QString& name) {
  if (const auto row = RowOfPlayer(list, FromQt(name))) return QString::number(*row);
  throw Refused("there is no " + name + " in the line-up");
}

// "X,Y" is a place of the park in layout units, the same at every size of the window.
Target TargetInPark(const QString& place) {
  QWidget* park = FindControl("Picture1");
  const double x = place.section(',', 0, 0).toDouble() / kSceneWidth;
  const double y = place.section(',', 1).toDouble() / kSceneHeight;
  return {park, QPoint(qRound(park->width() * x), qRound(park->height() * y))};
}

void ClickAnswer(const MessageBox& box, const QString& answer) {
  QPushButton* button = box.ButtonOf(answer);
  Click({button, button->rect().center()});
}

bool BringsUpBatter(const QString& verb) {
  return verb == "BATTER" || (OutcomeOf(verb) != nullptr && verb != "RBI" && verb != "TO");
}

}  // namespace

Player::Player(PlayTable& table, const QString& script, const Options& options)
    : Driver(options.show ? kShowPause : 0),
      table_(table),
      board_(table.desk.board()),
      script_(script),
      options_(options),
      lines_(LinesOf(script)) {
  scriptLines_ = lines_.size();
  next_ = options.from;
  if (options.undo) {
    lines_ += {"UNDO *", "REDO *"};
    NoteStates();
  }
  if (options.save) lines_ += {"CLICK lbl_STATS", "CLICK Command2", "CLOSE"};
  if (options.dump) lines_ += "DUMP";
  // On a screen the timers run by themselves; else they tick when the script says so.
  if (!options.show) table.desk.form1().constantTimer().stop();
}

void Player::Refuse(const QString& reason) {
  const QString line = lines_.value(next_ - 1);
  const QString text = FaultText(script_, next_, reason, line, ExpectedOf(line));
  std::fprintf(stderr, "%s\n", qUtf8Printable(text));
  Finish(1);
}

void Player::MakeGesture() {
  if (HalfInProgress(board_.state) == 0) half_ = 0;  // of a new game
  if (HalfInProgress(board_.state) > half_) {
    half_ = HalfInProgress(board_.state);
    KeepPicture(QString("half-%1").arg(half_, 2, 10, QChar('0')));
  }
  // That the edit mode was left is no step of the game, so a kill would bring it back. What OUT
  // answers is none either.
  const bool dies = options_.killEvery > 0 && next_ >= options_.from + options_.killEvery &&
                    Word(lines_.value(next_ - 1), 0) != "SWAP" &&
                    Word(lines_.value(next_), 0) != "OUT";
  if (dies && gestures_.isEmpty() && next_ < scriptLines_) Kill();
  while (gestures_.isEmpty() && next_ < lines_.size()) TakeLine();
  if (gestures_.isEmpty()) return Finish(0);
  if (options_.undo && !goesBack_) states_[board_.history->steps()] = GameText(board_);
  goesBack_ = next_ > scriptLines_;
  Perform(gestures_.takeFirst());
}

// What the player adds at the end has forms of its own.
void Player::RequireForm(const QString& line) const {
  if (const auto fault = FaultOfLine(line); fault && next_ <= scriptLines_) {
    throw Refused(fault->what);
  }
}

void Player::TakeLine() {
  const QString line = lines_[next_++];
  if (IsRemark(line)) return;
  RequireForm(line);
  if (const QString tidying = Tidying(); BringsUpBatter(Word(line, 0)) && !tidying.isEmpty()) {
    gestures_ += tidying;
  }
  gestures_ += GesturesOf(line);
}

bool Player::NextLineIsFor(const MessageBox& box) const {
  if (!gestures_.isEmpty() || next_ == lines_.size()) return false;
  const QString name = Word(lines_[next_], 1).section('@', 0, 0);
  return Word(lines_[next_], 0) == "SHOT" || box.objectName() == name ||
         (!name.isEmpty() && box.findChild<QWidget*>(name));
}

bool Player::Answer(MessageBox& box) {
  if (seen_ != &box) messages_ += box.message();
  seen_ = &box;
  if (NextLineIsFor(box)) {
    const QString line = lines_[next_++];
    RequireForm(line);
    Perform(line);
    return Word(line, 0) != "SHOT";
  }
  if (box.answers().contains(kAsItStands)) {
    const QString answer = std::exchange(proofAnswer_, {});
    const QString usual = options_.proofRight ? kPutRight : kAsItStands;
    const QString wanted = answer.isEmpty() ? usual : answer;
    ClickAnswer(box, box.answers().contains(wanted) ? wanted : kAsItStands);
  } else if (box.question() || !box.answers().isEmpty()) {
    ClickAnswer(box, AnswerTo(box));
  } else {
    PressKey(&box, key_.isEmpty() ? "Return" : key_);
  }
  return true;
}

// Without an answer of its own a question is answered by Yes, a choice by what Enter would take.
QString Player::AnswerTo(const MessageBox& box) {
  const QStringList known = box.answers().isEmpty() ? QStringList{"Yes", "No"} : box.answers();
  if (answers_.isEmpty()) return known.at(box.usualAnswer());
  const QString wanted = answers_.takeFirst();
  for (const QString& answer : known) {
    if (answer.compare(wanted, Qt::CaseInsensitive) == 0) return answer;
  }
  throw Refused("the box has no answer \"" + wanted + "\" but " + known.join(", "));
}

QStringList Player::GesturesOf(const QString& line) const {
  const QString verb = Word(line, 0);
  if (const OutcomeEntry* outcome = OutcomeOf(verb)) {
    if (options_.keys) return {"OUTCOME " + QKeySequence(outcome->key).toString()};
    return {QString("CLICK ") + outcome->name};
  }
  if (const auto gestures = BaseGesturesOf(line, table_.desk, options_.keys)) return *gestures;
  if (verb == "SB") return GesturesOfSteal(FromQt(Rest(line, 1)));
  if (line == "UNDO *") return QStringList(static_cast<qsizetype>(board_.history->steps()), "UNDO");
  if (line == "REDO *") return QStringList(static_cast<qsizetype>(states_.size()) - 1, "REDO");
  if (verb == "NEWGAME") return {"MENU Edit", "MENU New game"};
  if (!QStringList{"LOAD", "PITCHER", "ATBAT", "BATTER", "RUNNER", "SWAP"}.contains(verb)) {
    return {line};
  }
  const Side side = Word(line, 1) == "home" ? Side::Home : Side::Visitors;
  const Names& names = NamesOf(side);
  if (verb == "SWAP") return GesturesOfSwap(side, Rest(line, 2));
  if (verb == "RUNNER") {
    const QStringList players = Rest(line, 2).split(" | ");
    const QString piece = PieceOf(FromQt(players[1].trimmed()));
    const QString row = RowOf(SideOf(table_.desk.board(), side).list, players[0].trimmed());
    return {"DRAGONTO " + names.list + ' ' + row + ' ' + piece};
  }
  if (verb == "ATBAT") return {"CLICK " + names.atBat};
  if (verb == "LOAD") return {"CHOOSE " + Rest(line, 2), "CLICK " + names.load};
  const QString row = RowOf(SideOf(table_.desk.board(), side).list, Rest(line, 2));
  QStringList gestures{"ROW " + names.list + ' ' + row};
  if (verb == "PITCHER") gestures += "DBLCLICK " + names.pitcher;
  return gestures;
}

QStringList Player::GesturesOfSwap(Side side, const QString& players) const {
  const LineupList& list = SideOf(table_.desk.board(), side).list;
  const Names& names = NamesOf(side);
  const QString place = names.list + ' ';
  const QString first = RowOf(list, players.section(" | ", 0, 0));
  const QString second = RowOf(list, players.section(" | ", 1));
  QStringList gestures{"CLICK " + names.edit};
  for (const auto& [row, other] : {std::pair{first, second}, std::pair{second, first}}) {
    const QString entry = ToQt(list.entries()[other.toUInt()]);
    gestures +=
        {"ROW " + place + row, "TYPE " + names.newEntry + ' ' + entry, "DBLROW " + place + row};
  }
  const QString before = QString::number(list.selected());
  if (list.HasRow(list.selected())) gestures += "ROW " + place + before;
  return gestures + QStringList{"CLICK " + names.edit};
}

QStringList Player::GesturesOfSteal(const std::string& name) const {
  const QString box = PieceOf(name);
  if (options_.keys && KeepsBases(board_.state)) {
    return {"OUTCOME S", QStringLiteral("OUTCOME %1").arg(BaseOf(board_.state, name))};
  }
  if (options_.keys) return {"OUTCOME S", "OUTCOME " + box.right(1)};
  const QSize size = FindControl(box)->size();
  return {QString("CTRLCLICK %1@%2,%3").arg(box).arg(size.width() / 2).arg(size.height() / 4)};
}

QString Player::PieceOf(const std::string& name) const {
  // One that is in use goes before one whose player has left it.
  if (const auto used = dtb::PieceOf(board_.state, name)) {
    return QString("pb_Player%1").arg(*used + 1);
  }
  for (int piece = 0; piece < kPieces; ++piece) {
    if (board_.state.pieces.at(piece).tag.value() == name) {
      return QString("pb_Player%1").arg(piece + 1);
    }
  }
  throw Refused("no game piece bears " + ToQt(name));
}

QString Player::Tidying() {
  if (KeepsBases(board_.state)) return {};  // the board tidies up itself
  std::map<std::string, int> players;
  int oldest = -1;
  bool full = true;
  for (int i = 0; i < kPieces; ++i) {
    const GamePiece& piece = board_.state.pieces.at(i);
    const std::string& name = piece.tag.value();
    full = full && !piece.free();
    if (piece.free()) continue;
    players[name] = players_.contains(name) ? players_[name] : ++clock_;
    if (name == board_.state.lbl_Selected.value() || StealsLater(name)) continue;
    const bool older =
        oldest < 0 || players[name] < players[board_.state.pieces.at(oldest).tag.value()];
    if (older) oldest = i;
  }
  players_ = players;
  return full && oldest >= 0 ? QString("DBLCLICK pb_Player%1").arg(oldest + 1) : QString();
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

bool Player::UseMouse(QString verb, const QString& gesture) {
  const auto has = [&verb](const QString& prefix) {
    const bool found = verb.startsWith(prefix);
    if (found) verb.remove(0, prefix.size());
    return found;
  };
  Qt::KeyboardModifiers modifiers;
  modifiers.setFlag(Qt::ControlModifier, has("CTRL"));
  modifiers.setFlag(Qt::ShiftModifier, has("SHIFT"));
  const auto button = has("RIGHT") ? Qt::RightButton : Qt::LeftButton;
  const auto action = has("DBL") ? QTest::MouseDClick : QTest::MouseClick;
  const QString name = Word(gesture, 1);
  Target target;
  if (verb == "CLICK") target = TargetAt(name);
  if (verb == "ROW") target = TargetAtRow(name, Number(gesture, 2));
  if (verb == "CELL") target = TargetAtCell(name, Number(gesture, 2), Number(gesture, 3));
  if (verb == "TAB") target = TargetAtTab(name, Number(gesture, 2));
  if (verb == "MENU") target = TargetAtMenu(Rest(gesture, 1));
  if (verb == "DRAGROW") {
    DragRow(name, Number(gesture, 2), Number(gesture, 3), modifiers);
  } else if (target.control) {
    Click(target, button, modifiers, action);
  }
  return verb == "DRAGROW" || target.control;
}

void Player::Tick(int periods) {
  for (; periods > 0; --periods) {
    for (auto* timer : table_.desk.form1().findChildren<QTimer*>(QRegularExpression("^tmr"))) {
      const bool runs = timer->isActive() || timer->objectName() == "tmr_Constant";
      const int ticks = runs ? 100 / timer->interval() : 0;
      for (int tick = 0; tick < ticks; ++tick) QMetaObject::invokeMethod(timer, "timeout");
    }
  }
}

// What is typed, with or without a control of its own. False: the gesture is another.
bool Player::UseKeys(const QString& verb, const QString& gesture) {
  QWidget* front = FrontWindow();
  // In a text field a key is a letter, which closes no box.
  const bool outcome =
      verb == "OUTCOME" && front && !qobject_cast<QLineEdit*>(front->focusWidget());
  key_ = outcome ? Word(gesture, 1) : QString();
  if (verb == "OUTCOME") {
    PressKey(front, Word(gesture, 1));
  } else if ((verb == "UNDO" || verb == "REDO") && front) {
    QWidget* focus = front->focusWidget();
    PressKey(focus ? focus : front, verb == "UNDO" ? "Ctrl+Z" : "Ctrl+Shift+Z");
  } else if (verb == "TYPE") {
    TypeText(FindControl(Word(gesture, 1)), Rest(gesture, 2));
  } else if (verb == "KEY") {
    PressKey(FindControl(Word(gesture, 1)), Word(gesture, 2));
  } else {
    return false;
  }
  return true;
}

QString Player::FileToChoose(const QString& name) const {
  const QDir folder = QFileInfo(script_).dir();
  QString beside = folder.absoluteFilePath(name);
  if (QFile::exists(beside)) return beside;
  // What the program is to write has no place among the scripts. Names that it made itself, of
  // games set aside, carry the time.
  if (!name.contains('*')) return table_.folder.filePath(name);
  const QStringList found = QDir(table_.folder.path()).entryList({name}, QDir::Files, QDir::Name);
  if (found.isEmpty()) throw Refused("the table's folder has no file " + name);
  return table_.folder.filePath(found.last());
}

// What the boxes and dialogs of the next gesture are told. False: the gesture is another.
bool Player::NoteAnswer(const QString& verb, const QString& gesture) {
  if (verb == "PROOF") {
    proofAnswer_ = Word(gesture, 1) == "RIGHT" ? kPutRight : QStringLiteral("Back to the sheet");
  } else if (verb == "ANSWER") {
    answers_ += Rest(gesture, 1);
  } else if (verb == "CHOOSE") {
    table_.dialogs.answers += PathOfFile(FileToChoose(Rest(gesture, 1)));
  } else if (verb == "CANCEL") {
    table_.dialogs.answers += std::nullopt;
  } else {
    return false;
  }
  return true;
}

void Player::Perform(const QString& gesture) {
  const QString verb = Word(gesture, 0);
  QWidget* front = FrontWindow();
  if (UseKeys(verb, gesture) || NoteAnswer(verb, gesture)) return;
  if (verb == "KILL") {
    Kill();
  } else if (verb == "DRAG" || verb == "CTRLDRAG") {
    Drag(TargetAt(Word(gesture, 1)), TargetInPark(Word(gesture, 2)),
         verb == "DRAG" ? Qt::NoModifier : Qt::ControlModifier);
  } else if (verb == "CLOSE" && front) {
    front->windowHandle()->close();
  } else if (verb == "DRAGONTO") {
    Drag(TargetAtRow(Word(gesture, 1), Number(gesture, 2)), TargetAt(Word(gesture, 3)));
  } else if (verb == "MAXIMISE" && front) {
    front->showMaximized();
  } else if (verb == "TICK") {
    Tick(Number(gesture, 1));
  } else if (verb == "DUMP") {
    Dump();
  } else if (verb == "MUST") {
    RequireState(Rest(gesture, 1));
  } else if (verb == "SHOT") {
    KeepPicture(Word(gesture, 1));
  } else if (!UseMouse(verb, gesture)) {
    throw Refused("there is no way to " + gesture);
  }
}

void Player::NoteStates() {
  states_[0] = GameText(board_);
  board_.history->Observe([this] {
    constexpr qsizetype kUndoAndRedo = 2;
    if (next_ > scriptLines_ + kUndoAndRedo) return;
    const bool goes = next_ > scriptLines_;
    // A new game, from which no step leads back.
    if (!goes && board_.history->steps() == 0 && !board_.history->CanRedo()) states_.clear();
    std::string& state = states_[board_.history->steps()];
    if (goes && state != GameText(board_)) {
      return Refuse(QString("the game after %1 steps differs").arg(board_.history->steps()));
    }
    if (goes) return;
    state = GameText(board_);
    // What a visit to a cell, or the sheet, brings up to date is no step of its own.
    const std::size_t before = board_.history->steps() - 1;
    if (board_.history->CanUndo()) states_[before] = board_.history->GameBefore();
  });
}

// As a power cut would, but with a person's pace before it.
void Player::Kill() {
  if (table_.desk.recovery() == nullptr) throw Refused("KILL needs a table that is kept");
  table_.desk.recovery()->Wait();
  try {
    WriteWholeFile(PathOfFile(table_.folder.filePath(kNextLine)), std::to_string(next_));
  } catch (const ProgramError& fault) {
    throw Refused(QStringLiteral("the next line cannot be noted: ") + ToQt(fault.what()));
  }
  system::EndByForce();
}

void Player::RequireState(const QString& expectation) const {
  static const QRegularExpression index("\\[[^]]*\\]");
  const auto [name, should] = ExpectationOf(expectation).value();
  const StateMap lines = StateLines(board_, table_.desk.form1(), messages_);
  const auto line = lines.find(FromQt(name));
  // A misspelt name would be empty for ever.
  const QString list = QString(name).remove(index);
  const bool known = std::ranges::any_of(
      lines, [&list](const auto& other) { return ToQt(other.first).remove(index) == list; });
  if (!known) throw Refused("DUMP knows no " + name);
  const QString is = line == lines.end() ? QString() : ToQt(line->second);
  if (is == should) return;
  const auto shown = [](const QString& text) { return text.isEmpty() ? "empty" : text; };
  throw Refused(name + " is " + shown(is) + ", must be " + shown(should));
}

void Player::Dump() {
  for (const auto& [name, value] : StateLines(board_, table_.desk.form1(), messages_)) {
    if (!value.empty()) std::printf("%s = %s\n", name.c_str(), value.c_str());
  }
  std::fflush(stdout);  // a kill may follow
  messages_.clear();
}

void Player::KeepPicture(const QString& name) const {
  constexpr int kFast = 80;  // of 100, least effort to make the file small
  const QString file = options_.pictures + '/' + name + ".png";
  QWidget* window = FrontWindow();
  if (options_.pictures.isEmpty() || !window || window->grab().save(file, "PNG", kFast)) return;
  throw Refused("the picture " + file + " cannot be saved");
}

}  // namespace dtb::replay

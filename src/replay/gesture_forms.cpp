#include "replay/gesture_forms.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <array>

#include "replay/gestures.h"

namespace dtb::replay {
namespace {

// A mouse gesture may have these before its verb, in this order.
struct Prefix {
  const char* word;
  const char* verbs;  // that take it
};
constexpr std::array<Prefix, 4> kPrefixes{{{"CTRL", "CLICK ROW CELL TAB DRAG DRAGROW"},
                                           {"SHIFT", "CLICK ROW CELL TAB DRAGROW"},
                                           {"RIGHT", "CLICK ROW CELL TAB"},
                                           {"DBL", "CLICK ROW CELL TAB"}}};

const GestureForm* FormOf(QString verb) {
  const auto known = [](const QString& word) {
    const auto& forms = GestureForms();
    const auto form = std::ranges::find(
        forms, word, [](const GestureForm& one) { return QLatin1String(one.verb); });
    return form == forms.end() ? nullptr : &*form;
  };
  if (const GestureForm* form = known(verb)) return form;
  QList<const Prefix*> used;
  for (const Prefix& prefix : kPrefixes) {
    if (!verb.startsWith(QLatin1String(prefix.word))) continue;
    verb.remove(0, static_cast<qsizetype>(qstrlen(prefix.word)));
    used += &prefix;
  }
  const bool fits = std::ranges::all_of(used, [&verb](const Prefix* prefix) {
    return QString(prefix->verbs).split(' ').contains(verb);
  });
  return fits ? known(verb) : nullptr;
}

bool IsNumber(const QString& word) {
  bool good = false;
  static_cast<void>(word.toUInt(&good));
  return good;
}

bool IsPlace(const QString& text) {
  static const QRegularExpression place("^-?\\d+,-?\\d+$");
  return place.match(text).hasMatch();
}

bool TakesRest(const QString& kind) {
  return QStringList{"FILE", "PLAYER", "TEXT", "ENTRY"}.contains(kind);
}

// What is wrong with a word where the form has `kind`; "" for nothing.
QString FaultOfWord(const QString& kind, const QString& word) {
  const QString quoted = '"' + word + '"';
  if (kind == "TEXT") return {};
  if (word.isEmpty()) return kind + " is missing";
  if (kind == "SIDE" && word != "visitors" && word != "home") {
    return quoted + " is not a side (visitors or home)";
  }
  const bool numbered = QStringList{"ROW", "TO-ROW", "COLUMN", "TAB", "TICKS"}.contains(kind);
  if (numbered && !IsNumber(word)) return quoted + " is not a number";
  if (kind == "X,Y" && !IsPlace(word)) return quoted + " is not a place such as 840,460";
  if (kind == "CONTROL[@X,Y]" && word.contains('@') && !IsPlace(word.section('@', 1))) {
    return '"' + word.section('@', 1) + "\" is not a place in a control such as 20,10";
  }
  if (kind == "KEY" && !IsKey(word)) return "there is no key " + word;
  if (kind == "YES|NO" && word.toUpper() != "YES" && word.toUpper() != "NO") {
    return quoted + " is neither Yes nor No";
  }
  if (kind == "RIGHT|BACK" && word != "RIGHT" && word != "BACK") {
    return quoted + " is neither RIGHT nor BACK";
  }
  if (kind == "ON|OFF" && word != "ON" && word != "OFF") {
    return quoted + " is neither ON nor OFF";
  }
  if (kind == "BASE" && !QStringList{"1", "2", "3"}.contains(word)) {
    return quoted + " is not a base (1, 2 or 3)";
  }
  if (kind == "FROM" && !QStringList{"1", "2", "3", "BATTER", "HOME"}.contains(word)) {
    return quoted + " is not a base (1, 2 or 3), BATTER or HOME";
  }
  if (kind == "TO" && !QStringList{"1", "2", "3", "HOME", "OUT"}.contains(word)) {
    return quoted + " is not a base (1, 2 or 3), HOME or OUT";
  }
  if (kind == "NAME" && word.contains('/')) return quoted + " is not a name for a picture";
  return {};
}

QString FaultOfRest(const QString& form, const QString& rest) {
  if (form == "NAME = VALUE") {
    return ExpectationOf(rest) ? QString() : QString("MUST is followed by NAME = VALUE");
  }
  if (form == "SIDE PLAYER | PLAYER") {
    const QStringList players = rest.section(' ', 1).split(" | ");
    const bool two =
        players.size() == 2 && !players[0].trimmed().isEmpty() && !players[1].trimmed().isEmpty();
    const QString side = FaultOfWord("SIDE", rest.section(' ', 0, 0));
    return !side.isEmpty() || two ? side : QString("two players, with \" | \" between");
  }
  QString left = rest;
  for (const QString& kind : form.split(' ', Qt::SkipEmptyParts)) {
    const QString word = TakesRest(kind) ? left : left.section(' ', 0, 0);
    if (QString fault = FaultOfWord(kind, word); !fault.isEmpty()) return fault;
    left = TakesRest(kind) ? QString() : left.section(' ', 1);
  }
  return left.trimmed().isEmpty() ? QString() : '"' + left.trimmed() + "\" is too much";
}

}  // namespace

const std::vector<GestureForm>& GestureForms() {
  static const std::vector<GestureForm> forms{
      {"LOAD", "SIDE FILE", "load a team file"},
      {"PITCHER", "SIDE PLAYER", "name the side's pitcher"},
      {"ATBAT", "SIDE", "put the side at bat"},
      {"BATTER", "SIDE PLAYER", "send a player of the line-up to bat"},
      {"RUNNER", "SIDE PLAYER | PLAYER",
       "let the first player come in for the second on his piece"},
      {"SWAP", "SIDE PLAYER | PLAYER", "let two players of a line-up change places"},
      {"1B", "", "record a single"},
      {"2B", "", "record a double"},
      {"3B", "", "record a triple"},
      {"HR", "", "record a home run"},
      {"BB", "", "record a walk"},
      {"K", "", "record a strikeout"},
      {"GO", "", "record a ground out"},
      {"FO", "", "record a fly out"},
      {"LO", "", "record a line out"},
      {"PO", "", "record a pop out"},
      {"DP", "", "record a double play"},
      {"FC", "", "record a fielder's choice"},
      {"TO", "", "record an out on the bases"},
      {"AB", "", "record a time at bat that is none of these"},
      {"RBI", "", "record a run, before the hit that drives it in"},
      {"SB", "PLAYER", "record a steal by the player on a game piece"},
      {"BASES", "ON|OFF", "let the board keep the bases, or not"},
      {"RUN", "FROM TO",
       "move a runner by hand from base 1, 2 or 3 to a base or HOME, the BATTER to 1 or OUT, or "
       "who "
       "came HOME back to 3"},
      {"ADVANCE", "FROM TO", "the same as a play of its own, as after a wild pitch"},
      {"OUT", "BASE", "name the runner who is out, behind TO, or another one behind FC or DP"},
      {"PLACE", "BASE PLAYER", "put a player of the side at bat on an empty base"},
      {"NEWGAME", "", "begin a new game in the same run"},
      {"UNDO", "", "take a step back"},
      {"REDO", "", "do a step again"},
      {"CLICK", "CONTROL[@X,Y]", "click a control, at a place in its pixels or in the middle"},
      {"ROW", "LIST ROW", "click a row of a list, from 0"},
      {"CELL", "TABLE ROW COLUMN", "click a cell of a table; row 0 is its header"},
      {"TAB", "CONTROL TAB", "click a tab, from 0"},
      {"MENU", "ENTRY", "click an entry of the menu bar or of the open menu"},
      {"DRAG", "CONTROL[@X,Y] X,Y", "drag a control to a place of the park, 1679 x 974 units"},
      {"DRAGROW", "LIST ROW TO-ROW", "drag a row of a list to the place of another"},
      {"DRAGONTO", "LIST ROW CONTROL[@X,Y]", "drag a row of a list onto a control"},
      {"TYPE", "CONTROL TEXT", "type over the text of a field"},
      {"KEY", "CONTROL KEY", "press a key in a control"},
      {"OUTCOME", "KEY", "press a key where the focus is, as for an outcome"},
      {"ANSWER", "TEXT",
       "press this button of the next question; without it Yes, or the usual one"},
      {"PROOF", "RIGHT|BACK", "put right or go back at the next list of the proof"},
      {"CHOOSE", "FILE", "choose a file in the next dialog"},
      {"CANCEL", "", "cancel the next dialog"},
      {"CLOSE", "", "close the window in front"},
      {"MAXIMISE", "", "make the window in front as large as the screen"},
      {"TICK", "TICKS", "let so many tenths of a second pass"},
      {"KILL", "", "end the program as a power cut would, and play on in a new one"},
      {"MUST", "NAME = VALUE", "stop unless DUMP would show this value just now"},
      {"DUMP", "", "print the name and value of all that is not empty"},
      {"SHOT", "NAME", "keep a picture NAME.png, where --shots names a folder"}};
  return forms;
}

bool IsRemark(const QString& line) { return line.trimmed().isEmpty() || line.startsWith('#'); }

std::optional<Expectation> ExpectationOf(const QString& text) {
  static const QRegularExpression pattern("^(\\S+) =(?: (.*))?$");
  const QRegularExpressionMatch parts = pattern.match(text);
  if (!parts.hasMatch()) return std::nullopt;
  return Expectation{parts.captured(1), parts.captured(2)};
}

QString ExpectedOf(const QString& line) {
  const QString verb = line.section(' ', 0, 0);
  const GestureForm* form = FormOf(verb);
  if (form == nullptr) return {};
  const QString words = *form->form == '\0' ? verb : verb + ' ' + form->form;
  return words + ", to " + form->meaning;
}

std::optional<LineFault> FaultOfLine(const QString& line, const ScriptFolders* folders) {
  if (IsRemark(line)) return std::nullopt;
  const QString verb = line.section(' ', 0, 0);
  const QString rest = line.section(' ', 1);
  const GestureForm* form = FormOf(verb);
  if (form == nullptr) {
    const QString what =
        verb.isEmpty() ? "the line begins with a space" : '"' + verb + "\" is not a gesture";
    return LineFault{what, "a gesture such as GO or BATTER home NAME; --gestures lists them all"};
  }
  QString what = FaultOfRest(form->form, rest);
  const QString file = rest.section(' ', 1);
  const bool looks = what.isEmpty() && verb == "LOAD" && folders != nullptr;
  if (looks && !QFileInfo(folders->beside.filePath(file)).isFile() &&
      !QFileInfo(folders->program.filePath(file)).isFile()) {
    what = "there is no file \"" + file + "\" beside the script or in the program's folder";
  }
  if (what.isEmpty()) return std::nullopt;
  return LineFault{what, ExpectedOf(line)};
}

}  // namespace dtb::replay

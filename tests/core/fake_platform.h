// A scripted stand-in for the desktop, and a table at which a game is played from a script.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "base/paths.h"
#include "base/program_error.h"
#include "game/base_running.h"
#include "game/bases.h"
#include "game/batting_order.h"
#include "game/game_pieces.h"
#include "game/history.h"
#include "game/memento.h"
#include "game/outcomes.h"
#include "game/outs.h"
#include "game/play_credits.h"
#include "game/play_words.h"
#include "game/runners.h"
#include "game/score_pad.h"
#include "game/start_up.h"
#include "platform/quiet_desktop.h"
#include "sheet/proof.h"
#include "teams/lineup_edit.h"
#include "teams/pinch_runner.h"
#include "teams/pitchers.h"
#include "teams/team_load.h"
#include "temporary_folder.h"

namespace dtb {

// All services of the desktop. Boxes are written down as text and closed at once.
struct FakePlatform final : QuietDesktop {
  ~FakePlatform() override { std::filesystem::remove_all(folder); }
  void ShowRecorded(const std::string& message, BoxAlignment alignment) override {
    Tell((alignment == BoxAlignment::Left ? "left: " : "") + message);
  }
  void Confirm(const std::string& message, const std::string& counted) override {
    Tell(message);
    counts += counted + '\n';
  }
  void Notify(const std::string& message) override { notices += message + ';'; }
  void Show(const std::string& message, BoxIcon icon, const std::string& title) override {
    Tell(" iw!x"[static_cast<int>(icon)] + (": " + title + (title.empty() ? "" : ": ")) + message);
  }
  std::size_t Choose(const Choice& choice) override {
    std::string text = choice.text;
    for (const std::string& answer : choice.answers) text += " [" + answer + "]";
    Tell(text);
    return goesBack ? choice.answers.size() - 1 : 0;
  }
  bool Ask(const Question& question) override { return Tell(question.title), saysYes; }
  std::optional<std::filesystem::path> OpenFile(const OpenFileRequest&) override { return chosen; }
  std::optional<std::filesystem::path> OpenFolder(const std::string&,
                                                  const std::filesystem::path&) override {
    return chosen;
  }
  std::optional<Picture> Load(const std::filesystem::path& file) override {
    return photos.contains(TextOf(file)) ? std::optional(Picture{TextOf(file), 1}) : std::nullopt;
  }
  std::optional<Picture> Recognise(const std::filesystem::path& file) override {
    return Load(file);
  }
  bool ControlHeld() override { return control; }
  int TakeControlF12() override { return std::exchange(controlF12, 0); }
  std::string Read(const std::string& section, const std::string& key,
                   const std::string& missing) override {
    return settings.emplace(section + "/" + key, missing).first->second;
  }
  void Write(const std::string& section, const std::string& key,
             const std::string& value) override {
    if (settingsFail) throw ProgramError(error_number::kPathOrFileAccess, "no settings");
    settings[section + "/" + key] = value;
  }
  void Open(const std::string& page) override { Tell(page); }
  void PlayOnce(const std::filesystem::path& file) override { Tell("once " + NameOf(file)); }
  void StartLoop(const std::filesystem::path& file) override {
    if (!std::filesystem::exists(file)) throw ProgramError(error_number::kFileNotFound, "no file");
    Tell("loop " + NameOf(file));
  }
  void StopLoop() override { Tell("stop"); }
  void Silence() override { Tell("silence"); }
  void Reseed(int) override { ++reseeds; }
  double Draw() override { return draws.empty() ? 0 : draws[drawn++ % draws.size()]; }
  static std::string NameOf(const std::filesystem::path& file) { return TextOf(file.filename()); }
  std::unique_ptr<DatabaseSave> BeginSave(const std::vector<TableColumns>&) override {
    throw DatabaseOutOfReach(error_number::kFileNotFound, "no database");
  }

  std::string counts;  // what the confirmations counted, one a line
  void Tell(const std::string& text) {
    told += (told.empty() ? "" : " | ") + text;
    if (whileOpen) whileOpen();
  }

  std::string told;                             // all boxes since the last look, in order
  std::function<void()> whileOpen;              // runs while a box is open
  std::optional<std::filesystem::path> chosen;  // in the file dialog; none: cancelled
  std::set<std::string> photos;                 // paths of the pictures that exist
  bool control = false;
  bool saysYes = false;  // to a question
  std::string notices;
  bool goesBack = false;  // at a choice; else it takes what Enter would
  int controlF12 = 0;
  std::vector<double> draws;  // the generator goes round them
  std::size_t drawn = 0;
  int reseeds = 0;
  std::map<std::string, std::string> settings;
  bool settingsFail = false;
  std::filesystem::path folder = MakeTemporaryFolder("table");
  Platform ports = PlatformOf(*this, *this, *this, folder);
};

// The outcome labels, in the order of the enumeration.
inline const std::vector<std::string> kLabels{"1B", "2B", "3B", "HR", "BB", "K",  "GO", "FO",
                                              "LO", "PO", "DP", "FC", "TO", "AB", "RBI"};

inline Outcome OutcomeNamed(const std::string& label) {
  return Outcome(std::find(kLabels.begin(), kLabels.end(), label) - kLabels.begin());
}

// A table ready for the first pitch: the visitors' first player bats, the last player of each list
// pitches. With `loaded` false it is as it stands after start-up.
struct Game {
  explicit Game(bool loaded = true) {
    StartUp(board);
    if (!loaded) return;
    Load(Side::Visitors, "Owls.txt", "A=x\nB=x\nC=x\nD=x\nE=x\nF=x\nG=x\nH=x\nI=x\nJ=x\nK=x\nL=x");
    Load(Side::Home, "Elks.txt", "a=x\nb=x\nc=x\nd=x\ne=x\nf=x\ng=x\nh=x\ni=x\nj=x\nk=x\nl=x");
    Play("pitch:v11 pitch:h11 atbat:v bat:v0");
    Look("log");
    history.Clear();
  }

  void Load(Side side, const std::filesystem::path& name, const std::string& bytes) {
    fake.chosen = fake.folder / name;
    std::ofstream(*fake.chosen, std::ios::binary) << bytes;
    LoadTeam(board, side);
  }

  // Plays gestures: outcome labels, and verbs with an argument. "bat:v0" clicks the first row of
  // the visitors' list, "OUT:12" types into a field, "free:p3" double-clicks the fourth game piece.
  void Play(const std::string& script) {
    std::istringstream words(script);
    for (std::string word; words >> word;) Do(word);
  }

  void Do(const std::string& word) {
    const auto label = std::find(kLabels.begin(), kLabels.end(), word);
    if (label != kLabels.end()) return RecordOutcome(board, OutcomeNamed(word));
    if (word == "1ST") return RecordOutcome(board, Outcome::TakesFirst);
    if (word == "SAC") return RecordOutcome(board, Outcome::Sacrifice);
    const std::string verb = word.substr(0, word.find(':'));
    const std::string argument = word.substr(verb.size() + 1);
    const std::string rest = argument.empty() ? "" : argument.substr(1);
    const Side side = argument.starts_with('h') ? Side::Home : Side::Visitors;
    const SideFields fields = SideOf(board, side);
    const int row = std::atoi(rest.c_str());
    const bool drop = verb == "drop" || verb == "dropshift";
    if (drop || verb == "bat" || verb == "pitch" || verb == "drag") SelectRow(board, side, row);
    if (drop) EndDrag(board, side, MouseButton::Left, verb == "dropshift", row);
    if (verb == "show") EndDrag(board, side, MouseButton::Right, false, row);
    if (verb == "edit") fields.edit.Set(!fields.edit.value());
    if (verb == "rewrite" && !rest.empty()) {
      const Gesture typing(board, "new entry");
      fields.newEntry.Set(rest);
    }
    if (verb == "rewrite") ReplaceEntry(board, side);
    if (verb == "atbat") PutAtBat(board, side);
    if (verb == "pitch") ChangePitcher(board, side);
    if (verb == "drag") BeginDrag(board, side);
    if (verb == "up") MoveEntryUp(board, side);
    if (verb == "down") MoveEntryDown(board, side);
    if (verb == "click") ClickPiece(board, row);
    if (verb == "free") FreePiece(board, row);
    if (verb == "plate") ClearPlate(board, row);
    if (verb == "reset") ResetGamePieces(board);
    if (verb == "due") ChooseBatterDue(board);
    if (verb == "right") PutRight(board, ProofMoment::Save, Prove(board, ProofMoment::Save));
    if (verb == "cell") {  // "cell:v3,17=6.1"
      const int column = std::atoi(rest.substr(rest.find(',') + 1).c_str());
      fields.grid.SetText(row, column, word.substr(word.find('=') + 1));
    }
    if (verb == "photo") fake.photos.insert("/" + argument + ".jpg");
    if (verb == "yes") fake.saysYes = true;
    if (verb == "typedthree") EndHalfByHand(board);
    if (verb == "answer") fake.goesBack = argument == "back";
    if (verb == "ctrl") fake.control = argument == "held";
    if (verb == "unload") fields.list.Clear();
    if (verb == "unpitch") fields.pitcher.Set("");
    if (verb == "unbat") state.lbl_Selected.Set("");
    if (verb == "OUT") state.tb_OUT.Set(argument);
    if (verb == "MASTER") state.tb_OutsCount.Set(argument);
    if (verb == "type") fields.score.at(row).text.Set(word.substr(word.find('=') + 1));
    if (verb == "focus") FocusScoreCell(board, side, row);
    if (verb == "digit") ClickDigit(board, argument);
    if (verb == "toggle") ToggleFinished(board, side, row);
    if (verb == "row") SelectRow(board, side, row);
    if (verb == "steal") RecordStolenBase(board, row);
    if (verb == "move") MovePiece(board, row, 500 + row, 400);
    if (verb == "base") ToggleBase(board, row);
    const int digit = argument.empty() ? 0 : argument.back() - '0';  // a base; 4 is home
    if (verb == "keep") state.cb_KeepBases.Set(argument == "on");
    if (verb == "run") MoveRunner(board, argument[0] - '0', digit);
    if (verb == "advance") MoveRunner(board, argument[0] - '0', digit, MoveOf::ItsOwn);
    if (verb == "on") PutOnBase(board, argument.substr(0, 1), digit);
    if (verb == "hold") HoldAtThird(board);
    if (verb == "instead") PutOutInstead(board, argument);
    if (verb == "put") DropPiece(board, argument[0] - '0', digit, MoveOf::LastPlay);
    if (verb == "begin") BeginOnBase(board, side, row / 10, row % 10, Remember(board));
    if (verb == "in") ComeIn(board, side, row / 10, row % 10);  // "in:v93": row 9 on piece 3
    if (verb == "SB" || verb == "TO" || verb == "FC" || verb == "DP") {
      if (verb == "SB") return RecordStolenBase(board, PieceOf(state, argument).value_or(0));
      RecordOutcome(board, OutcomeNamed(verb), digit);
    }
    if (verb == "batted") SetBattedIn(board, argument[0] - '0', argument[1] - '0', digit != 0);
    if (verb == "earned") SetEarned(board, argument[0] - '0', argument[1] - '0', digit != 0);
    if (verb == "undo") history.Undo(board);
    if (verb == "redo") history.Redo(board);
    if (verb == "seal") history.Seal();
  }

  // One way to look at the table.
  std::string Look(const std::string& facet) {
    std::ostringstream text;
    const auto totals = [&](std::size_t cell) {
      text << state.tb_BoxScore.at(cell).text.value() << ":"
           << state.tb_BoxScoreBottom.at(cell).text.value();
    };
    if (facet == "told") text << std::exchange(fake.told, "");
    if (facet == "notices") text << std::exchange(fake.notices, "");
    if (facet == "log") {  // the lines since the last look, each with ";" behind it
      for (; logRead < log.text().size(); ++logRead) {
        const char c = log.text()[logRead];
        if (c != '\r') text << (c == '\n' ? ';' : c);
      }
    } else if (facet == "clock") {  // outs, master count, side at bat, batter
      text << state.tb_OUT.value() << " " << state.tb_OutsCount.value() << " "
           << (state.Option5.value() ? "V " : "") << (state.Option6.value() ? "H " : "")
           << state.lbl_Selected.value();
    } else if (facet == "due") {  // row of the batter, or of the one who is due: "v1" or "due h0"
      for (const Side side : {Side::Visitors, Side::Home}) {
        const char* letter = side == Side::Visitors ? "v" : "h";
        if (const auto row = RowOfBatter(board, side)) text << letter << *row;
        if (const auto row = RowOfBatterDue(board, side)) text << "due " << letter << *row;
      }
    } else if (facet == "proof") {  // what does not agree at a save, and the cell it leads to
      for (const Finding& finding : Prove(board, ProofMoment::Save)) {
        text << (text.str().empty() ? "" : " ") << finding.words
             << (finding.canBePutRight ? " -> " + finding.ought : "");
        if (finding.row > 0) text << " @" << finding.row << "," << finding.column;
        text << ";";
      }
    } else if (facet == "order") {  // both line-ups, each with its selected row
      for (const LineupList* list : {&state.List1, &state.List2}) {
        for (const std::string& entry : list->entries()) text << entry.front();
        text << list->selected() << (list == &state.List1 ? " " : "");
      }
    } else if (facet == "bases") {  // "A - C": who is on first, second, third
      for (int base = 1; base <= kBases; ++base) {
        const Runner runner = RunnerOn(state, base);
        text << (base > 1 ? " " : "") << (runner.none() ? "-" : runner.name);
      }
    } else if (facet == "play") {  // the last one, in words
      if (!state.plays.empty()) text << PlayInWords(state.plays.Last());
    } else if (facet == "runs") {  // "A for D, batted in, l, earned;"
      for (const dtb::Play& play : state.plays.All()) {
        for (const Move& move : play.moves) {
          if (move.to != kHomePlate) continue;
          text << move.name << " for " << play.batter << (move.battedIn ? ", batted in, " : ", ")
               << move.pitcher << (move.earned ? ", earned;" : ";");
        }
      }
    } else if (facet == "pieces") {  // "tag:plate"; "#" for a photo, "*" for one in the store
      for (const GamePiece& piece : state.pieces) {
        text << (&piece == &state.pieces[0] ? "" : " ") << piece.tag.value() << ":"
             << piece.plate.value() << (piece.picture.value().empty() ? "" : "#")
             << (piece.store.value().empty() ? "" : "*");
      }
    } else if (facet == "steps") {  // how many, and the names of the next ones back and forward
      text << history.steps() << " " << history.UndoName() << ";" << history.RedoName();
    } else if (facet == "score") {  // half-innings with a text or a mark, runs: "0=2* 4= 2:0"
      for (int k = 0; k < kHalves; ++k) {
        const std::string& runs = Cell(state, k).text.value();
        const bool marked = Cell(state, k).colour.value() == kFinishedYellow;
        if (marked || !runs.empty()) text << k << "=" << runs << (marked ? "* " : " ");
      }
      totals(kTotalRuns);
    } else if (facet == "counters") {  // and marks of reserves: "A 1B=1, J =1, l H=1, 1:0"
      for (const StatGrid* grid : {&sheet.grd_VisStats, &sheet.grd_HomeStats}) {
        for (int cell = stat_column::kCount; cell < kStatRows * stat_column::kCount; ++cell) {
          const int row = cell / stat_column::kCount, column = cell % stat_column::kCount;
          const auto name = grid->Text(row, column > 10 && column < 18 ? 11 : 1);
          const auto count = grid->Text(row, column);
          if (column < 2 || column == 11 || (column == 18 && row < 10) || count.empty()) continue;
          text << name << " " << grid->Text(0, column) << "=" << count << ", ";
        }
      }
      totals(kTotalHits);
    }
    return text.str();
  }

  FakePlatform fake;
  BoardState state;
  StatSheet sheet;
  EventLog log;
  History history;
  Board board{state, sheet, log, fake.ports, &history};
  std::size_t logRead = 0;
};

// Plays each row "script => looks" of the table in a new game and compares; an empty look is "-". A
// row goes on in lines that begin with blanks.
inline void Check(const std::string& looks, std::string table) {
  for (std::size_t at; (at = table.find("\n  ")) != table.npos;) table.replace(at, 3, " ");
  std::istringstream rows(table);
  for (std::string row; std::getline(rows, row);) {
    const std::size_t arrow = row.find(" => ");
    if (arrow == row.npos) continue;
    Game game;
    game.Play(row.substr(0, arrow));
    std::string seen, facet;
    for (std::istringstream facets(looks); facets >> facet;) {
      const std::string look = game.Look(facet);
      seen += (seen.empty() ? "" : " / ") + (look.empty() ? "-" : look);
    }
    EXPECT_EQ(seen, row.substr(arrow + 4)) << row;
  }
}

}  // namespace dtb

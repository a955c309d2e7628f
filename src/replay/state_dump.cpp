#include "game/bases.h"
#include "game/play_sums.h"
#include "game/play_words.h"
#include "platform/qt/qt_text.h"
#include "record/game_record.h"
#include "replay/game_state.h"
#include "windows/browser/browser_window.h"

namespace dtb::replay {
namespace {

std::string Indexed(const std::string& name, int index) {
  return name + '[' + std::to_string(index) + ']';
}

const char* Word(Colour colour) {
  if (colour == kWhite) return "white";
  if (colour == kFinishedYellow) return "yellow";
  return colour == kOccupiedGreen ? "green" : "grey";
}

class Lines : public StateMap {
 public:
  void Put(const std::string& name, std::string_view text) { emplace(name, text); }
  void Put(const std::string& name, const Field<std::string>& field) { Put(name, field.value()); }
  void Put(const std::string& name, const Field<bool>& field) { Put(name, field.value() ? 1 : 0); }
  void Put(const std::string& name, const Field<Picture>& field) {
    Put(name + ".picture", field.value().empty() ? "" : "1");
  }
  void Put(const std::string& name, int number) { emplace(name, std::to_string(number)); }
  // The place after the last tells that there is such a list, even an empty one.
  void PutList(const std::string& name, const QStringList& texts) {
    for (int i = 0; i < texts.size(); ++i) Put(Indexed(name, i), FromQt(texts[i]));
    Put(Indexed(name, static_cast<int>(texts.size())), "");
  }
  void PutUnless(Colour usual, const std::string& name, Colour colour) {
    Put(name + ".colour", colour == usual ? "" : Word(colour));
  }
  void Put(const std::string& name, const StatGrid& grid) {
    for (int row = 1; row < grid.rows(); ++row) {
      for (int column = 0; column < grid.columns(); ++column) {
        Put(Indexed(Indexed(name, row), column), grid.Text(row, column));
      }
    }
  }
  void Put(const std::string& name, const BrowserGrid& grid) {
    Put(name + ".visible", grid.visible);
    Put(name, grid.grid);
    Put(Indexed(name, grid.grid.rows()), "");
  }
  template <class Value, std::size_t count>
  void Put(const std::string& name, const std::array<Field<Value>, count>& fields) {
    for (std::size_t i = 0; i < count; ++i) Put(Indexed(name, static_cast<int>(i)), fields[i]);
  }
  // Takes names and values in turn.
  template <class Value, class... More>
  void PutAll(const std::string& name, const Value& value, const More&... more) {
    Put(name, value);
    if constexpr (sizeof...(more) > 0) PutAll(more...);
  }
};

// NAME, state.NAME: the names on the board are those in the code.
#define ON_BOARD(name) #name, state.name
#define ON_SHEET(name) "Form2." #name, sheet.name

void PutFields(Lines& lines, const BoardState& state, const StatSheet& sheet) {
  lines.PutAll(ON_BOARD(tb_VisTeam), ON_BOARD(tb_HomeTeam), ON_BOARD(Option5), ON_BOARD(Option6),
               ON_BOARD(lbl_Selected), ON_BOARD(BatterOf), ON_BOARD(lbl_L1current),
               ON_BOARD(lbl_L2current), ON_BOARD(tb_ListBoxStatus), ON_BOARD(Check1),
               ON_BOARD(Check2), ON_BOARD(tb_List1edit), ON_BOARD(tb_List2edit),
               ON_BOARD(DragSourceIndex));
  lines.PutAll(ON_BOARD(lbl_VisPitcher), ON_BOARD(lbl_HomePitcher), "lbl_VisPitcher.tag",
               state.lbl_VisPitcher_tag, "lbl_HomePitcher.tag", state.lbl_HomePitcher_tag,
               ON_BOARD(img_VisPitch), ON_BOARD(img_HomePitch));
  lines.PutAll(ON_BOARD(tb_OUT), ON_BOARD(tb_OutsCount), ON_BOARD(cb_Xinnings),
               ON_BOARD(lbl_BoxSel), ON_BOARD(lbl_VisHome), ON_BOARD(lbl_NumSel),
               ON_BOARD(StolenBasePiece), ON_BOARD(LastRunnerClicked), ON_BOARD(img_VisLogo),
               ON_BOARD(img_HomeLogo));
  lines.PutAll(ON_BOARD(cb_BaseTracker), ON_BOARD(cb_KeepBases), ON_BOARD(chk_Ctrls),
               ON_BOARD(lbl_PhotoPath), ON_BOARD(Text1));
  lines.PutAll(ON_SHEET(lbl_VisTeam), ON_SHEET(lbl_HomeTeam), ON_SHEET(Picture3),
               ON_SHEET(Picture4), ON_SHEET(tb_Comments), ON_SHEET(Text1),
               ON_SHEET(lbl_GridSelected), "Form2.Text1.visible", sheet.Text1_visible);
}

#undef ON_BOARD
#undef ON_SHEET

void PutSide(Lines& lines, Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  const bool visitors = side == Side::Visitors;
  const std::string list = visitors ? "List1" : "List2";
  const std::string cells = visitors ? "tb_BoxScore" : "tb_BoxScoreBottom";
  const std::string colour = Word(SideColour(board.state, side));
  QStringList entries;
  for (const std::string& entry : fields.list.entries()) entries += ToQt(entry);
  lines.PutList(list, entries);
  lines.PutAll(list + ".selected", fields.list.selected(), list + ".due", fields.due.value(),
               list + ".colour", colour, visitors ? "tb_VisTeam.colour" : "tb_HomeTeam.colour",
               colour);
  for (int cell = 0; cell < kScoreCells; ++cell) {
    lines.Put(Indexed(cells, cell), fields.score.at(cell).text);
    lines.PutUnless(kGrey, Indexed(cells, cell), fields.score.at(cell).colour.value());
  }
}

void PutPieces(Lines& lines, const BoardState& state) {
  for (int i = 0; i < kPieces; ++i) {
    const GamePiece& piece = state.pieces.at(i);
    const std::string number = std::to_string(i + 1);
    lines.PutAll("pb_Player" + number + ".tag", piece.tag, "pb_Player" + number, piece.picture,
                 "lbl_Player" + number, piece.plate, "Image" + std::to_string(i + 2), piece.store);
  }
  for (int base = 0; base < 3; ++base) {
    const std::string name = "lbl_tracker" + std::to_string(base + 1);
    lines.PutUnless(kWhite, name, state.lbl_tracker.at(base).value());
  }
}

// The bases count from 1; R, and the runs charged to a pitcher, stand beside his row of the
// sheet.
void PutPlays(Lines& lines, Board& board) {
  const BoardState& state = board.state;
  for (int base = kFirstBase; base <= kThirdBase; ++base) {
    lines.Put(Indexed("base", base), RunnerOn(state, base).name);
  }
  QStringList plays;
  for (const Play& play : state.plays.All()) plays += ToQt(PlayWithInning(play));
  lines.PutList("play", plays);
  lines.Put("decisions", DecisionsText(RecordOf(board).decisions));
  for (const Side batting : {Side::Visitors, Side::Home}) {
    const PlaySums sums = SumsOf(board, batting);
    const std::string side = batting == Side::Visitors ? "visitors" : "home";
    const std::string other = batting == Side::Visitors ? "home" : "visitors";
    const StatGrid& batters = SideOf(board, batting).grid;
    const StatGrid& pitchers = SideOf(board, Other(batting)).grid;
    const auto put = [&lines](const std::string& name, int row,
                              const std::map<std::string, int>& of, std::string_view player) {
      const auto found = of.find(std::string(player));
      lines.Put(Indexed(name, row), found == of.end() ? "" : std::to_string(found->second));
    };
    for (int row = 1; row < kStatRows; ++row) {
      put("R." + side, row, sums.runs, batters.Text(row, stat_column::kBatter));
      put("charged." + other, row, sums.charged, pitchers.Text(row, stat_column::kPitcher));
    }
    lines.Put("left." + side, sums.leftOnBase == 0 ? "" : std::to_string(sums.leftOnBase));
  }
}

void PutVisible(Lines& lines, const BoardWindow& form1) {
  for (const char* name : {"fra_Options", "pb_BaseTracker", "pb_Res", "Frame1", "Text1",
                           "lbl_PhotoPath", "tb_List1edit", "tb_List2edit", "lbl_Player1",
                           "lbl_Player2", "lbl_Player3", "lbl_Player4"}) {
    for (const QWidget* control : form1.findChildren<QWidget*>(name)) {
      if (control->window() != &form1) continue;
      lines.Put(std::string(name) + ".visible", control->isHidden() ? 0 : 1);
    }
  }
}

#define IN_BROWSER(name) "Form4." #name, state.name

void PutBrowser(Lines& lines, const BrowserState& state) {
  lines.PutAll("Form4.SSTab1", state.SSTab1.value(), IN_BROWSER(Text1), IN_BROWSER(Text2),
               IN_BROWSER(Text3), IN_BROWSER(Text4), IN_BROWSER(Text5), IN_BROWSER(Text6),
               IN_BROWSER(Text7), IN_BROWSER(Text8), IN_BROWSER(Text9), IN_BROWSER(Text10),
               IN_BROWSER(Text11), IN_BROWSER(lbl_DEL2), IN_BROWSER(tb_Team), IN_BROWSER(lbl_Champ),
               IN_BROWSER(lbl_Twice));
  lines.PutAll(IN_BROWSER(lbl_Team), IN_BROWSER(lbl_TeamRnd2), IN_BROWSER(lbl_TeamRnd3),
               IN_BROWSER(lbl_TeamRnd4));
  lines.PutAll(IN_BROWSER(MSHFlexGrid1), IN_BROWSER(MSHFlexGrid2), IN_BROWSER(MSHFlexGrid3),
               IN_BROWSER(MSHFlexGrid4), IN_BROWSER(MSHFlexGrid5), IN_BROWSER(MSHFlexGrid6),
               IN_BROWSER(MSHFlexGrid7), IN_BROWSER(MSHFlexGrid8), IN_BROWSER(MSHFlexGrid9),
               IN_BROWSER(MSHFlexGrid10), IN_BROWSER(MSHFlexGrid11), IN_BROWSER(MSHFlexGrid12));
}

#undef IN_BROWSER

// Of a picture, what it says to those who cannot see it.
void PutSeason(Lines& lines, const SeasonTab& season) {
  for (const auto& [name, grid] : {std::pair{"Form4.grd_Standings", &season.standings()},
                                   {"Form4.grd_Names", &season.names()},
                                   {"Form4.grd_Months", &season.months()}}) {
    lines.Put(name, *grid);
    lines.Put(Indexed(name, grid->rows()), "");
  }
  for (const char* name : {"lbl_Chosen", "lbl_Scores", "lbl_SeasonNote"}) {
    lines.Put(std::string("Form4.") + name, FromQt(season.findChild<QLabel*>(name)->text()));
  }
  for (const auto* picture : season.findChildren<SeasonChart*>()) {
    QString words = picture->accessibleDescription();
    lines.Put("Form4." + FromQt(picture->objectName()), FromQt(words.replace("\n", "\\n")));
  }
}

}  // namespace

StateMap StateLines(Board& board, const BoardWindow& form1, const QStringList& messages) {
  Lines lines;
  PutFields(lines, board.state, board.sheet);
  PutSide(lines, board, Side::Visitors);
  PutSide(lines, board, Side::Home);
  PutPieces(lines, board.state);
  PutPlays(lines, board);
  PutVisible(lines, form1);
  lines.PutAll("grd_VisStats", board.sheet.grd_VisStats, "grd_HomeStats", board.sheet.grd_HomeStats,
               "grd_BoxScore", board.sheet.grd_BoxScore);
  if (const auto* browser = form1.findChild<const BrowserWindow*>()) {
    PutBrowser(lines, browser->state());
    PutSeason(lines, browser->season());
  }
  lines.PutList("log", ToQt(board.log.text()).split("\r\n", Qt::SkipEmptyParts));
  lines.PutList("message", QStringList(messages).replaceInStrings("\n", "\\n"));
  return lines;
}

}  // namespace dtb::replay

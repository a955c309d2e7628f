#include "replay/state_dump.h"

#include "platform/qt/qt_text.h"

namespace dtb::replay {
namespace {

template <class T>
using Named = std::pair<const char*, const Field<T>&>;

std::string Indexed(const std::string& name, int index) {
  return name + "[" + std::to_string(index) + "]";
}

const char* Word(Colour colour) {
  if (colour == kWhite) return "white";
  if (colour == kFinishedYellow) return "yellow";
  return colour == kOccupiedGreen ? "green" : "grey";
}

class Lines {
 public:
  void Put(const std::string& name, std::string_view text) {
    if (!text.empty()) lines_.emplace(name, text);
  }
  void Put(const std::string& name, int number) { lines_.emplace(name, std::to_string(number)); }
  void PutPicture(const std::string& name, const Field<Picture>& picture) {
    if (!picture.value().empty()) Put(name + ".picture", 1);
  }
  [[nodiscard]] std::map<std::string, std::string> Take() { return std::move(lines_); }

 private:
  std::map<std::string, std::string> lines_;
};

void PutFields(Lines& lines, const BoardState& state, const StatSheet& sheet) {
  for (const auto& [name, field] : std::initializer_list<Named<std::string>>{
           {"tb_VisTeam", state.tb_VisTeam},
           {"tb_HomeTeam", state.tb_HomeTeam},
           {"lbl_Selected", state.lbl_Selected},
           {"lbl_L1current", state.lbl_L1current},
           {"lbl_L2current", state.lbl_L2current},
           {"tb_ListBoxStatus", state.tb_ListBoxStatus},
           {"tb_List1edit", state.tb_List1edit},
           {"tb_List2edit", state.tb_List2edit},
           {"lbl_VisPitcher", state.lbl_VisPitcher},
           {"lbl_HomePitcher", state.lbl_HomePitcher},
           {"lbl_VisPitcher.tag", state.lbl_VisPitcher_tag},
           {"lbl_HomePitcher.tag", state.lbl_HomePitcher_tag},
           {"tb_OUT", state.tb_OUT},
           {"tb_OutsCount", state.tb_OutsCount},
           {"lbl_BoxSel", state.lbl_BoxSel},
           {"lbl_VisHome", state.lbl_VisHome},
           {"lbl_NumSel", state.lbl_NumSel},
           {"lbl_PhotoPath", state.lbl_PhotoPath},
           {"Text1", state.Text1},
           {"Form2.lbl_VisTeam", sheet.lbl_VisTeam},
           {"Form2.lbl_HomeTeam", sheet.lbl_HomeTeam},
           {"Form2.tb_Comments", sheet.tb_Comments},
           {"Form2.Text1", sheet.Text1},
           {"Form2.lbl_GridSelected", sheet.lbl_GridSelected}}) {
    lines.Put(name, field.value());
  }
  for (const auto& [name, field] :
       std::initializer_list<Named<bool>>{{"Option5", state.Option5},
                                          {"Option6", state.Option6},
                                          {"Check1", state.Check1},
                                          {"Check2", state.Check2},
                                          {"cb_Xinnings", state.cb_Xinnings},
                                          {"cb_BaseTracker", state.cb_BaseTracker},
                                          {"chk_Ctrls", state.chk_Ctrls}}) {
    lines.Put(name, field.value() ? 1 : 0);
  }
  for (const auto& [name, field] :
       std::initializer_list<Named<Picture>>{{"img_VisPitch", state.img_VisPitch},
                                             {"img_HomePitch", state.img_HomePitch},
                                             {"img_VisLogo", state.img_VisLogo},
                                             {"img_HomeLogo", state.img_HomeLogo},
                                             {"Form2.Picture3", sheet.Picture3},
                                             {"Form2.Picture4", sheet.Picture4}}) {
    lines.PutPicture(name, field);
  }
  lines.Put("DragSourceIndex", state.DragSourceIndex);
  lines.Put("StolenBasePiece", state.StolenBasePiece);
  lines.Put("LastRunnerClicked", state.LastRunnerClicked);
}

void PutSide(Lines& lines, Board& board, Side side) {
  const SideFields fields = SideOf(board, side);
  const bool visitors = side == Side::Visitors;
  const std::string list = visitors ? "List1" : "List2";
  for (int row = 0; row < fields.list.size(); ++row) {
    lines.Put(Indexed(list, row), fields.list.entries()[row]);
  }
  lines.Put(list + ".selected", fields.list.selected());
  lines.Put(list + ".colour", Word(SideColour(board.state, side)));
  lines.Put(visitors ? "tb_VisTeam.colour" : "tb_HomeTeam.colour",
            Word(SideColour(board.state, side)));
  for (int cell = 0; cell < kScoreCells; ++cell) {
    const std::string name = Indexed(visitors ? "tb_BoxScore" : "tb_BoxScoreBottom", cell);
    const ScoreCell& score = fields.score.at(cell);
    lines.Put(name, score.text.value());
    if (score.colour.value() != kGrey) lines.Put(name + ".colour", Word(score.colour.value()));
  }
}

void PutPieces(Lines& lines, const BoardState& state) {
  for (int i = 0; i < kPieces; ++i) {
    const GamePiece& piece = state.pieces.at(i);
    const std::string number = std::to_string(i + 1);
    lines.Put("pb_Player" + number + ".tag", piece.tag.value());
    lines.PutPicture("pb_Player" + number, piece.picture);
    lines.Put("lbl_Player" + number, piece.plate.value());
    lines.PutPicture("Image" + std::to_string(i + 2), piece.store);
  }
  for (int base = 0; base < 3; ++base) {
    const Colour colour = state.lbl_tracker.at(base).value();
    const std::string name = "lbl_tracker" + std::to_string(base + 1);
    if (colour != kWhite) lines.Put(name + ".colour", Word(colour));
  }
}

void PutVisible(Lines& lines, const Form1& form1) {
  for (const char* name : {"fra_Options", "pb_BaseTracker", "pb_Res", "Frame1", "Text1",
                           "lbl_PhotoPath", "tb_List1edit", "tb_List2edit", "lbl_Player1",
                           "lbl_Player2", "lbl_Player3", "lbl_Player4"}) {
    for (const QWidget* control : form1.findChildren<QWidget*>(name)) {
      const bool onBoard = control->window() == &form1;
      if (onBoard) lines.Put(std::string(name) + ".visible", control->isHidden() ? 0 : 1);
    }
  }
}

void PutGrid(Lines& lines, const std::string& name, const StatGrid& grid) {
  for (int row = 1; row < grid.rows(); ++row) {
    for (int column = 0; column < grid.columns(); ++column) {
      lines.Put(Indexed(Indexed(name, row), column), grid.Text(row, column));
    }
  }
}

}  // namespace

std::map<std::string, std::string> StateLines(Board& board, const Form1& form1,
                                              const QStringList& messages) {
  Lines lines;
  PutFields(lines, board.state, board.sheet);
  PutSide(lines, board, Side::Visitors);
  PutSide(lines, board, Side::Home);
  PutPieces(lines, board.state);
  PutVisible(lines, form1);
  lines.Put("Form2.Text1.visible", board.sheet.Text1_visible.value() ? 1 : 0);
  PutGrid(lines, "grd_VisStats", board.sheet.grd_VisStats);
  PutGrid(lines, "grd_HomeStats", board.sheet.grd_HomeStats);
  PutGrid(lines, "grd_BoxScore", board.sheet.grd_BoxScore);
  const QStringList log = ToQt(board.log.text()).split("\r\n", Qt::SkipEmptyParts);
  for (int i = 0; i < log.size(); ++i) lines.Put(Indexed("log", i), FromQt(log[i]));
  for (int i = 0; i < messages.size(); ++i) {
    QString message = messages[i];
    lines.Put(Indexed("message", i), FromQt(message.replace('\n', "\\n")));
  }
  return lines.Take();
}

}  // namespace dtb::replay

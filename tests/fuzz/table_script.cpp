// Bytes as a table script, played through the real windows, all of it taken back and done again.
#include <QApplication>
#include <sstream>

#include "fuzz.h"
#include "replay/player.h"

using namespace dtb;
using namespace dtb::replay;

namespace {

constexpr std::size_t kMostLines = 150;

// What cannot be done just then is left out.
class TirelessPlayer : public Player {
 public:
  using Player::Player;

 protected:
  void Refuse(const QString& reason) override {
    fuzz::Require(!reason.startsWith("the gesture does not end"), "each gesture ends");
    fuzz::Require(!reason.startsWith("the game after"), "a game is taken back and done again");
  }
};

// "#" stands for a number that the next byte tells.
const std::vector<std::string>& Lines() {
  static const std::vector<std::string> lines = [] {
    std::istringstream text(R"(1B
2B
3B
HR
BB
K
GO
FO
LO
PO
DP
FC
TO
AB
RBI
UNDO
REDO
ATBAT visitors
ATBAT home
ROW List1 #
ROW List2 #
DBLCLICK lbl_VisPitcher
DBLCLICK lbl_HomePitcher
CLICK pb_Player1
CTRLCLICK pb_Player2
DBLCLICK pb_Player1
DBLCLICK pb_Player3
DRAG pb_Player1 400,#
DRAG pb_Player2 1#,10
OUTCOME S
OUTCOME 2
OUTCOME K
OUTCOME Down
CLICK Check1
DBLROW List1 #
RIGHTROW List2 #
DRAGROW List1 # 3
TYPE tb_List1edit New=Man#
CLICK Command4
CLICK tb_BoxScore[#]
TYPE tb_BoxScoreBottom[#] 1
KEY tb_OUT 3
TYPE tb_OUT #
CLICK lbl_3
LOAD visitors V.txt
LOAD home Alpha 1901.txt
LOAD home S.txt
LOAD visitors Nobody.txt
CANCEL
ANSWER No
CLICK lbl_STATS
CELL grd_VisStats # 9
DBLCELL grd_HomeStats # 5
TYPE SheetWindow.Text1 #
KEY SheetWindow.Text1 Return
TYPE tb_Comments any
CLICK Command2
KEY SheetWindow.Command2 Escape
MENU Database
TAB SSTab1 #
CELL MSHFlexGrid1 # 26
TYPE Text9 #
KEY BrowserWindow.SSTab1 Escape
MENU Options
TYPE tb_OutsCount 11#
MENU EventLog
TICK #
)");
    std::vector<std::string> all;
    for (std::string line; std::getline(text, line);) all.push_back(line);
    return all;
  }();
  return lines;
}

std::string ScriptOf(std::string_view bytes) {
  std::string script =
      "LOAD visitors V.txt\nLOAD home H.txt\nPITCHER visitors V10\nPITCHER home H10\n"
      "ATBAT visitors\nBATTER visitors V1\n";
  fuzz::Input input(bytes);
  for (std::size_t made = 0; !input.AtEnd() && made < kMostLines; ++made) {
    std::string line = Lines()[input.Below(Lines().size())];
    const std::size_t hash = line.find('#');
    if (hash != line.npos) line.replace(hash, 1, std::to_string(input.Below(40)));
    script += line + '\n';
  }
  return script;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("TMPDIR", fuzz::Folder().c_str());  // of the tables
  new QApplication(*argc, *argv);             // until the very end
  QApplication::setQuitOnLastWindowClosed(false);
  DressApplication();
  for (const auto& entry : std::filesystem::directory_iterator(DTB_TEAMS)) {
    std::filesystem::copy(entry.path(), fuzz::Folder());
  }
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = fuzz::WriteInput("clicks", ScriptOf(fuzz::BytesOf(data, size)));
  fuzz::Show(ScriptOf(fuzz::BytesOf(data, size)));
  PlayTable table;
  Player::Options options;
  options.undo = true;
  TirelessPlayer player(table, QString::fromStdString(file.string()), options);
  table.desk.Open();
  fuzz::Require(player.Run() == 0, "a script comes to its end");
  fuzz::Require(MessageBox::Open() == nullptr, "no box is left");
  return 0;
}

// Team files, line-ups and their editing, game pieces and photos.
#include <random>

#include "fake_platform.h"
#include "game/player_name.h"
#include "teams/photo_folder.h"

namespace dtb {

// Lines in the list, the last one and the last name that the table got from them, names and marks
// in the table, team on the board and on the sheet, number of the error.
std::string Visitors(Game& game) {
  const auto& entries = game.state.List1.entries();
  const StatGrid& grid = game.sheet.grd_VisStats;
  int marks = 0;
  while (grid.Text(marks + 1, stat_column::kPlayed) == "1") ++marks;
  const int last = std::min(game.state.List1.size(), kStatRows - 1);
  const std::string told = game.Look("told") + "occurred: none";
  std::ostringstream text;
  text << entries.size() << " " << (entries.empty() ? "" : entries.back()) << ">"
       << (last > 0 ? grid.Text(last, 1) : "") << " " << grid.FindRow(1, "").value_or(kStatRows) - 1
       << " " << marks << " " << game.state.tb_VisTeam.value() << "|"
       << game.sheet.lbl_VisTeam.value() << " "
       << std::atoi(told.c_str() + told.find("occurred: ") + 10);
  return text.str();
}

TEST(TeamFiles, LoadAsFarAsTheyAreGood) {
  using namespace std::string_literals;
  const auto lines = [](int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) text.append("P").append(std::to_string(i)).append("=x\n");
    return text;
  };
  const std::vector<std::tuple<std::u8string, std::string, std::string>> cases{
      {u8"Comets 1968.txt", lines(12), "12 P12=x>P12 12 9 Comets 1968|Comets 1968 0"},
      {u8"Comets=1968.csv", lines(49), "49 P49=x>P49 49 9 Comets|Comets 0"},
      {u8"Team.csvx", lines(1), "1 P1=x>P1 1 9 Team.|Team. 0"},
      {u8"Owls.t\u00EBx", "", "0 > 0 9 Owls|Owls 0"},
      {u8".txt", lines(3), "3 P3=x>P3 3 0 |Team 5"},
      {u8"a.b", lines(3), "3 P3=x> 0 0 a.b|Team 5"},
      {u8"Comets=1968.txt", lines(50), "50 P50=x>P49 49 0 Comets=1968|Team 9"},
      {u8"Big.txt", lines(5000), "5000 P5000=x>P49 49 0 Big|Team 9"},
      {u8"huge.txt", std::string(17'000'000, 'A'), "0 > 0 0 VIS|Team 75"},
      {u8"no folder/none.txt", "", "0 > 0 0 VIS|Team 53"},
      {u8".", "", "0 > 0 0 VIS|Team 75"},
      // Whatever the line ends and the encoding.
      {u8"Owls.txt", "A\rB\rC\r\nD\n\r\nE", "5 E>E 5 9 Owls|Owls 0"},
      {u8"Owls.txt", "A\n \n=x\nA =x=.3", "4 A =x=.3>A  2 9 Owls|Owls 0"},
      {u8"Owls.txt", "A,RF,\0=x"s, "1 A,RF,\0=x>A,RF,\0 1 9 Owls|Owls 0"s},
      {u8"Owls.txt", "\xEF\xBB\xBF\xEF\xBB\xBF=", "1 \xEF\xBB\xBF=>\xEF\xBB\xBF 1 9 Owls|Owls 0"},
      {u8"Owls.txt", "\xEF\xBB\xBF\xC3\xA9=", "1 \xC3\xA9=>\xC3\xA9 1 9 Owls|Owls 0"},
      {u8"Owls.txt", "=\xE9\x80\xFF", "1 =\xC3\xA9\xE2\x82\xAC\xC3\xBF> 0 9 Owls|Owls 0"},
      {u8"Owls.txt", "=\xED\xA0\x80", "1 =\xC3\xAD\xC2\xA0\xE2\x82\xAC> 0 9 Owls|Owls 0"},
      {u8"Owls.txt", "\xFF\xFE\xE9\0\r\0\n\0B\0"s, "2 B>B 2 9 Owls|Owls 0"},
      {u8"Owls.txt", "\xFE\xFF\0=\xD8\x3D\xDE\0\xD8\0\0"s,
       "1 =\xF0\x9F\x98\x80\xEF\xBF\xBD> 0 9 Owls|Owls 0"},
  };
  for (const auto& [file, bytes, expected] : cases) {
    Game game(false);
    game.Load(Side::Visitors, file, bytes);
    EXPECT_EQ(Visitors(game), expected);
  }
  Game game;
  game.Load(Side::Visitors, "Bats.txt", lines(10));
  EXPECT_EQ(Visitors(game), "10 P10=x>P10 12 9 Bats|Bats 0") << "what stands below them stays";
  game.fake.chosen.reset();
  LoadTeam(game.board, Side::Visitors);
  EXPECT_EQ(Visitors(game), "10 P10=x>P10 12 9 Bats|Bats 0") << "cancelled";
}

TEST(Names, HaveAFamilyPart) {
  const std::pair<const char*, const char*> names[] = {{"Tony Kubek", "Kubek"},
                                                       {"Ken Griffey Jr.", "Griffey Jr."},
                                                       {"Maris, Roger", "Maris"},
                                                       {"Tommy La Stella", "La Stella"},
                                                       {"Elly De La Cruz", "De La Cruz"},
                                                       {"Ivan de Jesus Jr.", "de Jesus Jr."},
                                                       {"Van Mungo", "Mungo"},
                                                       {"La Marr", "Marr"},
                                                       {"De La Cruz, Elly", "De La Cruz"},
                                                       {"Ichiro", "Ichiro"}};
  for (const auto& [name, last] : names) EXPECT_EQ(LastNameOf(name), last) << name;
}

TEST(LineUps, AreEdited) {
  Check("order clock told", R"(
bat:v9 => ABCDEFGHIJKL9 abcdefghijkl0 / 0 0 V A / -
up:v => ABCDEFGHIJKL0 abcdefghijkl0 / 0 0 V A / -
bat:v2 up:v => ACBDEFGHIJKL1 abcdefghijkl0 / 0 0 V C / -
bat:v9 up:v => ABCDEFGHJIKL8 abcdefghijkl0 / 0 0 V J / -
bat:v8 down:v => ABCDEFGHJIKL9 abcdefghijkl0 / 0 0 V I / -
bat:v11 down:v => ABCDEFGHIJKL11 abcdefghijkl0 / 0 0 V A / -
bat:h1 up:h => ABCDEFGHIJKL0 bacdefghijkl0 / 0 0 V A / -
edit:v bat:v1 up:v => BACDEFGHIJKL0 abcdefghijkl0 / 0 0 V A / -

A dragged entry lands above the row of its drop, with Shift below it.
edit:v drag:v1 drop:v4 => ACDBEFGHIJKL3 abcdefghijkl0 / 0 0 V A / -
edit:v drag:v1 dropshift:v4 => ACDEBFGHIJKL4 abcdefghijkl0 / 0 0 V A / -
edit:v drag:v4 drop:v1 => AEBCDFGHIJKL1 abcdefghijkl0 / 0 0 V A / -
edit:v drag:v4 dropshift:v1 => ABECDFGHIJKL2 abcdefghijkl0 / 0 0 V A / -
edit:v drag:v0 dropshift:v11 => BCDEFGHIJKLA11 abcdefghijkl0 / 0 0 V A / -
drag:v1 drop:v4 => ABCDEFGHIJKL4 abcdefghijkl0 / 0 0 V E / -

rewrite:vZ bat:v1 rewrite:v => ZBCDEFGHIJKL1 abcdefghijkl0 / 0 0 V B / -
show:v3 => ABCDEFGHIJKL3 abcdefghijkl0 / 0 0 V A / !: D=x
show:v3 bat:v4 => ABCDEFGHIJKL4 abcdefghijkl0 / 0 0 V E / !: D=x

A change of pitchers gives the highlight back to the batting order.
bat:v3 pitch:v10 => ABCDEFGHIJKL3 abcdefghijkl0 / 0 0 V D / -
atbat:h bat:h8 bat:h9 pitch:h10 => ABCDEFGHIJKL0 abcdefghijkl8 / 0 0 H i / -
)");
}

TEST(Pieces, AreTakenAndFreed) {
  Check("pieces clock", R"(
1B 1B 1B 1B => A:A B:B C:C D:D / 0 0 V E
bat:v0 GO => B:B A: : : / 1 0 V B
free:p0 => : : : : / 0 0 V A
plate:p0 => A: : : : / 0 0 V A
1B reset: => A: B: : : / 0 0 V B

A photo that was taken off stays in the store: only another photo takes the piece.
photo:B 1B GO => A:A B:* C:C : / 1 0 V C
photo:B 1B free:p1 bat:v2 bat:v1 => A:A B:#* C:C : / 0 0 V B
photo:B 1B free:p1 reset: bat:v2 => C:C : : : / 0 0 V C
photo:A reset: bat:v0 bat:v0 bat:v0 bat:v0 free:p2 bat:v1 => A:#* A:#* :* A:#* / 0 0 V B
)");
}

TEST(Pieces, GiveStolenBasesToTheNameOnThem) {
  Check("counters log told", R"(
click:p0 => 0:0 / - / -
ctrl:up click:p0 => 0:0 / - / -
ctrl:held click:p3 => 0:0 / - / -
ctrl:held click:p0 click:p0 ctrl:up click:p0 => A SB=2, 0:0 / A_____SB;A_____SB;
  / Stat Recorded. | Stat Recorded.
1B plate:p1 ctrl:held click:p1 => A 1B=1, A AB=1, B SB=1, l H=1, 1:0 / A=x_____1B;B_____SB;
  / HIT recorded. | Stat Recorded.
OUT:3 bat:h0 ctrl:held click:p0 => 0:0 / A_____SB; / -
)");
}

TEST(Pieces, ShrinkToTheGroundLineAndStayWithinReach) {
  Game game;
  EnlargePieces(game.board);
  ShrinkPieces(game.board);
  EXPECT_DOUBLE_EQ(game.state.pieces[0].top.value(), 974 - 1.175 * 135);
  MovePiece(game.board, 2, 500, 5000);
  ShrinkPieces(game.board);
  for (const GamePiece& piece : game.state.pieces) EXPECT_NEAR(piece.top.value(), 830.09, 1e-9);
  EXPECT_DOUBLE_EQ(game.state.pieces[2].left.value(), 500 - 90 * 0.99 / 2);
  MovePiece(game.board, 0, -4000, -4000);
  MovePiece(game.board, 1, 4000, 0);
  EXPECT_NEAR(game.state.pieces[0].left.value(), 24 - 90 * 0.891, 1e-9);
  EXPECT_NEAR(game.state.pieces[0].top.value(), 24 - 135 * 0.891, 1e-9);
  EXPECT_NEAR(game.state.pieces[1].left.value(), 1679 - 24, 1e-9);
}

// Whatever is done to the pieces, in whatever order, a strip of each stays on the scene.
TEST(Pieces, AreNeverOutOfReach) {
  Game game;
  std::mt19937 random(5);
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  for (int step = 0; step < 600; ++step) {
    const int operation = below(12);
    // In runs, so that the sizes reach their ends.
    for (int times = below(20); times >= 0; --times) {
      if (operation < 4) MovePiece(game.board, below(4), below(9000) - 4000, below(9000) - 4000);
      if (operation == 4 || operation == 5) EnlargePieces(game.board);
      if (operation == 6 || operation == 7) ShrinkPieces(game.board);
      if (operation == 8) ResetGamePieces(game.board);
      if (operation == 9 || operation == 10) game.board.history->Undo(game.board);
      if (operation == 11) game.board.history->Redo(game.board);
    }
    const double width = game.state.pieceWidth.value();
    const double height = game.state.pieceHeight.value();
    ASSERT_TRUE(width >= 12 && height <= kSceneHeight);
    for (const GamePiece& piece : game.state.pieces) {
      const double left = piece.left.value();
      const double top = piece.top.value();
      const double across = std::min(left + width, kSceneWidth) - std::max(left, 0.0);
      const double down = std::min(top + height, kSceneHeight) - std::max(top, 0.0);
      ASSERT_GE(across, std::min(width, 24.0) - 1e-6)
          << "operation " << operation << ", step " << step;
      ASSERT_GE(down, std::min(width, 23.5) - 1e-6)
          << "operation " << operation << ", step " << step;
    }
  }
}

TEST(Photos, ComeFromTheFolderOfThePlayer) {
  Game game;
  game.fake.photos = {"/new/l.jpg"};
  for (const std::string folder : {"/without Ctrl", "/new", "/newer"}) {
    const bool shown = folder.starts_with("/new");
    game.fake.control = shown;
    game.fake.settingsFail = folder == "/newer";
    BeginEdit(game.fake.ports, PhotoFolder(game.state));
    game.fake.chosen = folder;
    ChooseFolder(game.fake.ports, PhotoFolder(game.state));
    RefreshPitcherPhotos(game.board);
    EXPECT_EQ(game.state.lbl_PhotoPath.value(), shown ? folder : "");
    EXPECT_FALSE(game.state.Text1_visible.value());
    EXPECT_EQ(game.state.img_HomePitch.value().path, shown ? "/new/l.jpg" : "");
  }
  StartUp(game.board);
  EXPECT_EQ(game.fake.settings["labels/lbl_PhotoPath"] + game.state.lbl_PhotoPath.value(),
            "/new/new");
  EXPECT_EQ(game.Look("told"),
            "x: Program Error: The following error has occurred: 75, no settings");
  game.Do("pitch:h3");
  EXPECT_TRUE(game.state.img_HomePitch.value().empty()) << "never the photo of another player";
}

TEST(Program, GoesOnUnchangedAfterANo) {
  Game game;
  const GameMemento before = Remember(game.board);
  EXPECT_FALSE(ConfirmExit(game.board));
  EXPECT_TRUE(Remember(game.board) == before);
  EXPECT_EQ(game.Look("told"), "EXIT program?");
}

}  // namespace dtb

// The bases of the ballpark: those of the parks that ship, and the markers that set them.
#include "windows/board/park_markers.h"

#include <QDirIterator>

#include "game/game_pieces.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class ParkMarkersTest : public WindowTest {
 protected:
  static constexpr std::array kNames{"ParkMarkerHome", "ParkMarker1", "ParkMarker2", "ParkMarker3"};

  void ShowPark(const char* name) {
    const QString file = folder_.filePath(QLatin1String(name));
    QImage picture(40, 20, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    EXPECT_TRUE(picture.save(file));
    desk_->aids().Picture1.Set({FromQt(file), 1});
  }
  void OpenMarkers() {
    board().state.fra_Options_visible.Set(true);
    Click(Find("cmd_ParkPlaces"));
    EXPECT_TRUE(Find("ParkMarkerHome")->isVisible());
  }
  // From where a marker is caught, in pixels from its middle, by so many pixels.
  void Drag(const char* name, const QPoint& way) {
    auto* marker = Find(name);
    const QPoint caught = marker->rect().center() + QPoint(2, 3);
    QTest::mousePress(form1().windowHandle(), Qt::LeftButton, {}, marker->mapTo(&form1(), caught));
    // Qt's own helper cannot move with a button held.
    QMouseEvent move(QEvent::MouseMove, QPointF(caught + way),
                     marker->mapToGlobal(QPointF(caught + way)), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(marker, &move);
    QTest::mouseRelease(form1().windowHandle(), Qt::LeftButton, {},
                        marker->mapTo(&form1(), caught));
  }
  [[nodiscard]] bool Shown() { return Find("fra_ParkPlaces")->isVisible(); }
  const ParkPlaces& Places() { return desk_->aids().parkPlaces.value(); }
};

// On the screen the picture fills the park, so a place in the one is a place on the other.
TEST(ParksThatShip, HaveTheirBasesWhereTheyAreDrawn) {
  QTemporaryDir folder;
  Desk::Setup setup{.programFolder = DTB_PROGRAM_FOLDER,
                    .settingsFile = folder.filePath(QStringLiteral("settings.ini")),
                    .recovery = false};
  Desk desk(setup);
  int parks = 0;
  for (QDirIterator file(QStringLiteral(DTB_PROGRAM_FOLDER "/Ballparks"),
                         {QStringLiteral("*.jpg")});
       file.hasNext(); ++parks) {
    const QString park = file.next();
    SCOPED_TRACE(FromQt(park));
    desk.aids().Picture1.Set({FromQt(park), 1});
    EXPECT_TRUE(desk.aids().parkPlacesKnown.value());
    const auto& [home, first, second, third] = desk.aids().parkPlaces.value();
    EXPECT_TRUE(second.y < first.y && second.y < third.y) << "second base lies the farthest away";
    EXPECT_TRUE(first.y < home.y && third.y < home.y);
    EXPECT_TRUE(third.x < second.x && second.x < first.x);
    const QImage picture(park);
    ASSERT_FALSE(picture.isNull());
    const auto brightness = [&picture](const ParkPlace& place, int down) {
      const QPoint pixel(qRound(place.x * picture.width()), qRound(place.y * picture.height()));
      return qGray(picture.pixel(pixel + QPoint(0, down)));
    };
    for (const ParkPlace& base : {home, first, second, third}) {
      constexpr int kBehind = -40;  // pixels of the picture: dirt without a line
      constexpr int kWhiter = 50;
      EXPECT_GT(brightness(base, 0), brightness(base, kBehind) + kWhiter)
          << base.x << " " << base.y;
    }
  }
  EXPECT_EQ(parks, 4);
}

TEST_F(ParkMarkersTest, MarkersAreKeptByDoneAlone) {
  ShowPark("Mine.png");
  const ParkPlaces usual = Places();
  // Cancelled in both ways.
  for (const bool byKey : {false, true}) {
    OpenMarkers();
    Drag("ParkMarker1", {40, -30});
    Click(Find("cb_MuteDice"));  // the rest of the board goes on
    EXPECT_EQ(desk_->aids().cb_MuteDice.value(), !byKey);
    Find("ParkMarker1")->setFocus();
    desk_->aids().Check4.Set(false);
    Press(&form1(), Qt::Key_X);
    EXPECT_TRUE(desk_->aids().Check4.value()) << "the key brings the dice";
    Press(&form1(), Qt::Key_Question);
    Press(&form1(), Qt::Key_Escape);
    EXPECT_TRUE(Shown()) << "it was for the plate of the keys";
    byKey ? Press(&form1(), Qt::Key_Escape) : Click(Find("cmd_ParkPlacesCancel"));
    EXPECT_FALSE(Shown());
    EXPECT_EQ(Places(), usual);
    EXPECT_FALSE(desk_->aids().parkPlacesKnown.value());
  }
  OpenMarkers();
  const QSizeF park = Find("Picture1")->size();
  Drag("ParkMarker1", {40, -30});
  Drag("ParkMarker2", {-5000, 9000});  // no farther than the park
  EXPECT_TRUE(Find("Picture1")->rect().contains(Find("ParkMarker2")->geometry()));
  Find("ParkMarker3")->setFocus();
  for (const auto key : {Qt::Key_Left, Qt::Key_Down, Qt::Key_Down}) Press(&form1(), key);
  Press(&form1(), Qt::Key_Right, Qt::ShiftModifier);
  Click(Find("cmd_ParkPlacesDone"));
  EXPECT_FALSE(Shown());
  const ParkPlaces set = Places();
  EXPECT_EQ(set[0], usual[0]) << "what is not touched stays as it is";
  EXPECT_NEAR(set[1].x, usual[1].x + 40 / park.width(), 1e-9);
  EXPECT_NEAR(set[1].y, usual[1].y - 30 / park.height(), 1e-9);
  EXPECT_NEAR(set[3].x, usual[3].x + 11 / kSceneWidth, 1e-9);
  EXPECT_NEAR(set[3].y, usual[3].y + 2 / kSceneHeight, 1e-9);
  // Another run finds them again, and for this park alone.
  desk_.reset();
  desk_ = std::make_unique<Desk>(setup_);
  desk_->Open();
  EXPECT_FALSE(desk_->aids().parkPlacesKnown.value());
  ShowPark("Mine.png");
  EXPECT_TRUE(desk_->aids().parkPlacesKnown.value());
  for (std::size_t base = 0; base < set.size(); ++base) {
    EXPECT_NEAR(Places()[base].x, set[base].x, 1e-4);
    EXPECT_NEAR(Places()[base].y, set[base].y, 1e-4);
  }
}

TEST_F(ParkMarkersTest, AnotherParkClosesThem) {
  ShowPark("Mine.png");
  int kept = 0;
  int left = 0;
  auto* markers = form1().findChild<ParkMarkers*>();
  QObject::connect(markers, &ParkMarkers::closed, &form1(),
                   [&](bool done) { done ? ++kept : ++left; });
  OpenMarkers();
  Drag("ParkMarkerHome", {30, -30});
  const ParkPlaces before = Places();
  ShowPark("Other.png");
  EXPECT_FALSE(Shown());
  for (const char* name : kNames) EXPECT_FALSE(Find(name)->isVisible()) << name;
  EXPECT_EQ(form1().focusWidget(), Find("Picture1"));
  EXPECT_EQ(Places(), before);
  EXPECT_EQ(left, 1);
  OpenMarkers();
  Click(Find("cmd_ParkPlacesDone"));
  EXPECT_EQ(kept, 1);
}

// Each ring lies on its place to a pixel, however large the board, and over the game pieces.
TEST_F(ParkMarkersTest, LieOnTheirPlacesAtEverySize) {
  StartGame();
  OpenMarkers();
  for (const QSize size : {QSize(1133, 680), QSize(1591, 946), QSize(2266, 1360)}) {
    form1().resize(size);
    QCoreApplication::processEvents();
    for (std::size_t base = 0; base < kNames.size(); ++base) {
      const auto* marker = Find<ParkMarker>(kNames[base]);
      const QSize park = Find("Picture1")->size();
      const ParkPlace place = Places()[base];
      EXPECT_EQ(marker->place(), place);
      const QPoint middle(qRound(place.x * park.width()), qRound(place.y * park.height()));
      EXPECT_EQ(Find("Picture1")->childAt(middle), marker) << kNames[base] << size.width();
      EXPECT_NEAR(marker->geometry().center().x(), middle.x(), 1.5);
    }
  }
  const ParkPlace second = Places()[2];
  MovePiece(board(), 0, second.x * kSceneWidth, second.y * kSceneHeight);
  auto* piece = Find("pb_Player1");
  piece->raise();
  EXPECT_EQ(form1().childAt(Find("ParkMarker2")->mapTo(&form1(), QPoint(20, 20))),
            Find("ParkMarker2"));
}

TEST_F(ParkMarkersTest, SettingsThatCannotBeWrittenAreReported) {
  ShowPark("Mine.png");
  OpenMarkers();
  Drag("ParkMarkerHome", {30, -30});
  QDir().mkpath(setup_.settingsFile);  // a folder stands in place of the file
  const auto told = AnswerBoxes({Qt::Key_Escape});
  Click(Find("cmd_ParkPlacesDone"));
  EXPECT_TRUE(told->value(0).contains(QStringLiteral("holds until the program ends")))
      << FromQt(told->value(0));
  const ParkPlaces set = Places();
  ShowPark("Other.png");
  ShowPark("Mine.png");
  EXPECT_EQ(Places(), set);
}

}  // namespace
}  // namespace dtb

// The plate of the proof on the sheet, and its list.
#include <QScrollArea>
#include <QScrollBar>

#include "windows/sheet/sheet_window.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

using ProofWindowTest = WindowTest;

TEST_F(ProofWindowTest, PlateAndListFollowTheSheet) {
  StartGame();
  StatGrid& grid = board().sheet.grd_VisStats;
  grid.SetText(10, stat_column::kWalks, "2");  // a reserve who would not be saved
  grid.SetText(2, stat_column::kAtBats, "x");
  const auto* plate = Find<QAbstractButton>("ProofPlate");
  WhileWaiting([&] {
    auto* sheet = Find<SheetWindow>("Form2");
    auto* list = Find("ProofList");
    const auto part = [&](const char* name) { return list->findChild<QAbstractButton*>(name); };
    EXPECT_TRUE(plate->text().startsWith("3 figures to look at")) << FromQt(plate->text());
    EXPECT_FALSE(list->isVisible());
    Press(sheet, Qt::Key_P, Qt::ControlModifier);
    ASSERT_TRUE(list->isVisible());
    QCoreApplication::processEvents();
    EXPECT_EQ(list->findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    EXPECT_LT(list->height(), sheet->height() / 3) << "as large as its lines";
    ASSERT_NE(part("Finding3"), nullptr);
    EXPECT_EQ(part("Finding4"), nullptr);
    EXPECT_EQ(part("PutRight3"), nullptr) << "only the person knows the number";
    Click(part("PutRight1"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(grid.Text(10, stat_column::kPlayed), "1");
    EXPECT_TRUE(plate->text().startsWith("2 figures")) << "the batters' walks and the pitchers'";
    Press(sheet, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(grid.Text(10, stat_column::kPlayed), "");
    EXPECT_TRUE(plate->text().startsWith("3 figures"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Click(part("Finding3"));
    EXPECT_FALSE(list->isVisible());
    auto* table = Find<StatGridView>("grd_VisStats");
    EXPECT_EQ(table->currentIndex().row(), 1);
    EXPECT_EQ(table->currentIndex().column(), stat_column::kAtBats);
    Press(sheet, Qt::Key_P, Qt::ControlModifier);
    Press(sheet, Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible()) << "Esc closes the list, not the sheet";
    EXPECT_TRUE(sheet->isVisible());
    Press(sheet, Qt::Key_Escape);
  });
  Click(Find("lbl_STATS"));
}

}  // namespace
}  // namespace dtb

#include "windows/shared/look.h"

#include <QCheckBox>
#include <QClipboard>
#include <QPushButton>
#include <QScrollBar>

#include "platform/qt/qt_pictures.h"
#include "platform/quiet_desktop.h"
#include "windows/boxes/log_window.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

// Where a picture differs from the colour of its corner.
QRect Drawn(const QImage& picture) {
  QRect drawn;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixel(x, y) != picture.pixel(0, 0)) drawn |= QRect(x, y, 1, 1);
    }
  }
  return drawn;
}

TEST(LookTest, MarksAreSquareAndEmptyUntilChosen) {
  for (const double density : {1.0, 1.25, 1.5, 2.0}) {
    for (const int type : {9, 12, 13, 17}) {
      QCheckBox box;
      box.setFont(look::Font(type));
      box.resize(box.sizeHint() + QSize(1, 2));
      QImage picture((QSizeF(box.size()) * density).toSize(), QImage::Format_RGB32);
      picture.setDevicePixelRatio(density);
      box.render(&picture);
      const QRect mark = Drawn(picture);
      EXPECT_EQ(mark.width(), mark.height()) << type << " at " << density;
      EXPECT_EQ(picture.pixel(mark.center()), picture.pixel(0, 0)) << type << " at " << density;
      box.setChecked(true);
      box.render(&picture);
      EXPECT_NE(picture.pixel(mark.center()), picture.pixel(0, 0)) << type << " at " << density;
    }
  }
}

TEST(LookTest, TextsAreReadOnTheirGrounds) {
  using namespace look;
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(Contrast(QColor(128, 128, 128), Qt::white), 3.95, 0.01);
  EXPECT_GE(Contrast(kPlateGrey, Qt::white), kLeastContrast);
  EXPECT_GE(Contrast(kDisabled, kSlate), kLeastContrast);
  for (const QColor& dim : {kCream, kCreamDim, kAccent}) {
    EXPECT_GE(Contrast(dim, kSlateRaised), kLeastContrast) << dim.name().toStdString();
  }
  for (int share = 0; share <= 255; ++share) {
    for (const QColor& ground :
         {QColor(share, share, share),
          QColor(38 + share * 217 / 255, 60 + share * 140 / 255, 50 + share * 10 / 255)}) {
      EXPECT_GE(Contrast(InkOn(ground), ground), kLeastContrast) << ground.name().toStdString();
    }
  }
}

// A text whose width lies between two pixels is whole where it fits, and cut nowhere else.
TEST(LookTest, WhatFitsIsNotCut) {
  for (const int pixels : {9, 10, 12, 13, 17}) {
    const QFontMetrics metrics(look::Font(pixels, true));
    for (const QString& name : {QStringLiteral("Emeric Lowndale"), QStringLiteral("Al Wo"),
                                QStringLiteral("Thad Ockenfels-Roe")}) {
      const int width = look::TextWidth(metrics, name);
      EXPECT_EQ(look::ElidedText(metrics, name, width), name) << pixels;
      EXPECT_EQ(metrics.elidedText(name, Qt::ElideRight, width), name) << pixels;
      EXPECT_NE(look::ElidedText(metrics, name, width - 1), name) << pixels;
    }
  }
}

TEST(LookTest, PicturesAreDecodedForTheirPlace) {
  const QString park = QStringLiteral(DTB_PROGRAM_FOLDER "/Ballparks/DEFAULT1679X974.jpg");
  EXPECT_EQ(DecodedFor(park, {1679, 974}).size(), QSize(1679, 974));
  EXPECT_EQ(DecodedFor(park, {1680, 400}).size(), QSize(3358, 1948)) << "one side needs it";
  EXPECT_EQ(DecodedFor(park, {9000, 9000}).size(), QSize(3358, 1948));
  EXPECT_TRUE(DecodedFor(QStringLiteral(DTB_PROGRAM_FOLDER "/HELP.htm"), {10, 10}).isNull());
}

struct SaveHere : QuietDesktop {
  std::optional<std::filesystem::path> SaveFile(const SaveFileRequest& /*request*/) override {
    return file;
  }
  std::filesystem::path file;
};

class LogWindowTest : public WindowTest {
 protected:
  LogWindowTest() { setup_.dialogs = &desktop_; }
  SaveHere desktop_;
};

TEST_F(LogWindowTest, OpensAtItsEndAndIsCopiedAndSaved) {
  for (int i = 0; i < 300; ++i) board().log.Append("line " + std::to_string(i));
  desktop_.file = FromQt(folder_.filePath(QStringLiteral("log.txt")));
  const auto messages = AnswerBoxes({Qt::Key_N});
  WhileWaiting([&] {
    auto* window = Find<LogWindow>("Options");
    const QScrollBar* bar = window->findChild<QPlainTextEdit*>()->verticalScrollBar();
    EXPECT_GT(bar->maximum(), 0);
    EXPECT_EQ(bar->value(), bar->maximum());
    Click(window->findChild<QPushButton*>(QStringLiteral("cmd_Copy")));
    Click(window->findChild<QPushButton*>(QStringLiteral("cmd_Save")));
    Press(window, Qt::Key_Escape);
  });
  form1().findChild<QAction*>(QStringLiteral("mnuEventLog"))->trigger();
  QCoreApplication::processEvents();  // the menu has its answer first
  EXPECT_EQ(FromQt(QGuiApplication::clipboard()->text()), board().log.text());
  QFile saved(folder_.filePath(QStringLiteral("log.txt")));
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  EXPECT_EQ(saved.readAll().toStdString(), board().log.text());
  EXPECT_TRUE(messages->value(0).contains(QStringLiteral("\"log.txt\" in the folder"))) << "told";
}

}  // namespace
}  // namespace dtb

#include <sys/stat.h>

#include <QBuffer>
#include <QImage>

#include "platform/qt/program_folder.h"
#include "shell/program_error.h"
#include "shell/time_stamp.h"
#include "windows/window_test.h"

namespace dtb {
namespace {

class ServicesTest : public testing::Test {
 protected:
  std::filesystem::path PathIn(const char* name) {
    return FromQt(folder_.filePath(QLatin1String(name)));
  }
  QTemporaryDir folder_;
};

// A 20,000 x 20,000 picture in a few bytes: only its header tells the size.
QByteArray HugeBitmapHeader() {
  QImage small(1, 1, QImage::Format_RGB32);
  small.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  small.save(&buffer, "BMP");
  const QByteArray side("\x20\x4E\x00\x00", 4);  // 20,000, as bitmaps store it
  bytes.replace(18, 4, side);
  bytes.replace(22, 4, side);
  return bytes;
}

TEST_F(ServicesTest, OnlyPicturesAreLoaded) {
  QtPictures pictures;
  QImage photo(40, 60, QImage::Format_RGB32);
  photo.fill(Qt::blue);
  const auto save = [&](const char* name, const char* format) {
    ASSERT_TRUE(photo.save(folder_.filePath(QLatin1String(name)), format));
  };
  save("Jpeg.jpg", "JPG");
  save("Png.jpg", "PNG");  // the name says nothing about the contents
  WriteFile(folder_.filePath(QStringLiteral("Text.jpg")), "no picture at all");
  WriteFile(folder_.filePath(QStringLiteral("Empty.jpg")), "");
  WriteFile(folder_.filePath(QStringLiteral("Huge.jpg")), HugeBitmapHeader());
  WriteFile(folder_.filePath(QStringLiteral("Vector.jpg")),
            "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
  QDir(folder_.path()).mkdir(QStringLiteral("Folder.jpg"));
  ASSERT_EQ(mkfifo(PathIn("Pipe.jpg").c_str(), 0600), 0);  // a reader would wait for ever
  const std::map<const char*, bool> cases{
      {"Jpeg.jpg", true},    {"Png.jpg", true},   {"Text.jpg", false},
      {"Empty.jpg", false},  {"Huge.jpg", false}, {"Vector.jpg", false},
      {"Folder.jpg", false}, {"Pipe.jpg", false}, {"Missing.jpg", false}};
  for (const auto& [name, good] : cases) {
    EXPECT_EQ(pictures.Load(PathIn(name)).has_value(), good) << name;
    EXPECT_EQ(pictures.Recognise(PathIn(name)).has_value(), good) << name;
  }
  const auto wide = QImage(5000, 100, QImage::Format_RGB32);
  ASSERT_TRUE(wide.save(folder_.filePath(QStringLiteral("Wide.jpg")), "JPG"));
  EXPECT_LE(pictures.Image(*pictures.Load(PathIn("Wide.jpg"))).width(), 1200);
  // 1 x 65535 by its screen, 1 x 35 by its only frame.
  WriteFile(folder_.filePath(QStringLiteral("Long.jpg")),
            QByteArray::fromHex("4749463839610100ffff8000ff0104000000002c"
                                "00002300010001000002024401003b"));
  EXPECT_LE(pictures.Image(*pictures.Load(PathIn("Long.jpg"))).height(), 1200);
  EXPECT_FALSE(pictures.Load(std::string("nul\0.jpg", 8)).has_value());
}

// A photo that is put into the folder during a game shows by itself; one that stays as it is is
// the same picture at each look.
TEST_F(ServicesTest, PictureFollowsItsFile) {
  QtPictures pictures;
  const auto file = PathIn("Later.jpg");
  const auto save = [&](Qt::GlobalColor colour, int width) {
    QImage photo(width, 60, QImage::Format_RGB32);
    photo.fill(colour);
    ASSERT_TRUE(photo.save(ToQt(file.string()), "PNG"));
  };
  EXPECT_FALSE(pictures.Load(file));
  save(Qt::red, 40);
  const auto red = pictures.Load(file);
  ASSERT_TRUE(red);
  EXPECT_EQ(pictures.Load(file), red);
  EXPECT_EQ(pictures.Image(*red).cacheKey(), pictures.Image(*red).cacheKey());
  save(Qt::green, 80);
  const auto green = pictures.Load(file);
  ASSERT_TRUE(green);
  EXPECT_NE(green, red);
  EXPECT_EQ(pictures.Image(*green).pixelColor(1, 1), QColor(Qt::green));
  QFile::remove(ToQt(file.string()));
  EXPECT_FALSE(pictures.Load(file));
}

TEST_F(ServicesTest, SettingsLastAndFailuresAreTold) {
  const QString file = folder_.filePath(QStringLiteral("DTB.ini"));
  const std::string odd = "C:\\Photos, \"O'Neill\" = \xC3\x81ngel;\n#x";
  QtSettingsStore(file).Write("labels", "lbl_Team(0)", odd);
  EXPECT_EQ(QtSettingsStore(file).Read("labels", "lbl_Team(0)", ""), odd);
  EXPECT_EQ(QtSettingsStore(file).Read("labels", "lbl_team(0)", "none"), "none");

  QtSettingsStore nowhere(file + QStringLiteral("/below/a/file.ini"));
  EXPECT_EQ(nowhere.Read("labels", "x", "missing"), "missing");
  EXPECT_THROW(nowhere.Write("labels", "x", "y"), ProgramError);
}

TEST_F(ServicesTest, DamagedSettingsAreKeptAside) {
  const QString file = folder_.filePath(QStringLiteral("DTB.ini"));
  for (const QByteArray& damaged : {QByteArray("[labels\n\x00\xFF=====\nno section = 1\n]", 30),
                                    QByteArray("[labels]\nx=1\n[other]\nno sign\n")}) {
    WriteFile(file, damaged);
    QtSettingsStore store(file);
    ASSERT_FALSE(store.damagedFile().isEmpty()) << damaged.toStdString();
    QFile kept(store.damagedFile());
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), damaged);
    store.Write("labels", "x", "y");
    EXPECT_EQ(QtSettingsStore(file).Read("labels", "x", ""), "y");
  }
}

TEST_F(ServicesTest, KeysCountWhileTheyAreHeld) {
  QtKeyboard keyboard;
  QObject window;
  const auto key = [&](QEvent::Type type, int code, bool repeat = false) {
    QKeyEvent event(type, code, {}, QString(), repeat);
    QCoreApplication::sendEvent(&window, &event);
  };
  const auto click = [&](Qt::KeyboardModifiers held) {
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(), QPointF(), Qt::LeftButton,
                      Qt::LeftButton, held);
    QCoreApplication::sendEvent(&window, &event);
  };
  EXPECT_FALSE(keyboard.ControlHeld());
  key(QEvent::KeyPress, Qt::Key_Control);
  for (int look = 0; look < 3; ++look) EXPECT_TRUE(keyboard.ControlHeld()) << "for each click";
  key(QEvent::KeyRelease, Qt::Key_Control);
  EXPECT_FALSE(keyboard.ControlHeld()) << "pressed before, but not down";
  // Pressed and released while another program had the keyboard: the click itself tells.
  click(Qt::ControlModifier);
  EXPECT_TRUE(keyboard.ControlHeld());
  click({});
  EXPECT_FALSE(keyboard.ControlHeld());

  for (const auto& [first, second] :
       {std::pair{Qt::Key_Control, Qt::Key_F12}, {Qt::Key_F12, Qt::Key_Control}}) {
    key(QEvent::KeyPress, first);
    key(QEvent::KeyPress, second);
    for (int held = 0; held < 20; ++held) key(QEvent::KeyPress, second, true);
    key(QEvent::KeyRelease, second);
    key(QEvent::KeyRelease, first);
    EXPECT_EQ(keyboard.TakeControlF12(), 1);
    EXPECT_EQ(keyboard.TakeControlF12(), 0);
  }
  for (const Qt::Key alone : {Qt::Key_Control, Qt::Key_F12}) {
    key(QEvent::KeyPress, alone);
    key(QEvent::KeyRelease, alone);
  }
  EXPECT_EQ(keyboard.TakeControlF12(), 0) << "one after the other";
}

TEST_F(ServicesTest, StampsAreInTheFormOfThePersonsSystem) {
  const QDateTime evening(QDate(2026, 11, 24), QTime(20, 5, 31));
  for (const auto& [locale, stamp] :
       std::map<const char*, const char*>{{"en_US", "11242026_80531_PM"},
                                          {"en_GB", "24112026_200531"},
                                          {"de_DE", "24.11.2026_200531"},
                                          {"sv_SE", "2026-11-24_200531"}}) {
    EXPECT_EQ(ReadableStamp(FromQt(StandardText(evening, QLocale(QLatin1String(locale))))), stamp)
        << locale;
  }
  // Whatever a system writes, a file can be named so.
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
    const QString stamp = ToQt(ReadableStamp(FromQt(StandardText(evening, locale))));
    EXPECT_FALSE(stamp.isEmpty());
    for (const QChar letter : stamp) {
      EXPECT_FALSE(letter.isSpace() || letter.unicode() < ' ' ||
                   QStringLiteral(":/\\*?\"<>|").contains(letter))
          << FromQt(locale.name() + QChar(' ') + stamp);
    }
  }
}

TEST_F(ServicesTest, FiltersBecomeTheToolkits) {
  EXPECT_EQ(ToolkitFilter("Text (*.txt)|*.txt|Csv (*.csv*)|*.csv*"),
            QStringLiteral("Text (*.txt);;Csv (*.csv*)"));
  EXPECT_EQ(ToolkitFilter("All Picture Files|*.bmp;*.jpg"),
            QStringLiteral("All Picture Files (*.bmp *.jpg)"));
}

// An installed program fills the person's folder, and never takes from it what became his own.
TEST_F(ServicesTest, PersonalFolderIsFilledAndKept) {
  const auto write = [&](const char* name, const char* text) {
    const QString path = folder_.filePath(QLatin1String(name));
    QDir().mkpath(QFileInfo(path).path());
    WriteFile(path, text);
  };
  const auto read = [&](const char* name) {
    QFile file(folder_.filePath(QStringLiteral("mine/") + QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string("-");
  };
  const auto start = [&] {
    return FindProgramFolder(folder_.filePath(QStringLiteral("bin")),
                             folder_.filePath(QStringLiteral("mine")));
  };
  QDir().mkpath(folder_.filePath(QStringLiteral("bin")));
  EXPECT_EQ(start().path, folder_.filePath(QStringLiteral("bin"))) << "nothing is installed";
  for (const char* name : {"Teams/a.txt", "Teams/b.txt", "Teams/c.txt", "DTB.mdb"}) {
    write((std::string("share/kelvane-diamond-table/") + name).c_str(), "first");
  }
  EXPECT_EQ(start().path, folder_.filePath(QStringLiteral("mine")));
  EXPECT_EQ(read("Teams/a.txt") + read("DTB.mdb"), "firstfirst");
  write("mine/DTB.mdb", "a season");
  write("mine/Teams/b.txt", "edited");
  QFile::remove(folder_.filePath(QStringLiteral("mine/Teams/c.txt")));
  write("mine/Teams/d.txt", "added");
  for (const char* name : {"Teams/a.txt", "Teams/b.txt", "Teams/c.txt", "Teams/d.txt", "DTB.mdb"}) {
    write((std::string("share/kelvane-diamond-table/") + name).c_str(), "second");
  }
  EXPECT_TRUE(start().failures.isEmpty());
  EXPECT_EQ(read("Teams/a.txt"), "second") << "untouched, so renewed";
  EXPECT_EQ(read("Teams/b.txt") + read("Teams/c.txt") + read("Teams/d.txt"), "edited-added");
  EXPECT_EQ(read("DTB.mdb"), "a season");
  // A first start where copies stand: the database was lost, and no empty one hides that.
  QDir(folder_.filePath(QStringLiteral("mine"))).removeRecursively();
  write("mine/Backups/DTB 2026-11-18 10-44-13.mdb", "a copy");
  EXPECT_TRUE(start().failures.isEmpty());
  EXPECT_EQ(read("Teams/a.txt") + read("DTB.mdb"), "second-");
  // What lies beside the executable goes before all that is installed.
  QDir().mkpath(folder_.filePath(QStringLiteral("bin/Ballparks")));
  EXPECT_EQ(start().path, folder_.filePath(QStringLiteral("bin")));
}

}  // namespace
}  // namespace dtb

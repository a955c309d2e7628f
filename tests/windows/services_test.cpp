#include <sys/stat.h>

#include <QBuffer>
#include <QImage>
#include <fstream>

#include "base/program_error.h"
#include "base/time_stamp.h"
#include "platform/qt/program_folder.h"
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
  save("Webp.jpg", "WEBP");
  save("Tiff.jpg", "TIFF");
  WriteFile(folder_.filePath(QStringLiteral("Text.jpg")), "no picture at all");
  WriteFile(folder_.filePath(QStringLiteral("Empty.jpg")), "");
  WriteFile(folder_.filePath(QStringLiteral("Huge.jpg")), HugeBitmapHeader());
  WriteFile(folder_.filePath(QStringLiteral("Vector.jpg")),
            "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
  QDir(folder_.path()).mkdir(QStringLiteral("Folder.jpg"));
  ASSERT_EQ(mkfifo(PathIn("Pipe.jpg").c_str(), 0600), 0);  // a reader would wait for ever
  const std::map<const char*, bool> cases{
      {"Webp.jpg", true},    {"Tiff.jpg", true},   {"Jpeg.jpg", true},    {"Png.jpg", true},
      {"Text.jpg", false},   {"Empty.jpg", false}, {"Huge.jpg", false},   {"Vector.jpg", false},
      {"Folder.jpg", false}, {"Pipe.jpg", false},  {"Missing.jpg", false}};
  for (const auto& [name, good] : cases) {
    EXPECT_EQ(pictures.Load(PathIn(name)).has_value(), good) << name;
    EXPECT_EQ(pictures.Recognise(PathIn(name)).has_value(), good) << name;
    EXPECT_EQ(DecodedWhole(folder_.filePath(name)).isNull(), !good) << name;
  }
  for (const auto& [name, why] : {std::pair{"Text.jpg", "JPEG, PNG"},
                                  {"Huge.jpg", "damaged"},
                                  {"Pipe.jpg", "not a file"},
                                  {"Missing.jpg", "does not exist"}}) {
    EXPECT_NE(pictures.WhyNone(PathIn(name)).find(why), std::string::npos)
        << pictures.WhyNone(PathIn(name));
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

  // A file that somebody edited may hold what QSettings reads and does not write.
  WriteFile(file, "=nameless\n[labels]\na//b=1\nkept=2,3\nodd=@ByteArray(, 2\n");
  QtSettingsStore(file).Write("labels", "x", "y");
  EXPECT_EQ(QtSettingsStore(file).Read("labels", "x", ""), "y");
  EXPECT_EQ(QtSettingsStore(file).Read("labels", "kept", ""), "2,3");

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

// An installed program in `bin` and `share`, and the folder of a person, `mine`.
class PersonalFolderTest : public ServicesTest {
 protected:
  void SetUp() override {
    QDir().mkpath(Path("bin"));
    for (const char* name : {"Teams/a.txt", "Teams/b.txt", "Teams/c.txt", "DTB.mdb"}) {
      Write(Shared(name), "first");
    }
  }

  [[nodiscard]] QString Path(const QString& name) const { return folder_.filePath(name); }
  static QString Shared(const QString& name) { return "share/kelvane-diamond-table/" + name; }
  void Write(const QString& name, const QByteArray& text) const {
    QDir().mkpath(QFileInfo(Path(name)).path());
    WriteFile(Path(name), text);
  }
  [[nodiscard]] std::string Read(const QString& name) const {
    QFile file(Path("mine/" + name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "-";
  }
  ProgramFolder Start() const { return FindProgramFolder(Path("bin"), Path("mine")); }
};

// It never takes from the person's folder what became his own.
TEST_F(PersonalFolderTest, IsFilledAndKept) {
  EXPECT_EQ(Start().path, Path("mine"));
  EXPECT_EQ(Read("Teams/a.txt") + Read("DTB.mdb"), "firstfirst");
  // Earlier versions recorded a checksum and a name alone.
  QByteArray record;
  for (const char* name : {"Teams/a.txt", "Teams/b.txt", "Teams/c.txt", "DTB.mdb"}) {
    record += "a7937b64b8caa58f03721bb6bacf5c78cb235febe0e70b1b84cd99541461a08e  ";
    record += QByteArray(name) + '\n';
  }
  Write("mine/.laid-out", record);
  Write("mine/DTB.mdb", "a season");
  Write("mine/Teams/b.txt", "edited");
  QFile::remove(Path("mine/Teams/c.txt"));
  Write("mine/Teams/d.txt", "added");
  for (const int start : {1, 2}) {
    for (const char* name :
         {"Teams/a.txt", "Teams/b.txt", "Teams/c.txt", "Teams/d.txt", "DTB.mdb"}) {
      Write(Shared(name), "version " + QByteArray::number(start));
    }
    EXPECT_EQ(FromQt(Start().complaint), "");
    EXPECT_EQ(Read("Teams/a.txt"), "version " + std::to_string(start)) << "untouched, so renewed";
    EXPECT_EQ(Read("Teams/b.txt") + Read("Teams/c.txt") + Read("Teams/d.txt"), "edited-added");
    EXPECT_EQ(Read("DTB.mdb"), "a season");
  }
  // What lies beside the executable goes before all that is installed.
  QDir().mkpath(Path("bin/Ballparks"));
  EXPECT_EQ(Start().path, Path("bin"));
}

TEST_F(PersonalFolderTest, GoesAlongWithAProgramThatIsCarriedAbout) {
  QDir().mkpath(Path("bin/table"));
  QDir().rename(Path("share/kelvane-diamond-table"), Path("bin/shipped"));
  const PersonalFolder own = FindPersonalFolder(Path("bin"));
  EXPECT_EQ(own.settings, Path("bin/table/DTB_v102.ini"));
  EXPECT_EQ(FindProgramFolder(Path("bin"), own.path).path, Path("bin/table"));
  EXPECT_TRUE(QFile::exists(Path("bin/table/Teams/a.txt")));
  QDir(Path("bin/table")).removeRecursively();
  EXPECT_TRUE(FindPersonalFolder(Path("bin")).path.endsWith("/kelvane-diamond-table"));
}

TEST_F(PersonalFolderTest, AStartThatWasBrokenOffIsFinished) {
  // As it stands in the middle: one file is there, another about to come; an update comes between.
  Write("mine/.laid-out",
        "a7937b64b8caa58f03721bb6bacf5c78cb235febe0e70b1b84cd99541461a08e putting  Teams/a.txt\n"
        "a7937b64b8caa58f03721bb6bacf5c78cb235febe0e70b1b84cd99541461a08e putting  Teams/b.txt\n");
  Write("mine/Teams/a.txt", "first");
  Write(Shared("Teams/a.txt"), "second");
  EXPECT_EQ(FromQt(Start().complaint), "");
  EXPECT_EQ(Read("Teams/a.txt") + Read("Teams/b.txt") + Read("Teams/c.txt"), "secondfirstfirst");
  EXPECT_EQ(Read("DTB.mdb"), "first");
}

TEST_F(PersonalFolderTest, ALaterStartReadsNoFileAgain) {
  const auto bytesRead = [] {
    std::ifstream counters("/proc/self/io");
    std::string name;
    long bytes = 0;
    counters >> name >> bytes;
    return name == "rchar:" ? bytes : -1;
  };
  constexpr int kLarge = 4 << 20;
  Write(Shared("Charts/Chart01.jpg"), QByteArray(kLarge, 'x'));
  static_cast<void>(Start());
  Write("mine/DTB.mdb", QByteArray(kLarge, 'y'));
  Write("mine/Teams/b.txt", QByteArray(kLarge, 'z'));
  static_cast<void>(Start());  // learns that one team is the person's own
  const long before = bytesRead();
  static_cast<void>(Start());
  EXPECT_LT(bytesRead() - before, kLarge);
  EXPECT_EQ(Read("Charts/Chart01.jpg").size(), std::size_t{kLarge});
}

TEST_F(PersonalFolderTest, ATableIsLaidOutByTheSameRules) {
  Write("empty.mdb", "empty");
  const auto layOut = [this] {
    return FromQt(FillFolder(QDir::current().relativeFilePath(Path("share/kelvane-diamond-table")),
                             Path("mine"), Path("empty.mdb")));
  };
  EXPECT_EQ(layOut(), "");
  EXPECT_EQ(Read("Teams/a.txt") + Read("DTB.mdb"), "firstempty");
  EXPECT_TRUE(QFileInfo(Path("mine/Game Rpts")).isDir());
  QFile::remove(Path("mine/Teams/a.txt"));
  Write("mine/DTB.mdb", "a season");
  EXPECT_EQ(layOut(), "");
  EXPECT_EQ(Read("Teams/a.txt") + Read("DTB.mdb"), "-a season");
}

TEST_F(PersonalFolderTest, CopiesOfALostDatabaseGoBeforeAnEmptyOne) {
  Write("mine/Backups/DTB 20261124-200000.mdb", "a season");
  EXPECT_EQ(Start().path, Path("mine"));
  EXPECT_EQ(Read("Teams/a.txt") + Read("DTB.mdb"), "first-");
}

TEST_F(PersonalFolderTest, WhereItCannotBeFilledTheSharedOneServes) {
  Write("mine", "a file where the folder should be");
  const ProgramFolder folder = Start();
  EXPECT_EQ(folder.path, Path("share/kelvane-diamond-table"));
  EXPECT_TRUE(folder.complaint.contains("could not be filled")) << FromQt(folder.complaint);
  // A person who has games keeps them in sight, and learns which files are missing.
  QFile::remove(Path("mine"));
  EXPECT_EQ(FromQt(Start().complaint), "");
  QDir(Path("mine/Charts")).removeRecursively();
  Write("mine/Charts", "no folder");
  Write(Shared("Charts/Chart02.jpg"), "new");
  const ProgramFolder again = Start();
  EXPECT_EQ(again.path, Path("mine"));
  EXPECT_TRUE(again.complaint.contains("mine/Charts/Chart02.jpg")) << FromQt(again.complaint);
}

}  // namespace
}  // namespace dtb

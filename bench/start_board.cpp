// The whole program from its start to its first paint. With a file, from a game that is taken up
// to its first paint; "make" and a file leaves such a game.
#include <QFile>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <fstream>

#include "base/paths.h"
#include "bench/first_paint.h"
#include "bench/quiet_table.h"
#include "game/outcomes.h"
#include "game/recovery.h"
#include "windows/desk.h"

namespace {

// The game that a program left in its seventh inning.
void MakeGame(const char* file) {
  dtb::QuietTable table;
  for (int i = 0; i < 60; ++i) dtb::RecordOutcome(table.board, dtb::Outcome(i * 7 % 15));
  std::ofstream(file, std::ios::binary) << dtb::TableText(table.board, dtb::AidsState{});
}

// Goes on with the game that is there.
class SayYes : public QObject {
 public:
  SayYes() { startTimer(0); }

 protected:
  void timerEvent(QTimerEvent* /*event*/) override {
    if (dtb::MessageBox::Open() == nullptr) return;
    QKeyEvent yes(QEvent::KeyPress, Qt::Key_Y, Qt::NoModifier);
    QCoreApplication::sendEvent(dtb::MessageBox::Open(), &yes);
  }
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc == 3) {
    MakeGame(argv[2]);
    return 0;
  }
  dtb::DressApplication();
  const QTemporaryDir folder;
  dtb::Desk::Setup setup;
  setup.programFolder = dtb::PathOf(DTB_PROGRAM_FOLDER);
  setup.settingsFile = folder.filePath(QStringLiteral("settings.ini"));
  if (argc == 2) {
    QFile::copy(QString::fromLocal8Bit(argv[1]), folder.filePath(QStringLiteral("DTB_v102.game")));
  }
  dtb::Desk desk(setup);
  desk.form1().resize(1591, 945);  // the start size on a screen of 1920 x 1080
  if (argc == 2) {
    const SayYes sayYes;
    desk.Open();
  }
  const FirstPaint firstPaint(desk.form1().centralWidget());
  if (argc == 2) {
    desk.form1().centralWidget()->update();
  } else {
    desk.Open();
  }
  return QApplication::exec();
}

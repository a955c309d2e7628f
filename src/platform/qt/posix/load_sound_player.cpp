// Finds the module that plays sounds.
#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include "base/program_error.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/sound_player.h"

namespace dtb {
namespace {

using MakeSoundPlayer = SoundPlayer*();
constexpr const char* kMakeSoundPlayer = "MakeSoundPlayer";

}  // namespace

// Beside the executable, or where the package has it.
SoundPlayer* LoadSoundPlayer() {
  const QString beside = QCoreApplication::applicationDirPath();
  QString complaint;
  for (const char* folder : {"/", "/../lib/games/kelvane-diamond-table/"}) {
    QLibrary module(beside + QLatin1String(folder) + QStringLiteral("libdtb_sounds.so"));
    if (!QFileInfo::exists(module.fileName())) continue;
    if (const auto make = reinterpret_cast<MakeSoundPlayer*>(module.resolve(kMakeSoundPlayer))) {
      // cppcheck-suppress CastIntegerToAddressAtReturn // the module's function makes a player
      return make();
    }
    complaint = QStringLiteral(" (") + module.errorString() + QLatin1Char(')');
  }
  throw ProgramError(error_number::kFileNotFound,
                     "The part of the program that plays sounds, \"libdtb_sounds.so\", is missing "
                     "or cannot be used" +
                         FromQt(complaint) + ". Install the program again to hear sounds.");
}

}  // namespace dtb

// Any bytes as the settings file: read, or moved aside, and written again.
#include "base/paths.h"
#include "fuzz.h"
#include "platform/qt/qt_settings_store.h"
#include "platform/qt/qt_text.h"

using namespace dtb;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = fuzz::WriteInput("settings.ini", fuzz::BytesOf(data, size));
  const QString path = ToQt(TextOf(file));
  QtSettingsStore store(path);
  for (const char* key : {"lbl_PhotoPath", "lbl_chrt1", "lbl_chrt9"}) {
    static_cast<void>(store.Read("labels", key, "missing"));
  }
  const std::string value(fuzz::BytesOf(data, size).substr(0, 40));
  const std::string text = FromQt(ToQt(value));
  if (text.find('\0') == text.npos) {
    store.Write("labels", "lbl_chrt5", text);
    fuzz::Require(QtSettingsStore(path).Read("labels", "lbl_chrt5", "") == text,
                  "a setting is read as it was written");
    fuzz::Require(QtSettingsStore(path).damagedFile().isEmpty(),
                  "what the program writes it understands");
  }
  std::filesystem::remove(file);
  if (!store.damagedFile().isEmpty()) std::filesystem::remove(FromQt(store.damagedFile()));
  return 0;
}

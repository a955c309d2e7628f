// An old database of the Jet format with bytes of it changed: each three bytes of place and one of
// value, and before them the length that is left. It is taken over whole or refused; the reader may
// die of it, and we never do.
#include "base/program_error.h"
#include "fuzz.h"
#include "platform/sqlite/jet/jet_database.h"

using namespace dtb;
using namespace dtb::fuzz;

namespace {

std::string ReadAll(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string Spoiled(Input& input) {
  static const std::string whole = ReadAll(DTB_JET_FILE);
  Require(!whole.empty(), "there is a file to spoil");
  constexpr std::size_t kHead = 20;
  std::string bytes = whole;
  if (input.Byte() % 8 == 0) bytes.resize(kHead + input.Below(whole.size() - kHead));
  while (!input.AtEnd()) {
    const std::size_t place = kHead + input.Below(whole.size() - kHead);
    const auto value = static_cast<char>(input.Byte());
    if (place < bytes.size()) bytes[place] = value;
  }
  return bytes;
}

// Else every file would be refused, and nothing be found.
bool WholeIsRead() { return JetDatabase(DTB_JET_FILE).Contents().games == 3; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const bool read = WholeIsRead();
  Require(read, "the whole file is read");
  Input input(BytesOf(data, std::min<std::size_t>(size, 4096)));
  const std::string bytes = Spoiled(input);
  const std::filesystem::path file = WriteInput("DTB.mdb", bytes);
  JetDatabase old(file);
  Require(old.StandsInPlace(), "it is known by its head");
  try {
    const OldContents contents = old.Contents();
    Require(contents.rows.size() == 5 && contents.games >= 0, "its rows are counted");
    const std::filesystem::path aside = Folder() / old.TakeOver("DTB (Jet).mdb");
    Require(!old.StandsInPlace(), "ours is in place");
    Require(ReadAll(aside) == bytes, "the old file stays as it is");
    std::filesystem::remove(aside);
  } catch (const ProgramError& refused) {
    Show(refused.what());
    Require(*refused.what() != '\0', "the reason is told");
    Require(ReadAll(file) == bytes, "nothing has changed");
  }
  return 0;
}

// dtb_saver DATABASE: saves one game after the other, and tells of each by a byte, until it is
// ended.
#include <cstdio>

#include "database/database_test.h"

int main(int argc, char** argv) {
  using namespace dtb;
  if (argc != 2) return 2;
  const std::filesystem::path file = PathOf(argv[1]);
  SqliteDatabase database(file);
  TestDesk desk;
  XlsxWorkbooks workbooks;
  Platform ports = PlatformOf(desk, database, workbooks, file.parent_path());
  for (int game = 0;; ++game) {
    SaveOne(ports, desk, 1, game);
    std::putchar('.');
    std::fflush(stdout);
  }
}

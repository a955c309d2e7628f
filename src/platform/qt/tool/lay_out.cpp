// Lays out the program's folder, or renews it:
//   dtb_lay_out SHIPPED FOLDER EMPTY-DATABASE
#include <QFile>
#include <cstdio>

#include "platform/qt/program_folder.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("Usage: dtb_lay_out SHIPPED FOLDER EMPTY-DATABASE\n", stderr);
    return 2;
  }
  const QString complaint = dtb::FillFolder(QFile::decodeName(argv[1]), QFile::decodeName(argv[2]),
                                            QFile::decodeName(argv[3]));
  if (complaint.isEmpty()) return 0;
  std::fprintf(stderr, "%s\n", qUtf8Printable(complaint));
  return 1;
}

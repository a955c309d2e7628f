#include "windows/form2.h"
namespace dtb {
Form2::Form2(Board&, QtPictures&, QWidget* parent) : QDialog(parent) {}
}  // namespace dtb

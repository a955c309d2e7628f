#include "windows/shared/table_frame.h"

#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"
#include "windows/shared/scene.h"

namespace dtb {
namespace {

using namespace look;

constexpr int kMargin = 12;
constexpr double kControlHeight = 32;  // layout units

}  // namespace

TableFrame::TableFrame(QDialog& window, double width, double height)
    : window_(window), resizer_(width, height), inside_(new QWidget(&window)) {
  auto* around = new QVBoxLayout(&window);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(inside_);
  column_ = new QVBoxLayout(inside_);
  column_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column_->setSpacing(kSpace);
}

TableFrame::~TableFrame() { delete inside_; }

QHBoxLayout* TableFrame::AddStrip() {
  auto* strip = new QHBoxLayout;
  strip->setSpacing(kSpace);
  column_->addLayout(strip);
  return strip;
}

StatGridView* TableFrame::AddGrid(QBoxLayout* place, const char* name, const char* accessibleName,
                                  StatGrid& grid, int share) {
  auto* view = new StatGridView(grid, nullptr);
  Name(view, name, QLatin1String(accessibleName));
  view->ShowAsResult();
  view->setSelectionBehavior(QTableView::SelectRows);
  place->addWidget(view, share);
  grids_.push_back(view);
  return view;
}

QLabel* TableFrame::AddText(const char* name, Field<std::string>& text) {
  QLabel* label = MakeCaption({}, nullptr);
  Name(label, name);
  label->setWordWrap(true);
  Follow<std::string>(label, text, [label](const std::string& shown) {
    label->setText(ToQt(shown));
    label->setAccessibleName(ToQt(shown));
  });
  column_->addWidget(label);
  return label;
}

void TableFrame::Fit() { FitAtLaunch(&window_, resizer_, 0); }

void TableFrame::Resize() {
  resizer_.FormResized(window_.width(), window_.height());
  const double scale = resizer_.fontScale();
  window_.setFont(Font(kBody * scale));
  for (StatGridView* grid : grids_) grid->SetScale(kBody * scale, kTwip * scale);
  const int height = qRound(kControlHeight * scale);
  for (auto* line : inside_->findChildren<QLineEdit*>()) line->setFixedHeight(height);
  for (auto* button : inside_->findChildren<QPushButton*>()) {
    button->setFixedSize(button->fontMetrics().horizontalAdvance(button->text()) + height, height);
  }
}

}  // namespace dtb

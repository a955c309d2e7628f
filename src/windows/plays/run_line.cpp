#include "windows/plays/run_line.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

#include "game/player_name.h"
#include "platform/qt/qt_text.h"
#include "windows/shared/bind.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

void SetMark(QCheckBox* mark, bool on, const QString& whose) {
  const QSignalBlocker quiet(mark);
  mark->setChecked(on);
  mark->setAccessibleName(mark->text() + QStringLiteral(": ") + whose);
}

}  // namespace

RunLine::RunLine(int number, QWidget* parent)
    : QWidget(parent),
      label_(MakeCaption({}, this)),
      battedIn_(AddMark("chk_Battedin" + QByteArray::number(number), QStringLiteral("RBI"))),
      earned_(AddMark("chk_Earned" + QByteArray::number(number), QStringLiteral("earned"))) {
  battedIn_->setToolTip(QStringLiteral("The batter of this play drove the run in"));
  earned_->setToolTip(QStringLiteral("The run is an earned run of the pitcher"));
  label_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  row->addWidget(label_, 1);
  row->addWidget(battedIn_);
  row->addWidget(earned_);
  connect(battedIn_, &QCheckBox::toggled, this, &RunLine::battedInWanted);
  connect(earned_, &QCheckBox::toggled, this, &RunLine::earnedWanted);
}

QCheckBox* RunLine::AddMark(const QByteArray& name, const QString& caption) {
  auto* mark = new QCheckBox(caption, this);
  Name(mark, name.constData(), caption);
  return mark;
}

void RunLine::ShowRun(const Move& run) {
  words_ = ToQt(LastNameOf(run.name)) + QStringLiteral(" scores");
  if (!run.pitcher.empty()) {
    words_ += QStringLiteral(", charged to %1").arg(ToQt(LastNameOf(run.pitcher)));
  }
  SetMark(battedIn_, run.battedIn, words_);
  SetMark(earned_, run.earned, words_);
  FitWords();
}

void RunLine::FitWords() {
  const QString text = words_ + QLatin1Char(':');
  const QString shown = look::ElidedText(label_->fontMetrics(), text, label_->width());
  label_->setText(shown);
  label_->setToolTip(shown == text ? QString() : text);
}

void RunLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  FitWords();
}

}  // namespace dtb

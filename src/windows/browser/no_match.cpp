#include "windows/browser/no_match.h"

#include <QEvent>
#include <QVBoxLayout>

#include "windows/shared/bind.h"
#include "windows/shared/controls.h"

namespace dtb {

NoMatch::NoMatch(StatGridView* table)
    : QWidget(table->viewport()),
      table_(table),
      words_(MakeCaption({}, this, Qt::AlignCenter)),
      button_(new QPushButton(QStringLiteral("Show all"), this)) {
  Name(this, "NoMatch", QStringLiteral("No match"));
  Name(words_, "NoMatchWords", QStringLiteral("No match"));
  Name(button_, "cmd_ShowAll", button_->text());
  button_->setToolTip(QStringLiteral("Empties the box and shows all rows again"));
  button_->setAutoDefault(false);
  words_->setForegroundRole(QPalette::WindowText);  // not that of the table's rows
  auto* column = new QVBoxLayout(this);
  column->addWidget(words_);
  column->addWidget(button_, 0, Qt::AlignHCenter);
  connect(button_, &QPushButton::clicked, this, [this] {
    if (showAll_) showAll_();
  });
  connect(table->model(), &QAbstractItemModel::modelReset, this, [this] {
    if (!TableIsEmpty()) hide();
  });
  table->viewport()->installEventFilter(this);
  hide();
}

bool NoMatch::TableIsEmpty() const { return table_->model()->rowCount() == 0; }

void NoMatch::AfterSearch(const QString& wanted, std::function<void()> showAll) {
  showAll_ = std::move(showAll);
  setVisible(!wanted.isEmpty() && TableIsEmpty());
  constexpr int kShownLetters = 40;
  const QString shown =
      wanted.size() <= kShownLetters ? wanted : wanted.left(kShownLetters) + QChar(0x2026);
  words_->setText(QStringLiteral("No match for \"%1\"").arg(shown));
  setAccessibleName(words_->text());
  Place();
}

void NoMatch::Place() {
  const QSize room = table_->viewport()->size();
  const QSize size = sizeHint().boundedTo(room);
  setGeometry((room.width() - size.width()) / 2, (room.height() - size.height()) / 3, size.width(),
              size.height());
}

bool NoMatch::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Place();
  return QWidget::eventFilter(watched, event);
}

}  // namespace dtb

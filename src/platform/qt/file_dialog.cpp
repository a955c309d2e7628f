#include "platform/qt/file_dialog.h"

#include <QApplication>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QScreen>
#include <QTreeView>
#include <algorithm>

#include "platform/qt/qt_pictures.h"

namespace dtb {
namespace {

constexpr const char* kPreview = "Preview";

// A label that shows the picture of a file as large as it has room for, and its size in pixels.
class Preview : public QLabel {
 public:
  explicit Preview(QWidget* parent) : QLabel(parent) {
    setObjectName(QLatin1String(kPreview));
    setAccessibleName(QStringLiteral("Preview of the picture"));
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setFixedWidth(std::min(fontMetrics().height() * 22, screen()->availableSize().width() / 3));
    ShowFile({});
  }

  void ShowFile(const QString& file) {
    const double ratio = devicePixelRatioF();
    const QSize room = (QSizeF(width(), width()) * ratio).toSize();
    const QImage picture = QFileInfo(file).isFile() ? DecodedFor(file, room) : QImage();
    if (picture.isNull()) {
      setText(QStringLiteral("The picture that you select is shown here."));
      return;
    }
    QPixmap shown =
        QPixmap::fromImage(picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    shown.setDevicePixelRatio(ratio);
    setPixmap(shown);
  }
};

}  // namespace

void DressFileDialog(QFileDialog& dialog) {
  dialog.setFont(QApplication::font("QMenu"));
  dialog.setViewMode(QFileDialog::Detail);
  const int letter = dialog.fontMetrics().height();
  QSize wanted(letter * 52, letter * 30);
  if (const auto* preview = dialog.findChild<QLabel*>(QLatin1String(kPreview))) {
    wanted.rwidth() += preview->width();
  }
  const QSize most = dialog.screen()->availableSize() * 0.9;
  dialog.resize(wanted.boundedTo(most));
  if (auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  }
}

void AddPicturePreview(QFileDialog& dialog) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  auto* places = qobject_cast<QGridLayout*>(dialog.layout());
  if (places == nullptr) return;
  auto* preview = new Preview(&dialog);
  places->addWidget(preview, 0, places->columnCount(), places->rowCount(), 1);
  QObject::connect(&dialog, &QFileDialog::currentChanged, preview,
                   [preview](const QString& file) { preview->ShowFile(file); });
}

}  // namespace dtb

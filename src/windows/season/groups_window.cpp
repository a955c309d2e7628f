#include "windows/season/groups_window.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>
#include <map>

#include "platform/qt/qt_text.h"
#include "platform/trapped.h"
#include "windows/application.h"
#include "windows/shared/bind.h"
#include "windows/shared/buttons.h"
#include "windows/shared/controls.h"
#include "windows/shared/look.h"

namespace dtb {
namespace {

constexpr QSize kUsualGroupsSize(620, 640);  // layout units
constexpr const char* kTitle = "Groups of teams";
constexpr int kLongestName = 60;  // letters of a group

// Rows with room for a ring of the focus.
class RoomyDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {QStyledItemDelegate::sizeHint(option, index).width(), option.fontMetrics.height() + 6};
  }
};

}  // namespace

bool GroupsWindow::Run(const Platform& platform, const std::vector<std::string>& teams,
                       QWidget* over) {
  GroupsWindow window(platform, teams, over);
  const Application::Net net;
  return window.exec() == QDialog::Accepted;
}

GroupsWindow::GroupsWindow(const Platform& platform, std::vector<std::string> teams,
                           QWidget* parent)
    : QDialog(parent),
      platform_(platform),
      teams_(std::move(teams)),
      what_(MakeCaption(QStringLiteral("Drag teams from group to group. Each group has standings "
                                       "and a picture of its own."),
                        this)),
      tree_(new QTreeWidget(this)) {
  setObjectName(QStringLiteral("GroupsForm"));
  setWindowTitle(QLatin1String(kTitle));
  what_->setWordWrap(true);
  Name(tree_, "tree_Groups", QStringLiteral("Groups and their teams"));
  tree_->setHeaderHidden(true);
  tree_->setFrameShape(QFrame::NoFrame);
  tree_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  tree_->setDragDropMode(QAbstractItemView::InternalMove);
  tree_->setRootIsDecorated(false);
  tree_->setItemsExpandable(false);
  tree_->setItemDelegate(new RoomyDelegate(tree_));
  tree_->invisibleRootItem()->setFlags(Qt::ItemIsEnabled);  // teams stand in groups alone
  tree_->installEventFilter(this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(look::kSpace);
  column->addWidget(what_);
  column->addWidget(tree_, 1);
  BuildButtons(column);
  Fill(GroupsOfSeason(platform_));
  connect(tree_, &QTreeWidget::itemSelectionChanged, this, &GroupsWindow::ShowWhatCanBeDone);
  connect(tree_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
    const QSignalBlocker quiet(tree_);
    item->setText(0, item->text(0).simplified().left(kLongestName));
  });
  ShowWhatCanBeDone();
}

void GroupsWindow::BuildButtons(QVBoxLayout* column) {
  QHBoxLayout* row = nullptr;
  const auto begin = [&] {
    row = new QHBoxLayout;
    row->setSpacing(look::kSpace);
    column->addLayout(row);
  };
  const auto add = [&](const char* name, const char* caption, const char* tip, auto pressed) {
    QPushButton* button = MakeButton(name, QLatin1String(caption), QLatin1String(tip), this);
    row->addWidget(button);
    buttons_.push_back(button);
    connect(button, &QPushButton::clicked, this, pressed);
    return button;
  };
  begin();
  add("cmd_NewGroup", "New group", "Makes a group; the chosen teams go into it",
      [this] { NewGroup(); });
  rename_ = add("cmd_RenameGroup", "Rename", "Gives the chosen group another name",
                [this] { tree_->editItem(tree_->currentItem()); });
  takeAway_ = add("cmd_NoGroup", "Take away",
                  "Takes the chosen teams out of their group, or the chosen group away",
                  [this] { TakeAway(); });
  row->addStretch(1);
  up_ = add("cmd_Up", "Up", "Alt + Up", [this] { Move(-1); });
  down_ = add("cmd_Down", "Down", "Alt + Down", [this] { Move(1); });
  begin();
  const TeamGroups leagues = LeaguesOfSeason(platform_);
  QPushButton* archive =
      add("cmd_Leagues", "As in the archive", "The leagues of the archive of real games",
          [this, leagues] { Fill(leagues); });
  archive->setEnabled(!leagues.empty());
  row->addStretch(1);
  add("cmd_GroupsDone", "Done", "", [this] { Done(); });
  add("cmd_Cancel", "Cancel", "", [this] { reject(); });
}

QTreeWidgetItem* GroupsWindow::AddGroup(const QString& name) {
  auto* group = new QTreeWidgetItem({name});
  group->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled |
                  Qt::ItemIsEditable);
  QFont bold = tree_->font();
  bold.setBold(true);
  group->setFont(0, bold);
  tree_->insertTopLevelItem(
      others_ == nullptr ? tree_->topLevelItemCount() : tree_->indexOfTopLevelItem(others_), group);
  group->setExpanded(true);
  return group;
}

void GroupsWindow::Fill(const TeamGroups& groups) {
  tree_->clear();
  others_ = nullptr;
  others_ = AddGroup(QStringLiteral("Other teams"));
  others_->setFlags(others_->flags() & ~Qt::ItemIsEditable);
  std::map<std::string, QTreeWidgetItem*> groupOf;
  const auto addTeam = [](QTreeWidgetItem* group, const std::string& team) {
    auto* item = new QTreeWidgetItem(group, {ToQt(team)});
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
  };
  // Teams of the archive that have not played yet keep their places.
  for (const TeamGroup& group : groups) {
    QTreeWidgetItem* item = AddGroup(ToQt(group.name));
    for (const std::string& team : group.teams) {
      if (groupOf.emplace(team, item).second) addTeam(item, team);
    }
  }
  for (const std::string& team : teams_) {
    if (!groupOf.contains(team)) addTeam(others_, team);
  }
}

TeamGroups GroupsWindow::Groups() const {
  TeamGroups groups;
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* item = tree_->topLevelItem(i);
    if (item == others_) continue;
    TeamGroup& group = groups.emplace_back(TeamGroup{FromQt(item->text(0))});
    for (int team = 0; team < item->childCount(); ++team) {
      group.teams.push_back(FromQt(item->child(team)->text(0)));
    }
  }
  return groups;
}

bool GroupsWindow::IsTeam(const QTreeWidgetItem* item) {
  return item != nullptr && item->parent() != nullptr;
}

bool GroupsWindow::IsGroup(const QTreeWidgetItem* item) const {
  return item != nullptr && item->parent() == nullptr && item != others_;
}

void GroupsWindow::NewGroup() {
  QStringList names;
  for (const TeamGroup& group : Groups()) names.append(ToQt(group.name));
  QString name = QStringLiteral("New group");
  for (int number = 2; names.contains(name); ++number) {
    name = QStringLiteral("New group %1").arg(number);
  }
  const QList<QTreeWidgetItem*> chosen = tree_->selectedItems();
  QTreeWidgetItem* group = AddGroup(name);
  for (QTreeWidgetItem* item : chosen) {
    if (!IsTeam(item)) continue;
    item->parent()->removeChild(item);
    group->addChild(item);
  }
  tree_->setCurrentItem(group);
  tree_->editItem(group);
}

void GroupsWindow::TakeAway() {
  for (QTreeWidgetItem* item : tree_->selectedItems()) {
    if (IsTeam(item)) {
      item->parent()->removeChild(item);
      others_->addChild(item);
    } else if (IsGroup(item)) {
      others_->addChildren(item->takeChildren());
      delete item;
    }
  }
  ShowWhatCanBeDone();
}

void GroupsWindow::Move(int step) {
  QTreeWidgetItem* current = tree_->currentItem();
  const auto place = [this](QTreeWidgetItem* group) { return tree_->indexOfTopLevelItem(group); };
  if (IsGroup(current)) {
    const int from = place(current);
    const int to = std::clamp(from + step, 0, place(others_) - 1);
    if (to == from) return;
    tree_->insertTopLevelItem(to, tree_->takeTopLevelItem(from));
    current->setExpanded(true);
    return tree_->setCurrentItem(current);
  }
  const QList<QTreeWidgetItem*> chosen = tree_->selectedItems();
  for (QTreeWidgetItem* item : chosen) {
    if (!IsTeam(item)) continue;
    QTreeWidgetItem* group = tree_->topLevelItem(place(item->parent()) + step);
    if (group == nullptr) continue;
    item->parent()->removeChild(item);
    group->addChild(item);
  }
  if (IsTeam(current)) tree_->setCurrentItem(current, 0, QItemSelectionModel::NoUpdate);
  for (QTreeWidgetItem* item : chosen) item->setSelected(true);
}

void GroupsWindow::ShowWhatCanBeDone() {
  const QList<QTreeWidgetItem*> chosen = tree_->selectedItems();
  const bool team = std::ranges::any_of(chosen, IsTeam);
  const bool group = std::ranges::any_of(chosen, [this](auto* item) { return IsGroup(item); });
  rename_->setEnabled(chosen.size() == 1 && group);
  for (QPushButton* button : {takeAway_, up_, down_}) button->setEnabled(team || group);
}

void GroupsWindow::Done() {
  const TeamGroups groups = Groups();
  if (groups == GroupsOfSeason(platform_)) return reject();
  const std::string fault = FaultOfGroups(groups);
  if (!fault.empty()) {
    platform_.boxes.Show(fault, BoxIcon::Exclamation, kTitle);
    return;
  }
  Trapped(platform_.boxes, [&] {
    KeepGroups(platform_, groups);
    accept();
  });
}

bool GroupsWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool alt = key->modifiers() == Qt::AltModifier;
    if (alt && (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)) {
      Move(key->key() == Qt::Key_Up ? -1 : 1);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void GroupsWindow::showEvent(QShowEvent* event) {
  if (!event->spontaneous()) {
    const double scale = TakeTypeOfBoard(*this, buttons_, nullptr);
    what_->setFont(font());
    tree_->setFont(font());
    PlaceOverBoard(*this, kUsualGroupsSize, scale);
    tree_->setFocus(Qt::OtherFocusReason);
  }
  QDialog::showEvent(event);
}

}  // namespace dtb

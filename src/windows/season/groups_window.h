// The window in which the teams of a season are put into groups.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <string>
#include <vector>

#include "database/team_groups.h"

namespace dtb {

// Groups and their teams as a tree: teams are dragged from one to another, or moved by Alt and the
// arrow keys. Those in no group stand at its end. Created for each opening.
class GroupsWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens the window over another, with the teams of the season in use, and waits until the person
  // has closed it. True: there are other groups than before.
  static bool Run(const Platform& platform, const std::vector<std::string>& teams, QWidget* over);

  GroupsWindow(const Platform& platform, std::vector<std::string> teams, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildButtons(QVBoxLayout* column);
  void Fill(const TeamGroups& groups);
  [[nodiscard]] TeamGroups Groups() const;
  QTreeWidgetItem* AddGroup(const QString& name);
  [[nodiscard]] static bool IsTeam(const QTreeWidgetItem* item);
  [[nodiscard]] bool IsGroup(const QTreeWidgetItem* item) const;
  void NewGroup();
  void TakeAway();
  // The chosen teams into the group before or after, or the chosen group over its neighbour.
  void Move(int step);
  void ShowWhatCanBeDone();
  void Done();

  const Platform& platform_;
  std::vector<std::string> teams_;
  QLabel* what_;
  QTreeWidget* tree_;
  QTreeWidgetItem* others_ = nullptr;  // the teams in no group
  std::vector<QPushButton*> buttons_;
  QPushButton* rename_ = nullptr;
  QPushButton* takeAway_ = nullptr;
  QPushButton* up_ = nullptr;
  QPushButton* down_ = nullptr;
};

}  // namespace dtb

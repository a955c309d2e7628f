// The tables that stand in the browser from its opening on, read while the person looks already.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "browser/queries.h"
#include "season/season_figures.h"

namespace dtb {

// Reads each table once, those of the first tab first. Only reading is left to other threads: all
// operations belong to the thread of the windows, which alone changes the browser's state.
class Opening {
 public:
  explicit Opening(Browser& browser);
  // Reading ends soon, and is waited for.
  ~Opening() { stop_.request_stop(); }
  Opening(const Opening&) = delete;
  Opening& operator=(const Opening&) = delete;

  // From now on another thread reads one table after the other, and calls the function there
  // whenever one is ready to be shown.
  void ReadBehind(std::function<void()> ready);
  // A tab's tables are read at once, whatever else is being read.
  void Prefer(int tab);

  // Shows the tables that were read.
  void Show();
  // Gives reading so much time to finish a tab.
  void Await(int tab, std::chrono::milliseconds longest);
  // Shows a tab's tables, or all tables, however long their reading takes.
  void Finish(int tab);
  void FinishAll();

  // All tables of the tab, or of the browser, are shown or failed.
  [[nodiscard]] bool Finished(int tab) const;
  [[nodiscard]] bool FinishedAll() const;
  // Tells what was wrong with the database, once all is finished: once, and in one message. In the
  // place of a database that is missing or damaged another one is offered, and then shown.
  void TellFaults();

 private:
  struct Table {
    std::optional<Query> query;  // none: the season
    int tab;
    enum class State { Waits, IsRead, Ready, Finished } state = State::Waits;
    std::optional<StatGrid> contents = {};  // none: failed
    std::shared_ptr<const SeasonFigures> season = {};
    std::string fault = {};
  };

  // Reads the next table, of the tab if one is named. False: none waits.
  bool ReadNext(std::optional<int> tab = {});
  [[nodiscard]] Table* NextOf(std::optional<int> tab);
  void Read(Table& table);
  void ShowTable(Table& table);
  [[nodiscard]] bool Reads(std::optional<int> tab) const;
  void FinishThose(std::optional<int> tab);

  Browser& browser_;
  mutable std::mutex mutex_;
  std::condition_variable readOne_;
  std::vector<Table> tables_;
  std::string outOfReach_;  // why the rest was not tried
  bool lost_ = false;       // another database belongs in its place
  bool told_ = false;
  std::function<void()> ready_;
  std::stop_source stop_;
  std::vector<std::jthread> threads_;  // the last member, so that the others outlive them
};

// All of it at once, on the calling thread alone.
void OpenBrowser(Browser& browser);

// Reads and shows all these tables again, as they stand in the database now, each with the search
// that it shows and in the order in which it was sorted. Bracket, search texts and the tab in front
// stay. A failure is told once.
void ReadAgain(Browser& browser);

}  // namespace dtb

#include "browser/opening.h"

#include <algorithm>
#include <array>
#include <exception>
#include <utility>

#include "browser/bracket.h"
#include "browser/grid_format.h"
#include "database/lost_database.h"
#include "database/saved_games.h"

namespace dtb {
namespace {

struct Part {
  std::optional<Query> query;  // none: the season
  int tab = 0;
};

constexpr std::array kParts{
    Part{Query::Command4, browser_tab::kLineScores},
    Part{Query::Command5, browser_tab::kBattingByGame},
    Part{Query::Command2, browser_tab::kPitchingByGame},
    Part{Query::Command6, browser_tab::kAggregateBatting},
    Part{Query::Command14, browser_tab::kAggregatePitching},
    Part{Query::Command30, browser_tab::kWinLoss},
    Part{Query::Command34, browser_tab::kWinLoss},
    Part{std::nullopt, browser_tab::kSeason},
};

void ShowTable(Browser& browser, Query query, const std::string& box, StatGrid&& contents) {
  // Blue until the next query.
  if (query == Query::Command4 && contents.columns() > line_score_column::kGameID) {
    contents.SetColumnInk(line_score_column::kGameID, kClickableBlue);
  }
  ShowQuery(browser, query, box, std::move(contents));
}

std::string Joined(const std::vector<std::string>& sentences, const char* between) {
  std::string text;
  for (const std::string& sentence : sentences) text += (text.empty() ? "" : between) + sentence;
  return text;
}

}  // namespace

Opening::Opening(Browser& browser) : browser_(browser) {
  for (const auto& [query, tab] : kParts) tables_.push_back({query, tab});
  browser.state.SSTab1.Set(browser_tab::kLineScores);
  RestoreBracket(browser);
}

void Opening::ReadBehind(std::function<void()> ready) {
  ready_ = std::move(ready);
  threads_.emplace_back([this] {
    while (ReadNext()) ready_();
  });
}

void Opening::Prefer(int tab) {
  {
    const std::scoped_lock lock(mutex_);
    if (NextOf(tab) == nullptr) return;
  }
  threads_.emplace_back([this, tab] {
    while (ReadNext(tab)) ready_();
  });
}

Opening::Table* Opening::NextOf(std::optional<int> tab) {
  const auto next = std::ranges::find_if(tables_, [&tab](const Table& table) {
    return table.state == Table::State::Waits && (!tab || table.tab == *tab);
  });
  return next == tables_.end() ? nullptr : &*next;
}

bool Opening::ReadNext(std::optional<int> tab) {
  Table* table = nullptr;
  {
    const std::scoped_lock lock(mutex_);
    table = stop_.stop_requested() ? nullptr : NextOf(tab);
    if (table == nullptr) return false;
    table->state = Table::State::IsRead;
  }
  Read(*table);
  return true;
}

void Opening::Read(Table& table) {
  std::optional<StatGrid> contents;
  std::shared_ptr<const SeasonFigures> season;
  std::string fault;
  bool outOfReach = false;
  bool lost = false;
  try {
    Database& database = browser_.platform.database;
    if (table.query) {
      contents = ReadQuery(database, *table.query, {}, stop_.get_token());
    } else {
      season = std::make_shared<SeasonFigures>(ReadSeasonFigures(database, stop_.get_token()));
    }
  } catch (const DatabaseOutOfReach& failure) {
    fault = failure.what();
    outOfReach = true;
    lost = IsLost(failure);
  } catch (const std::exception& failure) {
    fault = failure.what();
  }
  const std::scoped_lock lock(mutex_);
  table.contents = std::move(contents);
  table.season = std::move(season);
  table.fault = std::move(fault);
  table.state = Table::State::Ready;
  if (outOfReach) {
    outOfReach_ = table.fault;
    lost_ = lost;
    for (Table& other : tables_) {
      if (other.state == Table::State::Waits) other.state = Table::State::Ready;
    }
  }
  readOne_.notify_all();
}

void Opening::Show() {
  for (Table& table : tables_) {
    {
      const std::scoped_lock lock(mutex_);
      if (table.state != Table::State::Ready) continue;
      table.state = Table::State::Finished;
    }
    ShowTable(table);
  }
}

void Opening::ShowTable(Table& table) {
  if (table.season) browser_.state.season.Set(std::move(table.season));
  if (!table.contents) return;
  dtb::ShowTable(browser_, *table.query, {}, std::move(*table.contents));
  table.contents.reset();
}

bool Opening::Reads(std::optional<int> tab) const {
  return std::ranges::any_of(tables_, [&tab](const Table& table) {
    return table.state < Table::State::Ready && (!tab || table.tab == *tab);
  });
}

void Opening::Await(int tab, std::chrono::milliseconds longest) {
  std::unique_lock lock(mutex_);
  readOne_.wait_for(lock, longest, [this, tab] { return !Reads(tab); });
}

// What no other thread has begun is read here.
void Opening::FinishThose(std::optional<int> tab) {
  while (ReadNext(tab)) continue;
  {
    std::unique_lock lock(mutex_);
    readOne_.wait(lock, [this, tab] { return !Reads(tab); });
  }
  Show();
}

void Opening::Finish(int tab) { FinishThose(tab); }

void Opening::FinishAll() { FinishThose(std::nullopt); }

bool Opening::Finished(int tab) const {
  const std::scoped_lock lock(mutex_);
  return std::ranges::all_of(tables_, [tab](const Table& table) {
    return table.tab != tab || table.state == Table::State::Finished;
  });
}

bool Opening::FinishedAll() const {
  const std::scoped_lock lock(mutex_);
  return std::ranges::all_of(
      tables_, [](const Table& table) { return table.state == Table::State::Finished; });
}

void Opening::TellFaults() {
  if (told_ || !FinishedAll()) return;
  told_ = true;
  if (lost_) {
    if (OfferAnotherDatabase(browser_.platform, outOfReach_, kBrowserTitle)) ReadAgain(browser_);
    return;
  }
  if (!outOfReach_.empty()) return TellQueryFailure(browser_, outOfReach_);
  std::vector<std::string> faults;
  for (const Table& table : tables_) {
    if (!table.fault.empty() && std::ranges::find(faults, table.fault) == faults.end()) {
      faults.push_back(table.fault);
    }
  }
  try {
    const auto lacking = browser_.platform.database.WhatItLacks();
    if (!lacking.empty()) {
      faults.push_back(
          "The tables of the statistics database are not as this program makes them:\n\n" +
          Joined(lacking, "\n") +
          "\n\nWhat is there is shown. No game can be saved while a column is missing.");
    }
  } catch (const ProgramError& failure) {
    if (faults.empty()) faults.emplace_back(failure.what());
  }
  if (!faults.empty()) TellQueryFailure(browser_, Joined(faults, "\n\n"));
}

void OpenBrowser(Browser& browser) {
  Opening opening(browser);
  opening.FinishAll();
  opening.TellFaults();
}

void ReadAgain(Browser& browser) {
  BrowserState& state = browser.state;
  Database& database = browser.platform.database;
  try {
    for (const auto& [query, tab] : kParts) {
      if (!query) continue;
      BrowserGrid& grid = state.*QueryButtons()[static_cast<std::size_t>(*query)].grid;
      const auto [shown, box] = grid.shown.value_or(BrowserGrid::Shown{*query, {}});
      const auto sorted = grid.sorted;
      ShowTable(browser, shown, box, ReadQuery(database, shown, box));
      grid.sorted = sorted;
      if (sorted) grid.grid.SortRows(sorted->column, sorted->order);
    }
    state.season.Set(std::make_shared<SeasonFigures>(ReadSeasonFigures(database, {})));
  } catch (const ProgramError& failure) {
    TellQueryFailure(browser, failure.what());
  }
}

}  // namespace dtb

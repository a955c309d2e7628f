// Who is compared with whom in the lists of the book.
#pragma once

#include <array>
#include <vector>

#include "book/book.h"

namespace dtb::book {

// The leads of a season's own pages, and hits.
inline constexpr std::array kBookLeads{
    SeasonLead::Average,          SeasonLead::Hits,   SeasonLead::HomeRuns,
    SeasonLead::RunsBattedIn,     SeasonLead::Runs,   SeasonLead::StolenBases,
    SeasonLead::EarnedRunAverage, SeasonLead::Wins,   SeasonLead::Saves,
    SeasonLead::Strikeouts,       SeasonLead::Innings};

template <class Line>  // SeasonLine or Career
[[nodiscard]] LeadCandidate CandidateOf(const Line& line) {
  return {line.batting ? &*line.batting : nullptr, line.pitching ? &*line.pitching : nullptr,
          line.teamGames};
}

[[nodiscard]] inline std::vector<LeadCandidate> Candidates(const Chapter& chapter) {
  std::vector<LeadCandidate> candidates;
  candidates.reserve(chapter.lines.size());
  for (const SeasonLine& line : chapter.lines) candidates.push_back(CandidateOf(line));
  return candidates;
}

}  // namespace dtb::book

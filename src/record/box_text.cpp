#include "record/box_text.h"

#include <algorithm>

#include "base/fixed_text.h"

namespace dtb {
namespace {

// The words of a text in lines; those behind the first are indented. A word longer than a line is
// cut in two.
std::string Wrapped(std::string_view text, std::size_t indent) {
  std::string wrapped;
  std::string line;
  const auto end = [&] {
    while (line.ends_with(' ')) line.pop_back();
    wrapped += line + '\n';
    line.assign(indent, ' ');
  };
  while (!text.empty()) {
    const std::size_t blank = std::min(text.find(' '), text.size());
    std::string_view word = text.substr(0, blank);
    text.remove_prefix(std::min(blank + 1, text.size()));
    if (LettersIn(line) + LettersIn(word) > kBoxWidth && LettersIn(line) > indent) end();
    while (LettersIn(line) + LettersIn(word) > kBoxWidth) {
      const std::string_view part = FirstLetters(word, kBoxWidth - LettersIn(line));
      line += part;
      word.remove_prefix(part.size());
      end();
    }
    line.append(word).append(" ");
  }
  if (line.find_first_not_of(' ') != std::string::npos) end();
  return wrapped;
}

std::string TableText(const BoxTable& table, const std::vector<std::size_t>& widths) {
  std::size_t sum = 0;
  for (const std::size_t width : widths) sum += width;
  const auto line = [&](const std::string& name, const std::vector<std::string>& cells) {
    std::string text = Left(name, kBoxWidth - sum);
    for (std::size_t i = 0; i < cells.size(); ++i) text += Right(cells[i], widths.at(i));
    while (text.ends_with(' ')) text.pop_back();
    return text + '\n';
  };
  std::string text = line(table.title, table.headers);
  for (const BoxRow& row : table.rows) {
    text += line((row.indented ? "  " : "") + row.name, row.cells);
  }
  if (!table.totals.empty()) text += line("Totals", table.totals);
  return text;
}

// "002 000 00x", two figures in parentheses.
std::string InningsText(const BoxLine& line) {
  std::string text;
  for (std::size_t i = 0; i < line.innings.size(); ++i) {
    if (i > 0 && i % 3 == 0) text += ' ';
    const std::string& runs = line.innings[i];
    text += runs.empty() ? "-" : LettersIn(runs) > 1 ? '(' + runs + ')' : runs;
  }
  return text;
}

std::string LineScoreText(const std::array<BoxLine, 2>& line) {
  constexpr std::size_t kTotals = 4;
  const std::size_t innings =
      std::max(LettersIn(InningsText(line[0])), LettersIn(InningsText(line[1])));
  const std::size_t behind = innings + 2 + 3 * kTotals;
  const std::size_t names = std::max(LettersIn(line[0].team), LettersIn(line[1].team)) + 2;
  const std::size_t room = behind < kBoxWidth ? kBoxWidth - behind : 1;
  std::string text;
  for (const BoxLine& one : line) {
    text += Left(one.team, std::min(names, room)) + Left(InningsText(one), innings) + " -" +
            Right(one.runs, kTotals) + Right(one.hits, kTotals) + Right(one.errors, kTotals) + '\n';
  }
  return text;
}

std::string NotesText(const std::vector<BoxNote>& notes) {
  std::string text;
  for (const BoxNote& note : notes) {
    text.append(text.empty() ? "" : " ").append(note.what).append(" - ");
    text.append(note.text).append(".");
  }
  return Wrapped(text, 2);
}

}  // namespace

std::string BoxText(const BoxScore& box) {
  std::string text = Wrapped(box.headline, 2);
  if (!box.when.empty()) text += Wrapped(box.when, 2);
  for (const BoxSide& side : box.sides) {
    text += '\n' + TableText(side.batting, {5, 4, 4, 4, 4, 4, 7});
    for (const std::string& note : side.substitutes) text += Wrapped(note + '.', 2);
  }
  text += '\n' + LineScoreText(box.line) + '\n' + NotesText(box.notes);
  for (const BoxSide& side : box.sides) {
    text += '\n' + TableText(side.pitching, {6, 4, 4, 4, 4, 4, 8});
  }
  if (!box.scoring.empty()) text += '\n';
  for (const std::string& play : box.scoring) text += Wrapped(play, 2);
  if (!box.remark.empty()) text += '\n' + Wrapped(box.remark, 0);
  return text;
}

std::string DayText(const std::string& date, std::span<const BoxScore> games) {
  std::string text = PlainDate(date) + '\n';
  for (const BoxScore& box : games) {
    text += '\n' + LineScoreText(box.line);
    if (!box.decisions.empty()) text += Wrapped(box.decisions + '.', 2);
    const auto homers = std::ranges::find(box.notes, "HR", &BoxNote::what);
    if (homers != box.notes.end()) text += Wrapped("HR - " + homers->text + '.', 2);
  }
  return text;
}

}  // namespace dtb

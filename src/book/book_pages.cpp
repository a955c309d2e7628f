#include "book/book_pages.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "base/file_names.h"
#include "base/program_error.h"
#include "base/time_stamp.h"
#include "base/words.h"
#include "book/book_html.h"
#include "season/page_folder.h"
#include "season/season_html.h"
#include "sheet/report_files.h"

namespace dtb::book {
namespace {

constexpr const char* kFolder = "All seasons ";  // and the day
constexpr double kReadShare = 0.8;               // of the work
constexpr std::size_t kCareersOfPage = 200;

class BookWriter {
 public:
  BookWriter(const Book& book, const PageFolder& folder, const ExportProgress& progress)
      : html_(book), folder_(folder), progress_(progress) {}

  // False: the person has enough of it.
  bool WriteAll() {
    folder_.Write("style.css", PageStyle());
    return Write("index.html", BookHtml::Page(kBookTitle, ChampionsBody(html_))) &&
           Write("leaders.html", BookHtml::Page("Leaders of each season", LeadersBody(html_))) &&
           Write("records.html", BookHtml::Page("Records", RecordsBody(html_))) &&
           Write("feats.html", BookHtml::Page("Feats", FeatsBody(html_))) && WriteCareers() &&
           WritePlayers();
  }
  [[nodiscard]] int pages() const { return pages_; }

 private:
  bool Write(const std::string& file, const std::string& page) {
    folder_.Write(file, page);
    constexpr double kOtherPages = 5;
    ++pages_;
    const double all = double(html_.paged().size()) + kOtherPages;
    return progress_(kReadShare + (1 - kReadShare) * std::min(1.0, pages_ / all));
  }

  // One page for few players; for many a page for each two hundred, to which the first one leads.
  bool WriteCareers() {
    const std::vector<int>& careers = html_.paged();
    std::string body = CareersRule(html_);
    if (careers.size() <= kCareersOfPage) {
      return Write("careers.html", BookHtml::Page("Careers", body + CareersBody(html_, careers)));
    }
    body += "<ul>\n";
    for (std::size_t first = 0; first < careers.size(); first += kCareersOfPage) {
      const std::size_t end = std::min(first + kCareersOfPage, careers.size());
      const std::vector<int> own(careers.begin() + static_cast<std::ptrdiff_t>(first),
                                 careers.begin() + static_cast<std::ptrdiff_t>(end));
      const std::string title = html_.TitleOf(own.front()) + " to " + html_.TitleOf(own.back());
      const std::string file = PageFileName("careers", first / kCareersOfPage + 1);
      if (!Write(file, BookHtml::Page(title, CareersBody(html_, own)))) return false;
      body += "<li>" + PageLink(file, title) + "</li>\n";
    }
    return Write("careers.html", BookHtml::Page("Careers", body + "</ul>\n"));
  }

  bool WritePlayers() {
    return std::ranges::all_of(html_.paged(), [this](int career) {
      return Write(html_.FileOf(career),
                   WholePage(html_.TitleOf(career), "../", CareerBody(html_, career), kBookTitle));
    });
  }

  BookHtml html_;
  const PageFolder& folder_;
  const ExportProgress& progress_;
  int pages_ = 0;
};

// "Left out: ..." with a line for each season; "" where there is none.
std::string LeftOutText(const Book& book) {
  std::string text;
  for (const LeftOut& season : book.leftOut) {
    text += (text.empty() ? "Left out:\n" : "") + season.name + ": " + season.why + "\n";
  }
  return text.empty() ? text : text + "\n";
}

struct Written {
  std::filesystem::path folder;
  std::string told;
};

// Nothing where the person cancelled or there is no game.
std::optional<Written> Write(Platform& platform, const ExportProgress& progress) {
  const auto book = ReadBook(platform, [&](double share) { return progress(kReadShare * share); });
  if (!book) return std::nullopt;
  if (book->chapters.empty()) {
    platform.boxes.Show(
        LeftOutText(*book) + "No game is saved yet in any season, so there is nothing to write.",
        BoxIcon::Information, kBookTitle);
    return std::nullopt;
  }
  const std::filesystem::path place =
      FreeFile(ReportsFolder(platform), kFolder + DateText(platform.clock.Now()), "");
  PageFolder folder(place, kFolder, {"players"});
  BookWriter writer(*book, folder, progress);
  if (!writer.WriteAll()) return std::nullopt;
  folder.PutInPlace();
  int games = 0;
  for (const Chapter& chapter : book->chapters) games += chapter.games;
  return Written{place, LeftOutText(*book) + kBookTitle +
                            " is written: " + Counted(std::ssize(book->chapters), "season") + ", " +
                            Counted(games, "game") + ", " + Counted(writer.pages(), "page") + "."};
}

}  // namespace

void WriteBook(Platform& platform, const ExportProgress& progress) {
  try {
    const auto written = Write(
        platform, progress ? progress : [](double /*share*/) { return true; });
    if (written) OfferPages(platform, written->told, written->folder, kBookTitle);
  } catch (const ProgramError& failure) {
    platform.boxes.Show("The book was not written. " + std::string(failure.what()),
                        BoxIcon::Exclamation, kBookTitle);
  }
}

}  // namespace dtb::book

// The season that was read last, and the way through it game by game without its window.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "archive/lineup_choice.h"
#include "archive/remarks.h"
#include "archive/schedule.h"
#include "archive/season.h"
#include "game/board.h"
#include "platform/archive.h"

namespace dtb::archive {

// The season that was read last, and what was chosen in it; lasts as long as the program runs. It
// belongs to the thread of the windows; to another one the season alone is handed.
struct KeptSeason {
  std::shared_ptr<const Season> season;  // none: nothing is read
  std::string archive;                   // the name of its file or folder
  int club = kAllClubs;                  // whose games are listed
  std::optional<int> game;               // of Season::games; none: the club's nine of the season
  SeasonNine nine = SeasonNine::UsedMost;
};

// The forms of lines that the settings have, and their change. Writing throws ProgramError if the
// settings cannot be written, here and below.
[[nodiscard]] LineForm KeptForm(const Platform& platform);
void KeepForm(const LineForm& form, const Platform& platform);
// Keeps for the next runs which nine of a club is shown.
void KeepNine(SeasonNine nine, const Platform& platform);

// Opens an archive and keeps its season, with the club that was chosen last if it has that, the
// nine that was shown last, and the leagues of its clubs as the groups of the season in use. False
// if it was stopped. Throws ProgramError as Archives::OpenArchive and ReadSeason do.
bool KeepSeason(KeptSeason& kept, const std::filesystem::path& archive, const Platform& platform,
                const GoOn& goOn);
// Keeps a season that was read from that archive, in the same way. Throws ProgramError if the
// settings cannot be written.
void KeepReadSeason(KeptSeason& kept, std::shared_ptr<const Season> season,
                    const std::filesystem::path& archive, const Platform& platform);

// Ties the season in use to an archive.
void TieSeason(const std::filesystem::path& archive, const Platform& platform);
// The archive to which the season in use is tied, whether it is still there or not; "" for none.
[[nodiscard]] std::filesystem::path TiedArchive(const Platform& platform);
// Ask for a zip or a folder, where the last one lay; nothing if the person cancels.
[[nodiscard]] std::optional<std::filesystem::path> AskForZip(const Platform& platform);
[[nodiscard]] std::optional<std::filesystem::path> AskForFolder(const Platform& platform);

// Keeps the chosen club for the next runs.
void KeepClub(const KeptSeason& kept, const Platform& platform);

// "Next game of Oakland 2020" or "Next game of the season": what to offer after a save. Nothing
// where the game on the board is none of an archive, where none of the chosen club's is left, and
// where the archive is gone. Reads no archive and never throws: what was not read in this run is
// offered by what the settings know of it.
[[nodiscard]] std::optional<std::string> NextGameOffer(const KeptSeason& kept, const Board& board);

// Reads the archive that was chosen last, unless a season was read in this run. False if it was
// stopped, or could not be read, which was told.
bool ReadLastSeason(KeptSeason& kept, const Platform& platform, const GoOn& goOn);

// Loads both teams of that next game onto the board, which should be a fresh one; an archive that
// was not read in this run is read first. Tells faults, and where no game is left, in a box. True:
// loaded.
bool LoadNextGame(KeptSeason& kept, Board& board, const GoOn& goOn);

// Loads both teams of a game with their starting pitchers as one step, and tells of players of one
// name and of what the archive does not say. False after an error, which was told.
bool LoadGameTeams(const Season& season, const Game& game, const LineForm& form, Board& board);

}  // namespace dtb::archive

// The teams of what is chosen in the window of an archive: shown, written and loaded.
#pragma once

#include "archive/archive_desk.h"

namespace dtb::archive {

// Shows the files of the chosen game or club as they will be; without a choice none.
void ShowFiles(ArchiveDesk& desk);

// A form changed: what is wrong with it is told, and the files are made again.
void ChangeForms(ArchiveDesk& desk);
// Keeps the forms, the club and the nine for the next runs.
void KeepChoices(ArchiveDesk& desk);

// Writes the files shown into the folder "Teams", and asks before it replaces one.
void WriteTeamFiles(ArchiveDesk& desk);

// Writes the one file shown, as above, and loads it for a side.
void LoadTeamAs(ArchiveDesk& desk, Side side);

// Loads both teams of the game shown, or of the next one that is not played, without any file, so
// that the archive's files stay as they are. True: loaded.
bool LoadGame(ArchiveDesk& desk);
bool LoadNextGame(ArchiveDesk& desk);

// Loads both teams of a game of the kept season, and chooses it; where a game is under way, the
// person is asked what to do with that. False: they are not loaded, which was told or wanted.
bool LoadChosenGame(KeptSeason& kept, int game, const LineForm& form, Board& board);

}  // namespace dtb::archive

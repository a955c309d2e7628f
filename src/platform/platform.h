// The services of the desktop that the logic calls, one small interface each. The program binds
// them to Qt; tests bind them to a scripted stand-in.
//
// All of them belong to the thread of the windows, here and in the other headers of ports: it alone
// calls them, and what they call back runs there before the call returns. What another thread may
// do is said where it may: queries of Database, Archives, and the functions of base/letters.h.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/time_stamp.h"
#include "platform/picture.h"

namespace dtb {

enum class BoxIcon { None, Information, Warning, Exclamation, Critical };
enum class BoxAlignment { Centred, Left };

struct Question {
  std::string text;
  std::string title = {};   // empty: the program's own
  bool yesIsUsual = false;  // Enter is a Yes, as long as the person chooses no other button
};

// A question with answers of its own, about a list or about what comes next.
struct Choice {
  std::string text;
  std::string title = {};
  std::vector<std::string> lines = {};
  std::vector<std::string> answers = {};  // closing the box is the last
  std::size_t usual = 0;                  // the place of the answer that Enter gives
  BoxIcon icon = BoxIcon::Exclamation;
};

// Message boxes. All of them block: the call returns when the person has closed the box; timers go
// on meanwhile, and no other gesture reaches the program.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  // A box of the game, without a button.
  virtual void ShowRecorded(const std::string& message, BoxAlignment alignment) = 0;
  // The same, which confirms a click. Where the person has chosen quick boxes it holds nothing back
  // and is a notice, with `counted` behind the message: who and what ("Tony Kubek 1B").
  virtual void Confirm(const std::string& message, const std::string& counted) = 0;
  // A notice at the foot of the board, which holds nothing back and goes by itself.
  virtual void Notify(const std::string& message) = 0;
  // A standard box with one OK button. An empty title stands for the program's own.
  virtual void Show(const std::string& message, BoxIcon icon, const std::string& title = {}) = 0;
  // A question with Yes and No. True for Yes; closing the box in any other way is a No.
  [[nodiscard]] virtual bool Ask(const Question& question) = 0;
  // The place of the chosen answer.
  [[nodiscard]] virtual std::size_t Choose(const Choice& choice) = 0;
};

struct OpenFileRequest {
  std::string title;
  std::filesystem::path folder;
  std::string filter;     // "Text (*.txt)|*.txt|Csv (*.csv*)|*.csv*": caption and patterns in turn
  bool pictures = false;  // the person sees each before it is chosen
};

struct SaveFileRequest {
  std::filesystem::path folder;
  std::string fileName;          // proposed
  std::string filter;            // as above
  std::string defaultExtension;  // "html": what a name without an extension gets
};

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  // The chosen file's full path, or nothing if the person cancelled.
  [[nodiscard]] virtual std::optional<std::filesystem::path> OpenFile(
      const OpenFileRequest& request) = 0;
  // Where to save, or nothing if the person cancelled or keeps the file that is there.
  [[nodiscard]] virtual std::optional<std::filesystem::path> SaveFile(
      const SaveFileRequest& request) = 0;
  // A folder, or nothing if the person cancelled.
  [[nodiscard]] virtual std::optional<std::filesystem::path> OpenFolder(
      const std::string& title, const std::filesystem::path& startAt) = 0;
};

class Pictures {
 public:
  virtual ~Pictures() = default;
  // The picture in a file, or nothing if the file is missing, unreadable, no picture or too large.
  // Cheap when the file is as it was at the last call: then nothing is read or decoded again.
  [[nodiscard]] virtual std::optional<Picture> Load(const std::filesystem::path& file) = 0;
  // The same, judged by the head of the file alone: for large pictures, which are decoded where
  // they are shown. The rest of the file may still turn out to be broken.
  [[nodiscard]] virtual std::optional<Picture> Recognise(const std::filesystem::path& file) = 0;
  // Why a file gives no picture, as a whole sentence for the person who chose it.
  [[nodiscard]] virtual std::string WhyNone(const std::filesystem::path& file) = 0;
};

// The keys that gestures of the mouse and of the board go with.
class Keyboard {
 public:
  virtual ~Keyboard() = default;
  // Ctrl is down now: the test of all gestures with Ctrl. It tells of no earlier press.
  [[nodiscard]] virtual bool ControlHeld() = 0;
  // How often Ctrl and F12 came to be down together since the last call, however short the press;
  // holding them counts once.
  virtual int TakeControlF12() = 0;
};

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // The stored text, or `missing` where the key was never stored or the store cannot be read.
  [[nodiscard]] virtual std::string Read(const std::string& section, const std::string& key,
                                         const std::string& missing) = 0;
  // Stored when the call returns. Throws ProgramError if the store cannot be written.
  virtual void Write(const std::string& section, const std::string& key,
                     const std::string& value) = 0;
};

class Pages {
 public:
  virtual ~Pages() = default;
  // Opens a web address or a file with the system's own program. Failure is silent.
  virtual void Open(const std::string& addressOrFile) = 0;
  // Starts the desktop's own tool that tells about the system. False: there is none.
  [[nodiscard]] virtual bool OpenSystemInformation() = 0;
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // Takes the place of whatever the clipboard held.
  virtual void SetText(const std::string& text) = 0;
};

// The program with which the person looks at workbooks.
class SpreadsheetProgram {
 public:
  virtual ~SpreadsheetProgram() = default;
  // One is installed and takes the workbooks that we write.
  [[nodiscard]] virtual bool Installed() = 0;
  // Starts it with a file. False: the system could not.
  [[nodiscard]] virtual bool OpenWorkbook(const std::filesystem::path& file) = 0;
};

class Sounds {
 public:
  virtual ~Sounds() = default;
  // Plays a sound in the background; what it played before ends. A missing or broken file and a
  // missing device are silent.
  virtual void PlayOnce(const std::filesystem::path& file) = 0;
  // Plays a sound again and again in the background, from its beginning. Throws ProgramError if the
  // file is missing or no sound; without a device it is silent.
  virtual void StartLoop(const std::filesystem::path& file) = 0;
  virtual void StopLoop() = 0;
  // Ends every sound.
  virtual void Silence() = 0;
};

class Randoms {
 public:
  virtual ~Randoms() = default;
  // Mixes the time into the generator.
  virtual void Reseed(int secondsSinceMidnight) = 0;
  // A number from 0 up to but not including 1, all equally likely.
  virtual double Draw() = 0;
};

// Where the game in progress is kept, in case the program ends without the person's will.
class RecoveryStore {
 public:
  virtual ~RecoveryStore() = default;
  // What a program that did not end cleanly kept last; nothing if there is none.
  [[nodiscard]] virtual std::optional<std::string> Load() = 0;
  // Keeps the bytes in place of what was kept before, whole or not at all, behind the caller's
  // back. It returns when what an earlier call gave is safe, so at most one gesture is ever
  // missing. A gesture that only goes on, letter by letter or move by move, waits for nothing.
  virtual void Keep(std::string bytes, bool gestureGoesOn) = 0;
  // Waits until what was given last is safe. False: it could not be kept.
  [[nodiscard]] virtual bool Safe() = 0;
  // The file of the game in progress. Games set aside stand beside it, with "." and the date of
  // their setting aside, year first, behind its name.
  [[nodiscard]] virtual std::filesystem::path File() = 0;
  // Moves what is kept aside and returns the name of the file that has it now.
  virtual std::string SetAside() = 0;
  // Puts these bytes aside, in a file of their own whose name ends with the title, and returns its
  // name; "" where it cannot be written. What is kept stays. Also works where another program keeps
  // the game in progress.
  [[nodiscard]] virtual std::string PutAside(const std::string& bytes,
                                             const std::string& title) = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Date and time where the computer stands.
  [[nodiscard]] virtual LocalTime Now() = 0;
  // The same in the form in which the person's system writes date and time, with seconds.
  [[nodiscard]] virtual std::string NowText() = 0;
};

class Archives;
class Database;
class DatabaseCopies;
class OldDatabase;
class Seasons;
class Workbooks;

struct Platform {
  MessageBoxes& boxes;
  FileDialogs& dialogs;
  Pictures& pictures;
  Keyboard& keyboard;
  SettingsStore& settings;
  Pages& pages;
  Database& database;
  DatabaseCopies& copies;
  OldDatabase& old;
  Seasons& seasons;
  Workbooks& workbooks;
  SpreadsheetProgram& spreadsheets;
  Clipboard& clipboard;
  Clock& clock;
  Sounds& sounds;
  Randoms& randoms;
  Archives& archives;
  std::filesystem::path programFolder;  // holds Teams, Ballparks, Logos, Charts
};

}  // namespace dtb

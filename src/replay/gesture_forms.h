// The gestures of a table script: what each line may say, told before anything is played.
#pragma once

#include <QDir>
#include <QString>
#include <optional>
#include <vector>

namespace dtb::replay {

struct GestureForm {
  const char* verb;
  const char* form;     // the words behind the verb, each naming what stands there; "" for none
  const char* meaning;  // what the gesture does, beginning with a verb
};

// In the order in which a person meets them.
[[nodiscard]] const std::vector<GestureForm>& GestureForms();

// Nothing is played for an empty line and for one that begins with '#'.
[[nodiscard]] bool IsRemark(const QString& line);

// Where the files that a script names lie: beside the script, else in the program's own folder.
struct ScriptFolders {
  QDir beside;
  QDir program;
};

struct LineFault {
  QString what;      // is wrong
  QString expected;  // "PITCHER SIDE PLAYER"; what stands in place of the line
};

// What is wrong with the form of a line; nothing where it has its form. With folders the team file
// of a LOAD must be in one of them.
[[nodiscard]] std::optional<LineFault> FaultOfLine(const QString& line,
                                                   const ScriptFolders* folders = nullptr);

// The form of the gesture with which a line begins, with its meaning; "" where it is no gesture.
[[nodiscard]] QString ExpectedOf(const QString& line);

// "NAME = VALUE" taken apart; VALUE is "" behind "NAME =".
struct Expectation {
  QString name;
  QString value;
};
[[nodiscard]] std::optional<Expectation> ExpectationOf(const QString& text);

}  // namespace dtb::replay

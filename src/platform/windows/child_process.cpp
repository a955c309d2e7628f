#include "base/child_process.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <system_error>

#include "base/paths.h"

namespace dtb::system {
namespace {

[[noreturn]] void CannotStart() {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

// An argument as the C library of the other program takes it apart again: in quotes, with those in
// it, and the backslashes before them, behind a backslash each.
std::wstring Quoted(const std::wstring& argument) {
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t letter : argument) {
    if (letter == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = letter == L'\\' ? backslashes + 1 : 0;
    quoted += letter;
  }
  return quoted.append(backslashes, L'\\') + L'"';
}

std::wstring CommandLine(const std::filesystem::path& program,
                         const std::vector<std::wstring>& arguments) {
  std::wstring line = Quoted(program.wstring());
  for (const std::wstring& argument : arguments) line += L' ' + Quoted(argument);
  return line;
}

// The variables of Windows itself, without which its libraries do not load.
std::wstring SystemsOwnEnvironment() {
  std::wstring block;
  for (const wchar_t* name : {L"SystemDrive", L"SystemRoot", L"TEMP"}) {
    const wchar_t* value = _wgetenv(name);
    if (value != nullptr) (block += name) += std::wstring(L"=").append(value).append(1, L'\0');
  }
  return block + L'\0';
}

HANDLE HandleOf(std::intptr_t number) { return reinterpret_cast<HANDLE>(number); }

}  // namespace

ChildProcess::ChildProcess(const std::filesystem::path& program,
                           const std::filesystem::path& file) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE ours = nullptr;
  HANDLE its = nullptr;
  if (CreatePipe(&ours, &its, &inherited, 0) == 0) CannotStart();
  SetHandleInformation(ours, HANDLE_FLAG_INHERIT, 0);
  HANDLE nothing =
      CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                  &inherited, OPEN_EXISTING, 0, nullptr);
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = nothing;
  start.hStdOutput = its;
  start.hStdError = nothing;
  std::wstring line = CommandLine(program, {file.wstring()});
  std::wstring environment = SystemsOwnEnvironment();
  PROCESS_INFORMATION made{};
  constexpr DWORD kWay = CREATE_NO_WINDOW | CREATE_UNICODE_ENVIRONMENT;
  const bool started = CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, kWay,
                                      environment.data(), nullptr, &start, &made) != 0;
  const DWORD fault = GetLastError();
  CloseHandle(its);
  CloseHandle(nothing);
  if (!started) {
    CloseHandle(ours);
    SetLastError(fault);
    CannotStart();
  }
  CloseHandle(made.hThread);
  process_ = reinterpret_cast<std::intptr_t>(made.hProcess);
  output_ = reinterpret_cast<std::intptr_t>(ours);
}

ChildProcess::~ChildProcess() {
  CloseHandle(HandleOf(output_));
  TerminateProcess(HandleOf(process_), EXIT_FAILURE);
  WaitForSingleObject(HandleOf(process_), INFINITE);
  CloseHandle(HandleOf(process_));
}

// A pipe takes no time limit, so it is asked again and again whether there is something in it.
ChildProcess::Heard ChildProcess::Hear(std::string& bytes, int longestSilence) {
  constexpr int kTurn = 5;  // milliseconds
  DWORD there = 0;
  for (int waited = 0; there == 0; waited += kTurn) {
    if (PeekNamedPipe(HandleOf(output_), nullptr, 0, nullptr, &there, nullptr) == 0) {
      return Heard::End;
    }
    if (there > 0) break;
    if (waited >= longestSilence) return Heard::Silence;
    Sleep(kTurn);
  }
  std::array<char, 1U << 16U> block{};
  DWORD size = 0;
  if (ReadFile(HandleOf(output_), block.data(), static_cast<DWORD>(block.size()), &size, nullptr) ==
          0 ||
      size == 0) {
    return Heard::End;
  }
  bytes.append(block.data(), size);
  return Heard::Bytes;
}

void BeAChild(unsigned seconds, std::size_t memory) {
  constexpr LONGLONG kTurnsOfSecond = 10'000'000;  // Windows counts in 100 nanoseconds
  _setmode(_fileno(stdout), _O_BINARY);
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags =
      JOB_OBJECT_LIMIT_PROCESS_TIME | (memory != 0 ? JOB_OBJECT_LIMIT_PROCESS_MEMORY : 0UL);
  limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = kTurnsOfSecond * seconds;
  limits.ProcessMemoryLimit = memory;
  HANDLE job = CreateJobObjectW(nullptr, nullptr);  // as long as the process
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof(limits));
  AssignProcessToJobObject(job, GetCurrentProcess());
}

// Windows has no way to take a program's place, so this one waits for the other and ends as it did.
void GoOnAs(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  std::vector<std::wstring> texts;
  for (const std::string& argument : arguments) texts.push_back(PathOf(argument).wstring());
  std::wstring line = CommandLine(program, texts);
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  PROCESS_INFORMATION made{};
  // A program that prints would open a window for that where this one has none.
  const DWORD way = GetConsoleWindow() == nullptr ? CREATE_NO_WINDOW : 0;
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, way, nullptr, nullptr,
                     &start, &made) == 0) {
    return;
  }
  WaitForSingleObject(made.hProcess, INFINITE);
  DWORD status = EXIT_FAILURE;
  GetExitCodeProcess(made.hProcess, &status);
  ExitProcess(status);
}

}  // namespace dtb::system

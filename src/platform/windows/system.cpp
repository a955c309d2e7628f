#include "base/system.h"

#include <windows.h>
//
#include <shellapi.h>

#include <cstdio>
#include <string>

#include "base/paths.h"

namespace dtb::system {

std::filesystem::path ExecutableFolder() {
  constexpr std::size_t kLongestPath = 32768;  // of Windows, with long paths
  std::wstring path(kLongestPath, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  path.resize(length);
  return std::filesystem::path(path).parent_path();
}

std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  wchar_t** const texts = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(TextOf(std::filesystem::path(texts[i])));
  LocalFree(texts);
  return arguments;
}

const char* const kProgramEnding = ".exe";

void PrintToConsole() {
  const bool somewhere = GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) != FILE_TYPE_UNKNOWN;
  if (somewhere || AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  SetConsoleOutputCP(CP_UTF8);
  for (FILE* stream : {stdout, stderr}) std::freopen("CONOUT$", "w", stream);
}

const bool kSettingsBesideData = true;

bool HasDisplay() { return true; }

// NTFS keeps its names in a journal of its own; a folder takes no flush.
void SyncFolder(const std::filesystem::path& /*folder*/) {}

// A folder itself takes no lock, so a file in it stands for it, which goes with the last handle.
FolderHeld::FolderHeld(const std::filesystem::path& folder) {
  constexpr DWORD kTurn = 20;  // milliseconds between two tries
  const std::wstring file = (folder / L".held").wstring();
  for (;;) {
    HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    handle_ = reinterpret_cast<std::intptr_t>(handle);
    const DWORD fault = handle == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS;
    if (fault != ERROR_SHARING_VIOLATION && fault != ERROR_DELETE_PENDING) return;
    Sleep(kTurn);
  }
}

FolderHeld::~FolderHeld() {
  HANDLE handle = reinterpret_cast<HANDLE>(handle_);
  if (handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
}

void EndByForce() {
  constexpr UINT kBrokenOff = 0xC000013A;  // what Windows says of a program that Ctrl + C ended
  TerminateProcess(GetCurrentProcess(), kBrokenOff);
  for (;;) Sleep(INFINITE);
}

}  // namespace dtb::system

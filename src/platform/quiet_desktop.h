// A desktop on which nothing happens: boxes close at once, dialogs are cancelled, nothing sounds.
// Tests and measures take what they need from it and override the rest.
#pragma once

#include <memory>

#include "platform/archive.h"
#include "platform/database.h"
#include "platform/database_copies.h"
#include "platform/old_database.h"
#include "platform/platform.h"
#include "platform/random_generator.h"
#include "platform/seasons.h"
#include "platform/workbook.h"

namespace dtb {

struct QuietDesktop : MessageBoxes,
                      FileDialogs,
                      Pictures,
                      Keyboard,
                      SettingsStore,
                      Pages,
                      SpreadsheetProgram,
                      Clipboard,
                      Clock,
                      Sounds,
                      Database,
                      DatabaseCopies,
                      OldDatabase,
                      Seasons,
                      Workbooks,
                      Archives,
                      RandomGenerator {
  // The same dice in every run.
  QuietDesktop() : RandomGenerator(1) {}

  void ShowRecorded(const std::string& /*message*/, BoxAlignment /*alignment*/) override {}
  void Confirm(const std::string& /*message*/, const std::string& /*counted*/) override {}
  void Notify(const std::string& /*message*/) override {}
  void Show(const std::string& /*message*/, BoxIcon /*icon*/,
            const std::string& /*title*/) override {}
  bool Ask(const Question& /*question*/) override { return true; }
  // The last answer but one: things go on as they stand.
  std::size_t Choose(const Choice& choice) override { return choice.answers.size() - 2; }
  std::optional<std::filesystem::path> OpenFile(const OpenFileRequest& /*request*/) override {
    return std::nullopt;
  }
  std::optional<std::filesystem::path> SaveFile(const SaveFileRequest& /*request*/) override {
    return std::nullopt;
  }
  std::optional<std::filesystem::path> OpenFolder(
      const std::string& /*title*/, const std::filesystem::path& /*startAt*/) override {
    return std::nullopt;
  }
  std::optional<Picture> Load(const std::filesystem::path& /*file*/) override {
    return std::nullopt;
  }
  std::optional<Picture> Recognise(const std::filesystem::path& /*file*/) override {
    return std::nullopt;
  }
  std::string WhyNone(const std::filesystem::path& /*file*/) override { return "no picture"; }
  bool ControlHeld() override { return false; }
  int TakeControlF12() override { return 0; }
  std::string Read(const std::string& /*section*/, const std::string& /*key*/,
                   const std::string& missing) override {
    return missing;
  }
  void Write(const std::string& /*section*/, const std::string& /*key*/,
             const std::string& /*value*/) override {}
  void Open(const std::string& /*addressOrFile*/) override {}
  bool OpenSystemInformation() override { return false; }
  bool Installed() override { return true; }
  bool OpenWorkbook(const std::filesystem::path& /*file*/) override { return true; }
  void SetText(const std::string& /*text*/) override {}
  void PlayOnce(const std::filesystem::path& /*file*/) override {}
  void StartLoop(const std::filesystem::path& /*file*/) override {}
  void StopLoop() override {}
  void Silence() override {}
  LocalTime Now() override { return {}; }
  std::string NowText() override { return {}; }
  void Run(const Statement& /*query*/, RowSink& /*rows*/) override {}
  std::vector<std::string> WhatItLacks() override { return {}; }
  std::unique_ptr<DatabaseChange> BeginChange() override { return nullptr; }
  std::unique_ptr<DatabaseSave> BeginSave(const std::vector<TableColumns>& /*tables*/) override {
    return nullptr;
  }
  std::vector<std::string> CopyNames() override { return {}; }
  std::uintmax_t CopySize(const std::string& /*name*/) override { return 0; }
  std::unique_ptr<Database> OpenCopy(const std::string& /*name*/) override { return nullptr; }
  std::string FaultOfCopy(const std::string& /*name*/) override { return {}; }
  bool EqualsCopy(const std::string& /*name*/) override { return false; }
  void MakeCopy(const std::string& /*name*/) override {
    throw DatabaseOutOfReach(error_number::kFileNotFound, "There is no database.");
  }
  void RemoveCopy(const std::string& /*name*/) override {}
  DatabaseHealth Examine() override { return DatabaseHealth::Sound; }
  void BringBack(const std::string& /*name*/) override {}
  std::string Renew(const std::optional<std::string>& /*copy*/,
                    const std::string& /*asideName*/) override {
    return {};
  }
  bool StandsInPlace() override { return false; }
  OldContents Contents() override { return {}; }
  std::string TakeOver(const std::string& /*asideName*/) override { return {}; }
  std::vector<std::string> Names() override { return {}; }
  bool Stands(const std::string& name) override { return name.empty(); }
  std::uintmax_t Size(const std::string& /*name*/) override { return 0; }
  std::unique_ptr<Database> OpenSeason(const std::string& /*name*/) override { return nullptr; }
  const std::string& InUse() const override { return seasonInUse; }
  void Use(const std::string& name) override { seasonInUse = name; }
  void Create(const std::string& /*name*/) override {}
  void Rename(const std::string& /*name*/, const std::string& /*to*/) override {}
  void CopyOut(const std::string& /*name*/, const std::filesystem::path& /*file*/) override {}
  std::unique_ptr<Database> OpenDatabaseFile(const std::filesystem::path& /*file*/) override {
    return nullptr;
  }
  void MakeDatabaseFile(const std::filesystem::path& /*file*/,
                        const std::function<void(Database&)>& /*fill*/) override {}
  std::filesystem::path PutAway(const std::string& name) override { return name; }
  std::unique_ptr<Archive> OpenArchive(const std::filesystem::path& zipOrFolder,
                                       const GoOn& /*goOn*/) override {
    throw ProgramError(error_number::kFileNotFound, zipOrFolder.string() + " does not exist.");
  }
  std::unique_ptr<WorkbookWriter> Begin(const std::filesystem::path& /*file*/) override {
    return nullptr;
  }

  std::string seasonInUse;
};

// All ports of a desktop, apart from those that are often real ones. No copies, no old database:
// the desktop's own.
inline Platform PlatformOf(QuietDesktop& desk, Database& database, Workbooks& workbooks,
                           const std::filesystem::path& programFolder = {},
                           DatabaseCopies* copies = nullptr, OldDatabase* old = nullptr) {
  if (copies == nullptr) copies = &desk;
  if (old == nullptr) old = &desk;
  return {desk, desk,      desk, desk, desk, desk, database, *copies, *old,
          desk, workbooks, desk, desk, desk, desk, desk,     desk,    programFolder};
}

}  // namespace dtb

// An old database whose reading the person waits for with a busy pointer.
#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include "platform/sqlite/jet/jet_database.h"
#include "windows/boxes/busy.h"

namespace dtb {

class BusyOldDatabase final : public OldDatabase {
 public:
  explicit BusyOldDatabase(std::filesystem::path file) : old_(std::move(file)) {}

  void MoveTo(std::filesystem::path file) { old_.MoveTo(std::move(file)); }

  bool StandsInPlace() override { return old_.StandsInPlace(); }
  OldContents Contents() override {
    const BusyPointer busy;
    return old_.Contents();
  }
  std::string TakeOver(const std::string& asideName) override {
    const BusyPointer busy;
    return old_.TakeOver(asideName);
  }

 private:
  JetDatabase old_;
};

}  // namespace dtb

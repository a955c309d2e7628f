// What the fuzzers share. Each is one file with one function, LLVMFuzzerTestOneInput; the table in
// CMakeLists.txt says what it links and where its first inputs lie.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace dtb::fuzz {

// Ends the fuzzer where the program does not keep its word.
inline void Require(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", promise);
  std::abort();
}

// What an input stands for, printed while DTB_SHOW is set.
inline void Show(const std::string& text) {
  static const bool shown = std::getenv("DTB_SHOW") != nullptr;
  if (shown) std::fprintf(stderr, "%s\n", text.c_str());
}

// A folder of the process, kept in memory where the system has such a place.
inline const std::filesystem::path& Folder() {
  static const struct Temporary {
    Temporary() {
      const std::filesystem::path memory = "/dev/shm";
      std::string name =
          (exists(memory) ? memory : std::filesystem::temp_directory_path()) / "fuzzXXXXXX";
      path = mkdtemp(name.data());
    }
    ~Temporary() { std::filesystem::remove_all(path); }
    std::filesystem::path path;
  } folder;
  return folder.path;
}

inline std::filesystem::path WriteInput(const char* name, std::string_view bytes) {
  const std::filesystem::path file = Folder() / name;
  std::ofstream(file, std::ios::binary) << bytes;
  return file;
}

inline std::string_view BytesOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Takes an input apart; at its end everything is 0.
class Input {
 public:
  explicit Input(std::string_view bytes) : bytes_(bytes) {}
  [[nodiscard]] bool AtEnd() const { return bytes_.empty(); }
  unsigned Byte() {
    if (AtEnd()) return 0;
    const auto byte = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return byte;
  }
  std::size_t Below(std::size_t limit) {
    std::size_t number = Byte();
    if (limit > 256) number = number << 8U | Byte();
    if (limit > 65536) number = number << 8U | Byte();
    return number % limit;
  }
  std::string_view Bytes(std::size_t count) {
    const std::string_view taken = bytes_.substr(0, count);
    bytes_.remove_prefix(taken.size());
    return taken;
  }

 private:
  std::string_view bytes_;
};

// Bytes that begin as a good file and are changed at some places, since no fuzzer finds a format
// with checksums by itself. Of an input with an odd first byte, the rest as it stands.
inline std::string Edited(std::string good, std::string_view bytes) {
  Input input(bytes);
  if (input.Byte() % 2 == 1) return std::string(bytes.substr(1));
  while (!input.AtEnd()) {
    const std::size_t place = input.Below(good.size() + 1);
    const std::size_t removed = input.Byte();
    const std::string_view added = input.Bytes(input.Byte() % 32);
    // The largest number cuts off the rest.
    good.replace(place, removed == 255 ? good.npos : removed % 32, added);
  }
  return good;
}

}  // namespace dtb::fuzz

// An archive built byte by byte, and a ClsPFF whose events are noted.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "formats/pff/cls_pff.h"
#include "support/error_number.h"
#include "support/headless_fixture.h"

namespace kestrun {

struct RawEntry {
  std::string name;  // padded with NUL
  std::string data;
  uint32_t deleted = 0;
};

// The bytes of an archive: header, data in order, table, trailer.
inline std::string BuildArchive(const std::vector<RawEntry>& entries, size_t stride = 36) {
  Bytes header(20);
  std::string data;
  Bytes table;
  for (const RawEntry& entry : entries) {
    const size_t at = table.size();
    table.resize(at + stride);
    StoreU32(table, at, entry.deleted);
    StoreU32(table, at + 4, static_cast<uint32_t>(20 + data.size()));
    StoreU32(table, at + 8, static_cast<uint32_t>(entry.data.size()));
    std::copy(entry.name.begin(), entry.name.end(), table.begin() + static_cast<std::ptrdiff_t>(at) + 16);
    data += entry.data;
  }
  StoreU32(header, 0, 20);
  StoreU32(header, 4, 0x33464650);
  StoreU32(header, 8, static_cast<uint32_t>(entries.size()));
  StoreU32(header, 12, static_cast<uint32_t>(stride));
  StoreU32(header, 16, static_cast<uint32_t>(20 + data.size()));
  return std::string(AsChars(header)) + data + std::string(AsChars(table)) +
         std::string("\xC0\xA8\x00\x03\0\0\0\0KING", 12);
}

class PffTest : public HeadlessTest {
 protected:
  PffTest() {
    archive.PFFPorgress = [this](int16_t value) { progress.push_back(value); };
    archive.PFFError = [this](int32_t number, const std::string& text) {
      events.push_back(std::to_string(number) + " " + text);
    };
  }

  void WriteArchive(const std::vector<RawEntry>& entries) { WriteFile(archive_path, BuildArchive(entries)); }
  void Load() { ASSERT_TRUE(archive.LoadPff(archive_path)); }
  bool Pack(const std::string& name, const std::string& data) { return archive.PackFile(AsBytes(data), name); }
  [[nodiscard]] std::string Extract(int32_t number) {
    Bytes bytes;
    static_cast<void>(archive.ExtractFile(number, bytes, ""));
    return std::string(AsChars(bytes));
  }
  // Reads the file anew, as another program would.
  [[nodiscard]] std::string Stored(const std::string& name) {
    ClsPFF fresh;
    int32_t index = -1;
    if (!fresh.LoadPff(archive_path)) return "(not loaded)";
    if (!fresh.PFFFileExists(name, index)) return "(none)";
    Bytes bytes;
    static_cast<void>(fresh.ExtractFile(index, bytes, ""));
    return std::string(AsChars(bytes));
  }
  [[nodiscard]] std::string FileBytes() { return ReadFile(archive_path); }

  const std::string archive_path = Path("game.pff");
  ClsPFF archive;
  std::vector<int> progress;
  std::vector<std::string> events;
};

}  // namespace kestrun

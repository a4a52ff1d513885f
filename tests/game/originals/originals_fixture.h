// A game folder with an archive of three entries, a map to put in, and the ledger beside packit.ini.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/sha256.h"
#include "game/originals/differences.h"
#include "game/originals/ledger.h"
#include "maps/put/put_map.h"
#include "program/frame_fixture.h"

namespace kestrun::originals {

class OriginalsTest : public FrameTest {
 protected:
  OriginalsTest() {
    TellGameFolder();
    WriteIni("[launcher]\r\nWARNOVERWRITE=False\r\n");
    MakeGameArchive(Archive());
    WriteFile(MapPath("Oasis.bms"), oasis);
    WriteFile(MapPath("Harbour.bms"), harbour);
  }

  static constexpr const char* kMission = "D08M03.BMS";

  void MakeGameArchive(const std::string& path) {
    ClsPFF archive;
    archive.NewPffFile(path);
    archive.PackFile(AsBytes(stock), kMission);
    archive.PackFile(AsBytes(stock_deathmatch), "D08M04.BMS");
    archive.PackFile(AsBytes("the last entry"), "LAST.BIN");
    archive.SavePffFile();
  }

  [[nodiscard]] std::string Archive() const { return GamePath("dflw.pff"); }
  [[nodiscard]] std::string LedgerPath(const std::string& name) const { return ProgramPath("originals\\" + name); }
  [[nodiscard]] std::string IndexText() { return ReadFile(LedgerPath("index.txt")); }
  [[nodiscard]] bool IsKept(const std::string& content) {
    const std::string path = LedgerPath(Sha256Hex(AsBytes(content)));
    return FileIsThere(path) && ReadFile(path) == content;
  }

  bool Put(const std::string& map, std::string name, int32_t mode = kPutInArchive, bool warn = true) {
    return PutMap(MapPath(map), name, mode, warn);
  }
  // What another program does to an entry.
  void PackByHand(const std::string& content, const std::string& name) {
    ClsPFF archive;
    ASSERT_TRUE(archive.LoadPff(Archive()));
    archive.PackFile(AsBytes(content), name);
    archive.SavePffFile();
  }
  [[nodiscard]] std::vector<Difference> Differences() { return FindDifferences(Path("game")); }
  // Names of what differs, joined.
  [[nodiscard]] std::string Names() {
    std::string names;
    for (const Difference& difference : Differences()) {
      names += difference.place.file + (difference.place.entry.empty() ? "" : ":" + difference.place.entry) + "|";
    }
    return names;
  }
  [[nodiscard]] const Record* RecordOf(const Index& index, const std::string& file, const std::string& entry = {}) {
    return index.Find(PlaceOf(GamePath(file), entry));
  }

  static std::string Mission(const std::string& name, const std::string& rest) {
    std::string bytes = "BMS\x01" + name;
    bytes.resize(36, '\0');
    return bytes + rest;
  }

  const std::string stock = Mission("Desert prison", std::string(400, 's'));
  const std::string stock_deathmatch = Mission("Death valley", std::string(300, 'd'));
  const std::string oasis = Mission("Oasis", std::string(150, 'm'));
  const std::string harbour = Mission("Harbour", std::string(900, 'h'));
};

}  // namespace kestrun::originals

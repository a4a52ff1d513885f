// A program folder with a packit.ini, a game folder with an archive, and windows that are closed at the end.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "formats/pff/cls_pff.h"
#include "forms/window_registry.h"
#include "program/settings.h"
#include "program/start_mode.h"
#include "support/headless_fixture.h"
#include "web/site.h"

namespace kestrun {

class FrameTest : public HeadlessTest {
 protected:
  FrameTest() {
    native_files.MakeFolder(Path("game"));
    native_files.MakeFolder(Path("maps"));
  }
  ~FrameTest() override {
    CloseAllWindows();
    SetSafeMode(false);
  }

  [[nodiscard]] std::string GamePath(std::string_view name) const { return Path("game\\") + std::string(name); }
  [[nodiscard]] std::string MapPath(std::string_view name) const { return Path("maps\\") + std::string(name); }

  // The folder name of every test holds letters that no single-byte page has: settings files cannot name it, so that
  // the game folder is told through the registry, which is Unicode throughout.
  void TellGameFolder() {
    desktop.registry().Write(RegistryRoot::kLocalMachine,
                             "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\dflwdem.exe", "Path",
                             Path("game"));
  }
  // The site answers, which the uploader asks when it loads.
  void PutSite() {
    desktop.internet().Reply(SiteUrl("MAPS.INI"), "[launcher]\r\nMAPCENTER=http://center.example\r\n");
    desktop.internet().Reply("http://center.example/script.php", "OK\nDelta Force\n");
  }
  void WriteIni(std::string_view content) { WriteFile(ProgramPath("packit.ini"), content); }
  [[nodiscard]] std::string Ini(std::string section, std::string key, std::string missing = "(none)") {
    return GetIniValue(AppFile("packit.ini"), section, key, missing);
  }

  // An archive with the named entries, 100 bytes each.
  void MakeArchive(const std::string& path, const std::vector<std::string>& names) {
    ClsPFF archive;
    archive.NewPffFile(path);
    for (const std::string& name : names) archive.PackFile(Bytes(100, 'o'), name);
    archive.SavePffFile();
  }
  // The bytes of an entry as text; "(none)" when there is none.
  [[nodiscard]] std::string EntryOf(const std::string& path, const std::string& name) {
    ClsPFF archive;
    int32_t index = -1;
    if (!archive.LoadPff(path) || !archive.PFFFileExists(name, index)) return "(none)";
    Bytes bytes;
    static_cast<void>(archive.ExtractFile(index, bytes, ""));
    return std::string(AsChars(bytes));
  }
};

}  // namespace kestrun

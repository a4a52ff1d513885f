// Lays out a small world to try the program in, and shows what changed in its archive.
//   kestrun_demo make FOLDER          game\ with a dflw.pff of a few hundred entries, maps\ with missions, packit.ini
//   kestrun_demo list ARCHIVE         one line for each entry: name, offset, length
//   kestrun_demo pack FOLDER          the files of a folder, sorted by name, as the archive FOLDER.stl: a style
//   kestrun_demo start PROGRAM        the program with the raw text in KESTRUN_ARGUMENTS; gives its exit code
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "formats/bms/bms_writer.h"
#include "formats/pff/cls_pff.h"
#include "platform/platform.h"
#ifdef _WIN32
#include <process.h>

#include "desktop/win32/win32_platform.h"
#else
#include "desktop/headless/command_line_host.h"
#endif

namespace {

using kestrun::Bytes;
using kestrun::ClsPFF;
using kestrun::MissionFields;

constexpr int kFillerEntries = 300;
constexpr uint16_t kDeathmatch = 0x200;
constexpr uint16_t kCaptureTheFlag = 0x1000;

struct DemoMap {
  const char* file;
  const char* name;
  const char* designer;
  const char* terrain;
  uint16_t game_types;
  size_t length;
};

constexpr std::array kMaps{
    DemoMap{"Desert Storm.bms", "Desert Storm", "Mirage", "DDESERT1", kCaptureTheFlag, 38000},
    DemoMap{"Harbour at Night.bms", "Harbour at Night", "Lantern", "DCOAST2", kDeathmatch, 61000},
    DemoMap{"Highland Pass.bms", "Highland Pass", "Mirage", "DHILLS1", kDeathmatch | kCaptureTheFlag, 24500},
    DemoMap{"Oasis.bms", "Oasis", "Sandpiper", "DDESERT2", kCaptureTheFlag, 45200},
    DemoMap{"Two Towers.bms", "Two Towers", "Lantern", "DTOWN1", kDeathmatch, 30100},
};

// Bytes that look alike nowhere: a fixed sequence per seed.
Bytes Filler(uint32_t seed, size_t length) {
  Bytes bytes(length);
  for (uint8_t& byte : bytes) {
    seed = seed * 1664525 + 1013904223;
    byte = static_cast<uint8_t>(seed >> 24);
  }
  return bytes;
}

Bytes Mission(const DemoMap& map) {
  MissionFields fields;
  fields.mission_name = map.name;
  fields.designer = map.designer;
  fields.terrain = map.terrain;
  fields.game_types = map.game_types;
  fields.sun = "NOON";
  Bytes mission = WriteMission(fields);
  const Bytes rest = Filler(static_cast<uint32_t>(map.length), map.length - mission.size());
  mission.insert(mission.end(), rest.begin(), rest.end());
  return mission;
}

void MakeArchive(const std::string& path) {
  ClsPFF archive;
  archive.NewPffFile(path);
  for (int at = 0; at < kFillerEntries; ++at) {
    char name[16];
    std::snprintf(name, sizeof name, "STOCK%03d.BIN", at);
    const auto seed = static_cast<uint32_t>(at + 1);
    archive.PackFile(Filler(seed, 200 + seed * 97 % 5000), name);
    if (at == 100)
      archive.PackFile(Mission({"", "Desert prison", "Stock", "DDESERT1", kCaptureTheFlag, 40000}), "D08M03.BMS");
    if (at == 200)
      archive.PackFile(Mission({"", "Death Valley", "Stock", "DVALLEY1", kDeathmatch, 40000}), "D08M04.BMS");
  }
  archive.SavePffFile();
}

void Make(const std::string& folder) {
  kestrun::FileSystem& files = kestrun::platform().files();
  for (const char* name : {"", "\\game", "\\maps"}) {
    const std::string path = folder + name;
    if (!files.Exists(path)) files.MakeFolder(path);
  }
  MakeArchive(folder + "\\game\\dflw.pff");
  for (const DemoMap& map : kMaps) files.WriteAll(folder + "\\maps\\" + map.file, Mission(map));
}

int List(const std::string& path) {
  ClsPFF archive;
  if (!archive.LoadPff(path)) {
    std::fprintf(stderr, "kestrun_demo: cannot read the archive %s\n", path.c_str());
    return 1;
  }
  for (int32_t at = 0; at < archive.PFFTotalFiles(); ++at) {
    std::printf("%-16s offset %8d length %8d\n", archive.FileName(at).c_str(), archive.FileOffset(at),
                archive.FileLength(at));
  }
  return 0;
}

// An archive that is there is made anew.
void Pack(const std::string& folder) {
  kestrun::FileSystem& files = kestrun::platform().files();
  const std::string path = folder + ".stl";
  if (files.Exists(path)) files.Delete(path);
  ClsPFF archive;
  archive.NewPffFile(path);
  for (const kestrun::FolderEntry& entry : files.List(folder)) {
    if (!entry.is_folder) archive.PackFile(files.ReadAll(folder + "\\" + entry.name), entry.name);
  }
  archive.SavePffFile();
}

// Starts a program with one raw command text, as a shortcut or the shell does, and gives its exit code. The text comes
// in the environment variable KESTRUN_ARGUMENTS, where nothing quotes it again.
int Start(const std::string& program) {
#ifdef _WIN32
  const std::wstring path(program.begin(), program.end());
  const wchar_t* text = _wgetenv(L"KESTRUN_ARGUMENTS");
  // The runtime library joins the words by blanks and quotes nothing.
  const std::wstring name = L"\"" + path + L"\"";
  return static_cast<int>(_wspawnl(_P_WAIT, path.c_str(), name.c_str(), text ? text : L"", nullptr));
#else
  std::fprintf(stderr, "kestrun_demo: start is for Windows programs: %s\n", program.c_str());
  return 2;
#endif
}

int Run(const std::string& command, const std::string& path) {
  try {
    if (command == "list") return List(path);
    if (command == "start") return Start(path);
    if (command == "make") return Make(path), 0;
    if (command == "pack") return Pack(path), 0;
  } catch (const kestrun::RuntimeError& failure) {
    std::fprintf(stderr, "kestrun_demo: %s: error %d: %s\n", path.c_str(), failure.number(), failure.what());
    return 1;
  }
  std::fputs("usage: kestrun_demo make FOLDER | list ARCHIVE | pack FOLDER | start PROGRAM\n", stderr);
  return 2;
}

}  // namespace

int main(int argument_count, char** arguments) {
#ifdef _WIN32
  kestrun::Win32Platform platform;
#else
  kestrun::CommandLineHost host("");
  kestrun::Platform& platform = host.platform();
#endif
  const kestrun::PlatformInstallation installation(platform);
  return argument_count == 3 ? Run(arguments[1], arguments[2]) : Run("", "");
}

#include "maps/put/put_map.h"

#include "base/code_page.h"
#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/pff/cls_pff.h"
#include "maps/put/frmoverwrite.h"
#include "maps/put/keep_before_put.h"
#include "maps/put/mission_name.h"
#include "platform/file_error.h"
#include "platform/platform.h"
#include "platform/turn.h"
#include "program/game_paths.h"
#include "program/load_archive.h"
#include "program/path_text.h"
#include "program/settings.h"
#include "program/window_kit/run_command.h"

namespace kestrun {
namespace {

bool AskToContinue(const std::string& title, const std::string& first_lines) {
  return MsgBox(first_lines + std::string(kCrLf) + "Continue?", BoxButtons::kYesNo, BoxIcon::kWarning, title) ==
         BoxAnswer::kYes;
}

// The width of a name field in the archive, counted in its single-byte text.
void CutToNameField(std::string& name) {
  const std::string encoded = EncodeText(name);
  if (encoded.size() > kMissionNameBytes) name = DecodeText(std::string_view(encoded).substr(0, kMissionNameBytes));
}

// A name that the archive cannot hold would come back as another one: it is refused before anything is changed.
void RefuseUnencodable(const std::string& name) {
  const auto character = FirstUnencodable(name);
  if (!character) return;
  Raise(error::kInvalidProcedureCall, "The name '" + name +
                                          "' cannot be stored in the archive: it has no character for '" + *character +
                                          "'. Choose a name without it.");
}

// An empty map would leave the mission without data. It is refused before anything is asked; one that is missing fails
// where it is read.
void RefuseEmptyMap(const std::string& path) {
  if (FileExists(path) && platform().files().Open(path, OpenMode::kRead)->Size() == 0) RaiseEmptyFile(path);
}

Bytes ReadMap(const std::string& path) {
  Bytes map = platform().files().ReadAll(path);
  if (map.empty()) RaiseEmptyFile(path);
  return map;
}

// What runs after the insertion when the user has set a program for it.
struct AfterRun {
  const Setting& enabled;
  const Setting& program;
  const char* description;
};

bool RunProgramAfter(const AfterRun& after, const std::string& name, const std::string& game_folder, bool warn) {
  if (!TextToBoolean(ReadSetting(after.enabled))) return true;
  const std::string program = ReadSetting(after.program);
  if (!FileExists(program) && warn &&
      !AskToContinue("File not found!", std::string("The '") + after.description + "' program file: " + program +
                                            " does not exists." + std::string(kCrLf) +
                                            "Go to options and select the right file.")) {
    return false;
  }
  ShellOpen("open", program, name, game_folder, 1);
  return true;
}

// The archive is read again under the turn: another process may have changed it while the question stood. False when
// the user does not go on without the original.
bool PackInTurn(ClsPFF& archive, const std::string& archive_path, const MapToPut& map, bool warn) {
  const auto turn = TakeTurn(archive_path);
  turn->LetFileStay();
  LoadArchive(archive, archive_path);
  if (!KeepBeforePut(&archive, map, warn)) return false;
  archive.PackFile(map.content, map.name);
  archive.LetJournalRest();
  archive.SavePffFile();
  return true;
}

// The game may look at it at any moment, and a kill or a power cut must not leave half of it.
void CopyBeside(const std::string& map_path, const std::string& game_folder, const std::string& name) {
  const std::string path = game_folder + "\\" + name;
  const auto turn = TakeTurn(path);
  platform().files().CopyDurably(map_path, path);
}

bool PutInArchive(const std::string& map_path, std::string& name, const std::string& game_folder, bool warn) {
  RefuseEmptyMap(map_path);
  ClsPFF archive;
  const std::string archive_path = game_folder + "\\" + ReadSetting(setting::kArchiveName);
  if (!FileExists(archive_path) && warn &&
      !AskToContinue("File not found!", "The pff file: " + archive_path + " does not exists." + std::string(kCrLf) +
                                            "Go to options and select the right dflw game folder.")) {
    return false;
  }
  LoadArchive(archive, archive_path);
  int32_t index = -1;
  if (archive.PFFFileExists(name, index) && !ConfirmOverwrite(archive_path, name)) return false;
  CutToNameField(name);
  RefuseUnencodable(name);
  const Bytes map = ReadMap(map_path);
  if (!PackInTurn(archive, archive_path, {map, map_path, game_folder, name}, warn)) return false;
  CopyBeside(map_path, game_folder, name);
  return RunProgramAfter({setting::kRunAfterPack, setting::kPackProgram, "put map in dflw"}, name, game_folder, warn);
}

bool PutBeside(const std::string& map_path, const std::string& name, const std::string& game_folder, bool warn) {
  const Bytes map = platform().files().ReadAll(map_path);
  if (!KeepBeforePut(nullptr, {map, map_path, game_folder, name}, warn)) return false;
  CopyBeside(map_path, game_folder, name);
  return RunProgramAfter({setting::kRunAfterPlaying, setting::kPlayingProgram, "i'm already playing"}, name,
                         game_folder, warn);
}

bool PutByMode(const std::string& map_path, std::string& name, int32_t mode, bool warn) {
  if (warn && !FileExists(map_path) &&
      !AskToContinue("Map not found!", "The file: " + map_path + " does not exists.")) {
    return false;
  }
  const std::string game_folder = GameFolder();
  if (mode == kPutInArchive) return PutInArchive(map_path, name, game_folder, warn);
  return mode == kPutBesideOnly && PutBeside(map_path, name, game_folder, warn);
}

}  // namespace

bool PutMap(const std::string& MapPath, std::string& Name, int32_t Mode, bool Warn) {
  if (!Warn) return PutMapSilently(MapPath, Name, Mode).empty();
  bool is_put = false;
  RunCommand([&] { is_put = PutByMode(MapPath, Name, Mode, true); });
  return is_put;
}

std::string PutMapSilently(const std::string& MapPath, std::string& Name, int32_t Mode) {
  std::string refusal;
  Attempt(
      [&] {
        if (!PutByMode(MapPath, Name, Mode, false)) refusal = "The map was not put.";
      },
      [&](const RuntimeError&) {
        refusal = ExplainedError().description();
        if (refusal.empty()) refusal = "The map was not put.";
      });
  return refusal;
}

bool ConfirmOverwrite(const std::string& ArchivePath, const std::string& Name) {
  SetOverwriteAnswer(false);
  if (!TextToBoolean(ReadSetting(setting::kWarnOverwrite))) return true;
  FrmOverWrite& window = Window<FrmOverWrite>();
  const std::string archive_name = GetFileName(ArchivePath);
  window.lblWarn.Caption = FillPlaceholders(window.lblWarn.Caption, {Name, archive_name});
  window.LblPFF.Caption = archive_name;
  window.LblBMS.Caption = Name;
  window.ShowModal();
  return OverwriteAnswer();
}

}  // namespace kestrun

#include "program/pack_command.h"

#include <algorithm>
#include <array>

#include "base/runtime_error.h"
#include "base/text.h"
#include "formats/pff/cls_pff.h"
#include "formats/zip/cls_zip.h"
#include "formats/zip/member_path.h"
#include "platform/file_error.h"
#include "platform/platform.h"
#include "platform/turn.h"
#include "program/command_log.h"
#include "program/folders.h"
#include "program/game_paths.h"
#include "program/load_archive.h"
#include "program/originals_hook.h"
#include "program/path_text.h"
#include "program/window_kit/run_command.h"
#include "web/download_file.h"
#include "web/fetch_scope.h"
#include "web/web_paths.h"

namespace kestrun {
namespace {

std::string TemporaryFolder() {
  std::string folder = SpecialFolder(folder::kTemporary);
  if (!folder.empty()) folder.pop_back();
  return folder;
}

std::string FillMacros(std::string text, const std::string& temporary_folder) {
  // The game folder is resolved only where it is asked for: resolving may put a question to the user.
  if (text.find("%GAMEDIR%") != std::string::npos) text = ReplaceAll(text, "%GAMEDIR%", GameFolder());
  text = ReplaceAll(text, "%APPDIR%", platform().program().Folder());
  return ReplaceAll(text, "%TEMPDIR%", temporary_folder);
}

// Reads an outside file through the archive, and turns its silent failure, told by event only, into an error: an empty
// buffer must never take the place of an entry.
Bytes ReadThrough(ClsPFF& archive, const std::string& path) {
  RuntimeError failure(error::kFileNotFound);
  archive.PFFError = [&failure](int32_t number, const std::string& description) {
    failure = RuntimeError(number, description);
  };
  Bytes buffer;
  archive.FileBuffer(path, buffer);
  archive.PFFError = nullptr;
  if (buffer.empty()) throw FileError(failure, path);
  return buffer;
}

Bytes ReadSource(ClsPFF& archive, const std::string& path) {
  if (FileExists(path) && platform().files().Open(path, OpenMode::kRead)->Size() == 0) RaiseEmptyFile(path);
  return ReadThrough(archive, path);
}

// A command line can come from a web page: what it names must not be written beside the temporary folder.
std::string TemporaryPath(const std::string& temporary_folder, const std::string& name) {
  if (!name.empty() && !zip::StaysInside(name)) {
    Raise(error::kPathNotFound, "The name '" + name + "' leads outside the temporary folder.");
  }
  return temporary_folder + "\\" + name;
}

std::string UnpackedPath(const std::string& folder, const std::string& member) {
  if (!zip::StaysInside(member)) {
    Raise(error::kPathNotFound, "The zip's member '" + member + "' leads outside its folder.");
  }
  return folder + "\\" + member;
}

// What an earlier zip of the same name left in the folder must not pass for a member that cannot be unpacked.
void DeleteLeftovers(const Cls_Zip& zip, const std::string& folder) {
  if (!FileExists(folder)) return;
  for (int32_t member = 1; member <= zip.FileCount(); ++member) {
    const std::string name = zip.FileName(member);
    if (zip.IsDir(member) || !zip::StaysInside(name)) continue;
    const std::string path = UnpackedPath(folder, name);
    if (platform().files().Exists(path)) platform().files().Delete(path);
  }
}

// What is noted beside the pack's own line: a log that cannot be written is no reason to leave the pack.
void Note(const std::string& line) {
  Attempt([&] { AppendToLog(line); });
}

bool IsEmptyFile(const std::string& path) {
  uint64_t size = 1;
  Attempt([&] { size = platform().files().Open(path, OpenMode::kRead)->Size(); });
  return size == 0;
}

// The entries that are packed over are kept first. Nobody is there to be asked: the log says what cannot be kept.
class OriginalsOfPack {
 public:
  void Keep(ClsPFF& archive, const Bytes& content, const std::string& name, const std::string& source) {
    const bool is_kept = Attempt([&] { keeper_->KeepEntry(archive, name, content, source); },
                                 [&](const RuntimeError& reason) { Log(name, reason); });
    if (is_kept) names_.push_back(name);
  }
  void Finish() {
    Attempt([this] { keeper_->Finish(); },
            [this](const RuntimeError& reason) {
              for (const std::string& name : names_) Log(name, reason);
            });
  }

 private:
  static void Log(const std::string& name, const RuntimeError& reason) {
    Attempt([&] { LogNotKept(name, reason.description()); });
  }

  std::unique_ptr<OriginalsKeeper> keeper_ = KeepOriginals();
  std::vector<std::string> names_;
};

// Each member lies in the archive as if it had been packed alone, whatever the ones before it did.
void PackMember(ClsPFF& archive, OriginalsOfPack& originals, const std::string& path, const std::string& zip_path,
                const std::string& member) {
  const auto pack = [&] {
    const Bytes content = ReadThrough(archive, path);
    const std::string name = GetFileName(member);
    originals.Keep(archive, content, name, zip_path + ":" + member);
    archive.PackFile(content, name);
    archive.SettleStaged();
  };
  OnFailure(pack, [&](const RuntimeError& failure) {
    Raise(failure.number(), "The zip's member '" + member + "' cannot go into the archive: " + failure.description());
  });
}

void NoteEmptyMember(const std::string& zip_path, const std::string& member) {
  Note(zip_path + ": the member '" + member + "' is empty and was skipped.");
}

// Unpacks every member into the folder, which is left behind, and stages each file under its own base name. The folder
// has a fixed name: another process that wants it waits until what was unpacked has been read.
void PackZipMembers(ClsPFF& archive, OriginalsOfPack& originals, const std::string& zip_path,
                    const std::string& folder) {
  const auto turn = TakeTurn(folder);
  const Ref<Cls_Zip> zip = MakeRef<Cls_Zip>();
  zip->Get_Contents(zip_path);
  DeleteLeftovers(*zip, folder);
  const Cls_Zip::Selection all(static_cast<size_t>(zip->FileCount()) + 1, true);
  zip->UnPack(all, folder);
  for (int32_t member = 1; member <= zip->FileCount(); ++member) {
    if (zip->IsDir(member)) continue;
    const std::string name = zip->FileName(member);
    const std::string path = UnpackedPath(folder, name);
    if (IsEmptyFile(path)) {
      NoteEmptyMember(zip_path, name);
    } else {
      PackMember(archive, originals, path, zip_path, name);
    }
  }
}

void PackInto(const std::string& source, const std::string& name, const std::string& archive_path, bool is_zip,
              const std::string& temporary_folder) {
  // Without a path the archive itself says what is wrong.
  const auto turn = archive_path.empty() ? nullptr : TakeTurn(archive_path);
  ClsPFF archive;
  archive.Recovered = Note;
  LoadArchive(archive, archive_path);
  OriginalsOfPack originals;
  if (is_zip) {
    PackZipMembers(archive, originals, source, TemporaryPath(temporary_folder, "unzipped_" + name));
  } else {
    const Bytes content = ReadSource(archive, source);
    originals.Keep(archive, content, name, source);
    archive.PackFile(content, name);
  }
  originals.Finish();
  archive.SavePffFile();
}

void AppendLogLine(const std::string& source, const std::string& archive_path, const std::string& name) {
  AppendToLog(source + " --> " + archive_path + ":" + name + " ~>OK");
}

}  // namespace

std::string FillCommandMacros(const std::string& text) { return FillMacros(text, TemporaryFolder()); }

void PackCommand(const std::string& command) {
  Attempt([&] {
    const std::vector<std::string> pieces = Split(command, "\"");
    if (pieces.size() < 7) Raise(error::kSubscriptOutOfRange);
    const std::string& archive_path = pieces[1];
    const std::string& name = pieces[3];
    const std::string& source = pieces[5];
    packfile(source, name, archive_path, ToLower(pieces[6]) == "/z");
    AppendLogLine(source, archive_path, name);
  });
}

bool packfile(std::string Source, const std::string& Name, std::string ArchivePath, bool IsZip) {
  const auto pack = [&] {
    const std::string temporary_folder = TemporaryFolder();
    Source = FillMacros(Source, temporary_folder);
    const FetchScope fetch;
    if (IsUrl(Source) && !DownloadFile(Source, TemporaryPath(temporary_folder, Name))) {
      if (!fetch.IsCancelled()) MsgBox("Unable to download " + Source);
      return;
    }
    ArchivePath = FillMacros(ArchivePath, temporary_folder);
    PackInto(Source, Name, ArchivePath, IsZip, temporary_folder);
  };
  RunCommand(pack, "packfile ");
  return false;
}

namespace {

constexpr std::string_view kZipFlag = "/z";

// "maps.zip"/z has lost its quotes in the shell. No path goes on behind a zip.
bool EndsInZipFlag(const std::string& source) { return ToLower(source).ends_with(".zip/z"); }

bool TakesQuotedWords(const std::string& word) {
  constexpr std::array<std::string_view, 3> kWords{"-pack", "-restore", "-checklist"};
  return std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

}  // namespace

std::string JoinCommandWords(const std::vector<std::string>& words) {
  if (words.size() < 2 || !TakesQuotedWords(words[0])) {
    std::string joined;
    for (const std::string& word : words) joined += joined.empty() ? word : " " + word;
    return joined;
  }
  std::string command = words[0];
  const auto quoted = [](const std::string& word) { return " \"" + word + "\""; };
  for (size_t at = 1; at < words.size(); ++at) {
    const bool is_last = at > 1 && at + 1 == words.size();
    if (is_last && ToLower(words[at]) == kZipFlag) {
      command.append(" ").append(words[at]);
    } else if (is_last && EndsInZipFlag(words[at])) {
      command.append(quoted(words[at].substr(0, words[at].size() - kZipFlag.size()))).append(kZipFlag);
    } else {
      command += quoted(words[at]);
    }
  }
  return command;
}

}  // namespace kestrun

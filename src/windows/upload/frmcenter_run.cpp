// The uploader's run: what is checked, asked, sent and logged.
#include <algorithm>
#include <exception>

#include "base/calendar.h"
#include "base/code_page.h"
#include "base/flag_scope.h"
#include "base/text.h"
#include "base/text_file.h"
#include "maps/file_tools.h"
#include "platform/platform.h"
#include "platform/turn.h"
#include "program/folders.h"
#include "program/path_text.h"
#include "program/window_kit/run_command.h"
#include "program/window_kit/text_end.h"
#include "windows/upload/frmcenter.h"

namespace kestrun {
namespace {

constexpr const char* kLogFile = "upload.log";
constexpr size_t kMostLogCharacters = 65000;
constexpr const char* kLogCleared = "Log cleared.";

std::string Now() {
  const CalendarMoment now = SplitDate(platform().clock().LocalDateTime());
  return DayToText(now.date) + " " + TimeToText(now);
}

// A text as the log box shows it: with its own line ends, without zeros, at which it would end, and no more than it
// holds.
std::string BoxText(const std::string& text) {
  std::string lines = ReplaceAll(ReplaceAll(text, kCrLf, "\n"), "\n", kCrLf);
  std::replace(lines.begin(), lines.end(), '\0', ' ');
  const std::u16string all = ToUtf16(lines);
  return all.size() <= kMostLogCharacters ? lines : ToUtf8(all.substr(0, kMostLogCharacters));
}

// The system's temporary folder for what is unpacked, empty; it goes with this object. It has a fixed name: another
// process that wants it waits for its turn.
class UnpackFolder {
 public:
  UnpackFolder() : turn_(TakeTurn(path_)) {
    DeleteFolder(path_);
    platform().files().MakeFolder(path_);
  }
  ~UnpackFolder() {
    Attempt([&] { DeleteFolder(path_); });
  }
  UnpackFolder(const UnpackFolder&) = delete;
  UnpackFolder& operator=(const UnpackFolder&) = delete;
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  const std::string path_ = SpecialFolder(folder::kTemporary) + "kestrun";
  const std::shared_ptr<FileLock> turn_;
};

}  // namespace

// ---- all maps ------------------------------------------------------------------------------------------------------

void FrmCenter::UploadAll() {
  if (is_running_) return;
  if (!platform().files().IsFolder(TxtDir.Text.get())) return SayNoFolder();
  const Ref<Form> keep(this);
  const FlagScope running(is_running_);
  cancels_ = false;
  leaves_post_ = false;
  ShowRunning(true);
  RunCommand([this] { UploadListed(); });
  if (IsLoaded()) ShowRunning(false);
}

void FrmCenter::ShowRunning(bool is_running) {
  Command1.Enabled = !is_running;
  CmdCancel.Enabled = is_running;
  if (!is_running) Pgb.Value = 0;
}

// The log stays open behind a check that fails: what is logged later goes there too.
void FrmCenter::UploadListed() {
  const Chosen chosen = ChosenMaps();
  OpenLogFile();
  AddMessage(">> Start uploading " + Now());
  AddMessage("Checking files ...");
  if (!Check(chosen) || !GoesOn()) return;
  AddMessage("OK");
  if (service_.empty()) Connect();
  OnFailure(
      [&] {
        if (!service_.empty() && GoesOn()) SendMaps(chosen);
      },
      [this](const RuntimeError&) { log_file_.reset(); });
  log_file_.reset();
}

void FrmCenter::SendMaps(const Chosen& chosen) {
  const auto& [folder, maps] = chosen;
  AddMessage("Uploading files ...");
  const UnpackFolder unpacked;
  const std::string count = std::to_string(maps.size());
  int sent = 0;
  Pgb.Max = static_cast<int>(maps.size());
  for (size_t map = 0; map < maps.size() && !cancels_; ++map) {
    Pgb.Value = static_cast<int>(map) + 1;
    progress_ = "Uploading map " + std::to_string(map + 1) + " of " + count + ": " + maps[map] + ". Esc stops at once.";
    status_line_.Say(progress_);
    const std::string path = folder + "\\" + maps[map];
    if (FileExists(path) && UploadFile(path, unpacked.path())) ++sent;
    RunPendingEvents();
  }
  if (IsLoaded()) status_line_.Say(std::to_string(sent) + " of " + count + " maps uploaded.");
}

FrmCenter::Chosen FrmCenter::ChosenMaps() const {
  Chosen chosen{FileMaps.Path(), {}};
  for (int row = 0; row < FileMaps.ListCount(); ++row) {
    if (ChSelected.Value != 1 || FileMaps.Selected(row)) chosen.maps.push_back(FileMaps.List(row));
  }
  return chosen;
}

void FrmCenter::CancelRun() {
  cancels_ = true;
  status_line_.Say("Stopping behind the map that is being sent. Esc stops at once.");
}

void FrmCenter::StopAtOnce() {
  cancels_ = true;
  leaves_post_ = true;
  status_line_.Say("Stopping ...");
}

bool FrmCenter::CheckFiles() { return Check(ChosenMaps()); }

// After Esc in the fetch of a picture nothing more of the run happens.
bool FrmCenter::Check(const Chosen& chosen) {
  bool may_begin = false;
  const auto check = [&] {
    const FetchScope fetch(&status_line_);
    may_begin = CheckUploadFiles(chosen.folder, chosen.maps,
                                 Chcomments.Value == 1 ? Comments::kMayBeMissing : Comments::kWanted,
                                 [this](const std::string& line) { AddMessage(line); }) &&
                !fetch.IsCancelled();
  };
  RunCommand(check, "Checkfiles");
  return may_begin;
}

// ---- one map -------------------------------------------------------------------------------------------------------

bool FrmCenter::UploadFile(const std::string& path, const std::string& temp_folder) {
  const Ref<Form> keep(this);
  bool is_uploaded = false;
  const bool has_run = Attempt([&] { is_uploaded = SendMap(path, temp_folder); });
  if (!has_run) AddMessage("uploading map " + path + " failed!");
  return is_uploaded;
}

// What the window shows while the request is on its way is read before: the user may change it meanwhile.
bool FrmCenter::SendMap(const std::string& path, const std::string& temp_folder) {
  const std::string base = UploadBase(path);
  MapUpload upload;
  UploadInfo info;
  if (!GetInfo(base + ".zip", temp_folder, info) || !GoesOn()) return false;
  upload.zip = platform().files().ReadAll(base + ".zip");
  if (!FetchPicture(base, upload.picture)) return false;
  if (!LoadCommentsFile(base + ".txt", upload.words)) return false;
  upload.user = TxtUsername.Text;
  upload.password = TxtPassword.Text;
  upload.mission_name = info.mission_name;
  upload.designer = info.designer;
  upload.game_type = info.game_type;
  upload.game = CmbGames.Text;
  upload.may_be_renamed = ChAutoRename.Value == 1;
  AddMessage("UPLOADING " + GetFileName(path, true));
  const std::string reply = Post(upload);
  AddMessage("SERVER RESPONS:" + std::string(kCrLf) + WithoutPassword(reply, upload.password));
  if (reply.empty()) Raise(error::kAutomationError, "The site does not answer.");
  return IsUploaded(reply);
}

// False after Esc. The picture was there when the files were checked: without it nothing is sent.
bool FrmCenter::FetchPicture(const std::string& base, Bytes& picture) {
  {
    const FetchScope fetch(&status_line_);
    const std::string path = UploadPicture(base);
    if (fetch.IsCancelled()) {
      StopAtOnce();
      return false;
    }
    if (path.empty()) Raise(error::kFileNotFound);
    picture = platform().files().ReadAll(path);
  }
  status_line_.Say(progress_);
  return true;
}

std::string FrmCenter::Post(const MapUpload& upload) {
  const Ref<ClsHTTP> http = MakeRef<ClsHTTP>();
  http->StayUsable([this] { return !leaves_post_; });
  SetUploadParameters(*http, upload);
  return http->DownloadURl(UploadPage(service_), "POST");
}

bool FrmCenter::GetInfo(const std::string& zip, const std::string& temp_folder, UploadInfo& info) {
  bool is_there = false;
  const auto find = [&] {
    const auto read = [this](const std::string& path) {
      UploadInfo mission;
      return GetBMSInfo(path, mission) ? std::optional(mission) : std::nullopt;
    };
    const std::optional<UploadInfo> found =
        FindMission(zip, temp_folder, read, [this](const std::string& line) { AddMessage(line); });
    if (found) info = *found;
    is_there = found.has_value();
  };
  RunCommand(find, "Getinfo");
  return is_there;
}

bool FrmCenter::GetBMSInfo(const std::string& path, UploadInfo& info) {
  std::optional<UploadInfo> found;
  const auto read = [&] {
    found = ReadUploadInfo(path);
    if (found) found->mission_name = GetValidMapName(path, found->mission_name);
  };
  RunCommand(read, "getbmsinfo");
  if (found) info = *found;
  return found.has_value();
}

std::string FrmCenter::LoadFile(const std::string& path) {
  std::string content;
  RunCommand([&] { content = DecodeText(AsChars(platform().files().ReadAll(path))); }, "loadfile");
  return content;
}

bool FrmCenter::LoadCommentsFile(const std::string& path, MapComments& words) {
  const auto load = [&] {
    words = {};
    if (!FileExists(path)) return;
    words = SplitComments(DecodeTextFile(AsChars(platform().files().ReadAll(path))));
    if (CharacterCount(words.comments) > kMostCommentCharacters) AddMessage("Warning comments too long " + path);
    if (CharacterCount(words.addons) > kMostCommentCharacters) AddMessage("Warning addons too long " + path);
  };
  return RunCommand(load, "loadcommentsfile");
}

// ---- the map's name ------------------------------------------------------------------------------------------------

std::string FrmCenter::GetValidMapName(const std::string& file_name, const std::string& mission_name) {
  std::string name;
  const auto find = [&] {
    const std::string file = ToLower(GetFileName(file_name, true));
    name = ServiceMissionName(FileNamesMission(file, mission_name) ? mission_name : AskForName(file, mission_name));
  };
  RunCommand(find, "getvalidmapname");
  return name;
}

// Asks again until there is a name, as long as the run goes on.
std::string FrmCenter::AskForName(const std::string& file_name, const std::string& mission_name) {
  const std::string line_break(kCrLf);
  const std::string question = "Map name Error:" + line_break + "map: " + file_name + line_break +
                               "Has not the same mission name: " + mission_name + line_break +
                               "Please enter a valid name for this map";
  std::string name;
  while (name.empty() && GoesOn()) {
    name = platform().dialogs().AskText(question, "", mission_name).value_or("");
    RunPendingEvents();
  }
  return name;
}

// ---- the log -------------------------------------------------------------------------------------------------------

void FrmCenter::AddMessage(const std::string& text) {
  const Ref<Form> keep(this);
  const std::string line = BoxText(text);
  std::string shown = txtLog.Text;
  if (CharacterCount(shown) + CharacterCount(line) > kMostLogCharacters) shown = kLogCleared;
  shown += line + std::string(kCrLf);
  txtLog.Text = shown;
  PutCaretAtEnd(txtLog);
  if (log_file_) WriteToLogFile(text + std::string(kCrLf));
  RunPendingEvents();
}

// From the file's beginning: the end of an older log that was longer stays behind the new one.
void FrmCenter::OpenLogFile() {
  const std::string path = FileMaps.Path() + "\\" + kLogFile;
  log_file_.reset();
  log_bytes_ = 0;
  const auto open = [&] { log_file_ = platform().files().Open(path, OpenMode::kReadWrite); };
  Attempt(open, [&](const RuntimeError& failure) {
    AddMessage("Warning '" + path + "' cannot be written: " + failure.description());
  });
}

void FrmCenter::WriteToLogFile(const std::string& text) {
  const std::string bytes = EncodeText(text);
  const bool is_written = Attempt([&] { log_file_->WriteAt(log_bytes_, AsBytes(bytes)); });
  log_bytes_ += bytes.size();
  if (!is_written) log_file_.reset();
}

}  // namespace kestrun

// The run of the map updater: what is compared, asked, copied and logged.
#include "base/calendar.h"
#include "base/flag_scope.h"
#include "base/text.h"
#include "maps/file_tools.h"
#include "platform/file_error.h"
#include "platform/platform.h"
#include "program/path_text.h"
#include "program/window_kit/ask.h"
#include "program/window_kit/text_end.h"
#include "windows/map_updater/frmmapupd.h"

namespace kestrun {
namespace {

// How often a log that grows is shown.
constexpr uint64_t kShowLogMs = 200;

// A file as it is now, in the words of the log and of the question.
struct FileNow {
  std::string path;
  std::string time;
  std::string size;
  std::string crc;
};

FileNow LookAt(const std::string& path, int32_t crc) {
  FileSystem& files = platform().files();
  return {path, DateToText(LocalDateOfFileTime(files.WriteTime(path))),
          std::to_string(files.Open(path, OpenMode::kRead)->Size()), std::to_string(crc)};
}

std::string LogWords(const FileNow& file) {
  return file.path + " edited: " + file.time + " Size: " + file.size + " CRC: " + file.crc;
}

std::string DateAndTime(std::string_view between) {
  const CalendarMoment now = SplitDate(platform().clock().LocalDateTime());
  return DayToText(now.date) + std::string(between) + TimeToText(now);
}

}  // namespace

bool frmmapupd::CanRun() {
  std::string refusal;
  if (TxtPC.Text.get().empty()) {
    refusal = kLocalPathIsWrong;
  } else if (TxtRem.Text.get().empty()) {
    refusal = "Remote path is wrong!";
  } else if (LstmapsRem.ListCount() == 0) {
    refusal = "There are no maps on host.";
  }
  if (!refusal.empty()) MsgBox(refusal);
  return refusal.empty();
}

// A second start while a run is at work does nothing: two of them would copy the same files.
void frmmapupd::RunMapUpdate() {
  if (is_running_ || !CanRun()) return;
  const FlagScope running(is_running_);
  stops_ = false;
  comparison_ = {};
  CmdStop.Enabled = true;
  try {
    UpdateAll();
  } catch (const std::exception&) {
    ReportFailure();
  }
  if (IsLoaded()) EndRun();
}

void frmmapupd::EndRun() {
  ShowLog();
  ProgressBar1.Value = 0;
  CmdStop.Enabled = false;
}

void frmmapupd::UpdateAll() {
  const std::string line_break(kCrLf);
  const int count = LstmapsRem.ListCount();
  Log(line_break + " USE AT OWN RISK!" + line_break + "Starting updating maps " + std::to_string(count) + " at " +
      DateAndTime(" ") + line_break);
  for (int row = 0; row < count; ++row) {
    UpdateOne(row);
    ShowProgress(row + 1, count);
    RunPendingEvents();
    if (!IsLoaded()) return;
    if (stops_) {
      Log(line_break + line_break + "Stopped after file " + std::to_string(row + 1) + ".");
      lstmapsPC.Reload();
      return;
    }
  }
  Log(line_break + line_break + "All " + std::to_string(count) + " done. " + DateAndTime(" "));
  ShowLog();
  MsgBox("All " + std::to_string(count) + " done.");
  lstmapsPC.Reload();
}

void frmmapupd::UpdateOne(int row) {
  const std::string line_break(kCrLf);
  TxtRem.Text = WithoutLastBackslash(TxtRem.Text);
  TxtPC.Text = WithoutLastBackslash(TxtPC.Text);
  const std::string name = LstmapsRem.List(row);
  const std::string remote = TxtRem.Text.get() + "\\" + name;
  const std::string local = TxtPC.Text.get() + "\\" + name;
  const std::string number = std::to_string(row + 1);
  Log(line_break + "Checking file " + number + ": " + GetFileName(local, true));
  if (!comparison_.IsLocal(TxtPC.Text, name)) {
    Log(line_break + "Copying new map from " + remote + " to localmap...");
    platform().files().CopyDurably(remote, local);
  } else {
    const MapPair measured =
        comparison_.Measure(TxtPC.Text, TxtRem.Text, name, {ChCRC.Value == 1, Option2.Value, Option1.Value});
    if (!IsUpToDate(measured.local, measured.remote)) CopyOver(local, remote, measured);
  }
  Log(line_break + "File " + number + " done." + line_break);
}

void frmmapupd::CopyOver(const std::string& local, const std::string& remote, const MapPair& measured) {
  const std::string line_break(kCrLf);
  const bool asks = Check1.Value == 1;
  if (asks && !AskToOverwrite(local, remote, measured)) {
    Log(line_break + "Map not updated user canceled.");
    return;
  }
  Log(line_break + (asks ? "Overwriting map after asking " : "Overwriting map ") +
      LogWords(LookAt(local, measured.local.crc)) + " with map from " + LogWords(LookAt(remote, measured.remote.crc)));
  platform().files().CopyDurably(remote, local);
}

bool frmmapupd::AskToOverwrite(const std::string& local, const std::string& remote, const MapPair& measured) {
  const std::string line_break(kCrLf);
  const auto describe = [&](const FileNow& file, const char* size_word) {
    return line_break + file.path + line_break + "Edited: " + file.time + line_break + size_word + file.size +
           line_break + "CRC: " + file.crc;
  };
  ShowLog();
  return AskYesNo("Do you want to overwrite the file:" + describe(LookAt(local, measured.local.crc), "File Size: ") +
                  line_break + line_break +
                  "With the file: " + describe(LookAt(remote, measured.remote.crc), "File size: "));
}

void frmmapupd::ReportFailure() {
  const std::string line_break(kCrLf);
  const RuntimeError failure = CurrentError();
  const std::string number = std::to_string(failure.number());
  Log(line_break + line_break + line_break + "---------------- ERROR: " + number + " " + failure.description() +
      "----------------");
  const RuntimeError explained = ExplainedError();
  if (IsLoaded()) ShowLog();
  MsgBox("Error update failed: " + number + line_break + explained.description(), BoxButtons::kOk, BoxIcon::kCritical);
}

void frmmapupd::ShowProgress(int done, int count) {
  const int share = static_cast<int>(int64_t{100} * done / count);
  if (ProgressBar1.Value != share) ProgressBar1.Value = share;
}

void frmmapupd::Log(const std::string& text) {
  log_ += text;
  if (platform().clock().NowMs() - log_shown_ms_ >= kShowLogMs) ShowLog();
}

void frmmapupd::ShowLog() {
  if (log_.empty()) return;
  txtlog.Text = txtlog.Text.get() + log_;
  log_.clear();
  log_shown_ms_ = platform().clock().NowMs();
  PutCaretAtEnd(txtlog);
}

}  // namespace kestrun

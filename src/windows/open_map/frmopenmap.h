// What opens when a map file or a web address comes from outside: one address, and all that can be done with it. The
// main window need not be open.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "controls/progress_bar/progress_bar.h"
#include "forms/command_button.h"
#include "forms/common_dialog.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/option_button.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/status_line.h"

namespace kestrun {

class frmopenmap final : public Form {
 public:
  static constexpr const char* kName = window_name::kOpenMap;
  static constexpr int kTaskCount = 6;
  static constexpr const char* kCaption = "Kestrun - Open Map";
  frmopenmap();

  Label& Label1 = Add<Label>("Label1");
  // The path or address. Whoever opens the window sets it before the window is shown: loading asks about it.
  TextBox& TxtFile = Add<TextBox>("TxtFile");
  CommandButton& CmdBrowse = Add<CommandButton>("CmdBrowse");
  Frame& Frame1 = Add<Frame>("Frame1");
  // Deathmatch, capture the flag, rename; there is no index 2.
  OptionButton& options0 = Add<OptionButton>("options", 0);
  OptionButton& options1 = Add<OptionButton>("options", 1);
  OptionButton& options3 = Add<OptionButton>("options", 3);
  TextBox& txtrename = Add<TextBox>("txtrename");
  // How many of the characters that the archive has room for the name takes.
  Label& lblnamelength = Add<Label>("lblnamelength");
  CommandButton& cmdputin = Add<CommandButton>("cmdputin");
  CommandButton& cmdplaying = Add<CommandButton>("cmdplaying");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  PictureBox& PctTasks = Add<PictureBox>("PctTasks");
  Label& Label2 = Add<Label>("Label2");
  std::array<Label*, kTaskCount> LblTask{};
  // The heading of the picture, and for the keyboard the way to it.
  Label& Label3 = Add<Label>("Label3");
  PictureBox& PctPreview = Add<PictureBox>("PctPreview");
  Label& lblnopreview = Add<Label>("lblnopreview");
  Image& ImgPreview = Add<Image>("ImgPreview");
  PictureBox& PctStatus = Add<PictureBox>("PctStatus");
  TextBox& txtstatus = Add<TextBox>("txtstatus");
  ProgressBar& prgfetch = Add<ProgressBar>("prgfetch");
  CommonDialog& dlgopen = Add<CommonDialog>("dlgopen");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  void UploadMap();
  void SaveMapAs();
  void AddAutoHost();
  void ShowMapInfo();

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;
  void Unloading() override;

 private:
  void LayOut();
  void LayOutTasks();
  // The whole picture, as large as its place allows and never larger than it is.
  void FitPreview();

  void Connect();
  void ConnectTasks();
  void RestoreChoices();
  void EnableWhatIsThere();
  void Browse();
  // The local map of the address, empty where there is none; nothing when the user has ended the fetch. One out of a
  // zip brings its own picture along when the address has none.
  [[nodiscard]] std::optional<std::string> FetchAddress();
  // A picture on the web is fetched first.
  void ShowPictureOf(const std::string& map);
  void PutAndPlay(int32_t mode);
  void LaunchGame();
  void ShowPreview();
  // Lets one task stand out, none when there is none of that number.
  void Highlight(int task);
  // Tells an empty address in these words and goes to it; true when it is empty.
  bool AddressIsMissing(const char* request);

  bool choices_restored_ = false;
  StatusLine status_line_{PctStatus, txtstatus, prgfetch};
};

}  // namespace kestrun

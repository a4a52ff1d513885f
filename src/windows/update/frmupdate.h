// Replaces the program by a newer version from its site: asks, fetches, checks what came, and starts it.
#pragma once

#include "controls/progress_bar/progress_bar.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"
#include "web/downloader.h"

namespace kestrun {

class FrmUpdate final : public Form {
 public:
  static constexpr const char* kName = window_name::kUpdate;
  FrmUpdate();

  Label& LblState = Add<Label>("LblState");
  ProgressBar& ProgressBar1 = Add<ProgressBar>("ProgressBar1");
  Label& LblAmount = Add<Label>("LblAmount");
  // What a plain connection means, where the new version comes over one.
  Label& LblNotice = Add<Label>("LblNotice");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  Downloader& Downloader1 = Add<Downloader>("Downloader1");
  // Lets the window appear before the work begins.
  kestrun::Timer& Timer = Add<kestrun::Timer>("Timer");

 protected:
  void Load() override;

 private:
  void LayOut();
  void Update();
  [[nodiscard]] bool HasSiteFile();
  [[nodiscard]] bool HasNewVersion();
  void FetchProgram();
  void Install(const std::string& path);
  void Refuse(const std::string& path, const std::string& why);
  void Leave();

  int64_t told_bytes_ = 0;
  std::string hash_;    // what the site says of the program when its download begins
  std::string notice_;  // the same
  bool is_cancelled_ = false;
};

}  // namespace kestrun

// Brings the help document up to date with the site's, and opens it.
#pragma once

#include "controls/progress_bar/progress_bar.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"
#include "web/downloader.h"

namespace kestrun {

class frmdwnlhelp final : public Form {
 public:
  static constexpr const char* kName = window_name::kHelpDownload;
  frmdwnlhelp();

  Label& Label1 = Add<Label>("Label1");
  Label& Label2 = Add<Label>("Label2");
  ProgressBar& ProgressBar1 = Add<ProgressBar>("ProgressBar1");
  Label& LblAmount = Add<Label>("LblAmount");
  TextBox& txtprogress = Add<TextBox>("txtprogress");
  Label& LblNotice = Add<Label>("LblNotice");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  Downloader& Downloader1 = Add<Downloader>("Downloader1");
  // Starts the check a little after the window has appeared.
  Timer& Timer1 = Add<Timer>("Timer1");

 protected:
  void Load() override;

 private:
  void LayOut();
  void Append(const std::string& line);
  void Check();
  void Compare();
  void BeginFetch(const std::string& path, int64_t version);
  void TakeHelp(const std::string& path);
  void OpenHelp();

  std::string hash_;  // what the site says of the document when its download begins
};

}  // namespace kestrun

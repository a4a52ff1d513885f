// The pictures that the Mapping Center has for a map: the user looks at them and takes one.
#pragma once

#include <string>
#include <vector>

#include "controls/progress_bar/progress_bar.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/status_line.h"

namespace kestrun {

class FrmpictureSelect final : public Form {
 public:
  static constexpr const char* kName = "FrmpictureSelect";
  FrmpictureSelect();

  Label& LblMsg = Add<Label>("LblMsg");
  ListBox& LstPictures = Add<ListBox>("LstPictures");
  Frame& Frame1 = Add<Frame>("Frame1");
  Image& ImgPreview = Add<Image>("ImgPreview");
  Label& LblNoPicture = Add<Label>("LblNoPicture");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  PictureBox& PctStatus = Add<PictureBox>("PctStatus");
  TextBox& txtstatus = Add<TextBox>("txtstatus");
  ProgressBar& prgfetch = Add<ProgressBar>("prgfetch");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  // Fills the list with the addresses of the service's answer about a map.
  void RefreshList(const std::string& Reply, const std::string& MapName);

  // Where the picture was put that the user has taken; empty before and without one.
  [[nodiscard]] const std::string& taken_path() const { return taken_path_; }

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;

 private:
  void LayOut();
  void SetPicture(const Ref<kestrun::Picture>& picture);
  void ShowChosen();
  void TakeChosen();
  // Empty when no row is chosen.
  [[nodiscard]] std::string ChosenAddress() const;

  StatusLine status_line_{PctStatus, txtstatus, prgfetch};
  std::vector<std::string> addresses_;  // by row of the list
  std::string map_name_;
  std::string taken_path_;
};

}  // namespace kestrun

// What a map is: the fields of its mission that are known, and its preview picture.
#pragma once

#include <string>

#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/image.h"
#include "forms/label.h"
#include "forms/picture_box.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/window_registry.h"
#include "program/window_kit/open_window.h"
#include "program/window_kit/status_line.h"

namespace kestrun {

class frmmapinfo final : public Form, private FetchDisplay {
 public:
  static constexpr const char* kName = window_name::kMapInfo;
  frmmapinfo();

  Frame& Frame1 = Add<Frame>("Frame1");
  Label& Label1 = Add<Label>("Label1");
  TextBox& TxtMissionName = Add<TextBox>("TxtMissionName");
  Label& Label2 = Add<Label>("Label2");
  TextBox& TxtDesigner = Add<TextBox>("TxtDesigner");
  Frame& Frame2 = Add<Frame>("Frame2");
  Label& Label3 = Add<Label>("Label3");
  TextBox& TxtMapType = Add<TextBox>("TxtMapType");
  Label& Label4 = Add<Label>("Label4");
  TextBox& TxtTerrain = Add<TextBox>("TxtTerrain");
  Label& Label5 = Add<Label>("Label5");
  TextBox& TxtItemColors = Add<TextBox>("TxtItemColors");
  Label& Label6 = Add<Label>("Label6");
  TextBox& TxtFogColor = Add<TextBox>("TxtFogColor");
  // The fog's colour itself.
  Label& lblfogcolor = Add<Label>("lblfogcolor");
  Label& Label7 = Add<Label>("Label7");
  TextBox& TxtFogLevel = Add<TextBox>("TxtFogLevel");
  Label& Label8 = Add<Label>("Label8");
  TextBox& TxtSun = Add<TextBox>("TxtSun");
  Label& Label9 = Add<Label>("Label9");
  TextBox& TxtWater = Add<TextBox>("TxtWater");
  // Whether the map would work, in words; the reasons need no chosen mission.
  Frame& Frame4 = Add<Frame>("Frame4");
  Image& ImgHealth = Add<Image>("ImgHealth");
  TextBox& TxtHealth = Add<TextBox>("TxtHealth");
  Frame& Frame3 = Add<Frame>("Frame3");
  Image& ImgPreview = Add<Image>("ImgPreview");
  CommandButton& Command1 = Add<CommandButton>("Command1");
  CommandButton& Command2 = Add<CommandButton>("Command2");
  // What the window fetches while no other window shows it. Nobody sees them at other times.
  PictureBox& PctStatus = Add<PictureBox>("PctStatus");
  TextBox& txtstatus = Add<TextBox>("txtstatus");
  ProgressBar& prgfetch = Add<ProgressBar>("prgfetch");
  // What ImgHealth shows.
  Image& ImgGood = Add<Image>("ImgGood");
  Image& ImgDoubtful = Add<Image>("ImgDoubtful");
  Image& ImgBad = Add<Image>("ImgBad");
  // Applies the style once.
  Timer& Timer1 = Add<Timer>("Timer1");

  // Fills the window with a map: a mission, or a zip out of which the user picks one. The window stays empty when the
  // user gives up, or when there is no such mission, which is told. Showing the window is left to the caller.
  void LoadMap(const std::string& Path);

  [[nodiscard]] const MemberTable& Members() const override;

 protected:
  void Load() override;

 private:
  void LayOut();
  void LayOutFields();
  void LayOutHealth();
  void PlaceStatusLine();
  void ShowPreview(bool shown);
  void Clear();
  void FillFields(const struct MissionInfo& info);
  void ShowHealth(const std::string& map);
  // As large as fits into the frame, in its own proportions.
  void SetPicture(const Ref<kestrun::Picture>& picture);
  // The window comes to the screen, and a status line to its foot.
  void ShowFetch(const FetchState& state) override;
  void EndFetch() override;

  StatusLine status_line_{PctStatus, txtstatus, prgfetch};
};

}  // namespace kestrun

#include "windows/map_info/frmmapinfo.h"

#include <gtest/gtest.h>

#include "base/bytes.h"
#include "formats/bms/bms_writer.h"
#include "forms/picture_box.h"
#include "maps/fetch/frmzip.h"
#include "program/commands.h"
#include "program/frame_fixture.h"
#include "program/style_hook.h"
#include "support/error_number.h"
#include "support/registered_window.h"
#include "support/zip_builder.h"

namespace kestrun {
namespace {

constexpr const char* kZipQuestion =
    "Kestrun detected a zip file. Do you want to load maps that are inside the zip file?";

MissionFields Desert() {
  return {.mission_name = "Desert Storm",
          .designer = "Mirage",
          .terrain = "DDESERT1",
          .item_colors = 1,
          .game_types = 0x3200,
          .water_level = 0x0105,
          .fog_level = -300,
          .fog_color = {10, 20, 30},
          .sun = "NOON"};
}

class MapInfoTest : public FrameTest {
 protected:
  ~MapInfoTest() override { InstallStyleRuntime({}); }

  frmmapinfo& Info() { return Window<frmmapinfo>(); }

  std::string WriteMap(const MissionFields& fields, const std::string& name = "Desert.bms") {
    WriteFile(MapPath(name), WriteMission(fields));
    return MapPath(name);
  }
  std::string WriteMapBytes(ByteView content) {
    WriteFile(MapPath("Desert.bms"), content);
    return MapPath("Desert.bms");
  }
  frmmapinfo& Loaded(const std::string& path) {
    Info().LoadMap(path);
    return Info();
  }

  [[nodiscard]] static std::vector<std::string> Fields(const frmmapinfo& window) {
    return {window.TxtMissionName.Text, window.TxtDesigner.Text,   window.TxtMapType.Text,
            window.TxtTerrain.Text,     window.TxtItemColors.Text, window.TxtFogColor.Text,
            window.TxtFogLevel.Text,    window.TxtSun.Text,        window.TxtWater.Text};
  }
  void ExpectEmpty(const frmmapinfo& window) {
    EXPECT_EQ(Fields(window), std::vector<std::string>(9));
    EXPECT_FALSE(window.ImgPreview.Picture.get());
  }
};

// ---- words -------------------------------------------------------------------------------------------------------

TEST_F(MapInfoTest, TheWordsOfTheWindow) {
  const frmmapinfo& window = Info();
  EXPECT_EQ(window.Frame1.Caption.get(), "Design info:");
  EXPECT_EQ(window.Frame2.Caption.get(), "Map info:");
  EXPECT_EQ(window.Frame3.Caption.get(), "Preview:");
  const std::vector<std::string> captions{window.Label1.Caption, window.Label2.Caption, window.Label3.Caption,
                                          window.Label4.Caption, window.Label5.Caption, window.Label6.Caption,
                                          window.Label7.Caption, window.Label8.Caption, window.Label9.Caption};
  EXPECT_EQ(captions, (std::vector<std::string>{"Mission Name:", "Mission Designer:", "Type:", "Terrain:",
                                                "Item Colors:", "Fog Color:", "Fog Level:", "Sun:", "Water level:"}));
}

TEST_F(MapInfoTest, EachFieldHasItsTipAndCanOnlyBeRead) {
  const frmmapinfo& window = Info();
  const std::vector<std::pair<const TextBox*, std::string>> tips{
      {&window.TxtMissionName, "The mission name."}, {&window.TxtDesigner, "The name of the designer."},
      {&window.TxtMapType, "The mission type."},     {&window.TxtTerrain, "The terrain name."},
      {&window.TxtItemColors, "The itemcolors."},    {&window.TxtFogColor, "The fog color."},
      {&window.TxtFogLevel, "The fog level."},       {&window.TxtSun, "The sun type."},
      {&window.TxtWater, "The water level."}};
  for (const auto& [box, tip] : tips) {
    EXPECT_EQ(box->ToolTipText.get(), tip);
    EXPECT_TRUE(box->Locked) << tip;
  }
  EXPECT_EQ(window.ImgPreview.ToolTipText.get(), "A preview of the map if possible double click to enlarge.");
}

// ---- loading -----------------------------------------------------------------------------------------------------

TEST_F(MapInfoTest, AMapsFieldsAreShown) {
  const frmmapinfo& window = Loaded(WriteMap(Desert()));
  EXPECT_EQ(window.Caption.get(), "Map info Desert.bms");
  EXPECT_EQ(Fields(window),
            (std::vector<std::string>{"Desert Storm", "Mirage", "Deathmatch, Team Deathmatch, Capture the flag",
                                      "DDESERT1", "Brown", "10, 20, 30", "-300", "NOON", "21"}));
  EXPECT_EQ(window.lblfogcolor.BackColor.get(), Rgb(30, 20, 10));
}

TEST_F(MapInfoTest, OnlyTheHighestTypeBitIsSearchAndDestroy) {
  MissionFields fields = Desert();
  fields.game_types = 0x8000;
  EXPECT_EQ(Loaded(WriteMap(fields)).TxtMapType.Text.get(), "Search and destroy");
}

TEST_F(MapInfoTest, AnUnknownItemColorLeavesTheFieldEmpty) {
  MissionFields fields = Desert();
  fields.item_colors = 4;
  EXPECT_EQ(Loaded(WriteMap(fields)).TxtItemColors.Text.get(), "");
}

TEST_F(MapInfoTest, ANameThatFillsItsFieldShowsWhole) {
  MissionFields fields = Desert();
  fields.mission_name = "12345678901234567890123456789012";
  EXPECT_EQ(Loaded(WriteMap(fields)).TxtMissionName.Text.get(), fields.mission_name);
}

TEST_F(MapInfoTest, AMissionThatIsShorterThanItsFieldsIsReadAsFarAsItGoes) {
  Bytes mission = WriteMission(Desert());
  mission.resize(70);
  const frmmapinfo& window = Loaded(WriteMapBytes(mission));
  EXPECT_EQ(Fields(window), (std::vector<std::string>{"Desert Storm", "Mirage", "", "DD", "", "", "", "", ""}));
  EXPECT_EQ(window.lblfogcolor.BackColor.get(), color::kButtonFace);
}

TEST_F(MapInfoTest, AMissingFileIsSaidAndTheWindowStaysEmpty) {
  desktop.dialogs().ExpectBox("Can't find map on your computer!");
  const frmmapinfo& window = Loaded(MapPath("none.bms"));
  EXPECT_EQ(window.Caption.get(), "Map info none.bms");
  ExpectEmpty(window);
}

TEST_F(MapInfoTest, AFileThatIsNoMissionIsSaid) {
  desktop.dialogs().ExpectBox("This map is not a BMS file");
  ExpectEmpty(Loaded(WriteMapBytes(AsBytes("no mission at all"))));
}

TEST_F(MapInfoTest, AnEmptyFileIsNoMission) {
  desktop.dialogs().ExpectBox("This map is not a BMS file");
  ExpectEmpty(Loaded(WriteMapBytes({})));
}

TEST_F(MapInfoTest, AZipThatIsNamedLikeAMapIsNoMission) {
  desktop.dialogs().ExpectBox("This map is not a BMS file");
  ExpectEmpty(Loaded(WriteMapBytes(AsBytes(BuildZip({{.name = "Desert.bms", .stored = "BMS"}})))));
}

TEST_F(MapInfoTest, AnotherMapTakesThePlaceOfAllFields) {
  Loaded(WriteMap(Desert()));
  desktop.dialogs().ExpectBox("Can't find map on your computer!");
  ExpectEmpty(Loaded(MapPath("none.bms")));
}

// ---- zips --------------------------------------------------------------------------------------------------------

TEST_F(MapInfoTest, AZipShowsTheMissionInsideThatTheUserPicks) {
  const Bytes mission = WriteMission(Desert());
  WriteFile(MapPath("maps.zip"), BuildZip({{.name = "readme.txt", .stored = "x"},
                                           {.name = "in/Storm.bms", .stored = std::string(AsChars(mission))}}));
  desktop.dialogs().ExpectBox(kZipQuestion, BoxAnswer::kYes);
  desktop.windowing().ExpectModal("frmzip", [](Form& form) {
    static_cast<frmzip&>(form).LstZip.SetListIndex(0);
    static_cast<frmzip&>(form).LstZip.DbClick();
  });
  const frmmapinfo& window = Loaded(MapPath("maps.zip"));
  EXPECT_EQ(window.Caption.get(), "Map info Storm.bms");
  EXPECT_EQ(window.TxtMissionName.Text.get(), "Desert Storm");
}

TEST_F(MapInfoTest, GivingUpTheZipLeavesTheWindowEmpty) {
  WriteFile(MapPath("maps.zip"), BuildZip({}));
  desktop.dialogs().ExpectBox(kZipQuestion, BoxAnswer::kCancel);
  const frmmapinfo& window = Loaded(MapPath("maps.zip"));
  EXPECT_EQ(window.Caption.get(), "Map info ");
  ExpectEmpty(window);
}

TEST_F(MapInfoTest, AZipThatIsTakenAsItIsIsNoMission) {
  WriteFile(MapPath("maps.zip"), BuildZip({}));
  desktop.dialogs().ExpectBox(kZipQuestion, BoxAnswer::kNo);
  desktop.dialogs().ExpectBox("This map is not a BMS file");
  EXPECT_EQ(Loaded(MapPath("maps.zip")).Caption.get(), "Map info maps.zip");
}

// ---- preview -----------------------------------------------------------------------------------------------------

class MapInfoPreviewTest : public MapInfoTest {
 protected:
  // The map with a picture of this size.
  frmmapinfo& WithPicture(int width, int height) {
    const auto count = static_cast<size_t>(width) * static_cast<size_t>(height);
    desktop.pictures().Answer("jpeg", {width, height, std::vector<uint32_t>(count, 0xFF102030)});
    desktop.internet().Reply("http://maps.example/a.jpg", "jpeg");
    WriteNumberedSetting(setting::kPreviewPicture, "Desert.bms", "http://maps.example/a.jpg");
    return Loaded(WriteMap(Desert()));
  }
};

// Nobody has opened the window yet when it is filled: without one on the screen the fetch would look like a hang.
TEST_F(MapInfoPreviewTest, AFetchThatNoOtherWindowShowsBringsTheWindowAndAStatusLine) {
  frmmapinfo& window = Info();
  const int height = window.Height;
  std::string words;
  bool is_whole = false;
  desktop.internet().piece_bytes = 1;
  window.txtstatus.Change = [&] {
    if (window.txtstatus.Text->empty()) return;
    words = window.txtstatus.Text;
    is_whole = window.IsShown() && window.PctStatus.Top + window.PctStatus.Height <= window.ScaleHeight();
  };
  WithPicture(4, 4);
  EXPECT_EQ(words, "Fetching a.jpg from maps.example: 1 KB. Esc cancels.");
  EXPECT_TRUE(is_whole);
  EXPECT_EQ(window.Height, height);
  EXPECT_GE(window.PctStatus.Top, window.ScaleHeight());
}

TEST_F(MapInfoPreviewTest, AFetchInsideAWindowThatShowsItLeavesTheMapInfoHidden) {
  struct Display final : FetchDisplay {
    void ShowFetch(const FetchState&) override { ++shown; }
    void EndFetch() override {}
    int shown = 0;
  } display;
  {
    const FetchScope fetch(&display);
    WithPicture(4, 4);
  }
  EXPECT_GT(display.shown, 0);
  EXPECT_FALSE(Info().IsShown());
}

TEST_F(MapInfoPreviewTest, TheButtonShowsAndHidesThePreview) {
  frmmapinfo& window = Info();
  window.Show();
  EXPECT_EQ(window.Width, 5685);
  EXPECT_EQ(window.Command2.Caption.get(), "Preview =>");
  EXPECT_FALSE(window.Frame3.Visible);
  window.Command2.Press();
  EXPECT_EQ(window.Width, 9825);
  EXPECT_EQ(window.Command2.Caption.get(), "<= No Preview");
  EXPECT_TRUE(window.Frame3.Visible);
  window.Command2.Press();
  EXPECT_EQ(window.Width, 5685);
  EXPECT_EQ(window.Command2.Caption.get(), "Preview =>");
}

TEST_F(MapInfoPreviewTest, APictureKeepsItsProportionsInTheMiddleOfItsPlace) {
  const Image& whole = Info().ImgPreview;
  const int width = whole.Width;
  const int height = whole.Height;
  const int left = whole.Left;
  const int top = whole.Top;
  const Image& wide = WithPicture(40, 10).ImgPreview;
  EXPECT_TRUE(wide.Stretch);
  EXPECT_EQ(wide.Width, width);
  EXPECT_EQ(wide.Height, width / 4);
  EXPECT_EQ(wide.Left, left);
  EXPECT_EQ(wide.Top, top + (height - width / 4) / 2);
  const Image& high = WithPicture(10, 40).ImgPreview;
  EXPECT_EQ(high.Height, height);
  EXPECT_EQ(high.Width, height / 4);
  EXPECT_EQ(high.Left, left + (width - height / 4) / 2);
}

TEST_F(MapInfoPreviewTest, AMapWithoutAPictureShowsNone) {
  EXPECT_FALSE(Loaded(WriteMap(Desert())).ImgPreview.Picture.get());
}

class LargePreview final : public Form {
 public:
  LargePreview() : Form("frmLargeprev") {}
  PictureBox& Picture1 = Add<PictureBox>("Picture1");
};

TEST_F(MapInfoPreviewTest, ADoubleClickShowsThePictureLarge) {
  const StandInWindow<LargePreview> large_preview("frmLargeprev");
  frmmapinfo& window = WithPicture(4, 3);
  desktop.windowing().ExpectModal("frmLargeprev", [&](Form& form) {
    EXPECT_EQ(static_cast<LargePreview&>(form).Picture1.Picture.get(), window.ImgPreview.Picture.get());
    form.Unload();
  });
  window.ImgPreview.DblClick();
}

// ---- the rest ----------------------------------------------------------------------------------------------------

TEST_F(MapInfoTest, TheCommandLineOpensTheWindowOnItsFile) {
  EXPECT_EQ(ProcessCommand("-mapinfo " + WriteMap(Desert())), kCommandCarriedOut);
  EXPECT_TRUE(Info().IsShown());
  EXPECT_EQ(Info().TxtDesigner.Text.get(), "Mirage");
}

TEST_F(MapInfoTest, OkClosesTheWindow) {
  Info().Show();
  Info().Command1.Press();
  EXPECT_EQ(LoadedWindow("frmmapinfo"), nullptr);
}

TEST_F(MapInfoTest, AnActiveStyleIsAppliedOnceAfterAFifthOfASecond) {
  int applied = 0;
  InstallStyleRuntime({[] { return true; }, [](const std::string&) {}, [&](Form&) { ++applied; }});
  Info().Show();
  Sleep(199);
  EXPECT_EQ(applied, 0);
  Sleep(1000);
  EXPECT_EQ(applied, 1);
}

TEST_F(MapInfoTest, AStyleThatFailsIsReported) {
  InstallStyleRuntime(
      {[] { return true; }, [](const std::string&) {}, [](Form&) { Raise(error::kSubscriptOutOfRange); }});
  desktop.dialogs().ExpectBox("Error: applystyle 9\r\nSubscript out of range");
  Info().Show();
  Sleep(1000);
}

}  // namespace
}  // namespace kestrun

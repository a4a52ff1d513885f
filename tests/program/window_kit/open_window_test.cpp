// Windows opened by name, with what they are handed.
#include "program/window_kit/open_window.h"

#include <gtest/gtest.h>

#include "forms/label.h"
#include "forms/member_rows.h"
#include "forms/picture_box.h"
#include "program/frame_fixture.h"
#include "support/registered_window.h"

namespace kestrun {
namespace {

class LargePreview final : public Form {
 public:
  LargePreview() : Form("frmLargeprev") { Picture1.Move(60, 90, 1500, 750); }
  PictureBox& Picture1 = Add<PictureBox>("Picture1");
};

class PreviewManager final : public Form {
 public:
  PreviewManager() : Form("frmpicture") {}
  Label& lblmap = Add<Label>("lblmap");
  int searches = 0;

  void CmdDownload_Click() { ++searches; }
  [[nodiscard]] const MemberTable& Members() const override {
    static constexpr Member kRows[]{MethodRow<&PreviewManager::CmdDownload_Click>("CmdDownload_Click")};
    static const MemberTable table{&Form::kFormMembers, kRows};
    return table;
  }
};

class OpenWindowTest : public FrameTest {};

TEST_F(OpenWindowTest, AWindowThatIsNotThereIsNotOpenedAndNothingFails) {
  const WithoutWindow preview_manager("frmpicture");
  const WithoutWindow large_preview("frmLargeprev");
  const WithoutWindow map_list("frmputlist");
  const WithoutWindow uploader("FrmCenter");
  const WithoutWindow editor("FrmEdit");
  OpenWindow("frmputlist");
  OpenPreviewManager("C:\\maps\\Desert.bms");
  ShowLargePicture(MakeRef<Picture>(1, 1, std::vector<uint32_t>{0xFF112233}));
  AddToMapList("C:\\maps\\Desert.bms");
  LoadMapList("C:\\maps\\all.lst");
  OpenUploader("C:\\maps\\Desert.zip");
  OpenStyleEditor("C:\\dark.stl");
  EXPECT_TRUE(LoadedWindows().empty());
}

TEST_F(OpenWindowTest, AWindowIsShownWithOrWithoutWaiting) {
  const StandInWindow<Form> options("frmoptions");
  OpenWindow("frmoptions");
  EXPECT_TRUE(LoadedWindow("frmoptions")->IsShown());
  CloseAllWindows();
  bool waited = false;
  desktop.windowing().ExpectModal("frmoptions", [&](Form& form) { waited = true, form.Unload(); });
  OpenWindow("frmoptions", ShowWay::kShowModal);
  EXPECT_TRUE(waited);
}

TEST_F(OpenWindowTest, TheLargePreviewIsAsLargeAsItsPictureAndAMargin) {
  const StandInWindow<LargePreview> large_preview("frmLargeprev");
  const Ref<Picture> picture = MakeRef<Picture>(1, 1, std::vector<uint32_t>{0xFF112233});
  desktop.windowing().ExpectModal("frmLargeprev", [&](Form& form) {
    EXPECT_EQ(static_cast<LargePreview&>(form).Picture1.Picture.get(), picture);
    EXPECT_EQ(form.Width, 60 + 1500 + 250);
    EXPECT_EQ(form.Height, 90 + 750 + 500);
    form.Unload();
  });
  ShowLargePicture(picture);
}

TEST_F(OpenWindowTest, WithoutAPictureNoLargePreviewOpens) {
  const StandInWindow<LargePreview> large_preview("frmLargeprev");
  ShowLargePicture({});
  EXPECT_EQ(LoadedWindow("frmLargeprev"), nullptr);
}

TEST_F(OpenWindowTest, ThePreviewManagerGetsTheMapAndSearchesOnlyWhenAskedTo) {
  const StandInWindow<PreviewManager> preview_manager("frmpicture");
  OpenPreviewManager("C:\\maps\\Desert.bms");
  const auto& window = static_cast<PreviewManager&>(*LoadedWindow("frmpicture"));
  EXPECT_TRUE(window.IsShown());
  EXPECT_EQ(window.lblmap.Caption.get(), "C:\\maps\\Desert.bms");
  EXPECT_EQ(window.searches, 0);
  OpenPreviewManager("C:\\maps\\Oasis.bms", PreviewTask::kSearch);
  EXPECT_EQ(window.lblmap.Caption.get(), "C:\\maps\\Oasis.bms");
  EXPECT_EQ(window.searches, 1);
}

}  // namespace
}  // namespace kestrun

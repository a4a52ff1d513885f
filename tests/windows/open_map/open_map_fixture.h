// The load-map window on a ground with a game, a map folder, and simple windows in the places of those that lie above
// it.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/check_box.h"
#include "forms/file_list_box.h"
#include "forms/list_box.h"
#include "forms/member_rows.h"
#include "program/frame_fixture.h"
#include "support/registered_window.h"
#include "windows/open_map/frmopenmap.h"

namespace kestrun {

class FakeMapList final : public Form {
 public:
  FakeMapList() : Form("frmputlist") {}
  ListBox& lstmaps = Add<ListBox>("lstmaps");
  int refreshes = 0;

  void mnu_refreshlist_Click() { ++refreshes; }
  [[nodiscard]] const MemberTable& Members() const override {
    static constexpr Member kRows[]{MethodRow<&FakeMapList::mnu_refreshlist_Click>("mnu_refreshlist_Click")};
    static const MemberTable table{&Form::kFormMembers, kRows};
    return table;
  }
};

class FakeUploader final : public Form {
 public:
  FakeUploader() : Form("FrmCenter") {
    FileMaps.Pattern = "*.zip";
    TxtDir.Change = [this] { FileMaps.SetPath(TxtDir.Text.get()); };
    ChAutoRename.Value = 1;
  }
  TextBox& TxtDir = Add<TextBox>("TxtDir");
  CheckBox& ChAutoRename = Add<CheckBox>("ChAutoRename");
  CheckBox& ChSelected = Add<CheckBox>("ChSelected");
  FileListBox& FileMaps = Add<FileListBox>("FileMaps");
};

class FakePreviewManager final : public Form {
 public:
  FakePreviewManager() : Form("frmpicture") {}
  Label& lblmap = Add<Label>("lblmap");
};

class FakeLargePreview final : public Form {
 public:
  FakeLargePreview() : Form("frmLargeprev") { Picture1.Move(60, 60, 3000, 2000); }
  PictureBox& Picture1 = Add<PictureBox>("Picture1");
};

class OpenMapTest : public FrameTest {
 protected:
  OpenMapTest() {
    TellGameFolder();
    MakeArchive(GamePath("dflw.pff"), {"D08M03.BMS", "D08M04.BMS"});
    WriteFile(MapPath("Oasis.bms"), "BMS oasis");
    WriteIni("[launcher]\r\nWARNOVERWRITE=False\r\n");
  }

  // With the windows that lie above this one.
  void RegisterOthers() { others_ = std::make_unique<Others>(); }

  frmopenmap& Open() { return Window<frmopenmap>(); }
  // As a start with this text opens it.
  frmopenmap& OpenWith(const std::string& address) {
    static_cast<frmopenmap&>(WindowBeforeLoad("frmopenmap")).TxtFile.Text = address;
    static_cast<void>(ShowWindow("frmopenmap"));
    return Open();
  }
  void ClickTask(int task) { Open().LblTask[static_cast<size_t>(task)]->Click(); }

  // The default map folder is the game folder until the user says otherwise.
  [[nodiscard]] std::string DefaultMapPath(std::string_view name) const { return GamePath(name); }

  void ExpectQuestion(const std::string& text, BoxAnswer answer, BoxIcon icon = BoxIcon::kNone) {
    desktop.dialogs().ExpectBox(text, answer).WithButtons(BoxButtons::kYesNo).WithIcon(icon).WithDefaultButton(1);
  }
  void ExpectZipQuestion(BoxAnswer answer) {
    desktop.dialogs().ExpectBox("Kestrun detected a zip file. Do you want to load maps that are inside the zip file?",
                                answer);
  }

  // What stands above this window is not there unless a test asks for it.
  const WithoutWindow no_map_list{"frmputlist"};
  const WithoutWindow no_uploader{"FrmCenter"};
  const WithoutWindow no_preview_manager{"frmpicture"};
  const WithoutWindow no_large_preview{"frmLargeprev"};

  static constexpr const char* kUrl = "http://maps.example/Desert.bms";

 private:
  struct Others {
    StandInWindow<FakeMapList> map_list{"frmputlist"};
    StandInWindow<FakeUploader> uploader{"FrmCenter"};
    StandInWindow<FakePreviewManager> preview_manager{"frmpicture"};
    StandInWindow<FakeLargePreview> large_preview{"frmLargeprev"};
  };
  std::unique_ptr<Others> others_;
};

}  // namespace kestrun

// The main window over a game folder with an archive and a folder of three files, two of them maps.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "program/frame_fixture.h"
#include "windows/main/frmain.h"

namespace kestrun {

class MainWindowTest : public FrameTest {
 protected:
  MainWindowTest() {
    InstallBannerService({});  // most tests are about a window without one
    TellGameFolder();
    MakeArchive(GamePath("dflw.pff"), {"D08M03.BMS", "D08M04.BMS"});
    WriteFile(MapPath("Desert.bms"), "BMS desert");
    WriteFile(MapPath("Oasis.bms"), "BMS oasis");
    WriteFile(MapPath("notes.txt"), "no map");
    WriteIni("[launcher]\r\nWARNOVERWRITE=False\r\nSHOWQUICKLINKS=1\r\n");
  }

  ~MainWindowTest() override {
    CloseAllWindows();
    InstallBannerService(SiteBannerService());
  }

  frmain& Main() { return Window<frmain>(); }

  // The window with the map folder typed in: the settings file cannot hold the folder's name.
  frmain& MainOnMaps() {
    Main().Show();
    Main().Text1.Text = Path("maps");
    desktop.clock().AdvanceMs(500);
    return Main();
  }

  // What a click of the mouse on a row does.
  void ClickRow(int row) {
    const int y = row * 22 + 11;
    Main().ListBox.OnMouseDown(mouse::kLeft, 0, 30, y);
    Main().ListBox.OnMouseUp(mouse::kLeft, 0, 30, y);
  }

  // Rows of the painted list, joined.
  [[nodiscard]] std::string Rows() {
    std::string rows;
    for (int row = 0; row < Main().ListBox.ListCount(); ++row) rows += Main().ListBox.List(row) + "|";
    return rows;
  }

  // Gives a map, by its file name, a picture on the web of so many pixels.
  void GiveMapPicture(const std::string& name, int width, int height) {
    const std::string url = "http://maps.example/" + name + ".jpg";
    const std::string content = "picture of " + name;
    WriteNumberedSetting(setting::kPreviewPicture, name, url);
    desktop.internet().Reply(url, content);
    desktop.pictures().Answer(
        content, {width, height, std::vector<uint32_t>(static_cast<size_t>(width) * static_cast<size_t>(height))});
  }
};

}  // namespace kestrun

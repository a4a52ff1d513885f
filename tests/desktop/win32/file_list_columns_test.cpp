// A file list that shows more of its files than their names, on the screen.
#include <gtest/gtest.h>

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window_fixture.h"
#include "forms/file_list_box.h"

namespace kestrun {
namespace {

class ListForm final : public Form {
 public:
  ListForm() : Form("frmcolumns") { SetClientSize(6000, 3000); }
  FileListBox& FileMaps = Add<FileListBox>("FileMaps");
};

class FileListColumnsTest : public RealWindowTest {
 protected:
  FileListColumnsTest() {
    const std::string temporary = platform.shell().TemporaryFolder();
    folder = temporary + (temporary.ends_with('\\') ? "" : "\\") + "kestrun columns " +
             std::to_string(GetCurrentProcessId());
    platform.files().MakeFolder(folder);
    platform.files().WriteAll(folder + "\\Arena.zip", {});
    platform.files().WriteAll(folder + "\\Oasis.zip", {});
    list().Move(150, 150, 5700, 2700);
    list().ColumnLefts = {3000, 4500};
    list().ColumnTexts = [](const std::string& name) -> std::vector<std::string> {
      return {name == "Oasis.zip" ? "IIII" : "", "MMM"};
    };
    list().BackColor = kGround;
    list().ForeColor = 0x00FFFF;
    list().SetPath(folder);
  }
  ~FileListColumnsTest() override {
    form->Hide();
    for (const char* name : {"\\Arena.zip", "\\Oasis.zip"}) platform.files().Delete(folder + name);
    platform.files().RemoveFolder(folder);
  }

  FileListBox& list() { return form->FileMaps; }
  HWND Show() {
    form->Show();
    Pump();
    UpdateWindow(HandleOf(list()));
    return HandleOf(list());
  }
  // How many pixels between two places of a row, in twips, have that colour, and how many another. The edges of letters
  // are of colours between those of the text and of its ground.
  RECT PlaceOf(int row, int left, int right) {
    RECT place{};
    SendMessageW(HandleOf(list()), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    const ScreenScale scale = WindowOf(*form).scale();
    return {scale.Pixels(left), place.top + 1, scale.Pixels(right), place.bottom - 1};  // inside a focus rectangle
  }
  int OfColor(int row, int left, int right, Color color) {
    return CountPixels(HandleOf(list()), PlaceOf(row, left, right), color);
  }
  int OfOthers(int row, int left, int right, Color ground) {
    const RECT place = PlaceOf(row, left, right);
    const auto pixels = (place.right - place.left) * (place.bottom - place.top);
    return static_cast<int>(pixels) - CountPixels(HandleOf(list()), place, ground);
  }

  static constexpr Color kGround = 0x302010;
  std::string folder;
  const Ref<ListForm> form = MakeRef<ListForm>();
};

TEST_F(FileListColumnsTest, EachColumnStandsAtItsPlaceInTheListsColours) {
  Show();
  EXPECT_GT(OfColor(1, 3000, 4500, kGround), 0);
  EXPECT_GT(OfOthers(1, 3000, 4500, kGround), 0);
  EXPECT_EQ(OfOthers(0, 3000, 4500, kGround), 0) << "an empty text";
  EXPECT_GT(OfOthers(0, 4500, 5400, kGround), 0);
}

TEST_F(FileListColumnsTest, AChosenRowIsDrawnInTheSystemsColoursOfAChoice) {
  list().ListIndex = 1;
  Show();
  EXPECT_GT(OfColor(1, 3000, 4500, GetSysColor(COLOR_HIGHLIGHT)), 0);
  EXPECT_EQ(OfColor(1, 3000, 4500, kGround), 0);
  EXPECT_GT(OfOthers(1, 3000, 4500, GetSysColor(COLOR_HIGHLIGHT)), 0);
  EXPECT_EQ(OfColor(0, 3000, 4500, GetSysColor(COLOR_HIGHLIGHT)), 0);
}

TEST_F(FileListColumnsTest, AReaderOfTheScreenHearsTheWholeRow) {
  const HWND window = Show();
  wchar_t text[100]{};
  SendMessageW(window, LB_GETTEXT, 1, reinterpret_cast<LPARAM>(text));
  EXPECT_EQ(FromWide(text), "Oasis.zip, IIII, MMM");
  EXPECT_EQ(list().List(1), "Oasis.zip");
}

TEST_F(FileListColumnsTest, ALongNameEndsWhereTheFirstColumnBegins) {
  const std::string long_name = folder + "\\" + std::string(100, 'W') + ".zip";
  platform.files().WriteAll(long_name, {});
  list().Reload();
  Show();
  platform.files().Delete(long_name);
  // The second column of this row is empty: nothing of the name reaches there.
  ASSERT_EQ(list().ListCount(), 3);
  EXPECT_GT(OfOthers(2, 2700, 3000, kGround), 0);
  EXPECT_EQ(OfOthers(2, 3000, 4500, kGround), 0);
}

}  // namespace
}  // namespace kestrun

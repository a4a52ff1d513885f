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
    list().BackColor = 0x302010;
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
  // How much is drawn in that colour between two places of a row, in twips.
  int Drawn(int row, int left, int right, Color color) {
    RECT place{};
    SendMessageW(HandleOf(list()), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    const ScreenScale scale = WindowOf(*form).scale();
    place.left = scale.Pixels(left);
    place.right = scale.Pixels(right);
    return CountPixels(HandleOf(list()), place, color);
  }

  std::string folder;
  const Ref<ListForm> form = MakeRef<ListForm>();
};

TEST_F(FileListColumnsTest, EachColumnStandsAtItsPlaceInTheListsColours) {
  Show();
  EXPECT_GT(Drawn(1, 3000, 4500, 0x00FFFF), 0);
  EXPECT_EQ(Drawn(0, 3000, 4500, 0x00FFFF), 0) << "an empty text";
  EXPECT_GT(Drawn(0, 4500, 5400, 0x00FFFF), 0);
  EXPECT_GT(Drawn(0, 0, 3000, 0x302010), 0);
}

TEST_F(FileListColumnsTest, AChosenRowIsDrawnInTheSystemsColoursOfAChoice) {
  list().ListIndex = 1;
  Show();
  EXPECT_GT(Drawn(1, 3000, 4500, GetSysColor(COLOR_HIGHLIGHT)), 0);
  EXPECT_GT(Drawn(1, 3000, 4500, GetSysColor(COLOR_HIGHLIGHTTEXT)), 0);
  EXPECT_EQ(Drawn(0, 3000, 4500, GetSysColor(COLOR_HIGHLIGHT)), 0);
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
  EXPECT_GT(Drawn(2, 2700, 3000, 0x00FFFF), 0);
  EXPECT_EQ(Drawn(2, 3030, 4500, 0x00FFFF), 0);
}

}  // namespace
}  // namespace kestrun

// The preview manager on the screen, with pictures from the system's own clipboard and files dropped by the desktop.
#include <gtest/gtest.h>

#include <cstring>

#include "desktop/win32/dropped_files.h"
#include "desktop/win32/window_fixture.h"
#include "formats/bitmap/bitmap_file.h"
#include "program/settings.h"
#include "windows/previews/frmpicture.h"

namespace kestrun {
namespace {

constexpr size_t kBitmapFileHeader = 14;

class PreviewOnScreenTest : public RealWindowTest {
 protected:
  PreviewOnScreenTest() {
    const std::string temporary = platform.shell().TemporaryFolder();
    folder = temporary + (temporary.ends_with('\\') ? "" : "\\") + "kestrun previews " +
             std::to_string(GetCurrentProcessId());
    platform.files().MakeFolder(folder);
    WriteSetting(setting::kImageFolder, folder);
    OpenPreviewManager(folder + "\\Oasis.bms");
    Pump();
  }
  ~PreviewOnScreenTest() override {
    CloseAllWindows();
    for (const FolderEntry& entry : platform.files().List(folder)) platform.files().Delete(folder + "\\" + entry.name);
    platform.files().RemoveFolder(folder);
    platform.files().Delete(AppFile("packit.ini"));
  }

  static frmpicture& Manager() { return Window<frmpicture>(); }
  static Bytes Bitmap(const std::vector<uint32_t>& pixels) {
    return EncodeBitmap(static_cast<int>(pixels.size()), 1, pixels);
  }
  // What another program does that copies a picture: a bitmap file without its first header.
  static void CopyFromAnotherProgram(const Bytes& bitmap) {
    const size_t bytes = bitmap.size() - kBitmapFileHeader;
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(block), bitmap.data() + kBitmapFileHeader, bytes);
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_DIB, block);
    CloseClipboard();
  }
  static std::vector<uint32_t> ShownPixels() {
    const Ref<Picture> picture = Manager().ImgPrev.Picture;
    return picture ? picture->pixels() : std::vector<uint32_t>();
  }

  const std::vector<uint32_t> colors{0xFFFF0000, 0xFF00FF00, 0xFF0000FF};
  std::string folder;
};

TEST_F(PreviewOnScreenTest, APictureThatAnotherProgramCopiedIsPastedAndSavedAsABitmap) {
  CopyFromAnotherProgram(Bitmap(colors));
  SendMessageW(HandleOf(Manager().CmdPaste), BM_CLICK, 0, 0);
  Pump();
  EXPECT_EQ(ShownPixels(), colors);
  EXPECT_EQ(Manager().txtimage.Text.get(), "");
  SendMessageW(HandleOf(Manager().Command1), BM_CLICK, 0, 0);
  Pump();
  EXPECT_EQ(platform.files().ReadAll(folder + "\\Oasis.bms.bmp"), Bitmap(colors));
  EXPECT_EQ(ReadSetting(setting::kPreviewPicture, folder + "\\Oasis.bms"), folder + "\\Oasis.bms.bmp");
}

TEST_F(PreviewOnScreenTest, ACopiedPictureCanBePastedByAnotherProgram) {
  CopyFromAnotherProgram(Bitmap(colors));
  SendMessageW(HandleOf(Manager().CmdPaste), BM_CLICK, 0, 0);
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  CloseClipboard();
  Manager().mnu_copyclip.Choose();
  ASSERT_TRUE(OpenClipboard(nullptr));
  const HANDLE block = GetClipboardData(CF_DIB);
  ASSERT_NE(block, nullptr);
  const auto* header = static_cast<const BITMAPINFOHEADER*>(GlobalLock(block));
  EXPECT_EQ(header->biWidth, 3);
  EXPECT_EQ(std::abs(header->biHeight), 1);
  GlobalUnlock(block);
  CloseClipboard();
}

TEST_F(PreviewOnScreenTest, ADroppedPictureIsTaken) {
  const std::string path = folder + "\\Снимок 地図.bmp";
  platform.files().WriteAll(path, Bitmap(colors));
  DropOn(HandleOf(Manager()), {path});
  Pump();
  EXPECT_EQ(ShownPixels(), colors);
  EXPECT_EQ(Manager().txtimage.Text.get(), path);
}

}  // namespace
}  // namespace kestrun

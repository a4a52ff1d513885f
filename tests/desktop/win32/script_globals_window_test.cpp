// What scripts find beside the windows, as the system has it: Screen, App and Clipboard.
#include "forms/script_globals.h"

#include "base/convert.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window_fixture.h"
#include "forms/picture.h"
#include "forms/text_box.h"

namespace kestrun {
namespace {

class frmglobalswindow final : public Form {
 public:
  static constexpr const char* kName = "frmglobalswindow";
  frmglobalswindow() : Form(kName) {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    BorderStyle = static_cast<int>(FormBorder::kNone);
    SetClientSize(3000, 1500);
    Text1.Move(150, 150, 1500, 315);
    Text2.Move(150, 600, 1500, 315);
  }
  TextBox& Text1 = Add<TextBox>("Text1");
  TextBox& Text2 = Add<TextBox>("Text2");
};

const WindowRegistration registration(frmglobalswindow::kName, [] { return MakeRef<frmglobalswindow>(); });

class ScriptGlobalsWindowTest : public RealWindowTest {
 protected:
  static frmglobalswindow& form() { return Window<frmglobalswindow>(); }
  const Ref<ScreenObject> screen = MakeRef<ScreenObject>();
  const Ref<AppObject> app = MakeRef<AppObject>();
  const Ref<ClipboardObject> clipboard = MakeRef<ClipboardObject>();
};

TEST_F(ScriptGlobalsWindowTest, TheScreenIsTheSystems) {
  const int per_pixel = ToLong(GetMember(*screen, "TwipsPerPixelX"));
  EXPECT_EQ(ToLong(GetMember(*screen, "Width")), GetSystemMetrics(SM_CXSCREEN) * per_pixel);
  EXPECT_EQ(ToLong(GetMember(*screen, "Height")), GetSystemMetrics(SM_CYSCREEN) * per_pixel);
  ASSERT_GT(ToLong(GetMember(*screen, "FontCount")), 0);
  EXPECT_NE(ToText(GetMember(*screen, "Fonts", {0})), "");
}

TEST_F(ScriptGlobalsWindowTest, TheActiveControlIsTheOneWithTheFocus) {
  form().Show();
  Pump();
  EXPECT_EQ(GetMember(*screen, "ActiveForm").object(), &form());
  SetFocus(HandleOf(form().Text2));
  Pump();
  EXPECT_EQ(GetMember(*screen, "ActiveControl").object(), &form().Text2);
  EXPECT_EQ(GetMember(form(), "ActiveControl").object(), &form().Text2);
  form().Text1.SetFocus();
  Pump();
  EXPECT_EQ(GetFocus(), HandleOf(form().Text1));
  EXPECT_EQ(GetMember(*screen, "ActiveControl").object(), &form().Text1);
}

TEST_F(ScriptGlobalsWindowTest, AWindowIsFoundAmongTheFormsOnceItIsLoaded) {
  const int before = ToLong(GetMember(*GetMember(*screen, "Forms").object(), "Count"));
  form().Show();
  EXPECT_EQ(ToLong(GetMember(*GetMember(*screen, "Forms").object(), "Count")), before + 1);
  EXPECT_EQ(GetMember(*screen, "Forms", {"frmglobalswindow"}).object(), &form());
}

TEST_F(ScriptGlobalsWindowTest, AnHourglassStandsOverEveryControl) {
  constexpr int kHourglass = 11;
  form().Show();
  Pump();
  PutMember(*screen, "MousePointer", kHourglass);
  const HWND text = HandleOf(form().Text1);
  SendMessageW(text, WM_SETCURSOR, reinterpret_cast<WPARAM>(text), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
  PutMember(*screen, "MousePointer", 0);
  SendMessageW(text, WM_SETCURSOR, reinterpret_cast<WPARAM>(text), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  EXPECT_NE(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
}

TEST_F(ScriptGlobalsWindowTest, TheAppIsThisProcess) {
  wchar_t path[MAX_PATH]{};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::string file = platform.program().ExeName() + ".exe";
  EXPECT_EQ(ToText(GetMember(*app, "Path")) + "\\" + file, FromWide(path));
  EXPECT_EQ(ToLong(GetMember(*app, "hInstance")),
            static_cast<int32_t>(reinterpret_cast<intptr_t>(GetModuleHandleW(nullptr))));
  EXPECT_FALSE(ToBoolean(GetMember(*app, "PrevInstance")));
}

TEST_F(ScriptGlobalsWindowTest, TextAndPicturesGoThroughTheSystemsClipboard) {
  CallMember(*clipboard, "SetText", {"Карта"});
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_UNICODETEXT));
  EXPECT_EQ(ToText(CallMember(*clipboard, "GetText")), "Карта");
  // An odd width: the rows of a bitmap are filled up.
  const std::vector<uint32_t> pixels{0xFFFF0000, 0xFF00FF00, 0xFF0000FF, 0xFF102030, 0xFFFFFFFF, 0xFF000000};
  CallMember(*clipboard, "SetData", {MakeRef<Picture>(3, 2, pixels)});
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_DIB));
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_UNICODETEXT));
  const Variant back = CallMember(*clipboard, "GetData", {8});
  const auto* picture = dynamic_cast<const Picture*>(back.object());
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->width_pixels(), 3);
  EXPECT_EQ(picture->pixels(), pixels);
  CallMember(*clipboard, "Clear");
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_DIB));
  EXPECT_EQ(CallMember(*clipboard, "GetData").object(), nullptr);
}

TEST_F(ScriptGlobalsWindowTest, ABitmapThatIsShorterThanItSaysIsNoPicture) {
  constexpr size_t kBytes = sizeof(BITMAPINFOHEADER) + 10;
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, kBytes);
  auto* header = static_cast<BITMAPINFOHEADER*>(GlobalLock(block));
  *header = {sizeof(BITMAPINFOHEADER), 30000, 30000, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
  GlobalUnlock(block);
  ASSERT_TRUE(OpenClipboard(nullptr));
  EmptyClipboard();
  SetClipboardData(CF_DIB, block);
  CloseClipboard();
  EXPECT_EQ(CallMember(*clipboard, "GetData").object(), nullptr);
}

}  // namespace
}  // namespace kestrun

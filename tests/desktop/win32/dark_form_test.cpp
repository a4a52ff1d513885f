// Menus and title bar of a form in colours of its own.
#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/window/menu_painting.h"
#include "desktop/win32/window_fixture.h"
#include "forms/menu_item.h"

namespace kestrun {
namespace {

constexpr Color kDark = 0x302010;
constexpr Color kInk = 0xF0F0E0;

class frmdark final : public Form {
 public:
  static constexpr const char* kName = "frmdark";
  frmdark() : Form(kName) {
    Caption = "dark";
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    SetClientSize(4500, 3000);
    mnu_file.Caption = "&File";
    mnu_open.Caption = "&Open";
    mnu_open.SetParent(mnu_file);
    mnu_line.Caption = "-";
    mnu_line.SetParent(mnu_file);
    mnu_more.Caption = "&More";
    mnu_more.SetParent(mnu_file);
    mnu_one.Caption = "One";
    mnu_one.SetParent(mnu_more);
  }
  MenuItem& mnu_file = Add<MenuItem>("mnu_file");
  MenuItem& mnu_open = Add<MenuItem>("mnu_open");
  MenuItem& mnu_line = Add<MenuItem>("mnu_line");
  MenuItem& mnu_more = Add<MenuItem>("mnu_more");
  MenuItem& mnu_one = Add<MenuItem>("mnu_one");
};

const WindowRegistration registration(frmdark::kName, [] { return MakeRef<frmdark>(); });

class DarkFormTest : public RealWindowTest {
 protected:
  DarkFormTest() {
    form().Show();
    Pump();
  }
  static frmdark& form() { return Window<frmdark>(); }
  static HWND Handle() { return HandleOf(static_cast<Form&>(form())); }
  void MakeDark() {
    form().BackColor = kDark;
    form().ForeColor = kInk;
    Pump();
    UpdateWindow(Handle());
  }
  static MENUITEMINFOW ItemAt(HMENU menu, UINT position) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID;
    GetMenuItemInfoW(menu, position, TRUE, &info);
    return info;
  }
  static std::wstring TextAt(HMENU menu, UINT position) {
    wchar_t text[50]{};
    GetMenuStringW(menu, position, text, 50, MF_BYPOSITION);
    return text;
  }
};

TEST_F(DarkFormTest, AFormInTheSystemsColoursLeavesItsMenuToTheSystem) {
  EXPECT_FALSE(MenuColorsOf(form()));
  EXPECT_EQ(ItemAt(GetMenu(Handle()), 0).fType & MFT_OWNERDRAW, 0U);
}

TEST_F(DarkFormTest, ItsMenusAreDrawnInItsColoursAndKeepTheirTexts) {
  MakeDark();
  const HMENU bar = GetMenu(Handle());
  EXPECT_NE(ItemAt(bar, 0).fType & MFT_OWNERDRAW, 0U);
  EXPECT_EQ(TextAt(bar, 0), L"&File");
  const HMENU file = GetSubMenu(bar, 0);
  for (UINT position = 0; position < 3; ++position) {
    EXPECT_NE(ItemAt(file, position).fType & MFT_OWNERDRAW, 0U) << position;
  }
  EXPECT_NE(ItemAt(file, 1).fType & MFT_SEPARATOR, 0U);
  EXPECT_EQ(TextAt(file, 0), L"&Open");
  EXPECT_EQ(TextAt(GetSubMenu(file, 2), 0), L"One");
}

TEST_F(DarkFormTest, TheBarShowsItsColoursAndNoLightLine) {
  MakeDark();
  MENUBARINFO place{};
  place.cbSize = sizeof place;
  ASSERT_TRUE(GetMenuBarInfo(Handle(), OBJID_MENU, 1, &place));
  const RECT window = PlaceOf(Handle());
  const HDC target = GetWindowDC(Handle());
  int dark = 0;
  int ink = 0;
  for (LONG y = place.rcBar.top - window.top; y < place.rcBar.bottom - window.top; ++y) {
    for (LONG x = place.rcBar.left - window.left; x < place.rcBar.right - window.left; ++x) {
      const COLORREF pixel = GetPixel(target, x, y);
      dark += pixel == kDark ? 1 : 0;
      ink += pixel == kInk ? 1 : 0;
    }
  }
  // The line between the bar and the client area, in its middle.
  POINT corner{0, 0};
  ClientToScreen(Handle(), &corner);
  const COLORREF below =
      GetPixel(target, corner.x - window.left + ClientOf(Handle()).cx / 2, corner.y - window.top - 1);
  const COLORREF at_end = GetPixel(target, place.rcBar.right - window.left - 3, place.rcBar.top - window.top + 3);
  const COLORREF above = GetPixel(target, place.rcBar.left - window.left + 5, place.rcBar.top - window.top - 1);
  ReleaseDC(Handle(), target);
  // Elsewhere the title bar ends there.
  EXPECT_TRUE(!IsWine() || above == kDark);
  EXPECT_GT(dark, 100);
  EXPECT_GT(ink, 5);
  EXPECT_EQ(below, kDark);
  EXPECT_EQ(at_end, kDark);
}

TEST_F(DarkFormTest, CommandsOfADrawnMenuAreChosen) {
  MakeDark();
  int chosen = 0;
  form().mnu_open.Click = [&] { ++chosen; };
  const HMENU file = GetSubMenu(GetMenu(Handle()), 0);
  SendMessageW(Handle(), WM_COMMAND, ItemAt(file, 0).wID, 0);
  Pump();
  EXPECT_EQ(chosen, 1);
}

TEST_F(DarkFormTest, TheSystemDrawsAgainWhenItsColoursComeBack) {
  MakeDark();
  form().BackColor = color::kButtonFace;
  Pump();
  EXPECT_EQ(ItemAt(GetMenu(Handle()), 0).fType & MFT_OWNERDRAW, 0U);
}

TEST_F(DarkFormTest, TextThatWouldNotBeReadIsLightOnDarkAndDarkOnLight) {
  form().BackColor = kDark;
  form().ForeColor = 0x201000;
  EXPECT_EQ(MenuColorsOf(form())->text, color::kWhite);
  form().BackColor = 0xF0F0F0;
  form().ForeColor = color::kWhite;
  EXPECT_EQ(MenuColorsOf(form())->text, color::kBlack);
}

}  // namespace
}  // namespace kestrun

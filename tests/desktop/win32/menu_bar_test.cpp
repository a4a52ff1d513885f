// A menu of the bar that is open on the screen while the program goes on.
#include "desktop/win32/window_fixture.h"
#include "forms/menu_item.h"

namespace kestrun {
namespace {

constexpr UINT kLookEveryMs = 20;

class MenuBarTest : public RealWindowTest {
 protected:
  MenuBarTest() {
    menu.Caption = "&Menu";
    item.SetParent(menu);
    item.Caption = "&Item";
    other.SetParent(menu);
    other.Caption = "&Other";
    item.Click = [this] { ++clicks; };
    form->SetClientSize(6000, 3000);
    form->Show();
    Pump();
    test = this;
  }
  ~MenuBarTest() override { test = nullptr; }

  // Opens the menu as its access key does; what is asked for is done in front of it, and then the key is pressed.
  void ChooseFromOpenMenu(wchar_t key, std::function<void()> meanwhile) {
    key_ = key;
    meanwhile_ = std::move(meanwhile);
    looks_ = 0;
    SetTimer(nullptr, 0, kLookEveryMs, &MenuBarTest::Look);
    SendMessageW(HandleOf(*form), WM_SYSCOMMAND, SC_KEYMENU, L'm');
    Pump();
  }
  static HWND OpenMenu() {
    const HWND popup = FindWindowW(L"#32768", nullptr);
    return popup && IsWindowVisible(popup) ? popup : nullptr;
  }
  [[nodiscard]] UINT StateOfItem() const {
    return GetMenuState(GetSubMenu(GetMenu(HandleOf(*form)), 0), 0, MF_BYPOSITION);
  }

  const Ref<Form> form = MakeRef<Form>("bar");
  MenuItem& menu = form->Add<MenuItem>("mnu_menu");
  MenuItem& item = form->Add<MenuItem>("mnu_item");
  MenuItem& other = form->Add<MenuItem>("mnu_other");
  int clicks = 0;
  int looks_with_menu = 0;

 private:
  static constexpr int kLooks = 10;

  // In the menu's own message loop.
  static void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD) {
    const bool is_first = test->looks_++ == 0;
    if (OpenMenu()) ++test->looks_with_menu;
    if (is_first) test->meanwhile_();
    if (test->looks_ < kLooks) return;
    KillTimer(nullptr, timer);
    if (OpenMenu()) PostMessageW(HandleOf(*test->form), WM_CHAR, static_cast<WPARAM>(test->key_), 0);
  }

  static inline MenuBarTest* test = nullptr;
  std::function<void()> meanwhile_;
  wchar_t key_ = 0;
  int looks_ = 0;
};

TEST_F(MenuBarTest, AnItemThatChangesWhileItsMenuIsOpenLeavesItOpen) {
  ChooseFromOpenMenu(L'i', [this] { other.Checked = true; });
  EXPECT_EQ(looks_with_menu, 10);
  EXPECT_EQ(clicks, 1);
}

TEST_F(MenuBarTest, WhatChangedMeanwhileIsSeenWhenTheMenuOpensAgain) {
  ChooseFromOpenMenu(L'i', [this] { item.Checked = true; });
  EXPECT_EQ(StateOfItem() & MF_CHECKED, UINT{MF_CHECKED});
  ChooseFromOpenMenu(L'i', [this] { item.Checked = false; });
  EXPECT_EQ(StateOfItem() & MF_CHECKED, 0U);
  EXPECT_EQ(clicks, 2);
}

TEST_F(MenuBarTest, AnItemThatIsDisabledWhileItsMenuIsOpenDoesNothing) {
  ChooseFromOpenMenu(L'i', [this] { item.Enabled = false; });
  EXPECT_EQ(clicks, 0);
}

TEST_F(MenuBarTest, EventsThatRunMeanwhileLeaveTheKeysToTheOpenMenu) {
  int posted = 0;
  ChooseFromOpenMenu(L'o', [&] {
    PostMessageW(HandleOf(*form), WM_CHAR, L'i', 0);
    platform.clock().Post([&] { ++posted; });
    Pump();
    EXPECT_TRUE(OpenMenu());
    EXPECT_EQ(clicks, 0);
  });
  EXPECT_EQ(posted, 1);
  EXPECT_EQ(clicks, 1);
}

TEST_F(MenuBarTest, AChoiceUnderWayMeansTheItemThatWasChosenWhenItemsBeforeItAreGone) {
  const UINT command = GetMenuItemID(GetSubMenu(GetMenu(HandleOf(*form)), 0), 0);
  MenuItem& first = form->Add<MenuItem>("mnu_first");
  first.SetParent(menu);
  Pump();
  form->Remove(other);
  Pump();
  SendMessageW(HandleOf(*form), WM_COMMAND, command, 0);
  EXPECT_EQ(clicks, 1);
}

TEST_F(MenuBarTest, AChoiceUnderWayOfAnItemThatIsGoneDoesNothing) {
  const UINT command = GetMenuItemID(GetSubMenu(GetMenu(HandleOf(*form)), 0), 0);
  form->Remove(item);
  Pump();
  SendMessageW(HandleOf(*form), WM_COMMAND, command, 0);
  EXPECT_EQ(clicks, 0);
}

}  // namespace
}  // namespace kestrun

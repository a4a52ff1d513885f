// A tree in a real window: the system's tree beside the model, in both directions.
#include <array>
#include <cstring>

#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window_fixture.h"
#include "desktop/win32/window_shot.h"
#include "forms/tree_view.h"

namespace kestrun {
namespace {

constexpr int kLeaves = 100;

class frmbranches final : public Form {
 public:
  frmbranches() : Form("frmbranches") {
    StartUpPosition = static_cast<int>(StartPosition::kManual);
    BorderStyle = static_cast<int>(FormBorder::kNone);
    ShowInTaskbar = false;
    SetClientSize(4500, 3000);
    tree.Move(0, 0, 4500, 3000);
    pictures.AddImage("", MakeRef<kestrun::Picture>(16, 16, std::vector<uint32_t>(256, 0xFF00C800)));
    tree.SetImages(Ref<ImageList>(&pictures));
    TreeNode& root = tree.AddChild(nullptr, "ROOT", "Project Карты");
    root.SetExpanded(true);
    for (const char* key : {"TEXT", "VBS"}) tree.AddChild(&root, key, key, 1);
    for (int leaf = 0; leaf < kLeaves; ++leaf) {
      tree.AddChild(tree.FindNode("VBS"), std::to_string(leaf) + "MOD", "module " + std::to_string(leaf));
    }
  }
  TreeView& tree = Add<TreeView>("tree");
  ImageList& pictures = Add<ImageList>("pictures");
};
const WindowRegistration registration("frmbranches", [] { return MakeRef<frmbranches>(); });

class TreeViewWindowTest : public RealWindowTest {
 protected:
  TreeViewWindowTest() : tree(static_cast<frmbranches&>(WindowByName("frmbranches")).tree) {
    tree.form()->Show();
    Pump();
    ::SetFocus(Handle());
  }
  [[nodiscard]] HWND Handle() const { return HandleOf(tree); }
  LRESULT Ask(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(Handle(), message, first, second);
  }
  [[nodiscard]] LPARAM Item(WPARAM relation, LPARAM item = 0) const { return Ask(TVM_GETNEXTITEM, relation, item); }
  [[nodiscard]] std::string TextOf(LPARAM item) const {
    wchar_t text[100] = {};
    TVITEMW row{};
    row.mask = TVIF_TEXT;
    row.hItem = reinterpret_cast<HTREEITEM>(item);
    row.pszText = text;
    row.cchTextMax = 100;
    Ask(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&row));
    return FromWide(text);
  }
  [[nodiscard]] bool IsOpen(LPARAM item) const {
    return (Ask(TVM_GETITEMSTATE, static_cast<WPARAM>(item), TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
  }
  [[nodiscard]] RECT RowOf(LPARAM item) const {
    RECT row{};
    std::memcpy(&row, &item, sizeof item);
    Ask(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&row));
    return row;
  }
  [[nodiscard]] LPARAM Root() const { return Item(TVGN_ROOT); }
  [[nodiscard]] LPARAM Modules() const { return Item(TVGN_NEXT, Item(TVGN_CHILD, Root())); }
  void PressKey(WPARAM key) {
    PostMessageW(Handle(), WM_KEYDOWN, key, 1);
    PostMessageW(Handle(), WM_KEYUP, key, 1);
    Pump();
  }
  void DoubleClick(POINT place) {
    POINT on_screen = place;
    ClientToScreen(Handle(), &on_screen);
    SetCursorPos(on_screen.x, on_screen.y);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
      PostMessageW(Handle(), message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(place.x, place.y));
    }
    Pump();
    Pump();
    ParkMouse();
  }

  TreeView& tree;
};

TEST_F(TreeViewWindowTest, TheSystemsTreeHasTheModelsNodes) {
  EXPECT_EQ(Ask(TVM_GETCOUNT), kLeaves + 3);
  EXPECT_EQ(TextOf(Root()), "Project Карты");
  EXPECT_TRUE(IsOpen(Root()));
  EXPECT_EQ(TextOf(Modules()), "VBS");
  EXPECT_FALSE(IsOpen(Modules()));
  EXPECT_EQ(TextOf(Item(TVGN_CHILD, Modules())), "module 0");
}

TEST_F(TreeViewWindowTest, ChangesOfTheModelShowAfterOnePass) {
  tree.FindNode("TEXT")->SetText("Text files");
  tree.AddChild(tree.FindNode("TEXT"), "NEW", "assembly.txt");
  tree.Remove(*tree.FindNode("VBS"));
  Pump();
  EXPECT_EQ(Ask(TVM_GETCOUNT), 3);
  EXPECT_EQ(TextOf(Item(TVGN_CHILD, Root())), "Text files");
  EXPECT_EQ(TextOf(Item(TVGN_CHILD, Item(TVGN_CHILD, Root()))), "assembly.txt");
}

TEST_F(TreeViewWindowTest, OpeningAndSelectingInTheModelShowsAtOnce) {
  tree.FindNode("VBS")->SetExpanded(true);
  EXPECT_TRUE(IsOpen(Modules()));
  tree.FindNode("VBS")->SetExpanded(false);
  EXPECT_FALSE(IsOpen(Modules()));
  tree.Select(tree.FindNode("50MOD"));
  EXPECT_EQ(TextOf(Item(TVGN_CARET)), "module 50");
  EXPECT_TRUE(IsOpen(Modules()));
}

// The system's colours of a high contrast, as long as the object lives.
class HighContrastColors {
 public:
  HighContrastColors() {
    for (size_t at = 0; at < kParts.size(); ++at) before_[at] = GetSysColor(kParts[at]);
    SetSysColors(static_cast<int>(kParts.size()), kParts.data(), kColors.data());
  }
  ~HighContrastColors() { SetSysColors(static_cast<int>(kParts.size()), kParts.data(), before_.data()); }
  HighContrastColors(const HighContrastColors&) = delete;
  HighContrastColors& operator=(const HighContrastColors&) = delete;

 private:
  static constexpr std::array<int, 3> kParts{COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_BTNFACE};
  static constexpr std::array<COLORREF, 3> kColors{0x000000, 0xFFFFFF, 0x000000};
  std::array<COLORREF, 3> before_{};
};

constexpr int kQuietPercent = 25;  // of the text's colour in the ground of the selected node

TEST_F(TreeViewWindowTest, TheSelectedNodeIsMarkedWhileTheKeysGoElsewhere) {
  tree.Select(tree.FindNode("TEXT"));
  ::SetFocus(nullptr);
  Pump();
  UpdateWindow(Handle());
  const Color quiet = BlendColors(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), kQuietPercent);
  EXPECT_GT(CountOf(ShotOf(Handle()), quiet), 50);
}

TEST_F(TreeViewWindowTest, TheSelectedNodeIsMarkedInHighContrastAsWell) {
  const HighContrastColors colors;
  Pump();
  tree.Select(tree.FindNode("TEXT"));
  ::SetFocus(nullptr);
  Pump();
  UpdateWindow(Handle());
  const Shot shot = ShotOf(Handle());
  EXPECT_GT(CountOf(shot, BlendColors(0x000000, 0xFFFFFF, kQuietPercent)), 50);
  EXPECT_GT(CountOf(shot, 0xFFFFFF), 50) << "the texts";
}

TEST_F(TreeViewWindowTest, KeysMoveTheSelectionAndOpenBranches) {
  int clicks = 0;
  tree.Click = [&] { ++clicks; };
  tree.Select(tree.FindNode("ROOT"));
  PressKey(VK_DOWN);
  PressKey(VK_DOWN);
  EXPECT_EQ(tree.SelectedItem(), tree.FindNode("VBS"));
  EXPECT_EQ(clicks, 2);
  PressKey(VK_RIGHT);
  EXPECT_TRUE(tree.FindNode("VBS")->Expanded());
  PressKey(VK_LEFT);
  EXPECT_FALSE(tree.FindNode("VBS")->Expanded());
  EXPECT_EQ(clicks, 2);
}

TEST_F(TreeViewWindowTest, ADoubleClickOnANodeMeansThatNode) {
  const TreeNode* meant = nullptr;
  tree.DblClick = [&] { meant = tree.SelectedItem(); };
  const RECT row = RowOf(Item(TVGN_CHILD, Root()));
  DoubleClick({(row.left + row.right) / 2, (row.top + row.bottom) / 2});
  EXPECT_EQ(meant, tree.FindNode("TEXT"));
}

TEST_F(TreeViewWindowTest, ADoubleClickBesideTheNodesMeansNothing) {
  tree.DblClick = [] { FAIL(); };
  tree.Select(tree.FindNode("TEXT"));
  const SIZE client = ClientOf(Handle());
  DoubleClick({client.cx - 5, client.cy - 5});
}

TEST_F(TreeViewWindowTest, EnterDoesWhatADoubleClickDoes) {
  int calls = 0;
  tree.DblClick = [&] { ++calls; };
  tree.Select(tree.FindNode("TEXT"));
  PressKey(VK_RETURN);
  EXPECT_EQ(calls, 1);
  tree.Select(nullptr);
  PressKey(VK_RETURN);
  EXPECT_EQ(calls, 1);
}

TEST_F(TreeViewWindowTest, TheHandlerOfADoubleClickMayChangeTheNodesOrCloseTheWindow) {
  tree.DblClick = [&] {
    tree.Clear();
    tree.AddChild(nullptr, "ALONE", "alone");
  };
  tree.Select(tree.FindNode("TEXT"));
  PressKey(VK_RETURN);
  EXPECT_EQ(Ask(TVM_GETCOUNT), 1);
  tree.DblClick = [&] { tree.form()->Unload(); };
  tree.Select(tree.FindNode("ALONE"));
  PressKey(VK_RETURN);
  EXPECT_TRUE(FormWindow::OpenWindows().empty());
}

TEST_F(TreeViewWindowTest, TheRowsInSightStayWhenNodesCome) {
  tree.FindNode("VBS")->SetExpanded(true);
  Ask(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 30));
  const std::string first = TextOf(Item(TVGN_FIRSTVISIBLE));
  EXPECT_NE(first, "Project Карты");
  tree.AddChild(tree.FindNode("VBS"), "LAST", "last");
  Pump();
  EXPECT_EQ(TextOf(Item(TVGN_FIRSTVISIBLE)), first);
}

TEST_F(TreeViewWindowTest, ATreeThatIsHiddenIsFilledWhenItIsShown) {
  tree.Visible = false;
  tree.Clear();
  tree.AddChild(nullptr, "ALONE", "alone");
  Pump();
  tree.Visible = true;
  EXPECT_EQ(Ask(TVM_GETCOUNT), 1);
}

TEST_F(TreeViewWindowTest, NodesHaveTheirPictures) {
  const RECT row = RowOf(Item(TVGN_CHILD, Root()));
  UpdateWindow(Handle());
  EXPECT_GT(CountPixels(Handle(), {0, row.top, row.left, row.bottom}, Rgb(0, 0xC8, 0)), 200);
  const RECT root = RowOf(Root());
  EXPECT_EQ(CountPixels(Handle(), {0, root.top, root.left, root.bottom}, Rgb(0, 0xC8, 0)), 0);
}

TEST_F(TreeViewWindowTest, ManyNodesAreShownInOnePass) {
  TreeNode& many = tree.AddChild(nullptr, "MANY", "many");
  for (int leaf = 0; leaf < 5000; ++leaf) tree.AddChild(&many, "many" + std::to_string(leaf), "leaf");
  Pump();
  EXPECT_EQ(Ask(TVM_GETCOUNT), kLeaves + 3 + 5001);
}

}  // namespace
}  // namespace kestrun

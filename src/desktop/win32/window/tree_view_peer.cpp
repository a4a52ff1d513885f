// Trees on the system's own control.
#include <cstdlib>
#include <cstring>
#include <optional>
#include <unordered_map>
#include <utility>

#include "base/flag_scope.h"
#include "desktop/win32/drawing/control_parts.h"
#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/peer_kinds.h"
#include "forms/tree_view.h"
// Behind windows.h, which it needs.
#include <uxtheme.h>

namespace kestrun {
namespace {

constexpr int kImageSize = 16;       // at 96 dots per inch
constexpr int kBoxHalf = 4;          // of the box of a branch beside its middle, at 96 dots per inch
constexpr int kQuietSelection = 25;  // percent of the text's colour behind the selected node
constexpr int kLineStrength = 45;    // percent of the text's colour that the lines between the nodes have

constexpr int kVisibleDifference = 30;  // of two colours in one of their channels

bool IsNear(COLORREF one, COLORREF other) {
  const auto differs = [](int first, int second) { return std::abs(first - second) >= kVisibleDifference; };
  return !differs(GetRValue(one), GetRValue(other)) && !differs(GetGValue(one), GetGValue(other)) &&
         !differs(GetBValue(one), GetBValue(other));
}

struct ImageListTraits {
  using Handle = HIMAGELIST;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { ImageList_Destroy(handle); }
};
using ImageListHandle = UniqueHandle<ImageListTraits>;

class TreeViewPeer final : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    CreateWindowOf(
        WC_TREEVIEWW, L"",
        WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_DISABLEDRAGDROP);
    ShowColors();
    ShowImages();
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kSelection: ShowSelection(); break;
      case PropertyId::kChecked: ShowExpanded(); break;
      case PropertyId::kPicture: ShowImages(); break;
      case PropertyId::kVisible:
        if (stale_) Fill();
        WindowedPeer::Update(property);
        break;
      case PropertyId::kFont:
        WindowedPeer::Update(property);
        ShowImages();
        break;
      case PropertyId::kForeColor:
      case PropertyId::kBackColor:
      case PropertyId::kEnabled:
        ShowColors();
        WindowedPeer::Update(property);
        break;
      default: WindowedPeer::Update(property);
    }
  }

  // The system's colours may have changed.
  void Repaint() override {
    ShowColors();
    WindowedPeer::Repaint();
  }

  // Nodes often change many at a time: the system's tree is filled once, in the next pass of the message loop.
  void ListChanged() override {
    if (std::exchange(stale_, true)) return;
    RunLater([](ControlPeer& peer) { static_cast<TreeViewPeer&>(peer).Fill(); });
  }

  bool HandleNotification(NMHDR& notice, LRESULT& result) override {
    if (notice.code == static_cast<UINT>(NM_CUSTOMDRAW)) {
      return FollowDrawing(reinterpret_cast<NMTVCUSTOMDRAW&>(notice), result);
    }
    if (is_filling_) return false;
    switch (notice.code) {
      case static_cast<UINT>(TVN_SELCHANGEDW): TakeSelection(reinterpret_cast<const NMTREEVIEWW&>(notice)); break;
      case static_cast<UINT>(TVN_ITEMEXPANDEDW): TakeExpanded(reinterpret_cast<const NMTREEVIEWW&>(notice)); break;
      case static_cast<UINT>(NM_DBLCLK):
        if (IsMouseOnNode()) PostDblClick();
        break;
      default: break;
    }
    return false;
  }

  // Enter does what a double click does.
  bool TakeKey(int key, int shift_state) override {
    if (key != VK_RETURN || shift_state != 0 || !control().DblClick || !Model().SelectedItem()) return false;
    PostDblClick();
    return true;
  }

  [[nodiscard]] POINT MenuPlace() const override {
    // The system takes the item in the memory that it writes the row's place to.
    RECT row{};
    const LRESULT current = Ask(TVM_GETNEXTITEM, TVGN_CARET, 0);
    std::memcpy(&row, &current, sizeof current);
    const bool has_row = Ask(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&row)) != 0;
    return has_row ? OnScreen({row.left, row.bottom}) : WindowedPeer::MenuPlace();
  }

 protected:
  [[nodiscard]] bool HasOwnName() const override { return false; }
  [[nodiscard]] EdgeKind Edge() const override { return EdgeOf(Model().BorderStyle, Model().Appearance); }

 private:
  [[nodiscard]] TreeView& Model() const { return static_cast<TreeView&>(control()); }
  LRESULT Ask(UINT message, WPARAM first, LPARAM second) const {
    return SendMessageW(window(), message, first, second);
  }

  // A theme draws the marks of the branches in its own light colours.
  void ShowColors() {
    const bool is_plain = HasOwnBackground(control());
    if (std::exchange(is_plain_, is_plain) != is_plain) {
      KESTRUN_LATE(L"uxtheme.dll", SetWindowTheme)(window(), is_plain ? L"" : nullptr, is_plain ? L"" : nullptr);
    }
    const COLORREF text = control().Enabled ? ToColorRef(control().ForeColor) : GetSysColor(COLOR_GRAYTEXT);
    const COLORREF background = ToColorRef(control().BackColor);
    Ask(TVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(text));
    Ask(TVM_SETBKCOLOR, 0, static_cast<LPARAM>(background));
    Ask(TVM_SETLINECOLOR, 0, static_cast<LPARAM>(BlendColors(background, text, kLineStrength)));
  }

  // Without a theme the system fills the boxes of the branches with white: they are drawn over behind it.
  bool FollowDrawing(NMTVCUSTOMDRAW& draw, LRESULT& result) {
    switch (draw.nmcd.dwDrawStage) {
      case CDDS_PREPAINT: result = CDRF_NOTIFYITEMDRAW; return true;
      case CDDS_ITEMPREPAINT:
        ChooseColors(draw);
        result = is_plain_ ? CDRF_NOTIFYPOSTPAINT : CDRF_DODEFAULT;
        return true;
      case CDDS_ITEMPOSTPAINT: DrawBox(draw.nmcd.hdc, reinterpret_cast<HTREEITEM>(draw.nmcd.dwItemSpec)); return true;
      default: return false;
    }
  }

  // While the keys go elsewhere the system marks the selected node in a light colour of its own. In high contrast, and
  // nearly so in others of its colours, that is the colour of the tree itself.
  void ChooseColors(NMTVCUSTOMDRAW& draw) const {
    if ((draw.nmcd.uItemState & CDIS_SELECTED) == 0 || GetFocus() == window()) return;
    const COLORREF quiet = GetSysColor(COLOR_BTNFACE);
    if (!is_plain_ && !IsNear(quiet, ToColorRef(control().BackColor))) return;
    draw.clrText = ToColorRef(control().ForeColor);
    draw.clrTextBk = BlendColors(ToColorRef(control().BackColor), draw.clrText, kQuietSelection);
  }

  // The box of a branch, with a minus where the branch is open and a plus where it is not.
  void DrawBox(HDC target, HTREEITEM item) {
    const std::optional<POINT> middle = MiddleOfBox(item);
    if (!middle) return;
    const ScreenScale scale = form().scale();
    const int line = scale.LineWidth();
    const int half = MulDiv(kBoxHalf, scale.dpi(), USER_DEFAULT_SCREEN_DPI);
    const int arm = half / 2;
    const PartColors colors = PartColorsOf(control().BackColor, control().ForeColor, {control().Enabled});
    const RECT box{middle->x - half, middle->y - half, middle->x + half + 1, middle->y + half + 1};
    FillColor(target, box, control().BackColor);
    DrawLineEdge(target, box, line, colors.line);
    const int from = line / 2;
    const auto bar = [&](int across, int down) {
      const LONG left = middle->x - across - from;
      const LONG top = middle->y - down - from;
      FillColor(target, {left, top, left + 2 * across + line, top + 2 * down + line}, colors.mark);
    };
    bar(arm, 0);
    if (!IsOpen(item)) bar(0, arm);
  }

  // Nothing for a node without children. Where the box stands only the system knows: it is asked along the row.
  [[nodiscard]] std::optional<POINT> MiddleOfBox(HTREEITEM item) const {
    if (!Ask(TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(item))) return std::nullopt;
    RECT row{};
    std::memcpy(&row, &item, sizeof item);
    if (!Ask(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&row))) return std::nullopt;
    TVHITTESTINFO hit{};
    hit.pt.y = (row.top + row.bottom - 1) / 2;
    int found = 0;
    LONG sum = 0;
    for (hit.pt.x = 0; hit.pt.x < row.left; ++hit.pt.x) {
      Ask(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
      if ((hit.flags & TVHT_ONITEMBUTTON) == 0) continue;
      ++found;
      sum += hit.pt.x;
    }
    if (found == 0) return std::nullopt;
    return POINT{sum / found, hit.pt.y};
  }

  [[nodiscard]] bool IsOpen(HTREEITEM item) const {
    return (Ask(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
  }

  void ShowImages() {
    ImageListHandle made;
    if (const ImageList* images = Model().Images()) {
      const int size = MulDiv(kImageSize, form().Dpi(), USER_DEFAULT_SCREEN_DPI);
      made.Reset(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, images->ImageCount(), 1));
      for (int number = 1; number <= images->ImageCount(); ++number) {
        const IconHandle icon = MakeIcon(*images->Image(number), size);
        ImageList_ReplaceIcon(made.get(), -1, icon.get());
      }
    }
    Ask(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(made.get()));
    images_ = std::move(made);
    Fill();
  }

  void Fill() {
    stale_ = !Model().Visible;
    if (stale_) return;
    const auto top = static_cast<int>(GetScrollPos(window(), SB_VERT));
    {
      const FlagScope filling(is_filling_);
      Ask(WM_SETREDRAW, FALSE, 0);
      Ask(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
      items_.clear();
      shown_ = Model().nodes();
      for (TreeNode* root : Model().roots()) Insert(*root, TVI_ROOT);
      Ask(WM_SETREDRAW, TRUE, 0);
    }
    ShowSelection();
    ScrollTo(top);
    WindowedPeer::Repaint();
  }

  void Insert(TreeNode& node, HTREEITEM parent) {
    std::wstring text = ToWide(node.Text());
    const int image = Model().Images() ? Model().Images()->NumberOf(node.Image()) - 1 : -1;
    TVINSERTSTRUCTW row{};
    row.hParent = parent;
    row.hInsertAfter = TVI_LAST;
    row.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    row.item.pszText = text.data();
    row.item.lParam = reinterpret_cast<LPARAM>(&node);
    row.item.iImage = image < 0 ? I_IMAGENONE : image;
    row.item.iSelectedImage = row.item.iImage;
    const auto item = reinterpret_cast<HTREEITEM>(Ask(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&row)));
    items_[&node] = item;
    for (TreeNode* child : node.children()) Insert(*child, item);
    if (node.Expanded()) Ask(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
  }

  // The row that stood at the top before, as far as there are as many.
  void ScrollTo(int top) {
    if (top > 0) Ask(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, top), 0);
  }

  void ShowSelection() {
    const FlagScope filling(is_filling_);
    const auto found = items_.find(Model().SelectedItem());
    const HTREEITEM item = found == items_.end() ? nullptr : found->second;
    Ask(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
  }

  void ShowExpanded() {
    if (stale_) return;
    const FlagScope filling(is_filling_);
    for (const auto& [node, item] : items_) {
      const bool is_open = IsOpen(item);
      if (node->Expanded() == is_open || node->Children() == 0) continue;
      Ask(TVM_EXPAND, is_open ? TVE_COLLAPSE : TVE_EXPAND, reinterpret_cast<LPARAM>(item));
    }
  }

  // Null for a node that the model has no longer.
  [[nodiscard]] Ref<TreeNode> NodeOf(const TVITEMW& item) const {
    auto* node = reinterpret_cast<TreeNode*>(item.lParam);
    return item.hItem && node && node->tree() == &Model() ? Ref<TreeNode>(node) : Ref<TreeNode>();
  }

  void TakeSelection(const NMTREEVIEWW& notice) {
    const Ref<TreeNode> node = NodeOf(notice.itemNew);
    if (!node || node->Selected()) return;
    Dispatch([&] {
      Model().Select(node.get());
      control().Click();
    });
  }

  void TakeExpanded(const NMTREEVIEWW& notice) {
    const Ref<TreeNode> node = NodeOf(notice.itemNew);
    if (node) Dispatch([&] { node->SetExpanded(notice.action == TVE_EXPAND); });
  }

  [[nodiscard]] bool IsMouseOnNode() const {
    const DWORD place = GetMessagePos();
    TVHITTESTINFO hit{};
    hit.pt = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    ScreenToClient(window(), &hit.pt);
    Ask(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return (hit.flags & TVHT_ONITEM) != 0;
  }

  // The handler may change the nodes, or run for as long as another window is open: not inside of the system's own
  // handling of the click.
  void PostDblClick() {
    RunLater([](ControlPeer& peer) {
      auto& tree = static_cast<TreeViewPeer&>(peer);
      tree.Dispatch([&] { tree.control().DblClick(); });
    });
  }

  ImageListHandle images_;
  std::vector<Ref<TreeNode>> shown_;  // keeps the nodes that the system's rows lead to
  std::unordered_map<const TreeNode*, HTREEITEM> items_;
  bool stale_ = false;
  bool is_filling_ = false;
  bool is_plain_ = false;
};

}  // namespace

std::unique_ptr<ControlPeer> MakeTreeViewPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<TreeViewPeer>(form, control);
}

}  // namespace kestrun

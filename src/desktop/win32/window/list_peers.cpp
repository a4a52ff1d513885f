// List boxes on the system's own control.
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/peer_kinds.h"
#include "forms/file_list_box.h"
#include "forms/list_box.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

// Both list kinds: rows, a current row, and for one of them several chosen rows.
template <class List>
class ListPeer : public WindowedPeer {
 public:
  using WindowedPeer::WindowedPeer;

  void Create() override {
    CreateWindowOf(L"LISTBOX", L"", WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | ChoiceStyle());
    Fill();
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kListIndex:
      case PropertyId::kSelection: ShowChoice(); break;
      case PropertyId::kPattern: ListChanged(); break;
      case PropertyId::kVisible:
        if (stale_) Fill();
        WindowedPeer::Update(property);
        break;
      default: WindowedPeer::Update(property);
    }
  }

  // Rows often change many at a time: the system's list is filled once, in the next pass of the message loop. A list
  // that nobody sees is filled when it is shown.
  void ListChanged() override {
    if (stale_) return;
    stale_ = true;
    platform().clock().Post(
        [keep = std::weak_ptr<FormWindow>(form().shared_from_this()), control = Ref<Control>(&control())] {
          const auto form = keep.lock();
          ControlPeer* peer = form && form->is_open() ? form->PeerOf(*control) : nullptr;
          if (peer) static_cast<ListPeer*>(peer)->Fill();
        });
  }

  void Notify(int code) override {
    if (code == LBN_DBLCLK) Dispatch([&] { control().DblClick(); });
    if (code == LBN_SELCHANGE) TakeChoice();
  }

  [[nodiscard]] POINT MenuPlace() const override {
    RECT row{};
    const auto at = static_cast<WPARAM>(SendMessageW(window(), LB_GETCURSEL, 0, 0));
    const bool has_row = SendMessageW(window(), LB_GETITEMRECT, at, reinterpret_cast<LPARAM>(&row)) != LB_ERR;
    return has_row ? OnScreen({row.left, row.bottom}) : WindowedPeer::MenuPlace();
  }

 protected:
  [[nodiscard]] bool HasOwnName() const override { return false; }
  [[nodiscard]] EdgeKind Edge() const override { return EdgeOf(1, Model().Appearance); }
  [[nodiscard]] List& Model() const { return static_cast<List&>(control()); }
  [[nodiscard]] virtual DWORD ChoiceStyle() const { return 0; }
  virtual void ShowChoice() { SendMessageW(window(), LB_SETCURSEL, static_cast<WPARAM>(Model().ListIndex.get()), 0); }
  virtual void TakeMarks() {}

 private:
  void Fill() {
    stale_ = !Model().Visible;
    if (stale_) return;
    const auto top = SendMessageW(window(), LB_GETTOPINDEX, 0, 0);
    SendMessageW(window(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(window(), LB_RESETCONTENT, 0, 0);
    const int count = Model().ListCount();
    for (int row = 0; row < count; ++row) {
      SendMessageW(window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(Model().List(row)).c_str()));
    }
    SendMessageW(window(), LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
    ShowChoice();
    SendMessageW(window(), WM_SETREDRAW, TRUE, 0);
    Repaint();
  }

  void TakeChoice() {
    const int row = static_cast<int>(SendMessageW(window(), LB_GETCURSEL, 0, 0));
    Dispatch([&] {
      TakeMarks();
      if (Model().ListIndex == row) {
        control().Click();
      } else {
        Model().ListIndex = row;
      }
    });
  }

  bool stale_ = false;
};

class PlainListPeer final : public ListPeer<ListBox> {
 public:
  using ListPeer::ListPeer;

  void Create() override {
    ListPeer::Create();
    ShowExtent();
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kScrollBars: ShowExtent(); break;
      case PropertyId::kMultiSelect: CreateAgain(); break;
      default: ListPeer::Update(property);
    }
  }

 protected:
  // The scroll bar below shows only while the extent is wider than the list.
  [[nodiscard]] DWORD ChoiceStyle() const override {
    return WS_HSCROLL | (Model().MultiSelect == 1 ? LBS_MULTIPLESEL : Model().MultiSelect == 2 ? LBS_EXTENDEDSEL : 0);
  }
  void ShowChoice() override {
    if (Model().MultiSelect == 0) {
      ListPeer::ShowChoice();
      return;
    }
    for (int row = 0; row < Model().ListCount(); ++row) SendMessageW(window(), LB_SETSEL, Model().Selected(row), row);
  }
  void ShowExtent() {
    SendMessageW(window(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(Model().HorizontalExtent.get()), 0);
  }
  void TakeMarks() override {
    if (Model().MultiSelect == 0) return;
    for (int row = 0; row < Model().ListCount(); ++row) {
      const bool marked = SendMessageW(window(), LB_GETSEL, static_cast<WPARAM>(row), 0) > 0;
      if (marked != Model().Selected(row)) Model().SetSelected(row, marked);
    }
  }
};

class FileListPeer final : public ListPeer<FileListBox> {
 public:
  using ListPeer::ListPeer;
};

}  // namespace

std::unique_ptr<ControlPeer> MakeListBoxPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<PlainListPeer>(form, control);
}

std::unique_ptr<ControlPeer> MakeFileListBoxPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<FileListPeer>(form, control);
}

}  // namespace kestrun

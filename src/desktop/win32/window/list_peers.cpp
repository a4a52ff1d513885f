// List boxes on the system's own control.
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/peer_kinds.h"
#include "desktop/win32/window/reader_name.h"
#include "desktop/win32/window/row_notes.h"
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
    const DWORD several = Model().MultiSelect == 1 ? LBS_MULTIPLESEL : Model().MultiSelect == 2 ? LBS_EXTENDEDSEL : 0;
    CreateWindowOf(L"LISTBOX", L"",
                   WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | several | MoreStyle());
    Fill();
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kListIndex:
      case PropertyId::kSelection: ChoiceChanged(); break;
      case PropertyId::kMultiSelect: CreateAgain(); break;
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
    if (std::exchange(stale_, true)) return;
    RunLater([](ControlPeer& peer) { static_cast<ListPeer&>(peer).Fill(); });
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
  [[nodiscard]] virtual DWORD MoreStyle() const { return 0; }
  [[nodiscard]] virtual std::string RowText(int row) const { return Model().List(row); }
  // The system's list has the model's rows.
  virtual void Filled() {}

 private:
  // A choice of several rows is shown at once for all rows that it changes.
  void ChoiceChanged() {
    if (Model().MultiSelect == 0) {
      ShowChoice();
    } else if (!std::exchange(choice_stale_, true)) {
      RunLater([](ControlPeer& peer) { static_cast<ListPeer&>(peer).ShowChoice(); });
    }
  }

  void ShowChoice() {
    choice_stale_ = false;
    const int current = Model().ListIndex;
    if (Model().MultiSelect == 0) {
      SendMessageW(window(), LB_SETCURSEL, static_cast<WPARAM>(current), 0);
      return;
    }
    const auto top = static_cast<WPARAM>(SendMessageW(window(), LB_GETTOPINDEX, 0, 0));
    for (int row = 0; row < Model().ListCount(); ++row) {
      if (IsMarked(row) != Model().Selected(row)) row = ShowChoiceFrom(row);
    }
    if (SendMessageW(window(), LB_GETTOPINDEX, 0, 0) != static_cast<LRESULT>(top)) {
      SendMessageW(window(), LB_SETTOPINDEX, top, 0);
    }
    const bool has_moved = current >= 0 && SendMessageW(window(), LB_GETCARETINDEX, 0, 0) != current;
    if (has_moved) SendMessageW(window(), LB_SETCARETINDEX, static_cast<WPARAM>(current), FALSE);
  }

  // Chooses or frees that row and those behind it that change in the same way, in one step: each single one would make
  // the list scroll to it. Gives the last of them.
  int ShowChoiceFrom(int first) {
    const bool is_chosen = Model().Selected(first);
    int last = first;
    const auto changes = [&](int row) {
      return row < Model().ListCount() && Model().Selected(row) == is_chosen && IsMarked(row) != is_chosen;
    };
    while (changes(last + 1)) ++last;
    if (last == first) {
      SendMessageW(window(), LB_SETSEL, is_chosen, first);
    } else {
      SendMessageW(window(), LB_SELITEMRANGEEX, static_cast<WPARAM>(is_chosen ? first : last),
                   is_chosen ? last : first);
    }
    return last;
  }

  [[nodiscard]] bool IsMarked(int row) const {
    return SendMessageW(window(), LB_GETSEL, static_cast<WPARAM>(row), 0) > 0;
  }

  void TakeMarks() {
    if (Model().MultiSelect == 0) return;
    for (int row = 0; row < Model().ListCount(); ++row) {
      if (const bool marked = IsMarked(row); marked != Model().Selected(row)) Model().SetSelected(row, marked);
    }
  }

  void Fill() {
    stale_ = !Model().Visible;
    if (stale_) return;
    const auto top = SendMessageW(window(), LB_GETTOPINDEX, 0, 0);
    SendMessageW(window(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(window(), LB_RESETCONTENT, 0, 0);
    const int count = Model().ListCount();
    for (int row = 0; row < count; ++row) {
      SendMessageW(window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(ToWide(RowText(row)).c_str()));
    }
    SendMessageW(window(), LB_SETTOPINDEX, static_cast<WPARAM>(top), 0);
    ShowChoice();
    SendMessageW(window(), WM_SETREDRAW, TRUE, 0);
    Repaint();
    Filled();
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
  bool choice_stale_ = false;
};

// A list whose rows have more than a text is drawn by the program, in the colours of the list.
template <class List>
class DrawnListPeer : public ListPeer<List> {
  using Base = ListPeer<List>;

 public:
  using Base::Base;

  void Create() override {
    Base::Create();
    FitRows();
  }

  void Update(PropertyId property) override {
    Base::Update(property);
    if (property == PropertyId::kFont) FitRows();
  }

  bool DrawItem(const DRAWITEMSTRUCT& item) override {
    const bool is_chosen = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem,
             is_chosen ? GetSysColorBrush(COLOR_HIGHLIGHT) : this->form().BrushFor(this->Model().BackColor));
    const int row = static_cast<int>(item.itemID);
    if (row >= 0 && row < this->Model().ListCount()) DrawRow(item.hDC, item.rcItem, row, TextColor(is_chosen));
    if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(item.hDC, &item.rcItem);
    return true;
  }

 protected:
  [[nodiscard]] virtual bool IsDrawn() const = 0;
  virtual void DrawRow(HDC target, RECT place, int row, COLORREF color) = 0;
  [[nodiscard]] DWORD MoreStyle() const override { return IsDrawn() ? LBS_OWNERDRAWFIXED | LBS_HASSTRINGS : 0; }

  void DrawRowText(HDC target, RECT place, const std::string& text, COLORREF color, UINT way) const {
    const std::wstring wide = ToWide(text);
    const int state = SaveDC(target);
    SelectObject(target, this->form().FontFor(this->Model().Font));
    SetBkMode(target, TRANSPARENT);
    SetTextColor(target, color);
    DrawTextW(target, wide.data(), static_cast<int>(wide.size()), &place,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | way);
    RestoreDC(target, state);
  }

 private:
  [[nodiscard]] COLORREF TextColor(bool is_chosen) const {
    if (!this->Model().Enabled) return GetSysColor(COLOR_GRAYTEXT);
    return is_chosen ? GetSysColor(COLOR_HIGHLIGHTTEXT) : ToColorRef(this->Model().ForeColor);
  }

  // The system asks for the height of a row before the list is there to tell its font.
  void FitRows() {
    if (!IsDrawn()) return;
    const int height = platform().windowing().MeasureText("Ay", this->Model().Font, this->form().Dpi()).height;
    SendMessageW(this->window(), LB_SETITEMHEIGHT, 0, height);
  }
};

// The mark of a row, and its badge, stand in a margin in front of the rows, in the colour of their text, so that they
// can be seen in every colour scheme.
class PlainListPeer final : public DrawnListPeer<ListBox> {
 public:
  using DrawnListPeer::DrawnListPeer;

  void Create() override {
    DrawnListPeer::Create();
    ShowExtent();
  }

  void Update(PropertyId property) override {
    switch (property) {
      case PropertyId::kScrollBars: ShowExtent(); break;
      case PropertyId::kStyle:
        TellNotes();
        Repaint();
        break;
      case PropertyId::kFont:
        DrawnListPeer::Update(property);
        ShowExtent();
        break;
      default: DrawnListPeer::Update(property);
    }
  }

  // What badges say may have changed, as with another mission: the rows in sight are asked when they are painted, and
  // those out of sight when they come into sight again.
  void Repaint() override {
    DrawnListPeer::Repaint();
    const auto first = static_cast<int>(SendMessageW(window(), LB_GETTOPINDEX, 0, 0));
    RECT client{};
    GetClientRect(window(), &client);
    const int rows = static_cast<int>(client.bottom) / std::max(RowHeight(), 1);
    if (notes_.ForgetOutside(first, first + rows)) TellNotesLater();
  }

 protected:
  // The scroll bar below shows only while the extent is wider than the list.
  [[nodiscard]] DWORD MoreStyle() const override { return WS_HSCROLL | DrawnListPeer::MoreStyle(); }
  // What the notes told are of rows that are elsewhere now.
  void Filled() override {
    notes_.Forget();
    TellNotes();
  }
  [[nodiscard]] bool IsDrawn() const override { return HasMarks() || HasBadges(); }

  void DrawRow(HDC target, RECT place, int row, COLORREF color) override {
    const int margin = MarkMargin();
    if (row == Model().MarkedRow()) DrawMark(target, place, margin, color);
    place.left += margin;
    if (HasBadges()) {
      DrawBadge(target, place, row, color);
      place.left += BadgeMargin();
    }
    DrawRowText(target, place, Model().List(row), color, DT_NOCLIP);
  }

 private:
  [[nodiscard]] bool HasMarks() const { return !Model().MarkMeaning.get().empty(); }
  [[nodiscard]] bool HasBadges() const { return static_cast<bool>(Model().Badges.of_row); }
  [[nodiscard]] int Scaled(int pixels) const { return MulDiv(pixels, form().Dpi(), USER_DEFAULT_SCREEN_DPI); }
  [[nodiscard]] int Margin() const { return MarkMargin() + BadgeMargin(); }
  [[nodiscard]] int MarkMargin() const { return HasMarks() ? RowHeight() : 0; }
  [[nodiscard]] int BadgeMargin() const {
    if (!HasBadges()) return 0;
    const int word = platform().windowing().MeasureText(Model().Badges.widest_word, Model().Font, form().Dpi()).width;
    return Scaled(RowBadges::kPictureSide + 3 * RowBadges::kGap) + word;
  }

  void DrawBadge(HDC target, RECT place, int row, COLORREF color) {
    const RowBadge badge = Model().Badges.of_row(row);
    NoteBadge(row, badge);
    if (badge.word.empty()) return;
    const int side = std::min(Scaled(RowBadges::kPictureSide), RowHeight());
    const int left = place.left + Scaled(RowBadges::kGap);
    const int top = (place.top + place.bottom - side) / 2;
    if (badge.picture) DrawPictureTo(target, *badge.picture, {left, top, left + side, top + side});
    place.left = left + side + Scaled(RowBadges::kGap);
    DrawRowText(target, place, badge.word, color, DT_NOCLIP);
  }

  // Screen readers hear of it in the next pass of the message loop: painting is not held up.
  void NoteBadge(int row, const RowBadge& badge) {
    std::string note = badge.word;
    if (!badge.note.empty()) note += ", " + badge.note;
    if (notes_.Note(row, note)) TellNotesLater();
  }
  void TellNotesLater() {
    if (std::exchange(notes_stale_, true)) return;
    RunLater([](ControlPeer& peer) { static_cast<PlainListPeer&>(peer).TellNotes(); });
  }
  [[nodiscard]] int RowHeight() const { return static_cast<int>(SendMessageW(window(), LB_GETITEMHEIGHT, 0, 0)); }

  // A triangle that points at the row.
  static void DrawMark(HDC target, const RECT& place, int margin, COLORREF color) {
    const int state = SaveDC(target);
    SelectObject(target, GetStockObject(DC_BRUSH));
    SelectObject(target, GetStockObject(DC_PEN));
    SetDCBrushColor(target, color);
    SetDCPenColor(target, color);
    const int middle = (place.top + place.bottom) / 2;
    const int half = margin / 4;
    const std::array<POINT, 3> points{{{place.left + half, middle - half},
                                       {place.left + 2 * half + half / 2, middle},
                                       {place.left + half, middle + half}}};
    Polygon(target, points.data(), static_cast<int>(points.size()));
    RestoreDC(target, state);
  }

  // To screen readers: the mark of the one row, and the badges of those that were shown.
  void TellNotes() {
    notes_stale_ = false;
    notes_.Tell(Model().MarkedRow(), Model().MarkMeaning);
  }

  void ShowExtent() {
    const int extent = Model().HorizontalExtent;
    SendMessageW(window(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent > 0 ? extent + Margin() : 0), 0);
  }

  RowNotes notes_{[this](int row, const std::string& note) { TellReadersRowNote(window(), row, note); }};
  bool notes_stale_ = false;
};

// Columns stand behind the names where the list has some.
class FileListPeer final : public DrawnListPeer<FileListBox> {
 public:
  using DrawnListPeer::DrawnListPeer;

 protected:
  [[nodiscard]] bool IsDrawn() const override { return !Model().ColumnLefts.empty() && Model().ColumnTexts; }

  // What a screen reader hears of the row.
  [[nodiscard]] std::string RowText(int row) const override {
    std::string text = Model().List(row);
    if (!IsDrawn()) return text;
    for (const std::string& column : Model().ColumnTexts(text)) text += ", " + column;
    return text;
  }

  void DrawRow(HDC target, RECT place, int row, COLORREF color) override {
    const std::string name = Model().List(row);
    const std::vector<std::string> texts = Model().ColumnTexts(name);
    const RECT whole = place;
    place.left += Pixels(kEdge);
    for (size_t column = 0; column <= texts.size(); ++column) {
      const bool is_last = column >= Model().ColumnLefts.size();
      place.right = is_last ? whole.right : whole.left + Pixels(Model().ColumnLefts[column]);
      DrawRowText(target, place, column == 0 ? name : texts[column - 1], color, DT_END_ELLIPSIS);
      place.left = place.right;
      if (is_last) return;
    }
  }

 private:
  static constexpr int kEdge = 30;  // twips in front of the names, as the system's own rows have it

  [[nodiscard]] int Pixels(int twips) const { return form().scale().Pixels(twips); }
};

}  // namespace

std::unique_ptr<ControlPeer> MakeListBoxPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<PlainListPeer>(form, control);
}

std::unique_ptr<ControlPeer> MakeFileListBoxPeer(FormWindow& form, Control& control) {
  return MakePeerOfKind<FileListPeer>(form, control);
}

}  // namespace kestrun

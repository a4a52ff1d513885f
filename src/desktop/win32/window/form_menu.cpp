#include "desktop/win32/window/form_menu.h"

#include <algorithm>

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

constexpr int kFirstCommand = 1000;

}  // namespace

void FormMenu::Build(HWND window) {
  bitmaps_.clear();
  for (Ref<MenuItem>& item : commands_) {
    if (item && !item->form()) item.Reset();
  }
  if (!form_.HasMenu()) {
    if (menu_.IsValid()) SetMenu(window, nullptr);
    menu_.Reset();
    return;
  }
  MenuHandle built(CreateMenu());
  Fill(built.get(), form_.TopMenus());
  SetMenu(window, built.get());
  menu_ = std::move(built);
  if (IsWindowVisible(window)) DrawMenuBar(window);
}

// With the background of all its submenus.
void FormMenu::Fill(HMENU menu, const std::vector<MenuItem*>& items) {
  colors_ = MenuColorsOf(form_);
  AddItems(menu, items);
  if (!colors_) return;
  // The bar goes on using the brush while a menu pops up.
  if (!background_.IsValid() || background_color_ != colors_->background) {
    background_.Reset(CreateSolidBrush(colors_->background));
    background_color_ = colors_->background;
  }
  MENUINFO info{};
  info.cbSize = sizeof info;
  info.fMask = MIM_BACKGROUND | MIM_APPLYTOSUBMENUS;
  info.hbrBack = background_.get();
  SetMenuInfo(menu, &info);
}

void FormMenu::AddItems(HMENU menu, const std::vector<MenuItem*>& items) {
  const bool has_pictures =
      std::any_of(items.begin(), items.end(), [](const MenuItem* item) { return item->Picture.get() != nullptr; });
  for (MenuItem* item : items) {
    if (!item->Visible) continue;
    if (item->Caption.get() == "-") {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
      DrawByProgram(menu, 0);
    } else {
      AddItem(menu, *item, has_pictures);
    }
  }
}

void FormMenu::AddItem(HMENU menu, MenuItem& item, bool has_picture_column) {
  std::wstring text = ToWide(item.Caption.get());
  // Wine forgets the column of the others' pictures in the width of an item that has none.
  if (IsWine() && !colors_ && has_picture_column && !item.Picture.get()) text += L"      ";
  const std::string& key = item.Shortcut->empty() ? item.KeyHint.get() : item.Shortcut.get();
  if (!key.empty()) text += L"\t" + ToWide(key);
  const std::vector<MenuItem*> children = item.Items();
  const UINT state = (item.Enabled ? MF_ENABLED : MF_GRAYED) | (item.Checked ? MF_CHECKED : MF_UNCHECKED);
  const UINT_PTR command = CommandOf(item);
  if (children.empty()) {
    AppendMenuW(menu, MF_STRING | state, command, text.c_str());
  } else {
    const HMENU submenu = CreatePopupMenu();  // destroyed with the menu that holds it
    AddItems(submenu, children);
    AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(submenu), text.c_str());
  }
  if (colors_) {
    DrawByProgram(menu, command);
  } else if (const Picture* picture = item.Picture.get().get()) {
    AddPicture(menu, *picture);
  }
}

// The item that was added last. It keeps its text, for its access key and for screen readers.
void FormMenu::DrawByProgram(HMENU menu, UINT_PTR command) const {
  if (!colors_) return;
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_FTYPE | MIIM_ID;
  info.fType = MFT_OWNERDRAW | (command == 0 ? MFT_SEPARATOR : 0U);
  info.wID = static_cast<UINT>(command);
  SetMenuItemInfoW(menu, static_cast<UINT>(GetMenuItemCount(menu) - 1), TRUE, &info);
}

// To the item that was added last.
void FormMenu::AddPicture(HMENU menu, const Picture& picture) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_BITMAP;
  info.hbmpItem = HBMMENU_CALLBACK;
  if (!IsWine()) {
    bitmaps_.push_back(MakeMenuBitmap(picture, GetSystemMetrics(SM_CXMENUCHECK)));
    info.hbmpItem = bitmaps_.back().get();
  }
  SetMenuItemInfoW(menu, static_cast<UINT>(GetMenuItemCount(menu) - 1), TRUE, &info);
}

// Wine lays a menu's bitmaps over its rows as they are, edges and all, and asks for the pictures of these items
// instead.
void FormMenu::Measure(MEASUREITEMSTRUCT& item) const {
  if (colors_) return MeasureMenuItem(ItemOf(static_cast<int>(item.itemID)).get(), item);
  const int size = GetSystemMetrics(SM_CXMENUCHECK);
  item.itemWidth = static_cast<UINT>(size + size / 3);
  item.itemHeight = static_cast<UINT>(size);
}

void FormMenu::Draw(const DRAWITEMSTRUCT& item) const {
  const Ref<MenuItem> of = ItemOf(static_cast<int>(item.itemID));
  if (colors_) return DrawMenuItem(of.get(), reinterpret_cast<HMENU>(item.hwndItem) == menu_.get(), *colors_, item);
  const Picture* picture = of ? of->Picture.get().get() : nullptr;
  if (!picture) return;
  const int size = GetSystemMetrics(SM_CXMENUCHECK);
  const int top = (item.rcItem.top + item.rcItem.bottom - size) / 2;
  DrawPictureTo(item.hDC, *picture, {item.rcItem.left, top, item.rcItem.left + size, top + size});
}

// The same number each time the bar is built: a command that is under way means the item that was chosen.
UINT_PTR FormMenu::CommandOf(MenuItem& item) {
  const auto found = std::find(commands_.begin(), commands_.end(), Ref<MenuItem>(&item));
  const auto at = static_cast<size_t>(found - commands_.begin());
  if (found == commands_.end()) commands_.emplace_back(&item);
  return kFirstCommand + at;
}

Ref<MenuItem> FormMenu::ItemOf(int command) const {
  const int at = command - kFirstCommand;
  if (at < 0 || at >= static_cast<int>(commands_.size())) return {};
  return commands_[static_cast<size_t>(at)];
}

Ref<MenuItem> FormMenu::PopUp(MenuItem& item, HWND window, POINT place) {
  const MenuHandle popup(CreatePopupMenu());
  Fill(popup.get(), item.Items());
  return ItemOf(TrackPopupMenu(popup.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0, window, nullptr));
}

}  // namespace kestrun

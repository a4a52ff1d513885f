#include "desktop/win32/window/keyboard.h"

#include <algorithm>

#include "base/convert.h"
#include "base/text.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "forms/check_box.h"
#include "forms/command_button.h"
#include "forms/composite_control.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/option_button.h"
#include "forms/text_box.h"

namespace kestrun {
namespace {

Control* FocusedControl(const FormWindow& form_window) {
  const ControlPeer* peer = form_window.PeerOf(GetFocus());
  return peer ? &peer->control() : nullptr;
}

// One option button stands for its group in the tab order: the one that is on, or the first when none is.
bool StandsForGroup(const Form& form, const OptionButton& option) {
  if (option.Value) return true;
  const OptionButton* first = nullptr;
  for (const Ref<Control>& control : form.controls()) {
    const auto* other = dynamic_cast<const OptionButton*>(control.get());
    if (!other || other->Container() != option.Container() || !other->IsUsable()) continue;
    if (other->Value) return false;
    if (!first || other->TabIndex < first->TabIndex) first = other;
  }
  return first == &option;
}

std::vector<Control*> TabStops(const FormWindow& form_window) {
  const Form& form = form_window.form();
  std::vector<Control*> stops = form.TabOrder();
  std::erase_if(stops, [&](const Control* control) {
    const auto* option = dynamic_cast<const OptionButton*>(control);
    const ControlPeer* peer = form_window.PeerOf(*control);
    return (option && !StandsForGroup(form, *option)) || !peer || !peer->window();
  });
  return stops;
}

void MoveFocus(FormWindow& form_window, int step) {
  const std::vector<Control*> stops = TabStops(form_window);
  if (stops.empty()) return;
  const auto at = std::find(stops.begin(), stops.end(), FocusedControl(form_window));
  const auto count = static_cast<int>(stops.size());
  const int present = at == stops.end() ? (step > 0 ? -1 : 0) : static_cast<int>(at - stops.begin());
  Control& next = *stops[static_cast<size_t>((present + step + count) % count)];
  form_window.SetFocus(next);
  const ControlPeer* peer = form_window.PeerOf(next);
  if (dynamic_cast<TextBox*>(&next) && peer) SendMessageW(peer->window(), EM_SETSEL, 0, -1);
}

void MoveInGroup(FormWindow& form_window, OptionButton& option, int step) {
  std::vector<OptionButton*> group;
  for (const Ref<Control>& control : form_window.form().controls()) {
    auto* other = dynamic_cast<OptionButton*>(control.get());
    if (other && other->Container() == option.Container() && other->IsUsable()) group.push_back(other);
  }
  std::stable_sort(group.begin(), group.end(), [](const OptionButton* left, const OptionButton* right) {
    return left->TabIndex < right->TabIndex;
  });
  const auto count = static_cast<int>(group.size());
  const auto at = static_cast<int>(std::find(group.begin(), group.end(), &option) - group.begin());
  OptionButton& next = *group[static_cast<size_t>((at + step + count) % count)];
  form_window.SetFocus(next);
  static_cast<void>(next.Press());
}

CommandButton* FindButton(const Form& form, Property<bool> CommandButton::*role) {
  for (const Ref<Control>& control : form.controls()) {
    auto* button = dynamic_cast<CommandButton*>(control.get());
    if (button && (button->*role).get() && button->IsUsable()) return button;
  }
  return nullptr;
}

// True when the control is a label that answers clicks; it has had one then.
bool ClickLink(Form& form, Control* control) {
  const Ref<Label> link(dynamic_cast<Label*>(control));
  if (!link || !link->TakesFocus() || !link->IsUsable()) return false;
  DispatchEvent(&form, [&] { link->Click(); });
  return true;
}

bool PressEnter(FormWindow& form_window, Control* focused) {
  const auto* box = dynamic_cast<TextBox*>(focused);
  if (box && box->MultiLine) return false;
  if (ClickLink(form_window.form(), focused)) return true;
  auto* button = dynamic_cast<CommandButton*>(focused);
  if (!button) button = FindButton(form_window.form(), &CommandButton::Default);
  return button && button->Press();
}

// "Ctrl+R", "F5", "Shift+Del" against a pressed key.
bool IsShortcut(std::string_view shortcut, int key, int shift_state) {
  int wanted_shift = 0;
  std::string name = ToLower(shortcut);
  const auto take = [&](std::string_view prefix, int bit) {
    if (!name.starts_with(prefix)) return;
    name.erase(0, prefix.size());
    wanted_shift |= bit;
  };
  take("ctrl+", shift::kCtrl);
  take("shift+", shift::kShift);
  int wanted = 0;
  if (name == "del") wanted = VK_DELETE;
  if (name.size() == 1) wanted = static_cast<unsigned char>(ToUpper(name)[0]);
  if (name.size() > 1 && name[0] == 'f') wanted = VK_F1 - 1 + static_cast<int>(LeadingNumber(name.substr(1)));
  return wanted != 0 && wanted == key && wanted_shift == shift_state;
}

bool ChooseShortcut(Form& form, int key, int shift_state) {
  for (const Ref<Control>& control : form.controls()) {
    auto* item = dynamic_cast<MenuItem*>(control.get());
    if (item && IsShortcut(item->Shortcut.get(), key, shift_state)) return item->Choose();
  }
  return false;
}

// Fires the key's event at the form, if it looks first, and at the control; true when a handler took the key away.
template <class Fire>
bool FireKey(FormWindow& form_window, Control* focused, Fire&& fire) {
  Form& form = form_window.form();
  const Ref<Control> keep(focused);
  if (form.KeyPreview) DispatchEvent(&form, [&] { fire(form); });
  if (focused && focused->form()) DispatchEvent(&form, [&] { fire(*focused); });
  return !form_window.is_open();
}

// A control that paints itself uses keys such as Enter and the arrows before the form does.
bool OfferKey(FormWindow& form_window, int key, int shift_state) {
  ControlPeer* peer = form_window.PeerOf(GetFocus());
  return peer && peer->TakeKey(key, shift_state);
}

bool HandleKeyDown(FormWindow& form_window, int key) {
  Control* focused = FocusedControl(form_window);
  const int shift_state = ShiftState();
  int code = key;
  if (FireKey(form_window, focused, [&](Control& control) { control.KeyDown(code, shift_state); }) || code == 0)
    return true;
  if (ChooseShortcut(form_window.form(), key, shift_state)) return true;
  const ControlPeer* focused_peer = form_window.PeerOf(GetFocus());
  if (focused_peer && focused_peer->KeepsKey(key)) return false;
  if (key != VK_TAB && OfferKey(form_window, key, shift_state)) return true;
  if ((shift_state & (shift::kCtrl | shift::kAlt)) != 0) {
    if (key != 'A' || shift_state != shift::kCtrl || !dynamic_cast<TextBox*>(focused)) return false;
    SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
    return true;
  }
  auto* option = dynamic_cast<OptionButton*>(focused);
  switch (key) {
    case VK_TAB: MoveFocus(form_window, (shift_state & shift::kShift) ? -1 : 1); return true;
    case VK_RETURN: return PressEnter(form_window, focused);
    case VK_ESCAPE: {
      CommandButton* cancel = FindButton(form_window.form(), &CommandButton::Cancel);
      return cancel && cancel->Press();
    }
    case VK_DOWN:
    case VK_RIGHT:
      if (option) MoveInGroup(form_window, *option, 1);
      return option != nullptr;
    case VK_UP:
    case VK_LEFT:
      if (option) MoveInGroup(form_window, *option, -1);
      return option != nullptr;
    default: return false;
  }
}

bool HandleCharacter(FormWindow& form_window, MSG& message) {
  int code = static_cast<int>(message.wParam);
  const bool closed =
      FireKey(form_window, FocusedControl(form_window), [&](Control& control) { control.KeyPress(code); });
  message.wParam = static_cast<WPARAM>(code);
  return closed || code == 0;
}

// Empty for kinds that have no caption.
std::string CaptionOf(const Control& control) {
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    return label->UseMnemonic ? label->Caption.get() : std::string();
  }
  if (const auto* frame = dynamic_cast<const Frame*>(&control)) return frame->Caption;
  if (const auto* button = dynamic_cast<const Button*>(&control)) return button->Caption;
  return {};
}

// Where a control stands in the form's tab order, for a constituent that of its control.
int FormTabIndex(const Control& control) {
  const auto* composite = dynamic_cast<const CompositeControl*>(control.Container());
  return composite ? composite->TabIndex : control.TabIndex;
}

// A label's or a frame's key goes to the control that follows it in the tab order.
void FocusAfter(FormWindow& form_window, const Control& control) {
  for (Control* stop : form_window.form().TabOrder()) {
    if (FormTabIndex(*stop) <= control.TabIndex) continue;
    form_window.SetFocus(*stop);
    return;
  }
}

void UseAccessKey(FormWindow& form_window, Control& control) {
  if (!control.TakesFocus()) {
    FocusAfter(form_window, control);
    return;
  }
  form_window.SetFocus(control);
  if (ClickLink(form_window.form(), &control)) return;
  if (auto* button = dynamic_cast<Button*>(&control)) static_cast<void>(button->Press());
}

bool HandleAccessKey(FormWindow& form_window, wchar_t pressed) {
  const auto wanted = static_cast<wchar_t>(LowerCodePoint(pressed));
  for (const Ref<Control>& control : form_window.form().controls()) {
    if (!control->IsUsable() || AccessKeyOf(ToWide(CaptionOf(*control))) != wanted) continue;
    UseAccessKey(form_window, *Ref<Control>(control));
    return true;
  }
  return false;
}

}  // namespace

wchar_t AccessKeyOf(std::wstring_view caption) {
  for (size_t at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != L'&') continue;
    if (caption[at + 1] != L'&') return static_cast<wchar_t>(LowerCodePoint(caption[at + 1]));
    ++at;
  }
  return L'\0';
}

bool HandleKeyMessage(FormWindow& form_window, MSG& message) {
  const auto keep = form_window.shared_from_this();
  switch (message.message) {
    case WM_KEYDOWN: return HandleKeyDown(form_window, static_cast<int>(message.wParam));
    case WM_SYSKEYDOWN:
      // Shift+F10 is the menu key; all other keys of this kind are the system's.
      return message.wParam == VK_F10 && ShiftState() == shift::kShift &&
             (OfferKey(form_window, VK_F10, shift::kShift) || HandleKeyDown(form_window, VK_APPS));
    case WM_CHAR: return HandleCharacter(form_window, message);
    case WM_SYSCHAR: return HandleAccessKey(form_window, static_cast<wchar_t>(message.wParam));
    case WM_KEYUP: {
      int code = static_cast<int>(message.wParam);
      return FireKey(form_window, FocusedControl(form_window),
                     [&](Control& control) { control.KeyUp(code, ShiftState()); });
    }
    default: return false;
  }
}

}  // namespace kestrun

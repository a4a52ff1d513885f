#include "desktop/win32/window/win32_windowing.h"

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/keyboard.h"
#include "desktop/win32/window/message_loop.h"

namespace kestrun {
namespace {

// The model's hold on a form's window: events that are under way keep the window itself.
class Win32FormPeer final : public FormPeer {
 public:
  explicit Win32FormPeer(std::shared_ptr<FormWindow> window) : window_(std::move(window)) {}
  void Close() override { window_->Close(); }
  void Update(Control& control, PropertyId property) override { window_->Update(control, property); }
  void ControlsChanged() override { window_->ControlsChanged(); }
  void MenuChanged() override { window_->MenuChanged(); }
  void ListChanged(Control& control) override { window_->ListChanged(control); }
  void SetFocus(Control& control) override { window_->FocusControl(control); }
  void Repaint(Control& control) override { window_->Repaint(control); }
  void PopUpMenu(MenuItem& item) override { window_->PopUpMenu(item); }
  void BringToFront() override {
    if (IsIconic(window_->window())) ShowWindow(window_->window(), SW_RESTORE);
    SetForegroundWindow(window_->window());
  }
  void ShowPopup(Control& control, const PixelRect& screen_area, std::function<void(Canvas&)> paint) override {
    if (ControlPeer* peer = window_->PeerOf(control)) peer->ShowPopup(screen_area, std::move(paint));
  }
  void HidePopup(Control& control) override {
    if (ControlPeer* peer = window_->PeerOf(control)) peer->HidePopup();
  }
  PixelPoint ScreenPosition(const Control& control) override { return window_->ScreenPosition(control); }
  PixelRect ScreenArea(const Control&) override { return window_->ScreenArea(); }
  void TellAccessibility(Control& control, AccessibleEvent event, int child) override {
    if (ControlPeer* peer = window_->PeerOf(control)) peer->TellAccessibility(event, child);
  }

 private:
  std::shared_ptr<FormWindow> window_;
};

bool FilterMessage(MSG& message) {
  const bool is_key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
  if (!is_key && message.message != WM_MOUSEWHEEL) return false;
  FormWindow* form_window = FormWindow::Find(message.hwnd);
  if (!form_window) return false;
  return is_key ? HandleKeyMessage(*form_window, message) : form_window->PassWheel(message.wParam, message.lParam);
}

// While it lives all open forms but one take no input. Afterwards the one that the modal form belonged to is active.
class OthersDisabled {
 public:
  explicit OthersDisabled(const Form& form) {
    for (const FormWindow* one : FormWindow::OpenWindows()) {
      if (&one->form() == &form) owner_ = GetWindow(one->window(), GW_OWNER);
      if (&one->form() == &form || !IsWindowEnabled(one->window())) continue;
      EnableWindow(one->window(), FALSE);
      disabled_.push_back(one->window());
    }
  }
  ~OthersDisabled() { Enable(); }
  OthersDisabled(const OthersDisabled&) = delete;
  OthersDisabled& operator=(const OthersDisabled&) = delete;

  void Enable() {
    for (const HWND window : disabled_) EnableWindow(window, TRUE);
    if (!disabled_.empty()) SetActiveWindow(owner_ && IsWindow(owner_) ? owner_ : disabled_.back());
    disabled_.clear();
  }

 private:
  HWND owner_ = nullptr;
  std::vector<HWND> disabled_;
};

}  // namespace

Win32Windowing::Win32Windowing() {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  SetMessageFilter(&FilterMessage);
}

Win32Windowing::~Win32Windowing() { SetMessageFilter(nullptr); }

std::unique_ptr<FormPeer> Win32Windowing::Show(Form& form) {
  const FormWindow* owner = nullptr;
  if (form.IsModal() && !FormWindow::OpenWindows().empty()) {
    owner = FormWindow::Find(GetActiveWindow());
    if (!owner) owner = FormWindow::OpenWindows().back();
  }
  auto window = std::make_shared<FormWindow>(form);
  window->Open(owner ? owner->window() : nullptr);
  return std::make_unique<Win32FormPeer>(std::move(window));
}

void Win32Windowing::RunModal(Form& form) {
  OthersDisabled others(form);
  MSG message{};
  while (form.IsShown()) {
    const BOOL fetched = GetMessageW(&message, nullptr, 0, 0);
    if (fetched <= 0) {
      // The end of the program is the outer loop's business.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    DispatchOne(message);
  }
}

void Win32Windowing::RunUntilQuit() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchOne(message);
}

void Win32Windowing::Quit() { PostQuitMessage(0); }

ScreenSize Win32Windowing::Screen() {
  const ScreenScale scale = ScaleOf(nullptr);
  return {scale.Twips(GetSystemMetrics(SM_CXSCREEN)), scale.Twips(GetSystemMetrics(SM_CYSCREEN)), 1440 / scale.dpi()};
}

std::optional<uint32_t> Win32Windowing::SystemColor(int number) {
  if (number < 0 || number > COLOR_MENUBAR) return std::nullopt;
  return GetSysColor(number);
}

int Win32Windowing::TextWidth(std::string_view text, const FontDescription& font) {
  const ScreenScale scale = ScaleOf(nullptr);
  return scale.Twips(MeasureText(text, font, scale.dpi()).width);
}

PixelSize Win32Windowing::MeasureText(std::string_view text, const FontDescription& font, int dpi) {
  if (!measuring_.IsValid()) measuring_.Reset(CreateCompatibleDC(nullptr));
  const HGDIOBJ previous = SelectObject(measuring_.get(), fonts_.Get(font, dpi));
  const PixelSize size = MeasureLine(measuring_.get(), text);
  SelectObject(measuring_.get(), previous);
  return size;
}

}  // namespace kestrun

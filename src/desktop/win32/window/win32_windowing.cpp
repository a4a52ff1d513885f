#include "desktop/win32/window/win32_windowing.h"

#include <set>

#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/control_peer.h"
#include "desktop/win32/window/keyboard.h"
#include "desktop/win32/window/message_loop.h"

namespace kestrun {
namespace {

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

// A bitmap with a device of its own, which programs' drawing calls may use as well as ours.
class GdiSurface final : public DrawingSurface {
 public:
  GdiSurface(int dpi) : dpi_(dpi), device_(CreateCompatibleDC(nullptr)) {}

  // False when there is no memory for the bitmap.
  [[nodiscard]] bool TakeBitmap(PixelSize size) {
    PixelBitmap made = MakePixelBitmap(size.width, size.height);
    if (!made.pixels || !device_.IsValid()) return false;
    SelectObject(device_.get(), made.bitmap.get());
    bitmap_ = std::move(made.bitmap);
    size_ = size;
    return true;
  }

  [[nodiscard]] PixelSize Size() const override { return size_; }
  void Draw(const std::function<void(Canvas&)>& drawing) override {
    GdiCanvas canvas(device_.get(), size_, dpi_, fonts_);
    drawing(canvas);
  }
  void Resize(PixelSize size, const std::function<void(Canvas&)>& background) override {
    const PixelSize before = size_;
    const BitmapHandle drawn = std::move(bitmap_);
    if (!TakeBitmap(size)) Raise(error::kOutOfMemory);
    Draw(background);
    const MemoryDevice source(CreateCompatibleDC(device_.get()));
    const HGDIOBJ previous = SelectObject(source.get(), drawn.get());
    BitBlt(device_.get(), 0, 0, before.width, before.height, source.get(), 0, 0, SRCCOPY);
    SelectObject(source.get(), previous);
  }
  [[nodiscard]] int32_t ContextNumber() const override {
    return static_cast<int32_t>(reinterpret_cast<intptr_t>(device_.get()));
  }

 private:
  int dpi_;
  FontCache fonts_;
  BitmapHandle bitmap_;
  MemoryDevice device_;  // goes before the bitmap that is selected into it
  PixelSize size_;
};

int CALLBACK NoteFont(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM names) {
  // Those with "@" are the others turned for vertical writing.
  if (font->lfFaceName[0] != L'@') reinterpret_cast<std::set<std::string>*>(names)->insert(FromWide(font->lfFaceName));
  return 1;
}

}  // namespace

Win32Windowing::Win32Windowing() {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  InitCommonControlsEx(&controls);
  SetMessageFilter(&FilterMessage);
}

Win32Windowing::~Win32Windowing() { SetMessageFilter(nullptr); }

std::shared_ptr<FormPeer> Win32Windowing::MakePeer(Form& form) {
  auto window = std::make_shared<FormWindow>(form);
  window->Create();
  return window;
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

void Win32Windowing::Beep() { MessageBeep(MB_OK); }

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

TextExtent Win32Windowing::MeasureLines(std::string_view text, const FontDescription& font, int width_twips) {
  const ScreenScale scale = ScaleOf(nullptr);
  if (!measuring_.IsValid()) measuring_.Reset(CreateCompatibleDC(nullptr));
  const HGDIOBJ previous = SelectObject(measuring_.get(), fonts_.Get(font, scale.dpi()));
  RECT room{0, 0, scale.Pixels(width_twips), 0};
  const UINT breaks = width_twips > 0 ? DT_WORDBREAK : 0;
  DrawTextW(measuring_.get(), text.empty() ? L" " : ToWide(text).c_str(), -1, &room,
            DT_CALCRECT | DT_NOPREFIX | breaks);
  SelectObject(measuring_.get(), previous);
  return {text.empty() ? 0 : scale.Twips(room.right), scale.Twips(room.bottom)};
}

std::unique_ptr<DrawingSurface> Win32Windowing::MakeSurface(PixelSize size, int dpi) {
  auto surface = std::make_unique<GdiSurface>(dpi);
  if (!surface->TakeBitmap(size)) return nullptr;
  return surface;
}

std::vector<std::string> Win32Windowing::FontNames() {
  std::set<std::string> names;
  LOGFONTW all{};
  all.lfCharSet = DEFAULT_CHARSET;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &all, &NoteFont, reinterpret_cast<LPARAM>(&names), 0);
  ReleaseDC(nullptr, screen);
  return {names.begin(), names.end()};
}

}  // namespace kestrun

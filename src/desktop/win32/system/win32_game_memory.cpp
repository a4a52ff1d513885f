#include "desktop/win32/system/win32_game_memory.h"

#include <utility>

#include "base/bytes.h"
#include "base/code_page.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/system/windows_api.h"

namespace kestrun {
namespace {

constexpr DWORD kReadRights = PROCESS_QUERY_INFORMATION | PROCESS_VM_READ | SYNCHRONIZE;
constexpr DWORD kWriteRights = kReadRights | PROCESS_VM_WRITE | PROCESS_VM_OPERATION;

// How long a key is held: a game that looks at the keyboard once in a frame sees it.
constexpr DWORD kKeyHeldMs = 40;

struct ProcessTraits {
  using Handle = HANDLE;
  static Handle Empty() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using ProcessHandle = UniqueHandle<ProcessTraits>;

DWORD ProcessOfWindow(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

// Letter for letter: the system's own search takes titles in another case for the same. A window that does not answer
// keeps nobody waiting.
bool HasTitle(HWND window, std::wstring_view title) {
  std::wstring text(title.size() + 2, L'\0');
  const int length = InternalGetWindowText(window, text.data(), static_cast<int>(text.size()));
  return std::wstring_view(text).substr(0, static_cast<size_t>(length)) == title;
}

struct TitleSearch {
  std::wstring_view title;
  std::vector<HWND> found;
};

BOOL CALLBACK AddIfTitled(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<TitleSearch*>(parameter);
  if (HasTitle(window, search.title)) search.found.push_back(window);
  return TRUE;
}

// The top windows with that title, from front to back.
std::vector<HWND> WindowsWithTitle(std::wstring_view title) {
  TitleSearch search{title, {}};
  EnumWindows(AddIfTitled, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// True when all of the range is committed and may be written to as it stands.
bool IsWritable(HANDLE process, uintptr_t address, size_t count) {
  constexpr DWORD kWritable = PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
  const uintptr_t end = address + count;
  while (address < end) {
    MEMORY_BASIC_INFORMATION region{};
    if (VirtualQueryEx(process, reinterpret_cast<const void*>(address), &region, sizeof region) == 0) return false;
    if (region.State != MEM_COMMIT || !(region.Protect & kWritable) || (region.Protect & PAGE_GUARD)) return false;
    address = reinterpret_cast<uintptr_t>(region.BaseAddress) + region.RegionSize;
  }
  return true;
}

bool IsExtendedKey(UINT key) {
  return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE || key == VK_DIVIDE ||
         key == VK_NUMLOCK || key == VK_RCONTROL || key == VK_RMENU;
}

// One press and release of a key.
class KeyPressed {
 public:
  explicit KeyPressed(UINT key, HWND window)
      : key_(key), window_(window), layout_(GetKeyboardLayout(GetWindowThreadProcessId(window, nullptr))) {
    scan_code_ = MapVirtualKeyExW(key, MAPVK_VK_TO_VSC, layout_);
  }

  // False when the system does not let the input through.
  bool Inject() const {
    const bool taken = Send(0);
    ::Sleep(kKeyHeldMs);
    return Send(KEYEVENTF_KEYUP) && taken;
  }

  // False when the system does not let the messages through.
  bool Post() const {
    constexpr LPARAM kReleased = 0xC0000001;  // it was down, and goes up
    const LPARAM place = static_cast<LPARAM>(scan_code_ & 0xFF) << 16 | (IsExtendedKey(key_) ? 1 << 24 : 0);
    if (!PostMessageW(window_, WM_KEYDOWN, key_, place | 1)) return false;
    if (const wchar_t character = Character()) PostMessageW(window_, WM_CHAR, character, place | 1);
    return PostMessageW(window_, WM_KEYUP, key_, place | kReleased) != 0;
  }

 private:
  bool Send(DWORD flags) const {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key_);
    input.ki.wScan = static_cast<WORD>(scan_code_);
    input.ki.dwFlags =
        flags | (scan_code_ ? KEYEVENTF_SCANCODE : 0) | (IsExtendedKey(key_) ? KEYEVENTF_EXTENDEDKEY : 0);
    return SendInput(1, &input, sizeof input) == 1;
  }

  // What the key types without Shift; 0 when it types nothing, or only together with another key.
  wchar_t Character() const {
    if (key_ == VK_RETURN) return L'\r';
    const UINT character = MapVirtualKeyExW(key_, MAPVK_VK_TO_CHAR, layout_);
    constexpr UINT kDeadKey = 0x80000000;
    if (character == 0 || (character & kDeadKey)) return 0;
    const wchar_t letter = static_cast<wchar_t>(character);
    return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter + (L'a' - L'A')) : letter;
  }

  UINT key_;
  HWND window_;
  HKL layout_;
  UINT scan_code_ = 0;
};

class Win32GameMemory final : public GameMemory {
 public:
  explicit Win32GameMemory(KeyDeliverySource key_delivery) : key_delivery_(std::move(key_delivery)) {}

  uint8_t ReadByteAt(int32_t address) override {
    uint8_t value = 0;
    Read(address, &value, sizeof value);
    return value;
  }

  int32_t ReadLongAt(int32_t address) override {
    uint8_t bytes[sizeof(int32_t)]{};
    Read(address, bytes, sizeof bytes);
    return static_cast<int32_t>(LoadU32(bytes, 0));
  }

  void PressKey(int32_t key_code) override;
  void WriteTextAt(int32_t address, std::string_view text) override;
  bool AttachToWindow(std::string_view title) override;
  std::string Refusal() override { return refusal_; }

 private:
  // Lets go of a process that has ended.
  bool IsRunning() {
    if (process_.IsValid() && WaitForSingleObject(process_.get(), 0) != WAIT_TIMEOUT) LetGo();
    return process_.IsValid();
  }

  void LetGo() {
    process_.Reset();
    writes_ = false;
    window_ = nullptr;
  }

  bool Open(HWND window);
  void Read(int32_t address, void* target, size_t count);
  bool GetWriteRights();

  KeyDeliverySource key_delivery_;
  HWND window_ = nullptr;
  ProcessHandle process_;
  bool writes_ = false;
  std::string refusal_;
};

// Addresses count as unsigned in a program of either bitness.
uintptr_t Pointer(int32_t address) { return static_cast<uint32_t>(address); }

bool Win32GameMemory::AttachToWindow(std::string_view title) {
  LetGo();
  refusal_.clear();
  for (const HWND window : WindowsWithTitle(ToWide(title))) {
    if (Open(window)) return true;
  }
  return false;
}

bool Win32GameMemory::Open(HWND window) {
  process_.Reset(OpenProcess(kReadRights, FALSE, ProcessOfWindow(window)));
  if (!process_.IsValid() && GetLastError() == ERROR_ACCESS_DENIED) refusal_ = kGameNotReadable;
  if (!process_.IsValid()) return false;
  window_ = window;
  refusal_.clear();
  return true;
}

void Win32GameMemory::Read(int32_t address, void* target, size_t count) {
  if (!IsRunning()) return;
  SIZE_T done = 0;
  const bool whole =
      ReadProcessMemory(process_.get(), reinterpret_cast<const void*>(Pointer(address)), target, count, &done) &&
      done == count;
  if (!whole) memset(target, 0, count);
}

bool Win32GameMemory::GetWriteRights() {
  if (writes_) return true;
  ProcessHandle writing(OpenProcess(kWriteRights, FALSE, GetProcessId(process_.get())));
  if (writing.IsValid()) {
    process_ = std::move(writing);
    writes_ = true;
  } else {
    refusal_ = kGameNotWritable;
  }
  return writes_;
}

void Win32GameMemory::WriteTextAt(int32_t address, std::string_view text) {
  if (!IsRunning() || !GetWriteRights()) return;
  const std::string bytes = EncodeText(text) + '\0';
  const uintptr_t target = Pointer(address);
  if (!IsWritable(process_.get(), target, bytes.size())) return;
  SIZE_T done = 0;
  WriteProcessMemory(process_.get(), reinterpret_cast<void*>(target), bytes.data(), bytes.size(), &done);
}

void Win32GameMemory::PressKey(int32_t key_code) {
  const KeyDelivery delivery = key_delivery_ ? key_delivery_() : KeyDelivery::kAuto;
  if (!IsRunning() || !IsWindow(window_)) return;
  const bool foreground = GetForegroundWindow() == window_;
  const bool inject = delivery == KeyDelivery::kInput || (delivery == KeyDelivery::kAuto && foreground);
  const KeyPressed key(static_cast<UINT>(key_code), window_);
  if (!(inject ? key.Inject() : key.Post())) refusal_ = kKeysNotTaken;
}

}  // namespace

std::unique_ptr<GameMemory> Win32Games::MakeMemory(KeyDeliverySource key_delivery) {
  return std::make_unique<Win32GameMemory>(std::move(key_delivery));
}

}  // namespace kestrun

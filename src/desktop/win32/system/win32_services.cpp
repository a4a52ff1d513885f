#include "desktop/win32/system/win32_services.h"

#include <algorithm>
#include <cstring>
#include <functional>

#include "base/runtime_error.h"
#include "base/text.h"
#include "desktop/win32/system/clipboard_bitmap.h"
#include "desktop/win32/system/file_holders.h"
#include "desktop/win32/system/handles.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/shell_link.h"
#include "desktop/win32/system/waiting.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/system/win32_files.h"
#include "desktop/win32/system/win32_http.h"
#include "platform/built_version.h"
#include "platform/platform.h"
// Only here: its types and those of winhttp.h exclude each other.
#include <wininet.h>

namespace kestrun {
namespace {

// Fills a text through a call that takes a buffer with its size and gives the length, growing the buffer as needed.
std::string ReadText(const std::function<DWORD(wchar_t* buffer, DWORD size)>& call) {
  std::wstring buffer(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = call(buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length < buffer.size()) return FromWide(std::wstring_view(buffer).substr(0, length));
    buffer.resize(std::max<size_t>(buffer.size() * 2, length));
  }
}

std::string ProgramPath() {
  return ReadText([](wchar_t* buffer, DWORD size) { return GetModuleFileNameW(nullptr, buffer, size); });
}

// The command line behind the program's own name, which is quoted or ends at the first blank.
std::wstring_view WithoutProgramName(std::wstring_view line) {
  const bool quoted = line.starts_with(L'"');
  const size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  if (end == std::wstring_view::npos) return {};
  line.remove_prefix(quoted ? end + 1 : end);
  const size_t first = line.find_first_not_of(L" \t");
  return first == std::wstring_view::npos ? std::wstring_view() : line.substr(first);
}

HKEY RootKey(RegistryRoot root) {
  switch (root) {
    case RegistryRoot::kClassesRoot: return HKEY_CLASSES_ROOT;
    case RegistryRoot::kCurrentUser: return HKEY_CURRENT_USER;
    case RegistryRoot::kLocalMachine: return HKEY_LOCAL_MACHINE;
  }
  return HKEY_CURRENT_USER;
}

RegistryKey OpenKey(RegistryRoot root, std::string_view key, REGSAM access) {
  HKEY opened = nullptr;
  const LSTATUS status = RegOpenKeyExW(RootKey(root), ToWide(key).c_str(), 0, access, &opened);
  return RegistryKey(status == ERROR_SUCCESS ? opened : nullptr);
}

// Opens it, and makes it where it is missing.
RegistryKey MakeKey(RegistryRoot root, std::string_view key, REGSAM access) {
  HKEY made = nullptr;
  const LSTATUS status =
      RegCreateKeyExW(RootKey(root), ToWide(key).c_str(), 0, nullptr, 0, access, nullptr, &made, nullptr);
  return RegistryKey(status == ERROR_SUCCESS ? made : nullptr);
}

std::string SettingsKey(std::string_view application, std::string_view section) {
  return "Software\\VB and VBA Program Settings\\" + std::string(application) + "\\" + std::string(section);
}

}  // namespace

// UTF-8 can be the system's page as well. It has every character, and the system refuses a stand-in for missing ones.
std::string SystemCodePage::Encode(std::string_view utf8) const {
  const std::wstring wide = ToWide(utf8);
  if (wide.empty()) return {};
  const bool is_utf8 = page_ == CP_UTF8;
  const DWORD flags = is_utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
  const char* const missing = is_utf8 ? nullptr : "?";
  const int length = static_cast<int>(wide.size());
  std::string bytes(
      static_cast<size_t>(WideCharToMultiByte(page_, flags, wide.data(), length, nullptr, 0, missing, nullptr)), '\0');
  WideCharToMultiByte(page_, flags, wide.data(), length, bytes.data(), static_cast<int>(bytes.size()), missing,
                      nullptr);
  return bytes;
}

std::string SystemCodePage::Decode(std::string_view bytes) const {
  if (bytes.empty()) return {};
  const int length = static_cast<int>(bytes.size());
  std::wstring wide(static_cast<size_t>(MultiByteToWideChar(page_, 0, bytes.data(), length, nullptr, 0)), L'\0');
  MultiByteToWideChar(page_, 0, bytes.data(), length, wide.data(), static_cast<int>(wide.size()));
  return FromWide(wide);
}

SystemCodePage::SystemCodePage() : SystemCodePage(GetACP()) {}

std::string Win32Program::Folder() {
  const std::string path = ProgramPath();
  return path.substr(0, path.rfind('\\'));
}

std::string Win32Program::ExeName() {
  std::string name = ProgramPath();
  name.erase(0, name.rfind('\\') + 1);
  const size_t dot = name.rfind('.');
  return dot == std::string::npos ? name : name.substr(0, dot);
}

Version Win32Program::ProgramVersion() { return BuiltVersion(); }

std::string Win32Program::CommandLine() { return FromWide(WithoutProgramName(GetCommandLineW())); }

int32_t Win32Program::InstanceNumber() {
  return static_cast<int32_t>(reinterpret_cast<intptr_t>(GetModuleHandleW(nullptr)));
}

Bytes Win32Program::Resource(std::string_view type, int number) {
  const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(number), ToWide(type).c_str());
  const HGLOBAL loaded = found ? LoadResource(nullptr, found) : nullptr;
  const auto* bytes = loaded ? static_cast<const uint8_t*>(LockResource(loaded)) : nullptr;
  if (!bytes) RaiseMissingResource(number);
  return {bytes, bytes + SizeofResource(nullptr, found)};
}

std::optional<std::string> Win32UserSettings::Get(std::string_view application, std::string_view section,
                                                  std::string_view key) {
  return Win32Registry().Read(RegistryRoot::kCurrentUser, SettingsKey(application, section), key);
}

void Win32UserSettings::Save(std::string_view application, std::string_view section, std::string_view key,
                             std::string_view value) {
  const bool saved = Win32Registry().Write(RegistryRoot::kCurrentUser, SettingsKey(application, section), key, value);
  if (!saved) Raise(error::kInvalidProcedureCall);
}

void Win32UserSettings::Delete(std::string_view application, std::string_view section, std::string_view key) {
  const RegistryKey opened = OpenKey(RegistryRoot::kCurrentUser, SettingsKey(application, section), KEY_SET_VALUE);
  const bool deleted = opened.IsValid() && RegDeleteValueW(opened.get(), ToWide(key).c_str()) == ERROR_SUCCESS;
  if (!deleted) Raise(error::kInvalidProcedureCall);
}

std::optional<RegistryValue> Win32Registry::ReadValue(RegistryRoot root, std::string_view key, std::string_view name) {
  const RegistryKey opened = OpenKey(root, key, KEY_QUERY_VALUE);
  if (!opened.IsValid()) return std::nullopt;
  const std::wstring value_name = ToWide(name);
  DWORD type = 0;
  DWORD bytes = 0;
  const auto query = [&](BYTE* target) {
    return RegQueryValueExW(opened.get(), value_name.c_str(), nullptr, &type, target, &bytes) == ERROR_SUCCESS;
  };
  if (!query(nullptr)) return std::nullopt;
  // A text need not end with its zero.
  Bytes data(bytes + sizeof(wchar_t));
  if (!query(data.data())) return std::nullopt;
  if (type == REG_SZ || type == REG_EXPAND_SZ) {
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    std::memcpy(text.data(), data.data(), bytes / sizeof(wchar_t) * sizeof(wchar_t));
    return FromWide(text.c_str());
  }
  data.resize(bytes);
  if (type == REG_BINARY) return data;
  if (type != REG_DWORD || bytes != sizeof(uint32_t)) return std::nullopt;
  uint32_t number = 0;
  std::memcpy(&number, data.data(), sizeof number);
  return number;
}

bool Win32Registry::WriteValue(RegistryRoot root, std::string_view key, std::string_view name,
                               const RegistryValue& value) {
  const RegistryKey opened = MakeKey(root, key, KEY_SET_VALUE);
  if (!opened.IsValid()) return false;
  const auto set = [&](DWORD type, const void* data, size_t bytes) {
    return RegSetValueExW(opened.get(), ToWide(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(bytes)) == ERROR_SUCCESS;
  };
  if (const auto* const number = std::get_if<uint32_t>(&value)) return set(REG_DWORD, number, sizeof *number);
  if (const auto* const bytes = std::get_if<Bytes>(&value)) return set(REG_BINARY, bytes->data(), bytes->size());
  const std::wstring text = ToWide(std::get<std::string>(value));
  return set(REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

bool Win32Registry::HasKey(RegistryRoot root, std::string_view key) {
  return OpenKey(root, key, KEY_QUERY_VALUE).IsValid();
}

bool Win32Registry::CreateKey(RegistryRoot root, std::string_view key) {
  return MakeKey(root, key, KEY_CREATE_SUB_KEY).IsValid();
}

bool Win32Registry::DeleteKey(RegistryRoot root, std::string_view key) {
  {
    // The system would delete a key with subkeys in one place and refuse it in another: the answer is always no.
    const RegistryKey opened = OpenKey(root, key, KEY_READ);
    DWORD subkeys = 0;
    if (!opened.IsValid() || RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr,
                                              nullptr, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
      return false;
    }
    if (subkeys != 0) return false;
  }
  return RegDeleteKeyW(RootKey(root), ToWide(key).c_str()) == ERROR_SUCCESS;
}

int Win32Shell::Open(std::string_view operation, std::string_view file, std::string_view parameters,
                     std::string_view directory, int show_command) {
  const HINSTANCE result =
      KESTRUN_LATE(L"shell32.dll", ShellExecuteW)(GetDesktopWindow(), ToWide(operation).c_str(), ToWide(file).c_str(),
                                                  ToWide(parameters).c_str(), ToWide(directory).c_str(), show_command);
  return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

bool Win32Shell::WriteShortcut(std::string_view link, const Shortcut& shortcut) {
  return WriteShellLink(std::string(link), shortcut);
}

std::string Win32Shell::TemporaryFolder() {
  return ReadText([](wchar_t* buffer, DWORD size) { return GetTempPathW(size, buffer); });
}

std::string Win32Shell::WindowsFolder() {
  return ReadText([](wchar_t* buffer, DWORD size) { return GetWindowsDirectoryW(buffer, size); });
}

std::string Win32Shell::SystemFolder() {
  return ReadText([](wchar_t* buffer, DWORD size) { return GetSystemDirectoryW(buffer, size); });
}

std::string Win32Shell::ShellFolder(int csidl) {
  wchar_t path[MAX_PATH] = {};
  return KESTRUN_LATE(L"shell32.dll", SHGetSpecialFolderPathW)(nullptr, path, csidl, FALSE) ? FromWide(path)
                                                                                            : std::string();
}

std::vector<std::string> Win32Processes::RunningNames() {
  std::vector<std::string> names;
  const FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
  if (!snapshot.IsValid()) return names;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = Process32FirstW(snapshot.get(), &entry); more; more = Process32NextW(snapshot.get(), &entry)) {
    names.push_back(FromWide(entry.szExeFile));
  }
  return names;
}

std::vector<std::string> Win32Processes::HoldersOf(std::string_view path) {
  std::vector<std::string> names;
  Attempt([&] { names = FileHolders(path); });
  return names;
}

void Win32Processes::EndProcess() { ExitProcess(0); }

bool Win32Internet::IsUrl(std::string_view text) {
  return KESTRUN_LATE(L"shlwapi.dll", PathIsURLW)(ToWide(text).c_str()) == TRUE;
}

bool Win32Internet::IsConnected() {
  DWORD flags = 0;
  return KESTRUN_LATE(L"wininet.dll", InternetGetConnectedState)(&flags, 0) != FALSE;
}

int Win32Internet::DownloadToFile(std::string_view url, std::string_view path) {
  constexpr DWORD kGetNewestVersion = 16;
  const Waiting waiting;
  return KESTRUN_LATE(L"urlmon.dll", URLDownloadToFileW)(nullptr, ToWide(url).c_str(), ToWidePath(path).c_str(),
                                                         kGetNewestVersion, nullptr);
}

std::unique_ptr<HttpSession> Win32Internet::OpenSession() { return OpenWinHttpSession(); }

namespace {

// Another program that looks at the clipboard has it open for a moment.
bool OpenTheClipboard() {
  constexpr int kTries = 10;
  constexpr DWORD kBetweenMs = 10;
  for (int tries = 0; tries < kTries; ++tries) {
    if (tries > 0) ::Sleep(kBetweenMs);
    if (OpenClipboard(nullptr)) return true;
  }
  return false;
}

}  // namespace

std::string Win32Clipboard::Text() {
  std::string text;
  if (!OpenTheClipboard()) return text;
  if (const HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
    if (const auto* content = static_cast<const wchar_t*>(GlobalLock(data))) {
      // Another program's text need not have its end.
      text = FromWide({content, wcsnlen(content, GlobalSize(data) / sizeof(wchar_t))});
      GlobalUnlock(data);
    }
  }
  CloseClipboard();
  return text;
}

namespace {

[[noreturn]] void RaiseClipboardNotOpen() {
  constexpr int kClipboardNotOpen = 521;
  Raise(kClipboardNotOpen, "Can't open Clipboard");
}

// Puts the bytes in the place of all that is on the clipboard.
void StoreOnClipboard(UINT format, const void* bytes, size_t count) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, count);
  if (!block) Raise(error::kOutOfMemory);
  std::memcpy(GlobalLock(block), bytes, count);
  GlobalUnlock(block);
  bool stored = false;
  if (OpenTheClipboard()) {
    EmptyClipboard();
    stored = SetClipboardData(format, block) != nullptr;
    CloseClipboard();
  }
  if (stored) return;
  GlobalFree(block);
  RaiseClipboardNotOpen();
}

}  // namespace

void Win32Clipboard::SetText(std::string_view text) {
  const std::wstring wide = ToWideLines(text);
  StoreOnClipboard(CF_UNICODETEXT, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
}

std::optional<DecodedPicture> Win32Clipboard::Picture() {
  Bytes bitmap;
  if (!OpenTheClipboard()) return std::nullopt;
  if (const HANDLE data = GetClipboardData(CF_DIB)) {
    if (const auto* bytes = static_cast<const uint8_t*>(GlobalLock(data))) {
      bitmap.assign(bytes, bytes + GlobalSize(data));
      GlobalUnlock(data);
    }
  }
  CloseClipboard();
  const std::optional<Bytes> file = BitmapFile(bitmap);
  return file ? platform().pictures().Decode(*file) : std::nullopt;
}

void Win32Clipboard::SetPicture(const DecodedPicture& picture) {
  const Bytes bitmap = ClipboardBitmap(picture);
  StoreOnClipboard(CF_DIB, bitmap.data(), bitmap.size());
}

void Win32Clipboard::Clear() {
  if (!OpenTheClipboard()) RaiseClipboardNotOpen();
  EmptyClipboard();
  CloseClipboard();
}

}  // namespace kestrun

#include "desktop/win32/system/win32_dialogs.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "desktop/win32/system/late_call.h"
#include "desktop/win32/system/ole_start.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/window/form_window.h"
#include "forms/command_button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/text_box.h"

namespace kestrun {
namespace {

constexpr const char* kProgramTitle = "Kestrun";
constexpr size_t kLongestPath = 32768;

HWND Owner() {
  const HWND active = GetActiveWindow();
  if (FormWindow::Find(active)) return active;
  return FormWindow::OpenWindows().empty() ? nullptr : FormWindow::OpenWindows().back()->window();
}

UINT ButtonFlags(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::kOk: return MB_OK;
    case BoxButtons::kOkCancel: return MB_OKCANCEL;
    case BoxButtons::kAbortRetryIgnore: return MB_ABORTRETRYIGNORE;
    case BoxButtons::kYesNoCancel: return MB_YESNOCANCEL;
    case BoxButtons::kYesNo: return MB_YESNO;
    case BoxButtons::kRetryCancel: return MB_RETRYCANCEL;
  }
  return MB_OK;
}

UINT IconFlags(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kNone: return 0;
    case BoxIcon::kCritical: return MB_ICONERROR;
    case BoxIcon::kQuestion: return MB_ICONQUESTION;
    case BoxIcon::kWarning: return MB_ICONWARNING;
    case BoxIcon::kInformation: return MB_ICONINFORMATION;
  }
  return 0;
}

UINT DefaultButtonFlags(int button) {
  constexpr std::array<UINT, 4> kFlags{MB_DEFBUTTON1, MB_DEFBUTTON2, MB_DEFBUTTON3, MB_DEFBUTTON4};
  return kFlags[static_cast<size_t>(std::clamp(button, 1, 4) - 1)];
}

// The box that asks for one line of text: a form like any other.
class InputBoxForm final : public Form {
 public:
  InputBoxForm(std::string_view prompt, std::string_view title, std::string_view preset) : Form("InputBox") {
    Caption = std::string(title.empty() ? kProgramTitle : title);
    BorderStyle = static_cast<int>(FormBorder::kFixedDialog);
    StartUpPosition = static_cast<int>(StartPosition::kCenterOwner);
    MinButton = false;
    MaxButton = false;
    ShowInTaskbar = false;
    SetClientSize(5700, 1950);
    lblPrompt.Caption = std::string(prompt);
    lblPrompt.WordWrap = true;
    lblPrompt.Move(180, 180, 3900, 1080);
    cmdOK.Caption = "OK";
    cmdOK.Default = true;
    cmdOK.Move(4260, 180, 1260, 375);
    cmdCancel.Caption = "Cancel";
    cmdCancel.Cancel = true;
    cmdCancel.Move(4260, 660, 1260, 375);
    txtAnswer.Text = std::string(preset);
    txtAnswer.BackColor = color::kWindowBackground;
    txtAnswer.ForeColor = color::kWindowText;
    txtAnswer.Move(180, 1410, 5340, 330);
    cmdOK.Click = [this] {
      answer = txtAnswer.Text.get();
      Unload();
    };
    cmdCancel.Click = [this] { Unload(); };
  }

  TextBox& txtAnswer = Add<TextBox>("txtAnswer");
  CommandButton& cmdOK = Add<CommandButton>("cmdOK");
  CommandButton& cmdCancel = Add<CommandButton>("cmdCancel");
  Label& lblPrompt = Add<Label>("lblPrompt");
  std::optional<std::string> answer;

 protected:
  // The preset is there to be replaced by the first key.
  void Shown() override {
    txtAnswer.SelStart = 0;
    txtAnswer.SelLength = static_cast<int>(ToWide(txtAnswer.Text.get()).size());
  }
};

// "Maps (*.bms)|*.bms" becomes NUL-separated pairs with an empty text at the end.
std::wstring FilterPairs(const std::string& filter) {
  std::wstring pairs = ToWide(filter);
  std::replace(pairs.begin(), pairs.end(), L'|', L'\0');
  pairs.append(2, L'\0');
  return pairs;
}

int CALLBACK OpenOnFolder(HWND dialog, UINT message, LPARAM, LPARAM folder) {
  if (message == BFFM_INITIALIZED && folder != 0) SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, folder);
  return 0;
}

}  // namespace

BoxAnswer Win32Dialogs::ShowMessage(const MessageBoxRequest& request) {
  const std::string title = request.title.empty() ? kProgramTitle : request.title;
  const UINT flags =
      ButtonFlags(request.buttons) | IconFlags(request.icon) | DefaultButtonFlags(request.default_button);
  const int answer =
      MessageBoxW(Owner(), ToWideLines(request.text).c_str(), ToWide(title).c_str(), flags | MB_TASKMODAL);
  return static_cast<BoxAnswer>(answer);
}

std::optional<std::string> Win32Dialogs::AskText(std::string_view prompt, std::string_view title,
                                                 std::string_view preset) {
  const Ref<InputBoxForm> box = MakeRef<InputBoxForm>(prompt, title, preset);
  box->ShowModal();
  return box->answer;
}

std::optional<std::string> Win32Dialogs::PickFile(const FileDialogRequest& request) {
  std::wstring path = ToWide(request.file_name);
  path.resize(kLongestPath);
  const std::wstring filter = FilterPairs(request.filter);
  const std::wstring folder = ToWide(request.folder);
  const std::wstring title = ToWide(request.title);
  const std::wstring extension = ToWide(request.default_extension);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = Owner();
  dialog.lpstrFilter = request.filter.empty() ? nullptr : filter.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(request.filter_index);
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  dialog.lpstrTitle = title.empty() ? nullptr : title.c_str();
  dialog.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
  dialog.Flags |= request.save ? OFN_PATHMUSTEXIST : OFN_FILEMUSTEXIST;
  // Most commands ask before they overwrite, in their own words: the system asks only where its flag says so.
  if (request.save) dialog.Flags |= request.flags & OFN_OVERWRITEPROMPT;
  const BOOL chosen = request.save ? KESTRUN_LATE(L"comdlg32.dll", GetSaveFileNameW)(&dialog)
                                   : KESTRUN_LATE(L"comdlg32.dll", GetOpenFileNameW)(&dialog);
  return chosen ? std::optional(FromWide(path.c_str())) : std::nullopt;
}

std::optional<std::string> Win32Dialogs::PickFolder(std::string_view prompt, int root_csidl,
                                                    std::string_view start_folder) {
  // The dialogue is a COM object of the shell.
  StartOle();
  const std::wstring title = ToWide(prompt);
  const std::wstring start = ToWidePath(start_folder);
  LPITEMIDLIST root = nullptr;
  KESTRUN_LATE(L"shell32.dll", SHGetSpecialFolderLocation)(nullptr, root_csidl, &root);
  BROWSEINFOW dialog{};
  dialog.hwndOwner = Owner();
  dialog.pidlRoot = root;
  dialog.lpszTitle = title.c_str();
  dialog.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  dialog.lpfn = &OpenOnFolder;
  dialog.lParam = start.empty() ? 0 : reinterpret_cast<LPARAM>(start.c_str());
  const LPITEMIDLIST chosen = KESTRUN_LATE(L"shell32.dll", SHBrowseForFolderW)(&dialog);
  std::wstring path(kLongestPath, L'\0');
  const bool has_path = chosen && KESTRUN_LATE(L"shell32.dll", SHGetPathFromIDListEx)(
                                      chosen, path.data(), static_cast<DWORD>(path.size()), GPFIDL_DEFAULT);
  KESTRUN_LATE(L"ole32.dll", CoTaskMemFree)(chosen);
  KESTRUN_LATE(L"ole32.dll", CoTaskMemFree)(root);
  return has_path ? std::optional(FromWide(path.c_str())) : std::nullopt;
}

std::optional<uint32_t> Win32Dialogs::PickColor(uint32_t preset) {
  static COLORREF custom_colors[16] = {};
  CHOOSECOLORW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = Owner();
  dialog.rgbResult = ToColorRef(preset);
  dialog.lpCustColors = custom_colors;
  dialog.Flags = CC_RGBINIT | CC_FULLOPEN;
  return KESTRUN_LATE(L"comdlg32.dll", ChooseColorW)(&dialog) ? std::optional<uint32_t>(dialog.rgbResult)
                                                              : std::nullopt;
}

}  // namespace kestrun

// Files dropped on a real window, as the desktop hands them over.
#include <gtest/gtest.h>

#include <cstring>

#include "forms/form.h"
#include "forms/window_registry.h"
#include "platform/win32/form_window.h"
#include "platform/win32/wide_text.h"
#include "platform/win32/win32_platform.h"

namespace kestrun {
namespace {

class DropTest : public testing::Test {
 protected:
  ~DropTest() override { form->Hide(); }

  HWND Show() {
    form->Show();
    return FormWindow::OpenWindows().back()->window();
  }

  // The block that a drop message carries: its head, then the paths, each with a NUL, and one more NUL.
  static HDROP MakeDrop(const std::vector<std::string>& paths) {
    std::wstring list;
    for (const std::string& path : paths) list += ToWide(path) + L'\0';
    list += L'\0';
    DROPFILES head{};
    head.pFiles = sizeof head;
    head.fWide = TRUE;
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof head + list.size() * sizeof(wchar_t));
    auto* bytes = static_cast<char*>(GlobalLock(block));
    std::memcpy(bytes, &head, sizeof head);
    std::memcpy(bytes + sizeof head, list.data(), list.size() * sizeof(wchar_t));
    GlobalUnlock(block);
    return static_cast<HDROP>(block);
  }

  Win32Platform desktop;
  PlatformInstallation installation{desktop};
  const Ref<Form> form = MakeRef<Form>("target");
};

TEST_F(DropTest, EveryPathArrivesWhole) {
  std::vector<std::string> arrived;
  form->FilesDropped = [&](const std::vector<std::string>& paths) { arrived = paths; };
  const std::vector<std::string> dropped{"C:\\Карты 地図 é😀\\Oasis.bms", "C:\\" + std::string(290, 'x') + ".zip"};
  SendMessageW(Show(), WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop(dropped)), 0);
  EXPECT_EQ(arrived, dropped);
}

TEST_F(DropTest, OnlyAFormThatListensTakesFiles) {
  EXPECT_EQ(GetWindowLongPtrW(Show(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES, 0);
  form->Hide();
  form->FilesDropped = [](const std::vector<std::string>&) {};
  EXPECT_NE(GetWindowLongPtrW(Show(), GWL_EXSTYLE) & WS_EX_ACCEPTFILES, 0);
}

}  // namespace
}  // namespace kestrun

// Files dropped on a real window, as the desktop hands them over.
#include <gtest/gtest.h>

#include "base/bytes.h"
#include "base/text.h"
#include "desktop/win32/dropped_files.h"
#include "desktop/win32/system/com_owner.h"
#include "desktop/win32/system/wide_text.h"
#include "desktop/win32/win32_platform.h"
#include "desktop/win32/window/form_window.h"
#include "forms/form.h"
#include "forms/window_registry.h"

namespace kestrun {
namespace {

class DropTest : public testing::Test {
 protected:
  ~DropTest() override { form->Hide(); }

  HWND Show() {
    form->Show();
    return FormWindow::OpenWindows().back()->window();
  }

  static std::string InTemporaryFolder(const std::string& name) {
    const std::string folder = platform().shell().TemporaryFolder();
    return folder + (folder.ends_with('\\') ? "" : "\\") + name;
  }
  static void MakeShortcut(const std::string& shortcut, const std::string& target) {
    ComOwner<IShellLinkW> link;
    ComOwner<IPersistFile> file;
    OleInitialize(nullptr);
    ASSERT_EQ(
        CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IShellLinkW), link.ReceiveAny()),
        S_OK);
    ASSERT_EQ(link->SetPath(ToWide(target).c_str()), S_OK);
    ASSERT_EQ(link->QueryInterface(__uuidof(IPersistFile), file.ReceiveAny()), S_OK);
    ASSERT_EQ(file->Save(ToWide(shortcut).c_str(), TRUE), S_OK);
  }

  Win32Platform desktop;
  PlatformInstallation installation{desktop};
  const Ref<Form> form = MakeRef<Form>("target");
};

TEST_F(DropTest, EveryPathArrivesWhole) {
  std::vector<std::string> arrived;
  form->FilesDropped = [&](const std::vector<std::string>& paths) { arrived = paths; };
  const std::vector<std::string> dropped{"C:\\Карты 地図 é😀\\Oasis.bms", "C:\\" + std::string(290, 'x') + ".zip"};
  DropOn(Show(), dropped);
  EXPECT_EQ(arrived, dropped);
}

TEST_F(DropTest, AShortcutArrivesAsWhatItLeadsTo) {
  const std::string map = InTemporaryFolder("Oase 地図.bms");
  const std::string shortcut = InTemporaryFolder("Oase 地図.bms.lnk");
  platform().files().WriteAll(map, {});
  MakeShortcut(shortcut, map);
  std::vector<std::string> arrived;
  form->FilesDropped = [&](const std::vector<std::string>& paths) { arrived = paths; };
  DropOn(Show(), {shortcut});
  platform().files().Delete(shortcut);
  platform().files().Delete(map);
  ASSERT_EQ(arrived.size(), 1U);
  EXPECT_TRUE(EqualsNoCase(arrived[0], map)) << arrived[0];
}

TEST_F(DropTest, AnInternetShortcutArrivesAsItsAddress) {
  const std::string shortcut = InTemporaryFolder("Oasis.url");
  platform().files().WriteAll(shortcut, AsBytes("[InternetShortcut]\r\nURL=http://maps.example/Oasis.bms\r\n"));
  std::vector<std::string> arrived;
  form->FilesDropped = [&](const std::vector<std::string>& paths) { arrived = paths; };
  DropOn(Show(), {shortcut});
  platform().files().Delete(shortcut);
  EXPECT_EQ(arrived, std::vector<std::string>{"http://maps.example/Oasis.bms"});
}

TEST_F(DropTest, AShortcutThatCannotBeReadArrivesItself) {
  const std::vector<std::string> dropped{"C:\\missing\\Oasis.lnk", "C:\\missing\\Oasis.url"};
  std::vector<std::string> arrived;
  form->FilesDropped = [&](const std::vector<std::string>& paths) { arrived = paths; };
  DropOn(Show(), dropped);
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

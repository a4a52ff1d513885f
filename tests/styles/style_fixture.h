// Style files made in the test, and the windows that they work on.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "forms/label.h"
#include "forms/menu_item.h"
#include "forms/timer.h"
#include "program/frame_fixture.h"
#include "program/style_hook.h"
#include "styles/mod_style.h"
#include "styles/style_active.h"

namespace kestrun {

// Entries by name, in the order of the archive.
using StyleEntries = std::vector<std::pair<std::string, std::string>>;

class StyleTest : public FrameTest {
 protected:
  StyleTest() {
    ModStyle::Install();
    // The name editor tells of a game folder without the players' file, the uploader of a site without an answer.
    WriteFile(GamePath("dflwplyr.sav"), "");
    PutSite();
  }
  ~StyleTest() override {
    CloseAllWindows();
    ModStyle::Forget();
  }

  // An archive under the style's path. An entry of no bytes is stored as such.
  std::string MakeStyle(const StyleEntries& entries, const std::string& name = "test.stl") {
    const std::string path = Path(name);
    ClsPFF archive;
    archive.NewPffFile(path);
    for (const auto& [entry, content] : entries) archive.PackFile(AsBytes(content), entry);
    archive.SavePffFile();
    return path;
  }
  // A style of one VBScript module.
  std::string MakeScriptStyle(const std::string& module) {
    return MakeStyle({{"assembly.txt", "language VBScript\r\ninclude main.vbs"}, {"main.vbs", module}});
  }
  // The same, loaded, with the two subs that every style has. A module that fails expects its boxes before.
  void WearScript(const std::string& form_load, const std::string& rest = {}) {
    ModStyle::LoadStyleFile(MakeScriptStyle("Sub Form_Load(Form)\r\n" + form_load +
                                            "\r\nEnd Sub\r\nSub Control_Load(Control, Form)\r\nEnd Sub\r\n" + rest));
  }

  // The style's error dialogue.
  [[nodiscard]] static std::string ScriptErrorText(const std::string& file, int line, int column, int number,
                                                   const std::string& description, const std::string& code) {
    return "Style Script Error:\r\nFile Name: " + file + "\r\nLine: " + std::to_string(line) +
           "\r\nColum: " + std::to_string(column) + "\r\nError Number: " + std::to_string(number) +
           "\r\nDescription: " + description + "\r\nCode: " + code +
           "\r\n\r\nClick OK to continue, Cancel to unload style file.";
  }
  ExpectedDialog& ExpectScriptError(const std::string& text, BoxAnswer answer = BoxAnswer::kOk) {
    return desktop.dialogs().ExpectBox(text, answer).WithButtons(BoxButtons::kOkCancel).WithIcon(BoxIcon::kWarning);
  }

  // A form with a label, a timer and a menu item.
  struct SmallForm : Form {
    SmallForm() : Form("frmsmall") {}
    Label& lblone = Add<Label>("lblone");
    Timer& tmrtwo = Add<Timer>("tmrtwo");
    MenuItem& mnu_three = Add<MenuItem>("mnu_three");
  };
  // What the style's script made of the form, in its caption.
  std::string CaptionAfterStyle() {
    form->Caption = "";
    ModStyle::FormLoadStyle(*form);
    return form->Caption;
  }

  Ref<SmallForm> form = MakeRef<SmallForm>();
};

}  // namespace kestrun

// The styles that go with the program, on every window: no script fails, and every text can be read.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "base/runtime_error.h"
#include "forms/button.h"
#include "forms/command_button.h"
#include "forms/timer.h"
#include "styles/style_fixture.h"
#include "support/recorded_effects.h"

namespace kestrun {
namespace {

constexpr double kReadable = 4.5;

double Linear(uint32_t channel) {
  const double part = static_cast<double>(channel) / 255;
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

// Relative luminance and contrast as WCAG 2.1 defines them.
double Luminance(Color color) {
  return 0.2126 * Linear(color & 0xFF) + 0.7152 * Linear(color >> 8 & 0xFF) + 0.0722 * Linear(color >> 16 & 0xFF);
}
double Contrast(Color one, Color other) {
  const double first = Luminance(one) + 0.05;
  const double second = Luminance(other) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

class OwnStylesTest : public StyleTest, public testing::WithParamInterface<const char*> {
 protected:
  OwnStylesTest() {
    TellGameFolder();
    WriteIni("[launcher]\r\nGAMETIMER=0\r\nDFVERSION=0\r\n");
    StyleEntries entries;
    for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(KESTRUN_STYLES) / GetParam())) {
      std::ostringstream content;
      content << std::ifstream(file.path(), std::ios::binary).rdbuf();
      const bool is_text = file.path().extension() == ".txt";
      entries.emplace_back(file.path().filename().string(),
                           is_text ? ReplaceAll(ReplaceAll(content.str(), "\r\n", "\n"), "\n", "\r\n") : content.str());
    }
    ModStyle::LoadStyleFile(MakeStyle(entries));
  }

  // What is behind a control's text: its own ground, or that of what it stands in.
  static Color GroundOf(const Control& control) {
    const auto* label = dynamic_cast<const Label*>(&control);
    if (label && label->BackStyle == 0 && control.Container()) return GroundOf(*control.Container());
    return control.BackColor;
  }
  static bool HasText(const Control& control) {
    static const std::set<std::string> kinds{"Label", "TextBox",  "ListBox",   "FileListBox",   "ComboBox",
                                             "Frame", "CheckBox", "McListBox", "CommandButton", "OptionButton"};
    const auto* label = dynamic_cast<const Label*>(&control);
    return kinds.contains(control.TypeName()) && !(label && label->Caption.get().empty());
  }

  static int CutsOf(const RecordedEffects& effects) {
    return static_cast<int>(
        std::ranges::count_if(effects.calls, [](const std::string& call) { return call.starts_with("cut "); }));
  }

  RecordedEffects effects;
};

TEST_P(OwnStylesTest, EveryTextOfEveryWindowStandsOutFromItsGround) {
  ASSERT_TRUE(StyleActive());
  for (const std::string& name : RegisteredWindows()) {
    if (name == "frmsplash" || name.starts_with("FrmEdit")) continue;
    CloseAllWindows();
    Form& window = WindowByName(name);
    window.Show();
    // All styles are on by then, and no window has begun its own work.
    desktop.clock().AdvanceMs(900);
    for (const Ref<Control>& control : window.controls()) {
      if (!HasText(*control)) continue;
      EXPECT_GE(Contrast(control->ForeColor, GroundOf(*control)), kReadable)
          << name << "." << control->Name() << std::hex << " " << control->ForeColor << " on " << GroundOf(*control);
    }
  }
}

TEST_P(OwnStylesTest, TheColourOfAMapsFogStaysWhatTheMapSays) {
  auto& window = WindowByName("frmmapinfo");
  Control& swatch = *window.FindControl("lblfogcolor");
  swatch.BackColor = Rgb(1, 2, 3);
  window.Show();
  desktop.clock().AdvanceMs(900);
  EXPECT_EQ(swatch.BackColor, Rgb(1, 2, 3));
}

// The style is applied before the window is shown, and a style that shows it itself does so when all of it is skinned.
TEST_P(OwnStylesTest, NothingOfTheFirstWindowIsShownInItsOldColours) {
  struct Splash final : Form {
    Splash() : Form("frmsplash") {}
    void Shown() override { colors = Colors(); }
    [[nodiscard]] std::vector<Color> Colors() const { return {BackColor, lblversion.ForeColor, Label2.ForeColor}; }
    Label& lblversion = Add<Label>("lblversion");
    Label& Label2 = Add<Label>("Label2");
    std::vector<Color> colors;
  };
  const Ref<Splash> splash = MakeRef<Splash>();
  FormLoadStyle(*splash);
  splash->Show();
  desktop.clock().AdvanceMs(100);
  EXPECT_EQ(splash->colors, splash->Colors());
  for (const Color color : splash->colors) EXPECT_FALSE(IsSystemColor(color));
  splash->Unload();
}

// Only "sand" has shapes: of windows that are there, since shapes are cut from the screen.
TEST_P(OwnStylesTest, TheButtonsOfAWindowAreCutWhenItIsThere) {
  Form& window = WindowByName("FrmOverWrite");
  window.Show();
  EXPECT_EQ(CutsOf(effects), 0);
  const size_t controls = window.controls().size();
  desktop.clock().AdvanceMs(900);
  EXPECT_EQ(CutsOf(effects), GetParam() == std::string("sand") ? 2 : 0);
  EXPECT_EQ(window.controls().size(), controls);
}

TEST_P(OwnStylesTest, TheButtonsOfAWindowThatIsSkinnedBeforeItIsThereAreCutAsWell) {
  for (const char* name : {"frmain", "frmhelp", "frmzip", "frmname", "frmchat", "FrmUpdate", "frmdwnlhelp"}) {
    CloseAllWindows();
    effects.calls.clear();
    Form& window = WindowByName(name);
    window.Show();
    int buttons = 0;
    for (const Ref<Control>& control : window.controls()) {
      if (control->TypeName() == "CommandButton" && control->Visible) ++buttons;
    }
    EXPECT_GT(buttons, 0) << name;
    EXPECT_EQ(CutsOf(effects), GetParam() == std::string("sand") ? buttons : 0) << name;
    EXPECT_TRUE(window.IsShown()) << name;
  }
}

// "sand" shows such a window itself, and keeps its timers waiting meanwhile.
TEST_P(OwnStylesTest, TheTimersOfAWindowThatCannotBeShownGoOn) {
  struct Refusing final : Form {
    Refusing() : Form("frmzip") { tmrwork.Interval = 10; }
    void Shown() override { Raise(1001, "Not now"); }
    Timer& tmrwork = Add<Timer>("tmrwork");
    CommandButton& Command1 = Add<CommandButton>("Command1");
  };
  std::vector<std::string> boxes;
  desktop.OnUnexpected([&boxes](const UnexpectedQuestion& box) { boxes.push_back(box.text); });
  const Ref<Refusing> window = MakeRef<Refusing>();
  FormLoadStyle(*window);
  EXPECT_TRUE(window->tmrwork.Enabled);
  if (GetParam() == std::string("sand")) {
    EXPECT_THAT(boxes, testing::ElementsAre(testing::HasSubstr("\r\nError Number: 1001\r\nDescription: Not now\r\n")));
  } else {
    EXPECT_THAT(boxes, testing::IsEmpty());
  }
  window->Unload();
}

INSTANTIATE_TEST_SUITE_P(Styles, OwnStylesTest, testing::Values("night", "sand"),
                         [](const testing::TestParamInfo<const char*>& style) { return std::string(style.param); });

}  // namespace
}  // namespace kestrun

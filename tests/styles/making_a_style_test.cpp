// The tutorial for authors of styles: each step is a style that does what its text says.
#include <gmock/gmock.h>

#include <fstream>
#include <functional>
#include <map>
#include <sstream>

#include "forms/check_box.h"
#include "forms/command_button.h"
#include "styles/check/style_check.h"
#include "styles/style_fixture.h"
#include "support/recorded_effects.h"

namespace kestrun {
namespace {

constexpr const char* kCheckBlock = "kestrun -checkstyle \"my style.stl\"";

struct Step {
  std::string heading;
  std::map<std::string, std::string> blocks;  // by what stands behind the fence's language
};

// The blocks of the page under their headings. Lines end as in a style.
std::vector<Step> ReadSteps() {
  std::ifstream page(std::string(KESTRUN_DOCS) + "/making_a_style.md");
  std::vector<Step> steps;
  std::string* block = nullptr;
  for (std::string line; std::getline(page, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.starts_with("## ")) steps.push_back({line.substr(3), {}});
    if (line.starts_with("```")) {
      block = block ? nullptr
                    : &steps.at(steps.size() - 1).blocks[line.substr(std::min(line.find(' '), line.size() - 1) + 1)];
    } else if (block) {
      block->append(line).append(kCrLf);
    }
  }
  return steps;
}

class MakingAStyleTest : public StyleTest {
 protected:
  // A bitmap of one pixel, and a wave file of silence.
  static std::string Bitmap() {
    return {
        "BM\x3A\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\1\0\0\0\1\0\0\0\1\0\x18\0\0\0\0\0\4\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
        "\0\0\0\0\xFF\xFF\xFF\0",
        58};
  }
  static std::string Wave() {
    return {"RIFF\x26\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1F\0\0\x40\x1F\0\0\1\0\x8\0data\2\0\0\0\x80\x80", 46};
  }

  // Packs the step's entries, over those of the first step, and wears the style.
  std::string Wear(const Step& step) {
    CloseAllWindows();
    std::map<std::string, std::string> entries = ReadSteps().at(0).blocks;
    for (const auto& [name, text] : step.blocks) {
      if (name != kCheckBlock) entries[name] = text;
    }
    StyleEntries content(entries.begin(), entries.end());
    content.emplace_back("sky.bmp", Bitmap());
    content.emplace_back("wind.wav", Wave());
    const std::string file = MakeStyle(content, "lesson.stl");
    ModStyle::LoadStyleFile(file);
    EXPECT_TRUE(StyleActive()) << step.heading;
    return file;
  }
  static Control& In(const char* window, const char* control) { return *WindowByName(window).FindControl(control); }
  Form& Overwrite() {
    Form& window = WindowByName("FrmOverWrite");
    window.Show();
    desktop.clock().AdvanceMs(100);  // it puts the style on by its timer
    return window;
  }
  std::vector<std::string> FaultsOf(const std::string& file) {
    StyleCheckLimits limits;
    limits.windows = {"frmhelp", "FrmOverWrite", "frmoptions"};
    std::vector<std::string> lines;
    const StyleCheckResult result = CheckStyle(file, limits);
    for (const StyleFault& fault : result.faults) lines.push_back(LineOf(fault));
    EXPECT_EQ(result.rest, "");
    return lines;
  }

  RecordedEffects effects;
  // What each step claims, by its heading.
  const std::map<std::string, std::function<void()>> claims{
      {"1. The smallest style",
       [] {
         EXPECT_EQ(ModStyle::CurrentStyle()->designer, "your name");
         EXPECT_EQ(ModStyle::CurrentStyle()->version, "1.9.2");
         EXPECT_TRUE(IsSystemColor(WindowByName("frmhelp").BackColor));
       }},
      {"2. Colours",
       [this] {
         EXPECT_EQ(WindowByName("frmhelp").BackColor.get(), 0x28221EU);
         EXPECT_EQ(In("frmhelp", "Label1").ForeColor.get(), 0xEDEAE8U);
         EXPECT_EQ(In("frmhelp", "Command1").BackColor.get(), 0x50453BU);
         EXPECT_EQ(Overwrite().FindControl("ChShow")->BackColor.get(), 0x28221EU);
       }},
      {"3. One window, one control",
       [this] {
         EXPECT_EQ(WindowByName("frmhelp").Caption.get(), "About my style");
         EXPECT_TRUE(In("frmhelp", "Label1").Font->italic);
         EXPECT_FALSE(In("frmhelp", "Command1").Font->bold);
         EXPECT_TRUE(Overwrite().FindControl("CmdOK")->Font->bold);
       }},
      {"4. Two modules",
       [] {
         EXPECT_EQ(WindowByName("frmhelp").BackColor.get(), 0xBADCE8U);
         EXPECT_EQ(In("frmhelp", "Label2").ForeColor.get(), 0x12263AU);
         EXPECT_EQ(In("frmhelp", "Label3").ForeColor.get(), 0x5A1E14U);
       }},
      {"5. Pictures and sounds",
       [this] {
         EXPECT_NE(WindowByName("frmhelp").Picture.get(), nullptr);
         EXPECT_EQ(effects.sounds.size(), 1U);
         EXPECT_EQ(static_cast<Label&>(In("frmhelp", "Label2")).BackStyle.get(), 0);
       }},
      {"6. A gradient",
       [this] {
         static_cast<void>(WindowByName("frmhelp"));
         EXPECT_EQ(effects.gradient[0].red, 0xF000);
         EXPECT_EQ(effects.gradient[1].blue, 0xA800);
         EXPECT_EQ(effects.gradient[1].x, WindowByName("frmhelp").ScaleWidth() / 15);
       }},
      {"7. A control of your own",
       [] {
         auto& mine = static_cast<Label&>(In("frmhelp", "lblMine"));
         EXPECT_EQ(mine.Caption.get(), "By me");
         EXPECT_TRUE(mine.Visible);
       }},
  };
};

TEST_F(MakingAStyleTest, EveryStepIsAStyleThatDoesWhatItsTextSays) {
  const std::vector<Step> steps = ReadSteps();
  ASSERT_EQ(steps.size(), claims.size() + 1);
  for (const Step& step : steps) {
    SCOPED_TRACE(step.heading);
    ASSERT_FALSE(step.blocks.empty());
    if (step.blocks.contains(kCheckBlock)) continue;
    ASSERT_TRUE(claims.contains(step.heading));
    const std::string file = Wear(step);
    claims.at(step.heading)();
    EXPECT_THAT(FaultsOf(file), testing::IsEmpty());
  }
}

TEST_F(MakingAStyleTest, TheCheckSaysWhatThePageShows) {
  const Step step = ReadSteps().back();
  ASSERT_TRUE(step.blocks.contains(kCheckBlock));
  StyleEntries entries;
  std::map<std::string, std::string> blocks = ReadSteps().at(0).blocks;
  blocks["main.vbs"] = step.blocks.at("main.vbs");
  std::string lines;
  for (const std::string& line : FaultsOf(MakeStyle({blocks.begin(), blocks.end()}))) lines.append(line).append(kCrLf);
  EXPECT_EQ(lines, step.blocks.at(kCheckBlock));
}

TEST_F(MakingAStyleTest, EveryBlockIsAnEntryOfAStyleOrWhatTheCheckSays) {
  for (const Step& step : ReadSteps()) {
    for (const auto& [name, text] : step.blocks) {
      EXPECT_TRUE(name == kCheckBlock || name == "assembly.txt" || name.ends_with(".vbs")) << name;
      EXPECT_NE(text, "") << name;
    }
  }
}

}  // namespace
}  // namespace kestrun

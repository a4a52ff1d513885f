// The line and the bar in which a window shows its fetches.
#include "program/fetch_line.h"

#include <gtest/gtest.h>

#include "forms/form.h"
#include "forms/label.h"
#include "support/headless_fixture.h"
#include "web/download_file.h"

namespace kestrun {
namespace {

class FetchingWindow final : public Form {
 public:
  FetchingWindow() : Form("frmfetching") {}
  Label& lblline = Add<Label>("lblline");
  ProgressBar& bar = Add<ProgressBar>("bar");
  FetchLine line{&bar, [this](const std::string& words) { lblline.Caption = words; },
                 [this] { lblline.Caption = "own"; }};
};

class FetchLineTest : public HeadlessTest {
 protected:
  const Ref<FetchingWindow> window = MakeRef<FetchingWindow>();
};

TEST_F(FetchLineTest, TheBarIsSeenDuringAFetchAlone) {
  EXPECT_FALSE(window->bar.Visible);
  window->line.ShowFetch({"http://x/a.bms", 50, 200});
  EXPECT_TRUE(window->bar.Visible);
  EXPECT_TRUE(window->bar.ShowPercent);
  EXPECT_EQ(window->bar.Value, 25);
  EXPECT_EQ(window->lblline.Caption.get(), "Fetching a.bms from x: 1 KB of 1 KB (25 %). Esc cancels.");
  window->line.EndFetch();
  EXPECT_FALSE(window->bar.Visible);
  EXPECT_EQ(window->lblline.Caption.get(), "own");
}

TEST_F(FetchLineTest, WithoutAKnownWholeTheBarMovesAndNamesNoShare) {
  window->line.ShowFetch({"http://x/a.bms", 0, std::nullopt});
  const int first = window->bar.Value;
  window->line.ShowFetch({"http://x/a.bms", 1000, std::nullopt});
  EXPECT_FALSE(window->bar.ShowPercent);
  EXPECT_NE(window->bar.Value, first);
  for (int tick = 0; tick < 200; ++tick) {
    window->line.ShowFetch({"http://x/a.bms", 1000, std::nullopt});
    EXPECT_LT(window->bar.Value, 100);
  }
}

TEST_F(FetchLineTest, AFetchThatIsLeftGivesTheLineBack) {
  desktop.internet().Reply("http://x/a.bms", "map");
  desktop.internet().leave_after_bytes = 0;
  {
    const FetchScope scope(&window->line);
    EXPECT_FALSE(DownloadFile("http://x/a.bms", Path("temp\\a.bms")));
  }
  EXPECT_EQ(window->lblline.Caption.get(), "own");
  EXPECT_FALSE(window->bar.Visible);
}

}  // namespace
}  // namespace kestrun

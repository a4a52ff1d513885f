// The line at the foot of a window, and how it shows a fetch.
#include "program/window_kit/status_line.h"

#include <gtest/gtest.h>

#include "forms/form.h"
#include "support/headless_fixture.h"
#include "web/download_file.h"

namespace kestrun {
namespace {

constexpr int kWidth = 9000;
constexpr int kHeight = 3000;
constexpr const char* kOwnWords = "Select a map.";

class FetchingWindow final : public Form {
 public:
  FetchingWindow() : Form("frmfetching") {
    line.LayOut(kOwnWords);
    line.Place(kWidth, kHeight);
  }
  PictureBox& strip = Add<PictureBox>("strip");
  TextBox& words = Add<TextBox>("words");
  ProgressBar& bar = Add<ProgressBar>("bar");
  StatusLine line{strip, words, bar};
};

class StatusLineTest : public HeadlessTest {
 protected:
  const Ref<FetchingWindow> window = MakeRef<FetchingWindow>();
};

TEST_F(StatusLineTest, TheLineStandsAtTheFootOfTheWindow) {
  EXPECT_EQ(window->strip.Top + window->strip.Height, kHeight);
  EXPECT_EQ(window->strip.Width, kWidth);
  EXPECT_EQ(window->words.Text.get(), kOwnWords);
}

TEST_F(StatusLineTest, TheBarIsSeenDuringAFetchAlone) {
  EXPECT_FALSE(window->bar.Visible);
  window->line.ShowFetch({"http://x/a.bms", 50, 200});
  EXPECT_TRUE(window->bar.Visible);
  EXPECT_EQ(window->bar.Value, 25);
  EXPECT_EQ(window->bar.AccessibleValue(), "25%");
  EXPECT_EQ(window->bar.AccessibleName(), "Progress of the fetch");
  EXPECT_EQ(window->words.Text.get(), "Fetching a.bms from x: 1 KB of 1 KB (25 %). Esc cancels.");
  window->line.EndFetch();
  EXPECT_FALSE(window->bar.Visible);
  EXPECT_EQ(window->words.Text.get(), kOwnWords);
}

TEST_F(StatusLineTest, TheWordsMakeRoomForTheBar) {
  const int alone = window->words.Width;
  window->line.ShowFetch({"http://x/a.bms", 50, 200});
  EXPECT_LE(window->words.Left + window->words.Width, window->bar.Left.get());
  EXPECT_LE(window->bar.Left + window->bar.Width, window->strip.Width.get());
  window->line.EndFetch();
  EXPECT_EQ(window->words.Width.get(), alone);
}

TEST_F(StatusLineTest, WithoutAKnownWholeTheBarMovesAndTellsNoShare) {
  window->line.ShowFetch({"http://x/a.bms", 0, std::nullopt});
  const int first = window->bar.Value;
  window->line.ShowFetch({"http://x/a.bms", 1000, std::nullopt});
  EXPECT_EQ(window->bar.AccessibleValue(), "");
  EXPECT_NE(window->bar.Value, first);
  for (int tick = 0; tick < 200; ++tick) {
    window->line.ShowFetch({"http://x/a.bms", 1000, std::nullopt});
    EXPECT_LT(window->bar.Value, 100);
  }
}

TEST_F(StatusLineTest, ALineThatIsOffComesUpForAFetch) {
  window->line.Switch(false);
  EXPECT_EQ(window->strip.Top.get(), kHeight);
  window->line.ShowFetch({"http://x/a.bms", 0, std::nullopt});
  EXPECT_TRUE(window->words.Visible);
  EXPECT_EQ(window->strip.Top + window->strip.Height, kHeight);
  window->line.EndFetch();
  EXPECT_FALSE(window->words.Visible);
  EXPECT_EQ(window->strip.Top.get(), kHeight);
}

TEST_F(StatusLineTest, AFetchThatIsLeftGivesTheLineBack) {
  desktop.internet().Reply("http://x/a.bms", "map");
  desktop.internet().leave_after_bytes = 0;
  {
    const FetchScope scope(&window->line);
    EXPECT_FALSE(DownloadFile("http://x/a.bms", Path("temp\\a.bms")));
  }
  EXPECT_EQ(window->words.Text.get(), kOwnWords);
  EXPECT_FALSE(window->bar.Visible);
}

TEST_F(StatusLineTest, ReadersAreToldOfEachStep) {
  desktop.windowing().record_calls = true;
  window->Show();
  window->line.ShowFetch({"http://x/a.bms", 50, 200});
  const auto& calls = desktop.windowing().accessibility_calls;
  ASSERT_FALSE(calls.empty());
  EXPECT_EQ(calls.back().event, AccessibleEvent::kValue);
  EXPECT_EQ(calls.back().control, "bar");
}

}  // namespace
}  // namespace kestrun

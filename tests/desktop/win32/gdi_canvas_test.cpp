// What a control paints, read back from its window.
#include "desktop/win32/drawing/gdi_canvas.h"

#include "desktop/win32/user_control_fixture.h"

namespace kestrun {
namespace {

class GdiCanvasTest : public UserControlWindowTest {};

TEST_F(GdiCanvasTest, PaintsOnceForSeveralRequests) {
  const int before = sample().paints;
  for (int request = 0; request < 5; ++request) sample().Invalidate();
  Pump();
  EXPECT_EQ(sample().paints, before + 1);
}

TEST_F(GdiCanvasTest, IsNotAskedAgainForWhatWasCoveredOnly) {
  const int before = sample().paints;
  InvalidateRect(Handle(), nullptr, TRUE);
  Pump();
  EXPECT_EQ(sample().paints, before);
  EXPECT_EQ(PixelAt(Handle(), 150, 10), kSampleBackground);
}

TEST_F(GdiCanvasTest, ARequestDuringAPaintIsNotLost) {
  int left = 1;
  sample().on_paint = [&](Canvas&) {
    if (left-- > 0) sample().Invalidate();
  };
  const int before = sample().paints;
  sample().Invalidate();
  Pump();
  EXPECT_EQ(sample().paints, before + 2);
}

TEST_F(GdiCanvasTest, FillsAndStretchesPixelsWithoutSmoothing) {
  ASSERT_EQ(sample().client(), (PixelSize{200, 100}));
  EXPECT_EQ(PixelAt(Handle(), 150, 10), kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 0, 0), Rgb(255, 0, 0));
  EXPECT_EQ(PixelAt(Handle(), 49, 24), Rgb(255, 0, 0));
  EXPECT_EQ(PixelAt(Handle(), 51, 24), Rgb(0, 255, 0));
  EXPECT_EQ(PixelAt(Handle(), 10, 40), Rgb(0, 0, 255));
  EXPECT_EQ(PixelAt(Handle(), 99, 49), Rgb(255, 255, 255));
}

TEST_F(GdiCanvasTest, TextIsSeen) {
  const auto lit = [this] {
    sample().Invalidate();
    Pump();
    int count = 0;
    for (int x = 0; x < 200; x += 1) {
      for (int y = 60; y < 90; ++y) count += PixelAt(Handle(), x, y) != kSampleBackground ? 1 : 0;
    }
    return count;
  };
  EXPECT_EQ(lit(), 0);
  sample().text = "Ж & text";
  const int some = lit();
  EXPECT_GT(some, 20);
  sample().text = std::string(100000, 'm');
  EXPECT_GT(lit(), some);
}

TEST_F(GdiCanvasTest, OfAVeryLongTextTheSidePaintsThatItIsAlignedTo) {
  const std::string filler(100000, 'i');
  std::string two_bytes;
  for (int letter = 0; letter < 50001; ++letter) two_bytes += "Ж";
  const auto paint = [this](const std::string& text, TextPlacement placement) {
    sample().on_paint = [&](Canvas& canvas) { canvas.Text(text, {0, 50, 200, 100}, {}, color::kWhite, placement); };
    sample().Invalidate();
    Pump();
    sample().on_paint = nullptr;
  };
  const auto pixels = [](int from, int to) {
    std::vector<Color> row;
    for (int x = from; x < to; ++x) {
      for (int y = 60; y < 90; ++y) row.push_back(PixelAt(Handle(), x, y));
    }
    return row;
  };
  paint("WAVE", TextPlacement::kLeft);
  const auto at_left = pixels(0, 20);
  paint("WAVE" + filler, TextPlacement::kLeft);
  EXPECT_EQ(pixels(0, 20), at_left);
  paint("WAVE", TextPlacement::kRight);
  const auto at_right = pixels(180, 200);
  paint(filler + "WAVE", TextPlacement::kRight);
  EXPECT_EQ(pixels(180, 200), at_right);
  paint("I", TextPlacement::kCenter);
  EXPECT_NE(pixels(95, 105), std::vector<Color>(300, kSampleBackground));
  EXPECT_EQ(pixels(0, 90), std::vector<Color>(2700, kSampleBackground));
  // However the text is placed, only what is seen is handed to the system.
  std::string astral;
  for (int letter = 0; letter < 30000; ++letter) astral += "\xF0\x9F\x98\x80";
  paint(astral + "WAVE", TextPlacement::kRight);
  EXPECT_EQ(pixels(180, 200), at_right) << "cut between the halves of a character";
  paint(filler + "WAVE", TextPlacement::kCenter);
  EXPECT_NE(pixels(0, 20), std::vector<Color>(600, kSampleBackground));
  EXPECT_NE(pixels(180, 200), std::vector<Color>(600, kSampleBackground));
  // Cut at any byte: no half of a letter is shown as a mark of its own.
  paint("Ж", TextPlacement::kLeft);
  const int step = sample().MeasureText("ЖЖ", {}).width / 2;
  const auto letter = pixels(0, step);
  paint(two_bytes, TextPlacement::kLeft);
  EXPECT_EQ(pixels(0, step), letter);
  paint(two_bytes, TextPlacement::kRight);
  const auto last = pixels(200 - step, 200);
  paint("x" + two_bytes, TextPlacement::kRight);
  EXPECT_EQ(pixels(200 - step, 200), last);
  paint("x" + two_bytes, TextPlacement::kCenter);
  EXPECT_NE(pixels(95, 105), std::vector<Color>(300, kSampleBackground));
}

TEST_F(GdiCanvasTest, AlignsFramesClipsAndMarksTheFocus) {
  const auto count = [](int from, int to) {
    int lit = 0;
    for (int x = from; x < to; ++x) {
      for (int y = 60; y < 90; ++y) lit += PixelAt(Handle(), x, y) != kSampleBackground ? 1 : 0;
    }
    return lit;
  };
  sample().on_paint = [&](Canvas& canvas) {
    canvas.Text("right", {0, 50, 190, 100}, {}, color::kWhite, TextPlacement::kRight);
    canvas.Frame({110, 5, 130, 25}, Rgb(1, 2, 3));
    canvas.HorizontalLine(110, 120, 30, Rgb(4, 5, 6));
    canvas.FocusRectangle({140, 5, 180, 25});
    canvas.PushClip({110, 35, 150, 45});
    canvas.PushClip({120, 0, 200, 100});
    canvas.Fill({0, 0, 200, 100}, Rgb(7, 8, 9));
    canvas.PopClip();
    canvas.Fill({110, 35, 111, 100}, Rgb(7, 8, 9));
    canvas.PopClip();
    canvas.Fill({199, 99, 200, 100}, Rgb(9, 9, 9));
  };
  sample().Invalidate();
  Pump();
  EXPECT_EQ(count(0, 100), 0);
  EXPECT_GT(count(150, 190), 10);
  EXPECT_EQ(PixelAt(Handle(), 110, 5), Rgb(1, 2, 3));
  EXPECT_EQ(PixelAt(Handle(), 129, 24), Rgb(1, 2, 3));
  EXPECT_EQ(PixelAt(Handle(), 111, 6), kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 119, 30), Rgb(4, 5, 6));
  EXPECT_EQ(PixelAt(Handle(), 120, 30), kSampleBackground);
  EXPECT_NE(PixelAt(Handle(), 140, 5) == kSampleBackground, PixelAt(Handle(), 141, 5) == kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 125, 40), Rgb(7, 8, 9));
  EXPECT_EQ(PixelAt(Handle(), 110, 40), Rgb(7, 8, 9));
  EXPECT_EQ(PixelAt(Handle(), 115, 40), kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 155, 40), kSampleBackground);
  EXPECT_EQ(PixelAt(Handle(), 199, 99), Rgb(9, 9, 9));
}

TEST_F(GdiCanvasTest, PicturesKeepTheirTransparency) {
  // Opaque red beside nothing at all.
  const auto picture = MakeRef<Picture>(2, 1, std::vector<uint32_t>{0xFFFF0000, 0x00FFFFFF});
  sample().on_paint = [&](Canvas& canvas) { canvas.DrawPicture(*picture, {120, 0, 160, 20}); };
  sample().Invalidate();
  Pump();
  EXPECT_EQ(PixelAt(Handle(), 125, 10), Rgb(255, 0, 0));
  EXPECT_EQ(PixelAt(Handle(), 155, 10), kSampleBackground);
}

TEST_F(GdiCanvasTest, TextIsMeasuredTheSameInAndOutsideOfPaint) {
  const FontDescription font{"Tahoma", 12, true};
  PixelSize inside;
  sample().on_paint = [&](Canvas& canvas) { inside = canvas.MeasureText("Wide Ж", font); };
  sample().Invalidate();
  Pump();
  EXPECT_GT(inside.width, 20);
  EXPECT_EQ(sample().MeasureText("Wide Ж", font), inside);
  EXPECT_EQ(sample().MeasureText("", font), (PixelSize{0, inside.height}));
  EXPECT_EQ(sample().MeasureText("a\r\tb", font), sample().MeasureText("a  b", font));
}

TEST_F(GdiCanvasTest, APaintMayCloseItsOwnForm) {
  sample().on_paint = [](Canvas& canvas) {
    form().Unload();
    canvas.Fill({0, 0, 10, 10}, color::kWhite);
  };
  sample().Invalidate();
  Pump();
  EXPECT_EQ(LoadedWindow(frmsamples::kName), nullptr);
}

BOOL CALLBACK TakeMessageBox(HWND window, LPARAM result) {
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (std::wstring_view(name) != L"#32770" || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(result) = window;
  return FALSE;
}

// The message box that this program shows; others may have theirs.
HWND FindOwnBox() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), &TakeMessageBox, reinterpret_cast<LPARAM>(&found));
  return found;
}

TEST_F(GdiCanvasTest, AFailingPaintIsReportedOnce) {
  int boxes = 0;
  const TimerId timer = platform.clock().StartTimer(10, [&boxes] {
    const HWND box = FindOwnBox();
    if (!box) return;
    ++boxes;
    SendMessageW(box, WM_COMMAND, IDOK, 0);
  });
  sample().on_paint = [](Canvas&) { Raise(error::kTypeMismatch); };
  sample().Invalidate();
  Pump();
  Pump();
  platform.clock().StopTimer(timer);
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(PixelAt(Handle(), 150, 10), kSampleBackground);
}

TEST_F(GdiCanvasTest, PaintsAnewWhenTheSystemsColoursChange) {
  const int before = sample().paints;
  SendMessageW(window().window(), WM_SYSCOLORCHANGE, 0, 0);
  Pump();
  EXPECT_EQ(sample().paints, before + 1);
}

}  // namespace
}  // namespace kestrun

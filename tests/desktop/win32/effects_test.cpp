// What styles do to real windows: regions beside the system's own data, gradients, opacity, and controls cut to a
// shape.
#include <random>

#include "desktop/win32/drawing/graphics.h"
#include "desktop/win32/window/win32_effects.h"
#include "desktop/win32/window_fixture.h"
#include "forms/picture_box.h"
#include "styles/mod_trans_control.h"

namespace kestrun {
namespace {

class EffectsTest : public RealWindowTest {
 protected:
  // A bitmap of the system with random pixels of two colours.
  static BitmapHandle RandomBitmap(std::mt19937& random, int width, int height) {
    PixelBitmap made = MakePixelBitmap(width, height);
    for (int at = 0; at < width * height; ++at) made.pixels[at] = random() % 3 == 0 ? 0x000000 : 0x4080C0;
    return std::move(made.bitmap);
  }
  static std::vector<RECT> RectsOf(HRGN region) {
    const DWORD size = GetRegionData(region, 0, nullptr);
    std::vector<uint8_t> bytes(size);
    auto* data = reinterpret_cast<RGNDATA*>(bytes.data());
    GetRegionData(region, size, data);
    const auto* first = reinterpret_cast<const RECT*>(data->Buffer);
    return {first, first + data->rdh.nCount};
  }
  static bool IsIn(const std::vector<RECT>& rects, int x, int y) {
    return std::any_of(rects.begin(), rects.end(), [&](const RECT& rect) {
      return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
    });
  }

  // The window manager takes its time on a busy machine.
  void WaitFor(const std::function<bool()>& condition) {
    constexpr uint32_t kTurnMs = 10;
    for (uint32_t waited_ms = 0; waited_ms < 10000 && !condition(); waited_ms += kTurnMs) {
      kestrun::Sleep(kTurnMs);
      Pump();
    }
  }

  Win32Effects effects;
};

TEST_F(EffectsTest, ARegionsOwnDataCoversWhatTheListOfRunsCovers) {
  std::mt19937 random(7);
  for (int round = 0; round < 20; ++round) {
    const int width = static_cast<int>(random() % 60) + 1;
    const int height = static_cast<int>(random() % 30) + 1;
    const BitmapHandle bitmap = RandomBitmap(random, width, height);
    const auto number = static_cast<BitmapNumber>(reinterpret_cast<intptr_t>(bitmap.get()));
    const std::optional<BitmapPixels> pixels = effects.ReadBitmap(number, 0);
    ASSERT_TRUE(pixels);
    const RegionList list = ListRuns(*pixels, 0, false);
    const RegionNumber made = RegionFromBitmap(number, 0, 0, false);
    ASSERT_NE(made, 0);
    const RegionHandle region(reinterpret_cast<HRGN>(static_cast<intptr_t>(made)));
    const std::vector<RECT> rects = RectsOf(region.get());
    std::vector<RECT> runs;
    for (int32_t at = 0; at < list.count; ++at) {
      const RegionRect& run = list.slots[static_cast<size_t>(at + kFirstRect)];
      runs.push_back({run.left, run.top, run.right, run.bottom});
    }
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) ASSERT_EQ(IsIn(rects, x, y), IsIn(runs, x, y)) << x << ", " << y;
    }
  }
}

TEST_F(EffectsTest, BlocksGiveTheSameRegionAsOneCall) {
  RegionList list;
  list.slots.resize(2 + 5000);
  list.count = 5000;
  for (int32_t at = 0; at < list.count; ++at) list.slots[static_cast<size_t>(at + 2)] = {0, at * 2, 3, at * 2 + 1};
  RegionList copy = list;
  const auto handle = [](RegionNumber number) { return reinterpret_cast<HRGN>(static_cast<intptr_t>(number)); };
  const RegionHandle whole(handle(RegionFromRects(list, 2, 5001, 0, 3)));
  const RegionHandle blocks(handle(RegionFromRectBlocks(copy, 5001, 0, 3)));
  EXPECT_TRUE(EqualRgn(whole.get(), blocks.get()));
}

TEST_F(EffectsTest, APixelsBytesAreBlueGreenRedFromTheTop) {
  PixelBitmap made = MakePixelBitmap(2, 2);
  const uint32_t rows[] = {0x112233, 0x445566, 0x778899, 0xAABBCC};
  std::copy(std::begin(rows), std::end(rows), made.pixels);
  const std::optional<BitmapPixels> pixels =
      effects.ReadBitmap(static_cast<BitmapNumber>(reinterpret_cast<intptr_t>(made.bitmap.get())), 0);
  ASSERT_TRUE(pixels);
  EXPECT_EQ(pixels->bytes,
            (std::vector<uint8_t>{0x33, 0x22, 0x11, 0x66, 0x55, 0x44, 0, 0, 0x99, 0x88, 0x77, 0xCC, 0xBB, 0xAA, 0, 0}));
}

TEST_F(EffectsTest, AGradientIsDrawnOnAFormsKeptBitmap) {
  const Ref<Form> form = MakeRef<Form>("frmgradient");
  form->BorderStyle = static_cast<int>(FormBorder::kNone);
  form->SetClientSize(1500, 1500);
  form->Show();
  const int side = static_cast<int>(ClientOf(HandleOf(*form)).cy);
  effects.FillGradient(form->DrawingContext(),
                       {GradientVertex{0, 0, 0xFF00, 0, 0, 0}, GradientVertex{side, side, 0, 0, 0xFF00, 0}});
  Pump();
  const Color top = PixelAt(HandleOf(*form), 5, 1);
  const Color bottom = PixelAt(HandleOf(*form), 5, side - 2);
  EXPECT_GT(top & 0xFF, 0xE0U) << "red";
  EXPECT_GT(bottom >> 16 & 0xFF, 0xE0U) << "blue";
  form->Unload();
}

TEST_F(EffectsTest, OpacityMakesAWindowLayered) {
  const Ref<Form> form = MakeRef<Form>("frmglass");
  form->Show();
  effects.SetOpacity(form->WindowNumber(), 128);
  EXPECT_NE(GetWindowLongPtrW(HandleOf(*form), GWL_EXSTYLE) & WS_EX_LAYERED, 0);
  effects.SetOpacity(12345, 128);  // no window: without effect
  form->Unload();
}

TEST_F(EffectsTest, AControlIsCutToItsOwnPixels) {
  const Ref<Form> form = MakeRef<Form>("frmcut");
  form->SetClientSize(3000, 1500);
  form->BackColor = color::kWhite;
  auto& box = form->Add<PictureBox>("picture");
  box.BorderStyle = 0;
  box.Move(0, 0, 600, 600);
  box.BackColor = color::kBlack;
  form->Show();
  box.DrawLine(150, 150, 450, 450, Rgb(200, 20, 20), LineShape::kFilledBox);
  WaitFor([&] { return PixelAt(HandleOf(box), 20, 20) == Rgb(200, 20, 20); });
  CutControlToKeyColour(box, 0);
  const RegionHandle region(CreateRectRgn(0, 0, 0, 0));
  ASSERT_EQ(GetWindowRgn(HandleOf(box), region.get()), SIMPLEREGION);
  EXPECT_TRUE(PtInRegion(region.get(), 20, 20));
  EXPECT_FALSE(PtInRegion(region.get(), 3, 3));
  form->Unload();
}

}  // namespace
}  // namespace kestrun

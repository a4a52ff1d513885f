#include "desktop/win32/drawing/gdi_canvas.h"

#include <algorithm>

#include "desktop/win32/system/wide_text.h"

namespace kestrun {
namespace {

RECT ToRect(const PixelRect& area) { return {area.left, area.top, area.right, area.bottom}; }

bool IsInsideOfCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

// The part of a text that can show in a width, where the text is far longer: laying out a whole page of text for a
// narrow row would take far more time than drawing it. A character is taken to be half a pixel wide at least, and to
// be four bytes long at most.
std::string_view VisiblePart(std::string_view text, int width, TextPlacement placement) {
  const size_t most = (static_cast<size_t>(std::max(width, 0)) * 2 + 64) * 4;
  if (text.size() <= most) return text;
  const size_t hidden = text.size() - most;
  size_t from = placement == TextPlacement::kLeft ? 0 : placement == TextPlacement::kRight ? hidden : hidden / 2;
  size_t to = from + most;
  while (from < to && IsInsideOfCharacter(text[from])) ++from;
  while (to > from && to < text.size() && IsInsideOfCharacter(text[to])) --to;
  return text.substr(from, to - from);
}

// One line: characters that would break it or jump are blanks.
std::wstring ToLine(std::string_view text) {
  std::wstring line = ToWide(text);
  std::replace_if(
      line.begin(), line.end(), [](wchar_t unit) { return unit < L' '; }, L' ');
  return line;
}

// The characters of a laid out line that are drawn, and where the first of them starts.
struct DrawnRun {
  size_t first = 0;
  size_t count = 0;
  int left = 0;
};

bool IsInsideOfPair(const std::wstring& line, size_t at) { return at < line.size() && IS_LOW_SURROGATE(line[at]); }

// What shows between 0 and `width` of a line that starts at `start`, which may be far left of 0, with one character
// more on each side, which may reach over its edge. `ends` are the right edges of the characters, measured from the
// line's start. The rest is left out: systems draw nothing at all of a text that starts far outside.
DrawnRun FindDrawn(const std::wstring& line, const std::vector<int>& ends, int start, int width) {
  auto first = static_cast<size_t>(std::upper_bound(ends.begin(), ends.end(), -start) - ends.begin());
  auto last = static_cast<size_t>(std::lower_bound(ends.begin(), ends.end(), width - start) - ends.begin());
  first -= first > 0 ? 1 : 0;
  last = std::min(last + 2, line.size());
  while (first > 0 && IsInsideOfPair(line, first)) --first;
  while (IsInsideOfPair(line, last)) ++last;
  return {first, last - first, start + (first == 0 ? 0 : ends[first - 1])};
}

}  // namespace

// ---- fonts and the bitmap ------------------------------------------------------------------------------------------

HFONT FontCache::Get(const FontDescription& font, int dpi) {
  constexpr size_t kMost = 32;  // a window has a handful; more come only from a user who tries fonts out
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& entry) { return entry.dpi == dpi && entry.font == font; });
  if (found != entries_.end()) return found->handle.get();
  if (entries_.size() >= kMost) entries_.erase(entries_.begin());
  entries_.push_back({font, dpi, MakeFont(font, ScreenScale(dpi))});
  return entries_.back().handle.get();
}

PixelSize MeasureLine(HDC device, std::string_view text) {
  const std::wstring wide = ToLine(text);
  SIZE size{};
  GetTextExtentPoint32W(device, wide.data(), static_cast<int>(wide.size()), &size);
  if (!text.empty()) return {size.cx, size.cy};
  TEXTMETRICW metrics{};
  GetTextMetricsW(device, &metrics);
  return {0, metrics.tmHeight};
}

bool BackBuffer::Resize(HDC like, PixelSize size) {
  if (device_.IsValid() && size == size_) return true;
  Release();
  MemoryDevice device(CreateCompatibleDC(like));
  BitmapHandle bitmap(CreateCompatibleBitmap(like, size.width, size.height));
  if (!device.IsValid() || !bitmap.IsValid()) return false;
  SelectObject(device.get(), bitmap.get());
  device_ = std::move(device);
  bitmap_ = std::move(bitmap);
  size_ = size;
  return true;
}

void BackBuffer::Release() {
  device_.Reset();
  bitmap_.Reset();
  size_ = {};
}

// ---- painting ------------------------------------------------------------------------------------------------------

GdiCanvas::GdiCanvas(HDC target, PixelSize size, int dpi, FontCache& fonts)
    : target_(target), size_(size), dpi_(dpi), fonts_(fonts), saved_(SaveDC(target)) {
  SetBkMode(target_, TRANSPARENT);
  SetStretchBltMode(target_, COLORONCOLOR);
}

GdiCanvas::~GdiCanvas() { RestoreDC(target_, saved_); }

// An opaque text without characters: the quickest way to fill, and no brush is made for it.
void GdiCanvas::Fill(const PixelRect& area, Color color) {
  if (area.IsEmpty()) return;
  const RECT place = ToRect(area);
  SetBkColor(target_, ToColorRef(color));
  ExtTextOutW(target_, 0, 0, ETO_OPAQUE, &place, L"", 0, nullptr);
}

void GdiCanvas::Frame(const PixelRect& area, Color color) {
  if (area.IsEmpty()) return;
  const RECT place = ToRect(area);
  SetDCBrushColor(target_, ToColorRef(color));
  FrameRect(target_, &place, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void GdiCanvas::HorizontalLine(int left, int right, int y, Color color) { Fill({left, y, right, y + 1}, color); }

void GdiCanvas::Line(PixelPoint from, PixelPoint to, Color color, int width) {
  const PenHandle pen(CreatePen(PS_SOLID, width, ToColorRef(color)));
  const HGDIOBJ previous = SelectObject(target_, pen.get());
  MoveToEx(target_, from.x, from.y, nullptr);
  LineTo(target_, to.x, to.y);
  SelectObject(target_, previous);
  // The system's line ends before its last pixel.
  if (width == 1) SetPixelV(target_, to.x, to.y, ToColorRef(color));
}

void GdiCanvas::FocusRectangle(const PixelRect& area) {
  if (area.IsEmpty()) return;
  const RECT place = ToRect(area);
  // The dots are drawn by exclusive or with these two.
  SetTextColor(target_, RGB(0, 0, 0));
  SetBkColor(target_, RGB(255, 255, 255));
  DrawFocusRect(target_, &place);
}

void GdiCanvas::Text(std::string_view text, const PixelRect& area, const FontDescription& font, Color color,
                     TextPlacement placement) {
  if (text.empty() || area.IsEmpty()) return;
  const std::wstring line = ToLine(VisiblePart(text, area.width(), placement));
  SelectObject(target_, fonts_.Get(font, dpi_));
  SetTextColor(target_, ToColorRef(color));
  SIZE size{};
  std::vector<int> ends(line.size());
  GetTextExtentExPointW(target_, line.data(), static_cast<int>(line.size()), 0, nullptr, ends.data(), &size);
  const int room = area.width() - static_cast<int>(size.cx);  // below 0 for a text that is cut
  const int before = placement == TextPlacement::kRight ? room : placement == TextPlacement::kCenter ? room / 2 : 0;
  const DrawnRun run = FindDrawn(line, ends, before, area.width());
  const RECT place = ToRect(area);
  // Drawn directly: the system's call for aligned text takes no more than some hundred characters everywhere.
  ExtTextOutW(target_, area.left + run.left, area.top + (area.height() - static_cast<int>(size.cy)) / 2, ETO_CLIPPED,
              &place, line.data() + run.first, static_cast<UINT>(run.count), nullptr);
}

PixelSize GdiCanvas::MeasureText(std::string_view text, const FontDescription& font) {
  SelectObject(target_, fonts_.Get(font, dpi_));
  return MeasureLine(target_, text);
}

void GdiCanvas::DrawPicture(const Picture& picture, const PixelRect& area) {
  DrawPictureTo(target_, picture, ToRect(area));
}

void GdiCanvas::DrawPixels(std::span<const uint32_t> pixels, PixelSize block, const PixelRect& area) {
  if (area.IsEmpty() || block.width <= 0 || block.height <= 0) return;
  if (pixels.size() / static_cast<size_t>(block.width) < static_cast<size_t>(block.height)) return;
  const BITMAPINFO info = TopDownInfo(block.width, block.height, 32);
  StretchDIBits(target_, area.left, area.top, area.width(), area.height(), 0, 0, block.width, block.height,
                pixels.data(), &info, DIB_RGB_COLORS, SRCCOPY);
}

void GdiCanvas::PushClip(const PixelRect& area) {
  SaveDC(target_);
  ++clips_;
  IntersectClipRect(target_, area.left, area.top, area.right, area.bottom);
}

void GdiCanvas::PopClip() {
  if (clips_ == 0) return;
  --clips_;
  RestoreDC(target_, -1);
}

}  // namespace kestrun

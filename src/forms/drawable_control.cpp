#include "forms/drawable_control.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/text.h"
#include "forms/form.h"
#include "forms/member_rows.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr double kTwipsPerInch = 1440;

DrawableControl& Self(Object& object) { return static_cast<DrawableControl&>(object); }

bool IsGiven(Arguments arguments, size_t at) { return at < arguments.size() && !arguments[at].IsMissing(); }

std::optional<Color> ColorAt(Arguments arguments, size_t at) {
  if (!IsGiven(arguments, at)) return std::nullopt;
  return VariantTraits<Color>::From(arguments[at]);
}

std::optional<double> NumberAt(Arguments arguments, size_t at) {
  if (!IsGiven(arguments, at)) return std::nullopt;
  return ToDouble(arguments[at]);
}

LineShape ShapeNamed(std::string_view name) {
  if (name.empty()) return LineShape::kLine;
  if (EqualsNoCase(name, "B")) return LineShape::kBox;
  if (EqualsNoCase(name, "BF")) return LineShape::kFilledBox;
  Raise(error::kInvalidProcedureCall);
}

// x1, y1, x2, y2, colour, and "B" for a box or "BF" for a filled one.
Variant CallLine(Object& object, Arguments given) {
  Self(object).DrawLine(ToDouble(given[0]), ToDouble(given[1]), ToDouble(given[2]), ToDouble(given[3]),
                        ColorAt(given, 4), ShapeNamed(IsGiven(given, 5) ? ToText(given[5]) : std::string()));
  return {};
}

Variant CallPSet(Object& object, Arguments given) {
  Self(object).PSet(ToDouble(given[0]), ToDouble(given[1]), ColorAt(given, 2));
  return {};
}

Variant CallPrint(Object& object, Arguments given) {
  Self(object).Print(given.empty() ? std::string() : ToText(given[0]));
  return {};
}

// The picture, x1, y1, width1, height1 of where it goes, x2, y2, width2, height2 of the part of it that is shown, and
// how it is combined with what is there: it can only be copied.
Variant CallPaintPicture(Object& object, Arguments given) {
  constexpr int32_t kCopy = 0xCC0020;
  const Ref<Picture> picture = VariantTraits<Ref<Picture>>::From(given[0]);
  if (!picture) Raise(error::kInvalidPicture);
  if (IsGiven(given, 9) && ToLong(given[9]) != kCopy) Raise(error::kInvalidProcedureCall);
  PicturePart part;
  part.x = NumberAt(given, 5).value_or(0);
  part.y = NumberAt(given, 6).value_or(0);
  part.width = NumberAt(given, 7);
  part.height = NumberAt(given, 8);
  Self(object).PaintPicture(*picture, ToDouble(given[1]), ToDouble(given[2]), NumberAt(given, 3), NumberAt(given, 4),
                            part);
  return {};
}

// The client area in the units of ScaleMode: a whole number in twips.
Variant InUnits(int twips, double unit) { return unit == 1 ? Variant(twips) : Variant(twips / unit); }

constexpr Member kRows[]{
    ReadOnlyRow<&Control::WindowNumber>("hWnd"),
    PropertyRow<&DrawableControl::Picture>("Picture"),
    PropertyRow<&DrawableControl::AutoRedraw>("AutoRedraw"),
    PropertyRow<&DrawableControl::ScaleMode>("ScaleMode"),
    {"ScaleWidth", MemberKind::kReadWrite, 0, 0,
     [](Object& object, Arguments) { return InUnits(Self(object).ScaleWidth(), Self(object).UnitWidth()); },
     [](Object& object, Arguments, const Variant& value) { Self(object).SetUserWidth(ToDouble(value)); }, "Double"},
    {"ScaleHeight", MemberKind::kReadWrite, 0, 0,
     [](Object& object, Arguments) { return InUnits(Self(object).ScaleHeight(), Self(object).UnitHeight()); },
     [](Object& object, Arguments, const Variant& value) { Self(object).SetUserHeight(ToDouble(value)); }, "Double"},
    PropertyRow<&DrawableControl::CurrentX>("CurrentX"),
    PropertyRow<&DrawableControl::CurrentY>("CurrentY"),
    PropertyRow<&DrawableControl::DrawWidth>("DrawWidth"),
    ReadOnlyRow<&DrawableControl::TextWidth>("TextWidth", "Text"),
    ReadOnlyRow<&DrawableControl::TextHeight>("TextHeight", "Text"),
    {"hDC", MemberKind::kReadOnly, 0, 0,
     [](Object& object, Arguments) -> Variant { return Self(object).DrawingContext(); }, nullptr, "Long"},
    MethodRow<&DrawableControl::Cls>("Cls"),
    RawMethodRow("Line", 4, 6, &CallLine, "x1, y1, x2, y2, Color, Shape"),
    RawMethodRow("PSet", 2, 3, &CallPSet, "x, y, Color"),
    RawMethodRow("Print", 0, 1, &CallPrint, "Text"),
    RawMethodRow("PaintPicture", 3, 10, &CallPaintPicture,
                 "Picture, x1, y1, width1, height1, x2, y2, width2, height2, Opcode"),
};

}  // namespace

const MemberTable DrawableControl::kDrawableMembers{&Control::kControlMembers, kRows};

// ---- units ---------------------------------------------------------------------------------------------------------

int DrawableControl::Dpi() const {
  if (FormPeer* shown = peer()) return shown->Dpi();
  return 1440 / platform().windowing().Screen().twips_per_pixel;
}

double DrawableControl::UnitWidth() const {
  // By the number of the unit; 0 where it depends on something.
  static constexpr std::array kTwips{
      0.0, 1.0, 20.0, 0.0, 120.0, kTwipsPerInch, kTwipsPerInch / 25.4, kTwipsPerInch / 2.54};
  const int mode = ScaleMode;
  if (mode == static_cast<int>(ScaleUnit::kPixels)) return kTwipsPerInch / Dpi();
  return mode <= 0 || mode >= static_cast<int>(kTwips.size()) ? user_unit_width_ : kTwips[static_cast<size_t>(mode)];
}

double DrawableControl::UnitHeight() const {
  constexpr double kCharacterHeight = 240;
  if (ScaleMode == static_cast<int>(ScaleUnit::kCharacters)) return kCharacterHeight;
  return ScaleMode == static_cast<int>(ScaleUnit::kUser) ? user_unit_height_ : UnitWidth();
}

void DrawableControl::SetUserWidth(double units) {
  if (!(units > 0) || ScaleWidth() <= 0) Raise(error::kInvalidPropertyValue);
  user_unit_height_ = UnitHeight();
  user_unit_width_ = ScaleWidth() / units;
  ScaleMode = static_cast<int>(ScaleUnit::kUser);
}

void DrawableControl::SetUserHeight(double units) {
  if (!(units > 0) || ScaleHeight() <= 0) Raise(error::kInvalidPropertyValue);
  user_unit_width_ = UnitWidth();
  user_unit_height_ = ScaleHeight() / units;
  ScaleMode = static_cast<int>(ScaleUnit::kUser);
}

PixelPoint DrawableControl::ToPixels(double x, double y) const {
  // Far outside of every bitmap, and whole numbers all the same.
  constexpr double kFurthest = 100000;
  const auto pixel = [&](double value, double unit) {
    const double place = value * unit * Dpi() / kTwipsPerInch;
    return static_cast<int>(std::lround(place < -kFurthest ? -kFurthest : place > kFurthest ? kFurthest : place));
  };
  return {pixel(x, UnitWidth()), pixel(y, UnitHeight())};
}

// ---- drawing -------------------------------------------------------------------------------------------------------

void DrawableControl::PaintBackground(Canvas& canvas) const {
  canvas.Fill({0, 0, canvas.Size().width, canvas.Size().height}, BackColor);
  const kestrun::Picture* picture = Picture.get().get();
  if (!picture) return;
  const auto scaled = [&](int pixels) { return (pixels * canvas.Dpi() + 48) / 96; };
  canvas.DrawPicture(*picture, {0, 0, scaled(picture->width_pixels()), scaled(picture->height_pixels())});
}

DrawingSurface* DrawableControl::KeptDrawing() {
  if (!surface_) return nullptr;
  return &Surface();
}

DrawingSurface& DrawableControl::Surface() {
  const auto pixels = [this](int twips) { return std::max(1, (twips * Dpi() + 1439) / 1440); };
  const PixelSize wanted{pixels(ScaleWidth()), pixels(ScaleHeight())};
  const auto background = [this](Canvas& canvas) { PaintBackground(canvas); };
  if (!surface_) {
    surface_ = platform().windowing().MakeSurface(wanted, Dpi());
    if (!surface_) Raise(error::kOutOfMemory);
    surface_->Draw(background);
  } else if (surface_->Size() != wanted) {
    surface_->Resize(wanted, background);
  }
  return *surface_;
}

void DrawableControl::Draw(const std::function<void(Canvas&)>& drawing) {
  Surface().Draw(drawing);
  if (FormPeer* shown = peer()) shown->Update(*this, PropertyId::kDrawing);
}

int32_t DrawableControl::DrawingContext() {
  form()->EnsurePeer();  // the bitmap is as large as the client area on the form's screen
  Draw([](Canvas&) {});
  return Surface().ContextNumber();
}

void DrawableControl::Cls() {
  CurrentX = 0;
  CurrentY = 0;
  if (surface_) Draw([this](Canvas& canvas) { PaintBackground(canvas); });
}

void DrawableControl::DrawLine(double x1, double y1, double x2, double y2, std::optional<Color> drawn,
                               LineShape shape) {
  const PixelPoint from = ToPixels(x1, y1);
  const PixelPoint to = ToPixels(x2, y2);
  const Color ink = drawn.value_or(ForeColor);
  const int width = std::max(1, DrawWidth.get());
  const PixelRect box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x) + 1,
                      std::max(from.y, to.y) + 1};
  Draw([&](Canvas& canvas) {
    if (shape == LineShape::kFilledBox) return canvas.Fill(box, ink);
    if (shape == LineShape::kLine) return canvas.Line(from, to, ink, width);
    for (int ring = 0; ring < width; ++ring) {
      canvas.Frame({box.left + ring, box.top + ring, box.right - ring, box.bottom - ring}, ink);
    }
  });
  CurrentX = x2;
  CurrentY = y2;
}

void DrawableControl::PSet(double x, double y, std::optional<Color> drawn) {
  const PixelPoint place = ToPixels(x, y);
  const int width = std::max(1, DrawWidth.get());
  const PixelPoint corner{place.x - (width - 1) / 2, place.y - (width - 1) / 2};
  Draw([&](Canvas& canvas) {
    canvas.Fill({corner.x, corner.y, corner.x + width, corner.y + width}, drawn.value_or(ForeColor));
  });
  CurrentX = x;
  CurrentY = y;
}

void DrawableControl::Print(std::string_view text) {
  const PixelPoint place = ToPixels(CurrentX, CurrentY);
  Draw([&](Canvas& canvas) {
    const PixelSize extent = canvas.MeasureText(text, Font);
    // A pixel more: slanted letters reach out of their extent.
    canvas.Text(text, {place.x, place.y, place.x + extent.width + extent.height, place.y + extent.height}, Font,
                ForeColor, TextPlacement::kLeft);
  });
  CurrentX = 0;
  CurrentY = CurrentY + TextHeight(text);
}

// The whole picture is drawn as large as makes its part fill the place, and only the place is painted.
void DrawableControl::PaintPicture(const kestrun::Picture& picture, double x, double y, std::optional<double> width,
                                   std::optional<double> height, const PicturePart& part) {
  const double whole_width = picture.width_twips() / UnitWidth();
  const double whole_height = picture.height_twips() / UnitHeight();
  const double part_width = part.width.value_or(whole_width - part.x);
  const double part_height = part.height.value_or(whole_height - part.y);
  if (part_width <= 0 || part_height <= 0) return;
  const double across = width.value_or(part_width) / part_width;
  const double down = height.value_or(part_height) / part_height;
  const double left = x - part.x * across;
  const double top = y - part.y * down;
  const PixelPoint from = ToPixels(x, y);
  const PixelPoint to = ToPixels(x + part_width * across, y + part_height * down);
  const PixelPoint whole_from = ToPixels(left, top);
  const PixelPoint whole_to = ToPixels(left + whole_width * across, top + whole_height * down);
  Draw([&](Canvas& canvas) {
    canvas.PushClip({from.x, from.y, to.x, to.y});
    canvas.DrawPicture(picture, {whole_from.x, whole_from.y, whole_to.x, whole_to.y});
    canvas.PopClip();
  });
}

double DrawableControl::TextWidth(std::string_view text) const {
  const PixelSize extent = platform().windowing().MeasureText(text, Font, Dpi());
  return extent.width * kTwipsPerInch / Dpi() / UnitWidth();
}

double DrawableControl::TextHeight(std::string_view text) const {
  const PixelSize extent = platform().windowing().MeasureText(text, Font, Dpi());
  return extent.height * kTwipsPerInch / Dpi() / UnitHeight();
}

void DrawableControl::PropertyChanged(PropertyId id) {
  const bool is_background = id == PropertyId::kBackColor || id == PropertyId::kPicture;
  if (is_background && surface_) surface_->Draw([this](Canvas& canvas) { PaintBackground(canvas); });
}

}  // namespace kestrun

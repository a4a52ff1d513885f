// A container that is drawn on, a form or a picture box. What is drawn stays: it is kept on a bitmap over the
// background colour and the picture, until Cls or another background takes it away.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "forms/canvas.h"
#include "forms/control.h"

namespace kestrun {

enum class ScaleUnit {
  kUser = 0,
  kTwips = 1,
  kPoints = 2,
  kPixels = 3,
  kCharacters = 4,
  kInches = 5,
  kMm = 6,
  kCm = 7
};
enum class LineShape { kLine, kBox, kFilledBox };

// A part of a picture in the units of ScaleMode; without a width or height all that is right of or below its corner.
struct PicturePart {
  double x = 0;
  double y = 0;
  std::optional<double> width;
  std::optional<double> height;
};

class DrawableControl : public Control {
 public:
  using Control::Control;

  // Behind everything, at its own size.
  Property<Ref<kestrun::Picture>> Picture{*this, PropertyId::kPicture};
  // What is drawn is kept whether this is set or not.
  Property<bool> AutoRedraw{*this, PropertyId::kNone};
  Property<int> ScaleMode{*this, PropertyId::kNone, static_cast<int>(ScaleUnit::kTwips)};
  // Where Print writes and Line starts, in the units of ScaleMode.
  Property<double> CurrentX{*this, PropertyId::kNone};
  Property<double> CurrentY{*this, PropertyId::kNone};
  // Of lines and points, in pixels.
  Property<int> DrawWidth{*this, PropertyId::kNone, 1};

  // Client area in twips.
  [[nodiscard]] virtual int ScaleWidth() const = 0;
  [[nodiscard]] virtual int ScaleHeight() const = 0;
  [[nodiscard]] double UnitWidth() const override;
  [[nodiscard]] double UnitHeight() const override;
  // Makes the client area count that many units of the user's own.
  void SetUserWidth(double units);
  void SetUserHeight(double units);

  // Places are in the units of ScaleMode; no colour means ForeColor.
  void Cls();
  void DrawLine(double x1, double y1, double x2, double y2, std::optional<Color> drawn = {},
                LineShape shape = LineShape::kLine);
  void PSet(double x, double y, std::optional<Color> drawn = {});
  // One line; the next goes below it.
  void Print(std::string_view text);
  // A part of the picture, the whole one at first, at its own size where width and height are not given.
  void PaintPicture(const kestrun::Picture& picture, double x, double y, std::optional<double> width = {},
                    std::optional<double> height = {}, const PicturePart& part = {});
  [[nodiscard]] double TextWidth(std::string_view text) const;
  [[nodiscard]] double TextHeight(std::string_view text) const;
  // The number of the kept bitmap for the system's drawing calls. What they draw shows in the next pass of the message
  // loop.
  [[nodiscard]] int32_t DrawingContext();

  // Null while nothing was drawn. As large as the client area on its screen.
  [[nodiscard]] DrawingSurface* KeptDrawing();
  // Background colour and picture.
  void PaintBackground(Canvas& canvas) const;

  [[nodiscard]] bool IsContainer() const override { return true; }
  static const MemberTable kDrawableMembers;

 protected:
  void PropertyChanged(PropertyId id) override;

 private:
  [[nodiscard]] int Dpi() const;
  [[nodiscard]] PixelPoint ToPixels(double x, double y) const;
  [[nodiscard]] DrawingSurface& Surface();
  void Draw(const std::function<void(Canvas&)>& drawing);

  std::unique_ptr<DrawingSurface> surface_;
  double user_unit_width_ = 1;
  double user_unit_height_ = 1;
};

}  // namespace kestrun

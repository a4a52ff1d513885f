// The seam between the window model and what shows it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/pixels.h"

namespace kestrun {

class Canvas;
class Control;
class Form;
class MenuItem;
enum class PropertyId : uint8_t;

// What screen readers are told of a control that paints itself.
enum class AccessibleEvent { kFocus, kSelection, kName, kValue, kChildren };

// What stands on the screen for one shown form with all its controls.
class FormPeer {
 public:
  virtual ~FormPeer() = default;
  // Puts the form on the screen, in front of the form that is active when it is modal.
  virtual void Show() = 0;
  // Takes the form off the screen at once. The peer is destroyed later, when the event that closed it is over; nothing
  // is called on it between the two.
  virtual void Close() = 0;
  // A property of the form itself or of one of its controls has changed.
  virtual void Update(Control& control, PropertyId property) = 0;
  // A control came or went, or the stacking order changed.
  virtual void ControlsChanged() = 0;
  virtual void MenuChanged() = 0;
  // The items of a list control changed; the model is read again.
  virtual void ListChanged(Control& control) = 0;
  virtual void SetFocus(Control& control) = 0;
  // Paints the control, or the form itself, again.
  virtual void Repaint(Control& control) = 0;
  // Shows the item's submenu at the mouse, and returns when it has closed and its command has run.
  virtual void PopUpMenu(MenuItem& item) = 0;
  virtual void BringToFront() = 0;
  // The number by which the system knows the window of the form or of a control; 0 for a control without one.
  [[nodiscard]] virtual int32_t WindowNumber(const Control& control) = 0;
  // Dots per inch of the form's screen.
  [[nodiscard]] virtual int Dpi() = 0;

  // For controls that paint themselves; pixels of the desktop.
  // A bordered surface in front of all windows that never takes the focus or the mouse. One for each control: showing
  // it again moves it and paints it anew. It goes with the form, and when the control is hidden or removed.
  virtual void ShowPopup(Control& control, const PixelRect& screen_area, std::function<void(Canvas&)> paint) = 0;
  virtual void HidePopup(Control& control) = 0;
  // The top left corner of what the control paints.
  [[nodiscard]] virtual PixelPoint ScreenPosition(const Control& control) = 0;
  // The screen that the control is on, without the task bar.
  [[nodiscard]] virtual PixelRect ScreenArea(const Control& control) = 0;
  // The child is a row of the control, -1 for the control itself.
  virtual void TellAccessibility(Control& control, AccessibleEvent event, int child) = 0;
};

struct ScreenSize {
  int width_twips = 0;
  int height_twips = 0;
  int twips_per_pixel = 15;
};

// A bitmap that is kept between paints, with what is drawn on it.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;
  [[nodiscard]] virtual PixelSize Size() const = 0;
  // Runs the drawing on the bitmap.
  virtual void Draw(const std::function<void(Canvas&)>& drawing) = 0;
  // Gives the bitmap another size: the background is painted on all of it, and what was there stands on top again.
  virtual void Resize(PixelSize size, const std::function<void(Canvas&)>& background) = 0;
  // The number by which the system's drawing calls know the bitmap; stays the same for as long as the surface lives.
  [[nodiscard]] virtual int32_t ContextNumber() const = 0;
};

struct TextExtent {
  int width_twips = 0;
  int height_twips = 0;
};

struct FontDescription {
  std::string name = "MS Sans Serif";
  double size_points = 8.25;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strikethrough = false;
  int charset = 0;  // the system's number of a character set; 0 leaves the choice to the system
  friend bool operator==(const FontDescription&, const FontDescription&) = default;
};

class Windowing {
 public:
  virtual ~Windowing() = default;
  // Makes the peer of a form with all its controls; nothing of it is on the screen before its Show.
  [[nodiscard]] virtual std::shared_ptr<FormPeer> MakePeer(Form& form) = 0;
  // Runs the message loop until the form is no longer visible; other windows take no input meanwhile.
  virtual void RunModal(Form& form) = 0;
  // Runs the message loop until `Quit`.
  virtual void RunUntilQuit() = 0;
  virtual void Quit() = 0;
  [[nodiscard]] virtual ScreenSize Screen() = 0;
  // 0x00BBGGRR of a system colour by its number, as the user has set it; nothing for a number that is none.
  [[nodiscard]] virtual std::optional<uint32_t> SystemColor(int number) = 0;
  // Width in twips of one line of text.
  [[nodiscard]] virtual int TextWidth(std::string_view text, const FontDescription& font) = 0;
  // Extent in pixels of one line of text on a screen with that many dots per inch.
  [[nodiscard]] virtual PixelSize MeasureText(std::string_view text, const FontDescription& font, int dpi) = 0;
  // Room for a text of several lines; lines are broken between words to fit the width, or not at all for 0.
  [[nodiscard]] virtual TextExtent MeasureLines(std::string_view text, const FontDescription& font,
                                                int width_twips) = 0;
  // Null when there is no memory for it.
  [[nodiscard]] virtual std::unique_ptr<DrawingSurface> MakeSurface(PixelSize size, int dpi) = 0;
  // The system's sound for what the user typed and what is not taken.
  virtual void Beep() = 0;
  // Names of the fonts that the user has, sorted.
  [[nodiscard]] virtual std::vector<std::string> FontNames() = 0;
};

}  // namespace kestrun

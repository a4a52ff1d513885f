// Windows without a screen: a shown form has a peer that keeps what it was told, and a modal window is handled by the
// action that was laid down for it.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desktop/headless/raster_canvas.h"
#include "desktop/headless/unexpected.h"
#include "platform/virtual_clock.h"
#include "platform/windowing.h"

namespace kestrun {

// One call that a peer got. The control is the form itself where the call names none.
struct PeerCall {
  enum class Kind {
    kUpdate,
    kControlsChanged,
    kMenuChanged,
    kListChanged,
    kSetFocus,
    kRepaint,
    kPopUpMenu,
    kBringToFront,
    kClose
  };
  Kind kind;
  std::string control;
  PropertyId property{};  // of kUpdate
  friend bool operator==(const PeerCall&, const PeerCall&) = default;
};

// A surface that a control shows in front of all windows.
struct HeadlessPopup {
  const Form* form;
  const Control* control;
  PixelRect area;
  std::function<void(Canvas&)> paint;
};

// What a screen reader was told.
struct AccessibilityCall {
  AccessibleEvent event;
  std::string control;
  int child;
  friend bool operator==(const AccessibilityCall&, const AccessibilityCall&) = default;
};

class HeadlessWindowing final : public Windowing {
 public:
  explicit HeadlessWindowing(VirtualClock& clock) : clock_(clock) {}

  // Lays down what the user does in the next modal window. The form must be gone when the action and the events that
  // it set off are over. A failure inside the action is reported as one in an event handler is.
  void ExpectModal(std::string form_name, std::function<void(Form&)> action);
  // Lays down what the user does in the next pop-up menu, such as choosing one of its items. A menu that nobody
  // expected closes again.
  void ExpectPopUp(std::string item_name, std::function<void(MenuItem&)> action);
  // One line for each modal window and menu that is still expected.
  [[nodiscard]] std::vector<std::string> Unused() const;
  void ForgetExpectations();

  // When it is shown, the first control in tab order gets the focus.
  [[nodiscard]] std::shared_ptr<FormPeer> MakePeer(Form& form) override;
  // A window that nobody expected, or that is still there after its action, is told to `on_unexpected` and closed.
  void RunModal(Form& form) override;
  // Runs tasks and timers in virtual time until `Quit`, or until nothing is left that could ever call it, or until
  // `longest_run_ms` have passed: nobody is there to close a window.
  void RunUntilQuit() override;
  void Quit() override { quit_ = true; }
  [[nodiscard]] ScreenSize Screen() override { return screen; }
  // Those of a plain desktop, 0 to 30.
  [[nodiscard]] std::optional<uint32_t> SystemColor(int number) override;
  // Each character is half as wide as the font is high.
  [[nodiscard]] int TextWidth(std::string_view text, const FontDescription& font) override;
  [[nodiscard]] PixelSize MeasureText(std::string_view text, const FontDescription& font, int dpi) override;
  [[nodiscard]] TextExtent MeasureLines(std::string_view text, const FontDescription& font, int width_twips) override;
  [[nodiscard]] std::unique_ptr<DrawingSurface> MakeSurface(PixelSize size, int dpi) override;
  void Beep() override { ++beeps; }
  [[nodiscard]] std::vector<std::string> FontNames() override { return fonts; }

  // The control, or the form, whose window has that number; null for a number that no window has now.
  [[nodiscard]] const Control* ControlOfWindow(int32_t window_number) const;
  // What is drawn on the bitmap of that number; null for a number that none has now.
  [[nodiscard]] const RasterCanvas* CanvasOfContext(int32_t context_number) const;
  // What the control shows in front of all windows now; null for nothing. Its `paint` takes any canvas.
  [[nodiscard]] const HeadlessPopup* PopupOf(const Control& control) const;
  [[nodiscard]] int dpi() const { return 1440 / screen.twips_per_pixel; }

  UnexpectedHandler on_unexpected;
  ScreenSize screen{1024 * 15, 768 * 15, 15};
  std::vector<std::string> fonts{"Arial", "MS Sans Serif", "Tahoma"};
  uint64_t longest_run_ms = uint64_t{60} * 60 * 1000;
  int beeps = 0;
  // Names of all forms that were shown, in order.
  std::vector<std::string> shown_forms;
  // What all peers were told, in order, where recording is on.
  bool record_calls = false;
  std::vector<PeerCall> calls;
  std::vector<AccessibilityCall> accessibility_calls;

 private:
  class Peer;
  class Surface;
  struct ExpectedModal {
    std::string form_name;
    std::function<void(Form&)> action;
  };
  struct ExpectedPopUp {
    std::string item_name;
    std::function<void(MenuItem&)> action;
  };

  void CloseUnexpected(Form& form, const std::string& detail);
  void RunPopUp(MenuItem& item);
  void HidePopup(const Control& control);

  VirtualClock& clock_;
  std::deque<ExpectedModal> expected_;
  std::deque<ExpectedPopUp> expected_menus_;
  std::vector<HeadlessPopup> popups_;
  std::map<int32_t, const Control*> windows_;
  std::map<int32_t, Surface*> surfaces_;
  int32_t last_number_ = 0;  // of a window or a bitmap
  bool quit_ = false;
};

}  // namespace kestrun

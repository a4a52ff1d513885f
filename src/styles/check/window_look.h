// What can be seen of a window's controls and reached in it, and what is wrong with that. A window without a style is
// the measure: a style is to blame only for what is wrong with it on.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/form.h"
#include "styles/check/style_fault.h"
#include "styles/check/unseen_desktop.h"

namespace kestrun {

struct ControlLook {
  const Control* control = nullptr;    // of the window that was looked at, which may be gone
  std::string name;                    // with its index in square brackets where it has one
  const Control* container = nullptr;  // only compared, as the control itself is
  int room_width = 0;                  // of the container, in twips
  int room_height = 0;
  std::string room = "the window";  // what the container is called
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool is_drawn = false;    // by its container: without a window of its own, and so behind those that have one
  bool is_seen = false;     // it is visible and all that it stands in
  bool is_content = false;  // there is something in it to read or to use
  bool is_reached = false;  // a key gets there
  bool is_hidden = false;
  bool is_enabled = true;
  double contrast = 21;           // the least of its texts
  bool is_clipped = false;        // at 96 dots per inch
  bool is_clipped_large = false;  // at 144
};

// From back to front.
struct WindowLook {
  std::string window;
  std::vector<ControlLook> controls;
};

// As a fault names it: with its index when it has one.
[[nodiscard]] std::string NameOf(const Control& control);
[[nodiscard]] WindowLook LookAt(Form& form, UnseenDesktop& desktop);

// Which line of the style's scripts gave the control its present state of that kind.
using PlaceOfChange = std::function<StylePlace(const Control& control, StyleFaultKind kind)>;
[[nodiscard]] std::vector<StyleFault> CompareLooks(const WindowLook& plain, const WindowLook& styled,
                                                   const PlaceOfChange& place_of);

}  // namespace kestrun

// Parts of controls in the controls' own colours, in place of the system's drawing, which knows only its own: edges,
// the marks of check boxes and option buttons, the arrows of combo boxes and scroll bars.
#pragma once

#include "desktop/win32/system/windows_api.h"
#include "forms/color.h"

namespace kestrun {

// A plain colour between two, a number of percent of the way to the second.
[[nodiscard]] Color BlendColors(Color from, Color to, int percent);

// What the user does with a part.
struct PartState {
  bool is_enabled = true;
  bool is_hot = false;  // the mouse is over it
  bool is_down = false;
};

struct PartColors {
  Color face = 0;
  Color line = 0;  // the edge
  Color mark = 0;
};
// From the control's background and its text.
[[nodiscard]] PartColors PartColorsOf(Color background, Color text, PartState state);

// A line inside the area's edge.
void DrawLineEdge(HDC target, const RECT& area, int thickness, Color line);
// The two lines around a frame.
void DrawEtchedEdge(HDC target, const RECT& area, Color background, Color text);

enum class CheckMark { kNone, kTick, kSquare };
// The areas are squares; what lies around a round mark stays.
void DrawCheckMark(HDC target, const RECT& area, int thickness, CheckMark mark, const PartColors& colors);
void DrawOptionMark(HDC target, const RECT& area, int thickness, bool is_chosen, const PartColors& colors);
enum class ArrowDirection { kUp, kDown, kLeft, kRight };
// In the middle of the area, as wide as told.
void DrawArrow(HDC target, const RECT& area, int width, Color mark, ArrowDirection direction);

}  // namespace kestrun

// One thing that a check of a style has found.
#pragma once

#include <string>

#include "styles/cls_style.h"

namespace kestrun {

enum class StyleFaultKind {
  kFile,  // the style's file itself
  kMissingInclude,
  kScriptError,
  kContrast,     // a text that does not stand out from its ground
  kClipped,      // a text that has no room
  kOutside,      // a control that left the window
  kCovered,      // a control that lies under another
  kUnreachable,  // a control that no key reaches
};

struct StyleFault {
  StyleFaultKind kind = StyleFaultKind::kFile;
  StylePlace place;    // the line that did it, where that is known
  std::string window;  // empty for what is no window's
  std::string control;
  std::string text;  // a sentence
  friend bool operator==(const StyleFault&, const StyleFault&) = default;
};

// One line: "main.vbs(3): frmain.Command1: The text ...". What is not known is left out.
[[nodiscard]] std::string LineOf(const StyleFault& fault);

}  // namespace kestrun

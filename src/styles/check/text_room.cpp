#include "styles/check/text_room.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "forms/access_key.h"
#include "forms/button.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kPlainDpi = 96;

// What a kind of control keeps of its size for itself, in pixels at 96 dots per inch.
struct Surround {
  std::string_view kind;
  int across;
  int down;
  bool wraps;  // between words
};
constexpr std::array kSurrounds{
    Surround{"Label", 0, 0, true},         Surround{"CommandButton", 6, 4, true}, Surround{"CheckBox", 17, 0, true},
    Surround{"OptionButton", 17, 0, true}, Surround{"Frame", 18, 0, false},
};

const Surround* SurroundOf(const Control& control) {
  const auto found = std::find_if(kSurrounds.begin(), kSurrounds.end(),
                                  [kind = control.TypeName()](const Surround& row) { return row.kind == kind; });
  return found == kSurrounds.end() ? nullptr : &*found;
}

bool TakesSizeOfText(const Control& control) {
  const auto* label = dynamic_cast<const Label*>(&control);
  return label && label->AutoSize;
}

bool HasPicture(const Control& control) {
  const auto* button = dynamic_cast<const Button*>(&control);
  return button && button->Style == 1 && button->Picture.get();
}

int BorderOf(const Control& control) {
  const auto* label = dynamic_cast<const Label*>(&control);
  return label && label->BorderStyle == 1 ? 4 : 0;
}

class TextMeasure {
 public:
  TextMeasure(const FontDescription& font, int dpi) : font_(font), dpi_(dpi) {}

  [[nodiscard]] int Width(std::string_view text) const {
    return platform().windowing().MeasureText(text, font_, dpi_).width;
  }
  [[nodiscard]] int LineHeight() const { return platform().windowing().MeasureText("X", font_, dpi_).height; }

  struct Extent {
    int width = 0;  // of the widest line
    int lines = 0;
  };
  // Broken between words where a line is wider than the room.
  [[nodiscard]] Extent Broken(const std::string& text, int room) const {
    Extent extent;
    for (const std::string& line : Split(ReplaceAll(text, kCrLf, "\n"), "\n")) AddLine(line, room, extent);
    return extent;
  }

 private:
  void AddLine(const std::string& line, int room, Extent& extent) const {
    std::string present;
    for (const std::string& word : Split(line, " ")) {
      std::string longer = present;
      if (!present.empty()) longer += ' ';
      longer += word;
      if (present.empty() || Width(longer) <= room) {
        present = longer;
        continue;
      }
      Close(present, extent);
      present = word;
    }
    Close(present, extent);
  }
  void Close(const std::string& line, Extent& extent) const {
    extent.width = std::max(extent.width, Width(line));
    ++extent.lines;
  }

  const FontDescription& font_;
  int dpi_;
};

int ToPixels(int twips, int dpi) {
  return static_cast<int>(std::lround(static_cast<double>(twips) * dpi / kTwipsPerInch));
}

}  // namespace

std::string ShownText(const Control& control) {
  if (const auto* label = dynamic_cast<const Label*>(&control)) {
    return label->UseMnemonic ? WithoutAccessKey(label->Caption.get()) : label->Caption.get();
  }
  if (const auto* button = dynamic_cast<const Button*>(&control)) return WithoutAccessKey(button->Caption.get());
  if (const auto* frame = dynamic_cast<const Frame*>(&control)) return WithoutAccessKey(frame->Caption.get());
  return {};
}

// A control as high as one line shows one line, as its peer draws it.
bool IsTextClipped(const Control& control, int dpi) {
  const Surround* surround = SurroundOf(control);
  const std::string text = ShownText(control);
  if (!surround || text.empty() || TakesSizeOfText(control) || HasPicture(control)) return false;
  const FontDescription font = control.Font;
  const TextMeasure measure(font, dpi);
  const auto edge = [dpi, border = BorderOf(control)](int pixels) { return (pixels + border) * dpi / kPlainDpi; };
  const int width = ToPixels(control.Width, dpi) - edge(surround->across);
  const int height = ToPixels(control.Height, dpi) - edge(surround->down);
  const int line_height = std::max(1, measure.LineHeight());
  const int lines = std::max(1, (height + 1) / line_height);
  constexpr int kEndless = 1 << 20;
  const TextMeasure::Extent extent = measure.Broken(text, surround->wraps && lines > 1 ? width : kEndless);
  return extent.width > width || extent.lines > lines || height + 1 < line_height;
}

}  // namespace kestrun

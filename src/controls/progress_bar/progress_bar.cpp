#include "controls/progress_bar/progress_bar.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/number.h"
#include "base/text.h"
#include "platform/platform.h"

namespace kestrun {
namespace {

constexpr int kDefaultMax = 100;
constexpr Color kDefaultProgressColor = 0xFF0000;
// The text colour that is left out when the control is written, and the one that stands for it when it is read.
constexpr Color kWrittenForeColor = color::kWhite;
constexpr Color kReadForeColor = color::kBlack;

// A line of text is a fifth higher than the font's size, which is 20 twips a point.
constexpr double kLineTwipsPerPoint = 24;

constexpr Member kRows[]{
    PropertyRow<&ProgressBar::Value>("Value"),
    PropertyRow<&ProgressBar::Progresscolor>("Progresscolor"),
    PropertyRow<&Control::BackColor>("BackColor"),
    PropertyRow<&Control::ForeColor>("ForeColor"),
    FontRow("Font"),
    PropertyRow<&ProgressBar::Alignment>("Alignment"),
    PropertyRow<&ProgressBar::Max>("Max"),
    PropertyRow<&ProgressBar::ShowPercent>("ShowPercent"),
    PropertyRow<&CompositeControl::BorderStyle>("BroderStyle"),
    PropertyRow<&CompositeControl::BackStyle>("BackStyle"),
};
const MemberTable kTable{&Control::kWindowedMembers, kRows};

// A place or size in twips from a calculation, however far that went.
int Twips(double value) {
  constexpr double kMost = std::numeric_limits<int>::max();
  return static_cast<int>(RoundToEven(std::clamp(value, 0.0, kMost)));
}

// As many pixels as twice the font's size; where pixels are so fine that this would cut the text, one line of it.
int TextHeight(double size_points) {
  const int twips_per_pixel = platform().windowing().Screen().twips_per_pixel;
  return Twips(size_points * std::max<double>(2 * twips_per_pixel, kLineTwipsPerPoint));
}

std::string PercentText(double share) { return " " + ToText(Variant(RoundToEven(share * 100) + 0.0)) + "% "; }

}  // namespace

ProgressBar::ProgressBar(Form* form, std::string name, int index) : CompositeControl(form, std::move(name), index) {
  ForeColor.StoreQuietly(kReadForeColor);
  Font.StoreQuietly(ContainerFont(*this));
  LblPercent.BackStyle = 0;
  LblPercent.Font = Font.get();
  LblPercent.ForeColor = ForeColor.get();
  LblPercent.Alignment = Alignment.get();
  lbl.BackColor = Progresscolor.get();
  Move(0, 0, 3000, 300);
}

const MemberTable& ProgressBar::Members() const { return kTable; }

void ProgressBar::Resized() {
  lbl.Left = 0;
  lbl.Top = 0;
  lbl.Height = Height.get();
  LblPercent.Height = TextHeight(Font->size_points);
  LblPercent.Left = 0;
  LblPercent.Width = Width.get();
  LblPercent.Top = static_cast<int>(RoundToEven(Height / 2.0 - LblPercent.Height / 2.0));
  Draw();
}

double ProgressBar::Share() const { return static_cast<double>(Value) / (Max == 0 ? kDefaultMax : Max.get()); }

std::string ProgressBar::AccessibleValue() const {
  return TellsValue ? std::string(TrimBlanks(PercentText(Share()))) : std::string();
}

void ProgressBar::Draw() {
  if (Max == 0) Max.StoreQuietly(kDefaultMax);
  if (Value > Max) return;
  const double share = Share();
  lbl.Width = Twips(share * Width);
  lbl.BackColor = Progresscolor.get();
  lbl.Visible = Value != 0;
  if (ShowPercent) LblPercent.Caption = PercentText(share);
  if (FormPeer* shown = peer()) shown->TellAccessibility(*this, AccessibleEvent::kValue, -1);
}

void ProgressBar::ApplyProgressColor() {
  lbl.BackColor = Progresscolor.get();
  MarkChanged("ProgressColor");
}

void ProgressBar::ApplyAlignment() {
  LblPercent.Alignment = Alignment.get();
  MarkChanged("Alignment");
}

void ProgressBar::ApplyShowPercent() {
  LblPercent.Visible = ShowPercent.get();
  Draw();
  MarkChanged("ShowPercent");
}

void ProgressBar::PropertyChanged(PropertyId id) {
  CompositeControl::PropertyChanged(id);
  switch (id) {
    case PropertyId::kBackColor: return MarkChanged("BackColor");
    case PropertyId::kForeColor: LblPercent.ForeColor = ForeColor.get(); return MarkChanged("ForeColor");
    case PropertyId::kFont:
      LblPercent.Font = Font.get();
      Resized();
      return MarkChanged("Font");
    case PropertyId::kBorderStyle: return MarkChanged("BorderStyle");
    case PropertyId::kBackStyle: return MarkChanged("BackStyle");
    default: return;
  }
}

void ProgressBar::WriteProperties(PropertyBag& bag) const {
  bag.WriteProperty("VAL", Value.get(), 0);
  bag.WriteProperty("PROGRESSCOLOR", StoredColor(Progresscolor), StoredColor(kDefaultProgressColor));
  bag.WriteProperty("BACKCOLOR", StoredColor(BackColor), StoredColor(color::kButtonFace));
  bag.WriteProperty("FORECOLOR", StoredColor(ForeColor), StoredColor(kWrittenForeColor));
  bag.WriteProperty("FONT", StoredFont(Font), StoredFont(ContainerFont(*this)));
  bag.WriteProperty("ALIGNMENT", Alignment.get(), 2);
  bag.WriteProperty("MAX", Max.get(), kDefaultMax);
  bag.WriteProperty("SHOWPERCENT", ShowPercent.get(), true);
  bag.WriteProperty("BORDERSTYLE", BorderStyle.get(), 0);
  bag.WriteProperty("BACKSTYLE", BackStyle.get(), 1);
}

void ProgressBar::ReadProperties(const PropertyBag& bag) {
  const Reading reading(*this);
  // The range comes before the value: a value above Max would not be drawn.
  Max = ToLong(bag.ReadProperty("MAX", kDefaultMax));
  Progresscolor = ColorFrom(bag.ReadProperty("PROGRESSCOLOR", StoredColor(kDefaultProgressColor)));
  BackColor = ColorFrom(bag.ReadProperty("BACKCOLOR", StoredColor(color::kButtonFace)));
  ForeColor = ColorFrom(bag.ReadProperty("FORECOLOR", StoredColor(kReadForeColor)));
  Font = FontFrom(bag.ReadProperty("FONT", StoredFont(ContainerFont(*this))));
  Alignment = ToLong(bag.ReadProperty("ALIGNMENT", 2));
  ShowPercent = ToBoolean(bag.ReadProperty("SHOWPERCENT", true));
  BorderStyle = ToLong(bag.ReadProperty("BORDERSTYLE", 0));
  BackStyle = ToLong(bag.ReadProperty("BACKSTYLE", 1));
  Value = ToLong(bag.ReadProperty("VAL", 0));
}

}  // namespace kestrun

#include "desktop/headless/headless_windowing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

#include "base/text.h"
#include "forms/active_form.h"
#include "forms/form.h"
#include "forms/menu_item.h"
#include "forms/user_control.h"

namespace kestrun {
namespace {

constexpr double kTwipsPerPoint = 20;
constexpr double kPointsPerInch = 72;
constexpr double kLineHeight = 1.2;  // of the font's size
constexpr int kScrollBarWidth = 17;  // at 96 dots per inch

// What is left of a control inside its frame and beside its scroll bar.
PixelSize ClientOf(const UserControl& control, int dpi) {
  const auto pixels = [dpi](int twips) { return (twips * dpi + 720) / 1440; };
  const int frame = 2 * control.FrameKind();
  const int bar = control.VerticalScrollBar().visible ? kScrollBarWidth * dpi / 96 : 0;
  return {std::max(0, pixels(control.Left + control.Width) - pixels(control.Left) - frame - bar),
          std::max(0, pixels(control.Top + control.Height) - pixels(control.Top) - frame)};
}

}  // namespace

// Keeps calls instead of showing anything, and moves the focus as a screen would.
class HeadlessWindowing::Peer final : public FormPeer {
 public:
  Peer(HeadlessWindowing& windowing, Form& form) : windowing_(windowing), form_(form) { ResizeAll(); }
  ~Peer() override { ForgetNumbers(); }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  void Show() override {
    windowing_.shown_forms.push_back(form_.Name());
    NoteActivated(form_);
    const std::vector<Control*> order = form_.TabOrder();
    if (!order.empty()) MoveFocus(*order.front());
  }
  void Close() override {
    Record(PeerCall::Kind::kClose, form_);
    ForgetNumbers();
    std::erase_if(windowing_.popups_, [this](const HeadlessPopup& popup) { return popup.form == &form_; });
  }
  void Update(Control& control, PropertyId property) override {
    Record(PeerCall::Kind::kUpdate, control, property);
    if (property == PropertyId::kVisible && !control.Visible) windowing_.HidePopup(control);
    Resize(control);
  }
  void ControlsChanged() override {
    Record(PeerCall::Kind::kControlsChanged, form_);
    std::erase_if(windowing_.popups_,
                  [this](const HeadlessPopup& popup) { return popup.form == &form_ && !IsPresent(popup.control); });
    ResizeAll();
  }
  void MenuChanged() override { Record(PeerCall::Kind::kMenuChanged, form_); }
  void ListChanged(Control& control) override { Record(PeerCall::Kind::kListChanged, control); }
  void SetFocus(Control& control) override {
    Record(PeerCall::Kind::kSetFocus, control);
    MoveFocus(control);
  }
  void Repaint(Control& control) override {
    Record(PeerCall::Kind::kRepaint, control);
    Resize(control);
  }
  void PopUpMenu(MenuItem& item) override {
    Record(PeerCall::Kind::kPopUpMenu, item);
    windowing_.RunPopUp(item);
  }
  void BringToFront() override {
    Record(PeerCall::Kind::kBringToFront, form_);
    NoteActivated(form_);
  }
  int32_t WindowNumber(const Control& control) override {
    if (control.FindMember("hWnd") == kNoMember) return 0;
    int32_t& number = numbers_[&control];
    if (number == 0) {
      number = ++windowing_.last_number_;
      windowing_.windows_[number] = &control;
    }
    return number;
  }
  int Dpi() override { return windowing_.dpi(); }

  void ShowPopup(Control& control, const PixelRect& screen_area, std::function<void(Canvas&)> paint) override {
    windowing_.HidePopup(control);
    windowing_.popups_.push_back({&form_, &control, screen_area, std::move(paint)});
  }
  void HidePopup(Control& control) override { windowing_.HidePopup(control); }
  PixelPoint ScreenPosition(const Control& control) override {
    int left = 0;
    int top = 0;
    for (const Control* one = &control; one; one = one->Container()) {
      left += one->Left;
      top += one->Top;
    }
    const auto* user_control = dynamic_cast<const UserControl*>(&control);
    const int frame = user_control ? user_control->FrameKind() : 0;
    return {left / windowing_.screen.twips_per_pixel + frame, top / windowing_.screen.twips_per_pixel + frame};
  }
  PixelRect ScreenArea(const Control&) override {
    const ScreenSize& screen = windowing_.screen;
    return {0, 0, screen.width_twips / screen.twips_per_pixel, screen.height_twips / screen.twips_per_pixel};
  }
  void TellAccessibility(Control& control, AccessibleEvent event, int child) override {
    if (windowing_.record_calls) windowing_.accessibility_calls.push_back({event, control.Name(), child});
  }

 private:
  // Tells a control that paints itself its size when that is another than it was told last.
  void Resize(Control& control) {
    auto* user_control = dynamic_cast<UserControl*>(&control);
    if (!user_control) return;
    const int dpi = windowing_.dpi();
    const PixelSize client = ClientOf(*user_control, dpi);
    const auto [told, is_new] = sizes_.try_emplace(&control);
    if (!is_new && told->second == client) return;
    told->second = client;
    DispatchEvent(&form_, [&] { user_control->Resized(client, dpi); });
  }
  void ResizeAll() {
    std::erase_if(sizes_, [this](const auto& size) { return !IsPresent(size.first); });
    for (Control* control : form_.StackingOrder()) Resize(*control);
  }
  [[nodiscard]] bool IsPresent(const Control* control) const {
    const auto& present = form_.controls();
    return std::any_of(present.begin(), present.end(), [control](const auto& one) { return one.get() == control; });
  }

  void Record(PeerCall::Kind kind, const Control& control, PropertyId property = {}) {
    if (windowing_.record_calls) windowing_.calls.push_back({kind, control.Name(), property});
  }

  void MoveFocus(Control& control) {
    const Ref<Control> gained(&control);
    const Ref<Control> lost(form_.ActiveControl());
    if (gained == lost) return;
    form_.SetActiveControl(&control);
    DispatchEvent(&form_, [&] {
      if (!lost) return;
      if (auto* user_control = dynamic_cast<UserControl*>(lost.get())) user_control->OnFocus(false);
      lost->LostFocus();
    });
    DispatchEvent(&form_, [&] {
      if (auto* user_control = dynamic_cast<UserControl*>(gained.get())) user_control->OnFocus(true);
      gained->GotFocus();
    });
  }

  void ForgetNumbers() {
    for (const auto& [control, number] : numbers_) windowing_.windows_.erase(number);
    numbers_.clear();
  }

  HeadlessWindowing& windowing_;
  Form& form_;
  std::map<const Control*, int32_t> numbers_;  // of the windows that were asked for
  std::map<const Control*, PixelSize> sizes_;  // as the control was told
};

void HeadlessWindowing::ExpectModal(std::string form_name, std::function<void(Form&)> action) {
  expected_.push_back({std::move(form_name), std::move(action)});
}

void HeadlessWindowing::ExpectPopUp(std::string item_name, std::function<void(MenuItem&)> action) {
  expected_menus_.push_back({std::move(item_name), std::move(action)});
}

std::vector<std::string> HeadlessWindowing::Unused() const {
  std::vector<std::string> lines;
  for (const ExpectedModal& modal : expected_) lines.push_back("modal window \"" + modal.form_name + "\"");
  for (const ExpectedPopUp& menu : expected_menus_) lines.push_back("pop-up menu \"" + menu.item_name + "\"");
  return lines;
}

void HeadlessWindowing::ForgetExpectations() {
  expected_.clear();
  expected_menus_.clear();
}

std::shared_ptr<FormPeer> HeadlessWindowing::MakePeer(Form& form) { return std::make_shared<Peer>(*this, form); }

const Control* HeadlessWindowing::ControlOfWindow(int32_t window_number) const {
  const auto found = windows_.find(window_number);
  return found == windows_.end() ? nullptr : found->second;
}

// A bitmap in memory that its number leads to for as long as it lives.
class HeadlessWindowing::Surface final : public DrawingSurface {
 public:
  Surface(HeadlessWindowing& windowing, PixelSize size, int dpi)
      : windowing_(windowing), number_(++windowing.last_number_), canvas_(size, dpi) {
    windowing_.surfaces_[number_] = this;
  }
  ~Surface() override { windowing_.surfaces_.erase(number_); }
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  [[nodiscard]] PixelSize Size() const override { return canvas_.Size(); }
  void Draw(const std::function<void(Canvas&)>& drawing) override { drawing(canvas_); }
  void Resize(PixelSize size, const std::function<void(Canvas&)>& background) override {
    const RasterCanvas before = std::exchange(canvas_, RasterCanvas(size, canvas_.Dpi()));
    background(canvas_);
    canvas_.DrawPixels(before.pixels(), before.Size(), {0, 0, before.Size().width, before.Size().height});
  }
  [[nodiscard]] int32_t ContextNumber() const override { return number_; }
  [[nodiscard]] const RasterCanvas& canvas() const { return canvas_; }

 private:
  HeadlessWindowing& windowing_;
  int32_t number_;
  RasterCanvas canvas_;
};

std::unique_ptr<DrawingSurface> HeadlessWindowing::MakeSurface(PixelSize size, int dpi) {
  return std::make_unique<Surface>(*this, size, dpi);
}

const RasterCanvas* HeadlessWindowing::CanvasOfContext(int32_t context_number) const {
  const auto found = surfaces_.find(context_number);
  return found == surfaces_.end() ? nullptr : &found->second->canvas();
}

void HeadlessWindowing::RunModal(Form& form) {
  const Ref<Form> keep(&form);
  if (expected_.empty()) return CloseUnexpected(form, "nothing is expected any more");
  if (!EqualsNoCase(expected_.front().form_name, form.Name()))
    return CloseUnexpected(form, "expected next: modal window \"" + expected_.front().form_name + "\"");
  const ExpectedModal modal = std::move(expected_.front());
  expected_.pop_front();
  if (modal.action) DispatchEvent(&form, [&] { modal.action(form); });
  clock_.RunPendingEvents();
  if (form.IsShown()) CloseUnexpected(form, "the window is still there after its action");
}

void HeadlessWindowing::CloseUnexpected(Form& form, const std::string& detail) {
  if (on_unexpected) on_unexpected({QuestionKind::kModalWindow, form.Name(), detail});
  // A window that refuses to close is taken off the screen all the same: nobody can ever close it.
  if (!form.Unload()) form.Hide();
}

void HeadlessWindowing::RunPopUp(MenuItem& item) {
  if (expected_menus_.empty() || !EqualsNoCase(expected_menus_.front().item_name, item.Name())) return;
  const ExpectedPopUp menu = std::move(expected_menus_.front());
  expected_menus_.pop_front();
  DispatchEvent(item.form(), [&] { menu.action(item); });
}

void HeadlessWindowing::RunUntilQuit() {
  const uint64_t end_ms = clock_.NowMs() + longest_run_ms;
  for (quit_ = false; !quit_;) {
    clock_.RunPendingEvents();
    if (quit_ || clock_.HasTasks()) continue;
    const auto next_ms = clock_.NextDueMs();
    if (!next_ms || *next_ms > end_ms) return;
    clock_.MoveTo(*next_ms);
  }
}

void HeadlessWindowing::HidePopup(const Control& control) {
  std::erase_if(popups_, [&control](const HeadlessPopup& popup) { return popup.control == &control; });
}

const HeadlessPopup* HeadlessWindowing::PopupOf(const Control& control) const {
  const auto found = std::find_if(popups_.begin(), popups_.end(),
                                  [&control](const HeadlessPopup& popup) { return popup.control == &control; });
  return found == popups_.end() ? nullptr : &*found;
}

std::optional<uint32_t> HeadlessWindowing::SystemColor(int number) {
  // By number from 0: scroll bars, desktop, ..., button face at 15, ..., menu bar.
  static constexpr std::array<uint32_t, 31> kColors{
      0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000, 0x000000, 0xB4B4B4,
      0xFCF7F4, 0xABABAB, 0xFF9933, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D, 0x000000, 0x000000, 0xFFFFFF, 0x696969,
      0xE3E3E3, 0x000000, 0xE1FFFF, 0x000000, 0xCC6600, 0xEAD1B9, 0xF2E4D7, 0xFF9933, 0xF0F0F0};
  if (number < 0 || static_cast<size_t>(number) >= kColors.size()) return std::nullopt;
  return kColors[static_cast<size_t>(number)];
}

TextExtent HeadlessWindowing::MeasureLines(std::string_view text, const FontDescription& font, int width_twips) {
  const int line_height = MeasureText("", font, dpi()).height * screen.twips_per_pixel;
  TextExtent extent;
  for (const std::string& line : Split(ReplaceAll(std::string(text), "\r", ""), "\n")) {
    int width = 0;
    int lines = 1;
    for (const std::string& word : Split(line, " ")) {
      const int with_word = width == 0 ? TextWidth(word, font) : width + TextWidth(" " + word, font);
      const bool breaks = width_twips > 0 && width > 0 && with_word > width_twips;
      if (breaks) ++lines;
      width = breaks ? TextWidth(word, font) : with_word;
      extent.width_twips = std::max(extent.width_twips, width);
    }
    extent.height_twips += lines * line_height;
  }
  return extent;
}

PixelSize HeadlessWindowing::MeasureText(std::string_view text, const FontDescription& font, int dpi) {
  const double font_height = font.size_points * dpi / kPointsPerInch;
  return {static_cast<int>(std::lround(static_cast<double>(CodePointCount(text)) * font_height / 2)),
          static_cast<int>(std::lround(font_height * kLineHeight))};
}

int HeadlessWindowing::TextWidth(std::string_view text, const FontDescription& font) {
  return static_cast<int>(static_cast<double>(CodePointCount(text)) * font.size_points * kTwipsPerPoint / 2);
}

}  // namespace kestrun

#include "platform/headless/headless_windowing.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "forms/form.h"
#include "forms/menu_item.h"

namespace kestrun {
namespace {

constexpr double kTwipsPerPoint = 20;

}  // namespace

// Keeps calls instead of showing anything, and moves the focus as a screen would.
class HeadlessWindowing::Peer final : public FormPeer {
 public:
  Peer(HeadlessWindowing& windowing, Form& form) : windowing_(windowing), form_(form) {
    const std::vector<Control*> order = form.TabOrder();
    if (!order.empty()) MoveFocus(*order.front());
  }

  void Close() override { Record(PeerCall::Kind::kClose, form_); }
  void Update(Control& control, PropertyId property) override { Record(PeerCall::Kind::kUpdate, control, property); }
  void ControlsChanged() override { Record(PeerCall::Kind::kControlsChanged, form_); }
  void MenuChanged() override { Record(PeerCall::Kind::kMenuChanged, form_); }
  void ListChanged(Control& control) override { Record(PeerCall::Kind::kListChanged, control); }
  void SetFocus(Control& control) override {
    Record(PeerCall::Kind::kSetFocus, control);
    MoveFocus(control);
  }
  void Repaint(Control& control) override { Record(PeerCall::Kind::kRepaint, control); }
  void PopUpMenu(MenuItem& item) override {
    Record(PeerCall::Kind::kPopUpMenu, item);
    windowing_.RunPopUp(item);
  }
  void BringToFront() override { Record(PeerCall::Kind::kBringToFront, form_); }

 private:
  void Record(PeerCall::Kind kind, const Control& control, PropertyId property = {}) {
    if (windowing_.record_calls) windowing_.calls.push_back({kind, control.Name(), property});
  }

  void MoveFocus(Control& control) {
    const Ref<Control> gained(&control);
    const Ref<Control> lost(form_.ActiveControl());
    if (gained == lost) return;
    form_.SetActiveControl(&control);
    DispatchEvent(&form_, [&] {
      if (lost) lost->LostFocus();
    });
    DispatchEvent(&form_, [&] { gained->GotFocus(); });
  }

  HeadlessWindowing& windowing_;
  Form& form_;
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

std::unique_ptr<FormPeer> HeadlessWindowing::Show(Form& form) {
  shown_forms.push_back(form.Name());
  return std::make_unique<Peer>(*this, form);
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

int HeadlessWindowing::TextWidth(std::string_view text, const FontDescription& font) {
  return static_cast<int>(static_cast<double>(CodePointCount(text)) * font.size_points * kTwipsPerPoint / 2);
}

}  // namespace kestrun

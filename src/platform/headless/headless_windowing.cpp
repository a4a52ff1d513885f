#include "platform/headless/headless_windowing.h"

#include <utility>

#include "base/text.h"

namespace kestrun {
namespace {

constexpr double kTwipsPerPoint = 20;

class RecordingPeer final : public FormPeer {
 public:
  void Update(Control&, PropertyId) override {}
  void ControlsChanged() override {}
  void MenuChanged() override {}
  void ListChanged(Control&) override {}
  void SetFocus(Control&) override {}
  void Repaint(Control&) override {}
  void PopUpMenu(MenuItem&) override {}
  void BringToFront() override {}
};

}  // namespace

void HeadlessWindowing::ExpectModal(std::string form_name, std::function<void(Form&)> action) {
  expected_.push_back({std::move(form_name), std::move(action)});
}

std::vector<std::string> HeadlessWindowing::Unused() const {
  std::vector<std::string> lines;
  for (const ExpectedModal& modal : expected_) lines.push_back("modal window \"" + modal.form_name + "\"");
  return lines;
}

std::unique_ptr<FormPeer> HeadlessWindowing::Show(Form&) { return std::make_unique<RecordingPeer>(); }

void HeadlessWindowing::RunModal(Form& form) {
  if (expected_.empty()) {
    if (on_unexpected) on_unexpected({QuestionKind::kModalWindow, "", "nothing is expected any more"});
    return;
  }
  const ExpectedModal modal = std::move(expected_.front());
  expected_.pop_front();
  if (modal.action) modal.action(form);
  clock_.RunPendingEvents();
}

void HeadlessWindowing::RunUntilQuit() {
  quit_ = false;
  clock_.RunPendingEvents();
  while (!quit_) {
    const auto next_ms = clock_.NextDueMs();
    if (!next_ms && !clock_.HasTasks()) return;
    clock_.AdvanceMs(clock_.HasTasks() ? 0 : *next_ms - clock_.NowMs());
  }
}

int HeadlessWindowing::TextWidth(std::string_view text, const FontDescription& font) {
  return static_cast<int>(static_cast<double>(CodePointCount(text)) * font.size_points * kTwipsPerPoint / 2);
}

}  // namespace kestrun

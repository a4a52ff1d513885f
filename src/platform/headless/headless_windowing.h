// Windows without a screen: a shown form has a peer that keeps what it was told, and a modal window is handled by the
// action that was laid down for it.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/headless/headless_clock.h"
#include "platform/headless/unexpected.h"
#include "platform/windowing.h"

namespace kestrun {

class HeadlessWindowing final : public Windowing {
 public:
  explicit HeadlessWindowing(HeadlessClock& clock) : clock_(clock) {}

  // Lays down what the user does in the next modal window.
  void ExpectModal(std::string form_name, std::function<void(Form&)> action);
  // One line for each modal window that is still expected.
  [[nodiscard]] std::vector<std::string> Unused() const;

  [[nodiscard]] std::unique_ptr<FormPeer> Show(Form& form) override;
  void RunModal(Form& form) override;
  // Runs tasks and timers in virtual time until `Quit`, or until nothing is left that could ever call it.
  void RunUntilQuit() override;
  void Quit() override { quit_ = true; }
  [[nodiscard]] ScreenSize Screen() override { return screen; }
  // Each character is half as wide as the font is high.
  [[nodiscard]] int TextWidth(std::string_view text, const FontDescription& font) override;

  UnexpectedHandler on_unexpected;
  ScreenSize screen{1024 * 15, 768 * 15, 15};

 private:
  struct ExpectedModal {
    std::string form_name;
    std::function<void(Form&)> action;
  };

  HeadlessClock& clock_;
  std::deque<ExpectedModal> expected_;
  bool quit_ = false;
};

}  // namespace kestrun

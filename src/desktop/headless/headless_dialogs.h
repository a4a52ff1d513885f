// Boxes and common dialogues without a screen: each takes the next laid-down answer. What nobody expected is told to
// `on_unexpected` and gets the safe answer: Cancel where there is one, else No, Abort or OK.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop/headless/unexpected.h"
#include "platform/dialogs.h"

namespace kestrun {

// The answer that changes least.
[[nodiscard]] BoxAnswer SafeAnswer(BoxButtons buttons);

// One expected question with its answer. What is not named is not compared.
class ExpectedDialog {
 public:
  ExpectedDialog& WithTitle(std::string title);
  ExpectedDialog& WithButtons(BoxButtons buttons);
  ExpectedDialog& WithIcon(BoxIcon icon);
  // Counted from 1.
  ExpectedDialog& WithDefaultButton(int button);
  // The text that the input box opens with.
  ExpectedDialog& WithPreset(std::string preset);
  ExpectedDialog& WithFilter(std::string filter);
  // Where a file or folder dialogue opens.
  ExpectedDialog& StartingAt(std::string folder);
  ExpectedDialog& WithRoot(int csidl);
  // Runs while the box stands, before it is answered.
  ExpectedDialog& WhileShown(std::function<void()> action);

 private:
  friend class HeadlessDialogs;

  QuestionKind kind_ = QuestionKind::kMessage;
  std::optional<std::string> text_;
  bool has_advice_ = false;  // a line of any text behind it
  std::optional<std::string> title_;
  std::optional<BoxButtons> buttons_;
  std::optional<BoxIcon> icon_;
  std::optional<int> default_button_;
  std::optional<std::string> preset_;
  std::optional<std::string> filter_;
  std::optional<std::string> folder_;
  std::optional<int> root_;
  std::function<void()> while_shown_;

  BoxAnswer answer_ = BoxAnswer::kOk;
  std::optional<std::string> typed_;
  std::optional<uint32_t> color_;
};

class HeadlessDialogs final : public Dialogs {
 public:
  // Lay down the next answer. All kinds share one queue, so that their order is part of what is expected. Texts and
  // prompts are compared whole; no answer means Cancel.
  ExpectedDialog& ExpectBox(std::string text, BoxAnswer answer = BoxAnswer::kOk);
  // The box of a failure that is about a file: the text, ": ", the path, and what to do about it on the next line,
  // which is not compared.
  ExpectedDialog& ExpectFileFailure(const std::string& text, const std::string& path);
  ExpectedDialog& ExpectInput(std::string prompt, std::optional<std::string> answer);
  ExpectedDialog& ExpectFile(std::optional<std::string> answer);
  ExpectedDialog& ExpectFolder(std::string prompt, std::optional<std::string> answer);
  ExpectedDialog& ExpectColor(std::optional<uint32_t> answer);

  // One line for each answer that is still laid down.
  [[nodiscard]] std::vector<std::string> Unused() const;

  [[nodiscard]] BoxAnswer ShowMessage(const MessageBoxRequest& request) override;
  [[nodiscard]] std::optional<std::string> AskText(std::string_view prompt, std::string_view title,
                                                   std::string_view preset) override;
  [[nodiscard]] std::optional<std::string> PickFile(const FileDialogRequest& request) override;
  [[nodiscard]] std::optional<std::string> PickFolder(std::string_view prompt, int root_csidl,
                                                      std::string_view start_folder) override;
  [[nodiscard]] std::optional<uint32_t> PickColor(uint32_t preset) override;

  UnexpectedHandler on_unexpected;
  // All that were shown, in order, expected or not.
  std::vector<MessageBoxRequest> shown_boxes;
  std::vector<FileDialogRequest> shown_file_dialogs;

 private:
  struct Question;
  ExpectedDialog& Expect(QuestionKind kind);
  // Takes the next laid-down answer when it fits the question; otherwise reports it and gives nothing.
  std::optional<ExpectedDialog> TakeAnswer(const Question& question);

  std::deque<ExpectedDialog> expected_;
};

}  // namespace kestrun

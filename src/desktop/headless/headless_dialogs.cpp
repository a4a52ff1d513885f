#include "desktop/headless/headless_dialogs.h"

#include <algorithm>
#include <span>
#include <utility>

#include "base/text.h"

namespace kestrun {
namespace {

std::span<const BoxAnswer> AnswersOf(BoxButtons buttons) {
  using enum BoxAnswer;
  static constexpr BoxAnswer kOnlyOk[] = {kOk};
  static constexpr BoxAnswer kOkOrCancel[] = {kCancel, kOk};
  static constexpr BoxAnswer kAbortRetryOrIgnore[] = {kAbort, kRetry, kIgnore};
  static constexpr BoxAnswer kYesNoOrCancel[] = {kCancel, kNo, kYes};
  static constexpr BoxAnswer kYesOrNo[] = {kNo, kYes};
  static constexpr BoxAnswer kRetryOrCancel[] = {kCancel, kRetry};
  switch (buttons) {
    case BoxButtons::kOkCancel: return kOkOrCancel;
    case BoxButtons::kAbortRetryIgnore: return kAbortRetryOrIgnore;
    case BoxButtons::kYesNoCancel: return kYesNoOrCancel;
    case BoxButtons::kYesNo: return kYesOrNo;
    case BoxButtons::kRetryCancel: return kRetryOrCancel;
    case BoxButtons::kOk: break;
  }
  return kOnlyOk;
}

std::string_view KindName(QuestionKind kind) {
  switch (kind) {
    case QuestionKind::kInput: return "input box";
    case QuestionKind::kFile: return "file dialogue";
    case QuestionKind::kFolder: return "folder dialogue";
    case QuestionKind::kColor: return "colour dialogue";
    case QuestionKind::kModalWindow: return "modal window";
    case QuestionKind::kMessage: break;
  }
  return "message box";
}

std::string Described(QuestionKind kind, std::string_view text) {
  return std::string(KindName(kind)) + " \"" + std::string(text) + "\"";
}

std::string Number(int value) { return std::to_string(value); }

// Adds "aspect: expected x, was y" when an expectation was named and does not hold.
template <class T, class U, class ToString>
void Compare(std::string& differences, std::string_view aspect, const std::optional<T>& expected, const U& actual,
             ToString to_string) {
  if (!expected || *expected == actual) return;
  if (!differences.empty()) differences += "; ";
  differences += std::string(aspect) + ": expected " + to_string(*expected) + ", was " + to_string(actual);
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

// A text without the last of its lines; a text of one line as it is.
std::string WithoutLastLine(const std::string& text) { return text.substr(0, text.rfind(kCrLf)); }

}  // namespace

BoxAnswer SafeAnswer(BoxButtons buttons) { return AnswersOf(buttons).front(); }

ExpectedDialog& ExpectedDialog::WithTitle(std::string title) {
  title_ = std::move(title);
  return *this;
}

ExpectedDialog& ExpectedDialog::WithButtons(BoxButtons buttons) {
  buttons_ = buttons;
  return *this;
}

ExpectedDialog& ExpectedDialog::WithIcon(BoxIcon icon) {
  icon_ = icon;
  return *this;
}

ExpectedDialog& ExpectedDialog::WithDefaultButton(int button) {
  default_button_ = button;
  return *this;
}

ExpectedDialog& ExpectedDialog::WithPreset(std::string preset) {
  preset_ = std::move(preset);
  return *this;
}

ExpectedDialog& ExpectedDialog::WithFilter(std::string filter) {
  filter_ = std::move(filter);
  return *this;
}

ExpectedDialog& ExpectedDialog::StartingAt(std::string folder) {
  folder_ = std::move(folder);
  return *this;
}

ExpectedDialog& ExpectedDialog::WithRoot(int csidl) {
  root_ = csidl;
  return *this;
}

ExpectedDialog& ExpectedDialog::WhileShown(std::function<void()> action) {
  while_shown_ = std::move(action);
  return *this;
}

// What one dialogue shows, for comparison with what was laid down. What its kind does not have is left as it is.
struct HeadlessDialogs::Question {
  QuestionKind kind;
  std::string text;
  std::string title{};
  BoxButtons buttons = BoxButtons::kOk;
  BoxIcon icon = BoxIcon::kNone;
  int default_button = 1;
  std::string preset{};
  std::string filter{};
  std::string folder{};
  int root = 0;

  // Empty when the expectation fits.
  [[nodiscard]] std::string DifferencesFrom(const ExpectedDialog& expected) const {
    if (expected.kind_ != kind) return "expected next: " + Described(expected.kind_, expected.text_.value_or(""));
    const auto as_number = [](auto value) { return Number(static_cast<int>(value)); };
    std::string differences;
    Compare(differences, "text", expected.text_, expected.has_advice_ ? WithoutLastLine(text) : text, Quoted);
    Compare(differences, "title", expected.title_, title, Quoted);
    Compare(differences, "buttons", expected.buttons_, buttons, as_number);
    Compare(differences, "icon", expected.icon_, icon, as_number);
    Compare(differences, "default button", expected.default_button_, default_button, as_number);
    Compare(differences, "preset", expected.preset_, preset, Quoted);
    Compare(differences, "filter", expected.filter_, filter, Quoted);
    Compare(differences, "folder", expected.folder_, folder, Quoted);
    Compare(differences, "root", expected.root_, root, as_number);
    const auto answers = AnswersOf(buttons);
    if (kind == QuestionKind::kMessage && std::find(answers.begin(), answers.end(), expected.answer_) == answers.end())
      Compare(differences, "answer", std::optional<std::string>("a button of the box"),
              Number(static_cast<int>(expected.answer_)), Quoted);
    return differences;
  }
};

ExpectedDialog& HeadlessDialogs::Expect(QuestionKind kind) {
  expected_.emplace_back().kind_ = kind;
  return expected_.back();
}

ExpectedDialog& HeadlessDialogs::ExpectBox(std::string text, BoxAnswer answer) {
  ExpectedDialog& expected = Expect(QuestionKind::kMessage);
  expected.text_ = std::move(text);
  expected.answer_ = answer;
  return expected;
}

ExpectedDialog& HeadlessDialogs::ExpectFileFailure(const std::string& text, const std::string& path) {
  ExpectedDialog& expected = ExpectBox(text + ": " + path);
  expected.has_advice_ = true;
  return expected;
}

ExpectedDialog& HeadlessDialogs::ExpectInput(std::string prompt, std::optional<std::string> answer) {
  ExpectedDialog& expected = Expect(QuestionKind::kInput);
  expected.text_ = std::move(prompt);
  expected.typed_ = std::move(answer);
  return expected;
}

ExpectedDialog& HeadlessDialogs::ExpectFile(std::optional<std::string> answer) {
  ExpectedDialog& expected = Expect(QuestionKind::kFile);
  expected.typed_ = std::move(answer);
  return expected;
}

ExpectedDialog& HeadlessDialogs::ExpectFolder(std::string prompt, std::optional<std::string> answer) {
  ExpectedDialog& expected = Expect(QuestionKind::kFolder);
  expected.text_ = std::move(prompt);
  expected.typed_ = std::move(answer);
  return expected;
}

ExpectedDialog& HeadlessDialogs::ExpectColor(std::optional<uint32_t> answer) {
  ExpectedDialog& expected = Expect(QuestionKind::kColor);
  expected.color_ = answer;
  return expected;
}

std::vector<std::string> HeadlessDialogs::Unused() const {
  std::vector<std::string> lines;
  for (const ExpectedDialog& dialog : expected_) lines.push_back(Described(dialog.kind_, dialog.text_.value_or("")));
  return lines;
}

std::optional<ExpectedDialog> HeadlessDialogs::TakeAnswer(const Question& question) {
  const std::string differences =
      expected_.empty() ? "nothing is expected any more" : question.DifferencesFrom(expected_.front());
  if (!differences.empty()) {
    if (on_unexpected) on_unexpected({question.kind, question.text, differences});
    return std::nullopt;
  }
  ExpectedDialog taken = std::move(expected_.front());
  expected_.pop_front();
  if (taken.while_shown_) taken.while_shown_();
  return taken;
}

BoxAnswer HeadlessDialogs::ShowMessage(const MessageBoxRequest& request) {
  shown_boxes.push_back(request);
  Question question{QuestionKind::kMessage, request.text};
  question.title = request.title;
  question.buttons = request.buttons;
  question.icon = request.icon;
  question.default_button = request.default_button;
  const auto expected = TakeAnswer(question);
  return expected ? expected->answer_ : SafeAnswer(request.buttons);
}

std::optional<std::string> HeadlessDialogs::AskText(std::string_view prompt, std::string_view title,
                                                    std::string_view preset) {
  Question question{QuestionKind::kInput, std::string(prompt)};
  question.title = title;
  question.preset = preset;
  const auto expected = TakeAnswer(question);
  return expected ? expected->typed_ : std::nullopt;
}

std::optional<std::string> HeadlessDialogs::PickFile(const FileDialogRequest& request) {
  shown_file_dialogs.push_back(request);
  Question question{QuestionKind::kFile, request.title};
  question.title = request.title;
  question.filter = request.filter;
  question.folder = request.folder;
  question.preset = request.file_name;
  const auto expected = TakeAnswer(question);
  return expected ? expected->typed_ : std::nullopt;
}

std::optional<std::string> HeadlessDialogs::PickFolder(std::string_view prompt, int root_csidl,
                                                       std::string_view start_folder) {
  Question question{QuestionKind::kFolder, std::string(prompt)};
  question.folder = start_folder;
  question.root = root_csidl;
  const auto expected = TakeAnswer(question);
  return expected ? expected->typed_ : std::nullopt;
}

std::optional<uint32_t> HeadlessDialogs::PickColor(uint32_t) {
  const auto expected = TakeAnswer({QuestionKind::kColor, {}});
  return expected ? expected->color_ : std::nullopt;
}

}  // namespace kestrun

#include "forms/text_box.h"

#include <algorithm>

#include "base/text.h"
#include "forms/member_rows.h"
#include "forms/text_selection.h"

namespace kestrun {
namespace {

constexpr Member kRows[]{
    PropertyRow<&TextBox::Text>("Text"),
    PropertyRow<&TextBox::Locked>("Locked"),
    PropertyRow<&TextBox::MaxLength>("MaxLength"),
    PropertyRow<&TextBox::MultiLine>("MultiLine"),
    PropertyRow<&TextBox::PasswordChar>("PasswordChar"),
    PropertyRow<&TextBox::ScrollBars>("ScrollBars"),
    PropertyRow<&TextBox::Alignment>("Alignment"),
    PropertyRow<&TextBox::BorderStyle>("BorderStyle"),
    PropertyRow<&TextBox::Appearance>("Appearance"),
    PropertyRow<&TextBox::SelStart>("SelStart"),
    PropertyRow<&TextBox::SelLength>("SelLength"),
    AccessorRow<&TextBox::SelText, &TextBox::SetSelText>("SelText"),
};
const MemberTable kTable{&Control::kWindowedMembers, kRows};

// The text is being replaced, for as long as the object lives.
class ReplacementScope {
 public:
  ReplacementScope(const std::string*& replacement, const std::string& text) : replacement_(replacement) {
    replacement_ = &text;
  }
  ~ReplacementScope() { replacement_ = nullptr; }
  ReplacementScope(const ReplacementScope&) = delete;
  ReplacementScope& operator=(const ReplacementScope&) = delete;

 private:
  const std::string*& replacement_;
};

}  // namespace

TextBox::TextBox(Form* form, std::string name, int index) : Control(form, std::move(name), index) {
  TakeWindowColors();
}

const MemberTable& TextBox::Members() const { return kTable; }

std::string TextBox::SelText() const { return SelectedPart(Text.get(), SelStart, SelLength); }

void TextBox::SetSelText(std::string_view replacement) {
  ReplacedText replaced = ReplaceSelection(Text.get(), SelStart, SelLength, replacement);
  const std::string typed(replacement);
  const ReplacementScope scope(replacement_, typed);
  Text = std::move(replaced.text);
  SelStart = replaced.end;
  SelLength = 0;
}

void TextBox::PropertyChanged(PropertyId id) {
  if (id != PropertyId::kText) return;
  if (MaxLength > 0) {
    const std::u16string text = ToUtf16(Text.get());
    const auto limit = static_cast<size_t>(MaxLength.get());
    if (text.size() > limit) Text.StoreQuietly(ToUtf8(std::u16string_view(text).substr(0, limit)));
  }
  Change();
}

}  // namespace kestrun

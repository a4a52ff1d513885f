#include "forms/text_box.h"

#include <algorithm>

#include "base/text.h"
#include "forms/member_rows.h"

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
    PropertyRow<&TextBox::SelStart>("SelStart"),
    PropertyRow<&TextBox::SelLength>("SelLength"),
    AccessorRow<&TextBox::SelText, &TextBox::SetSelText>("SelText"),
};
const MemberTable kTable{&Control::kControlMembers, kRows};

}  // namespace

const MemberTable& TextBox::Members() const { return kTable; }

std::string TextBox::SelText() const {
  const std::u16string text = ToUtf16(Text.get());
  const auto start = std::min(static_cast<size_t>(std::max(SelStart.get(), 0)), text.size());
  return ToUtf8(std::u16string_view(text).substr(start, static_cast<size_t>(std::max(SelLength.get(), 0))));
}

void TextBox::SetSelText(std::string_view replacement) {
  std::u16string text = ToUtf16(Text.get());
  const std::u16string inserted = ToUtf16(replacement);
  const auto start = std::min(static_cast<size_t>(std::max(SelStart.get(), 0)), text.size());
  text.replace(start, static_cast<size_t>(std::max(SelLength.get(), 0)), inserted);
  Text = ToUtf8(text);
  SelStart = static_cast<int>(start + inserted.size());
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

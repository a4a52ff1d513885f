#include "script/vbscript/runtime/text_search.h"

#include <algorithm>

namespace kestrun::vbs {
namespace {

// Units that one step of the time limit stands for when texts are walked through.
constexpr size_t kUnitsPerStep = 64;
constexpr size_t kChargeEvery = 1 << 16;

}  // namespace

std::u16string Fold(RuntimeContext& context, std::u16string_view text) {
  context.Charge(text.size() / kUnitsPerStep);
  if (text.size() > kChargeEvery) ChargeText(context, text.size());
  std::u16string folded(text.size(), u'\0');
  std::transform(text.begin(), text.end(), folded.begin(), LowerUnit);
  return folded;
}

int CompareFolded(RuntimeContext& context, std::u16string_view left, std::u16string_view right) {
  const size_t common = std::min(left.size(), right.size());
  context.Charge(common / kUnitsPerStep);
  for (size_t at = 0; at < common; ++at) {
    const char16_t left_unit = LowerUnit(left[at]);
    const char16_t right_unit = LowerUnit(right[at]);
    if (left_unit != right_unit) return left_unit < right_unit ? -1 : 1;
  }
  return left.size() < right.size() ? -1 : static_cast<int>(left.size() > right.size());
}

TextFinder::TextFinder(RuntimeContext& context, std::u16string_view text, std::u16string_view wanted, bool ignore_case)
    : context_(context), text_(text), wanted_(wanted) {
  if (!ignore_case) return;
  folded_text_ = Fold(context, text);
  folded_wanted_ = Fold(context, wanted);
  text_ = folded_text_;
  wanted_ = folded_wanted_;
}

bool TextFinder::MatchesAt(size_t place) {
  size_t same = 1;
  while (same < wanted_.size() && text_[place + same] == wanted_[same]) ++same;
  uncharged_ += same;
  if (uncharged_ >= kChargeEvery) {
    context_.Charge(uncharged_ / kUnitsPerStep);
    uncharged_ = 0;
  }
  return same >= wanted_.size();
}

size_t TextFinder::Find(size_t from) {
  if (wanted_.size() > text_.size()) return std::u16string_view::npos;
  if (wanted_.empty()) return from <= text_.size() ? from : std::u16string_view::npos;
  const size_t last = text_.size() - wanted_.size();
  const char16_t first = wanted_[0];
  for (size_t place = from; place <= last; ++place) {
    if (text_[place] == first && MatchesAt(place)) return place;
  }
  uncharged_ += last > from ? last - from : 0;
  return std::u16string_view::npos;
}

size_t TextFinder::FindLast(size_t end) {
  if (wanted_.size() > end) return std::u16string_view::npos;
  if (wanted_.empty()) return end;
  for (size_t place = end - wanted_.size() + 1; place-- > 0;) {
    if (text_[place] == wanted_[0] && MatchesAt(place)) return place;
  }
  return std::u16string_view::npos;
}

}  // namespace kestrun::vbs

#include "script/vbscript/runtime/text_search.h"

#include <algorithm>

namespace kestrun::vbs {
std::u16string Fold(RuntimeContext& context, std::u16string_view text) {
  if (text.size() > kPieceUnits) ChargeText(context, text.size());
  std::u16string folded(text.size(), u'\0');
  ByPieces(context, text.size(), [&](size_t from, size_t to) {
    std::transform(text.begin() + from, text.begin() + to, folded.begin() + static_cast<std::ptrdiff_t>(from),
                   LowerUnit);
  });
  return folded;
}

namespace {

// Walks both texts by pieces; the sign of the first difference by `order`, else that of the lengths.
template <class Order>
int CompareByPieces(RuntimeContext& context, std::u16string_view left, std::u16string_view right, Order order) {
  const size_t common = std::min(left.size(), right.size());
  int difference = 0;
  for (size_t from = 0; from < common && difference == 0; from += kPieceUnits) {
    const size_t size = std::min(kPieceUnits, common - from);
    context.Charge(size / kUnitsPerStep);
    difference = order(left.substr(from, size), right.substr(from, size));
  }
  if (difference != 0) return difference < 0 ? -1 : 1;
  return left.size() < right.size() ? -1 : static_cast<int>(left.size() > right.size());
}

int CompareFoldedPiece(std::u16string_view left, std::u16string_view right) {
  for (size_t at = 0; at < left.size(); ++at) {
    const char16_t left_unit = LowerUnit(left[at]);
    const char16_t right_unit = LowerUnit(right[at]);
    if (left_unit != right_unit) return left_unit < right_unit ? -1 : 1;
  }
  return 0;
}

}  // namespace

int CompareUnits(RuntimeContext& context, std::u16string_view left, std::u16string_view right) {
  return CompareByPieces(context, left, right, [](auto one, auto other) { return one.compare(other); });
}

int CompareFolded(RuntimeContext& context, std::u16string_view left, std::u16string_view right) {
  return CompareByPieces(context, left, right, CompareFoldedPiece);
}

TextFinder::TextFinder(RuntimeContext& context, std::u16string_view text, std::u16string_view wanted, bool ignore_case)
    : context_(context), text_(text), wanted_(wanted) {
  if (!ignore_case) return;
  folded_text_ = Fold(context, text);
  folded_wanted_ = Fold(context, wanted);
  text_ = folded_text_;
  wanted_ = folded_wanted_;
}

void TextFinder::CountWork(size_t units) {
  uncharged_ += units;
  if (uncharged_ < kPieceUnits) return;
  context_.Charge(uncharged_ / kUnitsPerStep);
  uncharged_ = 0;
}

bool TextFinder::MatchesAt(size_t place) {
  size_t same = 1;
  while (same < wanted_.size() && text_[place + same] == wanted_[same] && same % kPieceUnits != 0) ++same;
  CountWork(same);
  if (same % kPieceUnits == 0) {
    return CompareUnits(context_, text_.substr(place + same, wanted_.size() - same), wanted_.substr(same)) == 0;
  }
  return same >= wanted_.size();
}

// Looks for the first unit piece by piece.
size_t TextFinder::Find(size_t from) {
  if (wanted_.size() > text_.size()) return std::u16string_view::npos;
  if (wanted_.empty()) return from <= text_.size() ? from : std::u16string_view::npos;
  const size_t end = text_.size() - wanted_.size() + 1;
  while (from < end) {
    const size_t to = std::min(end, from + kPieceUnits);
    for (size_t place = from; place < to; ++place) {
      if (text_[place] != wanted_[0] || !MatchesAt(place)) continue;
      CountWork(place - from);
      return place;
    }
    CountWork(to - from);
    from = to;
  }
  return std::u16string_view::npos;
}

size_t TextFinder::FindLast(size_t end) {
  if (wanted_.size() > end) return std::u16string_view::npos;
  if (wanted_.empty()) return end;
  for (size_t place = end - wanted_.size() + 1; place-- > 0;) {
    if (place % kPieceUnits == 0) CountWork(kPieceUnits);
    if (text_[place] == wanted_[0] && MatchesAt(place)) return place;
  }
  return std::u16string_view::npos;
}

}  // namespace kestrun::vbs

#include "script/vbscript/runtime/builders.h"

#include <algorithm>

#include "script/vbscript/runtime/errors.h"

namespace kestrun::vbs {

TextBuilder::TextBuilder(RuntimeContext& context, size_t expected_units)
    : context_(context), body_(MakeRef<TextBody>()) {
  MakeRoom(expected_units);
}

// Doubles the room, so that a text that grows is moved seldom. Near the end of the budget it takes half of what the
// text can still grow by.
void TextBuilder::Grow(size_t units) {
  const size_t most = context_.most_text_units();
  if (units > most) RaiseScript(error::kOutOfStringSpace);
  size_t wanted = std::min(std::max(units, 2 * body_->text.capacity()), most);
  const size_t left = context_.memory_left() / sizeof(char16_t);
  if (wanted > left) wanted = units < left ? units + (left - units) / 2 : units;
  context_.ChargeMemory(TextBody::BytesOf(wanted));
  context_.Charge(body_->text.size() / kUnitsPerStep);
  std::u16string larger;  // a text that reserves more for itself may take twice what it is asked to
  larger.reserve(wanted);
  larger.append(body_->text);
  body_->text.swap(larger);
  body_->CountBytes();
}

void TextBuilder::AppendLong(std::u16string_view part) {
  ByPieces(context_, part.size(), [&](size_t from, size_t to) { body_->text.append(part.substr(from, to - from)); });
}

void TextBuilder::Append(size_t count, char16_t unit) {
  MakeRoom(count);
  ByPieces(context_, count, [&](size_t from, size_t to) { body_->text.append(to - from, unit); });
}

void TextBuilder::ChargeWork() {
  context_.Charge(uncharged_ / kUnitsPerStep);
  uncharged_ = 0;
}

ListBuilder::ListBuilder(RuntimeContext& context, size_t expected)
    : context_(context), body_(MakeRef<ArrayBody>(std::vector<int32_t>{})) {
  if (expected > 0) Grow(expected);
}

void ListBuilder::Grow(size_t count) {
  const size_t size = body_->elements.size();
  context_.ChargeMemory(LiveBytes::Block(count * sizeof(Variant)));
  context_.Charge(1 + size / kElementsPerStep);
  body_->elements.reserve(count);
  body_->CountBytes();
}

void ListBuilder::Append(Variant value) {
  const size_t size = body_->elements.size();
  if (size == body_->elements.capacity()) Grow(std::max<size_t>(8, size * 2));
  body_->elements.push_back(std::move(value));
  if (size % kElementsPerStep == 0) {
    context_.Charge(1);
    context_.ChargeMemory(0);
  }
}

Variant ListBuilder::Take() {
  body_->sizes = {static_cast<int32_t>(body_->elements.size())};
  body_->CountBytes();
  return Variant(std::move(body_));
}

}  // namespace kestrun::vbs

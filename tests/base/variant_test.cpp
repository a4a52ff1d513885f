#include "base/variant.h"

#include <gtest/gtest.h>

#include "base/object.h"
#include "support/error_number.h"

namespace kestrun {
namespace {

class Nobody final : public TableObject {
 public:
  explicit Nobody(bool& gone) : gone_(gone) {}
  ~Nobody() override { gone_ = true; }
  [[nodiscard]] std::string TypeName() const override { return "Nobody"; }
  [[nodiscard]] const MemberTable& Members() const override {
    static const MemberTable table{nullptr, {}};
    return table;
  }

 private:
  bool& gone_;
};

TEST(VariantTest, NewValueIsEmpty) { EXPECT_TRUE(Variant().Is(VarType::kEmpty)); }

TEST(VariantTest, EachKindKeepsItsPayload) {
  EXPECT_TRUE(Variant(true).boolean());
  EXPECT_EQ(Variant(int16_t{-7}).whole(), -7);
  EXPECT_EQ(Variant(int32_t{70000}).whole(), 70000);
  EXPECT_EQ(Variant(uint8_t{255}).whole(), 255);
  EXPECT_EQ(Variant(1.5F).real(), 1.5);
  EXPECT_EQ(Variant(2.25).real(), 2.25);
  EXPECT_EQ(Variant::Currency(12345).scaled(), 12345);
  EXPECT_EQ(Variant::Date(36526.5).real(), 36526.5);
  EXPECT_EQ(Variant("é").text(), u"é");
}

TEST(VariantTest, EachKindKnowsItsType) {
  EXPECT_EQ(Variant(true).type(), VarType::kBoolean);
  EXPECT_EQ(Variant(int16_t{1}).type(), VarType::kInteger);
  EXPECT_EQ(Variant(1).type(), VarType::kLong);
  EXPECT_EQ(Variant(uint8_t{1}).type(), VarType::kByte);
  EXPECT_EQ(Variant(1.0F).type(), VarType::kSingle);
  EXPECT_EQ(Variant(1.0).type(), VarType::kDouble);
  EXPECT_EQ(Variant::Currency(1).type(), VarType::kCurrency);
  EXPECT_EQ(Variant::Date(1).type(), VarType::kDate);
  EXPECT_EQ(Variant("").type(), VarType::kString);
  EXPECT_EQ(Variant::Null().type(), VarType::kNull);
  EXPECT_EQ(Variant::Nothing().type(), VarType::kObject);
}

TEST(VariantTest, NothingIsAnObjectWithoutATarget) { EXPECT_EQ(Variant::Nothing().object(), nullptr); }

TEST(VariantTest, OnlyTheErrorOfALeftOutArgumentIsMissing) {
  EXPECT_TRUE(Variant::Missing().IsMissing());
  EXPECT_FALSE(Variant::Error(5).IsMissing());
  EXPECT_FALSE(Variant(kMissingArgument).IsMissing());
  EXPECT_FALSE(Variant().IsMissing());
}

TEST(VariantTest, CopiesShareTheText) {
  const Variant first("text");
  const Variant second(first);
  EXPECT_EQ(first.text_body(), second.text_body());
  EXPECT_EQ(first.text_body()->references(), 2U);
}

TEST(VariantTest, MovedFromValueIsEmpty) {
  Variant first("text");
  const Variant second(std::move(first));
  EXPECT_TRUE(first.Is(VarType::kEmpty));  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(second.text_body()->references(), 1U);
}

TEST(VariantTest, AssignmentToItselfKeepsTheValue) {
  Variant value("text");
  const Variant& same = value;
  value = same;
  EXPECT_EQ(value.text(), u"text");
  Variant& also_same = value;
  value = std::move(also_same);
  EXPECT_EQ(value.text(), u"text");
}

TEST(VariantTest, LastReferenceFreesTheObject) {
  bool gone = false;
  Variant first(MakeRef<Nobody>(gone));
  Variant second = first;
  first = 1;
  EXPECT_FALSE(gone);
  second = Variant();
  EXPECT_TRUE(gone);
}

TEST(VariantTest, ElementAssignedFromItsOwnArraySurvives) {
  Ref<ArrayBody> body = MakeRef<ArrayBody>(std::vector<int32_t>{1});
  body->elements[0] = "inside";
  Variant holder(std::move(body));
  holder = Variant(holder.array().elements[0]);
  EXPECT_EQ(holder.text(), u"inside");
}

TEST(VariantTest, SharedArrayIsCopiedBeforeItIsChanged) {
  Variant first(MakeRef<ArrayBody>(std::vector<int32_t>{2}));
  Variant second = first;
  second.MutableArray().elements[0] = 7;
  EXPECT_TRUE(first.array().elements[0].Is(VarType::kEmpty));
  EXPECT_EQ(second.array().elements[0].whole(), 7);
}

TEST(VariantTest, ArrayThatIsNotSharedIsChangedInPlace) {
  Variant value(MakeRef<ArrayBody>(std::vector<int32_t>{1}));
  const ArrayBody* const before = &value.array();
  EXPECT_EQ(&value.MutableArray(), before);
}

TEST(VariantTest, ArrayHasTheProductOfItsSizes) {
  EXPECT_EQ(ArrayBody({2, 3, 4}).elements.size(), 24U);
  EXPECT_EQ(ArrayBody({5, 0}).elements.size(), 0U);
  EXPECT_TRUE(ArrayBody({}).sizes.empty());
}

TEST(VariantTest, ClonedArrayKeepsBoundsElementsAndFixedness) {
  ArrayBody original({2}, true);
  original.elements[1] = "x";
  const Ref<ArrayBody> copy = original.Clone();
  EXPECT_EQ(copy->sizes, original.sizes);
  EXPECT_TRUE(copy->fixed);
  EXPECT_EQ(copy->elements[1].text(), u"x");
}

TEST(VariantTest, ArrayWhoseCountRunsOverIsRefused) {
  // 65536 to the fourth is 2^64, which a 64-bit product shows as no element at all.
  EXPECT_EQ(ErrorOf([] { return MakeRef<ArrayBody>(std::vector<int32_t>(4, 65536)); }), "7: Out of memory");
  EXPECT_EQ(ErrorOf([] { return MakeRef<ArrayBody>(std::vector<int32_t>{65536, 65536}); }), "7: Out of memory");
}

TEST(VariantTest, ArrayOfNegativeSizeIsRefused) {
  EXPECT_EQ(ErrorOf([] { return MakeRef<ArrayBody>(std::vector<int32_t>{-1}); }), "9: Subscript out of range");
}

TEST(VariantTest, TypeNamesAreThoseOfTheLanguage) {
  EXPECT_EQ(VarTypeName(VarType::kEmpty), "Empty");
  EXPECT_EQ(VarTypeName(VarType::kInteger), "Integer");
  EXPECT_EQ(VarTypeName(VarType::kArray), "Variant()");
}

}  // namespace
}  // namespace kestrun

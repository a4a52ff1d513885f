#include "base/ref.h"

#include <gtest/gtest.h>

namespace kestrun {
namespace {

class Counted : public RefCounted {
 public:
  explicit Counted(int& alive) : alive_(alive) { ++alive_; }
  ~Counted() override { --alive_; }

 private:
  int& alive_;
};

class CountedChild final : public Counted {
 public:
  using Counted::Counted;
};

class RefTest : public testing::Test {
 protected:
  int alive = 0;
};

TEST_F(RefTest, LastReferenceEndsTheObject) {
  Ref<Counted> first = MakeRef<Counted>(alive);
  Ref<Counted> second = first;
  EXPECT_EQ(first->references(), 2U);
  first.Reset();
  EXPECT_EQ(alive, 1);
  second.Reset();
  EXPECT_EQ(alive, 0);
}

TEST_F(RefTest, OverwriteReleasesTheOldObject) {
  Ref<Counted> reference = MakeRef<Counted>(alive);
  reference = MakeRef<Counted>(alive);
  EXPECT_EQ(alive, 1);
  reference = nullptr;
  EXPECT_EQ(alive, 0);
}

TEST_F(RefTest, AssignmentOntoItselfKeepsTheObject) {
  Ref<Counted> reference = MakeRef<Counted>(alive);
  const Ref<Counted>& same = reference;
  reference = same;
  Ref<Counted>& also_same = reference;
  reference = std::move(also_same);
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(reference->references(), 1U);
}

TEST_F(RefTest, MovedFromReferenceIsEmpty) {
  Ref<Counted> first = MakeRef<Counted>(alive);
  const Ref<Counted> second = std::move(first);
  EXPECT_FALSE(first);  // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(second->references(), 1U);
}

TEST_F(RefTest, ReferenceToADerivedObjectConverts) {
  const Ref<Counted> reference = MakeRef<CountedChild>(alive);
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(reference->references(), 1U);
}

}  // namespace
}  // namespace kestrun

#include "base/runtime_error.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace kestrun {
namespace {

TEST(RuntimeErrorTest, StandardNumberBringsItsText) {
  const RuntimeError failure(error::kFileNotFound);
  EXPECT_EQ(failure.number(), 53);
  EXPECT_EQ(failure.description(), "File not found");
}

TEST(RuntimeErrorTest, OwnNumberBringsTheTextThatIsGiven) {
  const RuntimeError failure(1030, "No file loaded");
  EXPECT_EQ(failure.number(), 1030);
  EXPECT_EQ(failure.description(), "No file loaded");
}

TEST(RuntimeErrorTest, UnknownNumberHasTheCommonText) {
  EXPECT_EQ(StandardErrorText(1234), "Application-defined or object-defined error");
  EXPECT_EQ(StandardErrorText(0), "Application-defined or object-defined error");
}

TEST(RuntimeErrorTest, EveryStandardNumberHasATextOfItsOwn) {
  const std::string_view common = StandardErrorText(1234);
  for (const int number : {5,  6,  7,  9,  11, 13, 14, 28,  52,  53,  55,  57,  58,  61, 62,
                           67, 70, 71, 75, 76, 91, 94, 321, 383, 424, 429, 438, 440, 450})
    EXPECT_NE(StandardErrorText(number), common) << number;
}

template <class Failure>
RuntimeError Seen(const Failure& failure) {
  try {
    throw failure;
  } catch (...) {
    return CurrentError();
  }
}

TEST(RuntimeErrorTest, FailureInFlightIsSeenAsItIs) {
  const RuntimeError seen = Seen(RuntimeError(1031, "own text"));
  EXPECT_EQ(seen.number(), 1031);
  EXPECT_EQ(seen.description(), "own text");
}

TEST(RuntimeErrorTest, FailedAllocationIsOutOfMemory) {
  EXPECT_EQ(Seen(std::bad_alloc()).number(), error::kOutOfMemory);
  EXPECT_EQ(Seen(std::bad_alloc()).description(), "Out of memory");
}

TEST(RuntimeErrorTest, MoreMemoryThanThereAreAddressesIsOutOfMemory) {
  EXPECT_EQ(Seen(std::length_error("vector::_M_default_append")).number(), error::kOutOfMemory);
}

TEST(RuntimeErrorTest, AnyOtherFailureIsAnAutomationErrorWithItsText) {
  const RuntimeError seen = Seen(std::logic_error("what went wrong"));
  EXPECT_EQ(seen.number(), error::kAutomationError);
  EXPECT_EQ(seen.description(), "what went wrong");
}

TEST(RuntimeErrorTest, AttemptSkipsTheFailingStatementOnly) {
  int done = 0;
  EXPECT_TRUE(Attempt([&] { ++done; }));
  EXPECT_FALSE(Attempt([&] { Raise(error::kTypeMismatch); }));
  EXPECT_TRUE(Attempt([&] { ++done; }));
  EXPECT_EQ(done, 2);
}

}  // namespace
}  // namespace kestrun

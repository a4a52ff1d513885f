// Files as somebody finds them who may not change everything.
#pragma once

#ifndef _WIN32
#include <gtest/gtest.h>
#include <unistd.h>

namespace kestrun {

// Takes the rights of the superuser away for as long as it lives.
class WithoutRights {
 public:
  WithoutRights() { EXPECT_EQ(::seteuid(before_ == 0 ? kNobody : before_), 0); }
  ~WithoutRights() { EXPECT_EQ(::seteuid(before_), 0); }
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  uid_t before_ = ::geteuid();
};
}  // namespace kestrun

#endif  // _WIN32

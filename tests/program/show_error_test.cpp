#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "program/show_error.h"
#include "support/headless_fixture.h"

namespace kestrun {
namespace {

class ShowErrorTest : public HeadlessTest {};

TEST_F(ShowErrorTest, TheFailureInFlightIsShownWithItsNumberAndDescription) {
  desktop.dialogs().ExpectBox("Error: 53\r\nFile not found").WithTitle("").WithButtons(BoxButtons::kOk);
  try {
    Raise(error::kFileNotFound);
  } catch (const std::exception&) {
    ShowError("");
  }
}

TEST_F(ShowErrorTest, TheContextStandsBeforeTheNumber) {
  desktop.dialogs().ExpectBox("Error: packfile 1030\r\nNo room");
  try {
    Raise(1030, "No room");
  } catch (const std::exception&) {
    ShowError("packfile ");
  }
}

TEST_F(ShowErrorTest, WithoutAFailureTheNumberIsZero) {
  desktop.dialogs().ExpectBox("Error: 0\r\n");
  ShowError("");
}

}  // namespace
}  // namespace kestrun

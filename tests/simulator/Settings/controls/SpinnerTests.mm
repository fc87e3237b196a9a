// A spinner in a row, which shows something and takes nothing.
#import <UIKit/UIPasteboard+Sim.h>

#include "simulator/Settings/SessionTest.h"

namespace {

class SpinnerTest : public SessionTest {};

TEST_F(SpinnerTest, ASpinnerHasItsColourAndNothingToSet) {
  const auto spinner = objcxx::adopt(
      [[UIActivityIndicatorView alloc] initWithActivityIndicatorStyle:UIActivityIndicatorViewStyleMedium]);
  [spinner.get() setColor:[UIColor redColor]];
  EXPECT_EQ(controlOf(spinner.get()), Json({{"type", "spinner"}, {"color", "#ff0000ff"}}));
  EXPECT_TRUE(row(0, 0)["value"].is_null());
  EXPECT_EQ(row(0, 0)["enabled"], true);
  EXPECT_TRUE(row(0, 0)["accessoryView"].is_null()) << "it is the row's control";
  expectRefused({{"type", "set"}, {"id", rowId(0, 0)}, {"value", true}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "This control shows something and cannot be set.");
  [[UIPasteboard generalPasteboard] sim_setStringFromOutside:@"x"];
  expectRefused({{"type", "paste"}, {"id", rowId(0, 0)}}, Outcome::refused);
  EXPECT_EQ(reply["error"], "Nothing can be pasted here.");
}

}  // namespace

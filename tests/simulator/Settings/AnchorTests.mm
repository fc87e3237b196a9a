// Where on the screen an alert or a sheet was asked to be shown from.
#include "simulator/Settings/SessionTest.h"

namespace {

TEST_F(SessionTest, aSheetTellsThePlaceThatItWasGiven) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  const auto sheet = objcxx::adopt([[UIActivityViewController alloc] initWithActivityItems:@[ @"text" ]
                                                                     applicationActivities:nil]);
  const auto source = objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(10, 20, 100, 50)]);
  [[list view] addSubview:source.get()];
  [[sheet.get() popoverPresentationController] setSourceView:source.get()];
  [list presentViewController:sheet.get() animated:NO completion:nil];
  session().refresh();
  EXPECT_EQ(screen()["sheet"]["anchor"], Json({10, 20, 100, 50}));
  [[sheet.get() popoverPresentationController] setSourceRect:CGRectMake(1, 2, 3, 4)];
  session().refresh();
  EXPECT_EQ(screen()["sheet"]["anchor"], Json({11, 22, 3, 4}));
  [[sheet.get() popoverPresentationController] setSourceView:nil];
  session().refresh();
  EXPECT_TRUE(screen()["sheet"]["anchor"].is_null());
}

}  // namespace

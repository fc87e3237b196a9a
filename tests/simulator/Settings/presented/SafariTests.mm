// A web page over an app's own: shown by its host, and closed.
#import <SafariServices/SafariServices.h>

#include "simulator/Settings/SessionTest.h"

/// A delegate that wants to hear of nothing.
@interface SafariIgnorer : NSObject <SFSafariViewControllerDelegate>
@end

@implementation SafariIgnorer
@end

@interface SafariCloser : NSObject <SFSafariViewControllerDelegate> {
 @public
  int finished;
}
@end

@implementation SafariCloser
- (void)safariViewControllerDidFinish:(SFSafariViewController *)controller {
  if ([controller presentingViewController]) ++finished;
}
@end

namespace {

class SafariTests : public SessionTest {};

TEST_F(SafariTests, IsShownByItsHostAndTellsThatItWasClosed) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  SafariCloser *closer = [[[SafariCloser alloc] init] autorelease];
  SFSafariViewController *safari =
      [[[SFSafariViewController alloc] initWithURL:[NSURL URLWithString:@"https://example.com/a"]] autorelease];
  [safari setDelegate:closer];
  present(list, safari);
  EXPECT_EQ(screen()["sheet"]["kind"], "page");
  EXPECT_EQ(screen()["sheet"]["title"], "example.com");
  EXPECT_EQ(closer->finished, 0);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_TRUE(screen()["sheet"].is_null());
  EXPECT_EQ(closer->finished, 1);
}

TEST_F(SafariTests, IsClosedWithoutADelegateThatHearsOfIt) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  SafariIgnorer *ignorer = [[[SafariIgnorer alloc] init] autorelease];
  SFSafariViewController *safari =
      [[[SFSafariViewController alloc] initWithURL:[NSURL URLWithString:@"https://example.com/a"]] autorelease];
  [safari setDelegate:ignorer];
  present(list, safari);
  EXPECT_EQ(send({{"type", "dismiss"}}), Outcome::done);
  EXPECT_TRUE(screen()["sheet"].is_null());
}

}  // namespace

// A running Settings application with a test's own first page, in a device folder of the test's own, and the log.
#pragma once

#import <Foundation/SIMDevice.h>
#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#import "Settings/Session.h"
#import "Settings/stage/Stage.h"
#include "support/objc/ObjCMatchers.h"
#include "support/objc/ObjCTest.h"

/// A page with a table of texts, whose behaviour a test fills in. Rows can be moved and swiped away.
@interface ListPage : UITableViewController {
 @public
  objcxx::Retained<NSMutableArray> sections;  ///< Of NSMutableArray of NSString.
  objcxx::Retained<NSMutableArray> calls;     ///< What it was asked to do, in order.
  objcxx::Retained<UIView> sectionView;       ///< The header and footer of the first section.
  objcxx::Retained<Lifetime> lifetime;
  NSString *raises;     ///< The name of the exception that each cell raises; not owned.
  NSString *tapRaises;  ///< The name of the exception that a tap raises; not owned.
  BOOL selectable;
}
- (instancetype)initWithTitle:(NSString *)title sections:(NSArray *)sections;
- (void)pushNext;
@end

/// A row with a control in its accessory, worked by `changed:` of the page.
@interface ControlPage : ListPage {
 @public
  objcxx::Retained<UIView> control;
}
@end

/// Shows a view of its own and no table.
@interface PlainPage : UIViewController
@end

namespace testing_support {

class SessionTest : public DeviceTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Starts the application with `root` as its first page.
  void start(UIViewController *root, std::uint64_t firstRevision = 1);
  /// Starts the process of the stage in place of the settings.
  void startStage(sim::Stage &stage);
  ListPage *startList(NSArray *sections);
  /// A page whose single row carries `control`.
  ControlPage *startControl(UIView *control);
  /// The description of `control` in the row of such a page.
  sim::Json controlOf(UIView *control);
  /// The description of `view` as the header of a table.
  sim::Json describedView(UIView *view);
  /// Presents `controller` over `page`.
  void present(UIViewController *page, UIViewController *controller);

  sim::Session &session() { return *session_; }
  /// The screen as it was last described.
  sim::Json screen() const;
  sim::Json page() const { return screen()["page"]; }
  sim::Json row(std::size_t section, std::size_t row) const { return page()["sections"][section]["rows"][row]; }
  std::string rowId(std::size_t section, std::size_t row) const;
  /// The labels of all rows: " a  b | c ".
  std::string labels() const;
  std::string titles() const;

  /// The path on the device of a file in the device folder.
  static NSString *onDevice(NSString *file) { return [file substringFromIndex:[SIMDeviceFolder() length]]; }

  /// What became of it; `reply` has the content as JSON, or {"error"}.
  sim::wire::Outcome perform(const sim::wire::Call &call);
  sim::wire::Outcome send(const sim::Json &event) { return perform(sim::wire::Event{event.dump()}); }
  sim::wire::Outcome tap(const std::string &id) { return send({{"type", "tap"}, {"id", id}}); }
  sim::wire::Outcome set(const std::string &id, const sim::Json &value) {
    return send({{"type", "set"}, {"id", id}, {"value", value}});
  }
  sim::wire::Outcome move(const sim::Json &from, const sim::Json &to) {
    return send({{"type", "move"}, {"from", from}, {"to", to}});
  }
  /// Expects `outcome` and a sentence, and that neither the screen nor its revision has changed.
  void expectRefused(const sim::Json &event, sim::wire::Outcome outcome);

  static std::string calls(ListPage *page);
  /// A square picture, `side` points and pixels wide.
  static UIImage *picture(CGFloat side);
  static objcxx::Retained<UIView> view(CGFloat width, CGFloat height);
  /// Width and height of a PNG file, as "60x40"; "" when it is none.
  static std::string sizeOf(NSData *png);
  /// What names the picture in its address; "" for null.
  static std::string identifierOf(const sim::Json &image);
  bool logged(const std::string &part) const;

  sim::Json reply;
  std::vector<std::string> log;

 private:
  std::unique_ptr<sim::Session> session_;
};

}  // namespace testing_support

namespace sim::wire {
inline void PrintTo(Outcome outcome, std::ostream *out) { *out << nameOf(outcome); }
}  // namespace sim::wire

using sim::Json;
using sim::wire::Outcome;
using testing_support::SessionTest;

// A picker in a row: its wheels, its value, turning them.
#include "simulator/Settings/SessionTest.h"

// Wheels of three and of many rows; it may make views.
@interface WheelSource : NSObject <UIPickerViewDataSource, UIPickerViewDelegate> {
 @public
  std::string log;
  NSInteger many;
}
@end

@implementation WheelSource

- (NSInteger)numberOfComponentsInPickerView:(UIPickerView *)picker {
  return 2;
}

- (NSInteger)pickerView:(UIPickerView *)picker numberOfRowsInComponent:(NSInteger)component {
  return component == 0 ? 3 : many;
}

- (NSString *)pickerView:(UIPickerView *)picker titleForRow:(NSInteger)row forComponent:(NSInteger)component {
  return [NSString stringWithFormat:@"%ld.%ld", (long)component, (long)row];
}

- (void)pickerView:(UIPickerView *)picker didSelectRow:(NSInteger)row inComponent:(NSInteger)component {
  log += std::to_string(component) + ":" + std::to_string(row) + " ";
  if (component == 0 && row == 2) {
    many = 1;
    [picker reloadComponent:1];
  }
}

@end

@interface ViewWheelSource : WheelSource
@end

/// Colours its titles, and makes wheels of its own sizes.
@interface ColourWheelSource : WheelSource
@end

@implementation ColourWheelSource
- (NSAttributedString *)pickerView:(UIPickerView *)picker
             attributedTitleForRow:(NSInteger)row
                      forComponent:(NSInteger)component {
  return
      [[[NSAttributedString alloc] initWithString:@"red"
                                       attributes:@{NSForegroundColorAttributeName : [UIColor redColor]}] autorelease];
}
- (CGFloat)pickerView:(UIPickerView *)picker widthForComponent:(NSInteger)component {
  return component == 0 ? 70 : 110;
}
- (CGFloat)pickerView:(UIPickerView *)picker rowHeightForComponent:(NSInteger)component {
  return component == 0 ? 40 : 24;
}
@end

@implementation ViewWheelSource
- (UIView *)pickerView:(UIPickerView *)picker
            viewForRow:(NSInteger)row
          forComponent:(NSInteger)component
           reusingView:(UIView *)view {
  UILabel *label = (UILabel *)view ?: [[[UILabel alloc] initWithFrame:CGRectZero] autorelease];
  [label setText:[self pickerView:picker titleForRow:row forComponent:component]];
  return label;
}
@end

namespace {

class PickerControlTest : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    source_ = objcxx::adopt([[WheelSource alloc] init]);
    source_.get()->many = 1500;
  }
  UIPickerView *picker(WheelSource *source) {
    UIPickerView *made = [[[UIPickerView alloc] initWithFrame:CGRectZero] autorelease];
    [made setDataSource:source];
    [made setDelegate:source];
    return made;
  }
  std::string told() { return std::exchange(source_.get()->log, {}); }

  objcxx::Retained<WheelSource> source_;
};

TEST_F(PickerControlTest, APickerShowsItsWheels) {
  UIPickerView *made = picker(source_.get());
  [made selectRow:900 inComponent:1 animated:YES];
  startControl(made);
  const Json look = row(0, 0)["control"];
  EXPECT_EQ(look["type"], "picker");
  EXPECT_EQ(look["size"], Json({320, 216}));
  EXPECT_EQ(row(0, 0)["value"], Json({0, 900}));
  ASSERT_EQ(look["components"].size(), 2u);
  const Json first = look["components"][0];
  EXPECT_EQ(first["count"], 3);
  EXPECT_EQ(first["first"], 0);
  EXPECT_EQ(first["rowHeight"], 32);
  EXPECT_EQ(first["rows"][2], Json({{"title", "0.2"}, {"color", nullptr}, {"view", nullptr}}));
  const Json second = look["components"][1];
  EXPECT_EQ(second["count"], 1500);
  EXPECT_EQ(second["first"], 400);
  EXPECT_EQ(second["rows"].size(), 1001u);
  EXPECT_EQ(second["rows"][500]["title"], "1.900");
}

TEST_F(PickerControlTest, RowsMayBeViews) {
  const auto views = objcxx::adopt([[ViewWheelSource alloc] init]);
  views.get()->many = 500;
  startControl(picker(views.get()));
  const Json look = row(0, 0)["control"];
  EXPECT_EQ(look["components"][1]["rows"].size(), 51u);
  const Json cell = look["components"][0]["rows"][1];
  EXPECT_TRUE(cell["title"].is_null());
  EXPECT_EQ(cell["view"]["text"], "0.1");
  EXPECT_EQ(cell["view"]["frame"][3], 32);
  EXPECT_EQ(set(rowId(0, 0), Json({nullptr, 200})), Outcome::done);
  const Json turned = row(0, 0)["control"]["components"][1];
  EXPECT_EQ(turned["first"], 150);
  EXPECT_EQ(turned["rows"][50]["view"]["text"], "1.200");
}

TEST_F(PickerControlTest, AFingerTurnsTheWheels) {
  UIPickerView *made = picker(source_.get());
  startControl(made);
  const std::string id = rowId(0, 0);
  for (const Json &wrong : {Json(1), Json("0.1"), Json({1}), Json({1, 2, 3}), Json({1, 2, nullptr}), Json({3, 0}),
                            Json({-1, 0}), Json({0.5, 0}), Json({1, 1500}), Json({"1", 0})}) {
    EXPECT_EQ(set(id, wrong), Outcome::refused) << wrong;
  }
  EXPECT_EQ(told(), "");
  EXPECT_EQ(set(id, Json({1, 7})), Outcome::done);
  EXPECT_EQ(told(), "0:1 1:7 ");
  EXPECT_EQ(row(0, 0)["value"], Json({1, 7}));
  EXPECT_EQ(set(id, Json({1, nullptr})), Outcome::done);
  EXPECT_EQ(told(), "") << "it stands there already";
  EXPECT_EQ(set(id, Json({2, 7})), Outcome::refused) << "the page takes the other row away";
  EXPECT_EQ(reply["error"], "This row has gone.");
  EXPECT_EQ(told(), "0:2 ");
  EXPECT_EQ(row(0, 0)["value"], Json({2, 0}));
  EXPECT_EQ(set(id, Json({0, 0})), Outcome::done);
  EXPECT_EQ(told(), "0:0 ") << "the first row is one like others";
  [made setUserInteractionEnabled:NO];
  EXPECT_EQ(set(id, Json({1, nullptr})), Outcome::refused);
  EXPECT_EQ(reply["error"], "This control is disabled.");
  EXPECT_EQ(told(), "");
}

TEST_F(PickerControlTest, APickerInAHeaderIsTurned) {
  UIPickerView *made = picker(source_.get());
  const Json described = describedView(made);
  EXPECT_EQ(described["control"]["type"], "picker");
  EXPECT_EQ(described["enabled"], true);
  EXPECT_EQ(set(described["id"], Json({1, nullptr})), Outcome::done);
  EXPECT_EQ([made selectedRowInComponent:0], 1);
}

TEST_F(PickerControlTest, WheelsAndTitlesAreAsTheDelegateWants) {
  const auto colours = objcxx::adopt([[ColourWheelSource alloc] init]);
  colours.get()->many = 2;
  startControl(picker(colours.get()));
  const Json wheels = row(0, 0)["control"]["components"];
  EXPECT_EQ(wheels[0]["width"], 70);
  EXPECT_EQ(wheels[0]["rowHeight"], 40);
  EXPECT_EQ(wheels[1]["width"], 110);
  EXPECT_EQ(wheels[1]["rowHeight"], 24);
  EXPECT_EQ(wheels[1]["rows"][1], Json({{"title", "red"}, {"color", "#ff0000ff"}, {"view", nullptr}}));
}

}  // namespace

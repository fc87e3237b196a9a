// Which adapter an object has.
#import "Settings/AdapterTable.h"

#import <UIKit/UIKit.h>
#import <objcxx/Retained.h>

#include <string>

#include "support/objc/ObjCTest.h"

namespace {

struct Named {
  Class (*kind)() = nullptr;
  const char *name = "";
};

class AdapterTableTest : public ObjCTest {
 protected:
  static std::string nameIn(const sim::AdapterTable<Named> &table, id object) {
    const Named *found = table.of(object);
    return found ? found->name : "none";
  }

  Named scroll_{.kind = [] { return [UIScrollView class]; }, .name = "scroll"};
  Named table_{.kind = [] { return [UITableView class]; }, .name = "table"};
};

TEST_F(AdapterTableTest, ASubclassHasItsOwnWhateverTheOrder) {
  const auto table = objcxx::adopt([[UITableView alloc] initWithFrame:CGRectZero style:UITableViewStylePlain]);
  const auto text = objcxx::adopt([[UITextView alloc] initWithFrame:CGRectZero]);
  const sim::AdapterTable<Named> one{&scroll_, &table_};
  const sim::AdapterTable<Named> other{&table_, &scroll_};
  for (const auto *adapters : {&one, &other}) {
    EXPECT_EQ(nameIn(*adapters, table.get()), "table");
    EXPECT_EQ(nameIn(*adapters, text.get()), "scroll") << "of the nearest superclass";
  }
}

TEST_F(AdapterTableTest, OthersHaveNone) {
  const sim::AdapterTable<Named> adapters{&scroll_};
  EXPECT_EQ(nameIn(adapters, objcxx::adopt([[UIView alloc] init]).get()), "none") << "a superclass is not meant";
  EXPECT_EQ(nameIn(adapters, @"text"), "none");
  EXPECT_EQ(nameIn(adapters, nil), "none");
}

}  // namespace

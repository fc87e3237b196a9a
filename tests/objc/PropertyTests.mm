// The properties of makers' classes, as the runtime's functions tell them, and what the system's version decides.
#include <objc/runtime.h>

#include <cstdlib>
#include <set>
#include <string>

#include "objc/ArcTest.h"
#include "objc/ours/Ours.h"

@interface Described : OursBase
@property(nonatomic, copy) NSString *title;
@property(nonatomic, readonly) int level;
@property(weak) id owner;
@end

@interface Described ()
@property(nonatomic, getter=isHidden, setter=hide:) BOOL hidden;
@end

@implementation Described
@end

@interface DescribedChild : Described
@property(nonatomic, strong) NSDictionary<NSString *, NSString *> *more;
@end

@implementation DescribedChild
@end

@interface Undescribed : Described
@end

@implementation Undescribed
@end

namespace {

/// "name attributes" of each property.
std::set<std::string> propertiesOf(Class theClass) {
  unsigned int count = 99;
  objc_property_t *all = class_copyPropertyList(theClass, &count);
  std::set<std::string> texts;
  for (unsigned int index = 0; index < count; ++index) {
    texts.insert(std::string(property_getName(all[index])) + " " + property_getAttributes(all[index]));
  }
  if (all) {
    EXPECT_EQ(all[count], nullptr);
    std::free(all);
  }
  return texts;
}

TEST(PropertyTest, AClassTellsItsOwn) {
  const std::string flag = @encode(BOOL);
  EXPECT_EQ(propertiesOf([Described class]),
            (std::set<std::string>{"title T@\"NSString\",C,N,V_title", "level Ti,R,N,V_level", "owner T@,W,V_owner",
                                   "hidden T" + flag + ",N,GisHidden,Shide:,V_hidden"}));
  EXPECT_EQ(propertiesOf([DescribedChild class]), (std::set<std::string>{"more T@\"NSDictionary\",&,N,V_more"}));
  EXPECT_EQ(propertiesOf([Undescribed class]), std::set<std::string>());
  EXPECT_EQ(propertiesOf([NSObject class]), std::set<std::string>());
  EXPECT_EQ(propertiesOf(Nil), std::set<std::string>());
}

TEST(PropertyTest, OneIsFoundByItsNameInSuperclassesToo) {
  EXPECT_STREQ(property_getName(class_getProperty([Undescribed class], "title")), "title");
  EXPECT_EQ(class_getProperty([Undescribed class], "more"), nullptr);
  EXPECT_EQ(class_getProperty([Undescribed class], nullptr), nullptr);
  EXPECT_EQ(class_getProperty(Nil, "title"), nullptr);
  EXPECT_EQ(property_getName(nullptr), nullptr);
}

TEST(AvailableTest, TheSystemsVersionDecides) {
  bool isOld = false, isNew = true, isNewer = true, isSame = false, isElsewhere = false;
  if (@available(iOS 13.0, *)) isOld = true;
  if (@available(iOS 17, *)) {
  } else {
    isNew = false;
  }
  if (!@available(macOS 14, iOS 16.5.1, *)) isNewer = false;
  if (@available(iOS 16.5, tvOS 99, *)) isSame = true;
  if (@available(macOS 99, *)) isElsewhere = true;
  EXPECT_TRUE(isOld);
  EXPECT_FALSE(isNew);
  EXPECT_FALSE(isNewer);
  EXPECT_TRUE(isSame);
  EXPECT_TRUE(isElsewhere);
  EXPECT_TRUE(__builtin_available(iOS 16.4, *));
  EXPECT_FALSE(__builtin_available(iOS 100, *));
}

}  // namespace

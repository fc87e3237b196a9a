#import <Preferences/PSSpecifier+Sim.h>

#include "simulator/Preferences/PreferencesTest.h"

@interface SpecifierTarget : NSObject {
 @public
  id _value;
}
@end

@implementation SpecifierTarget
- (id)valueOf:(PSSpecifier *)specifier {
  (void)specifier;
  return _value;
}
- (void)store:(id)value for:(PSSpecifier *)specifier {
  (void)specifier;
  _value = value;
}
- (NSArray *)numbers:(PSSpecifier *)specifier {
  (void)specifier;
  return @[ @1, @2 ];
}
- (NSArray *)names:(PSSpecifier *)specifier {
  (void)specifier;
  return @[ @"One", @"Two" ];
}
- (NSArray *)oneName:(PSSpecifier *)specifier {
  (void)specifier;
  return @[ @"One" ];
}
@end

namespace {

class PSSpecifierTest : public PreferencesTest {
 protected:
  PSSpecifier *withTarget(SpecifierTarget *target) {
    return [PSSpecifier preferenceSpecifierNamed:@"Row"
                                          target:target
                                             set:@selector(store:for:)
                                             get:@selector(valueOf:)
                                          detail:[TestPage class]
                                            cell:PSSwitchCell
                                            edit:Nil];
  }
};

TEST_F(PSSpecifierTest, FactoryFillsEveryField) {
  SpecifierTarget *target = [[[SpecifierTarget alloc] init] autorelease];
  PSSpecifier *specifier = withTarget(target);
  EXPECT_OBJC_EQ([specifier name], @"Row");
  EXPECT_EQ([specifier target], target);
  EXPECT_EQ(specifier->target, target);
  EXPECT_TRUE(sel_isEqual(specifier->setter, @selector(store:for:)));
  EXPECT_TRUE(sel_isEqual(specifier->getter, @selector(valueOf:)));
  EXPECT_EQ([specifier detailControllerClass], [TestPage class]);
  EXPECT_EQ([specifier cellType], PSSwitchCell);
  EXPECT_EQ([specifier editPaneClass], Nil);
  EXPECT_OBJC_EQ([specifier identifier], nil);
}

TEST_F(PSSpecifierTest, GroupFactories) {
  EXPECT_EQ([[PSSpecifier emptyGroupSpecifier] cellType], PSGroupCell);
  EXPECT_OBJC_EQ([[PSSpecifier emptyGroupSpecifier] name], nil);
  EXPECT_OBJC_EQ([[PSSpecifier groupSpecifierWithName:@"Head"] name], @"Head");
  EXPECT_OBJC_EQ([[PSSpecifier groupSpecifierWithID:@"G"] identifier], @"G");
  EXPECT_OBJC_EQ([[PSSpecifier groupSpecifierWithID:@"G" name:@"Head"] name], @"Head");
  PSSpecifier *both = [PSSpecifier groupSpecifierWithHeader:@"Head" footer:@"Foot"];
  EXPECT_OBJC_EQ([both name], @"Head");
  EXPECT_OBJC_EQ([both propertyForKey:PSFooterTextGroupKey], @"Foot");
  EXPECT_OBJC_EQ([[PSSpecifier groupSpecifierWithHeader:@"Head" footer:nil] propertyForKey:PSFooterTextGroupKey], nil);
}

TEST_F(PSSpecifierTest, PropertiesAreALiveDictionary) {
  PSSpecifier *specifier = [PSSpecifier emptyGroupSpecifier];
  [[specifier properties] setObject:@"direct" forKey:@"mine"];
  EXPECT_OBJC_EQ([specifier propertyForKey:@"mine"], @"direct");
  [specifier setProperty:@"set" forKey:@"mine"];
  EXPECT_OBJC_EQ([[specifier properties] objectForKey:@"mine"], @"set");
  [specifier setProperty:nil forKey:@"mine"];
  EXPECT_OBJC_EQ([specifier propertyForKey:@"mine"], @"set");
  [specifier removePropertyForKey:@"mine"];
  EXPECT_OBJC_EQ([specifier propertyForKey:@"mine"], nil);
}

TEST_F(PSSpecifierTest, IdentifierIsTheIDProperty) {
  PSSpecifier *specifier = [PSSpecifier emptyGroupSpecifier];
  [specifier setIdentifier:@"A"];
  EXPECT_OBJC_EQ([specifier propertyForKey:PSIDKey], @"A");
  [specifier setProperty:@"B" forKey:PSIDKey];
  EXPECT_OBJC_EQ([specifier identifier], @"B");
  [specifier setIdentifier:nil];
  EXPECT_OBJC_EQ([specifier identifier], nil);
  [specifier setProperty:@7 forKey:PSIDKey];
  EXPECT_OBJC_EQ([specifier identifier], nil);
}

TEST_F(PSSpecifierTest, RenamingLeavesTheLabelAlone) {
  PSSpecifier *specifier = [PSSpecifier groupSpecifierWithName:@"Before"];
  [specifier setProperty:@"Before" forKey:PSTitleKey];
  [specifier setName:@"After"];
  EXPECT_OBJC_EQ([specifier propertyForKey:PSTitleKey], @"Before");
}

TEST_F(PSSpecifierTest, ValuesAndTitlesAreParallel) {
  PSSpecifier *specifier = [PSSpecifier emptyGroupSpecifier];
  [specifier setValues:@[ @1, @"b" ] titles:@[ @"One", @"Bee" ] shortTitles:@[ @"1", @"B" ]];
  EXPECT_OBJC_EQ([[specifier titleDictionary] objectForKey:@1], @"One");
  EXPECT_OBJC_EQ([[specifier shortTitleDictionary] objectForKey:@"b"], @"B");
  EXPECT_OBJC_EQ([specifier values], (@[ @1, @"b" ]));
  [specifier setValues:@[ @3 ] titles:@[ @"Three" ]];
  EXPECT_OBJC_EQ([specifier shortTitleDictionary], nil);
}

TEST_F(PSSpecifierTest, ParallelArraysOfDifferentLengthRaiseAndChangeNothing) {
  PSSpecifier *specifier = [PSSpecifier emptyGroupSpecifier];
  [specifier setValues:@[ @1 ] titles:@[ @"One" ]];
  EXPECT_EQ(raisedBy([&] { [specifier setValues:@[ @1, @2 ] titles:@[ @"One" ]]; }), "NSInvalidArgumentException");
  EXPECT_OBJC_EQ([specifier values], @[ @1 ]);
}

TEST_F(PSSpecifierTest, ReadsAndWritesThroughItsTarget) {
  SpecifierTarget *target = [[[SpecifierTarget alloc] init] autorelease];
  PSSpecifier *specifier = withTarget(target);
  EXPECT_TRUE([specifier hasValidGetter]);
  EXPECT_TRUE([specifier hasValidSetter]);
  [specifier performSetterWithValue:@"new"];
  EXPECT_OBJC_EQ(target->_value, @"new");
  EXPECT_OBJC_EQ([specifier performGetter], @"new");
}

TEST_F(PSSpecifierTest, WithoutATargetThatAnswersNothingHappens) {
  PSSpecifier *specifier = withTarget(nil);
  EXPECT_FALSE([specifier hasValidGetter]);
  EXPECT_OBJC_EQ([specifier performGetter], nil);
  [specifier performSetterWithValue:@1];
  [specifier setTarget:@"a string"];
  EXPECT_FALSE([specifier hasValidSetter]);
  [specifier performSetterWithValue:@1];
  EXPECT_OBJC_EQ([specifier performGetter], nil);
}

TEST_F(PSSpecifierTest, DataSourcesFillValuesAndTitles) {
  SpecifierTarget *target = [[[SpecifierTarget alloc] init] autorelease];
  PSSpecifier *specifier = withTarget(target);
  [specifier setProperty:@"numbers:" forKey:PSValuesDataSourceKey];
  [specifier setProperty:@"names:" forKey:PSTitlesDataSourceKey];
  [specifier loadValuesAndTitlesFromDataSource];
  EXPECT_OBJC_EQ([[specifier titleDictionary] objectForKey:@2], @"Two");
}

TEST_F(PSSpecifierTest, ADataSourceThatIsNotThereIsLogged) {
  PSSpecifier *specifier = withTarget([[[SpecifierTarget alloc] init] autorelease]);
  [specifier setProperty:@"nothingOfTheKind:" forKey:PSValuesDataSourceKey];
  [specifier loadValuesAndTitlesFromDataSource];
  EXPECT_OBJC_EQ([specifier values], nil);
  EXPECT_EQ(logged("nothingOfTheKind:"), 1);
}

TEST_F(PSSpecifierTest, TargetsThatGoAreForgotten) {
  PSSpecifier *specifier = withTarget(nil);
  @autoreleasepool {
    PSListController *page = [[PSListController alloc] init];
    specifier->target = page;
    [page release];
  }
  EXPECT_EQ(specifier->target, nil);
}

TEST_F(PSSpecifierTest, DiesWithItsOwner) {
  int deaths = 0;
  @autoreleasepool {
    PSSpecifier *specifier = [PSSpecifier groupSpecifierWithName:@"Short-lived"];
    [specifier setUserInfo:[[[Lifetime alloc] initWithCounter:&deaths] autorelease]];
  }
  EXPECT_EQ(deaths, 1);
}

TEST_F(PSSpecifierTest, ConfirmationReadsOnlyStrings) {
  PSConfirmationSpecifier *specifier = [PSConfirmationSpecifier groupSpecifierWithName:nil];
  [specifier setupWithDictionary:@{@"title" : @"Delete", @"prompt" : @7, @"okTitle" : @"Yes", @"cancelTitle" : @"No"}];
  EXPECT_OBJC_EQ([specifier title], @"Delete");
  EXPECT_OBJC_EQ([specifier prompt], nil);
  EXPECT_OBJC_EQ([specifier okButton], @"Yes");
  EXPECT_OBJC_EQ([specifier cancelButton], @"No");
  EXPECT_FALSE([specifier isDestructive]);
  [specifier setProperty:@1 forKey:PSConfirmationDestructiveKey];
  EXPECT_TRUE([specifier isDestructive]);
}

}  // namespace

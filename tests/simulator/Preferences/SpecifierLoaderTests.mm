// Rows from property lists: what becomes of each key, and of lists that are not as they should be.
#include "simulator/Preferences/PreferencesTest.h"

@interface LoaderTestCell : PSTableCell
@end
@implementation LoaderTestCell
@end

namespace {

class SpecifierLoaderTest : public PreferencesTest {
 protected:
  NSArray *load(NSArray *items) {
    writeList(items);
    return load();
  }
  NSArray *load() {
    target_ = makePage();
    return [target_ loadSpecifiersFromPlistName:@"Root" target:target_];
  }
  PSSpecifier *loadOne(NSDictionary *item) {
    NSArray *specifiers = load(@[ item ]);
    return [specifiers count] == 1 ? [specifiers objectAtIndex:0] : nil;
  }
  TestPage *target_ = nil;
};

TEST_F(SpecifierLoaderTest, EveryKeyBecomesAProperty) {
  PSSpecifier *row = loadOne(@{
    @"cell" : @"PSSwitchCell",
    @"label" : @"Wifi",
    @"key" : @"wifi",
    @"defaults" : @"com.example",
    @"default" : @1,
    @"PostNotification" : @"com.example/changed",
    @"mine" : @{@"deep" : @[ @1 ]}
  });
  EXPECT_OBJC_EQ([row name], @"Wifi");
  EXPECT_EQ([row cellType], PSSwitchCell);
  EXPECT_OBJC_EQ([row propertyForKey:PSKeyNameKey], @"wifi");
  EXPECT_OBJC_EQ([row propertyForKey:PSDefaultsKey], @"com.example");
  EXPECT_OBJC_EQ([row propertyForKey:PSDefaultValueKey], @1);
  EXPECT_OBJC_EQ([row propertyForKey:PSValueChangedNotificationKey], @"com.example/changed");
  EXPECT_OBJC_EQ([row propertyForKey:@"mine"], @{@"deep" : @[ @1 ]});
  EXPECT_EQ([row target], target_);
  EXPECT_EQ(logged("[Preferences]"), 0);
}

TEST_F(SpecifierLoaderTest, EveryCellTypeIsKnown) {
  NSArray *names = @[
    @"PSGroupCell", @"PSLinkCell", @"PSLinkListCell", @"PSListItemCell", @"PSTitleValueCell", @"PSSliderCell",
    @"PSSwitchCell", @"PSStaticTextCell", @"PSEditTextCell", @"PSSegmentCell", @"PSGiantIconCell", @"PSGiantCell",
    @"PSSecureEditTextCell", @"PSButtonCell", @"PSEditTextViewCell", @"PSSpinnerCell"
  ];
  NSMutableArray *items = [NSMutableArray array];
  for (NSString *name in names) [items addObject:@{@"cell" : name}];
  NSArray *specifiers = load(items);
  ASSERT_EQ([specifiers count], [names count]);
  for (NSUInteger index = 0; index < [names count]; ++index) {
    EXPECT_EQ([(PSSpecifier *)[specifiers objectAtIndex:index] cellType], static_cast<PSCellType>(index));
    EXPECT_OBJC_EQ([PSTableCell stringFromCellType:static_cast<PSCellType>(index)], [names objectAtIndex:index]);
  }
  EXPECT_OBJC_EQ([PSTableCell stringFromCellType:static_cast<PSCellType>(-1)], nil);
  EXPECT_OBJC_EQ([PSTableCell stringFromCellType:static_cast<PSCellType>(16)], nil);
}

TEST_F(SpecifierLoaderTest, AnUnknownCellTypeIsAPlainRowWithALogLine) {
  PSSpecifier *row = loadOne(@{@"cell" : @"PSToggleSwitchSpecifier", @"label" : @"Odd"});
  EXPECT_EQ([row cellType], -1);
  EXPECT_OBJC_EQ([row name], @"Odd");
  EXPECT_EQ(logged("PSToggleSwitchSpecifier"), 1);
  EXPECT_EQ([PSTableCell cellClassForSpecifier:row], [PSTableCell class]);
}

TEST_F(SpecifierLoaderTest, SelectorsAndDefaults) {
  PSSpecifier *named = loadOne(@{
    @"cell" : @"PSSwitchCell",
    @"set" : @"store:for:",
    @"get" : @"valueOf:",
    @"action" : @"act",
    @"buttonAction" : @"press:",
    @"loadAction" : @"load",
    @"confirmationAction" : @"sure",
    @"cancel" : @"never"
  });
  EXPECT_TRUE(sel_isEqual(named->setter, NSSelectorFromString(@"store:for:")));
  EXPECT_TRUE(sel_isEqual(named->getter, NSSelectorFromString(@"valueOf:")));
  EXPECT_TRUE(sel_isEqual(named->action, NSSelectorFromString(@"act")));
  EXPECT_TRUE(sel_isEqual([named buttonAction], NSSelectorFromString(@"press:")));
  EXPECT_TRUE(sel_isEqual([named controllerLoadAction], NSSelectorFromString(@"load")));
  EXPECT_TRUE(sel_isEqual([named confirmationAction], NSSelectorFromString(@"sure")));
  EXPECT_TRUE(sel_isEqual([named confirmationCancelAction], NSSelectorFromString(@"never")));

  PSSpecifier *plain = loadOne(@{@"cell" : @"PSSwitchCell", @"action" : @7});
  EXPECT_TRUE(sel_isEqual(plain->setter, @selector(setPreferenceValue:specifier:)));
  EXPECT_TRUE(sel_isEqual(plain->getter, @selector(readPreferenceValue:)));
  EXPECT_TRUE(plain->action == NULL);
}

TEST_F(SpecifierLoaderTest, IdentifierIsTheLabelThenTheKey) {
  NSArray *rows = load(@[
    @{@"cell" : @"PSLinkCell", @"id" : @"given", @"label" : @"Label", @"key" : @"key"},
    @{@"cell" : @"PSLinkCell", @"label" : @"Label", @"key" : @"key"}, @{@"cell" : @"PSLinkCell", @"key" : @"key"},
    @{@"cell" : @"PSGroupCell"}
  ]);
  EXPECT_OBJC_EQ([[rows objectAtIndex:0] identifier], @"given");
  EXPECT_OBJC_EQ([[rows objectAtIndex:1] identifier], @"Label");
  EXPECT_OBJC_EQ([[rows objectAtIndex:2] identifier], @"key");
  EXPECT_OBJC_EQ([[rows objectAtIndex:3] identifier], nil);
}

TEST_F(SpecifierLoaderTest, EqualIdentifiersGetSuffixes) {
  NSDictionary *item = @{@"cell" : @"PSLinkCell", @"label" : @"Same"};
  NSDictionary *taken = @{@"cell" : @"PSLinkCell", @"label" : @"Same.0"};
  NSArray *rows = load(@[ item, taken, item, item ]);
  EXPECT_OBJC_EQ([rows valueForKey:@"identifier"], (@[ @"Same", @"Same.0", @"Same.1", @"Same.2" ]));
}

TEST_F(SpecifierLoaderTest, TextsAreLookedUpInTheTableOfTheList) {
  writeList(@[
    @{@"cell" : @"PSGroupCell", @"label" : @"HEAD", @"footerText" : @"FOOT"}, @{
      @"cell" : @"PSLinkListCell",
      @"label" : @"ROW",
      @"placeholder" : @"HINT",
      @"validValues" : @[ @1, @2 ],
      @"validTitles" : @[ @"ONE", @"TWO" ],
      @"shortTitles" : @[ @"ONE", @"plain" ],
      @"confirmation" : @{@"title" : @"ONE", @"prompt" : @"TWO"}
    },
    @{@"cell" : @"PSLinkCell", @"label" : @"ROW", @"strings" : @"Other"}
  ]);
  write(@"/var/jb/Library/PreferenceBundles/Test.bundle/en.lproj/Root.strings",
        "\"HEAD\" = \"Header\"; \"FOOT\" = \"Footer\"; \"ROW\" = \"Row\"; \"HINT\" = \"Hint\"; \"ONE\" = \"One\"; "
        "\"TWO\" = \"Two\";");
  write(@"/var/jb/Library/PreferenceBundles/Test.bundle/en.lproj/Other.strings", "\"ROW\" = \"Another row\";");
  NSArray *rows = load();
  ASSERT_EQ([rows count], 3u);
  EXPECT_OBJC_EQ([[rows objectAtIndex:0] name], @"Header");
  EXPECT_OBJC_EQ([[rows objectAtIndex:0] propertyForKey:PSFooterTextGroupKey], @"Footer");
  PSConfirmationSpecifier *row = [rows objectAtIndex:1];
  EXPECT_OBJC_EQ([row name], @"Row");
  EXPECT_OBJC_EQ([row identifier], @"ROW");
  EXPECT_OBJC_EQ([row propertyForKey:PSPlaceholderKey], @"Hint");
  EXPECT_OBJC_EQ([[row titleDictionary] objectForKey:@2], @"Two");
  EXPECT_OBJC_EQ([[row shortTitleDictionary] objectForKey:@2], @"plain");
  EXPECT_OBJC_EQ([row title], @"One");
  EXPECT_OBJC_EQ([row prompt], @"Two");
  EXPECT_OBJC_EQ([[rows objectAtIndex:2] name], @"Another row");
}

TEST_F(SpecifierLoaderTest, TitleAndIdentifierOfTheListAreThePages) {
  writeFile(@"Root.plist", @{@"title" : @"My Page", @"id" : @"page-id", @"items" : @[]});
  TestPage *page = makePage();
  [page setTitle:@"set before"];
  [page loadSpecifiersFromPlistName:@"Root" target:page];
  EXPECT_OBJC_EQ([page title], @"My Page");
  EXPECT_OBJC_EQ([page specifierID], @"page-id");
}

TEST_F(SpecifierLoaderTest, AMissingOrMalformedListGivesAnEmptyMutableArrayAndALogLine) {
  NSArray *missing = load();
  EXPECT_EQ([missing count], 0u);
  EXPECT_TRUE([missing isKindOfClass:[NSMutableArray class]]);
  EXPECT_EQ(logged("Root.plist"), 1);

  NSString *file = @"/var/jb/Library/PreferenceBundles/Test.bundle/Root.plist";
  for (const char *content : {"", "garbage <", "<plist><array/></plist>", "bplist00\x01", "<plist><dict><key>items"}) {
    log.clear();
    write(file, content);
    EXPECT_EQ([load() count], 0u) << content;
    EXPECT_EQ(logged("Root.plist"), 1) << content;
  }
}

TEST_F(SpecifierLoaderTest, ItemsThatAreNoArrayGiveNoRows) {
  writeFile(@"Root.plist", @{@"items" : @"none"});
  EXPECT_EQ([load() count], 0u);
  EXPECT_EQ(logged("\"items\" is no array"), 1);
}

TEST_F(SpecifierLoaderTest, MalformedItemsAreLeftOutAndTheOthersStay) {
  NSArray *rows = load(@[
    @"no dictionary", @7,
    @{@"cell" : @"PSLinkCell",
      @"label" : @5},
    @{@"cell" : @"PSLinkListCell",
      @"label" : @"Short",
      @"validValues" : @[ @1, @2 ],
      @"validTitles" : @[ @"One" ]},
    @{@"cell" : @"PSLinkListCell",
      @"label" : @"Mixed",
      @"validValues" : @[ @1 ],
      @"validTitles" : @[ @1 ]},
    @{@"cell" : @"PSLinkListCell", @"label" : @"Text", @"validValues" : @"1"},
    @{
      @"cell" : @"PSLinkListCell",
      @"label" : @"Shorts",
      @"validValues" : @[ @1 ],
      @"validTitles" : @[ @"1" ],
      @"shortTitles" : @[]
    },
    @{@"cell" : @"PSLinkCell", @"label" : @"Good"}
  ]);
  ASSERT_EQ([rows count], 1u);
  EXPECT_OBJC_EQ([[rows objectAtIndex:0] name], @"Good");
  EXPECT_EQ(logged("is left out"), 7);
  EXPECT_EQ(logged("\"Short\" is left out"), 1);
}

TEST_F(SpecifierLoaderTest, ClassesAreResolvedByName) {
  PSSpecifier *row = loadOne(@{
    @"cell" : @"PSLinkCell",
    @"label" : @"Row",
    @"detail" : @"PSListItemsController",
    @"cellClass" : @"LoaderTestCell"
  });
  EXPECT_EQ([row detailControllerClass], [PSListItemsController class]);
  EXPECT_EQ([row propertyForKey:PSCellClassKey], [LoaderTestCell class]);
  EXPECT_EQ([PSTableCell cellClassForSpecifier:row], [LoaderTestCell class]);
  EXPECT_EQ(logged("[Preferences]"), 0);
}

TEST_F(SpecifierLoaderTest, ClassesThatAreNotThereAreLoggedAndTheDefaultIsTaken) {
  for (id name in (@[ @"NoSuchClass", @"NSString", @7 ])) {
    log.clear();
    PSSpecifier *row = loadOne(@{@"cell" : @"PSSwitchCell", @"label" : @"Row", @"detail" : name, @"cellClass" : name});
    EXPECT_EQ([row detailControllerClass], Nil);
    EXPECT_OBJC_EQ([row propertyForKey:PSCellClassKey], nil);
    EXPECT_EQ([PSTableCell cellClassForSpecifier:row], [PSSwitchTableCell class]);
    EXPECT_EQ(logged("\"detail\" names no class"), 1);
    EXPECT_EQ(logged("\"cellClass\" names no class"), 1);
  }
}

TEST_F(SpecifierLoaderTest, KeyboardOfTextRows) {
  const auto keyboard = [&](NSDictionary *keys) {
    NSMutableDictionary *item = [NSMutableDictionary dictionaryWithDictionary:keys];
    [item setObject:@"PSEditTextCell" forKey:@"cell"];
    return loadOne(item)->keyboardType;
  };
  EXPECT_EQ(keyboard(@{}), UIKeyboardTypeDefault);
  EXPECT_EQ(keyboard(@{@"keyboard" : @"numbers"}), UIKeyboardTypeNumberPad);
  EXPECT_EQ(keyboard(@{@"keyboard" : @"phone"}), UIKeyboardTypePhonePad);
  EXPECT_EQ(keyboard(@{@"isNumeric" : @1}), UIKeyboardTypeNumberPad);
  EXPECT_EQ(keyboard(@{@"isDecimalPad" : @1}), UIKeyboardTypeDecimalPad);
  EXPECT_EQ(keyboard(@{@"isURL" : @1}), UIKeyboardTypeURL);
  EXPECT_EQ(keyboard(@{@"isEmail" : @1}), UIKeyboardTypeEmailAddress);
  EXPECT_EQ(keyboard(@{@"isIP" : @1}), UIKeyboardTypeNumbersAndPunctuation);
  PSSpecifier *row = loadOne(@{@"cell" : @"PSEditTextCell", @"autoCaps" : @"words", @"noAutoCorrect" : @1});
  EXPECT_EQ(row->autoCapsType, UITextAutocapitalizationTypeWords);
  EXPECT_EQ(row->autoCorrectionType, UITextAutocorrectionTypeNo);
}

TEST_F(SpecifierLoaderTest, AConfirmationMakesAConfirmationSpecifier) {
  PSSpecifier *row = loadOne(@{
    @"cell" : @"PSButtonCell",
    @"label" : @"Erase",
    @"isDestructive" : @1,
    @"confirmation" : @{@"title" : @"Erase", @"prompt" : @"Sure?", @"okTitle" : @"OK", @"cancelTitle" : @"No"}
  });
  ASSERT_TRUE([row isKindOfClass:[PSConfirmationSpecifier class]]);
  EXPECT_OBJC_EQ([(PSConfirmationSpecifier *)row prompt], @"Sure?");
  EXPECT_TRUE([(PSConfirmationSpecifier *)row isDestructive]);
}

TEST_F(SpecifierLoaderTest, AttributesOfTheListReachEveryItem) {
  writeFile(
      @"Root.plist", @{
        @"specifierAttributes" : @{@"defaults" : @"shared", @"list" : @[ @"b" ], @"map" : @{@"y" : @2}},
        @"items" : @[
          @{@"cell" : @"PSLinkCell", @"label" : @"A"},
          @{@"cell" : @"PSLinkCell",
            @"label" : @"B",
            @"defaults" : @"own",
            @"list" : @[ @"a" ],
            @"map" : @{@"x" : @1}}
        ]
      });
  NSArray *rows = load();
  EXPECT_OBJC_EQ([[rows objectAtIndex:0] propertyForKey:@"defaults"], @"shared");
  EXPECT_OBJC_EQ([[rows objectAtIndex:1] propertyForKey:@"defaults"], @"own");
  EXPECT_OBJC_EQ([[rows objectAtIndex:1] propertyForKey:@"list"], (@[ @"a", @"b" ]));
  EXPECT_OBJC_EQ([[rows objectAtIndex:1] propertyForKey:@"map"], (@{@"x" : @1, @"y" : @2}));
}

TEST_F(SpecifierLoaderTest, TheIconIsAnImageOfTheBundle) {
  UIGraphicsBeginImageContextWithOptions(CGSizeMake(29, 29), NO, 3);
  NSData *png = UIImagePNGRepresentation(UIGraphicsGetImageFromCurrentImageContext());
  UIGraphicsEndImageContext();
  write(@"/var/jb/Library/PreferenceBundles/Test.bundle/icon@3x.png", png);
  for (NSString *name in @[ @"icon", @"icon.png" ]) {
    UIImage *icon = [loadOne(@{@"cell" : @"PSLinkCell", @"icon" : name}) propertyForKey:PSIconImageKey];
    ASSERT_TRUE([icon isKindOfClass:[UIImage class]]) << [name UTF8String];
    EXPECT_EQ([icon size].width, 29);
  }
  EXPECT_OBJC_EQ([loadOne(@{@"cell" : @"PSLinkCell", @"icon" : @"absent"}) propertyForKey:PSIconImageKey], nil);
  EXPECT_EQ(logged("no image \"absent\""), 1);
}

TEST_F(SpecifierLoaderTest, RequiredCapabilitiesAreNotJudged) {
  EXPECT_TRUE(loadOne(@{@"cell" : @"PSLinkCell", @"requiredCapabilities" : @[ @"telephony" ]}) != nil);
  EXPECT_EQ(logged("required capabilities are not judged"), 1);
}

TEST_F(SpecifierLoaderTest, AnItemThatNamesABundleOpensItOnTap) {
  PSSpecifier *row = loadOne(
      @{@"cell" : @"PSLinkCell",
        @"label" : @"Other",
        @"bundle" : @"Test",
        @"isController" : @1});
  EXPECT_TRUE(sel_isEqual(row->action, @selector(lazyLoadBundle:)));
  EXPECT_OBJC_EQ([row propertyForKey:PSLazilyLoadedBundleKey], bundlePath());

  EXPECT_OBJC_EQ(loadOne(@{@"cell" : @"PSLinkCell", @"bundle" : @"Absent", @"isController" : @1}), nil);
  EXPECT_EQ(logged("no bundle \"Absent\""), 1);
  EXPECT_OBJC_EQ(loadOne(@{@"cell" : @"PSLinkCell", @"bundle" : @"Test"}), nil);
  EXPECT_EQ(logged("not supported"), 1);
}

}  // namespace

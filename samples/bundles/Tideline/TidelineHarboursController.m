#import "TidelineHarboursController.h"
#import <Preferences/PSSpecifier.h>
#import "TidelineSettings.h"

static const CGFloat kHeaderHeight = 150;
/// How many harbours are listed at once, and how near the end, in points, the next come.
static const NSUInteger kStep = 24;
static const CGFloat kNearEnd = 200;

static NSArray<NSString *> *harbours(void) {
  return @[
    @"Aberdeen", @"Bergen", @"Brest", @"Calais", @"Cherbourg", @"Dover", @"Dunkirk", @"Esbjerg", @"Falmouth",
    @"Galway", @"Gothenburg", @"Harwich", @"Helder", @"Immingham", @"Jersey", @"Kiel", @"Kirkwall", @"Leith",
    @"Lerwick", @"Lisbon", @"Liverpool", @"Lowestoft", @"Malin Head", @"Milford Haven", @"Narvik", @"Newlyn", @"Oban",
    @"Ostend", @"Peterhead", @"Plymouth", @"Portree", @"Portsmouth", @"Quimper", @"Ramsgate", @"Reykjavik",
    @"Rosslare", @"Rotterdam", @"Saint-Malo", @"Scarborough", @"Sheerness", @"Southampton", @"Stavanger",
    @"Stornoway", @"Swansea", @"Tobermory", @"Ullapool", @"Vigo", @"Vlissingen", @"Weymouth", @"Whitby", @"Wick",
  ];
}

@implementation TidelineHarboursController {
  UIView *_header;
  UILabel *_name;
  UILabel *_title;
  NSUInteger _count;
}

- (NSArray *)specifiers {
  if (!_specifiers) {
    PSSpecifier *group = [PSSpecifier emptyGroupSpecifier];
    _specifiers = [NSMutableArray arrayWithObject:group];
    _count = 0;
    [_specifiers addObjectsFromArray:[self nextHarbours]];
  }
  return _specifiers;
}

- (NSArray<PSSpecifier *> *)nextHarbours {
  NSArray *all = harbours();
  NSMutableArray *next = [NSMutableArray array];
  for (NSUInteger end = MIN(_count + kStep, all.count); _count < end; ++_count) {
    PSSpecifier *each = [PSSpecifier preferenceSpecifierNamed:all[_count]
                                                       target:self
                                                          set:@selector(setShown:specifier:)
                                                          get:@selector(readShown:)
                                                       detail:Nil
                                                         cell:PSSwitchCell
                                                         edit:Nil];
    each.identifier = all[_count];
    [next addObject:each];
  }
  return next;
}

- (id)readShown:(PSSpecifier *)specifier {
  NSArray *shown = [TidelineSettings.shared objectForKey:@"harbours"];
  return @([shown containsObject:specifier.identifier]);
}

- (void)setShown:(id)value specifier:(PSSpecifier *)specifier {
  NSMutableArray *shown = [[TidelineSettings.shared objectForKey:@"harbours"] mutableCopy] ?: [NSMutableArray array];
  [shown removeObject:specifier.identifier];
  if ([value boolValue]) [shown addObject:specifier.identifier];
  [TidelineSettings.shared setObject:shown forKey:@"harbours"];
}

- (void)viewDidLoad {
  [super viewDidLoad];
  _title = [UILabel new];
  _title.text = @"Harbours";
  _title.font = [UIFont systemFontOfSize:17 weight:UIFontWeightSemibold];
  [_title sizeToFit];
  _title.alpha = 0;
  self.navigationItem.titleView = _title;

  _header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, self.table.bounds.size.width, kHeaderHeight)];
  _name = [[UILabel alloc] initWithFrame:CGRectInset(_header.bounds, 20, 20)];
  _name.autoresizingMask = UIViewAutoresizingFlexibleWidth;
  _name.text = @"Harbours";
  _name.textAlignment = NSTextAlignmentCenter;
  _name.font = [UIFont systemFontOfSize:40 weight:UIFontWeightBold];
  [_header addSubview:_name];
  self.table.tableHeaderView = _header;
}

- (void)scrollViewDidScroll:(UIScrollView *)scrollView {
  CGFloat scrolled = scrollView.contentOffset.y + scrollView.adjustedContentInset.top;
  // The name leaves more slowly than the rows below it, and the title comes as it goes.
  CGFloat gone = MIN(MAX(scrolled / (kHeaderHeight - 40), 0), 1);
  _name.transform = CGAffineTransformMakeTranslation(0, MAX(scrolled, 0) / 3);
  _name.alpha = 1 - gone;
  _title.alpha = MAX(2 * gone - 1, 0);

  CGFloat left = scrollView.contentSize.height - scrollView.contentOffset.y - scrollView.bounds.size.height;
  if (scrolled > 0 && left < kNearEnd && _count < harbours().count) [self addSpecifiersFromArray:[self nextHarbours]];
}

@end

#import "TableSource.h"

#import "RecordingController.h"

@implementation TableSource

- (instancetype)initWithCounts:(std::vector<int>)counts {
  if (!(self = [super init])) return nil;

  sections = objcxx::adopt([[NSMutableArray alloc] init]);
  char letter = 'a';
  for (const int count : counts) {
    NSMutableArray *rows = [NSMutableArray array];
    for (int row = 0; row < count; ++row) [rows addObject:[NSString stringWithFormat:@"%c%d", letter, row]];
    [sections.get() addObject:rows];
    ++letter;
  }
  return self;
}

- (NSMutableArray *)section:(NSInteger)section {
  return [sections.get() objectAtIndex:section];
}

- (void)note:(const char *)event at:(NSIndexPath *)path {
  events.push_back(std::string(event) + " " + std::to_string([path section]) + "." + std::to_string([path row]));
}

- (NSInteger)numberOfSectionsInTableView:(UITableView *)tableView {
  return [sections.get() count];
}

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  return [[self section:section] count];
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  UITableViewCell *cell = [tableView dequeueReusableCellWithIdentifier:@"Cell"];
  if (!cell) {
    ++cellsMade;
    cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:@"Cell"] autorelease];
  }
  ++cellsGiven;
  [[cell textLabel] setText:[[self section:[indexPath section]] objectAtIndex:[indexPath row]]];
  return cell;
}

@end

objcxx::Retained<UITableView> testing_support::tableShowing(TableSource *source, CGFloat height,
                                                            UITableViewStyle style) {
  auto table = objcxx::adopt([[UITableView alloc] initWithFrame:CGRectMake(0, 0, 320, height) style:style]);
  [table.get() setRowHeight:44];
  [table.get() setDataSource:source];
  [table.get() setDelegate:source];
  [table.get() sim_prepareForDescription];
  return table;
}

std::string testing_support::describedRows(UITableView *table) {
  [table sim_prepareForDescription];
  __block std::string text;
  for (NSInteger section = 0; section < [table numberOfSections]; ++section) {
    if (section > 0) text += " |";
    [table sim_describeRows:NSMakeRange(0, NSIntegerMax)
                  inSection:section
                 usingBlock:^(NSIndexPath *, UITableViewCell *cell) {
                   if (!text.empty()) text += " ";
                   text += [[[cell textLabel] text] UTF8String];
                 }];
  }
  return text;
}

std::string testing_support::liveRows(UITableView *table) {
  std::string text;
  for (UITableViewCell *cell in [table visibleCells]) {
    text += (text.empty() ? "" : " ") + std::string([[[cell textLabel] text] UTF8String]);
  }
  return text;
}

std::string testing_support::takeEvents(TableSource *source) { return takeEvents(source->events); }

#include "simulator/Settings/SessionTest.h"

#import <Foundation/SIMLog.h>
#import <dispatch/MainQueue+Sim.h>

@implementation ListPage

- (instancetype)initWithTitle:(NSString *)title sections:(NSArray *)contents {
  if (!(self = [super initWithStyle:UITableViewStyleGrouped])) return nil;

  [self setTitle:title];
  sections = objcxx::adopt([[NSMutableArray alloc] init]);
  for (NSArray *rows in contents) [sections.get() addObject:[NSMutableArray arrayWithArray:rows]];
  calls = objcxx::adopt([[NSMutableArray alloc] init]);
  selectable = YES;
  return self;
}

- (void)note:(NSString *)call at:(NSIndexPath *)path {
  [calls.get() addObject:[NSString stringWithFormat:@"%@ %ld.%ld", call, static_cast<long>([path section]),
                                                    static_cast<long>([path row])]];
}

- (NSInteger)numberOfSectionsInTableView:(UITableView *)tableView {
  return static_cast<NSInteger>([sections.get() count]);
}

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  return static_cast<NSInteger>([[sections.get() objectAtIndex:static_cast<NSUInteger>(section)] count]);
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)path {
  if (raises) [NSException raise:raises format:@"as the test wants"];
  UITableViewCell *cell = [tableView dequeueReusableCellWithIdentifier:@"row"];
  if (!cell) {
    cell = [[[UITableViewCell alloc] initWithStyle:UITableViewCellStyleSubtitle reuseIdentifier:@"row"] autorelease];
  }
  NSArray *rows = [sections.get() objectAtIndex:static_cast<NSUInteger>([path section])];
  [[cell textLabel] setText:[rows objectAtIndex:static_cast<NSUInteger>([path row])]];
  return cell;
}

- (NSIndexPath *)tableView:(UITableView *)tableView willSelectRowAtIndexPath:(NSIndexPath *)path {
  return selectable ? path : nil;
}

- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)path {
  [self note:@"tap" at:path];
  [tableView deselectRowAtIndexPath:path animated:NO];
  if (tapRaises) [NSException raise:tapRaises format:@"as the test wants"];
}

- (BOOL)tableView:(UITableView *)tableView canMoveRowAtIndexPath:(NSIndexPath *)path {
  return YES;
}

- (void)tableView:(UITableView *)tableView moveRowAtIndexPath:(NSIndexPath *)from toIndexPath:(NSIndexPath *)to {
  [self note:@"move" at:from];
  NSMutableArray *source = [sections.get() objectAtIndex:static_cast<NSUInteger>([from section])];
  NSMutableArray *target = [sections.get() objectAtIndex:static_cast<NSUInteger>([to section])];
  id row = [[[source objectAtIndex:static_cast<NSUInteger>([from row])] retain] autorelease];
  [source removeObjectAtIndex:static_cast<NSUInteger>([from row])];
  [target insertObject:row atIndex:static_cast<NSUInteger>([to row])];
}

- (void)tableView:(UITableView *)tableView
    commitEditingStyle:(UITableViewCellEditingStyle)style
     forRowAtIndexPath:(NSIndexPath *)path {
  [self note:@"delete" at:path];
  [[sections.get() objectAtIndex:static_cast<NSUInteger>([path section])]
      removeObjectAtIndex:static_cast<NSUInteger>([path row])];
  [tableView deleteRowsAtIndexPaths:@[ path ] withRowAnimation:UITableViewRowAnimationNone];
}

- (UIView *)tableView:(UITableView *)tableView viewForHeaderInSection:(NSInteger)section {
  return section == 0 ? sectionView.get() : nil;
}

- (UIView *)tableView:(UITableView *)tableView viewForFooterInSection:(NSInteger)section {
  return section == 0 ? sectionView.get() : nil;
}

- (void)changed:(id)sender {
  [calls.get() addObject:@"changed"];
}

- (void)pushNext {
  ListPage *next = [[[ListPage alloc] initWithTitle:@"Next" sections:@[ @[ @"deep" ] ]] autorelease];
  [[self navigationController] pushViewController:next animated:YES];
}

@end

@implementation ControlPage

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [super tableView:tableView cellForRowAtIndexPath:path];
  [cell setAccessoryView:control.get()];
  return cell;
}

@end

@implementation PlainPage

- (void)viewDidLoad {
  [super viewDidLoad];
  UILabel *label = [[[UILabel alloc] initWithFrame:CGRectMake(10, 20, 100, 30)] autorelease];
  [label setText:@"plain"];
  [[self view] addSubview:label];
}

@end

namespace testing_support {

void SessionTest::SetUp() {
  DeviceTest::SetUp();
  SIMSetLogHandler(
      [](NSString *line, void *context) {
        static_cast<std::vector<std::string> *>(context)->push_back([line UTF8String] ?: "");
      },
      &log);
}

void SessionTest::TearDown() {
  session_.reset();
  SIMDrainMainQueue();
  drainPool();
  SIMSetLogHandler(nullptr, nullptr);
  DeviceTest::TearDown();
}

void SessionTest::start(UIViewController *root, std::uint64_t firstRevision) {
  session_ = std::make_unique<sim::Session>(root, firstRevision);
}

void SessionTest::startStage(sim::Stage &stage) { session_ = std::make_unique<sim::Session>(stage.page(), 1, &stage); }

ListPage *SessionTest::startList(NSArray *sections) {
  ListPage *list = [[[ListPage alloc] initWithTitle:@"List" sections:sections] autorelease];
  start(list);
  return list;
}

ControlPage *SessionTest::startControl(UIView *control) {
  ControlPage *list = [[[ControlPage alloc] initWithTitle:@"Control" sections:@[ @[ @"row" ] ]] autorelease];
  list->control = objcxx::share(control);
  if ([control isKindOfClass:[UIControl class]]) {
    [(UIControl *)control addTarget:list action:@selector(changed:) forControlEvents:UIControlEventValueChanged];
  }
  start(list);
  return list;
}

Json SessionTest::controlOf(UIView *control) {
  startControl(control);
  return row(0, 0)["control"];
}

Json SessionTest::describedView(UIView *view) {
  ListPage *list = startList(@[ @[ @"Row" ] ]);
  [[list tableView] setTableHeaderView:view];
  session().refresh();
  return page()["headerView"];
}

void SessionTest::present(UIViewController *page, UIViewController *controller) {
  [page presentViewController:controller animated:YES completion:nil];
  session().refresh();
}

Json SessionTest::screen() const {
  const Json parsed = Json::parse(session_->screen(), nullptr, false);
  EXPECT_TRUE(parsed.is_object()) << session_->screen();
  return parsed;
}

std::string SessionTest::rowId(std::size_t section, std::size_t number) const {
  return row(section, number).value("id", "");
}

std::string SessionTest::labels() const {
  std::string result;
  const Json sections = page()["sections"];
  for (std::size_t section = 0; section < sections.size(); ++section) {
    if (section > 0) result += "|";
    for (const Json &row : sections[section]["rows"]) result += " " + row.value("label", "") + " ";
  }
  return result;
}

std::string SessionTest::titles() const {
  std::string result;
  const Json path = screen()["path"];
  for (const Json &title : path) result += "/" + title.get<std::string>();
  return result;
}

Outcome SessionTest::perform(const sim::wire::Call &call) {
  const sim::wire::Reply answer = session_->perform(call);
  EXPECT_EQ(answer.revision, session_->revision());
  reply =
      answer.outcome == Outcome::done ? Json::parse(answer.content, nullptr, false) : Json{{"error", answer.content}};
  EXPECT_TRUE(reply.is_object()) << answer.content;
  return answer.outcome;
}

void SessionTest::expectRefused(const Json &event, Outcome outcome) {
  const std::string before = session_->screen();
  EXPECT_EQ(send(event), outcome) << event.dump();
  EXPECT_FALSE(reply.value("error", "").empty()) << event.dump();
  EXPECT_EQ(session_->screen(), before) << event.dump();
}

UIImage *SessionTest::picture(CGFloat side) {
  UIGraphicsBeginImageContext(CGSizeMake(side, side));
  UIImage *image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return image;
}

objcxx::Retained<UIView> SessionTest::view(CGFloat width, CGFloat height) {
  return objcxx::adopt([[UIView alloc] initWithFrame:CGRectMake(0, 0, width, height)]);
}

std::string SessionTest::sizeOf(NSData *png) {
  UIImage *image = [UIImage imageWithData:png];
  if (!image) return "";
  return std::to_string(CGImageGetWidth([image CGImage])) + "x" + std::to_string(CGImageGetHeight([image CGImage]));
}

std::string SessionTest::identifierOf(const Json &image) {
  const std::string url = image.is_object() ? image.value("url", "") : "";
  return url.substr(url.rfind('/') + 1);
}

std::string SessionTest::calls(ListPage *page) {
  return [[page->calls.get() componentsJoinedByString:@","] UTF8String];
}

bool SessionTest::logged(const std::string &part) const {
  for (const std::string &line : log) {
    if (line.find(part) != std::string::npos) return true;
  }
  return false;
}

}  // namespace testing_support

#import "RecordingController.h"

@implementation RecordingController

- (instancetype)initWithName:(const char *)name events:(std::vector<std::string> *)events {
  if (!(self = [super init])) return nil;

  _name = name;
  _events = events;
  return self;
}

- (void)dealloc {
  if (_deaths) ++*_deaths;
  [super dealloc];
}

- (void)countDeathIn:(int *)deaths {
  _deaths = deaths;
}

- (void)when:(SEL)selector send:(SEL)action to:(id)target {
  _hookAt = selector;
  _hookAction = action;
  _hookTarget = target;
}

- (void)presentOnLayout:(UIViewController *)controller {
  _presentedOnLayout = controller;
}

- (void)viewDidLayoutSubviews {
  [super viewDidLayoutSubviews];
  UIViewController *presented = _presentedOnLayout;
  _presentedOnLayout = nil;
  if (presented) [self presentViewController:presented animated:YES completion:nil];
}

- (void)note:(const char *)event animated:(BOOL)animated {
  _events->push_back(_name + " " + event + (animated ? " animated" : ""));
}

- (void)reach:(SEL)selector {
  if (!_hookAt || !sel_isEqual(selector, _hookAt)) return;
  _hookAt = nullptr;
  [_hookTarget performSelector:_hookAction];
}

- (void)viewDidLoad {
  [super viewDidLoad];
  [self note:"loads" animated:NO];
  [self reach:_cmd];
}

- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  [self note:"willAppear" animated:animated];
  [self reach:_cmd];
}

- (void)viewDidAppear:(BOOL)animated {
  [super viewDidAppear:animated];
  [self note:"didAppear" animated:animated];
  [self reach:_cmd];
}

- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  [self note:"willDisappear" animated:animated];
  [self reach:_cmd];
}

- (void)viewDidDisappear:(BOOL)animated {
  [super viewDidDisappear:animated];
  [self note:"didDisappear" animated:animated];
  [self reach:_cmd];
}

@end

std::string testing_support::takeEvents(std::vector<std::string> &events) {
  std::string text;
  for (const std::string &event : events) text += (text.empty() ? "" : ", ") + event;
  events.clear();
  return text;
}

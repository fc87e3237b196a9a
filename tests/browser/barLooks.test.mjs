// What makers' pages ask of the navigation bar, from their code to the colours on the screen.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage, settled } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const rows = Array.from({ length: 30 }, (_, at) => `[PSSpecifier preferenceSpecifierNamed:@"Row ${at}" target:self set:NULL
  get:NULL detail:Nil cell:PSTitleValueCell edit:Nil]`).join(', ');

/** Opens the page "Kite" whose implementation has `body`. */
async function openKite(t, body, options = {}) {
  const simulator = await startSimulator(t);
  const source = kitePage(rows, { body });
  await runScript('bundle', await makerFolder(t, settingsBundle({ 'KiteListController.m': source })), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url, { colorScheme: 'light', ...options });
  await open(page, 'Kite');
  await settled(page);
  const shown = page.locator('.page:not([inert])');
  return { simulator, page, shown, bar: shown.locator('.navigation-bar') };
}

const style = (locator, name) => locator.evaluate((element, key) => getComputedStyle(element)[key], name);
const ground = (bar) => bar.locator('.bar-ground[data-shown="true"]');

async function scroll(page, shown, top) {
  await shown.locator('.scroller').evaluate((element, to) => element.scrollTo(0, to), top);
  await settled(page);
}

test('A bar has its maker\'s colours while his page shows, and the system\'s after it', async (t) => {
  const { page, bar } = await openKite(t, `
- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  UINavigationBar *bar = self.navigationController.navigationBar;
  bar.barTintColor = [UIColor colorWithRed:0.6 green:0.8 blue:1 alpha:1];
  bar.tintColor = [UIColor blueColor];
  bar.titleTextAttributes = @{NSForegroundColorAttributeName : [UIColor colorWithRed:0.4 green:0 blue:0 alpha:1],
                              NSFontAttributeName : [UIFont systemFontOfSize:20]};
  bar.shadowImage = [UIImage new];
  self.navigationController.navigationController.navigationBar.barTintColor = [UIColor redColor];
  [self.navigationController.navigationController.navigationBar setShadowImage:[UIImage new]];
}
- (void)viewWillDisappear:(BOOL)animated {
  [super viewWillDisappear:animated];
  UINavigationBar *bar = self.navigationController.navigationBar;
  bar.barTintColor = nil;
  bar.tintColor = nil;
  bar.titleTextAttributes = nil;
  bar.shadowImage = nil;
}`);
  assert.equal(await style(ground(bar), 'backgroundColor'), 'rgb(153, 204, 255)');
  assert.equal(await style(ground(bar), 'borderBottomColor'), 'rgba(0, 0, 0, 0)', 'no line under the bar');
  const title = bar.getByRole('heading', { name: 'Kite' });
  assert.equal(await style(title, 'color'), 'rgb(102, 0, 0)');
  assert.equal(await style(title, 'fontSize'), '20px');
  assert.equal(await style(title, 'fontWeight'), '400');
  const back = bar.getByRole('button', { name: 'Back to Settings' });
  assert.equal(await style(back, 'color'), 'rgb(0, 0, 255)');
  await assertAccessible(page);
  await back.click();
  await page.getByRole('heading', { name: 'Settings', level: 2 }).waitFor();
  await settled(page);
  assert.equal(await style(ground(bar), 'backgroundColor'), 'rgba(0, 0, 0, 0)');
  assert.equal(await style(ground(bar), 'opacity'), '1');
});

test('Looks for content below the bar and at its top, and of its buttons', async (t) => {
  const { page, bar, shown } = await openKite(t, `
- (void)viewDidLoad {
  [super viewDidLoad];
  UINavigationBarAppearance *look = [[UINavigationBarAppearance alloc] init];
  [look configureWithOpaqueBackground];
  look.backgroundColor = [UIColor blackColor];
  look.shadowColor = [UIColor redColor];
  look.titleTextAttributes = @{NSForegroundColorAttributeName : [UIColor whiteColor]};
  look.titlePositionAdjustment = UIOffsetMake(0, 3);
  look.buttonAppearance.normal.titleTextAttributes = @{NSForegroundColorAttributeName : [UIColor greenColor]};
  look.buttonAppearance.highlighted.titleTextAttributes = @{NSForegroundColorAttributeName : [UIColor orangeColor]};
  look.doneButtonAppearance.normal.titleTextAttributes = @{NSForegroundColorAttributeName : [UIColor cyanColor]};
  UINavigationBarAppearance *edge = [look copy];
  [edge configureWithTransparentBackground];
  edge.titleTextAttributes = @{NSForegroundColorAttributeName : [UIColor blackColor]};
  self.navigationItem.standardAppearance = look;
  self.navigationItem.scrollEdgeAppearance = edge;
  UIBarButtonItem *own = [[UIBarButtonItem alloc] initWithTitle:@"Own" style:UIBarButtonItemStylePlain target:self
                                                         action:@selector(reloadSpecifiers)];
  [own setTitleTextAttributes:@{NSForegroundColorAttributeName : [UIColor blueColor]} forState:UIControlStateNormal];
  UIBarButtonItem *plain = [[UIBarButtonItem alloc] initWithTitle:@"Plain" style:UIBarButtonItemStylePlain target:self
                                                           action:@selector(reloadSpecifiers)];
  UIBarButtonItem *done = [[UIBarButtonItem alloc] initWithTitle:@"Fin" style:UIBarButtonItemStyleDone target:self
                                                          action:@selector(reloadSpecifiers)];
  UIBarButtonItem *off = [[UIBarButtonItem alloc] initWithTitle:@"Off" style:UIBarButtonItemStylePlain target:self
                                                         action:@selector(reloadSpecifiers)];
  off.enabled = NO;
  self.navigationItem.rightBarButtonItems = @[ own, plain, done, off ];
}`);
  const title = bar.getByRole('heading', { name: 'Kite' });
  const button = (name) => bar.getByRole('button', { name, exact: true });
  assert.equal(await style(ground(bar), 'backgroundColor'), 'rgba(0, 0, 0, 0)', 'nothing lies below yet');
  assert.equal(await style(title, 'color'), 'rgb(0, 0, 0)');
  await scroll(page, shown, 200);
  assert.equal(await style(ground(bar), 'backgroundColor'), 'rgb(0, 0, 0)');
  assert.equal(await style(ground(bar), 'borderBottomColor'), 'rgb(255, 0, 0)');
  assert.equal(await style(title, 'color'), 'rgb(255, 255, 255)');
  assert.equal(await style(title, 'top'), '3px');
  assert.equal(await style(button('Own'), 'color'), 'rgb(0, 0, 255)');
  assert.equal(await style(button('Plain'), 'color'), 'rgb(0, 255, 0)');
  assert.equal(await style(button('Fin'), 'color'), 'rgb(0, 255, 255)');
  assert.equal(await style(button('Off'), 'color'), 'rgb(108, 108, 112)');
  assert.equal(await style(button('Back to Settings'), 'color'), 'rgb(0, 255, 0)', 'as the other buttons');
  await button('Plain').hover();
  await page.mouse.down();
  assert.equal(await style(button('Plain'), 'color'), 'rgb(255, 128, 0)');
  assert.equal(await style(button('Plain'), 'opacity'), '1');
  await page.mouse.up();
});

test('A picture lies behind the bar, and an empty one leaves it clear', async (t) => {
  const { page, bar, simulator } = await openKite(t, `
- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  UIGraphicsImageRenderer *renderer = [[UIGraphicsImageRenderer alloc] initWithSize:CGSizeMake(10, 10)];
  UIImage *image = [renderer imageWithActions:^(UIGraphicsImageRendererContext *context) {
    [[UIColor purpleColor] setFill];
    UIRectFill(CGRectMake(0, 0, 10, 10));
  }];
  [self.navigationController.navigationBar setBackgroundImage:image forBarMetrics:UIBarMetricsDefault];
  UIBarButtonItem *clear = [[UIBarButtonItem alloc] initWithTitle:@"Clear" style:UIBarButtonItemStylePlain target:self
                                                           action:@selector(clear)];
  self.navigationItem.rightBarButtonItem = clear;
}
- (void)clear {
  [self.navigationController.navigationBar setBackgroundImage:[UIImage new] forBarMetrics:UIBarMetricsDefault];
  self.navigationController.navigationBar.shadowImage = [UIImage new];
}`);
  const picture = ground(bar).locator('.bar-picture');
  await picture.waitFor();
  const { x, y, width, height } = await picture.boundingBox();
  const whole = await bar.boundingBox();
  assert.deepEqual([x, y, width], [whole.x, whole.y, whole.width]);
  assert.ok(Math.abs(height - whole.height) <= 1);
  await bar.getByRole('button', { name: 'Clear' }).click();
  await picture.waitFor({ state: 'detached' });
  assert.equal(await style(ground(bar), 'backgroundColor'), 'rgba(0, 0, 0, 0)');
  const screen = await simulator.api('GET', '/api/screen');
  const look = screen.page.bar.standard;
  assert.deepEqual([look.clear, look.shadow, look.image], [true, false, null]);
  await eventually(async () => assert.equal(await page.locator('.page').count(), 1));
});

test('A picture under a clear bar begins at the top of the screen, and a title view is as large as its constraints say', async (t) => {
  const { page, bar, shown } = await openKite(t, `
- (void)viewDidLoad {
  [super viewDidLoad];
  UINavigationBarAppearance *clear = [[UINavigationBarAppearance alloc] init];
  [clear configureWithTransparentBackground];
  self.navigationItem.standardAppearance = self.navigationItem.scrollEdgeAppearance = clear;
  self.table.contentInsetAdjustmentBehavior = UIScrollViewContentInsetAdjustmentNever;
  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 390, 200)];
  header.backgroundColor = UIColor.systemIndigoColor;
  self.table.tableHeaderView = header;
  UIView *title = [UIView new];
  UILabel *label = [[UILabel alloc] initWithFrame:CGRectMake(0, 0, 10, 10)];
  label.text = @"Kite 2.0";
  label.translatesAutoresizingMaskIntoConstraints = NO;
  [title addSubview:label];
  [NSLayoutConstraint activateConstraints:@[
    [label.topAnchor constraintEqualToAnchor:title.topAnchor],
    [label.bottomAnchor constraintEqualToAnchor:title.bottomAnchor],
    [label.leadingAnchor constraintEqualToAnchor:title.leadingAnchor],
    [label.trailingAnchor constraintEqualToAnchor:title.trailingAnchor],
  ]];
  self.navigationItem.titleView = title;
}`);
  const top = async (locator) => (await locator.boundingBox()).y;
  assert.equal(await top(shown.locator('.section-view').first()), await top(page.locator('.screen')));
  const title = await bar.locator('.title-view').boundingBox();
  const whole = await bar.boundingBox();
  assert.ok(title.width > 40 && title.height > 10, `${title.width} by ${title.height}`);
  assert.ok(Math.abs(title.x + title.width / 2 - whole.x - whole.width / 2) < 2, 'in the middle of the bar');
  await scroll(page, shown, 300);
  assert.ok(await bar.getByText('Kite 2.0').isVisible());
});

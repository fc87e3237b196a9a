// Light and dark, proxies and bars around makers' pages: what is set for a whole subtree, in the browser.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage, settled } from './support/browser.mjs';
import { makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

/** Opens the page "Kite" of a source with ARC. */
async function openSource(t, source, options = {}) {
  const simulator = await startSimulator(t);
  await runScript('bundle', await makerFolder(t, settingsBundle({ 'KiteListController.m': source })), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url, { colorScheme: 'light', ...options });
  await open(page, 'Kite');
  await settled(page);
  return { simulator, page, shown: page.locator('.page:not([inert])') };
}

const style = (locator, name) => locator.evaluate((element, key) => getComputedStyle(element)[key], name);

const listSource = (body, specifiers) => `#import <Preferences/PSListController.h>
#import <Preferences/PSSpecifier.h>
@interface KiteListController : PSListController
@end
@implementation KiteListController
- (NSArray *)specifiers {
  if (!_specifiers) {
    _specifiers = [NSMutableArray arrayWithArray:@[
      [PSSpecifier groupSpecifierWithHeader:@"Group" footer:nil], ${specifiers}
    ]];
  }
  return _specifiers;
}
- (id)get:(PSSpecifier *)specifier {
  return @YES;
}
- (void)set:(id)value to:(PSSpecifier *)specifier {
}
${body}
@end
`;
const rowOf = (name, cell) => `[PSSpecifier preferenceSpecifierNamed:@"${name}" target:self set:@selector(set:to:)
  get:@selector(get:) detail:Nil cell:${cell} edit:Nil]`;

test('Proxies give the controls of a page their colours, in his page alone', async (t) => {
  const { page, shown, simulator } = await openSource(t, listSource(`
- (instancetype)init {
  self = [super init];
  if (self) {
    [UISwitch appearanceWhenContainedInInstancesOfClasses:@[ self.class ]].onTintColor = [UIColor redColor];
    [UISlider appearanceWhenContainedInInstancesOfClasses:@[ self.class ]].minimumTrackTintColor = [UIColor greenColor];
    [[UITableViewCell appearanceWhenContainedInInstancesOfClasses:@[ self.class ]]
        setBackgroundColor:[UIColor yellowColor]];
    [UITableView appearanceWhenContainedInInstancesOfClasses:@[ self.class ]].backgroundColor = [UIColor cyanColor];
    [UILabel appearanceWhenContainedInInstancesOfClasses:@[ UITableViewCell.class, self.class ]].textColor =
        [UIColor purpleColor];
    [[UIBarButtonItem appearanceWhenContainedInInstancesOfClasses:@[ [UINavigationBar class] ]]
        setTitleTextAttributes:@{NSForegroundColorAttributeName : [UIColor brownColor]}
                      forState:UIControlStateNormal];
  }
  return self;
}
- (void)viewDidLoad {
  [super viewDidLoad];
  self.navigationItem.rightBarButtonItem = [[UIBarButtonItem alloc] initWithTitle:@"Go" style:UIBarButtonItemStylePlain
                                                                            target:self action:@selector(loadView)];
}`, `${rowOf('Switch', 'PSSwitchCell')}, ${rowOf('Slider', 'PSSliderCell')}, ${rowOf('Text', 'PSTitleValueCell')}`));
  const screen = await simulator.api('GET', '/api/screen');
  const [first, second, third] = screen.page.sections[0].rows;
  assert.equal(first.control.onTintColor, '#ff0000ff');
  assert.equal(second.control.minimumTrackTintColor, '#00ff00ff');
  assert.deepEqual([first, third].map(({ labelColor }) => labelColor), ['#800080ff', '#800080ff']);
  const track = shown.getByRole('switch').first();
  await track.waitFor();
  assert.equal(await style(shown, 'backgroundColor'), 'rgb(0, 255, 255)');
  for (const name of ['Switch', 'Text']) {
    assert.equal(await style(shown.getByText(name, { exact: true }), 'color'), 'rgb(128, 0, 128)');
  }
  const slide = shown.locator('.row-slide').first();
  assert.equal(await slide.evaluate((row) => getComputedStyle(row).getPropertyValue('--own-cell')), '#ffff00ff');
  assert.equal(await style(page.getByRole('button', { name: 'Go' }), 'color'), 'rgb(153, 102, 51)');
});

test('A page is dark in light surroundings, a card light in it, and the other way round', async (t) => {
  const { page, shown, simulator } = await openSource(t, listSource(`
- (void)viewDidLoad {
  [super viewDidLoad];
  self.overrideUserInterfaceStyle = UIUserInterfaceStyleDark;
  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 390, 80)];
  UIView *card = [[UIView alloc] initWithFrame:CGRectMake(20, 10, 200, 60)];
  card.overrideUserInterfaceStyle = UIUserInterfaceStyleLight;
  card.backgroundColor = [UIColor systemBackgroundColor];
  card.accessibilityIdentifier = @"card";
  UILabel *label = [[UILabel alloc] initWithFrame:card.bounds];
  label.text = @"Light card";
  [card addSubview:label];
  [header addSubview:card];
  self.table.tableHeaderView = header;
}
- (void)traitCollectionDidChange:(UITraitCollection *)previous {
  NSLog(@"[Kite] %ld to %ld", (long)previous.userInterfaceStyle, (long)self.traitCollection.userInterfaceStyle);
}
- (void)ask {
  UIAlertController *alert = [UIAlertController alertControllerWithTitle:@"Dark?" message:nil
                                                          preferredStyle:UIAlertControllerStyleAlert];
  alert.overrideUserInterfaceStyle = UIUserInterfaceStyleDark;
  [alert addAction:[UIAlertAction actionWithTitle:@"Yes" style:UIAlertActionStyleDefault handler:nil]];
  [self presentViewController:alert animated:YES completion:nil];
}
- (void)viewDidAppear:(BOOL)animated {
  [super viewDidAppear:animated];
  self.navigationItem.rightBarButtonItem = [[UIBarButtonItem alloc] initWithTitle:@"Ask" style:UIBarButtonItemStylePlain
                                                                            target:self action:@selector(ask)];
}`, Array.from({ length: 25 }, (_, at) => rowOf(at ? `Text ${at}` : 'Text', 'PSTitleValueCell')).join(', ')));
  const white = 'rgb(255, 255, 255)', black = 'rgb(0, 0, 0)';
  const card = shown.locator('[data-identifier="card"]');
  assert.equal(await style(shown, 'backgroundColor'), black);
  assert.equal(await style(shown.getByText('Text', { exact: true }), 'color'), white);
  assert.equal(await style(shown.locator('.row-slide').first(), 'backgroundColor'), 'rgb(28, 28, 30)');
  assert.equal(await style(card, 'backgroundColor'), white);
  assert.equal(await style(shown.getByText('Light card'), 'color'), black);
  // The bar is not the page's, which shows through it until it is scrolled.
  const title = shown.getByRole('heading', { name: 'Kite' });
  assert.equal(await style(title, 'color'), white);
  assert.equal(await style(page.locator('.status-bar'), 'color'), white);
  await shown.locator('.scroller').evaluate((element) => element.scrollTo(0, 150));
  await eventually(async () => assert.equal(await style(title, 'color'), black));
  assert.equal(await style(page.locator('.status-bar'), 'color'), black);
  const { log } = await simulator.api('GET', '/api/device');
  assert.ok(log.some((line) => line.includes('[Kite] 1 to 2')), log.join('\n'));

  await page.getByRole('button', { name: 'Ask' }).click();
  const alert = page.getByRole('alertdialog', { name: 'Dark?' });
  await alert.waitFor();
  assert.equal(await style(alert.locator('.alert-box').first(), 'color'), white);
  await alert.getByRole('button', { name: 'Yes' }).click();
  await alert.waitFor({ state: 'detached' });

  await page.emulateMedia({ colorScheme: 'dark' });
  await eventually(async () => {
    assert.equal(await style(shown.getByRole('heading', { name: 'Kite' }), 'color'), white);
    assert.equal(await style(card, 'backgroundColor'), white);
    assert.equal(await style(shown.getByText('Light card'), 'color'), black);
  });
});

const viewSource = (body) => `#import <Preferences/PSViewController.h>
@interface KiteListController : PSViewController
@end
@implementation KiteListController
- (void)viewDidLoad {
  [super viewDidLoad];
  self.title = @"Kite";
  self.view.backgroundColor = [UIColor systemBackgroundColor];
  UILabel *corner = [[UILabel alloc] initWithFrame:CGRectMake(16, 0, 200, 30)];
  corner.text = @"Corner";
  [self.view addSubview:corner];
  ${body}
}
@end
`;

for (const [what, body, top] of [
  ['under a translucent bar', '', 0],
  ['below the bar that it does not extend to', 'self.edgesForExtendedLayout = UIRectEdgeNone;', 91],
]) {
  test(`A page's own view begins ${what}`, async (t) => {
    const { page, shown } = await openSource(t, viewSource(body));
    const screen = await page.locator('.screen').boundingBox();
    const corner = await shown.getByText('Corner').boundingBox();
    assert.equal(Math.round(corner.y - screen.y), top + Math.round((30 - corner.height) / 2));
    await assertAccessible(page);
  });
}

test('The content of a scroll view begins below the bar and is scrolled under it', async (t) => {
  const { page, shown } = await openSource(t, viewSource(`
  [corner removeFromSuperview];
  UIScrollView *scroll = [[UIScrollView alloc] initWithFrame:self.view.bounds];
  scroll.autoresizingMask = UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;
  scroll.contentSize = CGSizeMake(300, 2000);
  [scroll addSubview:corner];
  [self.view addSubview:scroll];`));
  const screen = await page.locator('.screen').boundingBox();
  const top = async () => Math.round((await shown.getByText('Corner').boundingBox()).y - screen.y);
  const first = await top();
  assert.ok(first >= 91 && first < 121, `the text begins below the bar, at ${first}`);
  const ground = shown.locator('.bar-ground[data-shown="true"]');
  assert.equal(await style(ground, 'backgroundColor'), 'rgba(0, 0, 0, 0)');
  await shown.locator('.scroll-view').first().evaluate((view) => view.scrollTo(0, 100));
  await eventually(async () => {
    assert.equal(await top(), first - 100);
    assert.equal(await style(ground, 'backgroundColor'), 'rgba(249, 249, 249, 0.94)');
  });
});

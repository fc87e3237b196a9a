// Gestures of a maker's page and widget, made with a mouse and a finger.
import assert from 'node:assert/strict';
import { mkdtemp, rm } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';
import { eventually, openPage } from './support/browser.mjs';
import { defer } from './support/cleanup.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const rows = ['One', 'Two', 'Three'].map((name) => `[PSSpecifier preferenceSpecifierNamed:@"${name}" target:self `
  + 'set:NULL get:NULL detail:KiteListController.class cell:PSLinkCell edit:nil]').join(', ');

const body = `
- (void)viewDidLoad {
  [super viewDidLoad];
  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 320, 160)];
  self.board = [[UIView alloc] initWithFrame:CGRectMake(40, 20, 100, 100)];
  self.board.backgroundColor = UIColor.systemTealColor;
  self.told = [[UILabel alloc] initWithFrame:CGRectMake(20, 125, 280, 30)];
  self.told.text = @"nothing";
  [header addSubview:self.board];
  [header addSubview:self.told];
  UITapGestureRecognizer *twice = [[UITapGestureRecognizer alloc] initWithTarget:self action:@selector(twice)];
  twice.numberOfTapsRequired = 2;
  UITapGestureRecognizer *once = [[UITapGestureRecognizer alloc] initWithTarget:self action:@selector(once:)];
  [once requireGestureRecognizerToFail:twice];
  UIPanGestureRecognizer *pan = [[UIPanGestureRecognizer alloc] initWithTarget:self action:@selector(drag:)];
  for (UIGestureRecognizer *each in @[ twice, once, pan ]) [self.board addGestureRecognizer:each];
  self.table.tableHeaderView = header;
  UILongPressGestureRecognizer *press = [[UILongPressGestureRecognizer alloc] initWithTarget:self action:@selector(press:)];
  [self.table addGestureRecognizer:press];
}
- (void)once:(UITapGestureRecognizer *)tap {
  CGPoint place = [tap locationInView:self.board];
  self.told.text = [NSString stringWithFormat:@"once at %.0f %.0f", place.x, place.y];
}
- (void)twice {
  self.told.text = @"twice";
}
- (void)drag:(UIPanGestureRecognizer *)pan {
  CGPoint by = [pan translationInView:self.board.superview];
  self.board.center = CGPointMake(self.board.center.x + by.x, self.board.center.y + by.y);
  [pan setTranslation:CGPointZero inView:self.board.superview];
  self.told.text = pan.state == UIGestureRecognizerStateEnded ? @"dropped" : @"dragged";
}
- (void)press:(UILongPressGestureRecognizer *)press {
  if (press.state != UIGestureRecognizerStateBegan) return;
  NSIndexPath *path = [self.table indexPathForRowAtPoint:[press locationInView:self.table]];
  self.told.text = path ? [NSString stringWithFormat:@"pressed %ld", (long)path.row] : @"pressed beside";
}
- (void)tableView:(UITableView *)table didSelectRowAtIndexPath:(NSIndexPath *)path {
  [table deselectRowAtIndexPath:path animated:NO];
  self.told.text = [NSString stringWithFormat:@"row %ld", (long)path.row];
}`;
const top = `@interface KiteListController ()
@property (nonatomic, strong) UIView *board;
@property (nonatomic, strong) UILabel *told;
@end`;
const source = kitePage(rows, { body }).replace('@implementation', `${top}\n@implementation`);

/** The maker's page in a browser; `told()` is what it says, `board()` where its board lies. */
async function startKite(t, options) {
  const device = await mkdtemp(join(tmpdir(), 'device-'));
  defer(t, () => rm(device, { recursive: true, force: true }));
  const simulator = await startSimulator(t);
  await runScript('bundle', await makerFolder(t, settingsBundle({ 'KiteListController.m': source })), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url, options);
  await open(page, 'Kite');
  const header = async () => (await simulator.api('GET', '/api/screen')).page.headerView;
  const told = async () => (await header()).views[1].text;
  const board = async () => (await header()).views[0].frame.slice(0, 2);
  const box = await page.locator('.section-view .view .view').first().boundingBox();
  return { ...simulator, page, told, board, box, scale: box.width / 100 };
}

test('A mouse taps, taps twice, drags and presses on a header and on rows', async (t) => {
  const { page, told, board, box, scale, api } = await startKite(t);
  const at = (x, y) => [box.x + x * scale, box.y + y * scale];
  await page.mouse.click(...at(30, 40));
  await eventually(async () => assert.equal(await told(), 'once at 30 40'));
  await page.mouse.dblclick(...at(30, 40), { delay: 20 });
  await eventually(async () => assert.equal(await told(), 'twice'));
  await page.getByText('twice').waitFor();

  await page.mouse.move(...at(50, 50));
  await page.mouse.down();
  await page.mouse.move(...at(110, 55), { steps: 6 });
  await eventually(async () => assert.equal(await told(), 'dragged'));
  await page.mouse.move(...at(110, 40), { steps: 3 });
  await page.mouse.up();
  await eventually(async () => assert.equal(await told(), 'dropped'));
  assert.deepEqual(await board(), [100, 10]);
  const moved = await page.locator('.section-view .view .view').first().boundingBox();
  assert.ok(Math.abs(moved.x - box.x - 60 * scale) < 1, 'the board is drawn where it was dragged');

  await page.getByRole('button', { name: 'Two' }).click();
  await eventually(async () => assert.equal(await told(), 'row 1'));
  await page.getByRole('button', { name: 'Three' }).hover();
  await page.mouse.down();
  // Nothing but time passes.
  await page.getByText('pressed 2').waitFor();
  await page.mouse.up();
  assert.equal(await told(), 'pressed 2');
  // The keyboard taps, too.
  await page.getByRole('button', { name: 'One' }).focus();
  await page.keyboard.press('Enter');
  await eventually(async () => assert.equal(await told(), 'row 0'));
  const { touchId } = (await api('GET', '/api/screen')).page;
  await api('POST', '/api/events', { type: 'gesture', kind: 'press', id: touchId, at: [200, 700] });
  assert.equal(await told(), 'pressed beside');
});

test('A finger works them as well, and the page scrolls under it', async (t) => {
  const { page, told, board, box, scale } = await startKite(t, {
    hasTouch: true, isMobile: true, viewport: { width: 1280, height: 920 },
  });
  const client = await page.context().newCDPSession(page);
  const at = (x, y) => ({ x: box.x + x * scale, y: box.y + y * scale });
  const touch = (type, ...points) => client.send('Input.dispatchTouchEvent', { type, touchPoints: points });
  await touch('touchStart', at(20, 20));
  await touch('touchEnd');
  await eventually(async () => assert.equal(await told(), 'once at 20 20'));
  await touch('touchStart', at(50, 50));
  for (const x of [60, 70, 80]) await touch('touchMove', at(x, 50));
  await touch('touchEnd');
  await eventually(async () => assert.equal(await told(), 'dropped'));
  assert.deepEqual(await board(), [70, 20]);
  const row = await page.getByRole('button', { name: 'Two' }).boundingBox();
  const onRow = (dy) => ({ x: row.x + 40, y: row.y + row.height / 2 + dy });
  await touch('touchStart', onRow(0));
  for (const dy of [-20, -40, -60]) await touch('touchMove', onRow(dy));
  await touch('touchEnd');
  await touch('touchStart', onRow(0));
  await touch('touchEnd');
  await eventually(async () => assert.match(await told(), /^row/));
});

test('The wheel scrolls over what takes drags', async (t) => {
  const { page, box } = await startKite(t, { viewport: { width: 900, height: 500 } });
  const scroller = page.locator('.page:not([inert]) .scroller');
  await scroller.evaluate((element) => { element.style.paddingBottom = '600px'; });
  await page.mouse.move(box.x + 10, box.y + 10);
  await page.mouse.wheel(0, 120);
  await eventually(async () => assert.ok(await scroller.evaluate((element) => element.scrollTop) > 20));
});

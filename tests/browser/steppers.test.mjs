// Steppers of a maker's page: in a row and in a header, worked with a mouse and with keys.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const row = '[PSSpecifier preferenceSpecifierNamed:@"Columns" target:self set:NULL get:NULL '
  + 'detail:nil cell:PSStaticTextCell edit:nil]';
const body = `
- (void)viewDidLoad {
  [super viewDidLoad];
  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 320, 60)];
  UIStepper *stepper = [[UIStepper alloc] initWithFrame:CGRectMake(20, 14, 0, 0)];
  stepper.accessibilityLabel = @"Size";
  stepper.maximumValue = 3;
  [stepper addTarget:self action:@selector(changed:) forControlEvents:UIControlEventValueChanged];
  [header addSubview:stepper];
  self.table.tableHeaderView = header;
}
- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [super tableView:table cellForRowAtIndexPath:path];
  if ([cell.accessoryView isKindOfClass:UIStepper.class]) return cell;
  UIStepper *stepper = [UIStepper new];
  stepper.minimumValue = 2;
  stepper.value = 4;
  [stepper addTarget:self action:@selector(changed:) forControlEvents:UIControlEventValueChanged];
  cell.accessoryView = stepper;
  return cell;
}
- (void)changed:(UIStepper *)stepper {
  NSLog(@"[Kite] %g", stepper.value);
}`;

test('A stepper is pressed, held and driven by keys', async (t) => {
  const simulator = await startSimulator(t);
  const files = settingsBundle({ 'KiteListController.m': kitePage(row, { body }) });
  await runScript('bundle', await makerFolder(t, files), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url);
  await open(page, 'Kite');
  const value = async () => (await simulator.api('GET', '/api/screen')).page.sections[0].rows[0].value;
  const inRow = (name) => page.getByRole('listitem').getByRole('button', { name });
  await inRow('Increment Columns').click();
  await eventually(async () => assert.equal(await value(), 5));
  await inRow('Decrement Columns').click();
  await eventually(async () => assert.equal(await value(), 4));
  await inRow('Increment Columns').hover();
  await page.mouse.down();
  await eventually(async () => assert.ok(await value() >= 7, 'it goes on while it is held'));
  await page.mouse.up();
  const held = await value();
  await inRow('Decrement Columns').focus();
  await page.keyboard.press('Enter');
  await eventually(async () => assert.ok(await value() <= held));

  const size = page.getByRole('group', { name: 'Size' });
  const up = size.getByRole('button', { name: 'Increment Size' });
  assert.equal(await size.getByRole('button', { name: 'Decrement Size' }).isDisabled(), true);
  for (let count = 0; count < 3; count += 1) await up.click();
  await eventually(async () => assert.equal(await up.isDisabled(), true));
  const { log } = await simulator.api('GET', '/api/device');
  assert.ok(log.some((line) => line.includes('[Kite] 3')));
  await assertAccessible(page);
});

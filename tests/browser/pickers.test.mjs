// Pickers of a maker's page: in a row and in a header, turned with a mouse and with keys.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage, settled } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const row = `({
  PSSpecifier *row = [PSSpecifier preferenceSpecifierNamed:@"" target:self set:NULL get:NULL detail:nil
                                                      cell:PSStaticTextCell edit:nil];
  [row setProperty:@216 forKey:@"height"];
  row;
})`;
const body = `
- (void)viewDidLoad {
  [super viewDidLoad];
  UIPickerView *picker = [UIPickerView new];
  picker.accessibilityLabel = @"Speed";
  picker.tag = 1;
  picker.dataSource = self;
  picker.delegate = self;
  [picker selectRow:4 inComponent:0 animated:NO];
  self.table.tableHeaderView = picker;
}
- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [super tableView:table cellForRowAtIndexPath:path];
  if ([cell.contentView viewWithTag:2]) return cell;
  UIPickerView *picker = [[UIPickerView alloc] initWithFrame:CGRectMake(0, 0, 340, 216)];
  picker.accessibilityLabel = @"Time";
  picker.tag = 2;
  picker.dataSource = self;
  picker.delegate = self;
  [cell.contentView addSubview:picker];
  return cell;
}
- (NSInteger)numberOfComponentsInPickerView:(UIPickerView *)picker {
  return picker.tag;
}
- (NSInteger)pickerView:(UIPickerView *)picker numberOfRowsInComponent:(NSInteger)component {
  return picker.tag == 1 ? 10 : component == 0 ? 24 : 60;
}
- (NSString *)pickerView:(UIPickerView *)picker titleForRow:(NSInteger)row forComponent:(NSInteger)component {
  return [NSString stringWithFormat:picker.tag == 1 ? @"%ld times" : @"%02ld", (long)row];
}
- (void)pickerView:(UIPickerView *)picker didSelectRow:(NSInteger)row inComponent:(NSInteger)component {
  NSLog(@"[Kite] %@ %ld.%ld", picker.accessibilityLabel, (long)component, (long)row);
}`;

async function startKite(t, options) {
  const simulator = await startSimulator(t);
  const source = kitePage(row, { body }).replace(
    '@interface KiteListController : PSListController',
    '@interface KiteListController : PSListController <UIPickerViewDataSource, UIPickerViewDelegate>');
  await runScript('bundle', await makerFolder(t, settingsBundle({ 'KiteListController.m': source })), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url, options);
  await open(page, 'Kite');
  const said = async () => {
    const { log } = await simulator.api('GET', '/api/device');
    return log.filter((line) => line.includes('[Kite]')).map((line) => line.split('[Kite] ')[1]);
  };
  const says = (...lines) => eventually(async () => assert.deepEqual(await said(), lines));
  return { ...simulator, page, says };
}

test('A wheel is turned by clicks, by dragging and with the wheel of a mouse', async (t) => {
  const { page, says } = await startKite(t);
  const wheel = page.getByRole('spinbutton', { name: 'Speed' });
  assert.equal(await wheel.getAttribute('aria-valuetext'), '4 times');
  const { x, y, width, height } = await wheel.boundingBox();
  const [across, middle, step] = [x + width / 2, y + height / 2, height * 32 / 216];
  const shows = (text) => eventually(async () => assert.equal(await wheel.getAttribute('aria-valuetext'), text));

  await page.mouse.click(across, middle + step);
  await shows('5 times');
  await says('Speed 0.5');
  await page.mouse.move(across, middle);
  await page.mouse.down();
  await page.mouse.move(across, middle + step, { steps: 4 });
  await page.mouse.move(across, middle + 2.2 * step, { steps: 4 });
  await page.mouse.up();
  await shows('3 times');
  await says('Speed 0.5', 'Speed 0.3');
  const top = await page.locator('.page:not([inert]) .scroller').evaluate((element) => element.scrollTop);
  await page.mouse.wheel(0, 3 * 32);
  await shows('6 times');
  await says('Speed 0.5', 'Speed 0.3', 'Speed 0.6');
  assert.equal(await page.locator('.page:not([inert]) .scroller').evaluate((element) => element.scrollTop), top,
    'the page stays where it is');
  await page.mouse.wheel(0, 5000);
  await shows('9 times');
});

test('Wheels are turned with keys, each for itself', async (t) => {
  const { page, says, api } = await startKite(t);
  const hours = page.getByRole('spinbutton', { name: 'Time, 1 of 2' });
  const minutes = page.getByRole('spinbutton', { name: 'Time, 2 of 2' });
  await hours.focus();
  await page.keyboard.press('ArrowDown');
  await says('Time 0.1');
  await minutes.focus();
  await page.keyboard.press('End');
  await says('Time 0.1', 'Time 1.59');
  await page.keyboard.press('PageUp');
  await says('Time 0.1', 'Time 1.59', 'Time 1.54');
  await page.keyboard.press('Home');
  await eventually(async () => assert.equal(await minutes.getAttribute('aria-valuenow'), '0'));
  assert.deepEqual((await api('GET', '/api/screen')).page.sections[0].rows[0].value, [1, 0]);
  await assertAccessible(page);
});

test('The row in the middle of a wheel is the one that is selected', async (t) => {
  for (const colorScheme of ['light', 'dark']) {
    const { page, api } = await startKite(t, { colorScheme });
    await api('PUT', '/api/device/display', { kind: 'tablet' });
    const wheel = page.getByRole('spinbutton', { name: 'Speed' });
    await wheel.waitFor();
    await settled(page);
    const chosen = wheel.locator('.wheel-row[data-chosen="true"]');
    assert.equal(await chosen.innerText(), '4 times');
    const [around, own] = [await wheel.boundingBox(), await chosen.boundingBox()];
    assert.ok(Math.abs(around.y + around.height / 2 - own.y - own.height / 2) < 1, 'in the middle');
    const texts = await wheel.locator('.wheel-row').allInnerTexts();
    assert.deepEqual(texts, ['0 times', '1 times', '2 times', '3 times', '4 times', '5 times', '6 times', '7 times', '8 times']);
    await assertAccessible(page);
  }
});

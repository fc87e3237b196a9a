// Date pickers of a maker's page: in a header, turned by mouse and keys, in each mode.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage, settled } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const body = `
- (void)viewDidLoad {
  [super viewDidLoad];
  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 320, 660)];
  UIDatePickerMode modes[] = {UIDatePickerModeDateAndTime, UIDatePickerModeDate, UIDatePickerModeCountDownTimer};
  for (NSInteger at = 0; at < 3; at += 1) {
    UIDatePicker *picker = [UIDatePicker new];
    picker.frame = CGRectMake(16, at * 216, 320, 216);
    picker.datePickerMode = modes[at];
    picker.preferredDatePickerStyle = UIDatePickerStyleWheels;
    picker.timeZone = [NSTimeZone timeZoneForSecondsFromGMT:0];
    picker.locale = [NSLocale localeWithLocaleIdentifier:@"en_US"];
    picker.date = [NSDate dateWithTimeIntervalSince1970:1606153089];
    picker.countDownDuration = 3900;
    picker.accessibilityLabel = @[ @"When", @"Day", @"How long" ][at];
    [picker addTarget:self action:@selector(changed:) forControlEvents:UIControlEventValueChanged];
    [header addSubview:picker];
  }
  self.table.tableHeaderView = header;
}
- (void)changed:(UIDatePicker *)picker {
  if (picker.datePickerMode == UIDatePickerModeCountDownTimer) NSLog(@"[Kite] %.0f s", picker.countDownDuration);
  else NSLog(@"[Kite] %.0f", picker.date.timeIntervalSince1970);
}`;

test('Dates, times and durations are picked on wheels', async (t) => {
  const simulator = await startSimulator(t);
  const source = kitePage('[PSSpecifier groupSpecifierWithHeader:@"Kite" footer:nil]', { body });
  await runScript('bundle', await makerFolder(t, settingsBundle({ 'KiteListController.m': source })), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url, { colorScheme: 'light' });
  await open(page, 'Kite');
  await settled(page);
  const heard = (line) => eventually(async () => {
    const { log } = await simulator.api('GET', '/api/device');
    assert.ok(log.some((each) => each.endsWith(`[Kite] ${line}`)), log.join('\n'));
  });
  const wheel = (name) => page.getByRole('spinbutton', { name });
  await wheel('When, 4 of 4').focus();
  await page.keyboard.press('ArrowUp');
  await heard(1606153089 - 12 * 3600);
  await wheel('Day, 1 of 3').focus();
  await page.keyboard.press('ArrowDown');
  await heard(1606153089 + 30 * 86400);
  await wheel('How long, 2 of 2').focus();
  await page.keyboard.press('ArrowDown');
  await heard('3960 s');
  await page.getByText('Mon Nov 23', { exact: true }).waitFor();
  await assertAccessible(page);
  if (process.env.PICTURES) {
    for (const colorScheme of ['light', 'dark']) {
      await page.emulateMedia({ colorScheme });
      await page.screenshot({ path: `${process.env.PICTURES}/dates-${colorScheme}.png` });
    }
  }
});

// Texts that a maker's page shows: in just the colours that it set, and told whole where they are shortened.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, openPage, settled } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const row = (label) => `[PSSpecifier preferenceSpecifierNamed:@"${label}" target:self set:NULL get:NULL `
  + 'detail:nil cell:PSStaticTextCell edit:nil]';
const lines = ['Two lines of a label that is longer than its two lines have room for, so that its end is left out',
  'Three lines that are as long as the ones above and say the same again, but end in a few more words than these'];
const body = `
- (void)viewWillAppear:(BOOL)animated {
  [super viewWillAppear:animated];
  UINavigationBar *bar = self.navigationController.navigationBar;
  bar.barTintColor = [UIColor colorWithRed:0.6 green:0.8 blue:1 alpha:1];
  bar.titleTextAttributes = @{NSForegroundColorAttributeName : UIColor.whiteColor};
}
- (UILabel *)label:(NSString *)text frame:(CGRect)frame lines:(NSInteger)lines {
  UILabel *label = [[UILabel alloc] initWithFrame:frame];
  label.text = text;
  label.numberOfLines = lines;
  return label;
}
- (void)viewDidLoad {
  [super viewDidLoad];
  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 320, 300)];
  header.backgroundColor = [UIColor colorWithRed:1 green:0.8 blue:0.4 alpha:1];
  UILabel *white = [self label:@"White on amber" frame:CGRectMake(20, 8, 280, 24) lines:1];
  white.textColor = UIColor.whiteColor;
  [header addSubview:white];
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  button.frame = CGRectMake(20, 36, 280, 36);
  button.backgroundColor = [UIColor colorWithRed:0.5 green:0.9 blue:0.6 alpha:1];
  [button setTitle:@"White on green" forState:UIControlStateNormal];
  [button setTitleColor:UIColor.whiteColor forState:UIControlStateNormal];
  [header addSubview:button];
  UISegmentedControl *segments = [[UISegmentedControl alloc] initWithItems:@[ @"One", @"Two" ]];
  segments.frame = CGRectMake(20, 80, 280, 32);
  segments.selectedSegmentIndex = 0;
  segments.selectedSegmentTintColor = [UIColor colorWithRed:1 green:0.6 blue:0.7 alpha:1];
  [segments setTitleTextAttributes:@{NSForegroundColorAttributeName : UIColor.whiteColor} forState:UIControlStateSelected];
  [header addSubview:segments];
  UILabel *two = [self label:@"${lines[0]}" frame:CGRectMake(20, 120, 280, 60) lines:2];
  [header addSubview:two];
  UILabel *three = [self label:@"${lines[1]}" frame:CGRectMake(20, 180, 240, 62) lines:0];
  three.lineBreakMode = NSLineBreakByTruncatingMiddle;
  three.textAlignment = NSTextAlignmentCenter;
  [header addSubview:three];
  UILabel *one = [self label:nil frame:CGRectMake(20, 250, 120, 24) lines:1];
  one.attributedText = [[NSAttributedString alloc] initWithString:@"Spaced and much too long"
                                                       attributes:@{NSKernAttributeName : @2}];
  [header addSubview:one];
  self.table.tableHeaderView = header;
}
- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [super tableView:table cellForRowAtIndexPath:path];
  if (path.row == 0) cell.textLabel.textColor = UIColor.systemYellowColor;
  return cell;
}`;

const style = (locator, name) => locator.evaluate((element, key) => getComputedStyle(element)[key], name);

async function openKite(t, colorScheme) {
  const simulator = await startSimulator(t);
  const source = kitePage(`${row('Yellow')}, ${row('Plain')}`, { body });
  await runScript('bundle', await makerFolder(t, settingsBundle({ 'KiteListController.m': source })), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url, { colorScheme });
  await open(page, 'Kite');
  await settled(page);
  return page;
}

for (const colorScheme of ['light', 'dark']) {
  test(`Texts have just the colours that were set, ${colorScheme}`, async (t) => {
    const page = await openKite(t, colorScheme);
    const white = 'rgb(255, 255, 255)';
    assert.equal(await style(page.locator('.bar-title'), 'color'), white);
    assert.equal(await style(page.getByText('White on amber'), 'color'), white);
    assert.equal(await style(page.getByText('White on green'), 'color'), white);
    assert.equal(await style(page.locator('.screen .segment', { hasText: 'One' }).locator('span'), 'color'), white);
    const yellow = colorScheme === 'light' ? 'rgb(255, 204, 0)' : 'rgb(255, 214, 10)';
    assert.equal(await style(page.getByText('Yellow'), 'color'), yellow);
    const marked = await page.locator('[data-own-color]').allTextContents();
    assert.ok(!marked.some((text) => /Plain|Two|Settings|lines/.test(text)), `only those: ${marked}`);
    if (process.env.PICTURES) await page.screenshot({ path: `${process.env.PICTURES}/own-${colorScheme}.png` });
    if (colorScheme === 'dark') return;
    await assertAccessible(page);

    for (const [at, text] of [...lines, 'Spaced and much too long'].entries()) {
      const hidden = page.getByText(text, { exact: true });
      assert.equal(await hidden.getAttribute('class'), 'visually-hidden');
      const shown = page.locator('.views [aria-hidden="true"]', { hasText: '…' }).nth(at);
      assert.match(await shown.textContent(), at === 1 ? /^Three.*\n.*\n.*….*these$/ : /^(Two.*\n|Spaced).*…$/);
      const [box, label] = await Promise.all([shown, page.locator('.view', { has: hidden }).last()].map((each) => each.boundingBox()));
      assert.ok(box.y >= label.y - 1 && box.y + box.height <= label.y + label.height + 1, `${text} is within its label`);
      assert.ok(box.x >= label.x - 1 && box.x + box.width <= label.x + label.width + 2, `${text} is as wide as it may be`);
    }
  });
}

test('The system\'s own pages have no colours of a bundle', async (t) => {
  const { url } = await startSimulator(t);
  const page = await openPage(t, url);
  await page.getByRole('button', { name: 'Zuno' }).waitFor();
  assert.equal(await page.locator('[data-own-color]').count(), 0);
});

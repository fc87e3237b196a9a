// Texts with attributes on a maker's page, in labels, rows, buttons and text views; fonts of segments; blurs.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, openPage } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const rows = `[PSSpecifier preferenceSpecifierNamed:@"Row" target:self set:NULL get:NULL
    detail:nil cell:PSStaticTextCell edit:nil],
  [PSSpecifier preferenceSpecifierNamed:@"Notes" target:self set:NULL get:NULL
    detail:nil cell:PSStaticTextCell edit:nil],
  [PSSpecifier preferenceSpecifierNamed:@"Side" target:self set:NULL get:NULL
    detail:nil cell:PSStaticTextCell edit:nil]`;

const body = `
- (NSMutableAttributedString *)text {
  NSMutableParagraphStyle *style = [NSMutableParagraphStyle new];
  style.lineSpacing = 6;
  style.alignment = NSTextAlignmentCenter;
  NSMutableAttributedString *text = [[NSMutableAttributedString alloc] initWithString:@"Large and small, "
      attributes:@{NSFontAttributeName: [UIFont boldSystemFontOfSize:24], NSParagraphStyleAttributeName: style}];
  void (^add)(NSString *, NSDictionary *) = ^(NSString *part, NSDictionary *attributes) {
    [text appendAttributedString:[[NSAttributedString alloc] initWithString:part attributes:attributes]];
  };
  add(@"under", @{NSUnderlineStyleAttributeName: @(NSUnderlineStyleDouble),
    NSUnderlineColorAttributeName: UIColor.redColor});
  add(@" and ", @{});
  add(@"through", @{NSStrikethroughStyleAttributeName: @(NSUnderlineStyleSingle)});
  add(@" raised", @{NSBaselineOffsetAttributeName: @8, NSFontAttributeName: [UIFont italicSystemFontOfSize:11]});
  add(@" marked", @{NSBackgroundColorAttributeName: UIColor.systemYellowColor,
    NSForegroundColorAttributeName: UIColor.blackColor});
  add(@" wide", @{NSKernAttributeName: @4});
  add(@" link", @{NSLinkAttributeName: [NSURL URLWithString:@"https://example.com/"]});
  NSTextAttachment *star = [NSTextAttachment textAttachmentWithImage:[UIImage systemImageNamed:@"star.fill"]];
  [text appendAttributedString:[NSAttributedString attributedStringWithAttachment:star]];
  return text;
}
- (void)viewDidLoad {
  [super viewDidLoad];
  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 320, 320)];
  UILabel *label = [[UILabel alloc] initWithFrame:CGRectMake(20, 10, 280, 0)];
  label.numberOfLines = 0;
  label.attributedText = [self text];
  [label sizeToFit];
  label.frame = CGRectMake(20, 10, 280, label.frame.size.height);
  label.accessibilityIdentifier = @"label";
  [header addSubview:label];
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  NSMutableAttributedString *title = [[NSMutableAttributedString alloc] initWithString:@"Press "];
  [title appendAttributedString:[[NSAttributedString alloc] initWithString:@"here"
      attributes:@{NSFontAttributeName: [UIFont boldSystemFontOfSize:20]}]];
  [button setAttributedTitle:title forState:UIControlStateNormal];
  [button addTarget:self action:@selector(pressed) forControlEvents:UIControlEventTouchUpInside];
  button.frame = CGRectMake(20, 170, 140, 40);
  [header addSubview:button];
  UIView *red = [[UIView alloc] initWithFrame:CGRectMake(20, 220, 60, 90)];
  red.backgroundColor = UIColor.systemRedColor;
  UIView *blue = [[UIView alloc] initWithFrame:CGRectMake(80, 220, 60, 90)];
  blue.backgroundColor = UIColor.systemBlueColor;
  [header addSubview:red];
  [header addSubview:blue];
  UIBlurEffect *blur = [UIBlurEffect effectWithStyle:UIBlurEffectStyleSystemUltraThinMaterial];
  UIVisualEffectView *glass = [[UIVisualEffectView alloc] initWithEffect:blur];
  glass.frame = CGRectMake(35, 235, 200, 60);
  glass.layer.cornerRadius = 12;
  glass.clipsToBounds = YES;
  glass.accessibilityIdentifier = @"glass";
  UILabel *over = [[UILabel alloc] initWithFrame:CGRectMake(10, 0, 180, 30)];
  over.text = @"On glass";
  [glass.contentView addSubview:over];
  UIVisualEffectView *vivid = [[UIVisualEffectView alloc] initWithEffect:
      [UIVibrancyEffect effectForBlurEffect:blur style:UIVibrancyEffectStyleSecondaryLabel]];
  vivid.frame = CGRectMake(0, 30, 200, 30);
  UILabel *below = [[UILabel alloc] initWithFrame:CGRectMake(10, 0, 180, 30)];
  below.text = @"Vivid";
  below.textColor = UIColor.redColor;
  [vivid.contentView addSubview:below];
  [glass.contentView addSubview:vivid];
  [header addSubview:glass];
  self.table.tableHeaderView = header;
}
- (void)pressed {
  NSLog(@"[Kite] pressed");
}
- (CGFloat)tableView:(UITableView *)table heightForRowAtIndexPath:(NSIndexPath *)path {
  return path.row == 1 ? 90 : 44;
}
- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [super tableView:table cellForRowAtIndexPath:path];
  if (path.row == 0) {
    NSMutableAttributedString *text = [[NSMutableAttributedString alloc] initWithString:@"Row "];
    [text appendAttributedString:[[NSAttributedString alloc] initWithString:@"BETA"
        attributes:@{NSFontAttributeName: [UIFont boldSystemFontOfSize:12],
          NSForegroundColorAttributeName: UIColor.systemOrangeColor}]];
    cell.textLabel.attributedText = text;
  }
  if (path.row == 1 && ![cell.accessoryView isKindOfClass:UITextView.class]) {
    UITextView *view = [[UITextView alloc] initWithFrame:CGRectMake(0, 0, 200, 80)];
    view.attributedText = [self text];
    view.editable = NO;
    cell.accessoryView = view;
  }
  if (path.row == 2 && ![cell.accessoryView isKindOfClass:UISegmentedControl.class]) {
    UISegmentedControl *side = [[UISegmentedControl alloc] initWithItems:@[@"Left", @"Right"]];
    [side setTitleTextAttributes:@{NSFontAttributeName: [UIFont fontWithName:@"Georgia-Italic" size:15]}
        forState:UIControlStateNormal];
    [side setTitleTextAttributes:@{NSForegroundColorAttributeName: UIColor.systemRedColor}
        forState:UIControlStateSelected];
    side.selectedSegmentIndex = 1;
    side.frame = CGRectMake(0, 0, 160, 32);
    cell.accessoryView = side;
  }
  return cell;
}`;

test('Texts with attributes are drawn as the device lays them out', async (t) => {
  const simulator = await startSimulator(t);
  const files = settingsBundle({ 'KiteListController.m': kitePage(rows, { body }) });
  await runScript('bundle', await makerFolder(t, files), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url);
  await open(page, 'Kite');
  const described = (await simulator.api('GET', '/api/screen')).page;
  const text = described.headerView.views[0].attributedText;
  assert.ok(text.lines.length > 1);

  // The pieces stand where they are told to: each line in its place, its baseline where the text's is.
  const label = page.locator('[data-identifier="label"]');
  const box = await label.boundingBox();
  const scale = box.width / 280;
  const places = await label.locator('.attributed-line').evaluateAll((lines) => lines.map((line) => {
    const strut = line.querySelector('.attributed-strut').getBoundingClientRect();
    const pieces = [...line.querySelectorAll('.attributed-piece, .attributed-attachment')];
    return {
      left: strut.left, baseline: strut.bottom,
      right: Math.max(...pieces.map((piece) => piece.getBoundingClientRect().right)),
      texts: pieces.map((piece) => piece.textContent),
    };
  }));
  text.lines.forEach((line, at) => {
    const near = (actual, expected, what) => {
      assert.ok(Math.abs(actual - expected) < 1.5, `${what} ${actual} ${expected}`);
    };
    near(places[at].left, box.x + line.x * scale, 'left');
    near(places[at].baseline, box.y + line.baseline * scale, 'baseline');
    assert.deepEqual(places[at].texts, line.pieces.map((piece) => piece.text));
    const last = line.pieces.at(-1);
    near(places[at].right, box.x + (last.x + last.width) * scale, 'right');
  });
  const styleOf = (part, names) => label.locator('.attributed-ink', { hasText: part }).first()
    .evaluate((piece, wanted) => {
      const inner = piece.querySelector('span') ?? piece;
      const all = Object.fromEntries(wanted.map((name) => [name, getComputedStyle(piece)[name]]));
      const { textDecorationLine, textDecorationStyle } = getComputedStyle(inner);
      return { ...all, line: textDecorationLine, style: textDecorationStyle };
    }, names);
  assert.deepEqual(await styleOf('under', []), { line: 'underline', style: 'double' });
  assert.equal((await styleOf('through', [])).line, 'line-through');
  assert.equal((await styleOf('raised', ['fontStyle'])).fontStyle, 'italic');
  assert.equal((await styleOf('raised', ['top'])).top, '-8px');
  assert.equal((await styleOf('wide', ['letterSpacing'])).letterSpacing, '4px');
  assert.notEqual((await styleOf('marked', ['backgroundColor'])).backgroundColor, 'rgba(0, 0, 0, 0)');
  await label.locator('.attributed-attachment > *').waitFor();

  await page.getByRole('button', { name: 'Press here' }).click();
  const { log } = await simulator.api('GET', '/api/device');
  assert.ok(log.some((line) => line.includes('[Kite] pressed')));
  const row = page.getByRole('listitem').first().locator('.attributed-ink', { hasText: 'BETA' });
  assert.equal(await row.evaluate((piece) => getComputedStyle(piece).fontSize), '12px');
  assert.ok(await page.locator('.text-view-text .attributed-line').count() > 2);
  const segment = page.locator('.segment', { hasText: 'Right' }).locator('span');
  assert.equal(await segment.evaluate((span) => getComputedStyle(span).fontStyle), 'italic');
  assert.match(await segment.evaluate((span) => getComputedStyle(span).fontFamily), /Liberation Serif/);

  const glass = page.locator('[data-identifier="glass"]');
  assert.match(await glass.locator('.effect-backdrop').first()
    .evaluate((backdrop) => getComputedStyle(backdrop).backdropFilter), /blur\(20px\)/);
  const vividIn = async (colorScheme) => {
    await page.emulateMedia({ colorScheme });
    return glass.locator('.effect-vibrant').evaluate((vibrant) => getComputedStyle(vibrant).filter);
  };
  assert.match(await vividIn('dark'), /invert\(1\)/);
  assert.doesNotMatch(await vividIn('light'), /invert/);
  await assertAccessible(page);
  if (process.env.PICTURES) {
    for (const colorScheme of ['light', 'dark']) {
      await page.emulateMedia({ colorScheme });
      await page.screenshot({ path: `${process.env.PICTURES}/attributed-${colorScheme}.png` });
    }
  }
});

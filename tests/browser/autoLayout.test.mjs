import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';

const top = `
static NSString *const kNote = @"A note of a row's own that is long enough to take several lines on a phone, fewer when "
                               @"it lies on its side, and that is laid out by constraints alone, whatever the width.";

@interface KiteHeader : UIView
@end
@implementation KiteHeader
- (instancetype)initWithFrame:(CGRect)frame {
  if (!(self = [super initWithFrame:frame])) return nil;
  UIView *icon = [UIView new];
  icon.backgroundColor = [UIColor systemOrangeColor];
  icon.layer.cornerRadius = 14;
  icon.accessibilityIdentifier = @"icon";
  UILabel *title = [UILabel new];
  title.text = @"Kite";
  title.font = [UIFont boldSystemFontOfSize:28];
  UILabel *subtitle = [UILabel new];
  subtitle.text = @"Flies by constraints";
  UIStackView *texts = [[UIStackView alloc] initWithArrangedSubviews:@[ title, subtitle ]];
  texts.axis = UILayoutConstraintAxisVertical;
  texts.spacing = 2;
  texts.accessibilityIdentifier = @"texts";
  for (UIView *view in @[ icon, texts ]) {
    view.translatesAutoresizingMaskIntoConstraints = NO;
    [self addSubview:view];
  }
  [NSLayoutConstraint activateConstraints:@[
    [icon.widthAnchor constraintEqualToConstant:60],
    [icon.heightAnchor constraintEqualToAnchor:icon.widthAnchor],
    [icon.centerYAnchor constraintEqualToAnchor:self.centerYAnchor],
    [icon.leadingAnchor constraintEqualToAnchor:self.safeAreaLayoutGuide.leadingAnchor constant:20],
    [texts.leadingAnchor constraintEqualToAnchor:icon.trailingAnchor constant:12],
    [texts.centerYAnchor constraintEqualToAnchor:icon.centerYAnchor],
  ]];
  NSDictionary *views = NSDictionaryOfVariableBindings(texts);
  [self addConstraints:[NSLayoutConstraint constraintsWithVisualFormat:@"H:[texts]-(>=20)-|" options:0 metrics:nil views:views]];
  return self;
}
@end

@interface KiteNoteCell : PSTableCell
@end
@implementation KiteNoteCell
- (instancetype)initWithStyle:(UITableViewCellStyle)style reuseIdentifier:(NSString *)identifier specifier:(PSSpecifier *)specifier {
  if (!(self = [super initWithStyle:style reuseIdentifier:identifier specifier:specifier])) return nil;
  UILabel *note = [UILabel new];
  note.text = kNote;
  note.numberOfLines = 0;
  note.translatesAutoresizingMaskIntoConstraints = NO;
  note.accessibilityIdentifier = @"note";
  [self.contentView addSubview:note];
  UILayoutGuide *margins = self.contentView.layoutMarginsGuide;
  [NSLayoutConstraint activateConstraints:@[
    [note.leadingAnchor constraintEqualToAnchor:margins.leadingAnchor],
    [note.trailingAnchor constraintEqualToAnchor:margins.trailingAnchor],
    [note.topAnchor constraintEqualToAnchor:margins.topAnchor],
    [note.bottomAnchor constraintEqualToAnchor:margins.bottomAnchor],
  ]];
  return self;
}
@end

static PSSpecifier *KiteNote(void) {
  PSSpecifier *note = [PSSpecifier preferenceSpecifierNamed:nil target:nil set:NULL get:NULL detail:Nil cell:PSStaticTextCell edit:Nil];
  [note setProperty:[KiteNoteCell class] forKey:@"cellClass"];
  return note;
}
`;

const body = `
- (void)viewDidLoad {
  [super viewDidLoad];
  self.table.tableHeaderView = [[KiteHeader alloc] initWithFrame:CGRectMake(0, 0, 0, 120)];
}
`;

const specifiers = `[PSSpecifier groupSpecifierWithName:nil], KiteNote(),
    [PSSpecifier preferenceSpecifierNamed:@"Plain" target:self set:NULL get:NULL detail:Nil cell:PSStaticTextCell edit:Nil]`;

const displays = [
  { kind: 'phone', orientation: 'portrait' }, { kind: 'phone', orientation: 'landscape' },
  { kind: 'tablet', orientation: 'portrait' }, { kind: 'tablet', orientation: 'landscape' },
];

/** The views in a view with their identifiers, and where they lie in it. */
function named(view, x = 0, y = 0, found = {}) {
  for (const child of view.views ?? []) {
    const [left, up, width, height] = child.frame;
    if (child.accessibilityIdentifier) found[child.accessibilityIdentifier] = { x: x + left, y: y + up, width, height };
    named(child, x + left, y + up, found);
  }
  return found;
}

test("A maker's header, stack and self-sizing rows are laid out by their constraints on phone and tablet, both ways up", async (t) => {
  const { url, api, folder } = await startSimulator(t);
  const source = await makerFolder(t, settingsBundle({ 'KiteListController.m': kitePage(specifiers, { body, top }) }));
  await runScript('bundle', source, folder);
  const page = await openPage(t, url, { reducedMotion: 'reduce' });
  await page.reload();
  await page.locator('.row').filter({ hasText: 'Kite' }).first().click();
  await page.locator('[data-identifier="note"]').waitFor();

  const heights = [];
  for (const display of displays) {
    const shown = `${display.kind} ${display.orientation}`;
    await api('PUT', '/api/device/display', display);
    const screen = await api('GET', '/api/screen');
    const header = screen.page.headerView;
    const [row, plain] = screen.page.sections.flatMap(({ rows }) => rows);
    const { icon, texts } = named(header);
    const width = header.frame[2];
    const covered = icon.x - 20;
    assert.ok(Math.abs(header.frame[3] - 120) < 0.01, shown);
    assert.deepEqual([icon.y, icon.width, icon.height].map(Math.round), [30, 60, 60], shown);
    assert.equal(covered > 0, shown === 'phone landscape', `${shown}: clear of the notch`);
    assert.ok(Math.abs(texts.x - icon.x - 72) < 0.01, shown);
    assert.ok(Math.abs(texts.y + texts.height / 2 - 60) < 0.51 && texts.x + texts.width <= width - 20, shown);
    assert.ok(row.height > plain.height, shown);
    heights.push(row.height);

    // Drawn where it was laid out, and the text stays within its row.
    const box = (identifier) => page.locator(`[data-identifier="${identifier}"]`).first().boundingBox();
    await eventually(async () => {
      const screenBox = await page.locator('.screen').boundingBox();
      const scale = screenBox.width / (await page.locator('.screen').evaluate((element) => element.offsetWidth));
      const drawn = await box('icon');
      assert.ok(Math.abs((drawn.x - screenBox.x) / scale - icon.x) < 1, shown);
      assert.ok(Math.abs(drawn.width / scale - 60) < 1, shown);
      const note = await box('note');
      const [outer] = await page.locator('.row').filter({ has: page.locator('[data-identifier="note"]') }).all();
      const rowBox = await outer.boundingBox();
      assert.ok(Math.abs(rowBox.height / scale - row.height) < 1, shown);
      const ends = [note.y + note.height, rowBox.y + rowBox.height];
      assert.ok(note.y >= rowBox.y + 10 * scale && ends[0] <= ends[1] - 10 * scale, shown);
      const text = await page.locator('[data-identifier="note"] span span').first().boundingBox();
      assert.ok(text.height <= note.height + 1 && text.height > note.height - 24 * scale,
        `${shown}: ${text.height} in ${note.height}`);
    });
    if (process.env.AUTO_LAYOUT_PICTURES) {
      await page.screenshot({ path: `${process.env.AUTO_LAYOUT_PICTURES}/${shown.replace(' ', '-')}.png` });
    }
  }
  const [upright, lying, tablet] = heights;
  assert.ok(upright > lying && lying >= tablet, `${heights}`);
  await assertAccessible(page);

  await api('PUT', '/api/device/display', displays[0]);
  const { page: again } = await api('GET', '/api/screen');
  assert.equal(again.sections[0].rows[0].height, upright);
  assert.doesNotMatch(JSON.stringify(await api('GET', '/api/device')), /Unable to simultaneously satisfy/);
});

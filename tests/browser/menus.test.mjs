// Menus of a maker's page: of bar buttons, of buttons in a header and in rows, and of rows on which a finger stays.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, focused, hasFocus, openPage, settled } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const rows = ['One', 'Two', 'Three', 'Four', 'Five', 'Six', 'Seven'].map((name) => `[PSSpecifier preferenceSpecifierNamed:@"${name}" target:self `
  + 'set:NULL get:NULL detail:KiteListController.class cell:PSLinkCell edit:nil]').join(', ');
const body = `
- (UIAction *)action:(NSString *)title symbol:(NSString *)symbol {
  return [UIAction actionWithTitle:title image:symbol ? [UIImage systemImageNamed:symbol] : nil identifier:nil
                           handler:^(UIAction *action) { NSLog(@"[Kite] %@", action.title); }];
}
- (UIMenu *)sortMenu {
  UIAction *name = [self action:@"Name" symbol:nil];
  name.state = UIMenuElementStateOn;
  return [UIMenu menuWithTitle:@"Sort by" image:[UIImage systemImageNamed:@"arrow.up.arrow.down"] identifier:nil
                       options:UIMenuOptionsSingleSelection
                      children:@[ name, [self action:@"Date" symbol:nil], [self action:@"Size" symbol:nil] ]];
}
- (void)viewDidLoad {
  [super viewDidLoad];
  UIAction *share = [self action:@"Share" symbol:@"square.and.arrow.up"];
  share.subtitle = @"With everybody nearby";
  UIAction *print = [self action:@"Print" symbol:@"printer"];
  print.attributes = UIMenuElementAttributesDisabled;
  UIAction *delete = [self action:@"Delete" symbol:@"trash"];
  delete.attributes = UIMenuElementAttributesDestructive;
  delete.discoverabilityTitle = @"Delete all presets for good";
  UIMenu *group = [UIMenu menuWithTitle:@"" image:nil identifier:nil options:UIMenuOptionsDisplayInline
                               children:@[ share, print ]];
  UIMenu *menu = [UIMenu menuWithTitle:@"Presets" children:@[ group, self.sortMenu, delete ]];
  UIBarButtonItem *more =
      [[UIBarButtonItem alloc] initWithImage:[UIImage systemImageNamed:@"ellipsis.circle"] menu:menu];
  more.accessibilityLabel = @"More";
  UIBarButtonItem *add = [[UIBarButtonItem alloc]
      initWithBarButtonSystemItem:UIBarButtonSystemItemAdd
                    primaryAction:[self action:@"Added" symbol:nil]];
  add.menu = [UIMenu menuWithChildren:@[ [self action:@"Add folder" symbol:@"folder.badge.plus"] ]];
  self.navigationItem.rightBarButtonItems = @[ more, add ];

  UIView *header = [[UIView alloc] initWithFrame:CGRectMake(0, 0, 320, 70)];
  UIButton *popUp = [UIButton buttonWithType:UIButtonTypeSystem];
  popUp.frame = CGRectMake(20, 14, 160, 44);
  popUp.contentHorizontalAlignment = UIControlContentHorizontalAlignmentLeft;
  popUp.menu = self.sortMenu;
  popUp.showsMenuAsPrimaryAction = YES;
  popUp.changesSelectionAsPrimaryAction = YES;
  [header addSubview:popUp];
  self.table.tableHeaderView = header;
}
- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [super tableView:table cellForRowAtIndexPath:path];
  if (path.row != 2 || cell.accessoryView) return cell;
  UIButton *button = [UIButton buttonWithType:UIButtonTypeSystem];
  [button setTitle:@"Choose" forState:UIControlStateNormal];
  button.frame = CGRectMake(0, 0, 80, 34);
  button.menu = self.sortMenu;
  button.showsMenuAsPrimaryAction = YES;
  cell.accessoryView = button;
  return cell;
}
- (UIContextMenuConfiguration *)tableView:(UITableView *)table
    contextMenuConfigurationForRowAtIndexPath:(NSIndexPath *)path
                                        point:(CGPoint)point {
  if (path.row != 1) return nil;
  UIDeferredMenuElement *later = [UIDeferredMenuElement elementWithProvider:^(void (^done)(NSArray<UIMenuElement *> *)) {
    dispatch_after(dispatch_time(DISPATCH_TIME_NOW, 1500 * NSEC_PER_MSEC), dispatch_get_main_queue(), ^{
      done(@[ [self action:@"Came late" symbol:nil] ]);
    });
  }];
  UIAction *copy = [self action:@"Copy" symbol:@"doc.on.doc"];
  return [UIContextMenuConfiguration configurationWithIdentifier:nil
                                                 previewProvider:nil
                                                  actionProvider:^UIMenu *(NSArray<UIMenuElement *> *suggested) {
                                                    return [UIMenu menuWithTitle:@"" children:@[ copy, later ]];
                                                  }];
}`;

/** The maker's page in a browser; `said()` is the last that it told the log. */
async function startKite(t, options) {
  const simulator = await startSimulator(t);
  const files = settingsBundle({ 'KiteListController.m': kitePage(rows, { body }) });
  await runScript('bundle', await makerFolder(t, files), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url, options);
  await open(page, 'Kite');
  const said = async () => {
    const { log } = await simulator.api('GET', '/api/device');
    return log.filter((line) => line.includes('[Kite]')).at(-1)?.split('[Kite] ')[1];
  };
  const says = (text) => eventually(async () => assert.equal(await said(), text));
  const gone = () => page.locator('.menu-cover').waitFor({ state: 'detached' });
  return { ...simulator, page, says, gone };
}

const item = (page, name) => page.locator('.menu:not([inert]) .menu-item', { hasText: name });

/** Where an element lies on the phone, in pixels of the window. */
const box = async (locator) => {
  const { x, y, width, height } = await locator.boundingBox();
  return { left: x, top: y, right: x + width, bottom: y + height };
};

test('A bar button opens its menu, in which a mouse chooses', async (t) => {
  const { page, says, gone } = await startKite(t);
  const more = page.getByRole('button', { name: 'More' });
  assert.equal(await more.getAttribute('aria-haspopup'), 'menu');
  await more.click();
  const menu = page.getByRole('menu', { name: 'Presets' });
  await menu.waitFor();
  await settled(page);
  const [panel, button] = [await box(menu), await box(more)];
  assert.ok(panel.top > button.bottom && panel.top < button.bottom + 20, 'below the button');
  assert.ok(Math.abs(panel.right - button.right) < 12, 'at its edge');
  assert.deepEqual(await menu.locator('.menu-item').allInnerTexts(),
    ['Share\nWith everybody nearby', 'Print', 'Sort by', 'Delete']);
  assert.equal(await menu.getByRole('menuitem', { name: 'Print' }).isDisabled(), true);
  assert.equal(await menu.getByRole('menuitem', { name: 'Delete' }).getAttribute('aria-description'),
    'Delete all presets for good');
  await assertAccessible(page);
  await menu.getByRole('menuitem', { name: 'Share' }).click();
  await says('Share');
  await gone();
  assert.ok(await hasFocus(more), 'the focus is back');

  await more.click();
  await menu.waitFor();
  await page.locator('.menu-cover').click({ position: { x: 20, y: 500 } });
  await gone();
});

test('A menu in a menu opens, closes and remembers what was chosen', async (t) => {
  const { page, says, gone } = await startKite(t);
  const more = page.getByRole('button', { name: 'More' });
  await more.click();
  await page.getByRole('menuitem', { name: 'Sort by' }).click();
  const inner = page.getByRole('menu', { name: 'Sort by' });
  await inner.waitFor();
  assert.equal(await inner.getByRole('menuitemcheckbox', { name: 'Name' }).getAttribute('aria-checked'), 'true');
  await assertAccessible(page);
  await inner.getByRole('menuitem', { name: 'Sort by' }).click();
  await inner.waitFor({ state: 'detached' });
  await page.getByRole('menuitem', { name: 'Sort by' }).click();
  await inner.getByRole('menuitemcheckbox', { name: 'Date' }).click();
  await says('Date');
  await gone();
  await more.click();
  await page.getByRole('menuitem', { name: 'Sort by' }).click();
  assert.equal(await inner.getByRole('menuitemcheckbox', { name: 'Date' }).getAttribute('aria-checked'), 'true');
  assert.equal(await inner.getByRole('menuitemcheckbox', { name: 'Name' }).getAttribute('aria-checked'), 'false');
});

test('A menu is worked with keys alone', async (t) => {
  const { page, says, gone } = await startKite(t);
  const more = page.getByRole('button', { name: 'More' });
  await more.focus();
  await page.keyboard.press('Enter');
  await page.getByRole('menu', { name: 'Presets' }).waitFor();
  const on = (name) => eventually(async () => assert.match(await focused(page), name));
  await on(/^Share/);
  await page.keyboard.press('ArrowDown');
  await on(/^Sort by/);
  await page.keyboard.press('ArrowUp');
  await page.keyboard.press('ArrowUp');
  await on(/^Delete/);
  await page.keyboard.press('Home');
  await page.keyboard.press('ArrowDown');
  await page.keyboard.press('ArrowRight');
  await on(/^Name/);
  await page.keyboard.press('ArrowLeft');
  await page.getByRole('menu', { name: 'Sort by' }).waitFor({ state: 'detached' });
  await page.keyboard.press('End');
  await on(/^Delete/);
  await page.keyboard.press('Enter');
  await says('Delete');
  await gone();
  await page.keyboard.press('Enter');
  await page.getByRole('menu', { name: 'Presets' }).waitFor();
  await item(page, 'Sort by').click();
  await page.getByRole('menu', { name: 'Sort by' }).waitFor();
  // However soon the next key comes, it finds the menu that is left.
  const heldFocus = page.evaluate(() => new Promise((resolve) => {
    const cover = document.querySelector('.menu-cover');
    const changes = new MutationObserver(() => {
      const menus = cover.querySelectorAll('.menu');
      if (menus.length === 1) resolve(menus[0].contains(document.activeElement));
    });
    changes.observe(cover, { childList: true, subtree: true });
  }));
  await page.keyboard.press('Escape');
  assert.equal(await heldFocus, true);
  await page.keyboard.press('Escape');
  await gone();
  assert.ok(await hasFocus(more));
});

test('A button with an action of its own opens its menu under a finger that stays', async (t) => {
  const { page, says, gone } = await startKite(t);
  const add = page.getByRole('button', { name: 'Add' });
  await add.click();
  await says('Added');
  await add.hover();
  await page.mouse.down();
  await item(page, 'Add folder').waitFor();
  await page.mouse.up();
  await item(page, 'Add folder').click();
  await says('Add folder');
  await gone();
  await add.click({ button: 'right' });
  await item(page, 'Add folder').waitFor();
});

test('Buttons in a header and in a row open menus beside themselves, also when the page is scrolled', async (t) => {
  const { page, says, gone, api } = await startKite(t);
  const popUp = page.getByRole('button', { name: 'Name' });
  await popUp.click();
  await item(page, 'Size').click();
  await says('Size');
  await gone();
  await page.getByRole('button', { name: 'Size' }).waitFor();
  await api('PUT', '/api/device/display', { orientation: 'landscape' });
  const scroller = page.locator('.page:not([inert]) .scroller');
  await eventually(async () => assert.ok(await scroller.evaluate((element) => {
    element.scrollTop = 1000;
    return element.scrollTop > 10;
  }), 'there is something to scroll'));
  const choose = page.getByRole('button', { name: 'Choose', exact: true });
  await choose.click();
  const menu = page.getByRole('menu');
  await menu.waitFor();
  await settled(page);
  const [panel, button] = [await box(menu), await box(choose)];
  const away = panel.top > button.bottom ? panel.top - button.bottom : button.top - panel.bottom;
  assert.ok(away > 0 && away < 20, 'beside it');
  assert.ok(Math.abs(panel.right - button.right) < 12, 'at its edge');
  await item(page, 'Date').click();
  await says('Date');
});

test('A finger that stays on a row, the secondary button and the menu key open the menu of the row', async (t) => {
  const { page, says, gone, api } = await startKite(t);
  const row = page.getByRole('listitem').nth(1);
  const { left, top } = await box(row);
  await page.mouse.move(left + 40, top + 12);
  await page.mouse.down();
  await item(page, 'Copy').waitFor();
  await page.mouse.up();
  await item(page, 'Loading').waitFor();
  await item(page, 'Came late').waitFor();
  await assertAccessible(page);
  await item(page, 'Copy').click();
  await says('Copy');
  await gone();
  await row.click({ button: 'right' });
  await item(page, 'Came late').click();
  await says('Came late');
  await gone();
  await page.getByRole('listitem').nth(0).click({ button: 'right' });
  assert.equal((await api('GET', '/api/screen')).menu, null, 'that row has none');
  await row.getByRole('button', { name: 'Two' }).focus();
  await page.keyboard.press('Shift+F10');
  await item(page, 'Copy').waitFor();
  await page.keyboard.press('Escape');
  await gone();
});

test('A menu opens beside what the interface opened, on a tablet too and in the dark', async (t) => {
  const { page, api } = await startKite(t, { colorScheme: 'dark' });
  await api('PUT', '/api/device/display', { kind: 'tablet' });
  const { page: { buttons } } = await eventually(async () => {
    const screen = await api('GET', '/api/screen');
    assert.equal(screen.page.buttons.length, 2);
    return screen;
  });
  const more = buttons.find(({ menu }) => menu === 'tap');
  const { menu } = await api('POST', '/api/events', { type: 'tap', id: more.id });
  assert.deepEqual(menu.source, { id: more.id, rect: null });
  const panel = page.getByRole('menu', { name: 'Presets' });
  await panel.waitFor();
  await settled(page);
  const [shown, button] = [await box(panel), await box(page.locator('.bar-button[aria-haspopup="menu"]'))];
  assert.ok(shown.top > button.bottom && shown.top < button.bottom + 20, 'below the button');
  assert.ok(Math.abs(shown.right - button.right) < 12, 'at its edge');
  await assertAccessible(page);
  assert.equal((await api('POST', '/api/events', { type: 'dismiss' })).menu, null);
  await panel.waitFor({ state: 'detached' });
});

// A maker's page that is searched, and his alerts of the old kind.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { assertAccessible, eventually, openPage } from './support/browser.mjs';
import { kitePage, makerFolder, runScript, settingsBundle } from './support/makers.mjs';
import { startSimulator } from './support/simulator.mjs';
import { open } from './support/zuno.mjs';

const source = kitePage('[PSSpecifier groupSpecifierWithHeader:@"Fruit" footer:nil]', {
  top: `@interface KiteListController () <UISearchResultsUpdating, UIAlertViewDelegate>
@property (nonatomic, strong) NSArray<NSString *> *shown;
@end`,
  body: `
- (void)viewDidLoad {
  [super viewDidLoad];
  UISearchController *search = [[UISearchController alloc] initWithSearchResultsController:nil];
  search.searchResultsUpdater = self;
  search.searchBar.placeholder = @"Fruit by name";
  search.searchBar.tintColor = [UIColor blueColor];
  search.searchBar.barTintColor = [UIColor yellowColor];
  self.navigationItem.searchController = search;
  self.navigationItem.hidesSearchBarWhenScrolling = NO;
  self.shown = @[ @"Apple", @"Pear", @"Plum" ];
  [self.table reloadData];
}
- (void)updateSearchResultsForSearchController:(UISearchController *)search {
  NSString *text = search.searchBar.text.lowercaseString;
  NSMutableArray<NSString *> *found = [NSMutableArray array];
  for (NSString *name in @[ @"Apple", @"Pear", @"Plum" ]) {
    if (text.length == 0 || [name.lowercaseString containsString:text]) [found addObject:name];
  }
  self.shown = found;
  [self.table reloadData];
}
- (NSInteger)tableView:(UITableView *)table numberOfRowsInSection:(NSInteger)section {
  return self.shown.count;
}
- (UITableViewCell *)tableView:(UITableView *)table cellForRowAtIndexPath:(NSIndexPath *)path {
  UITableViewCell *cell = [[UITableViewCell alloc] initWithStyle:UITableViewCellStyleDefault reuseIdentifier:nil];
  cell.textLabel.text = self.shown[path.row];
  return cell;
}
- (CGFloat)tableView:(UITableView *)table heightForRowAtIndexPath:(NSIndexPath *)path {
  return 44;
}
- (BOOL)tableView:(UITableView *)table shouldHighlightRowAtIndexPath:(NSIndexPath *)path {
  return YES;
}
- (void)tableView:(UITableView *)table didSelectRowAtIndexPath:(NSIndexPath *)path {
  [[[UIAlertView alloc] initWithTitle:self.shown[path.row] message:@"Eat it?" delegate:self cancelButtonTitle:@"No"
                    otherButtonTitles:@"Yes", nil] show];
}
- (void)alertView:(UIAlertView *)alert clickedButtonAtIndex:(NSInteger)index {
  NSLog(@"[Kite] %@ of %@", [alert buttonTitleAtIndex:index], alert.title);
}`,
}).replace(/(@interface KiteListController \(\)[\s\S]*?@end)\n([\s\S]*?)(@implementation)/, '$2$1\n$3');

test('A page is searched as a text is typed, and an old alert asks', async (t) => {
  const simulator = await startSimulator(t);
  const files = settingsBundle({ 'KiteListController.m': source });
  await runScript('bundle', await makerFolder(t, files), simulator.folder);
  await simulator.api('POST', '/api/reload', {});
  const page = await openPage(t, simulator.url);
  await open(page, 'Kite');
  const field = page.getByRole('searchbox', { name: 'Fruit by name' });
  const rows = page.locator('.page:not([inert])').getByRole('listitem');
  await eventually(async () => assert.equal(await rows.count(), 3));
  await assertAccessible(page);
  await field.click();
  const cancel = page.getByRole('button', { name: 'Cancel' });
  await cancel.waitFor();
  await assertAccessible(page);
  const style = (locator, name) => locator.evaluate((element, key) => getComputedStyle(element)[key], name);
  assert.equal(await style(cancel, 'color'), 'rgb(0, 0, 255)');
  assert.equal(await style(field, 'caretColor'), 'rgb(0, 0, 255)');
  assert.equal(await style(page.locator('.search-bar'), 'backgroundColor'), 'rgb(255, 255, 0)');
  await field.pressSequentially('pl', { delay: 30 });
  await eventually(async () => assert.deepEqual(await rows.allInnerTexts(), ['Apple', 'Plum']));
  await rows.nth(1).getByRole('button').click();
  await page.getByRole('alertdialog', { name: 'Plum' }).getByRole('button', { name: 'Yes' }).click();
  await eventually(async () => {
    const { log } = await simulator.api('GET', '/api/device');
    assert.ok(log.some((line) => line.includes('[Kite] Yes of Plum')));
  });
  await page.getByRole('button', { name: 'Clear text' }).click();
  await eventually(async () => assert.equal(await rows.count(), 3));
  await cancel.click();
  await cancel.waitFor({ state: 'detached' });
  assert.equal(await field.inputValue(), '');
});

// The methods that every list editor has alike. Each editor class is a table view controller with methods of its own
// and no base class between, so this is included inside the @implementation of each, over its ivars `_model` (a
// `zuno::EditorModel`) and `_prefsIdentifier`.
#pragma once

@synthesize prefsIdentifier = _prefsIdentifier;

// The superclass has nothing to prepare.
- (void)viewDidLoad {
  zuno::prepareForEditing([self tableView]);
}

#pragma mark - UITableViewDelegate

- (UITableViewCellEditingStyle)tableView:(UITableView *)tableView
           editingStyleForRowAtIndexPath:(NSIndexPath *)indexPath {
  return UITableViewCellEditingStyleNone;
}

- (BOOL)tableView:(UITableView *)tableView shouldIndentWhileEditingRowAtIndexPath:(NSIndexPath *)indexPath {
  return NO;
}

#pragma mark - UITableViewDataSource

- (BOOL)tableView:(UITableView *)tableView canEditRowAtIndexPath:(NSIndexPath *)indexPath {
  return _model.canEdit([indexPath section]);
}

- (void)tableView:(UITableView *)tableView moveRowAtIndexPath:(NSIndexPath *)from toIndexPath:(NSIndexPath *)to {
  _model.drag(zuno::placeOf(from), zuno::placeOf(to));
  [[self tableView] reloadData];
  [self saveLists];
}

- (NSInteger)numberOfSectionsInTableView:(UITableView *)tableView {
  return 2;
}

- (NSString *)tableView:(UITableView *)tableView titleForHeaderInSection:(NSInteger)section {
  return zuno::sectionTitle(section);
}

- (NSInteger)tableView:(UITableView *)tableView numberOfRowsInSection:(NSInteger)section {
  return _model.rows(section);
}

- (UITableViewCell *)tableView:(UITableView *)tableView cellForRowAtIndexPath:(NSIndexPath *)indexPath {
  return _model.cell(tableView, indexPath);
}

- (void)tableView:(UITableView *)tableView didSelectRowAtIndexPath:(NSIndexPath *)indexPath {
  [tableView deselectRowAtIndexPath:indexPath animated:YES];
  if (!_model.tap(zuno::placeOf(indexPath))) return;
  [[self tableView] reloadData];
  [self saveLists];
}

#pragma mark - Lists

- (void)loadLists {
  _model.load([self defaultItems], _prefsIdentifier);
  [[self tableView] reloadData];
}

- (void)saveLists {
  _model.save(_prefsIdentifier);
}

- (NSMutableArray *)menuItems {
  return _model.enabled.array();
}

- (void)setMenuItems:(NSMutableArray *)records {
  _model.enabled = zuno::RecordArray(records);
}

- (NSMutableArray *)menuItemsDisabled {
  return _model.disabled.array();
}

- (void)setMenuItemsDisabled:(NSMutableArray *)records {
  _model.disabled = zuno::RecordArray(records);
}

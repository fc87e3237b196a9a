// Screens as the simulator describes them, for tests that make up their own.

export function row(label, fields = {}) {
  return {
    id: null, cell: 'PSLinkCell', cellClass: 'PSTableCell', style: 'default', key: null, label, detail: null,
    value: null, enabled: true, selectable: true, accessory: 'none', image: null, imageStyle: null, control: null,
    labelColor: null, labelAlignment: 'natural', labelLines: 1, detailColor: null, accessibilityLabel: null,
    canMove: false, swipeActions: [], swipeOpen: false, height: 44, views: [], ...fields,
  };
}

export function link(label, fields) {
  return row(label, { accessory: 'disclosureIndicator', ...fields });
}

export function control(label, type, value, fields = {}, controlFields = {}) {
  return row(label, { selectable: false, value, control: { type, ...controlFields }, key: label, ...fields });
}

export function view(type, frame, fields = {}) {
  return {
    type, class: 'UIView', frame, backgroundColor: null, hidden: false, alpha: 1, accessibilityLabel: null, views: [],
    ...fields,
  };
}

export function label(text, frame, fields = {}) {
  return view('label', frame, { class: 'UILabel', text, fontSize: 17, color: '#000000ff', lines: 1, ...fields });
}

export function section(header, rows, footer = null) {
  return { header, footer, headerView: null, footerView: null, headerHeight: null, footerHeight: null, rows };
}

/** Rows without an id get one by their label, the same on every screen: the first "Mail" of page 2 is "row2.Mail". */
export function screen(path, sections, fields = {}) {
  const taken = new Set();
  for (const each of sections.flatMap(({ rows }) => rows)) {
    const name = `row${path.length}.${each.label ?? each.cell}`;
    let id = name;
    for (let like = 2; taken.has(id); like += 1) id = `${name} ${like}`;
    each.id ??= id;
    taken.add(each.id);
  }
  return {
    path,
    page: {
      id: path.length, class: `${path.at(-1)}Controller`, title: path.at(-1),
      back: path.length > 1 ? { id: `back${path.length}`, title: path.at(-2) } : null,
      buttons: [], editing: false, style: 'insetGrouped', sections, ...fields.page,
    },
    alert: fields.alert ?? null, sheet: fields.sheet ?? null, menu: fields.menu ?? null,
  };
}

/** `screen` once its row `id` was swiped open, which closes every other row, or closed. */
export function swiped(screen, { id, open }) {
  const sections = screen.page.sections.map((each) => (
    { ...each, rows: each.rows.map((row) => ({ ...row, swipeOpen: open && row.id === id })) }));
  return { ...screen, page: { ...screen.page, sections } };
}

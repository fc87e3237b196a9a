// What the ids of a screen stand for. An id names a place, so what stood there is remembered with it.

/** Text that is the same for as long as `id` stands for the same thing, or null when it stands for nothing. */
export function signatureOf(screen, id) {
  if (!screen) return null;
  for (const [found, words] of targetsOf(screen)) {
    if (found === id) return JSON.stringify(words);
  }
  return null;
}

/**
 * The id of what had this signature at `id`: the same one, or where a row of the page has gone. Null when it stands for
 * something else now, and when the page has several rows like it.
 */
export function placeOf(screen, signature, id) {
  if (signatureOf(screen, id) === signature) return id;
  const rows = [...targetsOf(screen)].filter(([, words]) => words[0] === 'row' && JSON.stringify(words) === signature);
  return rows.length === 1 ? rows[0][0] : null;
}

/** What tells a row from its neighbours; two rows of one page may share it. Of an outline only its place is known. */
export function identityOf(row) {
  if (row.outline) return `outline ${row.id}`;
  return row.key ? `key ${row.key}` : `${row.cellClass ?? row.cell} ${row.label ?? ''}`;
}

function* targetsOf({ page, alert, sheet }) {
  for (const field of alert?.fields ?? []) yield [field.id, ['field', alert.title, field.placeholder]];
  for (const action of alert?.actions ?? []) yield [action.id, ['action', alert.title, alert.message, action.title]];
  for (const item of sheet?.items ?? []) yield [item.id, ['item', sheet.kind, item.title]];
  if (sheet?.color) yield [sheet.color.id, ['color', sheet.title]];
  if (!page) return;
  if (page.back) yield [page.back.id, ['back', page.title]];
  for (const button of page.buttons ?? []) yield [button.id, ['button', page.title, button.title, button.systemItem]];
  for (const section of page.sections ?? []) {
    for (const row of section.rows) {
      yield [row.id, ['row', page.id, page.class, identityOf(row)]];
      for (const action of row.swipeActions ?? []) yield [action.id, ['swipe', identityOf(row), action.title]];
    }
  }
}

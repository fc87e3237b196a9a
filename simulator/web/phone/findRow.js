/** Where the row `id` of a page is, as `{section, row}`; null when the page has none. */
export function findRow({ sections }, id) {
  for (const [section, { rows }] of sections.entries()) {
    const row = rows.findIndex((candidate) => candidate.id === id);
    if (row >= 0) return { section, row };
  }
  return null;
}

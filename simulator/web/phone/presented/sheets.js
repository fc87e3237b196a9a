import { colorPicker } from '/phone/presented/ColorPicker.js';
import { documentPicker } from '/phone/presented/DocumentPicker.js';
import { page } from '/phone/presented/Page.js';
import { photoPicker } from '/phone/presented/PhotoPicker.js';
import { shareSheet } from '/phone/presented/ShareSheet.js';

/**
 * The sheets by their `kind`. `title` stands above one that has none of its own, `empty` in place of items. `Content`
 * is given `{sheet, items, choose, working}`: `choose` picks an item, `working` is the id of the one that the device is
 * at. The sheet is left by the button `leave`, "Cancel" if it is missing, or with `hasCross` by a cross. `source` is
 * what it takes from the computer: `label` and `accept` of the button for it, whether it takes `multiple` files, the
 * text `drop` over a phone onto which they are dragged, and `take(session, files)`.
 */
const sheets = { photos: photoPicker, documents: documentPicker, share: shareSheet, color: colorPicker, page };

/** One that is not known is shown as a page. */
export function sheetOf({ kind }) {
  return sheets[kind] ?? page;
}

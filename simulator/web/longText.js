// Texts of megabytes: the screen carries their beginning and their length, because no browser lays them out in time.

/** UTF-16 units of the longest text that is put into a field of the page, as the simulator has it for its screens. */
export const longestText = 65536;

/** "12,345 characters" */
export function lengthInWords(length) {
  return `${length.toLocaleString('en')} characters`;
}

/**
 * For `paste` events of a field: a text that is too long for it goes to `send` whole and never into the field, and so
 * does what replaces a text that the field shows the beginning of (and is read-only for).
 */
export function takeLongPaste(event, send) {
  const pasted = event.clipboardData.getData('text/plain');
  const { value, selectionStart, selectionEnd, readOnly } = event.target;
  if (pasted === '' || (!readOnly && pasted.length <= longestText)) return;
  event.preventDefault();
  send(readOnly ? pasted : value.slice(0, selectionStart) + pasted + value.slice(selectionEnd));
}

// Giving files of the computer to the page. A file is `{name, mimeType, buffer}`.

/** Answers the file chooser that a click on `button` opens. */
export async function chooseFiles(page, button, files) {
  const [chooser] = await Promise.all([page.waitForEvent('filechooser'), button.click()]);
  await chooser.setFiles(files, { timeout: 30_000 });  // Large ones take their time on the way into the browser.
}

/** What a drag of `files` from the desktop carries; to be handed to `dragOver` and `drop`. */
export function dragged(page, files) {
  const plain = files.map(({ name, mimeType, buffer }) => ({ name, mimeType, base64: buffer.toString('base64') }));
  return page.evaluateHandle((all) => {
    const transfer = new DataTransfer();
    for (const { name, mimeType, base64 } of all) {
      const bytes = Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
      transfer.items.add(new File([bytes], name, { type: mimeType }));
    }
    return transfer;
  }, plain);
}

/** Moves the drag over the element; resolves with whether the page takes it there. */
export function dragOver(locator, dataTransfer) {
  return locator.evaluate((element, transfer) => {
    const event = new DragEvent('dragover', { dataTransfer: transfer, bubbles: true, cancelable: true });
    return !element.dispatchEvent(event);
  }, dataTransfer);
}

/** Drags the files onto the element and lets them go. */
export async function dropFiles(page, locator, files) {
  const dataTransfer = await dragged(page, files);
  await dragOver(locator, dataTransfer);
  await locator.dispatchEvent('drop', { dataTransfer });
}

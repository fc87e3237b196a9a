// Pictures for tests that hand files to the simulator. Each has a red left half and a blue right half.

import { readFile } from 'node:fs/promises';

export const heif = () => readFile(new URL('../../fixtures/pictures/halves.heic', import.meta.url));

/** 60 × 40 pixels in a format that the browser of `page` writes: "image/png", "image/jpeg" or "image/webp". */
export async function picture(page, type) {
  const base64 = await page.evaluate(async (wanted) => {
    const canvas = new OffscreenCanvas(60, 40);
    const context = canvas.getContext('2d');
    context.fillStyle = '#ff0000';
    context.fillRect(0, 0, 30, 40);
    context.fillStyle = '#0000ff';
    context.fillRect(30, 0, 30, 40);
    const bytes = new Uint8Array(await (await canvas.convertToBlob({ type: wanted, quality: 0.95 })).arrayBuffer());
    return btoa(String.fromCharCode(...bytes));
  }, type);
  return Buffer.from(base64, 'base64');
}

/** The JPEG with a camera's orientation tag, from 1 to 8. */
export function oriented(jpeg, tag) {
  const exif = Buffer.from([
    0xff, 0xe1, 0, 34, ...Buffer.from('Exif\0\0MM\0*\0\0\0\x08', 'latin1'), 0, 1, 0x01, 0x12, 0, 3, 0, 0, 0, 1, 0, tag, 0, 0,
    0, 0, 0, 0,
  ]);
  return Buffer.concat([jpeg.subarray(0, 2), exif, jpeg.subarray(2)]);
}

/** The PNG with another size in its header, the checksum in order. */
export function resizedHeader(png, width, height) {
  const changed = Buffer.from(png);
  changed.writeUInt32BE(width, 16);
  changed.writeUInt32BE(height, 20);
  changed.writeUInt32BE(checksum(changed.subarray(12, 29)), 29);
  return changed;
}

function checksum(bytes) {
  let crc = ~0;
  for (const byte of bytes) {
    crc ^= byte;
    for (let bit = 0; bit < 8; bit += 1) crc = (crc >>> 1) ^ (crc & 1 ? 0xedb88320 : 0);
  }
  return ~crc >>> 0;
}

/**
 * Width, height and the colours of the four corners, clockwise from the upper left, of a picture that a browser
 * reads.
 */
export async function readPicture(page, bytes) {
  return page.evaluate(async (base64) => {
    const blob = new Blob([Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0))]);
    const bitmap = await createImageBitmap(blob);
    const { width, height } = bitmap;
    const context = new OffscreenCanvas(width, height).getContext('2d');
    context.drawImage(bitmap, 0, 0);
    const name = (x, y) => {
      const [red, , blue] = context.getImageData(x, y, 1, 1).data;
      return red > 200 && blue < 60 ? 'red' : blue > 200 && red < 60 ? 'blue' : `${red},${blue}`;
    };
    const corners = [name(0, 0), name(width - 1, 0), name(width - 1, height - 1), name(0, height - 1)];
    return { width, height, corners: corners.join(' ') };
  }, bytes.toString('base64'));
}

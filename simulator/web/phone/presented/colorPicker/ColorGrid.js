import { html, useRef, useState } from 'htm/preact/standalone';
import { digitsOf, nameOf, parse } from '/phone/presented/colorPicker/colorValues.js';
import { dragging } from '/phone/presented/colorPicker/dragging.js';

// Greys from white to black, then twelve hues from dark to light.
const grid = [
  'FFFFFF EBEBEB D6D6D6 C2C2C2 ADADAD 999999 858585 707070 5C5C5C 474747 333333 000000',
  '00374A 011D57 11053B 2E063D 3C071B 5C0701 5A1C00 583300 563D00 666100 4F5504 263E0F',
  '004D65 012F7B 1A0A52 450D59 551029 831100 7B2900 7A4A00 785800 8D8602 6F760A 38571A',
  '016E8F 0042A9 2C0977 61187C 791A3D B51A00 AD3E00 A96800 A67B01 C4BC00 9BA50E 4E7A27',
  '008CB4 0056D6 371A94 7A219E 99244F E22400 DA5100 D38301 D19D01 F5EC00 C3D117 669D34',
  '00A1D8 0061FD 4D22B2 982ABC B92D5D FF4015 FF6A00 FFAB01 FCC700 FEFB41 D9EC37 76BB40',
  '01C7FC 3A87FD 5E30EB BE38F3 E63B7A FE6250 FE8648 FEB43F FECB3E FFF76B E4EF65 96D35F',
  '52D6FC 74A7FF 864FFD D357FE EE719E FF8C82 FEA57D FEC777 FED977 FFF994 EAF28F B1DD8B',
  '93E3FC A7C6FF B18CFE E292FE F4A4C0 FFB5AF FFC5AB FED9A8 FDE4A8 FFFBB9 F1F7B7 CDE8B5',
  'CBF0FF D2E2FE D8C9FE EFCAFE F9D3E0 FFDAD8 FFE2D6 FEECD4 FEF1D5 FDFBDD F6FADB DEEED4',
].map((row) => row.split(' '));
const rows = grid.length;
const columns = grid[0].length;

/** Twelve by ten colours. The arrow keys move about in them, Space and Return choose. */
export function ColorGrid({ color, choose }) {
  const surface = useRef(null);
  const chosen = placeOf(digitsOf(color));
  const [focus, setFocus] = useState(null);
  const [stopRow, stopColumn] = focus ?? chosen ?? [0, 0];

  const take = (row, column, continuous) => choose({ ...parse(`#${grid[row][column]}`), alpha: color.alpha }, continuous);
  const onKeyDown = (event) => {
    if (event.key === ' ' || event.key === 'Enter') {
      event.preventDefault();
      take(stopRow, stopColumn, false);
      return;
    }
    const next = moved([stopRow, stopColumn], event.key, event.ctrlKey);
    if (!next) return;
    event.preventDefault();
    setFocus(next);
    surface.current.querySelector(`[data-place="${next}"]`).focus();
  };
  return html`
    <div class="color-grid" role="grid" aria-label="Colours" ref=${surface} onKeyDown=${onKeyDown}
      ...${dragging(({ x, y }, continuous) => {
        const place = [Math.min(Math.floor(y * rows), rows - 1), Math.min(Math.floor(x * columns), columns - 1)];
        setFocus(place);
        take(...place, continuous);
      })}>
      ${grid.map((line, row) => html`
        <div role="row" key=${row}>
          ${line.map((digits, column) => html`
            <span role="gridcell" key=${column} class="color-cell" data-place=${[row, column]}
              tabindex=${row === stopRow && column === stopColumn ? 0 : -1} aria-label=${nameOf(parse(`#${digits}`))}
              aria-selected=${chosen?.[0] === row && chosen[1] === column ? 'true' : 'false'}
              style=${{ background: `#${digits}` }}></span>`)}
        </div>`)}
    </div>`;
}

function placeOf(digits) {
  const row = grid.findIndex((line) => line.includes(digits));
  return row < 0 ? null : [row, grid[row].indexOf(digits)];
}

/** Where a key leads from a place; null for a key that leads nowhere. */
function moved([row, column], key, isFar) {
  const within = (at, count) => Math.min(Math.max(at, 0), count - 1);
  switch (key) {
    case 'ArrowUp': return [within(row - 1, rows), column];
    case 'ArrowDown': return [within(row + 1, rows), column];
    case 'ArrowLeft': return [row, within(column - 1, columns)];
    case 'ArrowRight': return [row, within(column + 1, columns)];
    case 'Home': return [isFar ? 0 : row, 0];
    case 'End': return [isFar ? rows - 1 : row, columns - 1];
    case 'PageUp': return [0, column];
    case 'PageDown': return [rows - 1, column];
    default: return null;
  }
}

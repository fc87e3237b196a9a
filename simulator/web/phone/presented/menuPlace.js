import { pixelsPerPoint } from '/phone/points.js';

// Points between a menu, what it belongs to and the edges of the screen.
const gap = 8;

/**
 * Where on the screen lies what the menu belongs to: `{left, top, width, height}` in points. A page is scrolled by the
 * browser, so that what is drawn counts; what is not drawn lies where the device says, or in the middle.
 */
export function placeOfSource({ source, anchor }, screen) {
  const element = source && [...screen.querySelectorAll('[data-id], [data-source]')].find((each) => (
    (each.dataset.id === source.id || each.dataset.source === source.id) && !each.closest('[data-leaving="true"]')));
  const scale = pixelsPerPoint(screen);
  const whole = screen.getBoundingClientRect();
  if (element) {
    const box = element.getBoundingClientRect();
    const [x, y, width, height] = source.rect ?? [0, 0, box.width / scale, box.height / scale];
    return { left: (box.left - whole.left) / scale + x, top: (box.top - whole.top) / scale + y, width, height };
  }
  const [left, top, width, height] = anchor ?? [screen.offsetWidth / 2, screen.offsetHeight / 3, 0, 0];
  return { left, top, width, height };
}

/**
 * Where `panel` lies beside `anchor`: below it where there is room, else above, else where there is more. Its edge is
 * that of the anchor which is nearer to the edge of the screen, the left one of what is wider than half of that.
 */
export function besideAnchor(anchor, panel) {
  const screen = panel.closest('.screen');
  const style = getComputedStyle(screen);
  const inset = (name) => Number.parseFloat(style.getPropertyValue(name)) || 0;
  const [width, height] = [panel.offsetWidth, panel.scrollHeight];
  const least = Math.max(inset('--status-height'), gap);
  const most = screen.offsetHeight - gap;
  const [above, below] = [anchor.top - gap - least, most - anchor.top - anchor.height - gap];
  const isBelow = height <= below || below >= above;
  const room = Math.min(height, Math.max(isBelow ? below : above, Math.min(height, (most - least) / 2)));
  const wanted = isBelow ? anchor.top + anchor.height + gap : anchor.top - gap - room;
  const middle = anchor.left + anchor.width / 2;
  const isRight = middle > screen.offsetWidth / 2 && anchor.width < screen.offsetWidth / 2;
  const left = isRight ? anchor.left + anchor.width - width : anchor.left;
  return {
    left: Math.min(Math.max(left, inset('--safe-left') + gap), screen.offsetWidth - inset('--safe-right') - gap - width),
    top: Math.min(Math.max(wanted, least), most - room),
    maxHeight: room,
    origin: `${isRight ? 'right' : 'left'} ${isBelow ? 'top' : 'bottom'}`,
  };
}

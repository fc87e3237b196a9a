/** Pixels of the window that one point of `element` takes: the device may be drawn smaller than it is. */
export function pixelsPerPoint(element) {
  return element.offsetWidth > 0 ? element.getBoundingClientRect().width / element.offsetWidth : 1;
}

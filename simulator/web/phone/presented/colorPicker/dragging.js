/**
 * Handlers for choosing by a finger or a mouse on a surface. `choose(place, continuous)` gets the place as shares of
 * the surface's width and height, from 0 to 1.
 */
export function dragging(choose) {
  const placeOf = (event) => {
    const { left, top, width, height } = event.currentTarget.getBoundingClientRect();
    return { x: share((event.clientX - left) / width), y: share((event.clientY - top) / height) };
  };
  return {
    onPointerDown: (event) => {
      if (event.button !== 0) return;
      event.currentTarget.setPointerCapture(event.pointerId);
      choose(placeOf(event), true);
    },
    onPointerMove: (event) => {
      if (event.currentTarget.hasPointerCapture(event.pointerId)) choose(placeOf(event), true);
    },
    onPointerUp: (event) => {
      if (event.currentTarget.hasPointerCapture(event.pointerId)) choose(placeOf(event), false);
    },
  };
}

function share(number) {
  return Math.min(Math.max(number, 0), 1);
}

/** Where the finger on a surface was last. */
const lastPlaces = new WeakMap();

/**
 * Handlers for choosing by a finger or a mouse on a surface. `choose(place, continuous)` gets the place as shares of
 * the surface's width and height, from 0 to 1. A touch that the system takes away ends where it was last.
 */
export function dragging(choose) {
  const placeOf = (event) => {
    const { left, top, width, height } = event.currentTarget.getBoundingClientRect();
    return { x: share((event.clientX - left) / width), y: share((event.clientY - top) / height) };
  };
  const drag = (event) => {
    const place = placeOf(event);
    lastPlaces.set(event.currentTarget, place);
    choose(place, true);
  };
  const isDragging = (event) => event.currentTarget.hasPointerCapture(event.pointerId);
  return {
    onPointerDown: (event) => {
      if (event.button !== 0) return;
      event.currentTarget.setPointerCapture(event.pointerId);
      drag(event);
    },
    onPointerMove: (event) => {
      if (isDragging(event)) drag(event);
    },
    onPointerUp: (event) => {
      if (isDragging(event)) choose(placeOf(event), false);
    },
    onPointerCancel: (event) => {
      if (isDragging(event)) choose(lastPlaces.get(event.currentTarget), false);
    },
  };
}

function share(number) {
  return Math.min(Math.max(number, 0), 1);
}

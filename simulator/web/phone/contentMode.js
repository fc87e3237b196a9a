// How a picture lies in its view. All lengths are points.

const objectFits = { scaleAspectFit: 'contain', scaleAspectFill: 'cover' };

/** Where a picture that is not scaled lies: the share of what the view has left and above it. */
const places = {
  topLeft: [0, 0], top: [0.5, 0], topRight: [1, 0],
  left: [0, 0.5], center: [0.5, 0.5], right: [1, 0.5],
  bottomLeft: [0, 1], bottom: [0.5, 1], bottomRight: [1, 1],
};

/** How a picture that is scaled fills its view. */
export function objectFitOf(contentMode) {
  return objectFits[contentMode] ?? 'fill';
}

/**
 * The size and the style of place that a picture of size `own` has in a view of size `room`; null when it is
 * scaled.
 */
export function placeOf(contentMode, own, room) {
  const place = places[contentMode];
  if (!place) return null;
  const { width, height } = own;
  const [left, top] = [(room.width - width) * place[0], (room.height - height) * place[1]];
  return { size: { width, height }, style: { position: 'absolute', left: `${left}px`, top: `${top}px` } };
}

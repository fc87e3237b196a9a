// The display of the device, as the simulator describes it: `{kind, orientation, width, height, scale, safeArea}`.

/** What every device begins with, for as long as the simulator has not said more. */
const phoneDisplay = {
  kind: 'phone', orientation: 'portrait', width: 390, height: 844, scale: 3,
  safeArea: { top: 47, left: 0, bottom: 34, right: 0 },
};

/** The display of the device in the session's `state`. */
export function displayIn(state) {
  return state.device?.display ?? phoneDisplay;
}

/** Whether there is too little height for a status bar and for large titles: a phone on its side. */
export function isShallow({ kind, orientation }) {
  return kind === 'phone' && orientation === 'landscape';
}

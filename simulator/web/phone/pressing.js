import { useEffect, useRef } from 'htm/preact/standalone';

// Milliseconds that a finger has to stay.
const longEnough = 500;

/**
 * The handlers of a button: `tap` is what a click does, `press` what a finger does that stays, the secondary button of
 * a mouse or the menu key. Without `press` there is only the click.
 */
export function usePress(tap, press) {
  const held = useRef({ timer: 0, isUsedUp: false }).current;
  const release = () => clearTimeout(held.timer);
  useEffect(() => release, []);
  if (!press) return { onClick: tap };
  const onPointerDown = (event) => {
    held.isUsedUp = false;
    if (event.button !== 0) return;
    held.timer = setTimeout(() => {
      held.isUsedUp = true;
      press();
    }, longEnough);
  };
  const onClick = (event) => {
    // A key leaves no finger behind.
    if (!held.isUsedUp || event.detail === 0) tap(event);
    held.isUsedUp = false;
  };
  const onContextMenu = (event) => {
    event.preventDefault();
    release();
    if (!held.isUsedUp) press();
  };
  return { onClick, onContextMenu, onPointerDown, onPointerUp: release, onPointerLeave: release };
}

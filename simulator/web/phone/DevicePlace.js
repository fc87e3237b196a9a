import { html, useEffect, useState } from 'htm/preact/standalone';

// Lengths in pixels; those of the page's own layout are in styles/layout.css.
const frame = 12;
const margin = 24;
const narrow = 760;
const narrowMargin = 16;
const largestShare = 0.6;

/**
 * The place that the device takes in the window.
 *
 * A device is drawn as much smaller as the window asks for. An upright phone is shortened instead, see
 * styles/layout.css, unless what it shows has to be seen whole (`isWhole`).
 */
export function DevicePlace({ display, isWhole, children }) {
  const { kind, orientation, width, height, safeArea } = display;
  const shrink = useShrink(display);
  const isShortened = !isWhole && kind === 'phone' && orientation === 'portrait';
  const size = { '--shrink': shrink, '--screen-width': `${width}px`, '--screen-height': `${height}px` };
  const style = {
    '--status-height': `${safeArea.top}px`, '--safe-left': `${safeArea.left}px`, '--safe-right': `${safeArea.right}px`,
    ...(isShortened ? {} : size),
  };
  return html`
    <div class="device-place" data-display=${kind} data-orientation=${orientation}
      data-fit=${isShortened ? 'shorter' : 'smaller'} style=${style}>
      <div class="phone">${children}</div>
    </div>`;
}

function useShrink({ width, height }) {
  const fitting = () => {
    const room = innerWidth <= narrow ? innerWidth - 2 * narrowMargin : innerWidth * largestShare;
    return Math.min(1, (innerHeight - 2 * margin) / (height + 2 * frame), room / (width + 2 * frame));
  };
  const [shrink, setShrink] = useState(fitting);
  useEffect(() => {
    const follow = () => setShrink(fitting());
    follow();
    addEventListener('resize', follow);
    return () => removeEventListener('resize', follow);
  }, [width, height]);
  return shrink;
}

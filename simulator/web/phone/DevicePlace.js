import { html, useEffect, useState } from '/modules/htm-preact.mjs';

// Lengths in pixels; those of the page's own layout are in styles/layout.css.
const frame = 12;
const margin = 24;
const narrow = 760;
const narrowMargin = 16;
const largestShare = 0.6;

/**
 * The place that the device takes in the window. `display`: `{kind, width, height}` in points.
 *
 * A tablet is drawn as much smaller as the window asks for. A phone is shortened instead, see styles/layout.css.
 */
export function DevicePlace({ display, children }) {
  const shrink = useShrink(display);
  const style = {
    '--shrink': shrink, '--screen-width': `${display.width}px`, '--screen-height': `${display.height}px`,
  };
  const isTablet = display.kind === 'tablet';
  return html`
    <div class="device-place" data-display=${display.kind} style=${isTablet ? style : undefined}>
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

import { html, useContext, useRef } from 'htm/preact/standalone';
import { cssColor } from '/colors.js';
import { EditControl } from '/phone/EditControl.js';
import { CustomViews } from '/phone/views/CustomViews.js';
import { heightOf, imageSizeOf } from '/phone/layout.js';
import { setOnly } from '/phone/look.js';
import { MoveHandle } from '/phone/MoveHandle.js';
import { RowBody } from '/phone/RowBody.js';
import { SwipeActions, SwipeMenuButton } from '/phone/SwipeActions.js';
import { useSwipe } from '/phone/swiping.js';
import { isTouch } from '/phone/touches.js';
import { SessionContext } from '/session.js';

// Points between a row's image and its text.
const imageGap = 15;
// Points that the control of the editing mode takes before them.
const editControlWidth = 38;

/**
 * What a list item of the table holds: the body of a row, and around it the handle to move it and its swipe actions.
 *
 * `isChoice`: the section is a list with check marks. `header` is the section's.
 */
export function Row({ row, section, index, header, isChoice, reordering, swipeOpen, setSwipeOpen }) {
  const session = useContext(SessionContext);
  const item = useRef(null);
  const actions = row.swipeActions ?? [];
  // In the editing mode the control before the row uncovers its actions, and no swipe does.
  const isSwiped = actions.length > 0 && !row.editControl;
  const swipe = useSwipe({ item, enabled: isSwiped, open: swipeOpen, setOpen: setSwipeOpen });

  const tap = (event) => {
    if (swipeOpen) setSwipeOpen(false);
    else if (!row.touchable || !isTouch(event)) session.tap(row.id);
  };
  const onKeyDown = (event) => {
    const isMenu = event.key === 'ContextMenu' || (event.key === 'F10' && event.shiftKey);
    if (isSwiped && isMenu) {
      event.preventDefault();
      setSwipeOpen(true);
    } else if (swipeOpen && event.key === 'Escape') {
      event.preventDefault();
      setSwipeOpen(false);
      item.current.querySelector('[data-part="main"]')?.focus();
    }
  };

  return html`
    <div class="row-content" ref=${item} onKeyDown=${onKeyDown}>
      ${(swipeOpen || swipe.offset < 0) && html`
        <${SwipeActions} row=${row} actions=${actions} focus=${swipeOpen && swipe.offset === 0} />`}
      <div class="row-slide" ...${swipe.handlers} data-swiping=${swipe.offset !== 0}
        data-highlighted=${row.highlighted === true} data-interface-style=${row.interfaceStyle ?? undefined}
        style=${setOnly({
          transform: swipe.offset !== 0 ? `translateX(${swipe.offset}px)` : undefined,
          '--own-cell': cssColor(row.backgroundColor),
        })}>
        ${row.backgroundView && html`<${CustomViews} views=${[row.backgroundView]} on="cell" />`}
        ${row.editControl && html`
          <${EditControl} row=${row} tap=${() => session.tap(row.id, { part: 'edit' })} />`}
        <${RowBody} row=${row} isChoice=${isChoice} tap=${tap}
          header=${header} tapAccessory=${() => session.tap(row.id, { part: 'accessory' })}
          tapButton=${() => session.tap(row.id, { part: 'button' })} />
        ${isSwiped && html`
          <${SwipeMenuButton} row=${row} open=${swipeOpen} setOpen=${setSwipeOpen} />`}
        ${row.canMove && html`
          <${MoveHandle} row=${row} begin=${(event) => reordering.begin(event, section, index)}
            nudge=${(direction) => reordering.nudge(section, index, direction)} />`}
      </div>
    </div>`;
}

/** The style that puts the list item of `row` at `top`, counted in points from the top of its list. */
export function rowStyle(row, top) {
  const image = imageSizeOf(row);
  const before = (image ? image.width + imageGap : 0) + (row.editControl ? editControlWidth : 0);
  const [left, right] = row.separatorInset ?? [null, 0];
  const style = {
    height: `${heightOf(row)}px`, transform: `translateY(${top}px)`,
    '--text-left': left === null
      ? `calc(var(--covered-left) + var(--margin) + ${before}px)`
      : `calc(var(--covered-left) + ${left}px)`,
    '--text-right': `${right}px`,
  };
  if (!row.frame || !row.views?.length) return style;
  // Cells with views of their own lie where their frame says, whatever the width of the list.
  const [x, , width] = row.frame;
  return { ...style, left: `calc(${x}px - var(--list-left))`, width: `${width}px`, right: 'auto' };
}

import { useEffect, useRef } from 'htm/preact/standalone';
import { pixelsPerPoint } from '/phone/points.js';

// What takes its input itself, unless it hands it through.
const native = 'button, input, textarea, select, a';

/**
 * The handlers for the element of a page: what a finger, a mouse or a pen does on what is marked with `data-touch`, an
 * id, is sent to the device as it goes on.
 */
export function useTouches(session) {
  const touch = useRef(null);
  useEffect(() => () => touch.current?.cancel(), []);
  const onPointerDown = (event) => {
    if (event.button !== 0 || !event.isPrimary || touch.current) return;
    const page = event.currentTarget;
    const element = event.target.closest('[data-touch]');
    const control = event.target.closest(native);
    if (!element || (control && !control.dataset.through)) return;
    // The touch closes a row that stands open, and nothing else.
    if (page.querySelector('.row[data-swipe="open"]')) return;
    const frame = element.classList.contains('scroller') ? page : element;
    touch.current = new Touch(session, element.dataset.touch, frame, event, () => {
      touch.current = null;
    });
  };
  const onDragStart = (event) => {
    if (touch.current) event.preventDefault();
  };
  // The secondary button of a mouse, or the menu key, does what a finger does that stays.
  const onContextMenu = (event) => {
    const element = event.target.closest('[data-menu]');
    if (element || touch.current) event.preventDefault();
    if (!element || touch.current) return;
    const { left, top } = element.getBoundingClientRect();
    const scale = pixelsPerPoint(element.closest('.page'));
    const isPointed = event.button === 2;
    session.press(element.dataset.menu, isPointed && [(event.clientX - left) / scale, (event.clientY - top) / scale]);
  };
  return { onPointerDown, onDragStart, onContextMenu };
}

/** Whether a click on something that hands its input through was sent as a touch already. */
export function isTouch(event) {
  return event?.detail > 0;
}

/**
 * A finger from its beginning to its end. Of the moves that come while one is on its way only the last is sent, so that
 * the device keeps up with the finger.
 */
class Touch {
  #session;
  #id;
  #pointer;
  #target;
  #origin;
  #scale;
  #done;
  #listening = new AbortController();
  #waiting = [];
  #running = null;
  #last;

  constructor(session, id, frame, event, done) {
    const { left, top } = frame.getBoundingClientRect();
    this.#session = session;
    this.#id = id;
    this.#pointer = event.pointerId;
    this.#target = event.target;
    this.#origin = { left, top };
    this.#scale = pixelsPerPoint(frame.closest('.page'));
    this.#done = done;
    this.#send('began', event);
    const on = (type, act) => document.addEventListener(type, (next) => {
      if (next.pointerId === this.#pointer) act(next);
    }, { capture: true, signal: this.#listening.signal });
    on('pointermove', (next) => this.#send('moved', next));
    on('pointerup', (next) => this.#finish('ended', next));
    on('pointercancel', () => this.cancel());
    // Somebody else follows the pointer now: the row is swiped, for instance.
    on('gotpointercapture', (next) => {
      if (next.target !== this.#target) this.cancel();
    });
  }

  cancel() {
    this.#finish('cancelled', this.#last);
  }

  #finish(phase, event) {
    if (this.#listening.signal.aborted) return;
    this.#listening.abort();
    this.#send(phase, event);
    this.#done();
  }

  #send(phase, event) {
    this.#last = event;
    const at = [(event.clientX - this.#origin.left) / this.#scale, (event.clientY - this.#origin.top) / this.#scale];
    if (phase === 'moved' && this.#waiting.at(-1)?.phase === 'moved') this.#waiting.pop();
    this.#waiting.push({ id: this.#id, phase, at, time: event.timeStamp / 1000 });
    this.#running ??= this.#run();
  }

  async #run() {
    while (this.#waiting.length > 0) {
      const taken = await this.#session.touch(this.#waiting.shift());
      if (taken) continue;
      // What was touched is gone, or the device has started afresh.
      this.#waiting = [];
      this.#listening.abort();
      this.#done();
    }
    this.#running = null;
  }
}

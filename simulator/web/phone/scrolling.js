// What a person scrolls is told to the device, and what code scrolls there is shown.

import { useContext, useEffect, useLayoutEffect, useRef } from 'htm/preact/standalone';
import { ScrollReports } from '/phone/scrollReports.js';
import { SessionContext } from '/session.js';

// Milliseconds: for how long after a wheel or a finger has moved it is what scrolls, also in a busy browser;
// after which a wheel is not turned on, and scrolling has ended in a browser that does not tell; over which the
// speed of a finger is measured.
const handed = 1500;
const quiet = 150;
const measured = 100;
// Points a millisecond above which content glides on when the finger is lifted.
const gliding = 0.05;

/**
 * Tells the device where the content of the element stands that `element` refers to, which scrolls, and the other way.
 *
 * `scrolling` is what the device says of it (`{id, number, start, followed}`), null where nothing is told; `offset` is
 * where the device has its content. `known`: the `scrolling` that the element was left with, when it comes back so.
 */
export function useScrolling(element, scrolling, offset, known = null) {
  const session = useContext(SessionContext);
  const follower = useRef(null);
  follower.current ??= new Follower(session, known);
  useLayoutEffect(() => follower.current.show(element.current, scrolling ?? null, offset));
  useEffect(() => follower.current.listen(), []);
}

/** Whether what has the `id` can be scrolled on `screen`. */
function isShown(screen, id) {
  if (!screen || screen.alert || screen.sheet || screen.menu) return false;
  const holds = (view) => view?.scrolling?.id === id || (view?.views ?? []).some(holds);
  const { page } = screen;
  return page.scrolling?.id === id || [page.view, page.headerView, page.footerView].some(holds)
    || page.sections.some(({ headerView, footerView }) => holds(headerView) || holds(footerView));
}

/** One element that scrolls. */
class Follower {
  #reports;
  #known;
  #element = null;
  #scrolling = null;
  // Where code has put the content: no person did.
  #applied = null;
  // What moves the content from its beginning until it is at rest: `{isByHand, isTouch}`.
  #motion = null;
  #isTouched = false;
  #handedAt = -Infinity;
  #track = [];
  #frame = 0;
  #timer = 0;

  constructor(session, known) {
    this.#reports = new ScrollReports((report) => session.scrolled(report, (screen) => isShown(screen, report.id)));
    this.#known = known;
  }

  /**
   * Takes in what the device says now. The position counts when code has set it, when it is another view's, and when
   * the content is at rest and bars cover more or less of it, as when the device is turned.
   */
  show(element, scrolling, offset) {
    // What comes back stands where it was left.
    if (!this.#element) this.#applied = placeOf(element);
    this.#element = element;
    this.#scrolling = scrolling;
    if (!scrolling || !offset) return;
    const { id, number, start } = scrolling;
    const isKnown = this.#known?.id === id && this.#known.number === number
      && (this.#motion || String(this.#known.start) === String(start));
    this.#known = scrolling;
    if (isKnown) return;
    this.#reports.giveWay(offset);
    element.scrollTo({ left: offset[0] - start[0], top: offset[1] - start[1], behavior: 'instant' });
    this.#applied = placeOf(element);
  }

  /** Returns what ends it. */
  listen() {
    const element = this.#element;
    const listening = new AbortController();
    const on = (type, act) => element.addEventListener(type, act, { passive: true, signal: listening.signal });
    const isOwn = (act) => (event) => event.target === element && act(event);
    on('scroll', isOwn(({ timeStamp }) => this.#move(timeStamp)));
    // A wheel that is turned on is one drag.
    on('scrollend', isOwn(() => (this.#motion?.isTouch ? this.#rest() : this.#awaitRest())));
    for (const type of ['wheel', 'touchmove']) {
      on(type, () => {
        this.#handedAt = performance.now();
      });
    }
    // What is pressed or touched stops: what comes then is about the content as it lies now, or another drag.
    on('pointerdown', () => this.#rest());
    on('touchstart', () => {
      this.#isTouched = true;
    });
    for (const type of ['touchend', 'touchcancel']) on(type, (event) => this.#lift(event));
    return () => {
      listening.abort();
      cancelAnimationFrame(this.#frame);
      clearTimeout(this.#timer);
    };
  }

  #move(time) {
    const { left, top } = placeOf(this.#element);
    if (this.#applied?.left === left && this.#applied.top === top) return;
    this.#applied = null;
    if (!this.#scrolling) return;
    const begins = this.#motion === null;
    if (begins) this.#begin();
    clearTimeout(this.#timer);
    // The last two places at least: a slow browser draws few frames.
    const recent = this.#track.filter((each) => time - each.time < measured);
    this.#track = [...recent.length > 0 ? recent : this.#track.slice(-1), { time, left, top }];
    if (!('onscrollend' in window)) this.#awaitRest();
    if (!this.#scrolling.followed) return;
    const phase = !this.#motion.isByHand ? 'jumped' : begins ? 'began' : 'moved';
    if (begins) this.#report(phase);
    else if (this.#frame === 0) this.#frame = requestAnimationFrame(() => this.#report(phase));
  }

  #begin() {
    const isByHand = this.#isTouched || performance.now() - this.#handedAt < handed;
    this.#motion = { isByHand, isTouch: this.#isTouched };
    this.#track = [];
  }

  #lift({ touches, timeStamp }) {
    if (touches.length > 0) return;
    this.#isTouched = false;
    this.#handedAt = performance.now();
    const velocity = this.#velocity(timeStamp);
    if (!this.#motion || !this.#scrolling?.followed || Math.hypot(...velocity) < gliding) return;
    this.#report('lifted', { velocity });
  }

  #awaitRest() {
    clearTimeout(this.#timer);
    this.#timer = setTimeout(() => (this.#isTouched ? this.#awaitRest() : this.#rest()), quiet);
  }

  #rest() {
    const motion = this.#motion;
    this.#motion = null;
    clearTimeout(this.#timer);
    if (!motion) return;
    if (!motion.isByHand) this.#report('jumped');
    else if (!this.#scrolling?.followed) this.#report();
    else {
      // A wheel leaves content that glides to where it comes to rest.
      if (!motion.isTouch) this.#report('lifted');
      this.#report('ended');
    }
  }

  #report(phase, more) {
    cancelAnimationFrame(this.#frame);
    this.#frame = 0;
    if (!this.#scrolling) return;
    const { left, top } = placeOf(this.#element);
    const { id, start } = this.#scrolling;
    this.#reports.add({ id, ...phase && { phase }, x: left + start[0], y: top + start[1], ...more });
  }

  /** Points a millisecond to the right and down, in the last moments before `time`. */
  #velocity(time) {
    const [first, last] = [this.#track[0], this.#track.at(-1)];
    const duration = last ? last.time - first.time : 0;
    if (duration === 0 || time - last.time > measured) return [0, 0];
    return [(last.left - first.left) / duration, (last.top - first.top) / duration];
  }
}

function placeOf({ scrollLeft, scrollTop }) {
  return { left: scrollLeft, top: scrollTop };
}

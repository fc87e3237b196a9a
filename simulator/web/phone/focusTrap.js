const stops = 'button:not(:disabled), input:not(:disabled), textarea:not(:disabled), a[href], [tabindex="0"]';

/** Keeps the Tab key within `container`. To be called for each keydown event in it. */
export function trapTab(event, container) {
  if (event.key !== 'Tab') return;
  const elements = [...container.querySelectorAll(stops)];
  const first = elements[0] ?? container;
  const last = elements.at(-1) ?? container;
  const focused = document.activeElement;
  if (event.shiftKey && (focused === first || focused === container)) {
    event.preventDefault();
    last.focus();
  } else if (!event.shiftKey && focused === last) {
    event.preventDefault();
    first.focus();
  }
}

import { html } from 'htm/preact/standalone';

// The few line drawings of the phone. All are decoration: the name stands on the element that holds them.

const drawing = (className, box, content) => html`
  <svg class=${className} viewBox=${box} aria-hidden="true" focusable="false">${content}</svg>`;

export const BackChevron = () => drawing('symbol back-chevron', '0 0 12 21',
  html`<path d="M10.5 1.5 L2 10.5 L10.5 19.5" fill="none" stroke="currentColor" stroke-width="2.6"
    stroke-linecap="round" stroke-linejoin="round" />`);

export const Disclosure = () => drawing('symbol disclosure', '0 0 8 13',
  html`<path d="M1.2 1.2 L6.6 6.5 L1.2 11.8" fill="none" stroke="currentColor" stroke-width="2"
    stroke-linecap="round" stroke-linejoin="round" />`);

export const Checkmark = () => drawing('symbol checkmark', '0 0 15 14',
  html`<path d="M1.5 7.8 L5.6 12.2 L13.5 1.8" fill="none" stroke="currentColor" stroke-width="2.2"
    stroke-linecap="round" stroke-linejoin="round" />`);

export const Grip = () => drawing('symbol grip', '0 0 22 12',
  html`<path d="M0 1 H22 M0 6 H22 M0 11 H22" fill="none" stroke="currentColor" stroke-width="1.5" />`);

export const Info = () => drawing('symbol info', '0 0 22 22', html`
  <circle cx="11" cy="11" r="9.6" fill="none" stroke="currentColor" stroke-width="1.6" />
  <circle cx="11" cy="6.6" r="1.3" fill="currentColor" />
  <path d="M9.4 10 H11.4 V16 M9 16 H13.6" fill="none" stroke="currentColor" stroke-width="1.6" />`);

export const Plus = () => drawing('symbol plus', '0 0 20 20',
  html`<path d="M10 1.5 V18.5 M1.5 10 H18.5" fill="none" stroke="currentColor" stroke-width="2"
    stroke-linecap="round" />`);

export const Minus = () => drawing('symbol minus', '0 0 22 22', html`
  <circle cx="11" cy="11" r="11" class="edit-ground" />
  <path d="M5.5 11 H16.5" fill="none" stroke="#fff" stroke-width="2" stroke-linecap="round" />`);

export const Insert = () => drawing('symbol insert', '0 0 22 22', html`
  <circle cx="11" cy="11" r="11" class="edit-ground" />
  <path d="M11 5.5 V16.5 M5.5 11 H16.5" fill="none" stroke="#fff" stroke-width="2" stroke-linecap="round" />`);

export const Close = () => drawing('symbol close', '0 0 30 30', html`
  <circle cx="15" cy="15" r="15" class="close-ground" />
  <path d="M10.2 10.2 L19.8 19.8 M19.8 10.2 L10.2 19.8" fill="none" stroke="currentColor" stroke-width="2.4"
    stroke-linecap="round" />`);

export const More = () => drawing('symbol more', '0 0 20 6', html`
  <circle cx="3" cy="3" r="2" fill="currentColor" />
  <circle cx="10" cy="3" r="2" fill="currentColor" />
  <circle cx="17" cy="3" r="2" fill="currentColor" />`);

export const Turn = () => drawing('symbol turn', '0 0 18 18', html`
  <path d="M3.5 9 A5.5 5.5 0 1 1 9 14.5" fill="none" stroke="currentColor" stroke-width="1.8" stroke-linecap="round" />
  <path d="M1 6.8 L3.5 10 L6.4 7.1" fill="none" stroke="currentColor" stroke-width="1.8" stroke-linecap="round"
    stroke-linejoin="round" />`);

export const Page = () => drawing('symbol document', '0 0 30 38', html`
  <path d="M2 4 a3 3 0 0 1 3-3 H19 L28 10 V34 a3 3 0 0 1 -3 3 H5 a3 3 0 0 1 -3 -3 Z" class="document-sheet" />
  <path d="M19 1 V10 H28" class="document-fold" />`);

export const StatusSymbols = () => drawing('status-symbols', '0 0 76 14', html`
  <rect x="0" y="9" width="3" height="4" rx="1" fill="currentColor" />
  <rect x="5" y="6.5" width="3" height="6.5" rx="1" fill="currentColor" />
  <rect x="10" y="3.5" width="3" height="9.5" rx="1" fill="currentColor" />
  <rect x="15" y="0.5" width="3" height="12.5" rx="1" fill="currentColor" />
  <g fill="none" stroke="currentColor" stroke-width="2">
    <path d="M25.5 4.6 a11 11 0 0 1 15 0" /><path d="M28.4 8 a6.6 6.6 0 0 1 9.2 0" />
  </g>
  <path d="M33 13 L30.6 10.4 a3.5 3.5 0 0 1 4.8 0 Z" fill="currentColor" />
  <rect x="48.6" y="1.1" width="22.8" height="11.8" rx="3.4" fill="none" stroke="currentColor" opacity="0.4" />
  <rect x="50.2" y="2.7" width="19.6" height="8.6" rx="2" fill="currentColor" />
  <path d="M73 5 V9 a2.2 2.2 0 0 0 0 -4 Z" fill="currentColor" opacity="0.5" />`);

export const Magnifier = () => drawing('symbol magnifier', '0 0 16 16', html`
  <circle cx="6.5" cy="6.5" r="5" fill="none" stroke="currentColor" stroke-width="1.6" />
  <path d="M10.2 10.2 L14.6 14.6" stroke="currentColor" stroke-width="1.6" stroke-linecap="round" />`);

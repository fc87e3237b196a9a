import { html, useEffect, useRef, useState } from 'htm/preact/standalone';

const shownLength = 120;
const flashDuration = 1500;
const count = new Intl.NumberFormat('en');

// Values that JSON has no form for come as dictionaries of one or two keys; large ones come shortened, with their size.
const marked = [
  { keys: ['data'], text: ({ data }) => `data, ${count.format(bytesOf(data))} bytes` },
  { keys: ['bytes', 'data'], text: ({ bytes }) => `data, ${count.format(bytes)} bytes` },
  {
    keys: ['bytes', 'string'],
    text: ({ bytes, string }) => `${string.slice(0, shownLength)}… (${count.format(bytes)} bytes)`,
  },
  { keys: ['date'], text: ({ date }) => `date, ${date ?? 'out of range'}` },
  { keys: ['real'], text: ({ real }) => String(real) },
  { keys: ['omitted'], text: ({ omitted }) => `${count.format(omitted)} more` },
];

/** A value of a property list in its JSON form; dictionaries and arrays as nested lists. */
export function PropertyList({ value }) {
  if (!isNested(value)) return html`<${Scalar} value=${value} />`;
  const kind = Array.isArray(value) ? 'array' : 'dictionary';
  const entries = Array.isArray(value)
    ? value.map((item, at) => [String(at), item])
    : Object.entries(value).sort(([one], [other]) => one.localeCompare(other));
  if (entries.length === 0) return html`<span class="value-none">empty ${kind}</span>`;
  return html`
    <dl class="entries">
      ${entries.map(([key, item]) => html`<${Entry} key=${key} name=${key} value=${item} />`)}
    </dl>`;
}

/** One key and its value; it lights up for a moment when the value changes. */
function Entry({ name, value }) {
  const text = JSON.stringify(value);
  const known = useRef(text);
  const [changed, setChanged] = useState(false);
  useEffect(() => {
    if (known.current === text) return undefined;
    known.current = text;
    setChanged(true);
    const timer = setTimeout(() => setChanged(false), flashDuration);
    return () => clearTimeout(timer);
  }, [text]);
  return html`
    <div class="entry" data-nested=${isNested(value)} data-changed=${changed}>
      <dt>${name}</dt>
      <dd><${PropertyList} value=${value} /></dd>
    </div>`;
}

function Scalar({ value }) {
  if (typeof value === 'string') return html`<span class="value-string">${shorten(value)}</span>`;
  if (value === null) return html`<span class="value-none">nothing</span>`;
  const form = formOf(value);
  if (form) return html`<span class="value-other">${form.text(value)}</span>`;
  return html`<span class="value-number">${String(value)}</span>`;
}

function isNested(value) {
  return value !== null && typeof value === 'object' && !formOf(value);
}

function formOf(value) {
  if (value === null || typeof value !== 'object' || Array.isArray(value)) return undefined;
  const keys = Object.keys(value).sort().join();
  return marked.find((form) => form.keys.join() === keys);
}

function shorten(text) {
  if (text.length <= shownLength) return text;
  return `${text.slice(0, shownLength)}… (${count.format(text.length)} characters)`;
}

function bytesOf(base64) {
  return Math.floor((base64.replace(/=+$/, '').length * 3) / 4);
}

import { execFile } from 'node:child_process';
import { promisify } from 'node:util';

const run = promisify(execFile);

/** The content of a property-list file of any format, read by a program that is no part of the simulator. */
export async function readPropertyList(file) {
  const { stdout } = await run('plistutil', ['-i', file, '-f', 'xml'], { maxBuffer: 1 << 28 });
  return valueAt(tokens(stdout));
}

/** The XML form of a dictionary of dictionaries, arrays, strings, booleans and integers. */
export function propertyListText(value) {
  return `<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">${element(value)}</plist>`;
}

function element(value) {
  if (Array.isArray(value)) return `<array>${value.map(element).join('')}</array>`;
  if (typeof value === 'object') {
    return `<dict>${Object.entries(value).map(([key, item]) => `<key>${key}</key>${element(item)}`).join('')}</dict>`;
  }
  if (typeof value === 'boolean') return value ? '<true/>' : '<false/>';
  if (typeof value === 'number') return `<integer>${value}</integer>`;
  return `<string>${value}</string>`;
}

/** Tags and texts in turn, without what stands before the first value. */
function tokens(xml) {
  const body = xml.slice(xml.indexOf('<plist'));
  return body.match(/<[^>]+>|[^<]+/g).slice(1).filter((token) => token.trim() !== '').values();
}

function valueAt(stream, token = stream.next().value) {
  if (token === '<true/>') return true;
  if (token === '<false/>') return false;
  if (token === '<array/>') return [];
  if (token === '<dict/>') return {};
  if (token === '<array>') return [...itemsUntil(stream, '</array>')];
  if (token === '<dict>') {
    const items = [...itemsUntil(stream, '</dict>')];
    return Object.fromEntries(items.flatMap((item, at) => (at % 2 === 0 ? [[item, items[at + 1]]] : [])));
  }
  const name = token.match(/^<(\w+)/)[1];
  if (token.endsWith('/>')) return '';
  const text = stream.next().value;
  if (text === `</${name}>`) return '';
  stream.next();
  return name === 'integer' || name === 'real' ? Number(text) : unescaped(text);
}

function* itemsUntil(stream, end) {
  for (let { value } = stream.next(); value !== end; { value } = stream.next()) yield valueAt(stream, value);
}

function unescaped(text) {
  return text.replace(/&lt;/g, '<').replace(/&gt;/g, '>').replace(/&quot;/g, '"').replace(/&amp;/g, '&');
}

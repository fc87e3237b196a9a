/** What the compiler and the linker said, and what of it the simulator does not carry. */
import { readFile } from 'node:fs/promises';
import { relative } from 'node:path';

// Names of Apple's frameworks and of the system's, as they begin.
const beginnings = [
  'UI', 'NS', 'CA', 'CG', 'CF', 'CI', 'CL', 'CM', 'CN', 'CT', 'AV', 'EK', 'GC', 'GK', 'HK', 'LA', 'LP', 'LS', 'MF', 'MK',
  'MP', 'MTL', 'OS', 'PH', 'PK', 'PS', 'QL', 'SB', 'SC', 'SF', 'SK', 'SL', 'UN', 'VN', 'WK', 'AS', 'BS', 'FB', 'NFC',
  'k[A-Z]{2}', 'os_', 'dispatch_', 'objc_', 'class_', 'method_', 'sel_', 'ivar_', 'sysctl', 'notify_', 'xpc_', 'MS[A-Z]',
];
const systemName = new RegExp(`^_?(${beginnings.join('|')})`);

/** The errors in a compiler's or linker's output: `[{file, line, column, message}]`; the linker knows no columns. */
export function errorsIn(output) {
  const errors = [];
  const lines = output.matchAll(/^([^\s:][^:\n]*):(\d+):(\d+): (?:fatal )?error: (.*)$/gm);
  for (const [, file, line, column, message] of lines) {
    errors.push({ file, line: Number(line), column: Number(column), message: message.replace(/ \[-W[^\]]*\]$/, '') });
  }
  for (const { symbol, file, line } of undefinedSymbols(output)) {
    const { kind, name } = symbolNamed(symbol);
    errors.push({ file, line, column: null, message: `nobody has the ${kind} ${name}` });
  }
  return errors;
}

/**
 * What an output tells of what the simulator does not carry: a list of `{kind, name}`, `kind` "header", "framework",
 * "class", "protocol", "method", "property", "function" or "constant", each once. What looks like a slip of the maker's
 * own is left out.
 */
export async function foreignIn(output) {
  const found = new Map();
  const add = (kind, name) => found.set(`${kind} ${name}`, { kind, name });
  const sources = new Map();
  const lineAt = async (file, line) => {
    if (!sources.has(file)) sources.set(file, (await readFile(file, 'utf8').catch(() => '')).split('\n'));
    return sources.get(file)[line - 1] ?? '';
  };
  const diagnostics = [...output.matchAll(/^([^\s:][^:\n]*):(\d+):\d+: ((?:fatal )?error|warning|note): (.*)$/gm)];
  for (const [at, [, file, line, , message]] of diagnostics.entries()) {
    const note = diagnostics[at + 1]?.[3] === 'note' ? diagnostics[at + 1] : null;
    const declared = note && (await lineAt(note[1], Number(note[2]))).match(/@(?:interface|class)\s+(\w+)/)?.[1];
    let match = message.match(/^'([^']+)' file not found/);
    if (match && (await lineAt(file, Number(line))).includes(`<${match[1]}>`)) add('header', `<${match[1]}>`);
    match = message.match(/^module '([^']+)' not found/);
    if (match) add('framework', match[1]);
    match = message.match(/^no visible @interface for '(\w+)' declares the selector '([^']+)'/);
    if (match) add('method', `-[${match[1]} ${match[2]}]`);
    match = message.match(/^no known class method for selector '([^']+)'/);
    if (match) add('method', `+[${await receiverAt(file, line, lineAt)} ${match[1]}]`);
    match = message.match(/^(instance|class) method '([-+])([^']+)' not found/);
    if (match) add('method', `${match[2]}[${declared ?? await receiverAt(file, line, lineAt)} ${match[3]}]`);
    match = message.match(/^property '(\w+)' not found on object of type '(?:const )?(\w+)/);
    if (match) add('property', `${match[1]} of ${match[2]}`);
    match = message.match(/^(?:cannot find interface declaration for|unknown receiver|unknown class name) '(\w+)'/)
      ?? message.match(/^receiver(?: type)? '(\w+)' (?:for|is)/);
    if (match && systemName.test(match[1])) add('class', match[1]);
    match = message.match(/^(?:cannot find protocol declaration for|no type or protocol named) '(\w+)'/);
    if (match && systemName.test(match[1])) add('protocol', match[1]);
    match = message.match(/^unknown type name '(\w+)'/);
    if (match && systemName.test(match[1])) add('class', match[1]);
    match = message.match(/^call to undeclared (?:library )?function '(\w+)'/);
    if (match && systemName.test(match[1])) add('function', match[1]);
    match = message.match(/^use of undeclared identifier '(\w+)'/);
    if (match && systemName.test(match[1])) add(kindAt(match[1], await lineAt(file, Number(line))), match[1]);
  }
  for (const { symbol } of undefinedSymbols(output)) {
    const { kind, name } = symbolNamed(symbol);
    add(kind, name);
  }
  return [...found.values()];
}

/** One sentence that lists them. */
export function foreignSentence(name, foreign) {
  const kinds = [...new Set(foreign.map(({ kind }) => kind))];
  const parts = kinds.map((kind) => {
    const names = foreign.filter((each) => each.kind === kind).map((each) => each.name);
    return `${names.length > 1 ? plurals[kind] : kind} ${names.join(', ')}`;
  });
  return `${name} needs what the simulator does not carry: ${parts.join('; ')}.`;
}

/** Files as the maker knows them. */
export function relativeTo(folder, errors) {
  return errors.map((error) => {
    const path = error.file && relative(folder, error.file);
    return path && !path.startsWith('..') ? { ...error, file: path } : error;
  });
}

const plurals = {
  header: 'headers', framework: 'frameworks', class: 'classes', protocol: 'protocols', method: 'methods',
  property: 'properties', function: 'functions', constant: 'constants',
};

function undefinedSymbols(output) {
  const symbols = [];
  const lines = output.split('\n');
  for (const [at, line] of lines.entries()) {
    const symbol = line.match(/error: undefined (?:hidden )?symbol: (.*)$/)?.[1];
    if (!symbol) continue;
    const [, place, number] = lines[at + 1]?.match(/^>>> referenced by (.*?)(?::(\d+))?(?: \(.*\))?$/) ?? [];
    const path = lines[at + 1]?.match(/\((\/[^:]*):\d+\)$/)?.[1];
    symbols.push({ symbol, file: path ?? place ?? null, line: number ? Number(number) : null });
  }
  return symbols;
}

// The names that the compiler gives to classes differ between the formats of its modules.
function symbolNamed(symbol) {
  const [, name] = symbol.match(/^(?:\.?_OBJC_(?:REF_)?CLASS_|__objc_class_name_|OBJC_CLASS_\$_)(.*)$/) ?? [];
  return name ? { kind: 'class', name } : { kind: 'function', name: symbol };
}

// A class where it is sent a message, or where something is declared to be of it.
function kindAt(name, line) {
  if (new RegExp(`\\[\\s*${name}\\b|\\b${name}\\s*(<[^>]*>)?\\s*\\*|\\b${name}\\.(class|new)\\b`).test(line)) return 'class';
  return new RegExp(`\\b${name}\\s*\\(`).test(line) ? 'function' : 'constant';
}

// What a message was sent to, as the line has it.
async function receiverAt(file, line, lineAt) {
  return (await lineAt(file, Number(line))).match(/\[\s*([\w.]+)/)?.[1] ?? 'id';
}

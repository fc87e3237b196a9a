import { useContext } from 'htm/preact/standalone';
import { cssColor, inkOf, paintedOver } from '/colors.js';
import { takeLongPaste } from '/longText.js';
import { useDraft } from '/phone/draft.js';
import { alignments, fontStyle, setOnly } from '/phone/look.js';
import { cellBackground } from '/phone/surfaces.js';
import { SessionContext } from '/session.js';

const plainSize = 17;
const plainWeight = 400;
const returnKeys = { return: 'enter', go: 'go', next: 'next', search: 'search', send: 'send', done: 'done' };

/** What both kinds of field share: the text under edit, and the attributes of the element that shows it. */
export function useField(row, name) {
  const session = useContext(SessionContext);
  const draft = useDraft(String(row.value ?? ''), (text) => session.set(row.id, text));
  // Of a text too long to be shown whole, only its replacement can be sent.
  const isBeginning = row.valueLength !== undefined;
  const enter = () => {
    if (!isBeginning) draft.enter((text) => session.enter(row.id, text));
  };
  const onKeyDown = (event) => {
    if (event.key === 'Escape') draft.reset();
    if (isBeginning && (event.key === 'Backspace' || event.key === 'Delete')) session.set(row.id, '');
  };
  const { control } = row;
  const attributes = {
    'data-part': 'main', 'data-own-keys': true, 'data-own-color': control.ownTextColor || undefined, 'aria-label': name, placeholder: control.placeholder ?? '',
    'aria-description': row.accessibilityHint || undefined, inputmode: control.keyboard ?? 'text',
    autocapitalize: control.autocapitalization ?? 'none', autocorrect: control.autocorrection ? 'on' : 'off',
    enterkeyhint: returnKeys[control.returnKey], spellcheck: control.spellChecking === true, style: styleOf(row),
    value: draft.text, disabled: row.enabled === false, readOnly: isBeginning,
    onInput: draft.input, onBlur: draft.commit, onKeyDown,
    onPaste: (event) => takeLongPaste(event, (text) => session.set(row.id, text)),
  };
  // What was typed is sent before, as the device asks about the text that it has.
  const clear = () => {
    draft.commit();
    session.clear(row.id);
  };
  return { attributes, enter, clear };
}

/** A colour, a font and an alignment of the bundle's own. */
function styleOf({ control, backgroundColor, enabled }) {
  const ground = paintedOver(cellBackground, backgroundColor);
  const look = control.placeholderLook;
  return setOnly({
    color: enabled === false ? undefined : inkOf(control.textColor, control.ownTextColor, ground),
    textAlign: alignments[control.alignment], ...ownFont(control),
    // Placeholders take only what is said of themselves.
    '--own-placeholder': look?.color ? cssColor(look.color) : undefined,
    '--placeholder-size': look?.fontSize ? `${look.fontSize}px` : undefined,
    '--placeholder-weight': look?.fontWeight ?? undefined,
  });
}

/** The font of a field where it is not the system's own for fields. */
function ownFont({ fontSize = plainSize, fontWeight = plainWeight, fontFamily, italic, tabularDigits }) {
  return {
    fontSize: fontSize === plainSize ? undefined : `${fontSize}px`,
    fontWeight: fontWeight === plainWeight ? undefined : fontWeight,
    ...fontStyle(fontFamily, italic, tabularDigits),
  };
}

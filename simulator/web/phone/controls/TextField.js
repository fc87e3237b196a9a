import { html } from 'htm/preact/standalone';
import { useField } from '/phone/controls/textInput.js';
import { InlineView } from '/phone/views/CustomViews.js';

/**
 * One line of text, sent by the Return key, which the device gets too, or when the field is left; Escape takes the
 * change back.
 */
function TextField({ row, name }) {
  const { attributes, enter, clear } = useField(row, name);
  const { type, border, leftView, rightView, clearButtonMode } = row.control;
  const isClearable = clearButtonMode !== 'never' && attributes.value !== '' && row.enabled !== false;
  const onKeyDown = (event) => {
    if (event.key === 'Enter' && !event.isComposing) enter();
    attributes.onKeyDown(event);
  };
  return html`
    ${leftView && html`<${InlineView} view=${leftView} on="cell" name="field-view" />`}
    <input ...${attributes} type=${type === 'secureText' ? 'password' : 'text'} class="text-field"
      data-border=${border ?? 'none'} autocomplete="off" onKeyDown=${onKeyDown} />
    ${isClearable && html`
      <button type="button" class="clear-button" data-mode=${clearButtonMode} aria-label="Clear text"
        onPointerDown=${(event) => event.preventDefault()} onClick=${clear}></button>`}
    ${rightView && html`<${InlineView} view=${rightView} on="cell" name="field-view" />`}`;
}

export const textField = { Content: TextField };

import { useEffect, useRef, useState } from 'htm/preact/standalone';

/**
 * Text that the user edits before it is sent. What comes from the device meanwhile does not disturb it.
 *
 * `send(text)` resolves with whether the text was taken; if not, the stored text is shown again. `commit` sends a text
 * that was changed, `enter` sends any, by a function like `send`.
 */
export function useDraft(stored, send) {
  const [text, setText] = useState(stored);
  const state = useRef({ text: stored, dirty: false }).current;

  const show = (next, dirty) => {
    state.text = next;
    state.dirty = dirty;
    setText(next);
  };
  useEffect(() => {
    if (!state.dirty) show(stored, false);
  }, [stored]);

  const enter = async (sendEntered) => {
    state.dirty = false;
    if (!(await sendEntered(state.text)) && !state.dirty) show(stored, false);
  };
  const commit = async () => {
    if (state.dirty) await enter(send);
  };
  return { text, input: (event) => show(event.target.value, true), commit, enter, reset: () => show(stored, false) };
}

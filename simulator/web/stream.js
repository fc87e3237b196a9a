/**
 * Reads server-sent events from the body of a response and gives each to `receive({event, data, id})`.
 *
 * Resolves when the stream ends and rejects when it breaks.
 */
export async function readEvents(body, receive) {
  const reader = body.pipeThrough(new TextDecoderStream()).getReader();
  let pending = '';
  for (;;) {
    const { value, done } = await reader.read();
    if (done) return;
    pending += value;
    const blocks = pending.split(/\r?\n\r?\n/);
    pending = blocks.pop();
    for (const block of blocks) {
      const event = parseBlock(block);
      if (event) receive(event);
    }
  }
}

function parseBlock(block) {
  const event = { event: 'message', data: '', id: null };
  const data = [];
  for (const line of block.split(/\r?\n/)) {
    const colon = line.indexOf(':');
    if (colon === 0) continue;
    const field = colon < 0 ? line : line.slice(0, colon);
    const value = colon < 0 ? '' : line.slice(colon + 1).replace(/^ /, '');
    if (field === 'data') data.push(value);
    else if (field === 'event') event.event = value;
    else if (field === 'id') event.id = value;
  }
  if (data.length === 0) return null;
  event.data = data.join('\n');
  return event;
}

const stacks = new WeakMap();

/** Runs `work` when the test `t` ends; what was deferred last runs first. */
export function defer(t, work) {
  if (!stacks.has(t)) {
    const stack = [];
    stacks.set(t, stack);
    t.after(async () => {
      let failure = null;
      for (const next of stack.reverse()) {
        try {
          await next();
        } catch (error) {
          failure ??= error;
        }
      }
      if (failure) throw failure;
    });
  }
  stacks.get(t).push(work);
}

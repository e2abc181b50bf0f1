/**
 * Returns where a key leads in a row of `size` places, from the place `current`: by `steps`, a number for
 * each key, to the ends by Home and End, and never beyond them. Null for any other key.
 */
export function movedByKey(event, current, size, steps) {
  if (event.ctrlKey || event.altKey || event.metaKey) {
    return null;
  }
  const targets = { Home: 0, End: size - 1 };
  const target = event.key in steps ? current + steps[event.key] : targets[event.key];
  return target === undefined ? null : Math.min(Math.max(target, 0), size - 1);
}

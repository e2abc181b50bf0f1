import { make } from "./elements.mjs";

/**
 * Puts a text on the clipboard. Returns whether that went well. Pages from plain http and some files have
 * no clipboard of the newer kind.
 */
async function copy(text) {
  try {
    await navigator.clipboard.writeText(text);
    return true;
  } catch {
    return copyBySelection(text);
  }
}

function copyBySelection(text) {
  const focused = document.activeElement;
  const area = make("textarea", { class: "unseen", readonly: true, "aria-hidden": "true" });
  area.value = text;
  document.body.append(area);
  area.select();
  let isCopied = false;
  try {
    isCopied = document.execCommand("copy");
  } finally {
    area.remove();
    focused?.focus({ preventScroll: true });
  }
  return isCopied;
}

/**
 * Returns a button that copies what `textOf` returns when it is pressed, and says on itself how that went.
 * `description` is what it copies, for those who hear it among others.
 */
export function makeCopyButton(label, description, textOf) {
  const SHOWN_MS = 2000;
  const text = make("span", { "aria-live": "polite" }, label);
  return make("button", { type: "button", class: "copy", title: description,
    click: async () => {
      const isCopied = await copy(textOf());
      text.textContent = isCopied ? "copied" : "the browser does not let this page copy";
      setTimeout(() => { text.textContent = label; }, SHOWN_MS);
    } }, text, make("span", { class: "unseen" }, ` ${description}`));
}

/**
 * Returns a new element. Functions among the attributes listen to the event of their name; `true` is an
 * attribute without a value, and what is `false` or missing is left out. Texts among the children become
 * text and never markup; children that are null are left out.
 */
export function make(name, attributes = {}, ...children) {
  const element = document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (typeof value === "function") {
      element.addEventListener(key, value);
    } else if (value !== false && value !== undefined && value !== null) {
      element.setAttribute(key, value === true ? "" : value);
    }
  }
  element.append(...children.filter((child) => child !== null));
  return element;
}

/** Returns an element of SVG with attributes and children. */
export function makeSvg(name, attributes, ...children) {
  const element = document.createElementNS("http://www.w3.org/2000/svg", name);
  for (const [key, value] of Object.entries(attributes)) {
    element.setAttribute(key, value);
  }
  element.append(...children);
  return element;
}

/** Returns a name whose writing direction is its own and changes nothing around it. */
export function makeName(name) {
  return make("bdi", {}, name);
}

/** Returns "1 node", "2 nodes", "20,000 nodes". */
export function countOf(count, singular, plural) {
  return `${count.toLocaleString("en")} ${count === 1 ? singular : plural}`;
}

/** Returns the shape and the name of a band. */
export function makeBandMark(band) {
  return make("span", { class: `band ${band.class}` },
    make("span", { class: "shape", "aria-hidden": "true" }, band.shape), ` ${band.name}`);
}

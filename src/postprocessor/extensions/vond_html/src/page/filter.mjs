/**
 * Which issues are shown, and which of them is open; what the address has behind its #. An empty field
 * leaves nothing out.
 */
export function emptyFilter() {
  return { words: "", node: "", bands: [], types: [], changes: [], explained: "", definition: "",
    related: 0, issue: 0 };
}

/** The place that the address names when nothing is left out any more. */
export const ALL_ISSUES = "issues";

const KEYS = { words: "q", node: "node", bands: "band", types: "type", changes: "change",
  explained: "explained", definition: "definition", related: "related", issue: "issue" };

/**
 * Reads a fragment without its #. Returns null for one that is no filter: it is the name of a place on
 * the page, but "issue-5", which is an issue.
 */
export function parseFilter(fragment) {
  const filter = emptyFilter();
  const issue = /^issue-(\d+)$/.exec(fragment);
  if (issue !== null) {
    return { ...filter, issue: Number(issue[1]) };
  }
  if (!fragment.includes("=")) {
    return fragment === "" || fragment === ALL_ISSUES ? filter : null;
  }
  const values = new URLSearchParams(fragment);
  for (const [field, key] of Object.entries(KEYS)) {
    if (Array.isArray(filter[field])) {
      filter[field] = values.getAll(key);
    } else if (typeof filter[field] === "number") {
      filter[field] = Number.parseInt(values.get(key), 10) || 0;
    } else {
      filter[field] = values.get(key) ?? "";
    }
  }
  return filter;
}

/** Returns the fragment of a filter without a #, "" for an empty one. */
export function formatFilter(filter) {
  const values = new URLSearchParams();
  for (const [field, key] of Object.entries(KEYS)) {
    for (const value of [filter[field]].flat()) {
      if (value) {
        values.append(key, value);
      }
    }
  }
  const fragment = values.toString();
  return /^issue=\d+$/.test(fragment) ? fragment.replace("=", "-") : fragment;
}

/** Whether a filter leaves nothing out. */
export function isEmptyFilter(filter) {
  return formatFilter({ ...filter, issue: 0 }) === "";
}

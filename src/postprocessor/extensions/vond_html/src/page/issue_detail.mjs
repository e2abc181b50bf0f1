import { makeCopyButton } from "./copying.mjs";
import { countOf, make, makeName } from "./elements.mjs";
import { emptyFilter, formatFilter } from "./filter.mjs";
import { folded } from "./node_set.mjs";
import { sizeOf } from "./node_table.mjs";
import { relatedOf } from "./search.mjs";
import { makeValueStrip } from "./value_strip.mjs";

const MOST_LINKS = 50;
/** In characters: what is copied is whole. */
const LONGEST_NODE_SET = 20000;

export const TYPE_NAMES = { diagnosis: "diagnosis", observation: "observation",
  missing_data: "check without data" };

/** Returns a link to the issues that a filter leaves; `filter` has the fields that are not empty. */
function makeFilterLink(filter, ...children) {
  return make("a", { href: `#${formatFilter({ ...emptyFilter(), ...filter })}` }, ...children);
}

/** Writes all that is known of an issue. */
export class IssueDetail {
  constructor(report, nodes) {
    this.report = report;
    this.nodes = nodes;
  }

  /** Returns the element for the issue at this place. */
  make(place) {
    const issue = this.report.issues[place];
    const entries = make("dl");
    const add = (label, ...children) => {
      if (children.length > 0) {
        entries.append(make("div", {}, make("dt", {}, label), make("dd", { dir: "auto" }, ...children)));
      }
    };
    add("Remedy", ...remedyOf(issue));
    add(countOf(sizeOf(issue.nodes ?? []), "node", "nodes"), ...this.nodesOf(issue));
    add("Now also on", ...makeNodeSet(issue.change === "new" ? undefined : issue.added));
    add("No more on", ...makeNodeSet(issue.healed));
    add("Based on", ...this.linksTo(issue.based_on, place));
    add("Explained by", ...this.linksTo(issue.explained_by, place));
    for (const one of issue.places ?? []) {
      add(one.unit === "" ? "Values" : `Values (${one.unit})`, ...valuesOf(one));
    }
    add("Category", ...textOf(issue.category));
    add(issue.definitions?.length === 1 ? "Definition" : "Definitions", ...this.definitionsOf(issue));
    add("Contributes to FAIL", ...textOf(issue.fails ? "yes" : undefined));
    add("First seen", ...textOf(issue.first_seen));
    add("Database row ids", ...textOf(issue.row_ids?.join(", ")));
    return make("div", { class: "detail" },
      issue.message === undefined ? null
        : make("p", { class: "message", dir: "auto" }, issue.message), entries);
  }

  nodesOf(issue) {
    if (issue.nodes === undefined) {
      return [];
    }
    const set = issue.folded ?? folded(this.nodes.namesIn([issue.nodes]));
    return [...makeNodeSet(set), " ", makeCopyButton("copy", "the node set", () => set), " ",
      makeCopyButton("copy one per line", "nodes",
        () => this.nodes.namesIn([issue.nodes]).join("\n") + "\n")];
  }

  linksTo(numbers = [], place) {
    const known = numbers.filter((number) => number <= this.report.issues.length);
    const links = known.slice(0, MOST_LINKS).map((number) =>
      makeFilterLink({ issue: number }, makeName(this.report.issues[number - 1].id)));
    const parts = joined(links);
    const others = numbers.length - links.length;
    if (others > 0) {
      parts.push(` and ${others.toLocaleString("en")} more`);
    }
    const isLast = relatedOf(this.report.issues[place]).at(-1) === numbers.at(-1);
    if (known.length > 1 && isLast) {
      parts.push(" ", makeFilterLink({ related: place + 1 }, "(show them alone)"));
    }
    return parts;
  }

  definitionsOf(issue) {
    const links = (issue.definitions ?? []).slice(0, MOST_LINKS).map((number) => {
      const definition = this.report.definitions[number];
      return makeFilterLink({ definition }, makeName(definition));
    });
    const others = (issue.definitions ?? []).length - links.length;
    return others > 0 ? [...joined(links), ` and ${others} more`] : joined(links);
  }
}

function textOf(text) {
  return text === undefined ? [] : [text];
}

function makeNodeSet(set) {
  if (set === undefined) {
    return [];
  }
  const text = set.length > LONGEST_NODE_SET ? `${set.slice(0, LONGEST_NODE_SET)}...` : set;
  return [make("code", { class: "nodes", dir: "ltr" }, text)];
}

function joined(elements) {
  return elements.flatMap((element, i) => (i === 0 ? [element] : [", ", element]));
}

/** Returns the texts in quotes of a remedy that stand like words: commands to run. */
function commandsOf(remedy) {
  const quoted = /(?<=^|[\s(])(?:'([^'\n]+)'|"([^"\n]+)"|`([^`\n]+)`)(?=$|[\s).,;:!?])/g;
  return Array.from(remedy.matchAll(quoted), (found) => ({
    command: found[1] ?? found[2] ?? found[3], end: found.index + found[0].length }));
}

function remedyOf(issue) {
  if (issue.remedy === undefined) {
    return [];
  }
  const parts = [];
  let at = 0;
  for (const { command, end } of commandsOf(issue.remedy)) {
    parts.push(issue.remedy.slice(at, end), " ", makeCopyButton("copy", command, () => command));
    at = end;
  }
  return [...parts, issue.remedy.slice(at)];
}

function valuesOf(place) {
  const parts = [];
  if (place.spread !== undefined) {
    parts.push(makeValueStrip(place.spread, place.values[0][0], place.values.at(-1)[0]), " ");
  }
  place.values.forEach(([value, nodes], i) => {
    if (place.left_out > 0 && i === place.values.length / 2) {
      parts.push(`; ${place.left_out.toLocaleString("en")} more between them`);
    }
    parts.push(i === 0 ? "" : "; ", makeName(value));
    if (nodes !== undefined) {
      parts.push(" on ", ...makeNodeSet(nodes));
    }
  });
  return parts;
}

import { makeCopyButton } from "./copying.mjs";
import { countOf, make } from "./elements.mjs";
import { isEmptyFilter } from "./filter.mjs";
import { TYPE_NAMES } from "./issue_detail.mjs";
import { folded } from "./node_set.mjs";

/** A browser shows no longer list of choices in good time. */
const MOST_DEFINITIONS = 2000;

/** What is typed and chosen to find issues, and how many there are. */
export class FilterForm {
  /** `onChange(fields)` is called with the fields of a filter that somebody has changed. */
  constructor(report, nodes, onChange) {
    this.report = report;
    this.nodes = nodes;
    this.onChange = onChange;
    this.found = [];
    this.words = make("input", { type: "search", id: "search", autocomplete: "off",
      spellcheck: "false", input: () => onChange({ words: this.words.value }) });
    this.definition = make("select", { id: "definition",
      change: () => onChange({ definition: this.definition.value }) });
    this.choices = [
      this.makeChoices("Bands", "bands", report.bands.map((band) => [band.class, band.name]),
        (issue) => report.bands[issue.band].class),
      this.makeChoices("Types", "types", Object.entries(TYPE_NAMES), (issue) => issue.type),
      this.makeChoices("Changes", "changes",
        ["new", "worse", "reworded", "same", "better"].map((change) => [change, change]),
        (issue) => issue.change)];
    this.chosen = make("p", { class: "chosen" });
    this.result = make("span", { role: "status" });
    this.element = make("form", { class: "filter", role: "search", "aria-label": "Issues",
      tabindex: -1,
      submit: (event) => event.preventDefault() },
    make("div", {}, make("label", { for: "search" }, "Search in ids, messages and nodes"), this.words),
    ...this.choices.map(({ element }) => element),
    ...this.makeDefinitions(), this.chosen, this.makeResult());
  }

  /** Shows a filter and what it has found. */
  show(filter, found) {
    this.found = found;
    if (this.words.value !== filter.words) {
      this.words.value = filter.words;
    }
    this.showDefinition(filter.definition);
    for (const { field, boxes } of this.choices) {
      boxes.forEach((box) => { box.checked = filter[field].includes(box.value); });
    }
    this.chosen.replaceChildren(...this.makeChosen(filter));
    this.clear.hidden = isEmptyFilter(filter);
    const all = this.report.issues.length;
    const nodeCount = this.nodeNames().length;
    this.result.textContent =
      (found.length === all ? "" : `${found.length.toLocaleString("en")} of `) +
      countOf(all, "issue", "issues") +
      (nodeCount === 0 ? "" : `, on ${countOf(nodeCount, "node", "nodes")}`) +
      (this.report.left_out === 0 ? ""
        : `; ${this.report.left_out.toLocaleString("en")} more are not on this page`);
  }

  /** Changes fields by a button that goes with that: whoever pressed it by keyboard stays in the form. */
  leave(fields) {
    this.onChange(fields);
    this.element.focus({ preventScroll: true });
  }

  nodeNames() {
    return this.nodes.namesIn(this.found.map((place) => this.report.issues[place].nodes ?? []));
  }

  /** Returns the boxes for the values that issues have; none where there would be one alone. */
  makeChoices(legend, field, values, valueOf) {
    const counts = new Map();
    for (const issue of this.report.issues) {
      const value = valueOf(issue);
      counts.set(value, (counts.get(value) ?? 0) + 1);
    }
    const boxes = [];
    const element = make("fieldset", {}, make("legend", {}, legend));
    for (const [value, name] of values.filter(([one]) => counts.has(one))) {
      const box = make("input", { type: "checkbox", value, change: () => this.onChange({
        [field]: boxes.filter((one) => one.checked).map((one) => one.value) }) });
      boxes.push(box);
      element.append(make("label", {}, box, ` ${name} (${counts.get(value).toLocaleString("en")}) `));
    }
    element.hidden = boxes.length < 2;
    return { field, boxes, element };
  }

  makeDefinitions() {
    const { definitions } = this.report;
    if (definitions.length === 0) {
      return [];
    }
    this.definition.append(make("option", { value: "" }, "all"),
      ...[...definitions].sort().slice(0, MOST_DEFINITIONS)
        .map((name) => make("option", { value: name }, name)));
    return [make("div", {}, make("label", { for: "definition" }, "Definition"), this.definition)];
  }

  showDefinition(name) {
    if (name !== "" && ![...this.definition.options].some((option) => option.value === name)) {
      this.definition.append(make("option", { value: name }, name));
    }
    this.definition.value = name;
  }

  makeChosen(filter) {
    const parts = [];
    const add = (text, fields) => parts.push(make("span", { class: "chosen-one" }, text, " ",
      make("button", { type: "button", click: () => this.leave(fields) }, "remove")), " ");
    if (filter.node !== "") {
      add(`node ${filter.node}`, { node: "" });
    }
    if (filter.explained === "no") {
      add("without explanation", { explained: "" });
    }
    if (filter.related !== 0) {
      add(`related to issue ${filter.related}`, { related: 0 });
    }
    return parts;
  }

  makeResult() {
    this.clear = make("button", { type: "button", click: () => this.leave(null) }, "show all");
    return make("p", { class: "result" }, this.result, " ",
      makeCopyButton("copy all their nodes", "as one node set", () => folded(this.nodeNames())), " ",
      makeCopyButton("copy one per line", "all their nodes", () => this.nodeNames().join("\n") + "\n"),
      " ", this.clear);
  }
}

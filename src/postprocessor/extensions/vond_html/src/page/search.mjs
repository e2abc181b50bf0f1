/** Finds issues, 100,000 of them while somebody types. */
export class Search {
  /** `report` has bands, definitions and issues; `nodes` is its NodeTable. */
  constructor(report, nodes) {
    this.report = report;
    this.nodes = nodes;
    this.texts = null;
  }

  /** Does what the first search for a word would have to wait for. */
  prepare() {
    this.nodes.numberOf("");
    this.texts ??= this.report.issues.map(
      (issue) => `${issue.id}\n${issue.message ?? ""}`.toLowerCase());
  }

  /** Returns the places of the issues that a filter leaves, ascending from 0. */
  find(filter) {
    const tests = this.testsOf(filter);
    const found = [];
    for (let i = 0; i < this.report.issues.length; ++i) {
      if (tests.every((test) => test(this.report.issues[i], i))) {
        found.push(i);
      }
    }
    return found;
  }

  testsOf(filter) {
    const tests = [];
    const addChoice = (values, valueOf) => {
      if (values.length > 0) {
        const set = new Set(values);
        tests.push((issue) => set.has(valueOf(issue)));
      }
    };
    addChoice(filter.bands, (issue) => this.report.bands[issue.band].class);
    addChoice(filter.types, (issue) => issue.type);
    addChoice(filter.changes, (issue) => issue.change);
    if (filter.explained === "no") {
      tests.push((issue) => issue.explained_by === undefined);
    }
    if (filter.definition !== "") {
      const number = this.report.definitions.indexOf(filter.definition);
      tests.push((issue) => issue.definitions?.includes(number) ?? false);
    }
    if (filter.related !== 0) {
      const related = new Set(relatedOf(this.report.issues[filter.related - 1]));
      tests.push((_, place) => related.has(place + 1));
    }
    if (filter.node !== "") {
      const number = this.nodes.numberOf(filter.node);
      tests.push(this.testOfNodes(number < 0 ? [] : [number]));
    }
    for (const word of filter.words.split(/\s+/).filter((one) => one !== "")) {
      tests.push(this.testOfWord(word));
    }
    return tests;
  }

  testOfNodes(numbers) {
    const isIn = this.nodes.finderOf(numbers);
    return (issue) => issue.nodes !== undefined && isIn(issue.nodes);
  }

  /** A word is found in the id, in the message, or as a node. */
  testOfWord(word) {
    this.prepare();
    const part = word.toLowerCase();
    const numbers = this.nodes.matching(word);
    const hasNode = this.testOfNodes(numbers);
    return (issue, place) => this.texts[place].includes(part) ||
      (numbers.length > 0 && hasNode(issue));
  }
}

/** Returns the numbers of the issues that one is based on or explained by. */
export function relatedOf(issue) {
  return [...(issue?.based_on ?? []), ...(issue?.explained_by ?? [])];
}

import { termsOf } from "./node_set.mjs";

/**
 * Calls `visit(first, last)` for each range of a list of numbers, in which a number below zero is the end
 * of the range that the number before it begins: [3, -7, 9] is 3 to 7, and 9.
 */
export function forEachRange(ranges, visit) {
  for (let i = 0; i < ranges.length; ++i) {
    const first = ranges[i];
    const isRange = i + 1 < ranges.length && ranges[i + 1] < 0;
    visit(first, isRange ? -ranges[++i] : first);
  }
}

/** Returns how many numbers the ranges have. */
export function sizeOf(ranges) {
  let size = 0;
  forEachRange(ranges, (first, last) => { size += last - first + 1; });
  return size;
}

const MOST_LOOKED_UP = 1000;

/** The nodes of the report, by numbers from 0 in natural order, group behind group. */
export class NodeTable {
  /** Groups have names of `nodes`, and a character of `states` for each of them. */
  constructor(groups) {
    this.groups = groups;
    this.names = groups.flatMap((group) => group.nodes);
    this.states = groups.map((group) => group.states).join("");
    this.numbers = null;
  }

  /** Returns the number of a node, -1 for none of the table. */
  numberOf(name) {
    this.numbers ??= new Map(this.names.map((one, number) => [one, number]));
    return this.numbers.get(name) ?? -1;
  }

  /**
   * Returns the numbers of the nodes that a text means: those of a node set in brackets, the one node of
   * that name, else all whose names contain it.
   */
  matching(text) {
    const exact = termsOf(text).flatMap((term) => this.numbersOf(term));
    if (exact.length > 0) {
      return exact;
    }
    const part = text.toLowerCase();
    return this.numbersWhere((name) => name.toLowerCase().includes(part));
  }

  /** Returns the numbers of the nodes of a NodeTerm, of which a reader may have typed half. */
  numbersOf(term) {
    // A few are looked up; cn[1-99999999] has more names than there is room for.
    return term.size <= MOST_LOOKED_UP
      ? term.names().map((name) => this.numberOf(name)).filter((number) => number >= 0)
      : this.numbersWhere((name) => term.has(name));
  }

  numbersWhere(isWanted) {
    const numbers = [];
    this.names.forEach((name, number) => {
      if (isWanted(name)) {
        numbers.push(number);
      }
    });
    return numbers;
  }

  /** Returns a function that tells whether ranges have one of these numbers, fast for many ranges. */
  finderOf(numbers) {
    // How many of the numbers come before each node.
    const before = new Uint32Array(this.names.length + 1);
    for (const number of numbers) {
      before[number + 1] = 1;
    }
    for (let i = 1; i < before.length; ++i) {
      before[i] += before[i - 1];
    }
    return (ranges) => {
      let isFound = false;
      forEachRange(ranges, (first, last) => { isFound ||= before[last + 1] > before[first]; });
      return isFound;
    };
  }

  /** Returns how many of the lists of ranges have each node. */
  countIn(lists) {
    // First how many ranges begin at a node, less those that end before it.
    const counts = new Int32Array(this.names.length + 1);
    for (const ranges of lists) {
      forEachRange(ranges, (first, last) => {
        ++counts[first];
        --counts[last + 1];
      });
    }
    for (let i = 1; i < counts.length; ++i) {
      counts[i] += counts[i - 1];
    }
    return counts;
  }

  /** Returns the names of all nodes in some lists of ranges, each once, in the order of the table. */
  namesIn(lists) {
    const counts = this.countIn(lists);
    return this.names.filter((_, number) => counts[number] > 0);
  }
}

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
    const exact = expanded(text).map((name) => this.numberOf(name)).filter((number) => number >= 0);
    if (exact.length > 0) {
      return exact;
    }
    const part = text.toLowerCase();
    const numbers = [];
    this.names.forEach((name, number) => {
      if (name.toLowerCase().includes(part)) {
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

const MOST_EXPANDED = 100000;

/** Returns the names of a node set such as cn[001-003,7]-ib or a,b; a text without brackets is a name. */
export function expanded(text) {
  const names = [];
  for (const part of text.match(/(?:[^,[]|\[[^\]]*\]?)+/g) ?? []) {
    const found = /^([^[]*)\[([\d,-]+)\]([^[]*)$/.exec(part);
    if (found === null) {
      names.push(part);
      continue;
    }
    for (const range of found[2].split(",")) {
      const [first, last = first] = range.split("-");
      for (let i = Number(first); i <= Number(last) && names.length < MOST_EXPANDED; ++i) {
        names.push(found[1] + String(i).padStart(first.length, "0") + found[3]);
      }
    }
  }
  return names;
}

/** Returns the names as one node set, their last numbers in brackets: cn[001-003,007],login1. */
export function folded(names) {
  const sets = new Map();
  for (const name of names) {
    const [, prefix, number, suffix] = /^(.*?)(\d*)(\D*)$/s.exec(name);
    const key = JSON.stringify([prefix, suffix]);
    if (!sets.has(key)) {
      sets.set(key, { prefix, suffix, numbers: [] });
    }
    sets.get(key).numbers.push(number);
  }
  return Array.from(sets.values(), foldedSet).join(",");
}

function foldedSet({ prefix, suffix, numbers }) {
  // Where there are zeros before numbers, those of a bracket are equally wide.
  const isPadded = numbers.some((number) => number.length > 1 && number.startsWith("0"));
  const brackets = isPadded ? groupedByWidth(numbers) : [numbers];
  return brackets.map((bracket) => prefix + foldedNumbers(bracket) + suffix).join(",");
}

function groupedByWidth(numbers) {
  const groups = new Map();
  for (const number of numbers) {
    if (!groups.has(number.length)) {
      groups.set(number.length, []);
    }
    groups.get(number.length).push(number);
  }
  return [...groups.values()];
}

function foldedNumbers(numbers) {
  const ranges = [];
  for (const number of numbers) {
    const range = ranges.at(-1);
    if (range !== undefined && number === successorOf(range.last)) {
      range.last = number;
    } else {
      ranges.push({ first: number, last: number });
    }
  }
  if (ranges.length === 1 && ranges[0].first === ranges[0].last) {
    return ranges[0].first;
  }
  const texts = ranges.map(({ first, last }) => (first === last ? first : `${first}-${last}`));
  return `[${texts.join(",")}]`;
}

/** Returns the number behind this one, as wide. Numbers of names may have any size. */
function successorOf(number) {
  return String(BigInt(number) + 1n).padStart(number.length, "0");
}

/** One term of a node set: a name, or r[1-2]cn[001-003,7]-ib for all names with these numbers. */
class NodeTerm {
  constructor(text) {
    // Texts, and between them what is in brackets.
    const parts = text.split(/\[([\d,-]+)\]/);
    this.texts = parts.filter((_, i) => i % 2 === 0);
    this.brackets = parts.filter((_, i) => i % 2 === 1).map(rangesOf);
  }

  /** How many names it has; not exact above 2^53. */
  get size() {
    return this.brackets.reduce((size, ranges) =>
      size * ranges.reduce((sum, range) => sum + countOfRange(range), 0), 1);
  }

  /** Returns all its names. */
  names() {
    let names = [this.texts[0]];
    this.brackets.forEach((ranges, i) => {
      const ends = ranges.flatMap(numbersOf).map((number) => number + this.texts[i + 1]);
      names = names.flatMap((name) => ends.map((end) => name + end));
    });
    return names;
  }

  /** Whether it has a name. */
  has(name) {
    this.pattern ??= new RegExp(`^${this.texts.map(escaped).join("(\\d+)")}$`);
    const numbers = this.pattern.exec(name)?.slice(1);
    return numbers?.every((number, i) => this.brackets[i].some((range) => isIn(range, number))) ?? false;
  }
}

/** Returns the terms of a node set such as cn[001-003],login1; what is no set is a name. */
export function termsOf(text) {
  return Array.from(text.match(/(?:[^,[]|\[[^\]]*\]?)+/g) ?? [], (term) => new NodeTerm(term));
}

/** Returns the ranges of 001-003,7, their ends as wide as they stand in names. */
function rangesOf(text) {
  return text.split(",").map((range) => range.split("-")).filter(([first]) => first !== "")
    .map(([first, last]) => ({ first,
      last: (last || first).replace(/^0+(?=\d)/, "").padStart(first.length, "0") }));
}

/** Returns how many numbers a range has. Numbers of names may have any size. */
function countOfRange({ first, last }) {
  return Math.max(Number(BigInt(last) - BigInt(first)) + 1, 0);
}

/** Returns the numbers of a range as they stand in names: those of 08-10 are 08, 09 and 10. */
function numbersOf({ first, last }) {
  const numbers = [];
  for (let number = BigInt(first); number <= BigInt(last); ++number) {
    numbers.push(String(number).padStart(first.length, "0"));
  }
  return numbers;
}

/** Whether a number of a name is in a range: of two without zeros before them the longer one is greater. */
function isIn({ first, last }, number) {
  const isAtMost = (left, right) =>
    left.length < right.length || (left.length === right.length && left <= right);
  return (number.length === first.length || !number.startsWith("0")) &&
    isAtMost(first, number) && isAtMost(number, last);
}

function escaped(text) {
  return text.replace(/[\\^$.*+?()[\]{}|]/g, "\\$&");
}

/**
 * Returns the names as one node set, their last numbers in brackets: cn[001-003,007],login1. Names that
 * would do something when a shell reads them stand behind the others, in its quotes.
 */
export function folded(names) {
  const sets = new Map();
  for (const name of names.filter(isHarmless)) {
    const [, prefix, number, suffix] = /^(.*?)(\d*)(\D*)$/.exec(name);
    // A name without a number is no member of a bracket.
    const key = number === "" ? name : JSON.stringify([prefix, suffix]);
    if (!sets.has(key)) {
      sets.set(key, { prefix, suffix, numbers: [] });
    }
    sets.get(key).numbers.push(number);
  }
  const quoted = names.filter((name) => !isHarmless(name)).sort().map(inQuotes);
  return [...Array.from(sets.values(), foldedSet), ...quoted].join(",");
}

/** Whether neither a shell nor a reader of node sets takes anything in a name for more than its letter. */
function isHarmless(name) {
  return /^[\w.:+=%][\w.:+=%-]*$/.test(name);
}

function inQuotes(name) {
  return `'${name.replaceAll("'", "'\\''")}'`;
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

import { countOf, make, makeBandMark, makeName } from "./elements.mjs";
import { movedByKey } from "./keys.mjs";
import { TYPE_NAMES } from "./issue_detail.mjs";
import { sizeOf } from "./node_table.mjs";

/** In `rem`: from a row to the next. The style has less for `.row > .line`, so that they stand apart. */
const ROW_HEIGHT = 3.5;
/** In pixels: of what is drawn above and below the window. */
const MARGIN = 400;

/**
 * A list of issues of any length, of which the rows near the window alone are in the document. One row at
 * most is open and shows all that is known of its issue.
 */
export class IssueList {
  /** `onToggle(place)` is called when a row is to be opened or closed; see show(). */
  constructor(report, detail, onToggle) {
    this.report = report;
    this.detail = detail;
    this.onToggle = onToggle;
    /** Places of the issues that are shown. */
    this.places = [];
    /** Rows are counted from 0 through what is shown; -1 for none. */
    this.openRow = -1;
    this.activeRow = 0;
    this.openHeight = 0;
    this.rows = new Map();
    this.element = make("div", { class: "list", role: "list", "aria-label": "Issues",
      keydown: (event) => this.handleKey(event) });
    this.resized = new ResizeObserver(() => this.measure());
    this.isDrawing = false;
    /** Where the row that is read stood in the window when the page was this wide. */
    this.anchor = { row: -1, top: 0, width: 0 };
    window.addEventListener("scroll", () => this.drawSoon(), { passive: true });
    window.addEventListener("resize", () => this.draw());
  }

  /** Shows these issues, one of them open; `openPlace` is -1 for none. */
  show(places, openPlace) {
    const hasFocus = this.element.contains(document.activeElement);
    const top = this.topInWindow(this.activeRow);
    const activePlace = this.places[this.activeRow];
    this.places = places;
    this.openRow = places.indexOf(openPlace);
    this.activeRow = this.openRow >= 0 ? this.openRow : Math.max(places.indexOf(activePlace), 0);
    this.openHeight = 0;
    this.resized.disconnect();
    this.rows.forEach((row) => row.remove());
    this.rows.clear();
    this.draw();
    if (hasFocus && places.length > 0) {
      // What somebody has pressed stays where it is, even when something above it closes.
      window.scrollBy(0, this.topInWindow(this.activeRow) - top);
      this.draw();
      this.lineOf(this.activeRow).focus({ preventScroll: true });
    }
  }

  /** Returns the button of a row that is in the document. */
  lineOf(row) {
    return this.rows.get(row).firstChild;
  }

  /** Brings the open row to the top of the window. Returns whether there is one. */
  revealOpen() {
    if (this.openRow < 0) {
      return false;
    }
    window.scrollBy(0, this.topInWindow(this.openRow) - this.rowHeight);
    this.draw();
    this.lineOf(this.openRow).focus({ preventScroll: true });
    return true;
  }

  get rowHeight() {
    return ROW_HEIGHT * Number.parseFloat(getComputedStyle(document.documentElement).fontSize);
  }

  topOf(row) {
    return row * this.rowHeight + (this.openRow >= 0 && row > this.openRow ? this.openHeight : 0);
  }

  topInWindow(row) {
    return this.element.getBoundingClientRect().top + this.topOf(row);
  }

  rowAt(y) {
    const row = Math.floor(y / this.rowHeight);
    if (this.openRow < 0 || row <= this.openRow) {
      return row;
    }
    return Math.max(this.openRow, Math.floor((y - this.openHeight) / this.rowHeight));
  }

  /** Keeps what is read where it is when a window of another width makes the page above it longer. */
  keepPlace() {
    const { row, top, width } = this.anchor;
    if (row >= 0 && width !== document.documentElement.clientWidth) {
      window.scrollBy(0, this.topInWindow(row) - top);
    }
  }

  /** Remembers the open row where it can be seen, else the first one at the top of the window. */
  rememberPlace() {
    const listTop = this.element.getBoundingClientRect().top;
    const isInWindow = (row) => row >= 0 && row < this.places.length &&
      this.topInWindow(row) >= 0 && this.topInWindow(row) < window.innerHeight;
    const row = [this.openRow, listTop < this.rowHeight ? this.rowAt(Math.max(-listTop, 0)) + 1 : -1]
      .find(isInWindow) ?? -1;
    this.anchor = { row, top: row < 0 ? 0 : this.topInWindow(row),
      width: document.documentElement.clientWidth };
  }

  drawSoon() {
    if (!this.isDrawing) {
      this.isDrawing = true;
      requestAnimationFrame(() => {
        this.isDrawing = false;
        this.draw();
      });
    }
  }

  draw() {
    this.element.style.height = `${this.topOf(this.places.length)}px`;
    this.keepPlace();
    const top = -this.element.getBoundingClientRect().top;
    const first = Math.max(this.rowAt(top - MARGIN), 0);
    const last = Math.min(this.rowAt(top + window.innerHeight + MARGIN), this.places.length - 1);
    const wanted = new Set();
    for (let row = first; row <= last; ++row) {
      wanted.add(row);
    }
    // The row that has the focus, and the one to which the tab key comes back.
    if (this.places.length > 0) {
      wanted.add(this.activeRow);
    }
    this.rows.forEach((element, row) => {
      if (!wanted.has(row)) {
        element.remove();
        this.rows.delete(row);
      }
    });
    this.addRows([...wanted].sort((left, right) => left - right));
    this.rows.forEach((element, row) => { element.style.top = `${this.topOf(row)}px`; });
    this.rememberPlace();
  }

  /** Adds the rows that are not there yet, so that those who hear the page hear them in their order. */
  addRows(wanted) {
    let next = null;
    for (const row of wanted.reverse()) {
      if (!this.rows.has(row)) {
        this.rows.set(row, this.makeRow(row));
        this.element.insertBefore(this.rows.get(row), next);
        if (row === this.openRow) {
          this.resized.observe(this.rows.get(row).lastChild);
          this.measure();
        }
      }
      next = this.rows.get(row);
    }
  }

  measure() {
    const height = this.rows.get(this.openRow)?.lastChild.offsetHeight ?? this.openHeight;
    if (height !== this.openHeight) {
      this.openHeight = height;
      this.drawSoon();
    }
  }

  makeRow(row) {
    const place = this.places[row];
    const issue = this.report.issues[place];
    const band = this.report.bands[issue.band];
    const isOpen = row === this.openRow;
    const nodes = sizeOf(issue.nodes ?? []);
    const line = make("button", { type: "button", class: "line", "aria-expanded": String(isOpen),
      tabindex: row === this.activeRow ? 0 : -1, click: () => this.onToggle(place),
      focus: () => this.activate(row) },
    make("span", { class: "title" },
      `${(place + 1).toLocaleString("en")}. `, makeBandMark(band), " ",
      make("b", {}, makeName(issue.id)), " ",
      make("span", { class: "type" }, TYPE_NAMES[issue.type]), " ",
      issue.change === undefined || issue.change === "same" ? null
        : make("span", { class: "change" }, issue.change),
      " ", make("span", { class: "count-of-nodes" },
        nodes === 0 ? "" : countOf(nodes, "node", "nodes"))),
    make("span", { class: "gist", dir: "auto" }, issue.message?.slice(0, 300) ?? ""));
    return make("div", { class: `row ${band.class}`, role: "listitem",
      "aria-posinset": row + 1, "aria-setsize": this.places.length },
    line, isOpen ? this.detail.make(place) : null);
  }

  activate(row) {
    this.rows.get(this.activeRow)?.firstChild.setAttribute("tabindex", -1);
    this.activeRow = row;
    this.rows.get(row)?.firstChild.setAttribute("tabindex", 0);
  }

  handleKey(event) {
    const isRow = event.target.classList.contains("line");
    const page = Math.max(Math.floor(window.innerHeight / this.rowHeight) - 2, 1);
    const steps = { ArrowDown: 1, ArrowUp: -1, PageDown: page, PageUp: -page };
    const row = isRow ? movedByKey(event, this.activeRow, this.places.length, steps) : null;
    if (row !== null) {
      event.preventDefault();
      this.focusRow(row);
    } else if (event.key === "Escape" && this.openRow >= 0) {
      event.preventDefault();
      this.onToggle(this.places[this.openRow]);
    }
  }

  focusRow(row) {
    this.activate(row);
    this.draw();
    this.lineOf(row).focus({ preventScroll: true });
    const { top, bottom } = this.lineOf(row).getBoundingClientRect();
    if (top < this.rowHeight || bottom > window.innerHeight) {
      window.scrollBy(0, top < this.rowHeight ? top - this.rowHeight : bottom - window.innerHeight);
      this.draw();
    }
  }
}

import { make } from "./elements.mjs";
import { ALL_ISSUES, emptyFilter, formatFilter, parseFilter } from "./filter.mjs";
import { FilterForm } from "./filter_form.mjs";
import { IssueDetail } from "./issue_detail.mjs";
import { IssueList } from "./issue_list.mjs";
import { NodeMap } from "./node_map.mjs";
import { NodeTable } from "./node_table.mjs";
import { Search } from "./search.mjs";

/** The address says what is shown: it is read when it changes, and written when somebody chooses. */
class Page {
  constructor(report) {
    this.nodes = new NodeTable(report.groups);
    this.search = new Search(report, this.nodes);
    this.filter = emptyFilter();
    /** The timer that writes the address; 0 when that is done. */
    this.writing = 0;
    this.form = new FilterForm(report, this.nodes, (fields) => this.choose(fields ?? emptyFilter()));
    this.list = new IssueList(report, new IssueDetail(report, this.nodes),
      (place) => this.choose({ issue: this.filter.issue === place + 1 ? 0 : place + 1 }));
    if (report.issues.length > 0) {
      document.getElementById("issues").append(this.form.element, this.list.element);
    }
    if (NodeMap.canShow(this.nodes)) {
      const map = new NodeMap(report, this.nodes, (name) => this.showNode(name));
      document.getElementById("nodes").append(map.help, map.element);
    } else {
      // What the page itself says in place of the cells.
      document.querySelector("#nodes > p.static")?.classList.remove("static");
    }
    upgradeLinks();
    forgetPlaces();
    document.documentElement.classList.add("scripted");
    window.addEventListener("hashchange", () => this.readAddress());
    document.addEventListener("click", (event) => this.leaveBy(event.target.closest("a")));
    this.show();
    this.readAddress();
    // When the page has been drawn.
    setTimeout(() => this.search.prepare(), 500);
  }

  /** Shows what the address asks for; the name of another place on the page changes nothing. */
  readAddress() {
    const filter = parseFilter(window.location.hash.slice(1));
    if (filter === null) {
      return;
    }
    const isSame = formatFilter(filter) === formatFilter(this.filter);
    this.filter = filter;
    if (!isSame) {
      this.show();
    }
    if (!this.list.revealOpen() && formatFilter(filter) !== "") {
      this.form.element.scrollIntoView();
    }
  }

  /** Sees to it that a link, null for none, leads there and from there back to what is shown now. */
  leaveBy(link) {
    if (link === null) {
      return;
    }
    if (this.writing !== 0) {
      this.writeAddress();
    }
    // Of a link to what the address has already browsers tell nothing.
    if (link.hash === window.location.hash) {
      this.readAddress();
    }
  }

  /** Changes fields of the filter. */
  choose(fields) {
    this.filter = { ...this.filter, ...fields };
    const shown = this.list.element.getBoundingClientRect().top;
    this.show();
    if (fields.issue === undefined && shown < 0) {
      this.form.element.scrollIntoView();
    }
    this.writeAddressSoon();
  }

  showNode(name) {
    this.choose({ ...emptyFilter(), node: name });
    this.form.element.scrollIntoView();
  }

  show() {
    const found = this.search.find(this.filter);
    this.form.show(this.filter, found);
    this.list.show(found, this.filter.issue - 1);
  }

  /** Browsers count how often an address changes, and somebody may still be typing. */
  writeAddressSoon() {
    const DELAY_MS = 300;
    clearTimeout(this.writing);
    this.writing = setTimeout(() => this.writeAddress(), DELAY_MS);
  }

  writeAddress() {
    clearTimeout(this.writing);
    this.writing = 0;
    window.history.replaceState(null, "", `#${formatFilter(this.filter) || ALL_ISSUES}`);
  }
}

/** Makes links of the texts that tell which issues they count. */
function upgradeLinks() {
  for (const text of document.querySelectorAll("[data-filter]")) {
    const href = `#${text.dataset.filter}`;
    if (text.tagName === "A") {
      text.setAttribute("href", href);
    } else {
      text.replaceWith(make("a", { class: text.className || null, href }, ...text.childNodes));
    }
  }
}

/** Lets browsers look for no issue in what is hidden now, for that takes the focus from the list. */
function forgetPlaces() {
  for (const place of document.querySelectorAll(".static [id]")) {
    place.removeAttribute("id");
  }
}

new Page(JSON.parse(document.getElementById("data").textContent));

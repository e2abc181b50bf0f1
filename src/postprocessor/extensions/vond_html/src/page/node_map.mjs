import { countOf, make } from "./elements.mjs";
import { movedByKey } from "./keys.mjs";
import { cellSize, LABEL_HEIGHT, layOut, nodeAt, placeOf } from "./node_layout.mjs";

/** A browser has no room to draw more in good time. */
const MOST_NODES = 200000;
/** What the states say of nodes without issues. */
const WORDS = { "+": "acknowledged", "-": "clean", "?": "not examined" };
/** In pixels: no browser draws a higher picture. */
const HIGHEST = 16000;

/**
 * A picture of all nodes, a cell each, whose colour and shape tell the worst band. A button that is as large
 * as a cell lies above the picture: with it, keys move from node to node, and those who do not see the
 * picture hear of each.
 */
export class NodeMap {
  /** `onChoose(name)` is called when somebody chooses a node. */
  constructor(report, nodes, onChoose) {
    this.report = report;
    this.nodes = nodes;
    this.counts = nodes.countIn(report.issues.map((issue) => issue.nodes ?? []));
    this.current = 0;
    this.canvas = make("canvas", { "aria-hidden": "true" });
    this.button = make("button", { type: "button", class: "cell-button", "aria-describedby": "map-help",
      click: () => onChoose(nodes.names[this.current]), keydown: (event) => this.handleKey(event),
      focus: () => this.move(this.current), blur: () => { this.tip.hidden = true; } });
    this.tip = make("div", { class: "tip", hidden: true, role: "status" });
    this.element = make("div", { class: "map",
      mousemove: (event) => this.point(event), mouseleave: () => { this.tip.hidden = true; },
      click: (event) => this.choose(event, onChoose) },
    this.canvas, this.button, this.tip);
    this.help = make("p", { class: "help", id: "map-help" },
      "Every cell is a node; arrow keys move from one to the next. A click or Enter shows its issues.");
    new ResizeObserver(() => this.draw()).observe(this.element);
    for (const query of ["(prefers-color-scheme: dark)", "print"]) {
      window.matchMedia(query).addEventListener("change", () => this.draw());
    }
  }

  static canShow(nodes) {
    return nodes.names.length > 0 && nodes.names.length <= MOST_NODES;
  }

  /** Returns "cn001: CRITICAL, not examined, 3 issues". */
  textOf(node) {
    const state = this.stateOf(node);
    const words = [state.band?.name ?? state.word];
    if (state.band !== undefined && !state.isExamined) {
      words.push("not examined");
    }
    if (this.counts[node] > 0) {
      words.push(countOf(this.counts[node], "issue", "issues"));
    }
    return `${this.nodes.names[node]}: ${words.join(", ")}`;
  }

  stateOf(node) {
    const state = this.nodes.states[node];
    const word = WORDS[state];
    if (word !== undefined) {
      return { isExamined: state !== "?", isAcknowledged: state === "+", word };
    }
    const isExamined = state >= "0" && state <= "9";
    const index = state.charCodeAt(0) - (isExamined ? "0" : "A").charCodeAt(0);
    return { isExamined, band: this.report.bands[index] };
  }

  draw() {
    const width = this.element.clientWidth;
    if (width === 0) {
      return;
    }
    this.layout = layOut(this.nodes.groups.map((group) => group.nodes.length), width,
      cellSize(this.nodes.names.length));
    const { height } = this.layout;
    const scale = Math.min(window.devicePixelRatio, HIGHEST / height);
    this.canvas.width = Math.floor(width * scale);
    this.canvas.height = Math.floor(height * scale);
    this.canvas.style.height = `${height}px`;
    this.element.style.height = `${height}px`;
    const context = this.canvas.getContext("2d");
    context.scale(scale, scale);
    this.drawLabels(context);
    this.drawCells(context, scale);
    this.placeButton();
  }

  drawLabels(context) {
    const style = getComputedStyle(this.element);
    context.fillStyle = style.getPropertyValue("--quiet");
    context.font = `13px ${style.fontFamily}`;
    context.textBaseline = "top";
    this.layout.blocks.forEach((block, i) => {
      const { name } = this.nodes.groups[i];
      const text = name === "" ? "others" : name;
      const isShort = context.measureText(text).width <= block.width;
      context.fillText(isShort ? text : `${text.slice(0, Math.floor(block.width / 9))}…`,
        block.x, block.y - LABEL_HEIGHT + 1);
    });
  }

  drawCells(context, scale) {
    const pictures = new Map();
    const { cell, inner } = this.layout;
    for (const block of this.layout.blocks) {
      for (let index = 0; index < block.count; ++index) {
        const state = this.nodes.states[block.first + index];
        if (!pictures.has(state)) {
          pictures.set(state, this.makePicture(block.first + index, scale));
        }
        context.drawImage(pictures.get(state), block.x + (index % block.columns) * cell,
          block.y + Math.floor(index / block.columns) * cell, inner, inner);
      }
    }
  }

  /** Returns how all cells of one state look. */
  makePicture(node, scale) {
    const { inner } = this.layout;
    const { isExamined, isAcknowledged, band } = this.stateOf(node);
    const picture = make("canvas", { width: Math.ceil(inner * scale), height: Math.ceil(inner * scale) });
    const context = picture.getContext("2d");
    const style = getComputedStyle(this.element);
    const color = (name) => style.getPropertyValue(`--${name}`);
    context.scale(picture.width / inner, picture.height / inner);
    context.fillStyle = color("sheet");
    context.fillRect(0, 0, inner, inner);
    if (!isExamined) {
      drawHatches(context, inner, color("quiet"));
    }
    if (band !== undefined) {
      drawShape(context, inner, band.class, color(band.class));
    } else if (isExamined) {
      // What is healthy steps back behind what is not.
      context.globalAlpha = 0.5;
      context.strokeStyle = color(isAcknowledged ? "quiet" : "pass");
      context.strokeRect(0.5, 0.5, inner - 1, inner - 1);
      if (isAcknowledged) {
        context.fillStyle = color("quiet");
        context.fillRect(0, 0, inner / 2, inner);
      }
    }
    return picture;
  }

  placeButton() {
    const { x, y } = placeOf(this.layout, this.current);
    const { inner } = this.layout;
    Object.assign(this.button.style,
      { left: `${x}px`, top: `${y}px`, width: `${inner}px`, height: `${inner}px` });
    this.button.setAttribute("aria-label", this.textOf(this.current));
  }

  showTip(node) {
    const { x, y } = placeOf(this.layout, node);
    this.tip.textContent = this.textOf(node);
    this.tip.hidden = false;
    const room = this.element.clientWidth - this.tip.offsetWidth;
    Object.assign(this.tip.style,
      { left: `${Math.max(Math.min(x, room), 0)}px`, top: `${y + this.layout.cell + 6}px` });
  }

  move(node) {
    this.current = node;
    this.placeButton();
    this.showTip(node);
    this.button.scrollIntoView({ block: "nearest" });
  }

  nodeUnder(event) {
    const { left, top } = this.canvas.getBoundingClientRect();
    return nodeAt(this.layout, event.clientX - left, event.clientY - top);
  }

  point(event) {
    const node = this.nodeUnder(event);
    if (node < 0) {
      this.tip.hidden = true;
    } else {
      this.showTip(node);
    }
  }

  choose(event, onChoose) {
    const node = event.target === this.button ? -1 : this.nodeUnder(event);
    if (node >= 0) {
      this.current = node;
      this.placeButton();
      onChoose(this.nodes.names[node]);
    }
  }

  handleKey(event) {
    const { columns } = placeOf(this.layout, this.current);
    const steps = { ArrowRight: 1, ArrowLeft: -1, ArrowDown: columns, ArrowUp: -columns };
    const node = movedByKey(event, this.current, this.nodes.names.length, steps);
    if (node !== null) {
      event.preventDefault();
      this.move(node);
    }
  }
}

/** What nobody looked at is hatched: it looks like nothing that was. */
function drawHatches(context, size, color) {
  context.strokeStyle = color;
  context.lineWidth = 1;
  context.beginPath();
  for (let x = -size; x < size; x += Math.max(size / 4, 2.5)) {
    context.moveTo(x, size);
    context.lineTo(x + size, 0);
  }
  context.stroke();
}

/** A diamond, a triangle or a circle, as large as the cell. */
function drawShape(context, size, name, color) {
  const middle = size / 2;
  context.fillStyle = color;
  context.beginPath();
  if (name === "critical") {
    [[middle, 0], [size, middle], [middle, size], [0, middle]].forEach((at) => context.lineTo(...at));
  } else if (name === "warning") {
    [[middle, 0], [size, size], [0, size]].forEach((at) => context.lineTo(...at));
  } else {
    context.arc(middle, middle, middle * 0.8, 0, 2 * Math.PI);
  }
  context.fill();
}

/** In pixels: between cells, between blocks, and of the line that has a block's name. */
const CELL_GAP = 1;
const BLOCK_GAP = 16;
export const LABEL_HEIGHT = 18;
/** A block with more nodes is as wide as the page. */
const MOST_IN_SMALL_BLOCK = 300;
const LEAST_BLOCK_WIDTH = 72;

/** Returns the width and height of a cell in pixels, with the gap behind it. */
export function cellSize(nodes) {
  return [[500, 20], [4000, 14], [20000, 10]].find(([most]) => nodes <= most)?.[1] ?? 6;
}

/**
 * Returns where the cells of nodes are: blocks with `x` and `y` of the first cell, `width`, `columns`, the
 * number of their `first` node and their `count`, and the `height` of all. `counts` has how many nodes each
 * block has, `width` is that of the page.
 */
export function layOut(counts, width, cell) {
  const blocks = [];
  let [x, y, rowHeight, first] = [0, 0, 0, 0];
  for (const count of counts) {
    const isSmall = count <= MOST_IN_SMALL_BLOCK;
    const wanted = Math.max(isSmall ? Math.ceil(Math.sqrt(2 * count)) * cell : width, LEAST_BLOCK_WIDTH);
    const columns = Math.max(Math.floor(Math.min(wanted, width) / cell), 1);
    const blockWidth = columns * cell;
    if (x > 0 && x + blockWidth > width) {
      [x, y, rowHeight] = [0, y + rowHeight + BLOCK_GAP / 2, 0];
    }
    blocks.push({ x, y: y + LABEL_HEIGHT, width: blockWidth, columns, first, count });
    rowHeight = Math.max(rowHeight, LABEL_HEIGHT + Math.ceil(count / columns) * cell);
    x += blockWidth + BLOCK_GAP;
    first += count;
  }
  return { blocks, height: y + rowHeight, cell, inner: cell - CELL_GAP };
}

/** Returns where the cell of a node is, or null for none. */
export function placeOf({ blocks, cell }, node) {
  const block = blocks.find(({ first, count }) => node >= first && node < first + count);
  if (block === undefined) {
    return null;
  }
  const index = node - block.first;
  return { x: block.x + (index % block.columns) * cell,
    y: block.y + Math.floor(index / block.columns) * cell, columns: block.columns };
}

/** Returns the number of the node whose cell has a point, -1 for none. */
export function nodeAt({ blocks, cell }, x, y) {
  for (const block of blocks) {
    const column = Math.floor((x - block.x) / cell);
    const row = Math.floor((y - block.y) / cell);
    const index = row * block.columns + column;
    if (column >= 0 && column < block.columns && row >= 0 && index < block.count) {
      return block.first + index;
    }
  }
  return -1;
}

import { makeSvg } from "./elements.mjs";

const BAR_WIDTH = 6;
const BAR_GAP = 1;
const STRIP_HEIGHT = 28;

/**
 * Returns a small picture of how values spread: a bar for each part of what lies between the least and the
 * greatest, whose height tells how many nodes have such a value.
 */
export function makeValueStrip(spread, least, greatest) {
  const most = Math.max(...spread);
  const bars = spread.map((count, part) => {
    // One among many is still to be seen.
    const height = count === 0 ? 0 : Math.max(3, (count / most) * STRIP_HEIGHT);
    return makeSvg("rect", { x: part * (BAR_WIDTH + BAR_GAP), y: STRIP_HEIGHT - height, width: BAR_WIDTH, height });
  });
  const width = spread.length * (BAR_WIDTH + BAR_GAP) - BAR_GAP;
  return makeSvg("svg", { class: "spread", role: "img", width, height: STRIP_HEIGHT + 2,
    viewBox: `0 0 ${width} ${STRIP_HEIGHT + 2}`,
    "aria-label": `Values between ${least} and ${greatest}, ${most} nodes at most in one of ${spread.length} parts` },
  ...bars, makeSvg("rect", { class: "base", x: 0, y: STRIP_HEIGHT, width, height: 1 }));
}

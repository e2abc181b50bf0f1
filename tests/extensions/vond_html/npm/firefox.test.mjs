// The page in Firefox. VOND_PAGES is the folder of the pages, VOND_NPM that of the modules.
import assert from "node:assert/strict";
import { createRequire } from "node:module";
import { pathToFileURL } from "node:url";
import { after, before, beforeEach, test } from "node:test";

const puppeteer = createRequire(`${process.env.VOND_NPM}/`)("puppeteer-core");
let browser;
let page;
let messages;

before(async () => {
  browser = await puppeteer.launch({ browser: "firefox", executablePath: "/usr/bin/firefox-esr" });
});
after(() => browser.close());
beforeEach(async () => {
  await page?.close();
  page = await browser.newPage();
  messages = [];
  page.on("console", (message) => messages.push(message.text()));
  page.on("pageerror", (error) => messages.push(String(error)));
});

async function open(name, fragment = "") {
  await page.goto(`${pathToFileURL(process.env.VOND_PAGES)}/${name}.html${fragment}`);
}

const textOf = (selector) => page.$eval(selector, (element) => element.textContent);
const titles = () => page.$$eval(".title", (all) => all.map((one) => one.textContent));

test("opens from disk without a message", async () => {
  for (const name of ["example", "nothing", "hostile", "many", "nodes"]) {
    await open(name);
    assert.equal(await page.$eval("html", (element) => element.className), "scripted");
    assert.match(await textOf("footer"), /End of report\./);
  }
  assert.deepEqual(messages, []);
});

test("finds what is typed, and the address holds it", async () => {
  await open("example");
  await page.type("#search", "dimm");
  await page.waitForFunction(() => window.location.hash.includes("q=dimm"));
  const found = await titles();
  assert.ok(found.length > 1 && found.length < 20);
  const { hash } = new URL(page.url());
  await open("nothing");
  await open("example", hash);
  assert.deepEqual(await titles(), found);
});

test("opens the issue that a link names among thousands", async () => {
  await open("many", "#issue-2500");
  assert.match(await page.evaluate(() => document.activeElement.textContent), /^2,500\. /);
  assert.ok((await page.$$(".row")).length < 60);
  assert.match(await textOf(".detail"), /It is broken\./);
});

test("keys go through the list", async () => {
  await open("many", "#issue-1");
  await page.keyboard.press("Escape");
  await page.keyboard.press("End");
  assert.match(await page.evaluate(() => document.activeElement.textContent), /^3,000\. /);
  await page.keyboard.press("Enter");
  assert.match(await textOf(".detail"), /It is broken\./);
});

test("buttons copy or say that they cannot", async () => {
  await open("example", "#issue-1");
  const button = await page.$(".detail button");
  const label = await button.evaluate((element) => element.firstChild.textContent);
  await button.click();
  await page.waitForFunction((element, before) => element.firstChild.textContent !== before, {},
    button, label);
  const said = await button.evaluate((element) => element.firstChild.textContent);
  assert.match(said, /^copied$/);
});

test("keys go through the nodes", async () => {
  await open("example");
  await page.focus(".cell-button");
  await page.keyboard.press("ArrowRight");
  const label = await page.$eval(".cell-button", (element) => element.getAttribute("aria-label"));
  assert.match(label, /^cn002: /);
  await page.keyboard.press("Enter");
  assert.match(await textOf(".chosen"), /node cn002/);
});

test("has room on a phone", async () => {
  await page.setViewport({ width: 320, height: 640 });
  for (const name of ["example", "hostile", "many"]) {
    await open(name, "#issue-1");
    assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= window.innerWidth));
  }
});

test("hostile texts are texts", async () => {
  await open("hostile");
  for (let number = 1; number <= 10; ++number) {
    await open("hostile", `#issue-${number}`);
    assert.equal((await page.$$("script")).length, 2);
    assert.equal((await page.$$("img, iframe, object, embed")).length, 0);
  }
  assert.deepEqual(messages, []);
});

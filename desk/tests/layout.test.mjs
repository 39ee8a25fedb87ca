// Each view at the widths of telephones, tablets and of a page that is twice as large: nothing is cut. And the focus stays
// where it is when a part of the page is drawn anew.

import assert from "node:assert/strict";
import { test } from "node:test";
import { choose, enter, idle, pressButton, testDesks, textOf, writeInput } from "./browser.mjs";
import { herd } from "./small_herd.mjs";

const { withDesk } = testDesks();

// 200 % of a window of 1280 pixels leaves 640, with two pixels of the screen for each.
const screens = [{ width: 390, height: 800 }, { width: 768, height: 1000 }, { width: 640, height: 512, deviceScaleFactor: 2 }];

/** What stands outside of the window, but for what can be scrolled into it. */
function findCut() {
  const wide = document.documentElement.clientWidth;
  const isScrolled = (element) => {
    for (let above = element.parentElement; above !== null; above = above.parentElement) {
      if (/auto|scroll|hidden/.test(getComputedStyle(above).overflowX)) return true;
    }
    return false;
  };
  const isOut = (element) => {
    const { left, right, width } = element.getBoundingClientRect();
    return width > 0 && (right > wide + 1 || left < -1) && element.checkVisibility() && !element.matches(".skip") && !isScrolled(element);
  };
  const out = [...document.querySelectorAll("body *")].filter(isOut).map((element) => `${element.tagName}#${element.id}.${element.className} ${element.textContent.slice(0, 40)}`);
  const { scrollWidth } = document.documentElement;
  return scrollWidth > wide ? [...out, `the page is ${scrollWidth} wide, the window ${wide}`] : out;
}

/** Texts of charts that leave their chart, or stand on one another. */
function findCutInCharts() {
  const problems = [];
  for (const chart of document.querySelectorAll("#forecast-body svg[role=img]")) {
    const box = chart.getBoundingClientRect(), name = chart.querySelector("title")?.textContent;
    const texts = [...chart.querySelectorAll("text")].filter((text) => text.textContent.trim() !== "" && text.checkVisibility())
      .map((text) => ({ words: text.textContent, box: text.getBoundingClientRect() }));
    for (const [place, one] of texts.entries()) {
      const isOut = one.box.left < box.left - 1 || one.box.right > box.right + 1 || one.box.top < box.top - 1 || one.box.bottom > box.bottom + 1;
      if (isOut) problems.push(`${name}: "${one.words}" is cut`);
      const isOn = (other) => Math.min(one.box.right, other.box.right) - Math.max(one.box.left, other.box.left) > 1 &&
        Math.min(one.box.bottom, other.box.bottom) - Math.max(one.box.top, other.box.top) > 3;
      const other = texts.slice(place + 1).find(isOn);
      if (other !== undefined) problems.push(`${name}: "${one.words}" stands on "${other.words}"`);
    }
  }
  return problems;
}

async function expectNothingCut(page, view, find = findCut) {
  for (const screen of screens) {
    await page.setViewport(screen);
    assert.deepEqual(await page.evaluate(find), [], `${view} at ${screen.width}`);
  }
  await page.setViewport({ width: 1100, height: 900 });
}

for (const language of ["en", "nl"]) {
  test(`ChartsOfTheForecastAreWholeAtAnyWidth-${language}`, () => withDesk(async (page) => {
    await openExample(page);
    await enter(page, "breeding");
    await page.type("#forecast-years", "8");
    await page.type("#forecast-most-litters-a-year", "2");
    await page.click("#make-forecast");
    await page.waitForFunction(() => document.querySelector("#forecast-body svg") !== null && document.querySelector("#stop-forecast") === null);
    assert.ok(await page.$$eval("#forecast-body svg[role=img]", (charts) => charts.length) >= 3);
    await expectNothingCut(page, "forecast");
    await expectNothingCut(page, "charts of the forecast", findCutInCharts);
    await page.evaluate(() => document.querySelectorAll("#forecast-body details").forEach((details) => { details.open = true; }));
    await expectNothingCut(page, "tables of the forecast");
  }, { language }));
}

async function openExample(page) {
  await page.evaluate(() => [...document.querySelectorAll("button")].find(({ textContent }) => /^(Try the example|Probeer het voorbeeld)$/.test(textContent)).click());
  await page.waitForFunction(() => !document.getElementById("step-check").disabled, { timeout: 60_000 });
  await idle(page);
}

for (const language of ["en", "nl"]) {
  test(`NothingIsCutAtAnyWidth-${language}`, () => withDesk(async (page) => {
    await expectNothingCut(page, "empty");
    await openExample(page);
    await expectNothingCut(page, "data");
    await enter(page, "settings");
    await expectNothingCut(page, "settings");
    await enter(page, "check");
    await page.waitForSelector("#findings tbody tr");
    await expectNothingCut(page, "check");
    await page.click("[id^=mend-]");
    await page.waitForSelector(".mend table, .mending .hint");
    await expectNothingCut(page, "mending");
    await enter(page, "results");
    await expectNothingCut(page, "charts");
    await page.setViewport({ width: 768, height: 1000 });
    const columns = await page.$eval("#results-body .cards", (cards) => getComputedStyle(cards).gridTemplateColumns);
    assert.match(columns, /^[0-9.]+px$/, "a table of limits with long words has the whole width");
    await page.click("#view-animals");
    await page.waitForSelector("#all-animals tbody tr");
    await page.type("#animals-leastF", "x");
    await page.waitForFunction(() => document.getElementById("animals-leastF-problem").textContent !== "");
    await expectNothingCut(page, "all animals");
    await page.click("#all-animals .press[data-animal]");
    await page.waitForSelector("#card[open] #card-body svg");
    await expectNothingCut(page, "card");
    await page.click("#card-close");
    await page.waitForFunction(() => !document.getElementById("card").open);
    await page.evaluate(() => document.querySelectorAll("#step button[aria-pressed]")[2].click());
    await page.waitForFunction(() => (document.getElementById("report")?.textContent ?? "").length > 0);
    await expectNothingCut(page, "report");
    await enter(page, "breeding");
    await page.type("#search-female", "1");
    await page.waitForSelector("#search-female-list li");
    await expectNothingCut(page, "search");
    await page.click("#search-female-list li");
    await idle(page);
    await page.click("#rank");
    await page.waitForSelector("#males tbody tr");
    await page.click("[id^=leave-out-]");
    await page.waitForSelector("#leave-out-why");
    await page.type("#plan-matings", "10");
    await page.click("#make-plan");
    await idle(page);
    await page.waitForSelector("#plan-pairs tbody tr");
    await expectNothingCut(page, "breeding");
    await page.click("#help-button");
    await expectNothingCut(page, "help");
  }, { language }));
}

/** What has the focus, in words. */
const focused = (page) => page.evaluate(() => {
  const { activeElement } = document;
  return activeElement === document.body ? "nothing" : activeElement.getAttribute("aria-label") ?? activeElement.id;
});

test("TheFocusStaysOnAColumnThatGetsAnotherMeaning", () => withDesk(async (page, desk) => {
  await choose(page, writeInput(desk, "herd.csv", herd()));
  const chooser = await page.$('select[aria-label^="what column 2 holds"]');
  await chooser.focus();
  await page.select('select[aria-label^="what column 2 holds"]', "");
  await idle(page);
  assert.equal(await focused(page), "what column 2 holds (name)");
}));

test("TheFocusStaysOnTicksAndNamesAndGoesOnWithTab", () => withDesk(async (page, desk) => {
  await choose(page, writeInput(desk, "herd.csv", herd()));
  await enter(page, "settings");
  await page.focus("#species");
  await page.keyboard.type("sh");
  await idle(page);
  assert.equal(await focused(page), "species");
  await page.focus("#unknown");
  await page.keyboard.type("nobody");
  await page.keyboard.press("Tab");
  await idle(page);
  assert.notEqual(await focused(page), "nothing", "Tab out of a field that changes the page goes on");
  const all = await page.evaluate(() => [...document.querySelectorAll("#work :is(button, input, select, [tabindex='0'])")].map(({ id }) => id));
  assert.ok(all.indexOf(await focused(page)) > all.indexOf("unknown") || await page.evaluate(() => document.getElementById("unknown").compareDocumentPosition(document.activeElement) === 4), "and not to the top");
}));

test("TheFocusStaysOnButtonsWithoutAName", () => withDesk(async (page) => {
  await openExample(page);
  await enter(page, "check");
  await page.waitForSelector("#findings tbody tr");
  const label = await page.$eval('button[aria-label^="Show: "]', (button) => button.getAttribute("aria-label"));
  await page.focus(`button[aria-label="${label}"]`);
  await page.keyboard.press("Enter");
  await page.waitForSelector('#kinds button[aria-pressed="true"]');
  assert.equal(await focused(page), label);
  await enter(page, "results");
  await page.focus("#search-animal");
  await page.keyboard.press("Tab");
  await page.evaluate(() => [...document.querySelectorAll("#step button[aria-pressed]")][2].focus());
  await page.keyboard.press("Enter");
  await page.waitForSelector("#report");
  assert.equal(await page.evaluate(() => document.activeElement.textContent), "Report as text");
  await page.focus("#view-animals");
  await page.keyboard.press("Enter");
  await page.waitForSelector("#all-animals tbody tr");
  await page.focus("#sort-f");
  await page.keyboard.press("Enter");
  await page.waitForFunction(() => /▼|▲/.test(document.getElementById("sort-f").textContent));
  assert.equal(await focused(page), "sort-f");
  await page.type("#animals-text", "1");
  await page.waitForFunction(() => document.getElementById("animals-after").disabled === false);
  assert.equal(await focused(page), "animals-text");
}));

test("TheFocusOfAPageThatIsTheLastGoesToTheOneBefore", () => withDesk(async (page) => {
  await openExample(page);
  await enter(page, "results");
  await page.click("#view-animals");
  await page.waitForSelector("#all-animals tbody tr");
  const first = await page.$eval("#all-animals tbody tr td:nth-child(4)", (cell) => Number(cell.textContent));
  await page.type("#animals-firstYear", String(first));
  await page.waitForFunction(() => !document.getElementById("animals-after").disabled);
  await page.focus("#animals-after");
  for (let turned = 0; turned < 10 && await focused(page) === "animals-after"; ++turned) {
    const place = await textOf(page, "#animals-place");
    await page.keyboard.press("Enter");
    await page.waitForFunction((was) => document.getElementById("animals-place").textContent !== was, {}, place);
  }
  assert.equal(await focused(page), "animals-before");
}));
